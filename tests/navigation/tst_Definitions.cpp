// Definition, reference and last position, from a right click on a word to the line reached.

#include "EditorWindows.h"
#include "navigation/ui/Definitions.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QMenu>

using namespace ardiphon;
using namespace EditorInput;

namespace {

const QByteArray Orchestra = R"(; kamp in a comment
#define HALL # 0.85 #
gaout init 0
instr 1
  kamp line 0, p3, 1
  kenv = kamp * $HALL.
  gaout = kamp * kenv
endin
instr 2 ; kfirst
  kamp line 1, p3, 0
  gaout = gaout + kamp
  kfirst = 1
  klast = kfirst
endin
kamp = 3 ; outside
#undef HALL
outs gaout, HALL
)";

/// Opens the popup by a right click on the character at a text position.
void rightClick(const CsdWindow &csd, LEditOCX *view, int line, int column)
{
    auto *popup = csd.control<QMenu>("menuPopup");
    click(*view, line, column, Qt::RightButton);
    require(QTest::qWaitFor([popup] { return popup->isVisible(); }), "no popup");
}

/// Chooses an entry of the open popup by its place, as a user does.
void choose(const CsdWindow &csd, const char *entry)
{
    auto *popup = csd.control<QMenu>("menuPopup");
    auto *action = csd.control<QAction>(entry);
    QTest::mouseClick(popup, Qt::LeftButton, {}, popup->actionGeometry(action).center());
    require(QTest::qWaitFor([popup] { return !popup->isVisible(); }), entry);
}

void definition(const CsdWindow &csd, int line, int column)
{
    rightClick(csd, csd.first, line, column);
    choose(csd, "menuPopupDefinition");
}

void reference(const CsdWindow &csd, int line, int column)
{
    rightClick(csd, csd.first, line, column);
    choose(csd, "menuPopupReference");
}

} // namespace

class tst_Definitions : public QObject
{
    Q_OBJECT

private slots:
    void popup_entries_nameTheWord();
    void popup_longWord_isCut();
    void popup_lastPosition_doesNothing();
    void opcode_bothCommands_doNothing();
    void noWord_onlyDefinitionGivesTheFocus();
    void definition_rows_data();
    void definition_rows();
    void reference_rows_data();
    void reference_rows();
    void reference_goesOnAndOn();
    void local_noEndin_goesNowhere();
    void local_onTheEndinLine_doesNotCount();
    void local_outsideAnyInstrument_goesNowhere();
    void local_missingAfterTheCaret_keepsTheSelection();
    void secondView_word_isSoughtInTheFirst();
    void record_scannedMeanwhile_doesNotMatter();
    void twoEditors_score_hasNeither();
};

void tst_Definitions::popup_entries_nameTheWord()
{
    CsdWindow csd(Orchestra);
    QCOMPARE(csd.control<QAction>("menuPopupDefinition")->text(),
             QStringLiteral("Go to definition"));
    QCOMPARE(csd.control<QAction>("menuPopupReference")->text(), QStringLiteral("Go to reference"));
    const auto captions = [&csd](int line, int column) {
        rightClick(csd, csd.first, line, column);
        const QStringList shown{csd.control<QAction>("menuPopupDefinition")->text(),
                                csd.control<QAction>("menuPopupReference")->text(),
                                csd.control<QAction>("menuPopupLastPosition")->text()};
        csd.control<QMenu>("menuPopup")->close();
        return shown;
    };
    QCOMPARE(captions(5, 3), QStringList({"Go to definition of kamp", "Go to reference of kamp",
                                          "Go to last position"}));
    QCOMPARE(captions(6, 18), QStringList({"Go to definition of $HALL.",
                                           "Go to reference of $HALL.", "Go to last position"}));
    QCOMPARE(captions(6, 0),
             QStringList({"Go to definition of ", "Go to reference of ", "Go to last position"}));
}

void tst_Definitions::popup_longWord_isCut()
{
    CsdWindow csd(QByteArray(60, 'k') + "\n");
    rightClick(csd, csd.first, 1, 3);
    QCOMPARE(csd.control<QAction>("menuPopupDefinition")->text(),
             "Go to definition of " + QString(50, u'k'));
    csd.control<QMenu>("menuPopup")->close();
}

void tst_Definitions::popup_lastPosition_doesNothing()
{
    CsdWindow csd(Orchestra);
    definition(csd, 6, 10);
    QCOMPARE(selection(*csd.first), QStringLiteral("5:2-5:6"));
    rightClick(csd, csd.first, 6, 10);
    choose(csd, "menuPopupLastPosition");
    QCOMPARE(selection(*csd.first), QStringLiteral("6:10-6:10"));
    QCOMPARE(csd.dialogs.verify(), QString());
}

void tst_Definitions::opcode_bothCommands_doNothing()
{
    CsdWindow csd(Orchestra);
    QVERIFY(csd.config.Words->FindInTable(QStringLiteral("line")) > 0);
    definition(csd, 10, 8);
    QCOMPARE(csd.control<QAction>("menuPopupDefinition")->text(),
             QStringLiteral("Go to definition of line"));
    QCOMPARE(selection(*csd.first), QStringLiteral("10:8-10:8"));
    reference(csd, 5, 8);
    QCOMPARE(selection(*csd.first), QStringLiteral("5:8-5:8"));
}

void tst_Definitions::noWord_onlyDefinitionGivesTheFocus()
{
    CsdWindow csd(Orchestra);
    rightClick(csd, csd.first, 6, 0);
    csd.control<QMenu>("menuPopup")->close();
    auto *elsewhere = csd.control<QWidget>("TextInstr");
    elsewhere->setFocus();
    csd.trigger("menuPopupReference");
    QVERIFY(elsewhere->hasFocus());
    csd.trigger("menuPopupDefinition");
    QVERIFY(csd.first->hasFocus());
    QCOMPARE(selection(*csd.first), QStringLiteral("6:0-6:0"));
}

void tst_Definitions::definition_rows_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("reached"); // "" where nothing moves
    QTest::newRow("local, first instrument") << 7 << 12 << "5:2-5:6";
    QTest::newRow("local, second instrument") << 11 << 19 << "10:2-10:6";
    QTest::newRow("local, at its first use") << 10 << 3 << "10:2-10:6";
    QTest::newRow("local, first on the instr line") << 13 << 11 << "";
    QTest::newRow("global") << 17 << 6 << "3:0-3:5";
    QTest::newRow("macro with $ and point") << 6 << 18 << "2:8-2:12";
    QTest::newRow("on an #undef line") << 16 << 8 << "2:8-2:12";
    QTest::newRow("on a #define line") << 2 << 9 << "";
    // With no "endin" below, what lies between the last "instr" and the caret's line counts.
    QTest::newRow("behind the last endin") << 15 << 1 << "10:2-10:6";
}

void tst_Definitions::definition_rows()
{
    QFETCH(int, line);
    QFETCH(int, column);
    QFETCH(QString, reached);
    CsdWindow csd(Orchestra);
    definition(csd, line, column);
    const QString stays = QStringLiteral("%1:%2-%1:%2").arg(line).arg(column);
    QCOMPARE(selection(*csd.first), reached.isEmpty() ? stays : reached);
    QCOMPARE(csd.dialogs.verify(), QString());
}

void tst_Definitions::reference_rows_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("reached"); // "" where nothing moves
    QTest::newRow("local") << 5 << 3 << "6:9-6:13";
    QTest::newRow("local, last use") << 7 << 11 << "";
    QTest::newRow("local, last use of the second") << 11 << 19 << "";
    QTest::newRow("global") << 3 << 2 << "7:2-7:7";
    QTest::newRow("global, in the last line") << 17 << 6 << "";
    QTest::newRow("on a #define line") << 2 << 9 << "6:17-6:21";
    QTest::newRow("macro use") << 6 << 18 << "";
    QTest::newRow("on an #undef line") << 16 << 8 << "";
    QTest::newRow("outside") << 15 << 1 << "";
}

void tst_Definitions::reference_rows()
{
    QFETCH(int, line);
    QFETCH(int, column);
    QFETCH(QString, reached);
    CsdWindow csd(Orchestra);
    reference(csd, line, column);
    const QString stays = QStringLiteral("%1:%2-%1:%2").arg(line).arg(column);
    QCOMPARE(selection(*csd.first), reached.isEmpty() ? stays : reached);
    QCOMPARE(csd.dialogs.verify(), QString());
}

/// A right click on the match keeps it selected, and the next use lies behind it.
void tst_Definitions::reference_goesOnAndOn()
{
    CsdWindow csd(Orchestra);
    reference(csd, 5, 3);
    QCOMPARE(selection(*csd.first), QStringLiteral("6:9-6:13"));
    reference(csd, 6, 10);
    QCOMPARE(selection(*csd.first), QStringLiteral("7:10-7:14"));
    reference(csd, 7, 11);
    QCOMPARE(selection(*csd.first), QStringLiteral("7:10-7:14"));
}

void tst_Definitions::local_noEndin_goesNowhere()
{
    CsdWindow csd("instr 1\n  kamp = 1\n  kb = kamp\n  kc = kamp\n");
    reference(csd, 3, 8);
    QCOMPARE(selection(*csd.first), QStringLiteral("3:8-3:8"));
    definition(csd, 4, 8); // what lies above the caret's line still counts
    QCOMPARE(selection(*csd.first), QStringLiteral("2:2-2:6"));
}

void tst_Definitions::local_onTheEndinLine_doesNotCount()
{
    CsdWindow csd("instr 1\n  kb = kamp\nendin ; kamp\n");
    reference(csd, 2, 8);
    QCOMPARE(selection(*csd.first), QStringLiteral("2:8-2:8"));
}

void tst_Definitions::local_outsideAnyInstrument_goesNowhere()
{
    CsdWindow csd("kamp = 1\nkamp = 2\ninstr 1\nkamp = 3\nendin\n");
    definition(csd, 2, 1);
    QCOMPARE(selection(*csd.first), QStringLiteral("2:1-2:1"));
    reference(csd, 1, 1);
    QCOMPARE(selection(*csd.first), QStringLiteral("1:1-1:1"));
}

void tst_Definitions::local_missingAfterTheCaret_keepsTheSelection()
{
    CsdWindow csd("instr 1\n  kamp = 1\nendin\n");
    select(*csd.first, 2, 2, 2, 6);
    csd.first->SetTopLine(2);
    reference(csd, 2, 3);
    QCOMPARE(selection(*csd.first), QStringLiteral("2:2-2:6"));
}

void tst_Definitions::secondView_word_isSoughtInTheFirst()
{
    CsdWindow csd(Orchestra);
    csd.trigger("buttonSplit");
    goTo(*csd.first, 11, 0);
    rightClick(csd, csd.second, 5, 3);
    QCOMPARE(csd.control<QAction>("menuPopupDefinition")->text(),
             QStringLiteral("Go to definition of kamp"));
    choose(csd, "menuPopupDefinition");
    QCOMPARE(selection(*csd.first), QStringLiteral("10:2-10:6"));
    QCOMPARE(selection(*csd.second), QStringLiteral("5:3-5:3"));
}

void tst_Definitions::record_scannedMeanwhile_doesNotMatter()
{
    CsdWindow csd(Orchestra);
    rightClick(csd, csd.first, 2, 9);
    csd.first->SelStartLine = csd.first->SelEndLine = 5;
    choose(csd, "menuPopupReference");
    QCOMPARE(selection(*csd.first), QStringLiteral("6:17-6:21"));
}

void tst_Definitions::twoEditors_score_hasNeither()
{
    EditorPair project(QStringLiteral("instr 1\r\nkamp = 1\r\nendin"), QStringLiteral("kamp"));
    WordTables words;
    QAction definitionEntry;
    QAction referenceEntry;
    Definitions definitions(*project.first, words, definitionEntry, referenceEntry);

    goTo(*project.second, 1, 2);
    definitions.prepareEntries(*project.second, false);
    QCOMPARE(definitionEntry.text(), QStringLiteral("Go to definition of kamp"));
    QVERIFY(!definitionEntry.isEnabled());
    QVERIFY(!referenceEntry.isEnabled());

    goTo(*project.first, 2, 2);
    definitions.prepareEntries(*project.first);
    QVERIFY(definitionEntry.isEnabled());
    QVERIFY(referenceEntry.isEnabled());
    definitions.GoToDefinition();
    QCOMPARE(selection(*project.first), QStringLiteral("2:0-2:4"));
    QCOMPARE(selection(*project.second), QStringLiteral("1:2-1:2"));
}

ARDIPHON_TEST(tst_Definitions, QApplication)
#include "tst_Definitions.moc"
