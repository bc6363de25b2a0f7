// The document, the selection record and the events of the editor control.

#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"

#include <QSignalSpy>
#include <QTemporaryDir>

using namespace ardiphon;
using namespace EditorInput;

class tst_LEditOCX : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_editor.reset(); }

    void text_newControl_isEmpty();
    void text_anyLineEnds_areCrLf();
    void setText_undo_isOneStep();
    void state_typingAndUndo_followsTheText();
    void typing_letters_reachTheText();
    void selection_record_isNotLive();

private:
    std::unique_ptr<LEditOCX> m_editor;
};

void tst_LEditOCX::init()
{
    m_editor = std::make_unique<LEditOCX>();
    m_editor->resize(600, 300);
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
}

void tst_LEditOCX::text_newControl_isEmpty()
{
    QCOMPARE(m_editor->Text(), QString());
    QCOMPARE(m_editor->LineCount(), 1);
    QVERIFY(!m_editor->GetState(2));
}

void tst_LEditOCX::text_anyLineEnds_areCrLf()
{
    m_editor->SetText("a\nb\rc\r\nd");
    QCOMPARE(m_editor->Text(), "a\r\nb\r\nc\r\nd");
    QCOMPARE(m_editor->LineCount(), 4);
    QCOMPARE(m_editor->LineText(3), "c");
}

void tst_LEditOCX::setText_undo_isOneStep()
{
    m_editor->SetText("one\r\ntwo\r\nthree");
    m_editor->SetText("one\r\nTWO\r\nthree\r\nfour");
    QCOMPARE(m_editor->Text(), "one\r\nTWO\r\nthree\r\nfour");
    m_editor->Undo();
    QCOMPARE(m_editor->Text(), "one\r\ntwo\r\nthree");
    m_editor->Redo();
    QCOMPARE(m_editor->Text(), "one\r\nTWO\r\nthree\r\nfour");
}

void tst_LEditOCX::state_typingAndUndo_followsTheText()
{
    type(*m_editor, "x");
    QVERIFY(m_editor->GetState(2));
    QVERIFY(!m_editor->GetState(1));
    m_editor->ResetUndo();
    QVERIFY(m_editor->GetState(2));
    m_editor->ClearState(1);
    QVERIFY(m_editor->GetState(2));
    m_editor->ClearState(2);
    QVERIFY(!m_editor->GetState(2));
}

void tst_LEditOCX::typing_letters_reachTheText()
{
    type(*m_editor, "instr 1");
    press(*m_editor, Qt::Key_Return);
    type(*m_editor, "endin");
    QCOMPARE(m_editor->Text(), "instr 1\r\nendin");
}

void tst_LEditOCX::selection_record_isNotLive()
{
    m_editor->SetText("one\r\ntwo");
    m_editor->SelStartLine = 2;
    m_editor->SelEndLine = 2;
    m_editor->SelStartColumn = 1;
    m_editor->SelEndColumn = 3;
    QCOMPARE(m_editor->SelectionLength(), 0);
    m_editor->SetSelection();
    QCOMPARE(m_editor->SelText(), "wo");
    QCOMPARE(selection(*m_editor), "2:1-2:3");
}

QTEST_MAIN(tst_LEditOCX)
#include "tst_LEditOCX.moc"
