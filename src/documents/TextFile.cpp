#include "documents/TextFile.h"

#include "language/DocumentText.h"
#include "language/Utf8.h"
#include "platform/Dialogs.h"
#include "platform/DocumentFile.h"
#include "platform/FileFailure.h"

namespace ardiphon {

/// A file that is no UTF-8 is taken as Latin-1, as in an editor.
std::optional<QString> readTextFile(const QString &path, Dialogs &dialogs)
{
    FileFailure why;
    auto bytes = readDocumentFile(path, &why);
    if (!bytes) {
        dialogs.message({notOpenedText(path, why)});
        return std::nullopt;
    }
    return stringOf(withLineEnds(decodeDocument(*std::move(bytes)).utf8, LineEnd::CrLf));
}

bool writeTextFile(const QString &path, const QString &text, Dialogs &dialogs)
{
    FileFailure why;
    const bool written = writeDocumentFile(path, text.toUtf8(), &why);
    if (!written)
        dialogs.message({notSavedText(path, why)});
    return written;
}

} // namespace ardiphon
