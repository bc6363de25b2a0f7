// Lines that are hidden under others: what shows them again, and what skips them.

#include "language/FoldedEditor.h"
#include "support/EditorInput.h"
#include "support/ShadowText.h"
#include "support/TestMain.h"

#include <QAccessible>
#include <QSignalSpy>

using namespace ardiphon;
using namespace EditorInput;

class tst_Folding : public FoldedEditor
{
    Q_OBJECT

private slots:
    void init() { makeEditor(); }
    void cleanup() { m_editor.reset(); }

    void fold_hidesTheLines_andUnfoldShowsThem();
    void fold_whatCannotBe_isLeftOut();
    void fold_caretInside_movesToTheHeader();
    void fold_aboveTheTop_keepsTheTopLine();
    void fold_severalAtOnce_areToldOnce();
    void fold_insideAnother_isOneFold();

    void landing_data();
    void landing();
    void skipping_data();
    void skipping();
    void edit_data();
    void edit();
    void selection_overAFold_keepsIt();
    void selection_ofAll_keepsFolds();
    void history_underAFold_showsIt();
    void history_ofWhatWasFolded_isVisible();
    void newDocument_isAllVisible();
    void otherView_foldsOnItsOwn();
    void caretOfATool_isSeenWhenItIsPainted();
};

namespace {

using Act = std::function<void(LEditOCX &)>;

constexpr auto Ctrl = Qt::ControlModifier;
constexpr auto Shift = Qt::ShiftModifier;

Act keyAt(int line, int column, Qt::Key key, Qt::KeyboardModifiers held = {})
{
    return [=](LEditOCX &editor) {
        goTo(editor, line, column);
        press(editor, key, held);
    };
}

} // namespace

void tst_Folding::fold_hidesTheLines_andUnfoldShowsThem()
{
    QVERIFY(!m_editor->HasFolds());
    QVERIFY(m_editor->FoldLines({{3, 5}}));
    QVERIFY(m_editor->HasFolds());
    QCOMPARE(folds(), QStringLiteral("3-5"));
    QVERIFY(m_editor->IsFolded(2));
    for (const int line : {1, 2, 6, 100})
        QVERIFY(!m_editor->IsHidden(line));
    for (const int line : {3, 4, 5}) {
        QVERIFY(m_editor->IsHidden(line));
        QVERIFY(!m_editor->IsFolded(line));
    }
    QVERIFY(!m_editor->UnfoldAt(1));
    QVERIFY(!m_editor->UnfoldAt(6));
    QVERIFY(m_editor->UnfoldAt(2));
    QCOMPARE(folds(), QString());
    QVERIFY(m_editor->FoldLines({{3, 5}, {90, 100}}));
    QCOMPARE(folds(), QStringLiteral("3-5 90-100"));
    QVERIFY(m_editor->UnfoldAt(100));
    QCOMPARE(folds(), QStringLiteral("3-5"));
    QVERIFY(m_editor->UnfoldAll());
    QVERIFY(!m_editor->UnfoldAll());
    QVERIFY(!m_editor->HasFolds());
    QCOMPARE(m_editor->Text(), hundredLines());
    QVERIFY(!m_editor->GetState(TextState));
}

void tst_Folding::fold_whatCannotBe_isLeftOut()
{
    for (const LineRun &run :
         {LineRun{1, 1}, {0, 0}, {-5, 1}, {101, 200}, {7, 6}, {INT_MAX, INT_MIN}})
        QVERIFY(!m_editor->FoldLines({run}));
    QVERIFY(!m_editor->FoldLines({}));
    QVERIFY(!m_editor->HasFolds());
    QVERIFY(m_editor->FoldLines({{INT_MIN, INT_MAX}}));
    QCOMPARE(folds(), QStringLiteral("2-100"));
    QCOMPARE(m_editor->LineInRow(0), 1);
    for (const int line : {INT_MIN, -1, 0, 101, INT_MAX}) {
        QVERIFY(!m_editor->IsHidden(line));
        QVERIFY(!m_editor->UnfoldAt(line));
    }
    m_editor->ClearDocument();
    QVERIFY(!m_editor->FoldLines({{1, 5}}));
}

void tst_Folding::fold_caretInside_movesToTheHeader()
{
    select(*m_editor, 4, 1, 5, 2);
    m_editor->FoldLines({{3, 10}});
    QCOMPARE(selection(*m_editor), QStringLiteral("2:4-2:4"));
    select(*m_editor, 1, 1, 12, 2); // over the fold
    m_editor->FoldLines({{11, 20}});
    QCOMPARE(selection(*m_editor), QStringLiteral("1:1-2:4"));
    QCOMPARE(folds(), QStringLiteral("3-20"));
}

void tst_Folding::fold_aboveTheTop_keepsTheTopLine()
{
    m_editor->SetTopLine(50);
    m_editor->FoldLines({{3, 10}});
    QCOMPARE(m_editor->TopLine(), 50);
    m_editor->FoldLines({{20, 30}, {60, 62}});
    QCOMPARE(m_editor->TopLine(), 50);
    m_editor->UnfoldAt(2);
    QCOMPARE(m_editor->TopLine(), 50);
    m_editor->FoldLines({{46, 52}});
    QCOMPARE(m_editor->TopLine(), 45);
    m_editor->UnfoldAll();
    QCOMPARE(m_editor->TopLine(), 45);
}

void tst_Folding::fold_severalAtOnce_areToldOnce()
{
    QSignalSpy changed(m_editor.get(), &LEditOCX::foldsChanged);
    QSignalSpy repaint(m_editor.get(), &LEditOCX::Repaint);
    QSignalSpy text(m_editor.get(), &LEditOCX::textChanged);
    m_editor->FoldLines({{3, 5}, {8, 9}, {20, 40}});
    QCOMPARE(changed.size(), 1);
    QVERIFY(!repaint.isEmpty());
    m_editor->UnfoldAt(7);
    QCOMPARE(changed.size(), 2);
    m_editor->UnfoldAt(7);
    QCOMPARE(changed.size(), 2);
    goTo(*m_editor, 30, 0);
    QCOMPARE(changed.size(), 3);
    QCOMPARE(folds(), QStringLiteral("3-5"));
    QVERIFY(text.isEmpty());
}

void tst_Folding::fold_insideAnother_isOneFold()
{
    m_editor->FoldLines({{10, 12}});
    m_editor->FoldLines({{5, 20}});
    QCOMPARE(folds(), QStringLiteral("5-20"));
    m_editor->FoldLines({{12, 30}}); // under a hidden header
    QCOMPARE(folds(), QStringLiteral("5-30"));
    m_editor->UnfoldAt(15);
    QCOMPARE(folds(), QString());
}

// Whatever puts the caret into hidden lines shows them, and no others.
// ------------------------------

void tst_Folding::landing_data()
{
    QTest::addColumn<Act>("move");
    QTest::addColumn<QString>("folds");
    QTest::addColumn<QString>("selection");
    const auto add = [](const char *name, Act move, const char *folds, const char *at) {
        QTest::newRow(name) << move << folds << at;
    };
    add(
        "set selection", [](LEditOCX &e) { goTo(e, 35, 2); }, "10-20 90-100", "35:2-35:2");
    add(
        "select within", [](LEditOCX &e) { select(e, 31, 0, 33, 1); }, "10-20 90-100", "31:0-33:1");
    add(
        "select from", [](LEditOCX &e) { select(e, 15, 0, 25, 1); }, "30-40 90-100", "15:0-25:1");
    add(
        "select to", [](LEditOCX &e) { select(e, 25, 0, 95, 1); }, "10-20 30-40", "25:0-95:1");
    add(
        "find",
        [](LEditOCX &e) {
            e.SetFindText(QStringLiteral("L33"));
            QCOMPARE(e.FindFirst(), 1);
        },
        "10-20 90-100", "33:0-33:3");
    add(
        "find next",
        [](LEditOCX &e) {
            e.SetFindText(QStringLiteral("L33"));
            QCOMPARE(e.FindNext(), 1);
            e.SetSelection();
        },
        "10-20 90-100", "33:0-33:3");
    add("left", keyAt(41, 0, Qt::Key_Left), "10-20 90-100", "40:5-40:5");
    add("left, extended", keyAt(41, 0, Qt::Key_Left, Shift), "10-20 90-100", "40:5-41:0");
    add("right", keyAt(9, 4, Qt::Key_Right), "30-40 90-100", "10:0-10:0");
    add("right, extended", keyAt(9, 4, Qt::Key_Right, Shift), "30-40 90-100", "9:4-10:0");
    add("word left", keyAt(41, 0, Qt::Key_Left, Ctrl), "10-20 90-100", "40:5-40:5");
    add("word right", keyAt(29, 5, Qt::Key_Right, Ctrl), "10-20 90-100", "30:0-30:0");
    add("word right, extended", keyAt(29, 5, Qt::Key_Right, Ctrl | Shift), "10-20 90-100",
        "29:5-30:0");
    add("text end", keyAt(1, 0, Qt::Key_End, Ctrl), "10-20 30-40", "100:6-100:6");
    add("text end, extended", keyAt(1, 0, Qt::Key_End, Ctrl | Shift), "10-20 30-40", "1:0-100:6");
    add("paragraph end", keyAt(45, 0, Qt::Key_Down, Ctrl), "10-20 30-40", "100:6-100:6");
}

void tst_Folding::landing()
{
    QFETCH(Act, move);
    m_editor->FoldLines({{10, 20}, {30, 40}, {90, 100}});
    move(*m_editor);
    QTEST(folds(), "folds");
    QTEST(selection(*m_editor), "selection");
    QVERIFY(!m_editor->GetState(TextState));
    QVERIFY(isSeen(m_editor->SelStartLine) || isSeen(m_editor->SelEndLine));
}

void tst_Folding::skipping_data()
{
    QTest::addColumn<Act>("move");
    QTest::addColumn<QString>("selection");
    const auto add = [](const char *name, Act move, const char *at) {
        QTest::newRow(name) << move << at;
    };
    add("down", keyAt(9, 1, Qt::Key_Down), "21:1-21:1");
    add("down, extended", keyAt(9, 1, Qt::Key_Down, Shift), "9:1-21:1");
    add("down, at the last", keyAt(89, 1, Qt::Key_Down), "89:5-89:5");
    add("down, at the last, extended", keyAt(89, 1, Qt::Key_Down, Shift), "89:1-89:5");
    add("page down, at the last", keyAt(89, 1, Qt::Key_PageDown), "89:5-89:5");
    add("page down, at the last, extended", keyAt(88, 1, Qt::Key_PageDown, Shift), "88:1-89:5");
    add("up", keyAt(21, 2, Qt::Key_Up), "9:2-9:2");
    add("up, extended", keyAt(21, 2, Qt::Key_Up, Shift), "9:2-21:2");
    add("page down", keyAt(1, 0, Qt::Key_PageDown), "42:0-42:0");
    add("page up", keyAt(42, 0, Qt::Key_PageUp), "1:0-1:0");
    add("home", keyAt(9, 3, Qt::Key_Home), "9:0-9:0");
    add("end", keyAt(9, 1, Qt::Key_End), "9:4-9:4");
    add("text start", keyAt(89, 1, Qt::Key_Home, Ctrl), "1:0-1:0");
    add("paragraph start", keyAt(45, 0, Qt::Key_Up, Ctrl), "1:0-1:0");
}

void tst_Folding::skipping()
{
    QFETCH(Act, move);
    m_editor->FoldLines({{10, 20}, {30, 40}, {90, 100}});
    move(*m_editor);
    QTEST(selection(*m_editor), "selection");
    QCOMPARE(folds(), QStringLiteral("10-20 30-40 90-100"));
}

void tst_Folding::edit_data()
{
    QTest::addColumn<Act>("change");
    QTest::addColumn<QString>("folds");
    const auto add = [](const char *name, Act change, const char *folds) {
        QTest::newRow(name) << change << folds;
    };
    const auto over = [](int first, int firstColumn, int last, int lastColumn, Act change) {
        return [=](LEditOCX &editor) {
            select(editor, first, firstColumn, last, lastColumn);
            change(editor);
        };
    };
    const Act erase = [](LEditOCX &editor) { press(editor, Qt::Key_Delete); };
    const Act typeX = [](LEditOCX &editor) { type(editor, QStringLiteral("x")); };
    const Act indent = [](LEditOCX &editor) { press(editor, Qt::Key_Tab); };
    const Act insert = [](LEditOCX &editor) { editor.SetSelText(QStringLiteral("a\r\nb\r\n")); };

    add("letter in a header", over(9, 4, 9, 4, typeX), "10-20 30-40 90-100");
    add("letter after a fold", over(21, 0, 21, 0, typeX), "10-20 30-40 90-100");
    add("new line at a header's end", keyAt(9, 4, Qt::Key_Return), "31-41 91-101");
    add("new line in a header", keyAt(9, 2, Qt::Key_Return), "31-41 91-101");
    add("new line before a header", keyAt(9, 0, Qt::Key_Return), "11-21 31-41 91-101");
    add("new line before folds", keyAt(5, 2, Qt::Key_Return), "11-21 31-41 91-101");
    add("new line after a fold", keyAt(21, 0, Qt::Key_Return), "10-20 31-41 91-101");
    add("line end of a header", keyAt(9, 4, Qt::Key_Delete), "29-39 89-99");
    add("line end above a header", keyAt(9, 0, Qt::Key_Backspace), "9-19 29-39 89-99");
    add("line end of hidden lines", keyAt(21, 0, Qt::Key_Backspace), "29-39 89-99");
    add("word left of a fold", keyAt(21, 0, Qt::Key_Backspace, Ctrl), "29-39 89-99");
    add("word right of a header", keyAt(9, 4, Qt::Key_Delete, Ctrl), "29-39 89-99");
    add("header", keyAt(9, 1, Qt::Key_Y, Ctrl), "29-39 89-99");
    add("line after a fold", keyAt(21, 1, Qt::Key_Y, Ctrl), "10-20 29-39 89-99");
    add("last line before the end", keyAt(89, 1, Qt::Key_Y, Ctrl), "10-20 30-40");
    add("lines over a fold", over(5, 0, 25, 0, erase), "10-20 70-80");
    add("header with its lines", over(9, 0, 21, 0, erase), "18-28 78-88");
    add("from a header into the line after", over(9, 2, 21, 2, typeX), "18-28 78-88");
    add("up to a header", over(5, 0, 9, 2, erase), "6-16 26-36 86-96");
    add("lines between two folds", over(21, 0, 29, 0, erase), "10-20 22-32 82-92");
    add("indent over a fold", over(8, 0, 22, 0, indent), "30-40 90-100");
    add("insertion before a header", over(9, 0, 9, 0, insert), "12-22 32-42 92-102");
    add("insertion in a header", over(9, 1, 9, 1, insert), "32-42 92-102");
    add(
        "all lines replaced", [](LEditOCX &e) { e.SetText(QStringLiteral("x\r\ny")); }, "");
    add(
        "hidden line replaced",
        [](LEditOCX &e) {
            e.SetText(e.Text().replace(QStringLiteral("L15"), QStringLiteral("M")));
        },
        "30-40 90-100");
    add(
        "matches replaced",
        [](LEditOCX &e) {
            e.SetFindText(QStringLiteral("L33"));
            e.SetReplaceText(QStringLiteral("more"));
            e.ReplaceAll();
        },
        "10-20 90-100");
    add(
        "all matches replaced",
        [](LEditOCX &e) {
            e.SetFindText(QStringLiteral("a"));
            e.SetReplaceText(QStringLiteral("more"));
            e.ReplaceAll();
        },
        "");
}

void tst_Folding::edit()
{
    QFETCH(Act, change);
    const ShadowText shadow(*m_editor);
    const QString before = m_editor->Text();
    m_editor->FoldLines({{10, 20}, {30, 40}, {90, 100}});
    change(*m_editor);
    QTEST(folds(), "folds");
    QVERIFY(m_editor->Text() != before);
    QCOMPARE(shadow.faults(), QString());
    QVERIFY(!m_editor->IsHidden(m_editor->CaretLine()));
    while (m_editor->GetState(TextState))
        m_editor->Undo();
    QCOMPARE(m_editor->Text(), before);
    QVERIFY(!m_editor->IsHidden(m_editor->CaretLine()));
}

void tst_Folding::selection_overAFold_keepsIt()
{
    m_editor->FoldLines({{10, 20}});
    select(*m_editor, 9, 2, 21, 1);
    QCOMPARE(folds(), QStringLiteral("10-20"));
    QVERIFY(m_editor->SelText().contains(QStringLiteral("L15 a")));
    select(*m_editor, 9, 0, 9, 4); // as a press in the gutter does
    QCOMPARE(folds(), QStringLiteral("10-20"));
}

void tst_Folding::selection_ofAll_keepsFolds()
{
    m_editor->FoldLines({{10, 20}, {90, 100}});
    press(*m_editor, Qt::Key_A, Ctrl);
    QCoreApplication::processEvents();
    QCOMPARE(folds(), QStringLiteral("10-20 90-100"));
    QCOMPARE(m_editor->SelText(), m_editor->Text());
    m_editor->FoldLines({{50, 60}});
    QCOMPARE(m_editor->SelText(), m_editor->Text());
}

void tst_Folding::history_underAFold_showsIt()
{
    goTo(*m_editor, 15, 0);
    type(*m_editor, QStringLiteral("x"));
    m_editor->FoldLines({{10, 20}, {30, 40}});
    QCOMPARE(selection(*m_editor), QStringLiteral("9:4-9:4"));
    press(*m_editor, Qt::Key_Z, Ctrl);
    QCOMPARE(folds(), QStringLiteral("30-40"));
    QCOMPARE(selection(*m_editor), QStringLiteral("15:0-15:0"));
    QVERIFY(isSeen(15));
    m_editor->FoldLines({{10, 20}});
    m_editor->Redo();
    QCOMPARE(folds(), QStringLiteral("30-40"));
    QCOMPARE(m_editor->LineText(15), QStringLiteral("xL15 a"));
    QVERIFY(isSeen(m_editor->CaretLine()));
}

void tst_Folding::history_ofWhatWasFolded_isVisible()
{
    m_editor->FoldLines({{10, 20}});
    select(*m_editor, 9, 0, 21, 0);
    press(*m_editor, Qt::Key_X, Ctrl);
    QCOMPARE(m_editor->LineText(9), QStringLiteral("L21 a"));
    press(*m_editor, Qt::Key_Z, Ctrl);
    QCOMPARE(m_editor->Text(), hundredLines());
    QVERIFY(!m_editor->HasFolds());
}

void tst_Folding::newDocument_isAllVisible()
{
    QSignalSpy changed(m_editor.get(), &LEditOCX::foldsChanged);
    m_editor->FoldLines({{10, 20}});
    m_editor->ClearDocument();
    QVERIFY(!m_editor->HasFolds());
    QCOMPARE(changed.size(), 2);
    m_editor->SetText(hundredLines());
    QCOMPARE(folds(), QString());
    m_editor->FoldLines({{10, 20}});
    QVERIFY(!m_editor->LoadFile(QStringLiteral("/nowhere")));
    QVERIFY(!m_editor->HasFolds());
    m_editor->SetText(QStringLiteral("x\r\n").repeated(30));
    QCOMPARE(folds(), QString());
}

void tst_Folding::otherView_foldsOnItsOwn()
{
    LEditOCX other;
    other.SetTextOf(*m_editor);
    m_editor->FoldLines({{10, 20}, {30, 40}});
    QVERIFY(!other.HasFolds());
    other.FoldLines({{5, 35}});
    QCOMPARE(folds(), QStringLiteral("10-20 30-40"));
    goTo(other, 15, 0);
    other.SetSelText(QStringLiteral("x")); // as the mirror of a split types
    m_editor->SetTextOf(other);
    QCOMPARE(folds(), QStringLiteral("30-40"));
    QCOMPARE(m_editor->Text(), other.Text());
}

void tst_Folding::caretOfATool_isSeenWhenItIsPainted()
{
    m_editor->FoldLines({{10, 20}});
    QAccessible::setActive(true);
    QAccessibleInterface *const tool =
        QAccessible::queryAccessibleInterface(m_editor->focusProxy());
    QVERIFY(tool && tool->textInterface());
    tool->textInterface()->setCursorPosition(int(m_editor->Text().indexOf(QStringLiteral("L15"))));
    QTRY_COMPARE(folds(), QString());
    QCOMPARE(selection(*m_editor), QStringLiteral("15:0-15:0"));
    QAccessible::setActive(false);
}

ARDIPHON_TEST(tst_Folding, QApplication)
#include "tst_Folding.moc"
