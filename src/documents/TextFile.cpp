#include "documents/TextFile.h"

#include "language/DocumentText.h"
#include "language/Utf8.h"
#include "platform/DocumentFile.h"

namespace ardiphon {

/// A file that is no UTF-8 is taken as Latin-1, as in an editor.
std::optional<QString> readTextFile(const QString &path)
{
    auto bytes = readDocumentFile(path);
    if (!bytes)
        return std::nullopt;
    return stringOf(withLineEnds(decodeDocument(*std::move(bytes)).utf8, LineEnd::CrLf));
}

bool writeTextFile(const QString &path, const QString &text)
{
    return writeDocumentFile(path, text.toUtf8());
}

} // namespace ardiphon
