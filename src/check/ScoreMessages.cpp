#include "check/ScoreMessages.h"

#include <QRegularExpression>

#include <algorithm>

namespace ardiphon {

namespace {

/// A part of a line, in characters; none where it is shorter than 1.
struct Part
{
    qsizetype start = 0;
    qsizetype length = 0;
};

Part wholeText(const QString &line)
{
    const QString text = line.trimmed();
    return {line.indexOf(text), text.size()};
}

/// A field, or the part of one, that is \a word.
Part field(const QString &line, const QString &word)
{
    static const QRegularExpression fields(QStringLiteral("[^\\s]+"));
    for (auto each = fields.globalMatch(line); each.hasNext();) {
        const QRegularExpressionMatch found = each.next();
        if (found.captured().contains(word))
            return {found.capturedStart(), found.capturedLength()};
    }
    return {};
}

Part statement(const QString &line, const QString &letter)
{
    return line.trimmed().startsWith(letter) ? wholeText(line) : Part();
}

Part oddQuotes(const QString &line, const QString &)
{
    return line.count(u'"') % 2 != 0 ? Part{line.lastIndexOf(u'"'), 1} : Part();
}

/// A text in quotes where a statement has its time or its duration.
Part earlyText(const QString &line, const QString &)
{
    static const QRegularExpression early(
        QStringLiteral("^\\s*[a-zA-Z]\\s*\\S+\\s+(?:\\S+\\s+)?(\"[^\"]*\"?)"));
    const QRegularExpressionMatch found = early.match(line);
    return found.hasMatch() ? Part{found.capturedStart(1), found.capturedLength(1)} : Part();
}

/// An expression in brackets that is not closed, or that has two numbers side by side.
Part brokenExpression(const QString &line, const QString &)
{
    static const QRegularExpression broken(
        QStringLiteral("\\[(?:[^\\]]*$|[^\\]]*[\\d.]\\s+[\\d.][^\\]]*\\]?|[^\\]]*\\[[^\\]]*\\]?)"));
    const QRegularExpressionMatch found = broken.match(line);
    return found.hasMatch() ? Part{found.capturedStart(), found.capturedLength()} : Part();
}

Part closingBrace(const QString &line, const QString &)
{
    return {std::max<qsizetype>(line.indexOf(u'}'), 0), line.contains(u'}')};
}

Part ramp(const QString &line, const QString &)
{
    const qsizetype at = line.indexOf(QRegularExpression(QStringLiteral("[(){}~<>]")));
    return {std::max<qsizetype>(at, 0), at >= 0};
}

Part tempo(const QString &line, const QString &) { return statement(line, QStringLiteral("t")); }

Part nothing(const QString &, const QString &) { return {}; }

/// A message of the compiler, with what it quotes as the first capture.
struct ScoreMessage
{
    const char *pattern;
    const char *sentence;
    Part (*find)(const QString &line, const QString &quoted);
};

constexpr ScoreMessage Messages[] = {
    {"illegal number format:\\s+(\\S+)", "The compiler cannot read %1 as a number and takes 0.",
     field},
    {"has illegal number\\s+(\\S+)", "The compiler cannot read %1 as a number.", field},
    {"illegal opcode (\\S)", "The score has no statement %1.", statement},
    {"unexpected char (\\S)", "%1 cannot stand here; the rest of the line is left out.", field},
    {"illegally placed string",
     "A text in quotes cannot stand here; the rest of the line is left "
     "out.",
     earlyText},
    {"unmatched quote", "The text in quotes does not end on its line.", oddQuotes},
    {"unmatched \\} in score", "No loop begins that this could end.", closingBrace},
    {"\\[\\] expression|illegal character", "The compiler cannot read this expression.",
     brokenExpression},
    {"expramp", "The compiler finds nothing to go from or to here.", ramp},
    {"extra or disordered beat value", "The beats of the tempo are not in their order.", tempo},
    {"unexpected EOF", "The score ends within something, as the text of a macro.", nothing},
};

struct Found
{
    const ScoreMessage *message = nullptr;
    QString quoted;
};

Found messageIn(const QString &text)
{
    for (const ScoreMessage &each : Messages) {
        const auto match = QRegularExpression(QString::fromLatin1(each.pattern)).match(text);
        if (match.hasMatch())
            return {&each, match.captured(1)};
    }
    return {};
}

/// Without a comment to the line's end.
QString codeOf(const QString &line) { return line.section(u';', 0, 0); }

} // namespace

bool isScoreMessage(const QString &text)
{
    static const QStringList speakers = {QStringLiteral("sread: "),
                                         QStringLiteral("swrite: "),
                                         QStringLiteral("score error: "),
                                         QStringLiteral("twarp: "),
                                         QStringLiteral("unmatched } in score"),
                                         QStringLiteral("unexpected EOF")};
    return std::any_of(speakers.begin(), speakers.end(),
                       [&](const QString &each) { return text.startsWith(each); });
}

bool endsReading(const QString &text)
{
    return text.startsWith(QLatin1String("score error: ")) ||
           text.startsWith(QLatin1String("unmatched }")) ||
           text.startsWith(QLatin1String("unexpected EOF"));
}

QString scoreSentence(const CompilerMessage &message)
{
    const Found found = messageIn(message.text);
    if (!found.message)
        return QStringLiteral("The compiler says of the score: ") + message.text;
    const QString sentence = QLatin1String(found.message->sentence);
    return found.quoted.isEmpty() ? sentence : sentence.arg(u'"' + found.quoted + u'"');
}

PiecePlace scorePlace(const CompilerMessage &message, const PieceText &score, LineRun lines)
{
    const auto place = [&](int line, Part part) {
        return PiecePlace{score.role(), line, int(part.start), int(part.length)};
    };
    const Found found = messageIn(message.text);
    for (int line = lines.first; line <= lines.last && found.message; ++line) {
        const QString text = codeOf(QString::fromUtf8(score.line(line)));
        if (const Part part = found.message->find(text, found.quoted); part.length > 0)
            return place(line, part);
    }
    const int line = found.message ? std::max(lines.first, lines.last) : lines.first;
    if (line > score.lineCount())
        return place(score.lineCount(), {});
    return place(line, wholeText(QString::fromUtf8(score.line(line))));
}

} // namespace ardiphon
