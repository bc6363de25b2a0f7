#include "compile/CompilerLog.h"

#include "language/LineEnds.h"
#include "platform/DocumentFile.h"
#include "platform/RegularFile.h"

#include <QFile>

#include <algorithm>
#include <tuple>

namespace ardiphon {

namespace {

constexpr qsizetype LongestLine = 4000;
constexpr QLatin1String LineEnd("\r\n");

bool isBetween(char c, char first, char last) { return c >= first && c <= last; }

/// The position after the escape sequence that begins at \a at.
qsizetype endOfEscape(QByteArrayView log, qsizetype at)
{
    const auto skip = [&](char first, char last) {
        while (at < log.size() && isBetween(log[at], first, last))
            ++at;
    };
    if (++at == log.size())
        return at;
    if (QByteArrayView("]P_^X").contains(log[at])) { // a text for the terminal, up to its end mark
        while (at < log.size() && !isLineEnd(log[at]) && log[at] != '\a' && log[at] != '\x1b')
            ++at;
        if (at < log.size() && log[at] == '\x1b')
            return at + (at + 1 < log.size() && log[at + 1] == '\\' ? 2 : 0);
        return at + (at < log.size() && log[at] == '\a' ? 1 : 0);
    }
    const bool control = log[at] == '[';
    if (control)
        ++at;
    skip(' ', control ? '?' : '/');
    return at + (at < log.size() && isBetween(log[at], control ? '@' : '0', '~') ? 1 : 0);
}

QByteArray withoutEscapes(QByteArrayView log)
{
    QByteArray bytes = log.toByteArray();
    bytes.removeIf([](char c) { return c == '\0'; });
    QByteArray plain;
    plain.reserve(bytes.size());
    for (qsizetype at = 0; at < bytes.size();) {
        const qsizetype found = bytes.indexOf('\x1b', at);
        const qsizetype escape = found < 0 ? bytes.size() : found;
        plain.append(bytes.constData() + at, escape - at);
        at = found < 0 ? bytes.size() : endOfEscape(bytes, escape);
    }
    return plain;
}

void appendLine(QString &text, QByteArrayView line)
{
    const QString decoded =
        line.isValidUtf8() ? QString::fromUtf8(line) : QString::fromLatin1(line);
    if (decoded.size() <= LongestLine) {
        text.append(decoded);
        return;
    }
    for (qsizetype at = 0; at < decoded.size(); at += LongestLine) {
        if (at > 0)
            text.append(LineEnd);
        text.append(QStringView(decoded).mid(at, LongestLine));
    }
}

/// How much of the beginning of \a bytes fits into \a portion, ending with a whole line where
/// possible.
qsizetype headLength(QByteArrayView bytes, const LogPortion &portion)
{
    const qsizetype limit = std::min<qsizetype>(bytes.size(), portion.bytes);
    qsizetype length = 0;
    qint64 lines = 0;
    for (qsizetype at = 0; at < limit && lines < portion.lines; ++at) {
        if (isLineEnd(bytes[at])) {
            length = at + 1;
            ++lines;
        }
    }
    return length > 0 ? length : limit;
}

/// The same for the end of \a bytes.
qsizetype tailLength(QByteArrayView bytes, const LogPortion &portion)
{
    const qsizetype limit = std::min<qsizetype>(bytes.size(), portion.bytes);
    qsizetype length = 0;
    qint64 lines = 0;
    for (qsizetype back = 1; back <= limit && lines < portion.lines; ++back) {
        if (isLineEnd(bytes[bytes.size() - back])) {
            length = back - 1;
            ++lines;
        }
    }
    return length > 0 ? length : limit;
}

} // namespace

QString cleanLog(QByteArrayView log)
{
    const QByteArray plain = withoutEscapes(log);
    QString text;
    text.reserve(plain.size());
    qsizetype lineStart = 0;
    for (qsizetype at = 0; at < plain.size(); ++at) {
        if (!isLineEnd(plain[at]))
            continue;
        appendLine(text, QByteArrayView(plain).sliced(lineStart, at - lineStart));
        text.append(LineEnd);
        if (plain[at] == '\r' && at + 1 < plain.size() && plain[at + 1] == '\n')
            ++at;
        lineStart = at + 1;
    }
    appendLine(text, QByteArrayView(plain).sliced(lineStart));
    return text;
}

QString missingLogText(const QString &path)
{
    // Find out whether the compiler could have written it, by writing a few lines there.
    const QString probe = path + QStringLiteral(".probe");
    constexpr int fewLines = 4096;
    const Result<> written = writeDocumentFile(probe, QByteArray(fewLines, '\n'));
    std::ignore = removeDocumentFile(probe); // it is removed with the folder at the latest
    return QStringLiteral("There is no log of this run: ") +
           (written ? QStringLiteral("the compiler has written none")
                    : reasonText(written.failure(), QStringLiteral("the folder for it"))) +
           u'.';
}

QString logGapText(qint64 bytes)
{
    return QStringLiteral("\r\n[... %1 bytes of the log are not shown here ...]\r\n\r\n")
        .arg(bytes);
}

std::optional<QString> readCompilerLog(const QString &path, const LogPortion &portion)
{
    QFile file(path);
    if (!openRegularFile(file))
        return std::nullopt;
    const qint64 size = file.size();
    QByteArray head = file.read(2 * portion.bytes);
    QByteArray tail = head;
    if (size > 2 * portion.bytes) {
        file.seek(size - portion.bytes);
        tail = file.read(portion.bytes);
    } else if (std::count_if(head.cbegin(), head.cend(), isLineEnd<char>) <= 2 * portion.lines) {
        return cleanLog(head);
    }
    head.truncate(headLength(head, portion));
    tail = tail.last(tailLength(tail, portion));
    return cleanLog(head) + logGapText(size - head.size() - tail.size()) + cleanLog(tail);
}

} // namespace ardiphon
