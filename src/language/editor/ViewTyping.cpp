#include "language/editor/ViewTyping.h"

#include "language/editor/FurtherCarets.h"
#include "language/editor/TextBuffer.h"
#include "language/editor/TextView.h"

#include <utility>

namespace ardiphon {

using Sci = QsciScintillaBase;

ViewTyping::ViewTyping(QsciScintillaBase &view, TextViewOwner &owner, FurtherCarets &carets,
                       TypeKey typeKey)
    : m_view(view), m_owner(owner), m_carets(carets), m_typeKey(std::move(typeKey))
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
    m_carets.settle();
    m_owner.edited();
}

void ViewTyping::insertNewLine()
{
    if (m_carets.areThere()) {
        m_carets.replaceEach([this](long start, long end) { return newLineFor(start, end); });
        m_view.SendScintilla(Sci::SCI_SCROLLCARET);
        return;
    }
    const EditStep step(m_view);
    const long at = m_view.SendScintilla(Sci::SCI_GETSELECTIONSTART);
    const auto blanks = m_owner.newLineBlanks(at);
    if (blanks && blanks->line)
        setBlanks(m_view.SendScintilla(Sci::SCI_LINEFROMPOSITION, ulong(at)),
                  blanks->line->toUtf8());
    const long start = m_view.SendScintilla(Sci::SCI_GETSELECTIONSTART);
    const long end = m_view.SendScintilla(Sci::SCI_GETSELECTIONEND);
    QByteArray text = newLineFor(start, end);
    if (blanks)
        text = lineEndFor(start, end, !blanks->next.isEmpty()) + blanks->next.toUtf8();
    m_view.SendScintilla(Sci::SCI_REPLACESEL, text.constData());
    m_view.SendScintilla(Sci::SCI_SCROLLCARET);
    m_view.SendScintilla(Sci::SCI_CHOOSECARETX);
}

void ViewTyping::setBlanks(long line, const QByteArray &blanks)
{
    m_view.SendScintilla(Sci::SCI_SETTARGETRANGE,
                         ulong(m_view.SendScintilla(Sci::SCI_POSITIONFROMLINE, ulong(line))),
                         m_view.SendScintilla(Sci::SCI_GETLINEINDENTPOSITION, ulong(line)));
    m_view.SendScintilla(Sci::SCI_REPLACETARGET, uintptr_t(blanks.size()), blanks.constData());
}

/// The line end that takes the place of what is selected, with the blanks of the line above.
QByteArray ViewTyping::newLineFor(long start, long end) const
{
    const QByteArray blanks = m_autoIndent ? blanksAbove(start) : QByteArray();
    return lineEndFor(start, end, !blanks.isEmpty()) + blanks;
}

/// The blanks that the line of \a start begins with, as far as that.
QByteArray ViewTyping::blanksAbove(long start) const
{
    QByteArray blanks;
    const long line = m_view.SendScintilla(Sci::SCI_LINEFROMPOSITION, ulong(start));
    for (long at = m_view.SendScintilla(Sci::SCI_POSITIONFROMLINE, ulong(line)); at < start; ++at) {
        const char c = char(m_view.SendScintilla(Sci::SCI_GETCHARAT, ulong(at)));
        if (c != ' ' && c != '\t')
            break;
        blanks.append(c);
    }
    return blanks;
}

/// A CR and an LF that meet are one line end, so there would be no new line.
QByteArray ViewTyping::lineEndFor(long start, long end, bool blanksFollow) const
{
    static constexpr const char *ends[] = {"\r\n", "\r", "\n"};
    const QByteArray lineEnd = ends[m_view.SendScintilla(Sci::SCI_GETEOLMODE)];
    if (lineEnd == "\r" && !blanksFollow &&
        m_view.SendScintilla(Sci::SCI_GETCHARAT, ulong(end)) == '\n')
        return "\r\n";
    if (lineEnd == "\n" && start > 0 &&
        m_view.SendScintilla(Sci::SCI_GETCHARAT, ulong(start - 1)) == '\r')
        return "\r\n";
    return lineEnd;
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
    if (code > 0xFFFF && m_carets.areThere())
        m_carets.replaceEach([&](long, long) { return character.toUtf8(); });
    else if (code > 0xFFFF)
        m_view.SendScintilla(Sci::SCI_REPLACESEL, character.toUtf8().constData());
    else if (!typeWithBlanks(character))
        m_typeKey(character);
    m_owner.edited();
}

/// Types a character with which the blanks of its line change, as one step of history. False where
/// they stay: then the character is to join those that were typed before.
bool ViewTyping::typeWithBlanks(const QString &character)
{
    if (m_carets.areThere() || m_view.SendScintilla(Sci::SCI_GETSELECTIONEMPTY) == 0)
        return false;
    const long at = m_view.SendScintilla(Sci::SCI_GETCURRENTPOS);
    const auto blanks = m_owner.typedBlanks(at, character);
    if (!blanks)
        return false;
    const EditStep step(m_view);
    m_typeKey(character);
    setBlanks(m_view.SendScintilla(Sci::SCI_LINEFROMPOSITION, ulong(at)), blanks->toUtf8());
    m_view.SendScintilla(Sci::SCI_SCROLLCARET);
    m_view.SendScintilla(Sci::SCI_CHOOSECARETX);
    return true;
}

// Overwriting replaces a selected character, so that a handler of KeyPress finds in the selection
// what will be replaced. With several carets the library overwrites at each.
bool ViewTyping::selectCharacterToOverwrite()
{
    const long caret = m_view.SendScintilla(Sci::SCI_GETCURRENTPOS);
    if (!m_view.SendScintilla(Sci::SCI_GETOVERTYPE) || m_carets.areThere() ||
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
