#include "navigation/ui/Definitions.h"

#include "language/WordTables.h"
#include "language/editor/LEditOCX.h"
#include "navigation/SearchRules.h"
#include "navigation/ui/EditorSearch.h"

#include <QAction>

namespace ardiphon {

Definitions::Definitions(LEditOCX &editor, const WordTables &words, QAction &definition,
                         QAction &reference)
    : QObject(&editor),
      m_editor(editor),
      m_words(words),
      m_definition(definition),
      m_reference(reference)
{
}

void Definitions::prepareEntries(LEditOCX &clicked, bool available)
{
    clicked.UpdateCurrentWord();
    m_word = clicked.CurrentWord();
    m_definition.setText(definitionCaption(m_word));
    m_reference.setText(referenceCaption(m_word));
    m_definition.setEnabled(available);
    m_reference.setEnabled(available);
}

void Definitions::goTo(const DefinitionRules &rules)
{
    if (m_word.isEmpty() || isEmptyText(m_editor)) {
        if (rules.focusesWithoutWord)
            m_editor.setFocus();
        return;
    }
    if (m_words.FindInTable(m_word) != 0) // opcodes are not defined in the text
        return;
    m_editor.GetSelection();
    const WordToFind word = wordToFind(rules, m_word, m_editor.LineText(m_editor.SelStartLine));
    if (word.global)
        goToGlobal(rules, word.text);
    else
        goToLocal(rules, word.text);
}

void Definitions::goToGlobal(const DefinitionRules &rules, const QString &text)
{
    if (!rules.globalFromTop) {
        findFirst(m_editor, text, FindDirection::Down, true);
        return;
    }
    setRecord(m_editor, 1, 0);
    if (findNext(m_editor, text, FindDirection::Down, true))
        m_editor.SetSelection();
}

/// The search works in the selection record, and the view only moves to a line between the caret's
/// "instr" and "endin".
void Definitions::goToLocal(const DefinitionRules &rules, const QString &text)
{
    const int curLine = m_editor.SelStartLine;
    const int col = m_editor.SelEndColumn;
    setRecord(m_editor, curLine, col);
    if (!findNext(m_editor, QStringLiteral("instr"), FindDirection::Up, true))
        return;
    const int instrLine = m_editor.SelStartLine;

    setRecord(m_editor, curLine, col);
    findNext(m_editor, QStringLiteral("endin"), FindDirection::Down, true);
    const int endinLine = m_editor.SelStartLine;

    if (rules.localFromInstrument)
        setRecord(m_editor, instrLine, 0);
    else
        setRecord(m_editor, curLine, col);
    if (!findNext(m_editor, text, FindDirection::Down, true))
        return;
    if (m_editor.SelStartLine > instrLine && m_editor.SelStartLine < endinLine)
        m_editor.SetSelection();
}

} // namespace ardiphon
