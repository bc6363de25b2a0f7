#include "navigation/ui/Instruments.h"

#include "app/Numbers.h"
#include "language/TextSearch.h"
#include "language/editor/LEditOCX.h"
#include "navigation/SearchRules.h"
#include "navigation/ui/EditorSearch.h"

#include <QLineEdit>

namespace ardiphon {

namespace {

const QString InstrumentWord = QStringLiteral("instr");

} // namespace

Instruments::Instruments(LEditOCX &editor) : QObject(&editor), m_editor(editor) {}

bool Instruments::hasText()
{
    if (!isEmptyText(m_editor))
        return true;
    m_editor.setFocus();
    return false;
}

bool Instruments::find(int direction)
{
    return findFirst(m_editor, InstrumentWord, direction, true);
}

/// Moves the caret to a line from which a search is to begin, and returns where it was. The columns
/// of the selection stay.
Instruments::Place Instruments::leaveForLine(int line)
{
    m_editor.GetSelection();
    const Place place{m_editor.TopLine(), m_editor.SelStartLine, m_editor.SelStartColumn};
    m_editor.SelStartLine = m_editor.SelEndLine = line;
    m_editor.SetSelection();
    return place;
}

/// The first visible line is set last: a caret that was not visible stays so.
void Instruments::comeBack(const Place &place)
{
    setRecord(m_editor, place.SelStartLine, place.SelStartColumn);
    m_editor.SetSelection();
    m_editor.SetTopLine(place.TopLine);
}

void Instruments::GoToNextInstrument()
{
    if (!hasText())
        return;
    if (find(FindDirection::Down)) {
        m_editor.GetSelection();
        m_editor.SetTopLine(m_editor.SelStartLine);
    }
    m_editor.setFocus();
}

void Instruments::GoToPreviousInstrument()
{
    if (!hasText())
        return;
    find(FindDirection::Up);
    m_editor.setFocus();
}

void Instruments::GoToFirstInstrument()
{
    if (!hasText())
        return;
    const Place place = leaveForLine(1);
    if (find(FindDirection::Down)) {
        m_editor.GetSelection();
        m_editor.SetTopLine(m_editor.SelStartLine);
    } else {
        comeBack(place);
    }
    m_editor.setFocus();
}

void Instruments::GoToLastInstrument()
{
    if (!hasText())
        return;
    const Place place = leaveForLine(m_editor.LineCount());
    if (!find(FindDirection::Up))
        comeBack(place);
    m_editor.setFocus();
}

void Instruments::GoToInstrumentNumber(QLineEdit &TextInstr)
{
    if (!hasText())
        return;
    if (!TextInstr.text().isEmpty()) {
        if (!isNumber(TextInstr.text()))
            return;
        TextInstr.setText(TextInstr.text().trimmed());
        const Place place = leaveForLine(1);
        if (!findNumber(TextInstr.text()))
            comeBack(place);
    }
    m_editor.setFocus();
}

bool Instruments::findNumber(const QString &number)
{
    const TextSearch numberInLine(number, true);
    while (findNext(m_editor, InstrumentWord, FindDirection::Down, true)) {
        const int line = m_editor.SelStartLine;
        if (!numberInLine.forward(m_editor.LineText(line).toUtf8(), 0))
            continue;
        m_editor.SetTopLine(line);
        m_editor.SetSelection();
        return true;
    }
    return false;
}

} // namespace ardiphon
