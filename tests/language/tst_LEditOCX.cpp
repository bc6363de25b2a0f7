// The document, its files and the selection record of the editor control.

#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/FileBytes.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QDir>
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
    void lines_outsideTheText_areEmpty();
    void lineLength_countsCharacters();
    void setText_undo_isOneStep();
    void setText_change_keepsCaretAndScroll();
    void setText_mixedLineEnds_keepsThoseNotTouched();
    void setText_meetingCrAndLf_staysTwoLines();
    void setText_sameText_changesNothing();
    void setTextOf_takesTheTextInItsOwnLineEnds();
    void setTextOf_sameText_changesNothing();
    void setTextOf_afterAnyChange_copiesAgain();
    void contains_followsEveryChange();
    void state_otherFlags_areIgnored();
    void state_followsUndoToTheSavedText();
    void resetUndo_keepsTheModifiedState();
    void clearDocument_forgetsTextAndHistory();
    void loadFile_anyBytes_saveGivesThemBack_data();
    void loadFile_anyBytes_saveGivesThemBack();
    void loadFile_lf_newLinesAreLf();
    void loadFile_failed_saveToItIsRefused();
    void loadFile_failed_anotherTextMayBeSavedThere();
    void loadFile_missing_saveMakesIt();
    void loadFile_tenMegabyteLine_isEditable();
    void saveFile_failed_staysModified();
    void saveFile_latin1WithCharacterOutside_writesUtf8();
    void selection_record_isNotLive();
    void setSelection_outsideTheText_isClamped_data();
    void setSelection_outsideTheText_isClamped();
    void setSelection_farAway_scrollsThere();
    void selText_write_replacesAndMovesBehind();
    void selectionLength_lineEnd_countsTwo();
    void selectAll_copyPaste_doublesTheText();
    void currentWord_followsTheCaret_data();
    void currentWord_followsTheCaret();

private:
    void load(const QByteArray &bytes);
    QByteArray saved();

    std::unique_ptr<LEditOCX> m_editor;
    QTemporaryDir m_folder;
};

void tst_LEditOCX::init()
{
    m_editor = std::make_unique<LEditOCX>();
    m_editor->resize(600, 300);
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
}

void tst_LEditOCX::load(const QByteArray &bytes)
{
    writeBytes(m_folder.filePath("in"), bytes);
    require(bool(m_editor->LoadFile(m_folder.filePath("in"))), "the file is not read");
}

QByteArray tst_LEditOCX::saved()
{
    QFile file(m_folder.filePath("out"));
    if (!m_editor->SaveFile(file.fileName()) || !file.open(QIODevice::ReadOnly))
        return "(not saved)";
    return file.readAll();
}

void tst_LEditOCX::text_newControl_isEmpty()
{
    QCOMPARE(m_editor->Text(), QString());
    QCOMPARE(m_editor->LineCount(), 1);
    QVERIFY(!m_editor->GetState(TextState));
    QCOMPARE(saved(), QByteArray());
}

void tst_LEditOCX::text_anyLineEnds_areCrLf()
{
    m_editor->SetText("a\nb\rc\r\nd");
    QCOMPARE(m_editor->Text(), "a\r\nb\r\nc\r\nd");
    QCOMPARE(m_editor->LineCount(), 4);
    QCOMPARE(m_editor->LineText(3), "c");
    QCOMPARE(saved(), QByteArray("a\r\nb\r\nc\r\nd"));
}

void tst_LEditOCX::lines_outsideTheText_areEmpty()
{
    m_editor->SetText("one");
    for (int line : {0, -1, 2, INT_MAX, INT_MIN}) {
        QCOMPARE(m_editor->LineText(line), QString());
        QCOMPARE(m_editor->LineLength(line), 0);
    }
}

void tst_LEditOCX::lineLength_countsCharacters()
{
    m_editor->SetText(QString::fromUtf8("è\t€\r\nplain"));
    QCOMPARE(m_editor->LineLength(1), 3);
    QCOMPARE(m_editor->LineLength(2), 5);
}

void tst_LEditOCX::setText_undo_isOneStep()
{
    m_editor->SetText("one\r\ntwo\r\nthree");
    m_editor->SetText("ONE\r\ntwo\r\nTHREE\r\nfour");
    QCOMPARE(m_editor->Text(), "ONE\r\ntwo\r\nTHREE\r\nfour");
    m_editor->Undo();
    QCOMPARE(m_editor->Text(), "one\r\ntwo\r\nthree");
    m_editor->Redo();
    QCOMPARE(m_editor->Text(), "ONE\r\ntwo\r\nTHREE\r\nfour");
    m_editor->Undo();
    m_editor->Undo();
    QCOMPARE(m_editor->Text(), "");
}

void tst_LEditOCX::setText_change_keepsCaretAndScroll()
{
    QString text = QString("line\r\n").repeated(200);
    m_editor->SetText(text);
    goTo(*m_editor, 150, 2);
    m_editor->SetTopLine(145);
    text.insert(6 * 99, "new\r\n");
    m_editor->SetText(text);
    QCOMPARE(selection(*m_editor), "151:2-151:2");
    QVERIFY(m_editor->TopLine() >= 145);
}

void tst_LEditOCX::setText_mixedLineEnds_keepsThoseNotTouched()
{
    load("a\nb\rc\r\nd\ne\n");
    m_editor->SetText("a\r\nb\r\nC\r\nX\r\nd\r\ne\r\n");
    QCOMPARE(saved(), QByteArray("a\nb\rC\nX\r\nd\ne\n"));
}

void tst_LEditOCX::setText_meetingCrAndLf_staysTwoLines()
{
    load("x\ny\rb\nz");
    m_editor->SetText("x\r\ny\r\n\r\nz");
    QCOMPARE(m_editor->Text(), "x\r\ny\r\n\r\nz");
    load("x\ny\rX\n\n");
    m_editor->SetText("x\r\ny\r\n\r\nX\r\n\r\n");
    QCOMPARE(m_editor->Text(), "x\r\ny\r\n\r\nX\r\n\r\n");
}

void tst_LEditOCX::setText_sameText_changesNothing()
{
    load("a\nb\r");
    m_editor->SetText("a\r\nb\r\n");
    QVERIFY(!m_editor->GetState(TextState));
}

void tst_LEditOCX::setTextOf_takesTheTextInItsOwnLineEnds()
{
    load(QByteArray("è\nb\nc\n"));
    LEditOCX other;
    other.SetText(QString::fromUtf8("è\r\nB\r\nX\r\nc\r\n"));
    m_editor->SetTextOf(other);
    QCOMPARE(saved(), QByteArray("è\nB\nX\nc\n"));
    QCOMPARE(other.Text(), QString::fromUtf8("è\r\nB\r\nX\r\nc\r\n"));
    m_editor->Undo();
    QCOMPARE(saved(), QByteArray("è\nb\nc\n"));
    other.SetText({});
    m_editor->SetTextOf(other);
    QCOMPARE(saved(), QByteArray());
}

void tst_LEditOCX::setTextOf_sameText_changesNothing()
{
    load("a\nb\rc\r\n");
    LEditOCX other;
    other.SetText("a\r\nb\r\nc\r\n");
    m_editor->SetTextOf(other);
    m_editor->SetTextOf(*m_editor);
    QVERIFY(!m_editor->GetState(TextState));
    QCOMPARE(saved(), QByteArray("a\nb\rc\r\n"));
}

void tst_LEditOCX::setTextOf_afterAnyChange_copiesAgain()
{
    LEditOCX other;
    other.SetText("one");
    m_editor->SetTextOf(other);
    m_editor->SetTextOf(other);
    QCOMPARE(m_editor->Text(), "one");
    m_editor->SetText("two"); // its own change
    m_editor->SetTextOf(other);
    QCOMPARE(m_editor->Text(), "one");
    m_editor->Undo();
    QCOMPARE(m_editor->Text(), "two");
    m_editor->SetTextOf(other);
    QCOMPARE(m_editor->Text(), "one");
    other.SetText("three"); // the other's change
    m_editor->SetTextOf(other);
    QCOMPARE(m_editor->Text(), "three");
    LEditOCX third;
    m_editor->SetTextOf(third);
    QVERIFY(m_editor->IsEmpty());
    m_editor->SetTextOf(other);
    QCOMPARE(m_editor->Text(), "three");
}

void tst_LEditOCX::contains_followsEveryChange()
{
    const auto tags = [this] {
        QString found;
        for (const char *tag : {"<CsScore>", "</CsScore>", "<CsOptions>"})
            found += m_editor->Contains(QLatin1String(tag)) ? '1' : '0';
        return found;
    };
    QCOMPARE(tags(), "000");
    load("x\n<CsScore>\ni1 0 1\n</CsScore>\n");
    QCOMPARE(tags(), "110");
    goTo(*m_editor, 1, 0);
    type(*m_editor, "<CsOptions>");
    QCOMPARE(tags(), "111");
    goTo(*m_editor, 2, 1);
    type(*m_editor, "s");
    QCOMPARE(tags(), "011");
    m_editor->Undo();
    QCOMPARE(tags(), "111");
    select(*m_editor, 4, 0, 5, 0);
    press(*m_editor, Qt::Key_Delete);
    QCOMPARE(tags(), "101");
    QVERIFY(!m_editor->Contains("<csscore>"));
    QVERIFY(!m_editor->Contains(""));
    m_editor->ClearDocument();
    QCOMPARE(tags(), "000");
    QVERIFY(m_editor->IsEmpty());
    type(*m_editor, " ");
    QVERIFY(!m_editor->IsEmpty());
}

void tst_LEditOCX::state_otherFlags_areIgnored()
{
    type(*m_editor, "x");
    QVERIFY(!m_editor->GetState(1));
    QVERIFY(m_editor->GetState(TextState));
    m_editor->ClearState(1);
    QVERIFY(m_editor->GetState(TextState));
    m_editor->ClearState(TextState);
    QVERIFY(!m_editor->GetState(TextState));
}

void tst_LEditOCX::state_followsUndoToTheSavedText()
{
    type(*m_editor, "x");
    m_editor->ClearState(TextState);
    type(*m_editor, "y");
    QVERIFY(m_editor->GetState(TextState));
    m_editor->Undo();
    QVERIFY(!m_editor->GetState(TextState));
    m_editor->Undo();
    QVERIFY(m_editor->GetState(TextState));
}

void tst_LEditOCX::resetUndo_keepsTheModifiedState()
{
    type(*m_editor, "x");
    m_editor->ResetUndo();
    QVERIFY(m_editor->GetState(TextState));
    m_editor->Undo();
    QCOMPARE(m_editor->Text(), "x");
    m_editor->ClearState(TextState);
    m_editor->ResetUndo();
    QVERIFY(!m_editor->GetState(TextState));
}

void tst_LEditOCX::clearDocument_forgetsTextAndHistory()
{
    load("\xE8\n");
    m_editor->ClearDocument();
    QCOMPARE(m_editor->Text(), "");
    QVERIFY(!m_editor->GetState(TextState));
    m_editor->Undo();
    QCOMPARE(m_editor->Text(), "");
    type(*m_editor, QString::fromUtf8("è"));
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(saved(), QByteArray("\xC3\xA8\r\n"));
}

void tst_LEditOCX::loadFile_anyBytes_saveGivesThemBack_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("utf-8 with its mark") << QByteArray("\xEF\xBB\xBF\xC3\xA8\r\n");
    QTest::newRow("latin-1") << QByteArray("\xE8\n");
    QTest::newRow("nul") << QByteArray("a\0\r\0\n", 5);
    QTest::newRow("mixed line ends") << QByteArray("a\rb\nc\r\nd\n\r\r\n\n");
    QTest::newRow("long line") << QByteArray(300000, 'x');
}

void tst_LEditOCX::loadFile_anyBytes_saveGivesThemBack()
{
    QFETCH(QByteArray, bytes);
    load(bytes);
    QVERIFY(!m_editor->GetState(TextState));
    QCOMPARE(saved(), bytes);
    goTo(*m_editor, 1, 0);
    type(*m_editor, "12");
    press(*m_editor, Qt::Key_Return);
    m_editor->Undo();
    m_editor->Undo();
    QVERIFY(!m_editor->GetState(TextState));
    QCOMPARE(saved(), bytes);
}

void tst_LEditOCX::loadFile_lf_newLinesAreLf()
{
    load("a\n");
    goTo(*m_editor, 1, 1);
    press(*m_editor, Qt::Key_Return);
    m_editor->SetSelText("x\r\ny");
    QCOMPARE(saved(), QByteArray("a\nx\ny\n"));
}

void tst_LEditOCX::loadFile_failed_saveToItIsRefused()
{
    const QString folder = m_folder.filePath("folder");
    QVERIFY(QDir().mkpath(folder));
    m_editor->SetText("old");
    QVERIFY(!m_editor->LoadFile(folder));
    QCOMPARE(m_editor->Text(), "");
    // It can be written now, but what it held was never seen.
    QVERIFY(QDir().rmdir(folder));
    QFile file(folder);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(!m_editor->SaveFile(folder));
    QVERIFY(!m_editor->SaveFile(m_folder.filePath("./folder")));
    QCOMPARE(saved(), QByteArray());
    QVERIFY(file.remove());
    QVERIFY(m_editor->SaveFile(folder));
}

void tst_LEditOCX::loadFile_failed_anotherTextMayBeSavedThere()
{
    const QString folder = m_folder.filePath("unread");
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(!m_editor->LoadFile(folder));
    QVERIFY(QDir().rmdir(folder));
    QFile file(folder);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(!m_editor->SaveFile(folder));
    load("new");
    QVERIFY(m_editor->SaveFile(folder));
}

void tst_LEditOCX::loadFile_missing_saveMakesIt()
{
    const QString path = m_folder.filePath("missing");
    QVERIFY(!m_editor->LoadFile(path));
    QVERIFY(m_editor->SaveFile(path));
    QVERIFY(m_editor->LoadFile(path));
}

void tst_LEditOCX::loadFile_tenMegabyteLine_isEditable()
{
    const QByteArray bytes = QByteArray("i1 0 1.5 \"q\" ").repeated(10'000'000 / 13);
    load(bytes);
    m_editor->grab();
    goTo(*m_editor, 1, int(bytes.size()));
    type(*m_editor, "9");
    QCOMPARE(m_editor->LineLength(1), int(bytes.size()) + 1);
    QCOMPARE(saved(), bytes + '9');
}

void tst_LEditOCX::saveFile_failed_staysModified()
{
    type(*m_editor, "x");
    QVERIFY(!m_editor->SaveFile(m_folder.path()));
    QVERIFY(!m_editor->SaveFile(QString()));
    QVERIFY(m_editor->GetState(TextState));
}

void tst_LEditOCX::saveFile_latin1WithCharacterOutside_writesUtf8()
{
    load("\xE8");
    goTo(*m_editor, 1, 1);
    type(*m_editor, QString::fromUtf8("€"));
    QCOMPARE(saved(), QByteArray("\xC3\xA8\xE2\x82\xAC"));
    m_editor->Undo();
    QCOMPARE(saved(), QByteArray("\xC3\xA8"));
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
    press(*m_editor, Qt::Key_Home);
    QCOMPARE(m_editor->SelEndColumn, 3);
    QCOMPARE(selection(*m_editor), "2:0-2:0");
}

void tst_LEditOCX::setSelection_outsideTheText_isClamped_data()
{
    QTest::addColumn<QList<int>>("record");
    QTest::addColumn<QString>("result");
    QTest::newRow("column") << QList<int>{1, 2, 1, 99} << "1:2-1:3";
    QTest::newRow("line") << QList<int>{9, 0, 9, 7} << "3:4-3:4";
    QTest::newRow("line 0") << QList<int>{0, 5, 1, 2} << "1:0-1:2";
    QTest::newRow("below zero") << QList<int>{-1, -1, -1, -1} << "1:0-1:0";
    QTest::newRow("column below zero") << QList<int>{2, -4, 2, 1} << "2:0-2:1";
    QTest::newRow("backwards") << QList<int>{3, 1, 1, 1} << "1:1-3:1";
    QTest::newRow("huge") << QList<int>{INT_MIN, INT_MAX, INT_MAX, INT_MAX} << "1:0-3:4";
}

void tst_LEditOCX::setSelection_outsideTheText_isClamped()
{
    QFETCH(QList<int>, record);
    QFETCH(QString, result);
    m_editor->SetText("one\r\n\r\nfour");
    m_editor->SetText("one\r\nxy\r\nfour");
    select(*m_editor, record[0], record[1], record[2], record[3]);
    QCOMPARE(selection(*m_editor), result);
}

void tst_LEditOCX::setSelection_farAway_scrollsThere()
{
    m_editor->SetText(QString("line\r\n").repeated(500));
    select(*m_editor, 400, 0, 400, 4);
    QVERIFY(m_editor->TopLine() <= 400);
    QVERIFY(m_editor->PositionToPixels(400, 0).y() >= 0);
    QVERIFY(m_editor->PositionToPixels(400, 0).y() + m_editor->LineHeight() <= m_editor->height());
}

void tst_LEditOCX::selText_write_replacesAndMovesBehind()
{
    m_editor->SetText("one two");
    select(*m_editor, 1, 0, 1, 3);
    m_editor->SetSelText("1\n2");
    QCOMPARE(m_editor->Text(), "1\r\n2 two");
    QCOMPARE(selection(*m_editor), "2:1-2:1");
    m_editor->SetSelText("!");
    QCOMPARE(m_editor->Text(), "1\r\n2! two");
    m_editor->Undo();
    m_editor->Undo();
    QCOMPARE(m_editor->Text(), "one two");
}

void tst_LEditOCX::selectionLength_lineEnd_countsTwo()
{
    load("a\nb");
    m_editor->SelectAll();
    QCOMPARE(m_editor->SelectionLength(), 4);
    QCOMPARE(m_editor->SelText(), "a\r\nb");
}

void tst_LEditOCX::selectAll_copyPaste_doublesTheText()
{
    m_editor->SetText("a\r\nb");
    m_editor->SelectAll();
    m_editor->Copy();
    goTo(*m_editor, 2, 1);
    m_editor->Paste();
    QCOMPARE(m_editor->Text(), "a\r\nba\r\nb");
    m_editor->SelectAll();
    m_editor->Cut();
    QCOMPARE(m_editor->Text(), "");
    m_editor->Paste();
    QCOMPARE(m_editor->Text(), "a\r\nba\r\nb");
}

void tst_LEditOCX::currentWord_followsTheCaret_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("word");
    QTest::newRow("word") << 1 << 4 << "oscil";
    QTest::newRow("end of the word") << 1 << 8 << "oscil";
    QTest::newRow("number") << 1 << 10 << "";
    QTest::newRow("beyond ascii") << 2 << 3 << QString::fromUtf8("è2");
    QTest::newRow("comment over lines") << 4 << 2 << "";
    QTest::newRow("behind the comment") << 5 << 6 << "kb";
}

void tst_LEditOCX::currentWord_followsTheCaret()
{
    QFETCH(int, line);
    QFETCH(int, column);
    QFETCH(QString, word);
    m_editor->SetText(QString::fromUtf8("a1 oscil 440\r\n€ è2\r\n/*\r\n word\r\n*/ ka kb"));
    goTo(*m_editor, line, column);
    m_editor->UpdateCurrentWord();
    QCOMPARE(m_editor->CurrentWord(), word);
}

ARDIPHON_TEST(tst_LEditOCX, QApplication)
#include "tst_LEditOCX.moc"
