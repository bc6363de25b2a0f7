#pragma once

class QObject;

namespace ardiphon {

/// Gives each view of the text a plain accessible interface while no assistive tool is connected,
/// and the library's full one while one is. The full one counts the characters from the document's
/// start to the caret several times per key, whether or not a tool listens.
void installPlainAccessible();

} // namespace ardiphon
