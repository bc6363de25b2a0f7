// Moving from instrument to instrument, with the keys and the panel of the CSD window, and the tree
// of its tags.

#include "EditorWindows.h"
#include "navigation/ui/InstrumentPanel.h"
#include "navigation/ui/Instruments.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QLabel>
#include <QLineEdit>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

using namespace ardiphon;
using namespace EditorInput;

namespace {

/// Instruments 10, 1 and "bass" with blank lines between, so that lines can be scrolled to.
QByteArray orchestra()
{
    const QByteArray gap(40, '\n');
    return gap + "instr 10\nendin\n" + gap + "  instr 1 ; the first\nendin\n" + gap +
           "instr bass\nendin\n\n\n\n";
}
constexpr int Ten = 41;
constexpr int One = 83;
constexpr int Bass = 125;

void goToNumber(const CsdWindow &csd, const QString &number)
{
    auto *field = csd.control<QLineEdit>("TextInstr");
    field->setFocus();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, number);
    QTest::keyClick(field, Qt::Key_Return);
}

QString wholeWord(int line, int column = 0)
{
    return QStringLiteral("%1:%2-%1:%3").arg(line).arg(column).arg(column + 5);
}

/// The node of the tag tree that shows \a word, or null.
QTreeWidgetItem *node(const CsdWindow &csd, const QString &word)
{
    return csd.control<QTreeWidget>("Tree")
        ->findItems(word, Qt::MatchExactly | Qt::MatchCaseSensitive)
        .value(0);
}

void clickNode(QTreeWidgetItem *item)
{
    QTreeWidget *tree = item->treeWidget();
    tree->scrollToItem(item);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(item).center());
}

} // namespace

class tst_Instruments : public QObject
{
    Q_OBJECT

private slots:
    void keys_f5ToF8_moveThroughTheInstruments();
    void keys_secondView_moveTheFirst();
    void buttons_doWhatTheKeysDo();
    void next_lastInstrument_movesNothing();
    void previous_inSight_doesNotScroll();
    void previous_firstInstrument_movesNothing();
    void first_noInstrument_leavesCaretAndScroll_data();
    void first_noInstrument_leavesCaretAndScroll();
    void first_columnsOfTheCaret_areKept();
    void any_emptyText_givesTheFocus();
    void any_instrInsideALongerWord_isNone();
    void any_comment_counts();
    void number_enterOrButton_goesThere();
    void number_one_doesNotStopAtTen();
    void number_lineNamesSeveral_isFound();
    void number_comment_countsWhenItComesFirst();
    void number_blanksAround_areTrimmed();
    void number_empty_givesTheFocus();
    void number_noNumber_doesNothing_data();
    void number_noNumber_doesNothing();
    void number_miss_leavesCaretAndScroll();
    void panel_controls_areInPlace();
    void panel_bookBar_showsAndHidesIt();
    void panel_tab_reachesEveryControl();
    void panel_otherWindow_hasItsOwnName();
    void tags_added_appearsAndGoes();
    void tags_scan_keepsTheSelectionRecord();
    void tags_click_goesRound();
    void tags_clickOnMissing_givesTheFocus();
    void tags_clickThenInstrument_isWholeWordAgain();
};

void tst_Instruments::keys_f5ToF8_moveThroughTheInstruments()
{
    CsdWindow csd(orchestra());
    goTo(*csd.first, One + 5, 0);
    press(*csd.first, Qt::Key_F5);
    QCOMPARE(selection(*csd.first), wholeWord(Ten));
    QCOMPARE(csd.first->TopLine(), Ten);
    press(*csd.first, Qt::Key_F7);
    QCOMPARE(selection(*csd.first), wholeWord(One, 2));
    QCOMPARE(csd.first->TopLine(), One);
    press(*csd.first, Qt::Key_F8);
    QCOMPARE(selection(*csd.first), wholeWord(Bass));
    QVERIFY(csd.first->TopLine() < Bass); // only scrolled into sight
    const int top = csd.first->TopLine();
    press(*csd.first, Qt::Key_F6);
    QCOMPARE(selection(*csd.first), wholeWord(One, 2));
    QVERIFY(csd.first->TopLine() <= One);
    QVERIFY(csd.first->TopLine() <= top);
    press(*csd.first, Qt::Key_F6);
    QCOMPARE(selection(*csd.first), wholeWord(Ten));
    QVERIFY(csd.first->hasFocus());
}

void tst_Instruments::keys_secondView_moveTheFirst()
{
    CsdWindow csd(orchestra());
    csd.trigger("buttonSplit");
    csd.second->setFocus();
    press(*csd.second, Qt::Key_F7);
    QCOMPARE(selection(*csd.first), wholeWord(Ten));
    QCOMPARE(selection(*csd.second), QStringLiteral("1:0-1:0"));
    QVERIFY(csd.first->hasFocus());
}

void tst_Instruments::buttons_doWhatTheKeysDo()
{
    CsdWindow csd(orchestra());
    const auto click = [&csd](const char *button) {
        csd.control<QLineEdit>("TextInstr")->setFocus();
        QTest::mouseClick(csd.control<QToolButton>(button), Qt::LeftButton);
        QVERIFY(csd.first->hasFocus());
    };
    CHECKED(click("Toolbar_INSTR(4)"));
    QCOMPARE(selection(*csd.first), wholeWord(Bass));
    CHECKED(click("Toolbar_INSTR(2)"));
    QCOMPARE(selection(*csd.first), wholeWord(One, 2));
    CHECKED(click("Toolbar_INSTR(1)"));
    QCOMPARE(selection(*csd.first), wholeWord(Ten));
    CHECKED(click("Toolbar_INSTR(3)"));
    QCOMPARE(selection(*csd.first), wholeWord(One, 2));
}

void tst_Instruments::next_lastInstrument_movesNothing()
{
    CsdWindow csd(orchestra());
    goTo(*csd.first, Bass, 6);
    csd.first->SetTopLine(3);
    csd.control<QLineEdit>("TextInstr")->setFocus();
    QTest::mouseClick(csd.control<QToolButton>("Toolbar_INSTR(3)"), Qt::LeftButton);
    QCOMPARE(selection(*csd.first), QStringLiteral("125:6-125:6"));
    QCOMPARE(csd.first->TopLine(), 3);
    QVERIFY(csd.first->hasFocus());
    QCOMPARE(csd.dialogs.verify(), QString());
}

void tst_Instruments::previous_inSight_doesNotScroll()
{
    CsdWindow csd(orchestra());
    goTo(*csd.first, One + 2, 0);
    csd.first->SetTopLine(One - 2);
    QCOMPARE(csd.first->TopLine(), One - 2);
    press(*csd.first, Qt::Key_F6);
    QCOMPARE(selection(*csd.first), wholeWord(One, 2));
    QCOMPARE(csd.first->TopLine(), One - 2);
}

void tst_Instruments::previous_firstInstrument_movesNothing()
{
    CsdWindow csd(orchestra());
    select(*csd.first, Ten, 0, Ten, 5);
    csd.first->SetTopLine(7);
    press(*csd.first, Qt::Key_F6);
    QCOMPARE(selection(*csd.first), wholeWord(Ten));
    QCOMPARE(csd.first->TopLine(), 7);
}

void tst_Instruments::first_noInstrument_leavesCaretAndScroll_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("first") << Qt::Key_F5;
    QTest::newRow("last") << Qt::Key_F8;
}

void tst_Instruments::first_noInstrument_leavesCaretAndScroll()
{
    QFETCH(Qt::Key, key);
    CsdWindow csd("sr = 44100\n" + QByteArray(300, '\n'));
    goTo(*csd.first, 1, 4);
    for (const int top : {1, 200}) { // the caret in sight, and out of it
        csd.first->SetTopLine(top);
        press(*csd.first, key);
        QCOMPARE(selection(*csd.first), QStringLiteral("1:4-1:4"));
        QCOMPARE(csd.first->TopLine(), top);
    }
    select(*csd.first, 1, 2, 1, 4);
    press(*csd.first, key);
    QCOMPARE(selection(*csd.first), QStringLiteral("1:2-1:2")); // its start is kept
    QCOMPARE(csd.dialogs.verify(), QString());
}

/// The search begins in the caret's column of the first or the last line.
void tst_Instruments::first_columnsOfTheCaret_areKept()
{
    CsdWindow csd("instr 1\nendin ; and\ninstr 2\nendin instr");
    goTo(*csd.first, 2, 0);
    press(*csd.first, Qt::Key_F5);
    QCOMPARE(selection(*csd.first), wholeWord(1));
    goTo(*csd.first, 2, 3);
    press(*csd.first, Qt::Key_F5);
    QCOMPARE(selection(*csd.first), wholeWord(3));
    goTo(*csd.first, 2, 3);
    press(*csd.first, Qt::Key_F8);
    QCOMPARE(selection(*csd.first), wholeWord(3));
    goTo(*csd.first, 2, 11);
    press(*csd.first, Qt::Key_F8);
    QCOMPARE(selection(*csd.first), wholeWord(4, 6));
}

void tst_Instruments::any_emptyText_givesTheFocus()
{
    CsdWindow csd("");
    for (const char *button : {"Toolbar_INSTR(1)", "Toolbar_INSTR(2)", "Toolbar_INSTR(3)",
                               "Toolbar_INSTR(4)", "Toolbar2(1)"}) {
        auto *field = csd.control<QLineEdit>("TextInstr");
        field->setText(QStringLiteral(" no number "));
        field->setFocus();
        QTest::mouseClick(csd.control<QToolButton>(button), Qt::LeftButton);
        QVERIFY(csd.first->hasFocus());
        QCOMPARE(field->text(), QStringLiteral(" no number "));
    }
}

void tst_Instruments::any_instrInsideALongerWord_isNone()
{
    CsdWindow csd("instrument my_instr instr2\nINSTR 4\n");
    press(*csd.first, Qt::Key_F7);
    QCOMPARE(selection(*csd.first), wholeWord(2));
    press(*csd.first, Qt::Key_F7);
    QCOMPARE(selection(*csd.first), wholeWord(2));
}

void tst_Instruments::any_comment_counts()
{
    CsdWindow csd("; this instr is a comment\n");
    press(*csd.first, Qt::Key_F7);
    QCOMPARE(selection(*csd.first), wholeWord(1, 7));
}

void tst_Instruments::number_enterOrButton_goesThere()
{
    CsdWindow csd(orchestra());
    goToNumber(csd, QStringLiteral("10"));
    QCOMPARE(selection(*csd.first), wholeWord(Ten));
    QCOMPARE(csd.first->TopLine(), Ten);
    QVERIFY(csd.first->hasFocus());
    csd.control<QLineEdit>("TextInstr")->setText(QStringLiteral("1"));
    csd.control<QLineEdit>("TextInstr")->setFocus();
    QTest::mouseClick(csd.control<QToolButton>("Toolbar2(1)"), Qt::LeftButton);
    QCOMPARE(selection(*csd.first), wholeWord(One, 2));
    QCOMPARE(csd.first->TopLine(), One);
    QVERIFY(csd.first->hasFocus());
}

void tst_Instruments::number_one_doesNotStopAtTen()
{
    CsdWindow csd(orchestra());
    goTo(*csd.first, Bass, 0);
    goToNumber(csd, QStringLiteral("1"));
    QCOMPARE(selection(*csd.first), wholeWord(One, 2));
}

void tst_Instruments::number_lineNamesSeveral_isFound()
{
    CsdWindow csd("\ninstr 3, 4, 5\nendin\ninstr 4\nendin\n");
    goToNumber(csd, QStringLiteral("4"));
    QCOMPARE(selection(*csd.first), wholeWord(2));
}

void tst_Instruments::number_comment_countsWhenItComesFirst()
{
    CsdWindow csd("\n; see instr 7 below\ninstr 9 ; not 4\ninstr 4\ninstr 7\n");
    goToNumber(csd, QStringLiteral("7"));
    QCOMPARE(selection(*csd.first), wholeWord(2, 6));
    goToNumber(csd, QStringLiteral("4"));
    QCOMPARE(selection(*csd.first), wholeWord(3));
}

void tst_Instruments::number_blanksAround_areTrimmed()
{
    CsdWindow csd(orchestra());
    goToNumber(csd, QStringLiteral("  10 "));
    QCOMPARE(selection(*csd.first), wholeWord(Ten));
    QCOMPARE(csd.control<QLineEdit>("TextInstr")->text(), QStringLiteral("10"));
}

void tst_Instruments::number_empty_givesTheFocus()
{
    CsdWindow csd(orchestra());
    goToNumber(csd, QString());
    QVERIFY(csd.first->hasFocus());
    QCOMPARE(selection(*csd.first), QStringLiteral("1:0-1:0"));
}

void tst_Instruments::number_noNumber_doesNothing_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"bass", " ", "1a", "instr"})
        QTest::addRow("'%s'", text) << text;
}

void tst_Instruments::number_noNumber_doesNothing()
{
    CsdWindow csd(orchestra());
    QFETCH(QString, text);
    goToNumber(csd, text);
    QVERIFY(csd.control<QLineEdit>("TextInstr")->hasFocus());
    QCOMPARE(csd.control<QLineEdit>("TextInstr")->text(), text);
    QCOMPARE(selection(*csd.first), QStringLiteral("1:0-1:0"));
    QCOMPARE(csd.dialogs.verify(), QString());
}

void tst_Instruments::number_miss_leavesCaretAndScroll()
{
    CsdWindow csd(orchestra());
    goTo(*csd.first, One, 3);
    csd.first->SetTopLine(5);
    goToNumber(csd, QStringLiteral("11"));
    QCOMPARE(selection(*csd.first), QStringLiteral("83:3-83:3"));
    QCOMPARE(csd.first->TopLine(), 5);
    QVERIFY(csd.first->hasFocus());
    QCOMPARE(csd.dialogs.verify(), QString());
}

void tst_Instruments::panel_controls_areInPlace()
{
    CsdWindow csd("instr 1\n");
    auto *panel = csd.control<InstrumentPanel>("Frame1");
    QCOMPARE(panel->width(), 143);
    QCOMPARE(panel->height(), 80);
    QCOMPARE(panel->x(), 2);
    QCOMPARE(csd.control<QLabel>("Label1")->text(), QStringLiteral("Go to:"));
    QCOMPARE(panel->findChild<QToolBar *>("Toolbar_INSTR")->actions().size(), 4);
    QCOMPARE(panel->findChild<QToolBar *>("Toolbar2")->actions().size(), 1);
    for (const char *name : {"ImageINSTR", "Toolbar_INSTR", "TextInstr", "Toolbar2", "Label1"}) {
        const auto *control = panel->findChild<QWidget *>(QLatin1String(name));
        QVERIFY2(control->isVisible(), name);
        QVERIFY2(panel->rect().contains(control->geometry()), name);
        QVERIFY2(control->width() >= control->minimumSizeHint().width(), name);
    }
    for (const QToolButton *button : panel->findChildren<QToolButton *>()) {
        if (button->objectName().startsWith(QLatin1String("Toolbar"))) {
            QVERIFY(button->isVisible());
            QVERIFY(!button->icon().isNull());
            QVERIFY(!button->toolTip().isEmpty());
        }
    }
}

void tst_Instruments::panel_bookBar_showsAndHidesIt()
{
    CsdWindow csd("instr 1\n");
    QVERIFY(csd.control<QWidget>("Frame1")->isVisible());
    csd.trigger("menuWindowBarraBook");
    QVERIFY(!csd.control<QWidget>("Frame1")->isVisible());
    csd.trigger("menuWindowBarraBook");
    QVERIFY(csd.control<QWidget>("Frame1")->isVisible());
}

void tst_Instruments::panel_tab_reachesEveryControl()
{
    CsdWindow csd("instr 1\n");
    auto *panel = csd.control<QWidget>("Frame1");
    csd.control<QWidget>("Toolbar_INSTR(1)")->setFocus(Qt::TabFocusReason);
    QStringList seen;
    while (panel->isAncestorOf(QApplication::focusWidget()) && seen.size() < 10) {
        seen.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(seen, QStringList({"Toolbar_INSTR(1)", "Toolbar_INSTR(2)", "Toolbar_INSTR(3)",
                                "Toolbar_INSTR(4)", "TextInstr", "Toolbar2(1)"}));
}

void tst_Instruments::panel_otherWindow_hasItsOwnName()
{
    EditorPair project(QStringLiteral("\r\ninstr 2\r\nendin"), QStringLiteral("instr 2"));
    Instruments instruments(*project.first);
    InstrumentPanel panel(instruments, QStringLiteral("Toolbar_INSTR_2"), project.window);
    panel.show();
    QVERIFY(panel.grip()->objectName() == QLatin1String("ImageINSTR"));
    project.second->setFocus();
    panel.findChild<QLineEdit *>("TextInstr")->setText(QStringLiteral("2"));
    QTest::mouseClick(panel.findChild<QToolButton *>("Toolbar_INSTR_2(1)"), Qt::LeftButton);
    QCOMPARE(selection(*project.first), wholeWord(2));
    QCOMPARE(selection(*project.second), QStringLiteral("1:0-1:0"));
    QVERIFY(project.first->hasFocus());
}

// The tree of tags. -------------------------------------------------------------------------------

void tst_Instruments::tags_added_appearsAndGoes()
{
    CsdWindow csd("<CsScore>\n");
    auto *tree = csd.control<QTreeWidget>("Tree");
    const int words = int(csd.config.Words->CsdWords.size()) - 1;
    QCOMPARE(tree->topLevelItemCount(), words);
    QTRY_VERIFY_WITH_TIMEOUT(node(csd, QStringLiteral("<CsScore>")), 20000);
    QTreeWidgetItem *score = node(csd, QStringLiteral("<CsScore>"));
    QCOMPARE(tree->indexOfTopLevelItem(score) + 1,
             csd.config.Words->CsdWords.indexOf(QStringLiteral("<CsScore>")));
    QCOMPARE(score->foreground(0).color(), QColor(0, 0, 255));

    press(*csd.first, Qt::Key_A, Qt::ControlModifier);
    type(*csd.first, QStringLiteral("<csscore>")); // another case is another word
    QTRY_VERIFY_WITH_TIMEOUT(!node(csd, QStringLiteral("<CsScore>")), 20000);
    QCOMPARE(score->text(0), QStringLiteral("..."));
}

/// The timer scans while a command is at work with the record.
void tst_Instruments::tags_scan_keepsTheSelectionRecord()
{
    CsdWindow csd("<CsScore>\n<CsOptions>\n");
    csd.first->SelStartLine = 2;
    csd.first->SelStartColumn = 3;
    csd.first->SelEndLine = 2;
    csd.first->SelEndColumn = 5;
    QTRY_VERIFY_WITH_TIMEOUT(node(csd, QStringLiteral("<CsOptions>")), 20000);
    QCOMPARE(csd.first->SelStartLine, 2);
    QCOMPARE(csd.first->SelStartColumn, 3);
    QCOMPARE(csd.first->SelEndLine, 2);
    QCOMPARE(csd.first->SelEndColumn, 5);
    QCOMPARE(selection(*csd.first), QStringLiteral("1:0-1:0"));
}

void tst_Instruments::tags_click_goesRound()
{
    CsdWindow csd("<CsScore>\n<CsScore>\n");
    QTRY_VERIFY_WITH_TIMEOUT(node(csd, QStringLiteral("<CsScore>")), 20000);
    for (const char *match : {"1:0-1:9", "2:0-2:9", "1:0-1:9"}) {
        clickNode(node(csd, QStringLiteral("<CsScore>")));
        QCOMPARE(selection(*csd.first), QLatin1String(match));
        QVERIFY(csd.first->hasFocus());
    }
}

void tst_Instruments::tags_clickOnMissing_givesTheFocus()
{
    CsdWindow csd("...\n");
    goTo(*csd.first, 2, 0);
    auto *tree = csd.control<QTreeWidget>("Tree");
    tree->setFocus();
    clickNode(tree->topLevelItem(0));
    QVERIFY(csd.first->hasFocus());
    QCOMPARE(selection(*csd.first), QStringLiteral("2:0-2:0"));
}

void tst_Instruments::tags_clickThenInstrument_isWholeWordAgain()
{
    CsdWindow csd("<CsScore>\ninstrument\ninstr 1\n");
    QTRY_VERIFY_WITH_TIMEOUT(node(csd, QStringLiteral("<CsScore>")), 20000);
    clickNode(node(csd, QStringLiteral("<CsScore>")));
    // What the click leaves behind is a search for parts of words too.
    csd.first->SetFindText(QStringLiteral("sscor"));
    QCOMPARE(csd.first->FindFirst(), 1);
    press(*csd.first, Qt::Key_F7);
    QCOMPARE(selection(*csd.first), wholeWord(3));
}

ARDIPHON_TEST(tst_Instruments, QApplication)
#include "tst_Instruments.moc"
