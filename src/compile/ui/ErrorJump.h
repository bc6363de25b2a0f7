#pragma once

namespace ardiphon {

class LEditOCX;

/// Selects line \a line of \a editor, which a log has named, and scrolls so that some of the lines
/// around it are visible. For a line beyond the text the editor decides what is selected.
void jumpToErrorLine(LEditOCX &editor, int line);

} // namespace ardiphon
