#include "language/editor/ViewCommands.h"

#include "language/editor/EditorKeys.h"
#include "language/editor/TextView.h"

#include <Qsci/qsciscintillabase.h>

#include <algorithm>

namespace ardiphon {

using Sci = QsciScintillaBase;

bool ViewCommands::run(unsigned command)
{
    switch (command) {
    case NoCommand:
        return false;
    case GoToVisibleStart:
    case ExtendToVisibleStart:
        goToVisible(false, command == ExtendToVisibleStart);
        break;
    case GoToVisibleEnd:
    case ExtendToVisibleEnd:
        goToVisible(true, command == ExtendToVisibleEnd);
        break;
    case GoToParagraphEnd:
    case ExtendToParagraphEnd:
        goToParagraphEnd(command == ExtendToParagraphEnd);
        break;
    case ToggleOvertype:
        m_view.SendScintilla(Sci::SCI_SETOVERTYPE, !m_view.SendScintilla(Sci::SCI_GETOVERTYPE));
        break;
    default:
        m_owner.run(command);
    }
    return true;
}

// Moves to the start of the first visible line, or to the end of the last line that is wholly
// visible.
void ViewCommands::goToVisible(bool end, bool extend)
{
    const long top = m_view.SendScintilla(Sci::SCI_GETFIRSTVISIBLELINE);
    const auto lines = ulong(m_view.SendScintilla(Sci::SCI_GETLINECOUNT));
    const long rows = m_view.SendScintilla(Sci::SCI_VISIBLEFROMDOCLINE, lines);
    const long bottom = std::min(top + m_view.SendScintilla(Sci::SCI_LINESONSCREEN), rows) - 1;
    const auto line =
        ulong(m_view.SendScintilla(Sci::SCI_DOCLINEFROMVISIBLE, ulong(end ? bottom : top)));
    moveCaret(
        m_view.SendScintilla(end ? Sci::SCI_GETLINEENDPOSITION : Sci::SCI_POSITIONFROMLINE, line),
        extend);
}

// Blank lines separate the paragraphs; those that end in hidden lines are skipped. From the end of
// a paragraph this goes to the end of the next; the library's command would go to the beginning of
// the next.
void ViewCommands::goToParagraphEnd(bool extend)
{
    const long last = m_view.SendScintilla(Sci::SCI_GETLINECOUNT) - 1;
    const long caret = m_view.SendScintilla(Sci::SCI_GETCURRENTPOS);
    long line = m_view.SendScintilla(Sci::SCI_LINEFROMPOSITION, ulong(caret));
    if (caret == m_view.SendScintilla(Sci::SCI_GETLINEENDPOSITION, ulong(line)) && line < last)
        ++line;
    while (line < last && isBlankLine(line))
        ++line;
    while (line < last && (!isBlankLine(line + 1) || isBlankLine(line) ||
                           !m_view.SendScintilla(Sci::SCI_GETLINEVISIBLE, ulong(line))))
        ++line;
    moveCaret(m_view.SendScintilla(Sci::SCI_GETLINEENDPOSITION, ulong(line)), extend);
}

bool ViewCommands::isBlankLine(long line) const
{
    return m_view.SendScintilla(Sci::SCI_GETLINEINDENTPOSITION, ulong(line)) ==
           m_view.SendScintilla(Sci::SCI_GETLINEENDPOSITION, ulong(line));
}

void ViewCommands::moveCaret(long caret, bool extend)
{
    const long anchor = extend ? m_view.SendScintilla(Sci::SCI_GETANCHOR) : caret;
    m_view.SendScintilla(Sci::SCI_SETSEL, ulong(anchor), caret);
    m_view.SendScintilla(Sci::SCI_CHOOSECARETX);
}

} // namespace ardiphon
