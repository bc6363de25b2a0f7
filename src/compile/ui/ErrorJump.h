#pragma once

namespace ardiphon {

class LEditOCX;

/// Selects the line \a line of \a editor, which a log has named, and has it stand where some of the
/// lines around it are seen. What a line beyond the text selects is the editor's matter.
void jumpToErrorLine(LEditOCX &editor, int line);

} // namespace ardiphon
