// Lines that are hidden under others: what shows them again, what skips them, and what counts on.

#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/ShadowText.h"
#include "support/TestMain.h"

#include <QSignalSpy>

#include <memory>

using namespace ardiphon;
using namespace EditorInput;

class tst_Folding : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_editor.reset(); }

    void fold_hidesTheLines_andUnfoldShowsThem();
    void fold_whatCannotBe_isLeftOut();
    void fold_caretInside_movesToTheHeader();
    void fold_aboveTheTop_keepsTheTopLine();
    void fold_severalAtOnce_areToldOnce();
    void fold_insideAnother_isOneFold();

    void landing_data();
    void landing();

private:
    QString folds() const;
    bool isSeen(int line) const;

    std::unique_ptr<LEditOCX> m_editor;
};

namespace {

using Act = std::function<void(LEditOCX &)>;

/// "L1 a", "L2 a", ...
QString foldableLines(int count)
{
    QStringList lines;
    for (int line = 1; line <= count; ++line)
        lines.append(QStringLiteral("L%1 a").arg(line));
    return lines.join(QStringLiteral("\r\n"));
}

} // namespace

void tst_Folding::init()
{
    m_editor = std::make_unique<LEditOCX>();
    m_editor->resize(400, 20 * m_editor->LineHeight());
    m_editor->SetText(foldableLines(100));
    m_editor->ClearState(TextState);
    m_editor->ResetUndo();
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
}

/// What is hidden, "3-5 9-12".
QString tst_Folding::folds() const
{
    QStringList all;
    for (int line = 1; line <= m_editor->LineCount(); ++line) {
        const LineRun run = m_editor->HiddenUnder(line);
        if (!run.isEmpty())
            all.append(QStringLiteral("%1-%2").arg(run.first).arg(run.last));
    }
    return all.join(u' ');
}

bool tst_Folding::isSeen(int line) const
{
    const int y = m_editor->PositionToPixels(line, 0).y();
    return !m_editor->IsHidden(line) && y >= 0 && y + m_editor->LineHeight() <= m_editor->height();
}

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
    QCOMPARE(m_editor->Text(), foldableLines(100));
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
    using Editor = LEditOCX &;
    QTest::addColumn<Act>("move");
    QTest::addColumn<QString>("folds");
    QTest::addColumn<QString>("selection");
    const auto add = [](const char *name, Act move, const char *folds, const char *at) {
        QTest::newRow(name) << move << folds << at;
    };
    const auto from = [](int line, int column, Qt::Key key, Qt::KeyboardModifiers held = {}) {
        return [=](Editor editor) {
            goTo(editor, line, column);
            press(editor, key, held);
        };
    };
    constexpr auto Ctrl = Qt::ControlModifier;
    constexpr auto Shift = Qt::ShiftModifier;
    add(
        "set selection", [](Editor e) { goTo(e, 35, 2); }, "10-20 90-100", "35:2-35:2");
    add(
        "select within", [](Editor e) { select(e, 31, 0, 33, 1); }, "10-20 90-100", "31:0-33:1");
    add(
        "select from", [](Editor e) { select(e, 15, 0, 25, 1); }, "30-40 90-100", "15:0-25:1");
    add(
        "select to", [](Editor e) { select(e, 25, 0, 95, 1); }, "10-20 30-40", "25:0-95:1");
    add(
        "find",
        [](Editor e) {
            e.SetFindText(QStringLiteral("L33"));
            QCOMPARE(e.FindFirst(), 1);
        },
        "10-20 90-100", "33:0-33:3");
    add(
        "find next",
        [](Editor e) {
            e.SetFindText(QStringLiteral("L33"));
            QCOMPARE(e.FindNext(), 1);
            e.SetSelection();
        },
        "10-20 90-100", "33:0-33:3");
    add("left", from(41, 0, Qt::Key_Left), "10-20 90-100", "40:5-40:5");
    add("left, extended", from(41, 0, Qt::Key_Left, Shift), "10-20 90-100", "40:5-41:0");
    add("right", from(9, 4, Qt::Key_Right), "30-40 90-100", "10:0-10:0");
    add("right, extended", from(9, 4, Qt::Key_Right, Shift), "30-40 90-100", "9:4-10:0");
    add("word left", from(41, 0, Qt::Key_Left, Ctrl), "10-20 90-100", "40:5-40:5");
    add("word right", from(29, 5, Qt::Key_Right, Ctrl), "10-20 90-100", "30:0-30:0");
    add("word right, extended", from(29, 5, Qt::Key_Right, Ctrl | Shift), "10-20 90-100",
        "29:5-30:0");
    add("text end", from(1, 0, Qt::Key_End, Ctrl), "10-20 30-40", "100:6-100:6");
    add("text end, extended", from(1, 0, Qt::Key_End, Ctrl | Shift), "10-20 30-40", "1:0-100:6");
    add("paragraph end", from(45, 0, Qt::Key_Down, Ctrl), "10-20 30-40", "100:6-100:6");
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

ARDIPHON_TEST(tst_Folding, QApplication)
#include "tst_Folding.moc"
