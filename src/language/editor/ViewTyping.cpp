#include "language/editor/ViewTyping.h"

#include "language/editor/TextView.h"

#include <utility>

namespace ardiphon {

using Sci = QsciScintillaBase;

ViewTyping::ViewTyping(QsciScintillaBase &view, TextViewOwner &owner, TypeKey typeKey)
    : m_view(view), m_owner(owner), m_typeKey(std::move(typeKey))
{
}

void ViewTyping::typeControl(int character, bool back)
{
    if (m_owner.keyPress(character) == 0)
        return;
    switch (character) {
    case 13:
        insertNewLine();
        break;
    case 9:
        m_view.SendScintilla(back ? Sci::SCI_BACKTAB : Sci::SCI_TAB);
        break;
    case 8:
        m_view.SendScintilla(Sci::SCI_DELETEBACK);
        break;
    default:
        m_view.SendScintilla(Sci::SCI_CLEAR);
    }
    m_owner.edited();
}

void ViewTyping::insertNewLine()
{
    static constexpr const char *ends[] = {"\r\n", "\r", "\n"};
    QByteArray text = ends[m_view.SendScintilla(Sci::SCI_GETEOLMODE)];
    const long start = m_view.SendScintilla(Sci::SCI_GETSELECTIONSTART);
    const long line = m_view.SendScintilla(Sci::SCI_LINEFROMPOSITION, ulong(start));
    long at = m_view.SendScintilla(Sci::SCI_POSITIONFROMLINE, ulong(line));
    for (; m_autoIndent && at < start; ++at) {
        const char c = char(m_view.SendScintilla(Sci::SCI_GETCHARAT, ulong(at)));
        if (c != ' ' && c != '\t')
            break;
        text.append(c);
    }
    // A CR and an LF that meet are one line end, so there would be no new line.
    const long end = m_view.SendScintilla(Sci::SCI_GETSELECTIONEND);
    if (text == "\r" && m_view.SendScintilla(Sci::SCI_GETCHARAT, ulong(end)) == '\n')
        text = "\r\n";
    else if (text[0] == '\n' && start > 0 &&
             m_view.SendScintilla(Sci::SCI_GETCHARAT, ulong(start - 1)) == '\r')
        text.prepend('\r');
    m_view.SendScintilla(Sci::SCI_REPLACESEL, text.constData());
    m_view.SendScintilla(Sci::SCI_SCROLLCARET);
    m_view.SendScintilla(Sci::SCI_CHOOSECARETX);
}

void ViewTyping::typeText(const QString &text)
{
    for (const char32_t code : text.toUcs4()) {
        const long caret = m_view.SendScintilla(Sci::SCI_GETCURRENTPOS);
        const bool overwrites = selectCharacterToOverwrite();
        const int typed = m_owner.keyPress(int(code));
        if (typed == 0 && overwrites)
            m_view.SendScintilla(Sci::SCI_SETEMPTYSELECTION, caret);
        else if (typed != 0)
            typeCharacter(char32_t(typed));
    }
}

// The library joins what it is given as a key to one step of history, but refuses what needs two
// QChars.
void ViewTyping::typeCharacter(char32_t code)
{
    const QString character = QString::fromUcs4(&code, 1);
    if (code > 0xFFFF)
        m_view.SendScintilla(Sci::SCI_REPLACESEL, character.toUtf8().constData());
    else
        m_typeKey(character);
    m_owner.edited();
}

// Overwriting replaces a selected character, so that a handler of KeyPress finds in the selection
// what will be replaced.
bool ViewTyping::selectCharacterToOverwrite()
{
    const long caret = m_view.SendScintilla(Sci::SCI_GETCURRENTPOS);
    if (!m_view.SendScintilla(Sci::SCI_GETOVERTYPE) ||
        m_view.SendScintilla(Sci::SCI_GETSELECTIONEMPTY) == 0)
        return false;
    const long line = m_view.SendScintilla(Sci::SCI_LINEFROMPOSITION, ulong(caret));
    if (caret >= m_view.SendScintilla(Sci::SCI_GETLINEENDPOSITION, ulong(line)))
        return false;
    m_view.SendScintilla(Sci::SCI_SETSEL, ulong(caret),
                         m_view.SendScintilla(Sci::SCI_POSITIONAFTER, caret));
    return true;
}

} // namespace ardiphon
