#include "check/CompilerProblems.h"

#include "check/ArgumentFixes.h"
#include "check/NearNames.h"
#include "check/ScoreMessages.h"
#include "typing/Signature.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int MostFixes = 3;

QString inQuotes(const QString &text) { return u'"' + text + u'"'; }

/// As "a, b or c".
QString listed(const QStringList &parts, const char *last)
{
    if (parts.size() < 2)
        return parts.value(0);
    return parts.first(parts.size() - 1).join(QLatin1String(", ")) + u' ' +
           QString::fromLatin1(last) + u' ' + parts.last();
}

/// What the compiler calls a token that it expects.
QString expectedInWords(const QString &token)
{
    if (token == QLatin1String("NEWLINE"))
        return QStringLiteral("the end of the line");
    if (token == QLatin1String("end of file"))
        return QStringLiteral("the end of the orchestra");
    if (token.startsWith(u'\''))
        return token.mid(1, 1);
    return {};
}

struct TypeWord
{
    char letter;
    const char *words;
};

constexpr TypeWord TypeWords[] = {
    {'a', "an audio signal"},   {'k', "a control value"}, {'i', "an init value"},
    {'c', "a number"},          {'p', "a p-field"},       {'S', "a text"},
    {'f', "a spectral signal"}, {'B', "a condition"},     {'b', "a condition"},
    {'r', "a header value"},    {'w', "a spectrum"},      {'l', "a label"},
    {'[', "an array"},
};

class ProblemWriter
{
public:
    ProblemWriter(const CheckedPiece &checked, const OpcodeWords &words)
        : m_checked(checked),
          m_text(*checked.piece.orchestra()),
          m_places(m_text, checked.orchestra,
                   [this](QByteArrayView name) { return isOpcode(QString::fromUtf8(name)); }),
          m_words(words)
    {
    }

    /// What is likely to be behind other messages that the compiler ended with.
    std::optional<Problem> writeLostHeading() const
    {
        const auto lost = lostHeading(m_text, m_checked.orchestra.lines);
        if (!lost)
            return std::nullopt;
        Problem problem = noHeading(*lost);
        problem.source = CompilerSource;
        return problem;
    }

    Problem write(const CompilerMessage &message) const
    {
        Problem problem = ofKind(message);
        problem.source = CompilerSource;
        if (!message.isError)
            problem.severity = Severity::Warning;
        if (m_places.isElsewhere(message))
            problem.sentence = QStringLiteral("In the included file: ") + problem.sentence;
        return problem;
    }

private:
    bool isOpcode(const QString &name) const
    {
        const QByteArray bytes = name.toUtf8();
        return m_checked.piece.isOpcode(bytes) || m_checked.piece.definesOpcode(bytes);
    }

    Problem ofKind(const CompilerMessage &message) const
    {
        const auto at = [&](const QString &sentence) {
            return Problem{Severity::Error, m_places.placeOf(message), sentence, {}};
        };
        switch (message.kind) {
        case MessageKind::Syntax:
        case MessageKind::UnexpectedEnd:
            return ofSyntax(message);
        case MessageKind::NoMatch:
            return isOpcode(message.token) || m_places.isElsewhere(message)
                       ? ofNoMatch(message)
                       : noOpcode(m_places.placeOf(message), message.token);
        case MessageKind::UndefinedName:
            return ofUndefinedName(message);
        case MessageKind::UndefinedMacro:
            return ofUndefinedMacro(message);
        case MessageKind::MissingFile:
            return at(QStringLiteral("The file %1 cannot be read.").arg(inQuotes(message.token)));
        case MessageKind::UnterminatedText:
            return at(QStringLiteral("The text in quotes does not end on its line."));
        case MessageKind::Score:
            return {Severity::Error,
                    scorePlace(message, *m_checked.piece.score(), m_checked.score.lines),
                    scoreSentence(message),
                    {}};
        case MessageKind::Other:
            break;
        }
        return at(message.text);
    }

    Problem ofSyntax(const CompilerMessage &message) const
    {
        const PiecePlace place = m_places.placeOf(message);
        if (m_places.isElsewhere(message))
            return {Severity::Error, place, notExpected(message), {}};
        if (endsSomething(message)) {
            if (const auto open = m_places.openBlock(message))
                return notEnded(*open);
        }
        if (message.token == QLatin1String("endin") || message.token == QLatin1String("endop")) {
            if (const auto lost = lostHeading(m_text, m_checked.orchestra.lines))
                return noHeading(*lost);
        }
        if (const auto unknown = unknownOpcode(message, place))
            return noOpcode(*unknown, m_places.textAt(*unknown));
        return {Severity::Error, place, notExpected(message), {}};
    }

    static bool endsSomething(const CompilerMessage &message)
    {
        static const QStringList words = {QStringLiteral("endin"),   QStringLiteral("instr"),
                                          QStringLiteral("opcode"),  QStringLiteral("endop"),
                                          QStringLiteral("endif"),   QStringLiteral("od"),
                                          QStringLiteral("enduntil")};
        return message.kind == MessageKind::UnexpectedEnd || words.contains(message.token);
    }

    Problem notEnded(const OpenBlock &open) const
    {
        const QString what = open.kind == LandmarkKind::Instrument ? QStringLiteral("instrument")
                             : open.kind == LandmarkKind::Opcode   ? QStringLiteral("opcode")
                                                                   : inQuotes(open.word);
        const QString end = open.kind == LandmarkKind::Instrument ? QStringLiteral("endin")
                            : open.kind == LandmarkKind::Opcode   ? QStringLiteral("endop")
                                                                  : endOf(open.word);
        return {Severity::Error,
                m_places.wholeLine(open.lastLine),
                QStringLiteral("The %1 that begins in line %2 has no %3.")
                    .arg(what)
                    .arg(open.line)
                    .arg(end),
                {}};
    }

    Problem noHeading(const LostHeading &lost) const
    {
        const bool isInstrument = lost.kind == LandmarkKind::InstrumentEnd;
        return {Severity::Error,
                m_places.wholeLine(lost.line),
                QStringLiteral("The \"%1\" of line %2 has no \"%3\" that begins here or above.")
                    .arg(isInstrument ? QStringLiteral("endin") : QStringLiteral("endop"))
                    .arg(lost.endLine)
                    .arg(isInstrument ? QStringLiteral("instr") : QStringLiteral("opcode")),
                {}};
    }

    static QString endOf(const QString &word)
    {
        if (word == QLatin1String("if"))
            return QStringLiteral("endif");
        return word == QLatin1String("switch") ? QStringLiteral("endsw") : QStringLiteral("od");
    }

    /// A word at which the compiler stumbles because it is no opcode, or the function before the
    /// bracket that it does not understand.
    std::optional<PiecePlace> unknownOpcode(const CompilerMessage &message,
                                            const PiecePlace &place) const
    {
        const bool isWord = !message.token.isEmpty() &&
                            (message.token.front().isLetter() || message.token.front() == u'_');
        if (isWord && !isOpcode(message.token) && isAfterNames(place) &&
            m_places.textAt(place) == message.token)
            return place;
        return m_places.unknownFunction(place.line);
    }

    /// Whether the word at \a place is where the name of an opcode is: with nothing but names of
    /// outputs before it.
    bool isAfterNames(const PiecePlace &place) const
    {
        QString before = QString::fromUtf8(m_text.line(place.line)).first(place.column).trimmed();
        return std::all_of(before.begin(), before.end(), [](QChar c) {
            return c.isLetterOrNumber() || c == u'_' || c == u',' || c == u'[' || c == u']' ||
                   c == u' ' || c == u'\t';
        });
    }

    Problem noOpcode(const PiecePlace &place, const QString &name) const
    {
        Problem problem{Severity::Error,
                        place,
                        QStringLiteral("There is no opcode %1.").arg(inQuotes(name)),
                        {}};
        for (const QString &near : nearNames(name, m_words.names, MostFixes))
            problem.fixes.append({QStringLiteral("Insert %1").arg(near), place, near});
        return problem;
    }

    static QString notExpected(const CompilerMessage &message)
    {
        QStringList expected;
        for (const QString &each : message.expected) {
            if (const QString words = expectedInWords(each); !words.isEmpty())
                expected.append(words);
        }
        QString sentence = message.kind == MessageKind::UnexpectedEnd
                               ? QStringLiteral("The orchestra ends too early.")
                           : message.token.isEmpty()
                               ? QStringLiteral("The line ends too early.")
                               : inQuotes(message.token) + QStringLiteral(" cannot stand here.");
        if (!expected.isEmpty())
            sentence += QStringLiteral(" Expected is %1.").arg(listed(expected, "or"));
        return sentence;
    }

    Problem ofNoMatch(const CompilerMessage &message) const
    {
        Problem problem{Severity::Error, m_places.placeOf(message), {}, {}};
        problem.sentence = message.given.isEmpty()
                               ? QStringLiteral("%1 does not take %2.")
                                     .arg(inQuotes(message.token), typesInWords(message.taken))
                               : QStringLiteral("%1 does not take %2 and give %3.")
                                     .arg(inQuotes(message.token), typesInWords(message.taken),
                                          typesInWords(message.given));
        const QList<Signature> forms =
            signaturesOf(m_words.parameters(message.token), message.token);
        QStringList texts;
        for (const Signature &form : forms)
            texts.append(form.text);
        if (!texts.isEmpty())
            problem.sentence +=
                QStringLiteral(" It is written: ") + texts.join(QStringLiteral("; "));
        if (m_places.textAt(problem.place) == message.token)
            problem.fixes =
                argumentFixes(m_text.line(problem.place.line), problem.place, forms, MostFixes);
        return problem;
    }

    Problem ofUndefinedName(const CompilerMessage &message) const
    {
        const PiecePlace place = m_places.placeOf(message);
        const QString line = QString::fromUtf8(m_text.line(place.line));
        const bool isLabel = line.first(std::min<qsizetype>(place.column, line.size()))
                                 .trimmed()
                                 .endsWith(QLatin1String("goto"));
        const QString sentence =
            isLabel
                ? QStringLiteral("There is no label %1.").arg(inQuotes(message.token))
                : QStringLiteral("%1 is used before it has a value.").arg(inQuotes(message.token));
        return {Severity::Error, place, sentence, {}};
    }

    /// In the orchestra, or else in the score.
    Problem ofUndefinedMacro(const CompilerMessage &message) const
    {
        const QString use = u'$' + message.token;
        PiecePlace place = m_places.placeOf(message);
        const PieceText &score = *m_checked.piece.score();
        const LineRun lines = m_checked.score.lines;
        for (int line = lines.first; line <= lines.last && !m_places.textAt(place).startsWith(use);
             ++line) {
            const qsizetype at = QString::fromUtf8(score.line(line)).indexOf(use);
            if (at >= 0) {
                place = {score.role(), line, int(at), int(use.size())};
                break;
            }
        }
        return {
            Severity::Error, place, QStringLiteral("There is no macro %1.").arg(message.token), {}};
    }

    const CheckedPiece &m_checked;
    const PieceText &m_text;
    const MessagePlaces m_places;
    const OpcodeWords &m_words;
};

} // namespace

QList<Problem> problemsOf(const QList<CompilerMessage> &messages, const CheckedPiece &checked,
                          const OpcodeWords &words)
{
    QList<Problem> problems;
    const ProblemWriter writer(checked, words);
    const auto add = [&problems](const Problem &problem) {
        const bool isKnown =
            std::any_of(problems.begin(), problems.end(),
                        [&](const Problem &other) { return other.place == problem.place; });
        if (!isKnown)
            problems.append(problem);
    };
    bool isRefused = false;
    for (const CompilerMessage &message : messages) {
        add(writer.write(message));
        isRefused |= message.isError;
    }
    if (const auto lost = isRefused ? writer.writeLostHeading() : std::nullopt)
        add(*lost);
    return problems;
}

QString typesInWords(const QString &types)
{
    QStringList words;
    for (const QChar letter : types) {
        const auto found =
            std::find_if(std::begin(TypeWords), std::end(TypeWords),
                         [=](const TypeWord &each) { return letter == QLatin1Char(each.letter); });
        if (found != std::end(TypeWords))
            words.append(QLatin1String(found->words));
    }
    return words.isEmpty() ? QStringLiteral("nothing") : listed(words, "and");
}

} // namespace ardiphon
