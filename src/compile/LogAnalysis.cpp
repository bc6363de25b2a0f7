#include "compile/LogAnalysis.h"

#include "app/Numbers.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <limits>

namespace ardiphon {

namespace {

/// A kind of error: the words that report it, and the text before the line's number.
struct ErrorPattern
{
    QString words;
    QString marker;
    ErrorTarget target;
};

const ErrorPattern Patterns[] = {
    {QStringLiteral("error"), QStringLiteral(" line"), ErrorTarget::Orchestra},
    {QStringLiteral("unexpected char"), QStringLiteral("line"), ErrorTarget::Score},
    {QStringLiteral("illegal opcode"), QStringLiteral("line"), ErrorTarget::Score},
};

bool isWordCharacter(const QString &text, qsizetype at)
{
    return at >= 0 && at < text.size() && (text[at].isLetterOrNumber() || text[at] == u'_');
}

/// The first place of \a words as whole words in any case, or -1.
qsizetype findWords(const QString &text, const QString &words)
{
    qsizetype at = -1;
    do
        at = text.indexOf(words, at + 1, Qt::CaseInsensitive);
    while (at >= 0 && (isWordCharacter(text, at - 1) || isWordCharacter(text, at + words.size())));
    return at;
}

int lineNumberOf(QStringView text)
{
    constexpr int most = std::numeric_limits<int>::max();
    return roundedWithin(leadingNumber(text), -most, most);
}

/// Reads the line in which \a pattern was found at \a start.
LogFinding readErrorLine(const QString &text, qsizetype start, const ErrorPattern &pattern)
{
    const qsizetype end = text.indexOf(QLatin1String("\r\n"), start);
    if (end < 0) // a last line without its end is not read
        return {start, 0, std::nullopt};
    const QStringView words = QStringView(text).sliced(start, end - start);
    LogFinding finding{start, words.size(), std::nullopt};
    if (const qsizetype marker = words.indexOf(pattern.marker); marker >= 0)
        finding.place = {pattern.target,
                         lineNumberOf(words.sliced(marker + pattern.marker.size()))};
    return finding;
}

/// Whether \a line has the file name of \a path, and not as a part of a longer name.
bool namesFile(const QString &line, const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    if (name.isEmpty())
        return false;
    const QRegularExpression whole(
        QStringLiteral("(?<![\\w.-])%1(?!\\w|[.-]\\w)").arg(QRegularExpression::escape(name)),
        QRegularExpression::UseUnicodePropertiesOption);
    return line.contains(whole);
}

ErrorTarget fileNamedIn(const QString &line, const QString &orchestra, const QString &score)
{
    if (namesFile(line, orchestra))
        return ErrorTarget::Orchestra;
    return namesFile(line, score) ? ErrorTarget::Score : ErrorTarget::None;
}

std::optional<int> numberNamedIn(const QString &line)
{
    static const QRegularExpression number(QStringLiteral("\\bline:?\\s+(\\d+)"),
                                           QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = number.match(line);
    if (!match.hasMatch())
        return std::nullopt;
    return lineNumberOf(match.capturedView(1));
}

bool beginsWithFile(const QString &line)
{
    return line.trimmed().startsWith(QLatin1String("from file"));
}

/// The nearest line that is not blank, \a step lines away at a time; -1 when there is none near.
qsizetype nextWritten(const QStringList &lines, qsizetype index, int step)
{
    for (int i = 0; i < LinesAround; ++i) {
        index += step;
        if (index < 0 || index >= lines.size())
            return -1;
        if (!lines[index].trimmed().isEmpty())
            return index;
    }
    return -1;
}

} // namespace

LogFinding findLogError(const QString &text)
{
    for (const ErrorPattern &pattern : Patterns) {
        // Words at the very beginning of the text do not count as found.
        if (const qsizetype start = findWords(text, pattern.words); start >= 1)
            return readErrorLine(text, start, pattern);
    }
    return {};
}

std::optional<ErrorPlace> placeNamedAt(const QStringList &lines, qsizetype index,
                                       const QString &orchestra, const QString &score)
{
    const QString &line = lines[index];
    std::optional<int> number = numberNamedIn(line);
    ErrorTarget target = fileNamedIn(line, orchestra, score);
    if (number && target == ErrorTarget::None) {
        const qsizetype below = nextWritten(lines, index, 1);
        if (below >= 0 && beginsWithFile(lines[below]))
            target = fileNamedIn(lines[below], orchestra, score);
    } else if (!number && target != ErrorTarget::None && beginsWithFile(line)) {
        const qsizetype above = nextWritten(lines, index, -1);
        if (above >= 0 && fileNamedIn(lines[above], orchestra, score) == ErrorTarget::None)
            number = numberNamedIn(lines[above]);
    }
    if (!number || target == ErrorTarget::None)
        return std::nullopt;
    return ErrorPlace{target, *number};
}

} // namespace ardiphon
