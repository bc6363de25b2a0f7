#pragma once

#include "language/editor/TextBuffer.h"

namespace ardiphon {

/// The selection of the view. While the view's updates are off nothing is scrolled: in a long
/// series of searches and replacements the library would lay out a line for each of them, which
/// takes far longer than they do.
class TextSelection
{
public:
    TextSelection(QsciScintillaBase &view, TextBuffer &text) : m_view(view), m_text(text) {}

    TextRange range() const { return m_text.selection(); }
    /// With CR LF line ends; "" with no selection.
    QString text() const { return m_text.text(range()); }

    /// Selects \a range as if the user had done it, and scrolls it into view.
    void show(TextRange range);
    /// Replaces what is selected, or inserts at the caret, as one step of history. The caret ends
    /// behind \a text, in view.
    void replace(const QString &text);

private:
    QsciScintillaBase &m_view;
    TextBuffer &m_text;
};

} // namespace ardiphon
