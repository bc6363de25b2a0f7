#include "documents/CsdFixture.h"
#include "documents/ProjectWindow.h"
#include "insight/ui/OutlineModel.h"
#include "support/TestMain.h"

#include <QDockWidget>
#include <QLineEdit>
#include <QTreeView>

using namespace ardiphon;

/// The dock that shows what the piece is made of.
class tst_OutlineFeature : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void dock_atFirst_isClosed();
    void dock_itsKey_showsAndHidesIt();
    void rows_followTheText();
    void filter_lettersInOrder_narrowTheRows();
    void filter_keys_chooseARow();
    void filter_escape_emptiesThenLeaves();
    void click_goesToTheRow();
    void caret_itsRowIsMarked();
    void included_rowsStandBelowTheStatement();
    void included_rowIsChosen_theFileOpensAtItsLine();
    void included_fileIsMissing_itsRowGoesToTheStatement();
    void included_windowDoesNotOpen_isTold();
    void included_changedFile_isReadWhenTheWindowIsUsedAgain();
    void included_manyRows_areClosedUntilTheyAreOpened();
    void included_filter_findsWhatIsInTheFile();
    void project_bothTextsHaveTheirRows();
    void project_hiddenHalf_isShown();

private:
    static constexpr auto Keys = Qt::ControlModifier | Qt::ShiftModifier;

    QTreeView *tree() const { return control<QTreeView>("TreeOutline"); }
    QLineEdit *filter() const { return control<QLineEdit>("LineOutlineFilter"); }
    /// The rows as they are shown, those of sections without a mark, the others indented.
    static QStringList rowsOf(const QTreeView &view)
    {
        QStringList rows;
        for (QModelIndex at = view.model()->index(0, 0); at.isValid(); at = view.indexBelow(at))
            rows.append(QString(levelOf(at) * 2, u' ') + at.data().toString());
        return rows;
    }
    static int levelOf(const QModelIndex &index)
    {
        return index.parent().isValid() ? levelOf(index.parent()) + 1 : 0;
    }
    QStringList rows() const { return rowsOf(*tree()); }
    /// Shows a piece that includes tools.inc with that text, and takes note of what opens.
    void showIncluding(const QByteArray &tools)
    {
        m_tools = m_program->write(QStringLiteral("tools.inc"), tools);
        m_opened.clear();
        m_program->context.windows.openFile = [this](const QString &path, int line) {
            m_opened.append(QStringLiteral("%1:%2").arg(path).arg(line));
            return m_opens;
        };
        showOutline(IncludingPiece);
    }
    void clickRow(const QString &text)
    {
        QModelIndex at = tree()->model()->index(0, 0);
        while (at.isValid() && at.data().toString() != text)
            at = tree()->indexBelow(at);
        QVERIFY2(at.isValid(), qPrintable(text));
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, tree()->visualRect(at).center());
    }

    static inline const QByteArray IncludingPiece = "<CsInstruments>\n"
                                                    "#include \"tools.inc\"\n"
                                                    "instr 1\n"
                                                    "endin\n"
                                                    "</CsInstruments>\n";
    QString m_tools;
    QStringList m_opened; ///< files with their line
    bool m_opens = true;
    void showOutline(const QByteArray &text)
    {
        show(text);
        QTest::keyClick(first()->focusProxy(), Qt::Key_L, Keys);
    }
    QString current() const { return tree()->currentIndex().data().toString(); }
};

namespace {

const QByteArray OutlinedPiece = "<CsoundSynthesizer>\n"
                                 "<CsOptions>\n"
                                 "</CsOptions>\n"
                                 "<CsInstruments>\n"
                                 "#define LOUD #1#\n"
                                 "opcode twice, i, ik ; doubles\n"
                                 "endop\n"
                                 "instr 1, Fm_Bell ; a bell\n"
                                 "ax = 1\n"
                                 "endin\n"
                                 "instr 2\n"
                                 ";; the bass\n"
                                 "endin\n"
                                 "</CsInstruments>\n"
                                 "<CsScore>\n"
                                 "f1 0 8 10 1 ; sine\n"
                                 ";;; Coda\n"
                                 "s ; slow\n"
                                 "#include \"more.sco\"\n"
                                 "</CsScore>\n"
                                 "</CsoundSynthesizer>\n";

const QStringList OutlinedRows = {"Options",
                                  "Orchestra",
                                  "  #LOUD",
                                  "  opcode twice   i, ik",
                                  "  instr 1, Fm_Bell   a bell",
                                  "  instr 2   the bass",
                                  "Score",
                                  "  table 1   sine",
                                  "  Coda",
                                  "  section 2   slow",
                                  "  include more.sco   not found"};

} // namespace

void tst_OutlineFeature::dock_atFirst_isClosed()
{
    show(OutlinedPiece);
    QVERIFY(control<QDockWidget>("DockOutline")->isHidden());
    QVERIFY(!action("menuStudioOutline")->isChecked());
    QCOMPARE(action("menuStudioOutline")->text(), QStringLiteral("&Outline"));
}

void tst_OutlineFeature::dock_itsKey_showsAndHidesIt()
{
    showOutline(OutlinedPiece);
    const auto *const dock = control<QDockWidget>("DockOutline");
    QVERIFY(dock->isVisible());
    QCOMPARE(dock->windowTitle(), QStringLiteral("Outline"));
    QVERIFY(action("menuStudioOutline")->isChecked());
    QTRY_VERIFY(filter()->hasFocus());
    QTest::keyClick(filter(), Qt::Key_L, Keys);
    QVERIFY(dock->isHidden());
    QVERIFY(!action("menuStudioOutline")->isChecked());
    QTRY_COMPARE(m_window->focusWidget(), first()->focusProxy());
}

void tst_OutlineFeature::rows_followTheText()
{
    showOutline(OutlinedPiece);
    QTRY_COMPARE(rows(), OutlinedRows);
    caret(first(), 11, 7);
    QTest::keyClicks(first()->focusProxy(), QStringLiteral("3"));
    QTRY_COMPARE(rows()[5],
                 QStringLiteral("  instr 2   the bass").replace(u'2', QLatin1String("23")));
    first()->Undo();
    QTRY_COMPARE(rows(), OutlinedRows);
    trigger("menuStudioOutline");
    first()->SetText(QStringLiteral("instr 7\n"));
    trigger("menuStudioOutline");
    QTRY_COMPARE(rows(), QStringList());
    first()->SetText(QStringLiteral("<CsInstruments>\ninstr 7\n"));
    QTRY_COMPARE(rows(), QStringList({"Orchestra", "  instr 7"}));
    first()->ClearState(TextState);
}

void tst_OutlineFeature::filter_lettersInOrder_narrowTheRows()
{
    showOutline(OutlinedPiece);
    QTRY_COMPARE(rows(), OutlinedRows);
    QTest::keyClicks(filter(), QStringLiteral("fmb"));
    QCOMPARE(rows(), QStringList({"Orchestra", "  instr 1, Fm_Bell   a bell"}));
    QCOMPARE(current(), QStringLiteral("instr 1, Fm_Bell   a bell"));
    QTest::keyClicks(filter(), QStringLiteral("x"));
    QCOMPARE(rows(), QStringList());
    filter()->clear();
    QCOMPARE(rows(), OutlinedRows);
}

void tst_OutlineFeature::filter_keys_chooseARow()
{
    showOutline(OutlinedPiece);
    QTRY_COMPARE(rows(), OutlinedRows);
    QTest::keyClicks(filter(), QStringLiteral("instr"));
    QCOMPARE(current(), QStringLiteral("instr 1, Fm_Bell   a bell"));
    QTest::keyClick(filter(), Qt::Key_Down);
    QCOMPARE(current(), QStringLiteral("instr 2   the bass"));
    QTest::keyClick(filter(), Qt::Key_Return);
    QTRY_COMPARE(m_window->focusWidget(), first()->focusProxy());
    QCOMPARE(first()->CaretLine(), 11);
    QCOMPARE(first()->CaretColumn(), 6);
    QCOMPARE(first()->SelText(), QString());
}

void tst_OutlineFeature::filter_escape_emptiesThenLeaves()
{
    showOutline(OutlinedPiece);
    QTRY_COMPARE(rows(), OutlinedRows);
    QTest::keyClicks(filter(), QStringLiteral("fmb"));
    QTest::keyClick(filter(), Qt::Key_Escape);
    QCOMPARE(filter()->text(), QString());
    QTest::keyClick(filter(), Qt::Key_Escape);
    QTRY_COMPARE(m_window->focusWidget(), first()->focusProxy());
    QVERIFY(control<QDockWidget>("DockOutline")->isVisible());
}

void tst_OutlineFeature::click_goesToTheRow()
{
    showOutline(OutlinedPiece);
    QTRY_COMPARE(rows(), OutlinedRows);
    const QModelIndex section = tree()->model()->index(2, 0);
    const QModelIndex coda = tree()->model()->index(1, 0, section);
    QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, tree()->visualRect(coda).center());
    QTRY_COMPARE(m_window->focusWidget(), first()->focusProxy());
    QCOMPARE(first()->CaretLine(), 17);
    QCOMPARE(first()->CaretColumn(), 4);
}

void tst_OutlineFeature::caret_itsRowIsMarked()
{
    showOutline(OutlinedPiece);
    QTRY_COMPARE(rows(), OutlinedRows);
    first()->setFocus();
    caret(first(), 9, 1);
    QTRY_COMPARE(current(), QStringLiteral("instr 1, Fm_Bell   a bell"));
    QTest::keyClick(first()->focusProxy(), Qt::Key_Down);
    QTest::keyClick(first()->focusProxy(), Qt::Key_Down);
    QTRY_COMPARE(current(), QStringLiteral("instr 2   the bass"));
    caret(first(), 1, 0);
    QTRY_COMPARE(current(), QString());
}

void tst_OutlineFeature::included_rowsStandBelowTheStatement()
{
    showIncluding("instr 7, Bell ; a bell\nendin\n#include \"none.inc\"\n");
    QTRY_COMPARE(rows(),
                 QStringList({"Orchestra", "  include tools.inc", "    instr 7, Bell   a bell",
                              "    include none.inc   not found", "  instr 1"}));
    first()->setFocus();
    caret(first(), 2, 0);
    QTRY_COMPARE(current(), QStringLiteral("include tools.inc"));
    QTest::keyClick(first()->focusProxy(), Qt::Key_Down);
    QTRY_COMPARE(current(), QStringLiteral("instr 1"));
    const QModelIndex bell = tree()->indexBelow(tree()->indexBelow(tree()->model()->index(0, 0)));
    QCOMPARE(bell.data(Qt::ToolTipRole).toString().contains(m_tools), true);
}

void tst_OutlineFeature::included_rowIsChosen_theFileOpensAtItsLine()
{
    showIncluding("\n\ninstr 7, Bell\nendin\n#include \"none.inc\"\n");
    QTRY_COMPARE(rows().size(), 5);
    clickRow(QStringLiteral("instr 7, Bell"));
    QCOMPARE(m_opened, QStringList(m_tools + QStringLiteral(":3")));
    clickRow(QStringLiteral("include tools.inc"));
    QCOMPARE(m_opened.last(), m_tools + QStringLiteral(":1"));
    clickRow(QStringLiteral("include none.inc   not found"));
    QCOMPARE(m_opened.last(), m_tools + QStringLiteral(":5"));
    filter()->setFocus();
    QTest::keyClicks(filter(), QStringLiteral("bell"));
    QTest::keyClick(filter(), Qt::Key_Return);
    QCOMPARE(m_opened.last(), m_tools + QStringLiteral(":3"));
    QCOMPARE(m_opened.size(), 4);
    QCOMPARE(first()->CaretLine(), 1);
}

void tst_OutlineFeature::included_fileIsMissing_itsRowGoesToTheStatement()
{
    showIncluding("");
    QVERIFY(QFile::remove(m_tools));
    QTRY_COMPARE(rows(),
                 QStringList({"Orchestra", "  include tools.inc   not found", "  instr 1"}));
    clickRow(QStringLiteral("include tools.inc   not found"));
    QCOMPARE(m_opened, QStringList());
    QCOMPARE(first()->CaretLine(), 2);
}

void tst_OutlineFeature::included_windowDoesNotOpen_isTold()
{
    m_opens = false;
    showIncluding("instr 7\nendin\n");
    QTRY_COMPARE(rows().size(), 4);
    m_program->dialogs.expect(
        {m_tools + QStringLiteral(" cannot be opened in a window of its own.")});
    clickRow(QStringLiteral("instr 7"));
    m_opens = true;
}

void tst_OutlineFeature::included_changedFile_isReadWhenTheWindowIsUsedAgain()
{
    showIncluding("instr 7\nendin\n");
    QTRY_COMPARE(rows().size(), 4);
    m_program->write(QStringLiteral("tools.inc"), "instr 77\nendin\ninstr 78\nendin\n");
    QEvent activated(QEvent::WindowActivate);
    QCoreApplication::sendEvent(m_window, &activated);
    QTRY_COMPARE(rows(), QStringList({"Orchestra", "  include tools.inc", "    instr 77",
                                      "    instr 78", "  instr 1"}));
}

void tst_OutlineFeature::included_manyRows_areClosedUntilTheyAreOpened()
{
    QByteArray tools;
    for (int i = 2; i < 33; ++i)
        tools += "instr " + QByteArray::number(i) + "\nendin\n";
    showIncluding(tools);
    const auto include = [this] { return tree()->indexBelow(tree()->model()->index(0, 0)); };
    QTRY_COMPARE(tree()->model()->rowCount(include()), 31);
    QCOMPARE(rows().size(), 3);
    tree()->setFocus();
    tree()->setCurrentIndex(include());
    QTest::keyClick(tree(), Qt::Key_Right);
    QCOMPARE(rows().size(), 34);
    caret(first(), 4, 0);
    QTest::keyClick(first()->focusProxy(), Qt::Key_Return);
    QTest::keyClicks(first()->focusProxy(), QStringLiteral("instr 99"));
    QTRY_COMPARE(rows().size(), 35); // and they stay open
    tree()->setCurrentIndex(include());
    QTest::keyClick(tree(), Qt::Key_Left);
    QCOMPARE(rows().size(), 4);
    QTest::keyClicks(filter(), QStringLiteral("instr"));
    QCOMPARE(rows().size(), 35);
    filter()->clear();
    QCOMPARE(rows().size(), 4);
    first()->ClearState(TextState);
}

void tst_OutlineFeature::included_filter_findsWhatIsInTheFile()
{
    showIncluding("instr 7, Bell ; a bell\nendin\ninstr 8\nendin\n");
    QTRY_COMPARE(rows().size(), 5);
    QTest::keyClicks(filter(), QStringLiteral("bell"));
    QCOMPARE(rows(),
             QStringList({"Orchestra", "  include tools.inc", "    instr 7, Bell   a bell"}));
    filter()->clear();
    QTest::keyClicks(filter(), QStringLiteral("tools"));
    QCOMPARE(rows(), QStringList({"Orchestra", "  include tools.inc"}));
}

void tst_OutlineFeature::project_bothTextsHaveTheirRows()
{
    ProjectWindow project;
    project.showPair("instr 1\nendin\n", "i1 0 1\ns\ni1 0 1\ne\n");
    project.trigger("menuStudioOutline");
    QTRY_COMPARE(rowsOf(*project.control<QTreeView>("TreeOutline")),
                 QStringList({"Orchestra", "  instr 1", "Score", "  section 2"}));
    QCOMPARE(project.dialogs.verify(), QString());
}

void tst_OutlineFeature::project_hiddenHalf_isShown()
{
    ProjectWindow project;
    project.showPair("instr 1\nendin\n", "i1 0 1\ns\ni1 0 1\ne\n");
    project.trigger("menuStudioOutline");
    project.trigger("menuVisualizzaOrchestra");
    QVERIFY(project.score->isHidden());
    auto *const line = project.control<QLineEdit>("LineOutlineFilter");
    QTRY_COMPARE(rowsOf(*project.control<QTreeView>("TreeOutline")).size(), 4);
    QTest::keyClicks(line, QStringLiteral("section"));
    QTest::keyClick(line, Qt::Key_Return);
    QVERIFY(project.score->isVisible());
    QTRY_VERIFY(project.score->hasFocus());
    QCOMPARE(project.score->CaretLine(), 2);
    QCOMPARE(project.dialogs.verify(), QString());
}

ARDIPHON_TEST(tst_OutlineFeature, QApplication)
#include "tst_OutlineFeature.moc"
