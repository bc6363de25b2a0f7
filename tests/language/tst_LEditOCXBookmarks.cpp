// What becomes of the bookmarks of the editor control when their lines go and come back.

#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

using namespace ardiphon;
using namespace EditorInput;

class tst_LEditOCXBookmarks : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_editor.reset(); }

    void undo_ofAllDeleted_bringsThemBack_data();
    void undo_ofAllDeleted_bringsThemBack();
    void undo_ofADeletedLine_bringsItsBookmarkBack();
    void undo_ofADeletedBlock_bringsEachBack();
    void undo_ofTheOnlyLine_isDrawnAgain();
    void undo_ofASlotSetSince_leavesItThere();
    void undo_ofAReplacement_bringsThemBack();
    void undo_ofAnInsertion_redo_bringsThemBack();
    void undo_afterTheHistoryWasForgotten_isHarmless();
    void allReplaced_lineOne_isDrawnAndFollows();
    void undo_ofWhatCameInsteadOfARedo();
    void textThatComesBack_bringsThemBack();
    void textThatComesBackElsewhere_bringsNothing();
    void randomEdits_undoneAndRedone_asTheyWere();

private:
    void setUp(const QString &text, const QList<int> &lines);
    QList<int> lines() const;
    bool isRed(int line);

    std::unique_ptr<LEditOCX> m_editor;
};

void tst_LEditOCXBookmarks::init()
{
    m_editor = std::make_unique<LEditOCX>();
    m_editor->resize(600, 300);
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
}

/// Slot 1 on the first of the lines, slot 2 on the second, and so on.
void tst_LEditOCXBookmarks::setUp(const QString &text, const QList<int> &lines)
{
    m_editor->SetText(text);
    m_editor->ResetUndo();
    for (int slot = 1; slot <= lines.size(); ++slot) {
        m_editor->SetBookmarkLine(slot, lines[slot - 1]);
        m_editor->SetBookmarkBackColor(slot, Color::rgb(240, 0, 0));
    }
}

QList<int> tst_LEditOCXBookmarks::lines() const
{
    QList<int> lines;
    for (int slot = 1; slot <= 15 && m_editor->GetBookmarkLine(slot) != -1; ++slot)
        lines << m_editor->GetBookmarkLine(slot);
    return lines;
}

bool tst_LEditOCXBookmarks::isRed(int line)
{
    const QPoint at = m_editor->PositionToPixels(line, 0) + QPoint(300, 2);
    return m_editor->grab().toImage().pixelColor(at) == QColor(240, 0, 0);
}

void tst_LEditOCXBookmarks::undo_ofAllDeleted_bringsThemBack_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("byKey"); ///< else by the commands of the menu
    QTest::newRow("Delete") << int(Qt::Key_Delete) << true;
    QTest::newRow("Backspace") << int(Qt::Key_Backspace) << true;
    QTest::newRow("a letter") << int(Qt::Key_A) << true;
    QTest::newRow("commands") << int(Qt::Key_Delete) << false;
}

void tst_LEditOCXBookmarks::undo_ofAllDeleted_bringsThemBack()
{
    QFETCH(int, key);
    QFETCH(bool, byKey);
    const QString text = "1\r\n2\r\n3\r\n4\r\n5";
    setUp(text, {3, 1, 5, 3});
    for (int round = 0; round < 2; ++round) {
        if (byKey)
            press(*m_editor, Qt::Key_A, Qt::ControlModifier);
        else
            m_editor->SelectAll();
        press(*m_editor, Qt::Key(key));
        QCOMPARE(lines(), (QList<int>{1, 1, 1, 1}));
        if (byKey)
            press(*m_editor, Qt::Key_Z, Qt::ControlModifier);
        else
            m_editor->Undo();
        QCOMPARE(m_editor->Text(), text);
        QCOMPARE(lines(), (QList<int>{3, 1, 5, 3}));
        QVERIFY(isRed(3) && isRed(1) && isRed(5) && !isRed(2) && !isRed(4));
    }
    if (byKey)
        press(*m_editor, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    else
        m_editor->Redo();
    QCOMPARE(lines(), (QList<int>{1, 1, 1, 1}));
    m_editor->Undo();
    QCOMPARE(lines(), (QList<int>{3, 1, 5, 3}));
    goTo(*m_editor, 1, 0); // and each follows the edits again
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(lines(), (QList<int>{4, 2, 6, 4}));
}

void tst_LEditOCXBookmarks::undo_ofADeletedLine_bringsItsBookmarkBack()
{
    setUp("1\r\n2\r\n3\r\n4", {2, 3});
    goTo(*m_editor, 2, 0);
    press(*m_editor, Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(m_editor->Text(), "1\r\n3\r\n4");
    QCOMPARE(lines(), (QList<int>{2, 2}));
    m_editor->SetBookmarkLine(3, 2); // set meanwhile on the line behind it, which it follows
    m_editor->Undo();
    QCOMPARE(lines(), (QList<int>{2, 3, 3}));
    m_editor->Redo();
    QCOMPARE(lines(), (QList<int>{2, 2, 2}));
    m_editor->Undo();
    QCOMPARE(lines(), (QList<int>{2, 3, 3}));
    goTo(*m_editor, 3, 0); // by joining it with the line above
    press(*m_editor, Qt::Key_Backspace);
    QCOMPARE(lines(), (QList<int>{2, 2, 2}));
    m_editor->Undo();
    QCOMPARE(lines(), (QList<int>{2, 3, 3}));
}

void tst_LEditOCXBookmarks::undo_ofADeletedBlock_bringsEachBack()
{
    setUp("1\r\n2\r\n3\r\n4\r\n5\r\n6", {1, 2, 4, 5, 6});
    select(*m_editor, 2, 1, 5, 0);
    m_editor->Cut();
    QCOMPARE(lines(), (QList<int>{1, 2, 2, 2, 3}));
    select(*m_editor, 1, 0, 2, 0); // and once more, those that came together too
    press(*m_editor, Qt::Key_Delete);
    QCOMPARE(lines(), (QList<int>{1, 1, 1, 1, 2}));
    m_editor->Undo();
    QCOMPARE(lines(), (QList<int>{1, 2, 2, 2, 3}));
    m_editor->Undo();
    QCOMPARE(lines(), (QList<int>{1, 2, 4, 5, 6}));
}

void tst_LEditOCXBookmarks::undo_ofTheOnlyLine_isDrawnAgain()
{
    setUp("only", {1});
    m_editor->SelectAll();
    press(*m_editor, Qt::Key_Delete);
    QVERIFY(isRed(1));
    m_editor->Undo();
    QVERIFY(isRed(1));
    goTo(*m_editor, 1, 0);
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(lines(), QList<int>{2});
}

void tst_LEditOCXBookmarks::undo_ofASlotSetSince_leavesItThere()
{
    setUp("1\r\n2\r\n3\r\n4", {2, 2, 3});
    goTo(*m_editor, 2, 0);
    press(*m_editor, Qt::Key_Y, Qt::ControlModifier);
    m_editor->SetBookmarkLine(1, 1);
    m_editor->SetBookmarkLine(2, -1);
    m_editor->Undo();
    QCOMPARE(m_editor->GetBookmarkLine(1), 1);
    QCOMPARE(m_editor->GetBookmarkLine(2), -1);
    QCOMPARE(m_editor->GetBookmarkLine(3), 3);
}

void tst_LEditOCXBookmarks::undo_ofAReplacement_bringsThemBack()
{
    setUp("a\r\nb\r\na\r\nb\r\na", {2, 4, 5});
    m_editor->SetFindText("\n");
    m_editor->SetReplaceText(" ");
    m_editor->ReplaceAll();
    QCOMPARE(m_editor->Text(), "a b a b a");
    QCOMPARE(lines(), (QList<int>{1, 1, 1}));
    m_editor->Undo();
    QCOMPARE(lines(), (QList<int>{2, 4, 5}));
    m_editor->Redo();
    QCOMPARE(lines(), (QList<int>{1, 1, 1}));
}

void tst_LEditOCXBookmarks::undo_ofAnInsertion_redo_bringsThemBack()
{
    setUp("1\r\n2", {});
    goTo(*m_editor, 2, 0);
    m_editor->SetSelText("a\r\nb\r\nc\r\n");
    m_editor->SetBookmarkLine(1, 3);
    m_editor->SetBookmarkLine(2, 5);
    m_editor->Undo();
    QCOMPARE(lines(), (QList<int>{2, 2}));
    m_editor->Redo();
    QCOMPARE(lines(), (QList<int>{3, 5}));
}

void tst_LEditOCXBookmarks::undo_afterTheHistoryWasForgotten_isHarmless()
{
    setUp("1\r\n2\r\n3", {3});
    m_editor->SelectAll();
    press(*m_editor, Qt::Key_Delete);
    m_editor->ResetUndo();
    m_editor->Undo();
    QCOMPARE(m_editor->Text(), "");
    QCOMPARE(lines(), QList<int>{1});
    m_editor->SetText("1\r\n2\r\n3"); // which is new text now
    QCOMPARE(lines(), QList<int>{1});
    m_editor->ClearDocument();
    m_editor->SetSelText("1\r\n2\r\n3");
    m_editor->Undo();
    m_editor->Redo();
    QCOMPARE(lines(), QList<int>{1});
}

void tst_LEditOCXBookmarks::allReplaced_lineOne_isDrawnAndFollows()
{
    setUp("1\r\n2\r\n3", {3, 2});
    m_editor->SelectAll();
    m_editor->SetSelText("a\r\nb\r\nc");
    QCOMPARE(lines(), (QList<int>{1, 1}));
    QVERIFY(isRed(1) && !isRed(2) && !isRed(3));
    goTo(*m_editor, 1, 0);
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(lines(), (QList<int>{2, 2}));
    m_editor->Undo();
    m_editor->Undo();
    QCOMPARE(lines(), (QList<int>{3, 2}));
    m_editor->SelectAll(); // and with a look at the empty document in between
    press(*m_editor, Qt::Key_Delete);
    QVERIFY(isRed(1));
    m_editor->SetSelText("a\r\nb\r\nc");
    QVERIFY(isRed(1) && !isRed(3));
    QCOMPARE(lines(), (QList<int>{1, 1}));
}

/// As the other view of a split has it: what is undone there comes here as new text.
void tst_LEditOCXBookmarks::textThatComesBack_bringsThemBack()
{
    const QString text = "1\r\n2\r\n\r\n4\r\n5";
    const QStringList states{"", "1\r\n5", "1\r\n\r\n4\r\n5", "1\r\n2\r\n5"};
    for (const QString &without : states) {
        setUp(text, {4, 2, 5});
        m_editor->SetText(without);
        m_editor->SetText(text);
        QCOMPARE(lines(), (QList<int>{4, 2, 5}));
        m_editor->Undo();
        m_editor->Undo();
        QCOMPARE(m_editor->Text(), text);
        QCOMPARE(lines(), (QList<int>{4, 2, 5}));
    }
}

/// What was done behind a deletion is forgotten with it once something else is done.
void tst_LEditOCXBookmarks::undo_ofWhatCameInsteadOfARedo()
{
    setUp("1\r\n2\r\n3\r\n4", {2, 4});
    goTo(*m_editor, 1, 0);
    type(*m_editor, "x");
    goTo(*m_editor, 2, 0);
    press(*m_editor, Qt::Key_Y, Qt::ControlModifier);
    m_editor->Undo();
    m_editor->Undo();
    goTo(*m_editor, 1, 0);
    press(*m_editor, Qt::Key_Return);
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(lines(), (QList<int>{4, 6}));
    m_editor->Undo();
    m_editor->Undo();
    m_editor->Redo();
    m_editor->Redo();
    QCOMPARE(lines(), (QList<int>{4, 6}));
}

void tst_LEditOCXBookmarks::textThatComesBackElsewhere_bringsNothing()
{
    setUp("1\r\n2\r\n3\r\n4\r\n5", {2});
    m_editor->SetText("1\r\n3\r\n4\r\n5");
    m_editor->SetText("1\r\n3\r\n4\r\n2\r\n5");
    QCOMPARE(lines(), QList<int>{2});
    m_editor->SetText("1\r\n3\r\n4\r\n5");
    m_editor->SetText("1\r\nx\r\n3\r\n4\r\n5"); // nor another text in its place
    QCOMPARE(lines(), QList<int>{3});
}

void tst_LEditOCXBookmarks::randomEdits_undoneAndRedone_asTheyWere()
{
    struct State
    {
        QString text;
        QList<int> lines;
        bool operator==(const State &) const = default;
    };
    const auto state = [this] { return State{m_editor->Text(), lines()}; };
    QRandomGenerator random(randomSeed(11));
    const QStringList pieces{"a", "\r\n", "b\r\n\r\nc", "d\r\n", "e\r\nf\r\ng\r\n", "\r\nh", ""};
    for (int round = 0; round < 300; ++round) {
        setUp("1\r\n2\r\n3\r\n4\r\n5\r\n6", {1, 3, 4, 4, 6});
        QList<State> past{state()};
        int at = 0;
        for (int step = 0; step < 30; ++step) {
            const int choice = random.bounded(8);
            if (choice < 2 && at > 0) {
                m_editor->Undo();
                QCOMPARE(state(), past[--at]);
            } else if (choice < 4 && at + 1 < past.size()) {
                m_editor->Redo();
                QCOMPARE(state(), past[++at]);
            } else {
                const int last = m_editor->LineCount();
                select(*m_editor, random.bounded(last) + 1, random.bounded(3),
                       random.bounded(last) + 1, random.bounded(3));
                if (choice == 7)
                    m_editor->SelectAll();
                const QString &piece = pieces[random.bounded(int(pieces.size()))];
                if (m_editor->SelectionLength() == 0 && piece.isEmpty())
                    continue; // nothing that could be undone
                m_editor->SetSelText(piece);
                past.resize(++at);
                past << state();
            }
        }
    }
}

ARDIPHON_TEST(tst_LEditOCXBookmarks, QApplication)
#include "tst_LEditOCXBookmarks.moc"
