#include "language/TextChange.h"

#include <algorithm>

namespace ardiphon {

void TextChange::join(const TextChange &next)
{
    // Both as lines of the text between the two changes.
    const int first = std::min(line, next.line);
    const int behind = std::max(line + linesAdded, next.line + next.linesRemoved);
    const int kept = behind - first - linesAdded;
    *this = {first, linesRemoved + kept, behind - first - next.linesRemoved + next.linesAdded};
}

} // namespace ardiphon
