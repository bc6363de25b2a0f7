#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace ardiphon {

/// How much of a log is kept from its beginning, and as much again from its end.
struct LogPortion
{
    qint64 bytes = qint64{8} * 1024 * 1024;
    qint64 lines = 200'000;
};

/// The text of a log, with CR LF line ends. Escape sequences of terminals and NUL bytes are left
/// out; a line that is not UTF-8 is read as Latin-1; a line of more than 4000 characters is broken,
/// as a text view lays out whole lines.
QString cleanLog(QByteArrayView log);

/// The message for a run that left no log, or an empty one, at \a path: one sentence with the
/// reason, as far as the disk shows one.
QString missingLogText(const QString &path);

/// The text that replaces \a bytes that are left out of a log.
QString logGapText(qint64 bytes);

/// Reads and cleans the log at \a path. Of a log that is longer than both portions together the
/// middle is not read, and one line says how much that is. Nothing when there is no regular file to
/// read.
std::optional<QString> readCompilerLog(const QString &path, const LogPortion &portion = {});

} // namespace ardiphon
