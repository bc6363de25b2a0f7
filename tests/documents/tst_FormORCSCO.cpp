#include "documents/CommandChecks.h"
#include "documents/ProgramStarts.h"
#include "documents/ProjectWindow.h"

#include <QClipboard>
#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QMouseEvent>
#include <QToolBar>
#include <QTreeWidget>
#include <QWheelEvent>
#include <QtTest>

#include <memory>

using namespace ardiphon;

/// The project's window around its two texts: commands, arrangements, grips, labels, floating
/// panels, tools and keys.
class tst_FormORCSCO : public QObject
{
    Q_OBJECT

private slots:
    void init() { m = std::make_unique<ProjectWindow>(); }
    void cleanup();

    // Commands.
    void commands_haveHandlersCaptionsKeysAndPictures();
    void captions_areTheseTexts();
    void buttons_doWhatTheirCommandsDo();
    void popup_hasNoLastPosition();
    void analysis_entries_openTheirWindows();
    void programs_everyWay_leadsToItsOwn();
    void window_keepsItsTitle();

    // Arrangements.
    void arrangement_keys_data();
    void arrangement_keys();
    void arrangement_startsHorizontal();
    void arrangement_vertical_shortensTheLabels();
    void arrangement_labels_keepTheirStar();
    void arrangement_places_areThoseOfTheLayout();
    void reset_andResize_dropTheDraggedPosition();
    void gripH_followsTheMouseWithinItsLimits();
    void gripV_followsTheMouseWithinItsLimits();
    void grips_ofTheirArrangement_haveTheirToolTips();

    // Keys and editing.
    void keys_moveTheFocus();
    void keys_F12WithTheScoreHidden_staysAndF5ToF8MoveNoCaret();
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

    // Tools.
    void tools_toggle_bothGutters();
    void tools_hideAll_staysHiddenThroughAnArrangement();
    void tools_hiddenHalf_keepsItsGutterHidden();
    void tools_keptValues_areApplied();
    void fontSize_goesToBothEditors();
    void bookmarks_goToTheFocusedEditor();
    void bookmarksPanel_showsHidesAndMoves();
    void smallestWindow_showsEverythingInside();

private:
    QRect place(const char *name) const { return m->control<QWidget>(name)->geometry(); }
    bool shown(const char *name) const { return m->control<QWidget>(name)->isVisible(); }
    static void press(LEditOCX *editor, Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier)
    {
        QTest::keyClick(editor->focusProxy(), key, with);
    }
    static void drag(QWidget *grip, QPoint by);

    std::unique_ptr<ProjectWindow> m;
};

void tst_FormORCSCO::cleanup()
{
    delete m->window;
    QCOMPARE(m->dialogs.verify(), QString());
    m.reset();
}

/// Presses the left button on \a grip and moves the mouse by that many pixels.
void tst_FormORCSCO::drag(QWidget *grip, QPoint by)
{
    const QPointF local(3, 3);
    const QPointF start = grip->mapToGlobal(local);
    const QPointF end = start + by;
    QMouseEvent down(QEvent::MouseButtonPress, local, start, Qt::LeftButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(grip, &down);
    QMouseEvent move(QEvent::MouseMove, grip->mapFromGlobal(end), end, Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(grip, &move);
    QMouseEvent up(QEvent::MouseButtonRelease, grip->mapFromGlobal(end), end, Qt::LeftButton,
                   Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(grip, &up);
}

// Commands. --------------------------------------------------------------------------------------

void tst_FormORCSCO::commands_haveHandlersCaptionsKeysAndPictures()
{
    m->show();
    QCOMPARE(CommandChecks::unbound(*m->window, projectCommands()), QStringList());
    QCOMPARE(CommandChecks::unbound(*m->window, editorCommands()), QStringList());
    QCOMPARE(CommandChecks::doubleShortcuts(*m->window), QStringList());
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
    ProgramStarts::goToCompilers(*m, *m->window, editor, QStringLiteral("File Orchestra"));
    ProgramStarts::goToTools(*m, *m->window, editor);
    ProgramStarts::goToMissingHtmlHelp(*m, *m->window, editor);
}

void tst_FormORCSCO::window_keepsItsTitle()
{
    m->showPair();
    m->type(m->orchestra, QStringLiteral("x"));
    QTRY_VERIFY(m->label("LabelOrchestra").endsWith(u'*'));
    QCOMPARE(m->window->windowTitle(), QStringLiteral("ArdiphonPro - Version 2.3.0"));
    QVERIFY(!m->label("LabelScore").endsWith(u'*'));
}

// Arrangements. ----------------------------------------------------------------------------------

void tst_FormORCSCO::arrangement_keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<bool>("orchestra");
    QTest::addColumn<bool>("score");
    QTest::newRow("F5") << int(Qt::Key_F5) << "orizzontale"
                        << QByteArray("menuVisualizzaOrizzontale") << true << true;
    QTest::newRow("F6") << int(Qt::Key_F6) << "verticale" << QByteArray("menuVisualizzaVerticale")
                        << true << true;
    QTest::newRow("F7") << int(Qt::Key_F7) << "orchestra" << QByteArray("menuVisualizzaOrchestra")
                        << true << false;
    QTest::newRow("F8") << int(Qt::Key_F8) << "score" << QByteArray("menuVisualizzaScore") << false
                        << true;
}

void tst_FormORCSCO::arrangement_keys()
{
    QFETCH(int, key);
    QFETCH(QByteArray, command);
    QFETCH(bool, orchestra);
    QFETCH(bool, score);
    m->showPair();
    m->trigger("menuVisualizzaVerticale");
    press(m->orchestra, Qt::Key(key));
    QTEST(m->config.Arrangement, "name");
    QStringList checked;
    for (const char *each : {"menuVisualizzaOrizzontale", "menuVisualizzaVerticale",
                             "menuVisualizzaOrchestra", "menuVisualizzaScore"})
        if (m->control<QAction>(each)->isChecked())
            checked.append(QLatin1String(each));
    QCOMPARE(checked, QStringList{QLatin1String(command)});
    for (const char *name : {"LEDIT1", "LabelOrchestra", "Toolbar2", "PicNumeri1"})
        QCOMPARE(shown(name), orchestra);
    for (const char *name : {"LEDIT2", "LabelScore", "Toolbar3", "PicNumeri2"})
        QCOMPARE(shown(name), score);
    QVERIFY(orchestra || m->score->hasFocus());
    QVERIFY(score || m->orchestra->hasFocus());
    m->trigger("menuVisualizzaOrizzontale"); // and everything comes back
    for (const char *name : {"LEDIT1", "LEDIT2", "PicNumeri1", "PicNumeri2", "LabelScore"})
        QVERIFY(shown(name));
}

void tst_FormORCSCO::arrangement_startsHorizontal()
{
    m->config.Arrangement = QStringLiteral("score");
    m->show();
    QCOMPARE(m->config.Arrangement, QStringLiteral("orizzontale"));
    QVERIFY(m->control<QAction>("menuVisualizzaOrizzontale")->isChecked());
    QVERIFY(shown("LEDIT1") && shown("SplitterH") && !shown("SplitterV"));
}

void tst_FormORCSCO::arrangement_vertical_shortensTheLabels()
{
    m->config.OrchestraFileName = m->write(QStringLiteral("piece.orc"), "o");
    m->show();
    m->trigger("menuFileNuovaScore");
    const QString full = m->label("LabelOrchestra");
    m->trigger("menuVisualizzaVerticale");
    QCOMPARE(m->label("LabelOrchestra"),
             m->config.OrchestraFileName.left(3) + QStringLiteral(" ~ \\piece.orc"));
    QCOMPARE(m->label("LabelScore"), QStringLiteral("File Score: [Untitled]"));
    m->trigger("menuVisualizzaOrchestra");
    QCOMPARE(m->label("LabelOrchestra"), full);
    m->trigger("menuVisualizzaVerticale");
    m->trigger("menuVisualizzaOrizzontale");
    QCOMPARE(m->label("LabelOrchestra"), full);
}

void tst_FormORCSCO::arrangement_labels_keepTheirStar()
{
    m->showPair();
    m->type(m->orchestra, QStringLiteral("x"));
    QTRY_VERIFY(m->label("LabelOrchestra").endsWith(u'*'));
    m->trigger("menuVisualizzaVerticale");
    QVERIFY(m->label("LabelOrchestra").endsWith(QLatin1String("\\piece.orc*")));
    QVERIFY(!m->label("LabelOrchestra").endsWith(QLatin1String("**")));
}

void tst_FormORCSCO::arrangement_places_areThoseOfTheLayout()
{
    m->showPair();
    const QRect inside = m->window->centralWidget()->rect();
    const int gutter = place("PicNumeri1").width();
    const QRect first = place("LEDIT1");
    QCOMPARE(first.left(), 24 + gutter);
    QCOMPARE(first.top(), 1400 / 15);
    const QRect second = place("LEDIT2"); // to the pixel: twips are finer
    QVERIFY(qAbs(second.top() - (first.top() + first.height() + 20)) <= 1);
    QCOMPARE(second.width(), first.width());
    QVERIFY(qAbs(second.height() - first.height()) <= 1);
    QCOMPARE(place("Toolbar2").left(), 0);
    QCOMPARE(place("Toolbar2").width(), 24);
    QCOMPARE(m->control<QToolBar>("Toolbar2")->orientation(), Qt::Vertical);

    m->trigger("menuVisualizzaVerticale");
    QCOMPARE(place("LEDIT1").topLeft(), QPoint(gutter, 1850 / 15));
    QCOMPARE(place("LEDIT1").bottom(), inside.bottom());
    QCOMPARE(place("Toolbar3").left(), place("LEDIT1").left() + place("LEDIT1").width());
    QVERIFY(place("Toolbar3").bottom() < place("LEDIT2").top());
    QCOMPARE(m->control<QToolBar>("Toolbar2")->orientation(), Qt::Horizontal);

    m->trigger("menuWindowHelp"); // 220 instead of 1000
    QCOMPARE(place("LEDIT1").top(), (400 + 220 + 450) / 15);
}

void tst_FormORCSCO::reset_andResize_dropTheDraggedPosition()
{
    m->showPair();
    m->trigger("menuVisualizzaVerticale");
    const int equal = place("LEDIT1").width();
    drag(m->control<QWidget>("SplitterV"), {-100, 0});
    QVERIFY(qAbs(place("LEDIT1").width() - (equal - 100)) <= 1);
    press(m->orchestra, Qt::Key_F9);
    QCOMPARE(place("LEDIT1").width(), equal);
    drag(m->control<QWidget>("SplitterV"), {-100, 0});
    m->window->resize(m->window->width() + 60, m->window->height());
    QTRY_COMPARE(place("LEDIT1").width(), equal + 30);
    QCOMPARE(place("LEDIT2").width(), equal + 30);
}

void tst_FormORCSCO::gripH_followsTheMouseWithinItsLimits()
{
    m->showPair();
    auto *grip = m->control<QWidget>("SplitterH");
    const int start = grip->y();
    const QRect first = place("LEDIT1");
    drag(grip, {35, 40});
    QCOMPARE(grip->y(), start + 40);
    QVERIFY(qAbs(place("LEDIT2").top() - (start + 40 + 220 / 15)) <= 1);
    QVERIFY(qAbs(place("LEDIT1").bottom() - (start + 40 - 1 - 80 / 15)) <= 1);
    QCOMPARE(place("LabelScore").top(), grip->y());
    QCOMPARE(place("PicNumeri2").height(), place("LEDIT2").height());
    const QRect kept = place("LEDIT2");
    drag(grip, {0, -2000}); // beyond both limits everything stays
    QCOMPARE(place("LEDIT2"), kept);
    drag(grip, {0, 2000});
    QCOMPARE(place("LEDIT2"), kept);
    drag(grip, {0, first.top() + 54 - grip->y()}); // 810 twips below the editor's top
    QCOMPARE(grip->y(), first.top() + 54);
    drag(grip, {0, -2}); // 780
    QCOMPARE(grip->y(), first.top() + 54);
}

void tst_FormORCSCO::gripV_followsTheMouseWithinItsLimits()
{
    m->showPair();
    m->trigger("menuVisualizzaVerticale");
    auto *grip = m->control<QWidget>("SplitterV");
    const int width = m->window->centralWidget()->width();
    const auto dragTo = [grip](int x) { drag(grip, {x - grip->x(), 0}); };
    dragTo(width - 80); // exactly 1200 twips
    QCOMPARE(grip->x(), width - 80);
    dragTo(width - 79);
    QCOMPARE(grip->x(), width - 80);
    dragTo(54); // 810
    QCOMPARE(grip->x(), 54);
    dragTo(53); // 795
    QCOMPARE(grip->x(), 54);
    QCOMPARE(place("LEDIT2").right(), m->window->centralWidget()->rect().right());
    QVERIFY(place("Toolbar3").left() <= place("PicNumeri2").left());
}

void tst_FormORCSCO::grips_ofTheirArrangement_haveTheirToolTips()
{
    m->showPair();
    QCOMPARE(m->control<QWidget>("SplitterH")->toolTip(),
             QStringLiteral("Splitter - [F9] Reset to Normal position"));
    QCOMPARE(m->control<QWidget>("SplitterV")->toolTip(),
             QStringLiteral("Splitter - [F9] Reset to normal position"));
    m->trigger("menuVisualizzaVerticale");
    QVERIFY(!shown("SplitterH") && shown("SplitterV"));
    m->trigger("menuVisualizzaScore");
    QVERIFY(!shown("SplitterH") && !shown("SplitterV"));
}

// Keys and editing. ------------------------------------------------------------------------------

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

namespace {

void click(LEditOCX *editor, int line, int column, Qt::MouseButton button)
{
    QWidget *view = editor->childAt(20, 20);
    const QPoint at = editor->PositionToPixels(line, column) + QPoint(2, editor->LineHeight() / 2);
    QTest::mouseClick(view, button, {}, view->mapFrom(editor, at));
}

} // namespace

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

// Navigation. ------------------------------------------------------------------------------------

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
    m->config.OrchestraFileName.clear();
    m->orchestra->setFocus();
    m->expectMessage(QStringLiteral("Cannot find File Orchestra"));
    m->trigger("menuFileProprieta");
    QVERIFY(!m->window->findChild<QDialog *>(QStringLiteral("FileProperties")));
    m->config.OrchestraFileName = m->path(QStringLiteral("piece.orc"));
    m->trigger("menuFileProprieta");
    QTRY_VERIFY(m->window->findChild<QDialog *>(QStringLiteral("FileProperties")));
}

// Tools. -----------------------------------------------------------------------------------------

void tst_FormORCSCO::tools_toggle_bothGutters()
{
    m->showPair();
    const int left = place("LEDIT1").left();
    press(m->score, Qt::Key_1, Qt::ControlModifier);
    QVERIFY(!shown("PicNumeri1") && !shown("PicNumeri2"));
    QCOMPARE(place("LEDIT1").left(), 24);
    press(m->score, Qt::Key_1, Qt::ControlModifier);
    QVERIFY(shown("PicNumeri1") && shown("PicNumeri2"));
    QCOMPARE(place("LEDIT1").left(), left);
    press(m->score, Qt::Key_4, Qt::ControlModifier);
    QVERIFY(!shown("Toolbar1") && shown("Toolbar2"));
    press(m->score, Qt::Key_3, Qt::ControlModifier);
    QVERIFY(!shown("TextOpcode") && !shown("TextParametri"));
    QCOMPARE(place("LEDIT1").top(), 220 / 15);
}

void tst_FormORCSCO::tools_hideAll_staysHiddenThroughAnArrangement()
{
    m->showPair();
    press(m->orchestra, Qt::Key_5, Qt::ControlModifier);
    press(m->orchestra, Qt::Key_F9);
    QVERIFY(!shown("PicNumeri1") && !shown("Toolbar1") && !shown("TextOpcode"));
    QVERIFY(m->config.LineNumbersVisible);
    press(m->orchestra, Qt::Key_6, Qt::ControlModifier);
    QVERIFY(shown("PicNumeri1") && shown("Toolbar1") && shown("TextOpcode"));
}

void tst_FormORCSCO::tools_hiddenHalf_keepsItsGutterHidden()
{
    m->showPair();
    m->trigger("menuVisualizzaOrchestra");
    m->trigger("menuWindowLineNumbers");
    m->trigger("menuWindowLineNumbers");
    m->trigger("menuWindowRestore");
    QVERIFY(shown("PicNumeri1") && !shown("PicNumeri2"));
    m->trigger("menuWindowLineNumbers");
    m->trigger("menuVisualizzaVerticale");
    QVERIFY(!shown("PicNumeri1") && !shown("PicNumeri2"));
}

void tst_FormORCSCO::tools_keptValues_areApplied()
{
    m->config.SaveToolsPreferences = QStringLiteral("YES");
    for (const char *name : {"BookBar", "Toolbar"})
        WriteRegistryString(m->settings, registry::WindowKey, QLatin1String(name),
                            QStringLiteral("HIDE"));
    m->showPair();
    QVERIFY(!shown("Toolbar1") && shown("PicNumeri1") && shown("TextOpcode"));
    QVERIFY(!shown("PictureBookmarks"));
}

void tst_FormORCSCO::fontSize_goesToBothEditors()
{
    m->showPair();
    const int gutter = place("PicNumeri1").width();
    m->trigger("menuFontSize(14)");
    QCOMPARE(m->orchestra->FontSize(), 20.0);
    QCOMPARE(m->score->FontSize(), 20.0);
    QVERIFY(place("PicNumeri2").width() > gutter);
    m->trigger("buttonCaratterePiu");
    QCOMPARE(m->score->FontSize(), 20.0);
    m->trigger("buttonCarattereMeno");
    QCOMPARE(m->orchestra->FontSize(), 19.0);
}

void tst_FormORCSCO::bookmarks_goToTheFocusedEditor()
{
    m->showPair();
    m->score->setFocus();
    press(m->score, Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(m->control<QTreeWidget>("Tree2")->topLevelItem(0)->text(0),
             QStringLiteral("-> i1 0 1"));
    QCOMPARE(m->control<QTreeWidget>("Tree1")->topLevelItem(0)->text(0), QStringLiteral("..."));
    QVERIFY(m->config.ScoreModified && !m->config.OrchestraModified);
    m->control<QLineEdit>("TextOpcode")->setFocus();
    m->trigger("menuToolsRemoveAllBookmark"); // on neither
    QCOMPARE(m->score->GetBookmarkLine(1), 1);
    m->score->setFocus();
    m->trigger("menuToolsRemoveBookmark");
    QCOMPARE(m->score->GetBookmarkLine(1), -1);
}

void tst_FormORCSCO::bookmarksPanel_showsHidesAndMoves()
{
    m->showPair();
    auto *panel = m->control<QWidget>("PictureBookmarks");
    QVERIFY(!panel->isVisible());
    press(m->orchestra, Qt::Key_2, Qt::ControlModifier);
    QVERIFY(panel->isVisible());
    const int outer = m->window->frameGeometry().width();
    const QPoint start(outer - panel->width() - 27, place("LEDIT1").top() + 2);
    QCOMPARE(panel->pos(), start);
    QVERIFY(m->control<QAction>("menuWindowBarraBook")->isChecked());
    drag(m->control<QWidget>("LabelBookmarks"), {-30, 25});
    QCOMPARE(panel->pos(), start + QPoint(-30, 25));
    m->trigger("menuVisualizzaReset"); // stays where it was dropped
    QCOMPARE(panel->pos(), start + QPoint(-30, 25));
    QTest::mouseClick(m->control<QWidget>("buttonBookmarks"), Qt::LeftButton);
    QVERIFY(!panel->isVisible());
    m->trigger("menuWindowBarraBook");
    QCOMPARE(panel->pos(), start);
    m->trigger("menuWindowAllTools");
    QVERIFY(panel->isVisible());
}

void tst_FormORCSCO::smallestWindow_showsEverythingInside()
{
    m->showPair();
    m->window->resize(m->window->minimumSize());
    QTRY_COMPARE(m->window->size(), m->window->minimumSize());
    for (const char *command : {"menuVisualizzaOrizzontale", "menuVisualizzaVerticale",
                                "menuVisualizzaOrchestra", "menuVisualizzaScore"}) {
        m->trigger(command);
        for (LEditOCX *editor : {m->orchestra, m->score})
            if (editor->isVisible())
                QVERIFY2(editor->width() > 100 && editor->height() > 60, command);
    }
}

QTEST_MAIN(tst_FormORCSCO)
#include "tst_FormORCSCO.moc"
