#include "documents/TextFile.h"

#include "language/DocumentText.h"
#include "language/Utf8.h"
#include "platform/DocumentFile.h"

#include <utility>

namespace ardiphon {

Result<QString> readTextFile(const QString &path)
{
    Result<QByteArray> bytes = readDocumentFile(path);
    if (!bytes)
        return bytes.failure();
    return stringOf(withLineEnds(decodeDocument(*std::move(bytes)).utf8, LineEnd::CrLf));
}

Result<> writeTextFile(const QString &path, const QString &text)
{
    return writeDocumentFile(path, text.toUtf8());
}

} // namespace ardiphon
