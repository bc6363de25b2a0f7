#include "language/editor/TextSelection.h"

#include <Qsci/qsciscintillabase.h>

namespace ardiphon {

using Sci = QsciScintillaBase;

void TextSelection::show(TextRange range)
{
    m_text.select(range);
    if (!m_view.updatesEnabled())
        return;
    // Set again in this way the library treats it as the user's selection: it draws it in the
    // colours of a selection, and the middle button pastes it.
    if (range.start < range.end)
        m_view.SendScintilla(Sci::SCI_SETANCHOR, ulong(range.start));
    m_view.SendScintilla(Sci::SCI_SCROLLRANGE, ulong(range.start), long(range.end));
    m_view.SendScintilla(Sci::SCI_CHOOSECARETX);
}

void TextSelection::replace(const QString &text)
{
    const EditStep step(m_view);
    const qsizetype end = m_text.replace(range(), text.toUtf8());
    m_text.select({end, end});
    if (!m_view.updatesEnabled())
        return;
    m_view.SendScintilla(Sci::SCI_SCROLLCARET);
    m_view.SendScintilla(Sci::SCI_CHOOSECARETX);
}

} // namespace ardiphon
