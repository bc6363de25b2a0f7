#include "navigation/BookmarkFile.h"

#include "app/Blanks.h"
#include "app/Numbers.h"
#include "platform/DocumentFile.h"
#include "platform/RegularFile.h"

#include <limits>

namespace ardiphon {

namespace {

// Each slot is a record of two fields of single-byte characters, padded with blanks.
constexpr int FieldLength = 20;
constexpr int RecordLength = 2 * FieldLength;
const QString NoBookmark = QStringLiteral("[NONE]");

constexpr int ShownCharacters = 16;

QByteArray field(const QString &text)
{
    return text.toLatin1().leftJustified(FieldLength, ' ', true);
}

QByteArray record(const Bookmark &bookmark)
{
    if (bookmark.isFree())
        return field(NoBookmark) + field(NoBookmark);
    return field(QString::number(bookmark.line)) + field(bookmark.text);
}

Bookmark bookmarkOf(const QByteArray &record)
{
    const QString text = QString::fromLatin1(record.mid(FieldLength));
    if (text.trimmed() == NoBookmark)
        return {};
    const double line = leadingNumber(QString::fromLatin1(record.left(FieldLength)));
    return {text, line < 1 ? -1 : roundedWithin(line, 1, std::numeric_limits<int>::max())};
}

} // namespace

QString bookmarkFilePath(const QString &documentPath, const QString &extension)
{
    return documentPath.left(documentPath.lastIndexOf(u'.') + 1) + extension;
}

QString bookmarkText(const QString &lineText)
{
    QString text = withoutBlanksAround(QStringView(lineText).left(ShownCharacters)).toString();
    text.replace(u'\r', u' ').replace(u'\t', u' '); // this may leave blanks at the ends again
    return QStringLiteral("-> ") + withoutBlanksAround(text).toString();
}

Result<bool> writeBookmarkFile(const QString &path, const BookmarkSet &bookmarks)
{
    bool anyUsed = false;
    QByteArray bytes;
    for (const Bookmark &bookmark : bookmarks) {
        anyUsed = anyUsed || !bookmark.isFree();
        bytes += record(bookmark);
    }
    const Result<> done = anyUsed ? writeDocumentFile(path, bytes) : removeDocumentFile(path);
    if (!done)
        return done.failure();
    return anyUsed;
}

Result<BookmarkSet> readBookmarkFile(const QString &path)
{
    const auto bytes = readRegularFile(path, BookmarkSlots * RecordLength);
    if (!bytes)
        return bytes.failure();
    BookmarkSet bookmarks;
    qsizetype at = 0;
    for (Bookmark &bookmark : bookmarks) {
        bookmark = bookmarkOf(bytes->mid(at, RecordLength).leftJustified(RecordLength, ' '));
        at += RecordLength;
    }
    return bookmarks;
}

} // namespace ardiphon
