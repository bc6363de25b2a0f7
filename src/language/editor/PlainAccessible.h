#pragma once

class QObject;

namespace ardiphon {

/// Gives each view of the text a plain accessible interface while nobody listens, and the library's
/// full one while an assistive tool is connected. The full one counts the characters from the
/// document's start to the caret several times a key, whether or not anybody listens.
void installPlainAccessible();

} // namespace ardiphon
