#pragma once

#include <QString>

namespace ardiphon {

class LEditOCX;

/// Whether \a text stands anywhere in the editor, with exactly these letters. Leaves the view and
/// the selection record as they are; the search properties are used up.
bool containsExactly(LEditOCX &editor, const QString &text);

} // namespace ardiphon
