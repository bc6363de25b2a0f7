#pragma once

#include <QRect>
#include <QString>

namespace ardiphon {

class LEditOCX;

/// Whether the document is empty; makes no copy of it.
bool isEmptyText(const LEditOCX &editor);

/// Sets the search properties and calls `FindFirst`: true when found, and then the match is
/// selected and shown. \a direction: one of FindDirection.
bool findFirst(LEditOCX &editor, const QString &text, int direction, bool wholeWord);

/// Sets the search properties and calls `FindNext`: true when found, and then the match is in the
/// selection record.
bool findNext(LEditOCX &editor, const QString &text, int direction, bool wholeWord);

/// Sets the selection record to an empty selection at that place.
void setRecord(LEditOCX &editor, int line, int column);

/// Where the selection is on the screen; empty when nothing of it is visible.
QRect selectionOnScreen(LEditOCX &editor);

/// Gives the editor the focus, and its window if another one is in front.
void giveFocus(LEditOCX &editor);

} // namespace ardiphon
