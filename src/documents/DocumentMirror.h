#pragma once

#include "app/DocumentRole.h"

namespace ardiphon {

struct ConfigurationBlock;
class Document;

// The configuration has the names of the open documents for the parts that read them there: the
// compilers, printing, the window that is opened next. The documents themselves do not read them.

/// Writes the name of \a document into the field of its role. To be called after each change of a
/// document.
void mirrorDocument(ConfigurationBlock &config, const Document &document);

/// Writes whether the bookmarks of the document of that role have changed.
void mirrorBookmarks(ConfigurationBlock &config, DocumentRole role, bool changed);

} // namespace ardiphon
