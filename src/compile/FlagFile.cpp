#include "compile/FlagFile.h"

#include "app/Blanks.h"
#include "platform/DocumentFile.h"
#include "platform/RegularFile.h"

#include <QFileInfo>
#include <QtEndian>

#include <optional>
#include <utility>

namespace ardiphon {

namespace {

constexpr qsizetype RecordLength = 50;
constexpr qsizetype HeadLength = 4;
constexpr quint16 TextType = 8;
/// The longest list of flags; what follows in a file is not read.
constexpr qsizetype MostRecords = 5000;

/// Single-byte characters, as other systems write them. A text that would be read back differently
/// is written as UTF-8.
QByteArray encoded(const QString &text)
{
    const QByteArray bytes = text.toLatin1();
    const bool isAscii = bytes == text.toUtf8();
    const bool comesBack =
        QString::fromLatin1(bytes) == text && !QByteArrayView(bytes).isValidUtf8();
    return isAscii || comesBack ? bytes : text.toUtf8();
}

QString decoded(QByteArrayView bytes)
{
    const qsizetype end = bytes.indexOf('\0');
    const QByteArrayView text = end < 0 ? bytes : bytes.first(end);
    return withoutTrailingBlanks(text.isValidUtf8() ? QString::fromUtf8(text)
                                                    : QString::fromLatin1(text));
}

/// As much of the beginning of \a text as fits into a record.
QByteArray encodedBeginning(QString text)
{
    text.truncate(RecordLength);
    while (encoded(text).size() > RecordLength)
        text.chop(text.size() > 1 && text.back().isLowSurrogate() ? 2 : 1);
    return encoded(text);
}

std::optional<QByteArray> record(const QString &flag, FlagLayout layout)
{
    if (layout == FlagLayout::Padded)
        return encodedBeginning(withoutTrailingBlanks(flag)).leftJustified(RecordLength, ' ');
    const QByteArray text = encoded(withoutTrailingBlanks(flag));
    if (text.size() > RecordLength - HeadLength)
        return std::nullopt;
    QByteArray bytes(RecordLength, '\0');
    qToLittleEndian(TextType, bytes.data());
    qToLittleEndian(quint16(text.size()), bytes.data() + 2);
    return bytes.replace(HeadLength, text.size(), text);
}

std::optional<QString> flagOf(QByteArrayView record, FlagLayout layout)
{
    if (layout == FlagLayout::Padded)
        return decoded(record);
    const auto type = qFromLittleEndian<quint16>(record.data());
    const auto length = qFromLittleEndian<quint16>(record.data() + 2);
    if (type != TextType || length == 0 || length > RecordLength - HeadLength)
        return std::nullopt;
    return decoded(record.sliced(HeadLength, length));
}

/// \a bytes with the flags' records written over its beginning.
QByteArray withRecords(QByteArray bytes, FlagLayout layout, const QStringList &flags)
{
    qsizetype end = 0;
    for (qsizetype i = 0; i < flags.size(); ++i) {
        const auto written = record(flags[i], layout);
        if (!written)
            continue;
        end = (i + 1) * RecordLength;
        if (bytes.size() < end)
            bytes.append(end - bytes.size(), '\0');
        bytes.replace(i * RecordLength, RecordLength, *written);
    }
    return bytes;
}

} // namespace

Result<QStringList> readFlagFile(const QString &path, FlagLayout layout)
{
    const Result<QByteArray> bytes = readRegularFile(path, MostRecords * RecordLength);
    if (!bytes)
        return bytes.failure();
    QStringList flags;
    for (qsizetype at = 0; at + RecordLength <= bytes->size(); at += RecordLength)
        if (const auto flag = flagOf(QByteArrayView(*bytes).sliced(at, RecordLength), layout))
            flags.append(*flag);
    return flags;
}

Result<> writeFlagFile(const QString &path, FlagLayout layout, const QStringList &flags)
{
    if (flags.isEmpty())
        return removeDocumentFile(path);
    const Result<QStringList> present = readFlagFile(path, layout);
    if (present && *present == flags)
        return {};
    // A file that cannot be deleted is overwritten, and keeps what follows the new end.
    QByteArray kept;
    const bool deletable = QFileInfo(QFileInfo(path).absolutePath()).isWritable();
    if (!deletable && QFileInfo::exists(path)) {
        Result<QByteArray> bytes = readDocumentFile(path);
        if (!bytes)
            return bytes.failure();
        kept = *std::move(bytes);
    }
    return writeDocumentFile(path, withRecords(kept, layout, flags));
}

} // namespace ardiphon
