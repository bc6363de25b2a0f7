#include "documents/CommandChecks.h"
#include "documents/ProgramStarts.h"
#include "documents/ProjectFixture.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QClipboard>
#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenu>
#include <QToolBar>
#include <QWheelEvent>

using namespace ardiphon;

/// The commands of the project's window: menus, toolbars, keys, editing and search.
class tst_FormORCSCO : public QObject, private ProjectFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    // Commands.
    void commands_haveHandlersCaptionsKeysAndPictures();
    void captions_areTheseTexts();
    void buttons_doWhatTheirCommandsDo();
    void popup_hasNoLastPosition();
    void analysis_entries_openTheirWindows();
    void programs_everyWay_leadsToItsOwn();
    void window_keepsItsTitle();

    // Keys and editing.
    void keys_moveTheFocus();
    void keys_F12WithTheScoreHidden_staysAndF5ToF8MoveNoCaret();
    void focus_isNeverGivenToAHiddenEditor();
    void edit_entries_actOnTheFocusedEditor();
    void header_goesIntoTheOrchestra();
    void popup_inTheScore_namesTheStatement();
    void help_clickInTheScore_leavesThePanels();
    void help_keyInTheScore_asksForTheFunctionTables();
    void colors_ofTheHalves_differ();
    void wheel_scrollsTheFocusedEditor();

    // Navigation.
    void search_menu_servesTheFocusedEditor();
    void search_toolbars_serveTheirOwnEditor();
    void search_emptyText_leadsToTheOrchestra();
    void definition_inTheScore_isNotOffered();
    void instrumentPanel_movesInTheOrchestra();
    void properties_ofTheFocusedHalf();
    void properties_ofALonelyScore();
};

// Commands. ---------------------------------------------------------------------------------------

void tst_FormORCSCO::commands_haveHandlersCaptionsKeysAndPictures()
{
    m->show();
    QCOMPARE(CommandChecks::unbound(*m->window, projectCommands()), QStringList());
    QCOMPARE(CommandChecks::unbound(*m->window, editorCommands()), QStringList());
    QCOMPARE(CommandChecks::doubleShortcuts(*m->window), QStringList());
    QCOMPARE(CommandChecks::wrongShortcuts(*m->window, projectShortcuts()), QStringList());
    QCOMPARE(CommandChecks::wrongShortcuts(*m->window, editorShortcuts()), QStringList());
    // "&Ardiphon Help" and "&About" are given so.
    QCOMPARE(CommandChecks::doubleAccessKeys(*m->window),
             QStringList{QStringLiteral("menuInfo Alt+A")});
    for (const auto buttons : {projectToolbar(), orchestraToolbar(), scoreToolbar()})
        QCOMPARE(CommandChecks::bareButtons(*m->window, buttons), QStringList());
    QCOMPARE(CommandChecks::unreachable(*m->window, projectCommands()), QStringList());
    QCOMPARE(CommandChecks::unreachable(*m->window, editorCommands()), QStringList());
}

void tst_FormORCSCO::captions_areTheseTexts()
{
    m->show();
    const CommandChecks::Pair captions[] = {
        {"menuFileNuovoProgetto", "&New Project"},
        {"menuFileApriProgetto", "&Open Project"},
        {"menuFileSalvaProgetto", "&Save Project"},
        {"menuFileSalvaProgettoNome", "Save Project &As ..."},
        {"menuFileNuovaOrchestra", "New Orchestra"},
        {"menuFileApriOrchestra", "Open Ochestra"},
        {"menuFileSalvaOrchestra", "Save Orchestra"},
        {"menuFileSalvaOrchestraNome", "Save Orchestra As ..."},
        {"menuFileNuovaScore", "New Score"},
        {"menuFileApriScore", "Open Score"},
        {"menuFileSalvaScore", "Save Score"},
        {"menuFileSalvaScoreNome", "Save Score As ..."},
        {"menuFileImportaCSD", "Import CSD to ORC/SCO"},
        {"menuFileConvertToCSD", "Export ORC/SCO to CSD"},
        {"menuFileProprieta", "File Prope&rties"},
        {"menuFileEsci", "E&xit"},
        {"menuModificaUndo", "&Undo\t(Ctrl+Z)"},
        {"menuModificaRedo", "&Redo\t(Ctrl+Alt+Z)"},
        {"menuModificaTaglia", "Cu&t\t(Ctrl+X)"},
        {"menuModificaCopia", "&Copy\t(Ctrl+C)"},
        {"menuModificaIncolla", "&Paste\t(Ctrl+V)"},
        {"menuModificaSelezionaTutto", "Select &All\t(Ctrl+A)"},
        // In this window these three keys are written in capitals.
        {"menuModificaTrova", "&Find\t(CTRL+F)"},
        {"menuModificaSostituisci", "F&ind and Replace\t(CTRL+H)"},
        {"menuModificaTrovaRiga", "Find &Line number\t(CTRL+G)"},
        {"menuVisualizzaOrizzontale", "Arrange windows &horizontally"},
        {"menuVisualizzaVerticale", "Arrange windows &vertically"},
        {"menuVisualizzaOrchestra", "&Orchestra view"},
        {"menuVisualizzaScore", "&Score view"},
        {"menuVisualizzaReset", "&Reset windows to normal position"},
        {"menuWindowLineNumbers", "&Line numbers\tCTRL+1"},
        {"menuWindowBarraBook", "&Bookmarks\tCTRL+2"},
        {"menuWindowRestore", "&Restore all tools\tCTRL+6"},
    };
    QCOMPARE(CommandChecks::wrongCaptions(*m->window, captions), QStringList());
    QVERIFY(m->control<QAction>("menuWindowInstrument")->text().endsWith(u"\tCTRL+7"));
    QCOMPARE(m->control<QLabel>("LabelBookmarks")->text(), QStringLiteral("BOOKMARKS"));
    QCOMPARE(m->control<QGroupBox>("frameBookmarks1")->title(), QStringLiteral("Orchestra:"));
    QCOMPARE(m->control<QGroupBox>("frameBookmarks2")->title(), QStringLiteral("Score:"));
}

void tst_FormORCSCO::buttons_doWhatTheirCommandsDo()
{
    m->show();
    const CommandChecks::Pair main[] = {
        {"buttonNuovoProgetto", "menuFileNuovoProgetto"},
        {"buttonApriProgetto", "menuFileApriProgetto"},
        {"buttonSalvaProgetto", "menuFileSalvaProgetto"},
        {"buttonSalvaProgettoNome", "menuFileSalvaProgettoNome"},
        {"buttonUndo", "menuModificaUndo"},
        {"buttonRedo", "menuModificaRedo"},
        {"buttonDefaultDir", "buttonDefaultDir"},
        {"buttonOrizzontale", "menuVisualizzaOrizzontale"},
        {"buttonVerticale", "menuVisualizzaVerticale"},
        {"buttonOrchestra", "menuVisualizzaOrchestra"},
        {"buttonScore", "menuVisualizzaScore"},
        {"buttonWindowRefresh", "menuVisualizzaReset"},
        {"buttonCarattereMeno", "buttonCarattereMeno"},
        {"buttonCaratterePiu", "buttonCaratterePiu"},
        {"buttonHelp", "menuInfoCsoundHelp"},
        {"buttonOpcodeHelp", "buttonOpcodeHelp"},
        {"buttonDirectHelp", "menuInfoCSoundAVHelp"},
    };
    QCOMPARE(CommandChecks::wrongButtons(*m->control<QToolBar>("Toolbar1"), main), QStringList());
    const CommandChecks::Pair orchestra[] = {
        {"buttonNuovaOrchestra", "menuFileNuovaOrchestra"},
        {"buttonApriOrchestra", "menuFileApriOrchestra"},
        {"buttonSalvaOrchestra", "menuFileSalvaOrchestra"},
        {"buttonSalvaOrchestraNome", "menuFileSalvaOrchestraNome"},
        {"buttonTrovaOrchestra", "buttonTrovaOrchestra"},
        {"buttonSostituisciOrchestra", "buttonSostituisciOrchestra"},
        {"buttonTrovaRigaOrchestra", "buttonTrovaRigaOrchestra"},
        {"buttonBookmarks", "menuWindowBarraBook"},
        {"buttonInstrument", "menuWindowInstrument"},
    };
    QCOMPARE(CommandChecks::wrongButtons(*m->control<QToolBar>("Toolbar2"), orchestra),
             QStringList());
    const CommandChecks::Pair score[] = {
        {"buttonNuovaScore", "menuFileNuovaScore"},
        {"buttonApriScore", "menuFileApriScore"},
        {"buttonSalvaScore", "menuFileSalvaScore"},
        {"buttonSalvaScoreNome", "menuFileSalvaScoreNome"},
        {"buttonTrovaScore", "buttonTrovaScore"},
        {"buttonSostituisciScore", "buttonSostituisciScore"},
        {"buttonTrovaRigaScore", "buttonTrovaRigaScore"},
        {"buttonBookmarks", "menuWindowBarraBook"},
    };
    QCOMPARE(CommandChecks::wrongButtons(*m->control<QToolBar>("Toolbar3"), score), QStringList());
}

void tst_FormORCSCO::popup_hasNoLastPosition()
{
    m->show();
    QStringList names;
    for (const QAction *each : m->control<QMenu>("menuPopup")->actions())
        names.append(each->objectName());
    QVERIFY(names.contains(QStringLiteral("menuPopupReference")));
    QVERIFY(!names.contains(QStringLiteral("menuPopupLastPosition")));
}

void tst_FormORCSCO::analysis_entries_openTheirWindows()
{
    m->show();
    QCOMPARE(CommandChecks::wrongAnalysisEntries(*m->window), QStringList());
}

void tst_FormORCSCO::programs_everyWay_leadsToItsOwn()
{
    m->show();
    m->config.OrchestraFileName.clear();
    QWidget &editor = *m->orchestra->focusProxy();
    CHECKED(ProgramStarts::goToCompilers(*m, *m->window, editor, QStringLiteral("File Orchestra")));
    CHECKED(ProgramStarts::goToTools(*m, *m->window, editor));
    CHECKED(ProgramStarts::goToMissingHtmlHelp(*m, *m->window, editor));
}

void tst_FormORCSCO::window_keepsItsTitle()
{
    m->showPair();
    m->type(m->orchestra, QStringLiteral("x"));
    QTRY_VERIFY(m->label("LabelOrchestra").endsWith(u'*'));
    QCOMPARE(m->window->windowTitle(), QStringLiteral("ArdiphonPro - Version " ARDIPHON_VERSION));
    QVERIFY(!m->label("LabelScore").endsWith(u'*'));
}

// Keys and editing. -------------------------------------------------------------------------------

namespace {

void click(LEditOCX *editor, int line, int column, Qt::MouseButton button)
{
    QWidget *view = editor->childAt(20, 20);
    const QPoint at = editor->PositionToPixels(line, column) + QPoint(2, editor->LineHeight() / 2);
    QTest::mouseClick(view, button, {}, view->mapFrom(editor, at));
}

} // namespace

void tst_FormORCSCO::keys_moveTheFocus()
{
    m->showPair();
    press(m->orchestra, Qt::Key_F11);
    QVERIFY(m->orchestra->hasFocus());
    press(m->orchestra, Qt::Key_F12);
    QVERIFY(m->score->hasFocus());
    press(m->score, Qt::Key_F12);
    QVERIFY(m->score->hasFocus());
    press(m->score, Qt::Key_F11);
    QVERIFY(m->orchestra->hasFocus());
    press(m->orchestra, Qt::Key_F4, Qt::AltModifier);
    QTRY_VERIFY(!m->window);
}

void tst_FormORCSCO::keys_F12WithTheScoreHidden_staysAndF5ToF8MoveNoCaret()
{
    m->showPair("a\ninstr 1\nendin\ninstr 2\n");
    press(m->orchestra, Qt::Key_F7);
    press(m->orchestra, Qt::Key_F12);
    QVERIFY(m->orchestra->hasFocus());
    press(m->orchestra, Qt::Key_F5);
    m->orchestra->GetSelection();
    QCOMPARE(m->orchestra->SelStartLine, 1);
}

void tst_FormORCSCO::focus_isNeverGivenToAHiddenEditor()
{
    m->showPair();
    press(m->orchestra, Qt::Key_F8);
    for (QWidget *hidden : {static_cast<QWidget *>(m->orchestra), m->orchestra->focusProxy()}) {
        hidden->setFocus();
        QVERIFY(m->score->hasFocus());
    }
    m->trigger("menu22050Mono"); // a header goes to the orchestra
    QVERIFY(m->orchestra->Text().contains(QLatin1String("22050")));
    QVERIFY(m->score->hasFocus());
    m->trigger("menuFileNuovaScore");
    QVERIFY(m->score->hasFocus());
    press(m->score, Qt::Key_F7);
    QVERIFY(m->orchestra->hasFocus());
    m->trigger("menuFileNuovaScore");
    QVERIFY(m->orchestra->hasFocus());
    press(m->orchestra, Qt::Key_F5); // both are shown, and each takes it again
    m->score->setFocus();
    QVERIFY(m->score->hasFocus());
    m->orchestra->setFocus();
    QVERIFY(m->orchestra->hasFocus());
}

void tst_FormORCSCO::edit_entries_actOnTheFocusedEditor()
{
    m->showPair("o", "s");
    m->score->setFocus();
    m->trigger("menuModificaSelezionaTutto");
    m->trigger("menuPopupTaglia");
    QCOMPARE(m->orchestra->Text() + m->score->Text(), QStringLiteral("o"));
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("s"));
    m->trigger("menuModificaUndo");
    QCOMPARE(m->score->Text(), QStringLiteral("s"));
    m->trigger("menuModificaRedo");
    m->orchestra->setFocus();
    m->trigger("menuModificaIncolla");
    QCOMPARE(m->orchestra->Text() + m->score->Text(), QStringLiteral("so"));
    m->control<QLineEdit>("TextOpcode")->setFocus();
    m->trigger("menuModificaUndo"); // on neither
    QCOMPARE(m->orchestra->Text(), QStringLiteral("so"));
}

void tst_FormORCSCO::header_goesIntoTheOrchestra()
{
    m->showPair("o", "s");
    m->score->setFocus();
    m->trigger("menu44100Stereo");
    QCOMPARE(m->score->Text(), QStringLiteral("s"));
    QCOMPARE(m->orchestra->Text(), QStringLiteral("\r\n\tsr     = 44100\r\n\tkr     = 4410\r\n"
                                                  "\tksmps  = 10\r\n\tnchnls = 2\r\no"));
    QVERIFY(m->orchestra->hasFocus());
}

void tst_FormORCSCO::popup_inTheScore_namesTheStatement()
{
    m->showPair("oscili", "f 1 0 8 10 1");
    auto *popup = m->control<QMenu>("menuPopup");
    click(m->score, 1, 0, Qt::RightButton);
    QTRY_VERIFY(popup->isVisible());
    popup->close();
    QCOMPARE(m->control<QAction>("menuPopupOpcodeHelp")->text(),
             QStringLiteral("f (score statement) -> Help"));
    QVERIFY(m->score->hasFocus());
    click(m->orchestra, 1, 2, Qt::RightButton);
    QTRY_VERIFY(popup->isVisible());
    popup->close();
    QCOMPARE(m->control<QAction>("menuPopupOpcodeHelp")->text(), QStringLiteral("oscili -> Help"));
}

void tst_FormORCSCO::help_keyInTheScore_asksForTheFunctionTables()
{
    m->config.FileGuida = m->write(QStringLiteral("index.html"), "<html></html>");
    m->showPair("oscil", "i1 0 1");
    QTest::keyClick(m->score->focusProxy(), Qt::Key_F1);
    QCOMPARE(m->config.HelpWord, QStringLiteral("Gen Routines"));
    QTest::keyClick(m->orchestra->focusProxy(), Qt::Key_F1);
    QCOMPARE(m->config.HelpWord, QStringLiteral("oscil"));
}

void tst_FormORCSCO::help_clickInTheScore_leavesThePanels()
{
    m->showPair("oscili", "oscili");
    click(m->score, 1, 2, Qt::LeftButton);
    QCOMPARE(m->control<QLineEdit>("TextOpcode")->text(), QStringLiteral("(Opcode)"));
    click(m->orchestra, 1, 2, Qt::LeftButton);
    QVERIFY(m->control<QLineEdit>("TextOpcode")->text().startsWith(QLatin1String("[oscili] - ")));
    m->trigger("menuFileNuovaScore");
    QCOMPARE(m->control<QLineEdit>("TextOpcode")->text(), QStringLiteral("(Opcode)"));
    QCOMPARE(m->control<QLineEdit>("TextParametri")->text(), QStringLiteral("(Parameters)"));
    click(m->orchestra, 1, 2, Qt::LeftButton);
    QVERIFY(m->control<QLineEdit>("TextOpcode")->text().startsWith(QLatin1String("[oscili] - ")));
    m->trigger("menuFileNuovaOrchestra");
    QCOMPARE(m->control<QLineEdit>("TextOpcode")->text(), QStringLiteral("(Opcode)"));
    QCOMPARE(m->control<QLineEdit>("TextParametri")->text(), QStringLiteral("(Parameters)"));
}

/// A word that only one of the languages knows is drawn in other colours in the two editors.
void tst_FormORCSCO::colors_ofTheHalves_differ()
{
    m->showPair("instr", "instr");
    const auto hasBlue = [](LEditOCX *editor) {
        const QImage image = editor->grab(QRect(0, 0, 60, editor->LineHeight())).toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (QColor(image.pixel(x, y)).blue() > 150 && QColor(image.pixel(x, y)).red() < 90)
                    return true;
        return false;
    };
    QVERIFY(hasBlue(m->orchestra)); // ColorInstrEndin, blue by default
    QVERIFY(!hasBlue(m->score));
}

void tst_FormORCSCO::wheel_scrollsTheFocusedEditor()
{
    m->config.WheelLinesCount = 4;
    m->showPair(QByteArray("line\n").repeated(500), QByteArray("line\n").repeated(500));
    m->score->setFocus();
    QWheelEvent wheel(QPointF(20, 20), m->window->mapToGlobal(QPointF(20, 20)), {}, QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(m->window, &wheel);
    QCOMPARE(m->score->TopLine(), 5);
    QCOMPARE(m->orchestra->TopLine(), 1);
}

// Navigation. -------------------------------------------------------------------------------------

namespace {

QStringList openTitles()
{
    QStringList titles;
    for (const QWidget *window : QApplication::topLevelWidgets())
        if (window->isVisible() && !window->objectName().startsWith(QLatin1String("FormORCSCO")))
            titles.append(window->windowTitle());
    return titles;
}

} // namespace

void tst_FormORCSCO::search_menu_servesTheFocusedEditor()
{
    m->showPair();
    m->control<QLineEdit>("TextOpcode")->setFocus();
    m->trigger("menuModificaTrova"); // the focus is on neither
    QCOMPARE(openTitles(), QStringList());
    m->score->setFocus();
    m->trigger("menuModificaTrova");
    QCOMPARE(openTitles(), QStringList{QStringLiteral("Find (Score)")});
    QCOMPARE(m->config.FindCaller, QStringLiteral("SCORE"));
}

void tst_FormORCSCO::search_toolbars_serveTheirOwnEditor()
{
    m->showPair();
    m->score->setFocus();
    QTest::mouseClick(m->control<QWidget>("buttonTrovaOrchestra"), Qt::LeftButton);
    QCOMPARE(m->config.FindCaller, QStringLiteral("ORCHESTRA"));
    m->trigger("buttonSostituisciScore");
    QCOMPARE(m->config.ReplaceCaller, QStringLiteral("SCORE"));
    m->trigger("buttonTrovaRigaScore");
    QCOMPARE(m->config.FindLineCaller, QStringLiteral("SCORE"));
    m->trigger("buttonTrovaScore");
    QCOMPARE(m->config.FindCaller, QStringLiteral("SCORE"));
    m->trigger("buttonTrovaRigaOrchestra");
    QCOMPARE(m->config.FindLineCaller, QStringLiteral("ORCHESTRA"));
    m->trigger("buttonSostituisciOrchestra");
    QCOMPARE(m->config.ReplaceCaller, QStringLiteral("ORCHESTRA"));
}

void tst_FormORCSCO::search_emptyText_leadsToTheOrchestra()
{
    m->showPair("o", "");
    m->score->setFocus();
    const Message none{QStringLiteral("No Document loaded!"), ProgramTitle,
                       MessageIcon::Information, MessageButtons::Ok};
    m->dialogs.expect(none);
    m->trigger("menuModificaTrova");
    QVERIFY(m->score->hasFocus());
    m->dialogs.expect(none);
    press(m->score, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(m->orchestra->hasFocus()); // only the menu leads back
    QCOMPARE(openTitles(), QStringList());
}

void tst_FormORCSCO::definition_inTheScore_isNotOffered()
{
    m->showPair("gkone init 1\n", "gkone\n");
    auto *popup = m->control<QMenu>("menuPopup");
    for (LEditOCX *editor : {m->score, m->orchestra}) {
        click(editor, 1, 2, Qt::RightButton);
        QTRY_VERIFY(popup->isVisible());
        popup->close();
        QCOMPARE(m->control<QAction>("menuPopupDefinition")->isEnabled(), editor == m->orchestra);
        QCOMPARE(m->control<QAction>("menuPopupReference")->isEnabled(), editor == m->orchestra);
    }
}

void tst_FormORCSCO::instrumentPanel_movesInTheOrchestra()
{
    m->showPair("a\ninstr 1\nendin\ninstr 22\nendin\n");
    auto *panel = m->control<QWidget>("PictureInstrument");
    QVERIFY(!panel->isVisible());
    press(m->score, Qt::Key_7, Qt::ControlModifier);
    QVERIFY(panel->isVisible());
    const QPoint start(m->window->centralWidget()->width() - panel->width() - 10, 3);
    QCOMPARE(panel->pos(), start);
    m->score->setFocus();
    auto *number = m->control<QLineEdit>("TextInstr");
    number->setText(QStringLiteral("22"));
    QTest::keyClick(number, Qt::Key_Return);
    m->orchestra->GetSelection();
    QCOMPARE(m->orchestra->SelStartLine, 4);
    QVERIFY(m->orchestra->hasFocus());
    drag(m->control<QWidget>("ImageINSTR"), {-40, 30});
    QCOMPARE(panel->pos(), start + QPoint(-40, 30));
    QTest::mouseClick(m->control<QWidget>("buttonInstrument"), Qt::LeftButton);
    QVERIFY(!panel->isVisible());
}

void tst_FormORCSCO::properties_ofTheFocusedHalf()
{
    m->config.OrchestraFileName = m->write(QStringLiteral("piece.orc"), "o");
    m->show();
    m->control<QLineEdit>("TextOpcode")->setFocus();
    m->trigger("menuFileProprieta"); // on neither
    m->score->setFocus();
    m->expectMessage(QStringLiteral("Cannot find File Score!"));
    m->trigger("menuFileProprieta");
    QVERIFY(!m->window->findChild<QDialog *>(QStringLiteral("FileProperties")));
    m->orchestra->setFocus();
    m->trigger("menuFileProprieta");
    QTRY_VERIFY(m->window->findChild<QDialog *>(QStringLiteral("FileProperties")));
}

void tst_FormORCSCO::properties_ofALonelyScore()
{
    m->config.ScoreFileName = m->write(QStringLiteral("piece.sco"), "e");
    m->show();
    m->orchestra->setFocus();
    m->expectMessage(QStringLiteral("Cannot find File Orchestra"));
    m->trigger("menuFileProprieta");
    QVERIFY(!m->window->findChild<QDialog *>(QStringLiteral("FileProperties")));
    m->score->setFocus();
    m->trigger("menuFileProprieta");
    QTRY_VERIFY(m->window->findChild<QDialog *>(QStringLiteral("FileProperties")));
}

ARDIPHON_TEST(tst_FormORCSCO, QApplication)
#include "tst_FormORCSCO.moc"
