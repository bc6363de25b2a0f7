#pragma once

#include "app/DocumentRole.h"

namespace ardiphon {

struct ConfigurationBlock;
class Document;

// The configuration names the open documents for those who read them there: the compilers, the
// printing, the window that is opened next. The documents themselves do not.

/// Writes the name of \a document into the field of its role. What changes a document calls this.
void mirrorDocument(ConfigurationBlock &config, const Document &document);

/// Writes whether the bookmarks of the document of that role have changed.
void mirrorBookmarks(ConfigurationBlock &config, DocumentRole role, bool changed);

} // namespace ardiphon
