#include "documents/CommandChecks.h"
#include "documents/ProgramStarts.h"
#include "documents/ui/FormCSD.h"
#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QRandomGenerator>
#include <QToolBar>
#include <QTreeWidget>
#include <QWheelEvent>
#include <QtTest>

#include <memory>

using namespace ardiphon;

/// The CSD window around the text: menus, toolbar, tools, split view, tag panel, bookmarks, popup,
/// wheel and font sizes.
class tst_FormCSD : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // Menus and tables.
    void commands_shown_haveOneHandlerAndTheirCaption();
    void captions_areTheseTexts();
    void buttons_doWhatTheirCommandsDo();
    void shortcuts_areThereOnce();
    void accessKeys_areThereOnceInEachMenu();
    void toolbar_everyButton_hasAnIconAndAName();
    void popup_holdsTheEditEntriesAndTheBookmarks();

    void analysis_entries_openTheirWindows();
    void audio_entries_openTheirWindows_data();
    void audio_entries_openTheirWindows();
    void programs_everyWay_leadsToItsOwn();

    // Editing.
    void edit_entries_actOnTheFirstView();
    void edit_copyWhileSplit_copiesTheSecondViewBack();
    void header_withSelection_takesItsPlace();
    void template_isInsertedAtTheCaret();

    // Tools.
    void tools_keptValues_areApplied();
    void tools_notKept_areShown();
    void tools_toggle_showsAndHides();
    void tools_keys_workWhereverTheFocusIs();
    void tools_secondGutter_goesWithTheSplit();
    void tools_hideAllThenToggle_bringsOneBack();
    void tools_allFlagsOff_hideAllRestores();
    void tools_menuWindow_checksMatchTheFlags();
    void window_halves_fillTheWorkArea();
    void window_takesThePlacementThatWasKept();

    // Split view.
    void split_letterInEitherView_showsInTheOtherAtOnce();
    void split_enter_isCopiedAndKeepsTheScrollPosition();
    void split_keyWithCtrl_isCopied();
    void split_begins_withoutAHistory();
    void split_off_copiesNothing();
    void split_randomEdits_endEqual();
    void split_keys_moveTheFocus();

    // Side panel.
    void tags_documentWords_appearOneByOne();
    void tags_emptyUnmodifiedText_leavesTheTree();
    void tags_listClick_insertsTheWordOnce();
    void bookmarks_ctrlB_setsAndRemoves();
    void bookmarks_line_isWhiteOnRed();
    void bookmarks_sixteenth_isRefused();
    void bookmarks_survive_inTheSideFile();
    void bookmarks_flag_isClearedByASideFileAlone();
    void bookmarks_sideFile_goesWithTheLast();
    void bookmarks_documentWithTheSideFilesName_isSafe();
    void bookmarks_click_goesToTheLine();

    // Aids.
    void settings_reachBothViews();
    void settings_autoIndent_isOnAtExactlyOne_data();
    void settings_autoIndent_isOnAtExactlyOne();
    void gutter_press_selectsTheLine();
    void gutter_font_isThatOfItsView();
    void wheel_scrollsTheFocusedView();
    void fontSize_steps_stayBetween6And20();
    void fontSize_defaultBeyondTheMenu_isStillThatOfTheText();
    void popup_rightClick_movesTheCaretUnlessInTheSelection();
    void altKey_isSwallowed();
    void altF4_closesTheWindow();
    void ctrlAltZ_redoesInItsView();

    // Help.
    void help_clickOnOpcode_fillsThePanels();
    void help_popup_namesTheWord();
    void help_noManual_saysWhichWay();
    void help_about_showsTheTablesVersion();

private:
    void show(const QByteArray &text = {});
    QAction *action(const char *name) const;
    void trigger(const char *name) { action(name)->trigger(); }
    template <typename Control>
    Control *control(const char *name) const
    {
        auto *found = m_window->findChild<Control *>(QLatin1String(name));
        if (!found)
            qFatal("no control %s", name);
        return found;
    }
    LEditOCX *first() const { return control<LEditOCX>("LEDIT1"); }
    LEditOCX *second() const { return control<LEditOCX>("LEDIT2"); }
    static void caret(LEditOCX *editor, int line, int column, int endLine = 0, int endColumn = 0);
    void scroll(int delta);

    std::unique_ptr<TestProgram> m_program;
    QPointer<FormCSD> m_window;
};

void tst_FormCSD::init() { m_program = std::make_unique<TestProgram>(); }

void tst_FormCSD::cleanup()
{
    delete m_window;
    QCOMPARE(m_program->dialogs.verify(), QString());
    m_program.reset();
}

void tst_FormCSD::show(const QByteArray &text)
{
    m_program->config.CSDFileName = m_program->write(QStringLiteral("piece.csd"), text);
    m_window = new FormCSD(m_program->context);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window));
    first()->setFocus();
}

QAction *tst_FormCSD::action(const char *name) const { return control<QAction>(name); }

void tst_FormCSD::caret(LEditOCX *editor, int line, int column, int endLine, int endColumn)
{
    editor->SelStartLine = line;
    editor->SelStartColumn = column;
    editor->SelEndLine = endLine ? endLine : line;
    editor->SelEndColumn = endLine ? endColumn : column;
    editor->SetSelection();
}

// Menus and tables. ------------------------------------------------------------------------------

void tst_FormCSD::commands_shown_haveOneHandlerAndTheirCaption()
{
    show();
    QCOMPARE(CommandChecks::unbound(*m_window, csdCommands()), QStringList());
    QCOMPARE(CommandChecks::unbound(*m_window, editorCommands()), QStringList());
    QCOMPARE(CommandChecks::unreachable(*m_window, csdCommands()), QStringList());
    QCOMPARE(CommandChecks::unreachable(*m_window, editorCommands()), QStringList());
}

void tst_FormCSD::captions_areTheseTexts()
{
    show();
    const CommandChecks::Pair captions[] = {
        {"menuFileNuovaOrchestra", "&New File"},
        {"menuFileApriOrchestra", "&Open File"},
        {"menuFileSalvaOrchestra", "&Save File"},
        {"menuFileSalvaOrchestraNome", "Save File &As ..."},
        {"menuFileImportaORCSCO", "Import ORC/SCO to CSD"},
        {"menuFileConvertToORCSCO", "Export CSD to ORC/SCO"},
        {"menuFileProprieta", "File Prope&rties"},
        {"menuLastFile(3)", "..."},
        {"menuFileEsci", "E&xit"},
        {"menuModificaUndo", "&Undo\t(Ctrl+Z)"},
        {"menuModificaRedo", "&Redo\t(Ctrl+Alt+Z)"},
        {"menuModificaTaglia", "Cu&t\t(Ctrl+X)"},
        {"menuModificaCopia", "&Copy\t(Ctrl+C)"},
        {"menuModificaIncolla", "&Paste\t(Ctrl+V)"},
        {"menuModificaTrova", "&Find\t(Ctrl+F)"},
        {"menuModificaSostituisci", "F&ind and Replace\t(Ctrl+H)"},
        {"menuModificaTrovaRiga", "Find &Line number\t(Ctrl+G)"},
        {"menuModificaSelezionaTutto", "Select &All\t(Ctrl+A)"},
        {"menuFontSize(0)", "6"},
        {"menuFontSize(14)", "20"},
        {"menu22050Mono", "&1)  22050 Hz - Mono"},
        {"menu48000Quadri", "&9)  48000 Hz - Quadri"},
        {"menuTemplateCSD", "&CSD Template"},
        {"menuCSound", "&CSound"},
        {"menuSndInfo", "SndInfo"},
        {"menuPlayer", "&Wave Player"},
        {"menuToolsBookmark", "Insert &Bookmark"},
        {"menuToolsRemoveBookmark", "Remove B&ookmark"},
        {"menuToolsRemoveAllBookmark", "&Remove All Bookmarks"},
        {"menuWindowLineNumbers", "&Line numbers\tCTRL+1"},
        {"menuWindowBarraBook", "&Bookmarks\tCTRL+2"},
        {"menuWindowHelp", "&On-Line Help\tCTRL+3"},
        {"menuWindowToolbar", "&Toolbar\tCTRL+4"},
        {"menuWindowAllTools", "Hide/Show &All tools\tCTRL+5"},
        {"menuWindowRestore", "&Restore all tools\tCTRL+6"},
        {"menuWindowUp", "Window &Up"},
        {"menuWindowDown", "Window &Down"},
        {"menuWindowLeft", "Window L&eft"},
        {"menuWindowRight", "Window R&ight"},
        {"menuInfoArdiphonHelp", "&Ardiphon Help"},
        {"menuInfoCsoundHelp", "CSound &Help"},
        {"menuInfoCSoundAVHelp", "CSoundA&V Help"},
        {"menuInfoAbout", "&About"},
        {"menuPopupBookmark", "Insert Bookmark"},
        {"menuPopupRemoveBookmark", "Remove Bookmark"},
        {"menuPopupRemoveAllBookmarks", "Remove All Bookmarks"},
        {"menuPopupDefinition", "Go to definition"},
        {"menuPopupReference", "Go to reference"},
        {"menuPopupLastPosition", "Go to last position"},
    };
    QCOMPARE(CommandChecks::wrongCaptions(*m_window, captions), QStringList());
    QCOMPARE(control<QMenu>("menuSize")->title(), QStringLiteral("&Size"));
    QCOMPARE(control<QMenu>("menuHeader")->title(), QStringLiteral("&Header"));
    QCOMPARE(action("buttonSplit")->toolTip(), QStringLiteral("Split CSD Window"));
    QCOMPARE(control<QLabel>("Label1")->text(), QStringLiteral("Go to:"));
    QCOMPARE(action("menuCSound")->shortcut(), QKeySequence(Qt::Key_F3));
}

void tst_FormCSD::buttons_doWhatTheirCommandsDo()
{
    show();
    const CommandChecks::Pair buttons[] = {
        {"buttonNuovoProgetto", "menuFileNuovaOrchestra"},
        {"buttonApriProgetto", "menuFileApriOrchestra"},
        {"buttonSalvaProgetto", "menuFileSalvaOrchestra"},
        {"buttonSalvaProgettoNome", "menuFileSalvaOrchestraNome"},
        {"buttonDefaultDir", "buttonDefaultDir"},
        {"buttonPlayer", "menuPlayer"},
        {"buttonCarattereMeno", "buttonCarattereMeno"},
        {"buttonCaratterePiu", "buttonCaratterePiu"},
        {"buttonTrova", "menuModificaTrova"},
        {"buttonSostituisci", "menuModificaSostituisci"},
        {"buttonTrovaRiga", "menuModificaTrovaRiga"},
        {"buttonUndo", "menuModificaUndo"},
        {"buttonRedo", "menuModificaRedo"},
        {"buttonCsound", "menuCSound"},
        {"buttonHelp", "menuInfoCsoundHelp"},
        {"buttonOpcodeHelp", "buttonOpcodeHelp"},
        {"buttonDirectHelp", "menuInfoCSoundAVHelp"},
        {"buttonFlagsHelp", "buttonFlagsHelp"},
        {"buttonSplit", "buttonSplit"},
    };
    QCOMPARE(CommandChecks::wrongButtons(*control<QToolBar>("Toolbar1"), buttons), QStringList());
}

void tst_FormCSD::shortcuts_areThereOnce()
{
    show();
    QCOMPARE(CommandChecks::doubleShortcuts(*m_window), QStringList());
}

void tst_FormCSD::accessKeys_areThereOnceInEachMenu()
{
    show();
    // "&Ardiphon Help" and "&About" are given so.
    QCOMPARE(CommandChecks::doubleAccessKeys(*m_window),
             QStringList{QStringLiteral("menuInfo Alt+A")});
}

void tst_FormCSD::toolbar_everyButton_hasAnIconAndAName()
{
    show();
    QCOMPARE(CommandChecks::bareButtons(*m_window, csdToolbar()), QStringList());
}

void tst_FormCSD::popup_holdsTheEditEntriesAndTheBookmarks()
{
    show();
    QStringList names;
    for (const QAction *each : control<QMenu>("menuPopup")->actions())
        if (!each->isSeparator())
            names.append(each->objectName());
    for (const char *name :
         {"menuPopupTaglia", "menuPopupCopia", "menuPopupIncolla", "menuPopupUndo", "menuPopupRedo",
          "menuPopupSelezionaTutto", "menuPopupBookmark", "menuPopupRemoveBookmark",
          "menuPopupRemoveAllBookmarks", "menuPopupDefinition", "menuPopupReference",
          "menuPopupLastPosition", "menuPopupOpcodeHelp"})
        QVERIFY2(names.contains(QLatin1String(name)), name);
}

void tst_FormCSD::analysis_entries_openTheirWindows()
{
    show();
    QCOMPARE(CommandChecks::wrongAnalysisEntries(*m_window), QStringList());
}

void tst_FormCSD::audio_entries_openTheirWindows_data()
{
    QTest::addColumn<QByteArray>("entry");
    QTest::addColumn<QString>("window");
    QTest::newRow("player") << QByteArray("menuPlayer") << "FormPlayer";
    QTest::newRow("header") << QByteArray("menuSndInfo") << "FormSNDInfo";
}

void tst_FormCSD::audio_entries_openTheirWindows()
{
    QFETCH(QByteArray, entry);
    show();
    QString shown;
    QTimer::singleShot(0, this, [&shown] {
        QWidget *modal = QApplication::activeModalWidget();
        shown = modal->objectName();
        modal->close();
    });
    trigger(entry.constData());
    QTEST(shown, "window");
}

void tst_FormCSD::programs_everyWay_leadsToItsOwn()
{
    show();
    m_program->config.CSDFileName.clear();
    QWidget &editor = *first()->focusProxy();
    ProgramStarts::goToCompilers(*m_program, *m_window, editor, QStringLiteral("File"));
    ProgramStarts::goToTools(*m_program, *m_window, editor);
    ProgramStarts::goToMissingHtmlHelp(*m_program, *m_window, editor);
}

// Editing. ---------------------------------------------------------------------------------------

void tst_FormCSD::edit_entries_actOnTheFirstView()
{
    show("one\ntwo\n");
    trigger("buttonSplit");
    second()->setFocus();
    trigger("menuModificaSelezionaTutto");
    QCOMPARE(first()->SelText(), QStringLiteral("one\r\ntwo\r\n"));
    QCOMPARE(second()->SelText(), QString());
    trigger("menuPopupTaglia");
    QCOMPARE(first()->Text(), QString());
    QTRY_COMPARE(second()->Text(), QString()); // the cut reaches the second view with a tick
    trigger("menuModificaUndo");
    QCOMPARE(first()->Text(), QStringLiteral("one\r\ntwo\r\n"));
    trigger("menuModificaRedo");
    QCOMPARE(first()->Text(), QString());
    trigger("menuModificaIncolla");
    QTRY_COMPARE(second()->Text(), QStringLiteral("one\r\ntwo\r\n"));
}

/// Copy marks the second view as the changed one, so its text comes back over the first.
void tst_FormCSD::edit_copyWhileSplit_copiesTheSecondViewBack()
{
    show("one");
    trigger("buttonSplit");
    QTRY_VERIFY(!control<QTimer>("TimerAggiorna")->isActive());
    first()->SetText(QStringLiteral("changed by code"));
    trigger("menuModificaCopia");
    QTRY_COMPARE(first()->Text(), QStringLiteral("one"));
}

void tst_FormCSD::header_withSelection_takesItsPlace()
{
    show("one two");
    caret(first(), 1, 0, 1, 3);
    trigger("menu44100Stereo");
    const QString header = QStringLiteral("\r\n\tsr     = 44100\r\n\tkr     = 4410\r\n"
                                          "\tksmps  = 10\r\n\tnchnls = 2\r\n");
    QCOMPARE(first()->Text(), header + QStringLiteral(" two"));
    trigger("menu44100Stereo");
    QCOMPARE(first()->Text(), header + header + QStringLiteral(" two"));
    QVERIFY(first()->hasFocus());
}

void tst_FormCSD::template_isInsertedAtTheCaret()
{
    show("ab");
    trigger("buttonSplit");
    caret(first(), 1, 1);
    trigger("menuTemplateCSD");
    QVERIFY(
        first()->Text().startsWith(QLatin1String("a\r\n<CsoundSynthesizer>\r\n\r\n<CsOptions>")));
    QVERIFY(first()->Text().endsWith(QLatin1String("</CsoundSynthesizer>\r\n\r\nb")));
    QCOMPARE(second()->Text(), first()->Text());
}

// Tools. -----------------------------------------------------------------------------------------

void tst_FormCSD::tools_keptValues_areApplied()
{
    WriteRegistryString(m_program->settings, registry::WindowKey, QStringLiteral("LineNumbers"),
                        QStringLiteral("HIDE"));
    WriteRegistryString(m_program->settings, registry::WindowKey, QStringLiteral("Toolbar"),
                        QStringLiteral("hide")); // only the exact word hides
    show();
    QVERIFY(!m_program->config.LineNumbersVisible);
    QVERIFY(control<QWidget>("PicNumeri")->isHidden());
    QVERIFY(m_program->config.ToolbarVisible);
    QVERIFY(control<QWidget>("Toolbar1")->isVisible());
}

void tst_FormCSD::tools_notKept_areShown()
{
    WriteRegistryString(m_program->settings, registry::WindowKey, QStringLiteral("LineNumbers"),
                        QStringLiteral("HIDE"));
    m_program->config.SaveToolsPreferences = QStringLiteral("NO");
    show();
    QVERIFY(m_program->config.LineNumbersVisible);
    trigger("menuWindowToolbar");
    m_window->close();
    QCOMPARE(
        ReadRegistryString(m_program->settings, registry::WindowKey, QStringLiteral("Toolbar")),
        QString());
}

void tst_FormCSD::tools_toggle_showsAndHides()
{
    show();
    const QRect wide = first()->geometry();
    QTest::keyClick(first()->focusProxy(), Qt::Key_2, Qt::ControlModifier);
    for (const char *name :
         {"Tree", "Tree2", "List1", "LabelTags", "LabelBookmarks", "LabelOwnBook"})
        QVERIFY2(control<QWidget>(name)->isHidden(), name);
    QVERIFY(first()->geometry().left() < wide.left());
    QTest::keyClick(first()->focusProxy(), Qt::Key_1, Qt::ControlModifier);
    QVERIFY(control<QWidget>("PicNumeri")->isHidden());
    QTest::keyClick(first()->focusProxy(), Qt::Key_2, Qt::ControlModifier);
    QVERIFY(control<QWidget>("Tree")->isVisible());
}

void tst_FormCSD::tools_keys_workWhereverTheFocusIs()
{
    show();
    for (const char *name : {"TextInstr", "List1", "Tree"}) {
        auto *focused = control<QWidget>(name);
        focused->setFocus();
        for (const bool shown : {false, true}) {
            QTest::keyClick(focused, Qt::Key_3, Qt::ControlModifier);
            QCOMPARE(control<QWidget>("TextOpcode")->isVisible(), shown);
        }
    }
}

void tst_FormCSD::tools_secondGutter_goesWithTheSplit()
{
    show();
    const auto *gutter = control<QWidget>("PicNumeri2");
    trigger("menuWindowRestore");
    QVERIFY(gutter->isHidden());
    trigger("buttonSplit");
    QVERIFY(gutter->isVisible());
    QCOMPARE(gutter->y(), second()->y());
    QCOMPARE(gutter->height(), second()->height());
    trigger("menuWindowLineNumbers");
    QVERIFY(gutter->isHidden());
    trigger("menuWindowLineNumbers");
    QVERIFY(gutter->isVisible());
    trigger("buttonSplit");
    QVERIFY(gutter->isHidden());
}

void tst_FormCSD::tools_hideAllThenToggle_bringsOneBack()
{
    show();
    QTest::keyClick(first()->focusProxy(), Qt::Key_5, Qt::ControlModifier);
    QVERIFY(control<QWidget>("PicNumeri")->isHidden());
    QVERIFY(control<QWidget>("Toolbar1")->isHidden());
    QVERIFY(m_program->config.LineNumbersVisible); // the flags did not change
    trigger("menuWindowLineNumbers");
    QVERIFY(!m_program->config.LineNumbersVisible);
    trigger("menuWindowLineNumbers");
    QVERIFY(control<QWidget>("PicNumeri")->isVisible());
    QVERIFY(control<QWidget>("Toolbar1")->isHidden());
    QTest::keyClick(first()->focusProxy(), Qt::Key_6, Qt::ControlModifier);
    QVERIFY(control<QWidget>("Toolbar1")->isVisible());
}

void tst_FormCSD::tools_allFlagsOff_hideAllRestores()
{
    show();
    m_program->config.LineNumbersVisible = m_program->config.BookBarVisible = false;
    m_program->config.OnLineHelpVisible = m_program->config.ToolbarVisible = false;
    control<QWidget>("Toolbar1")->hide();
    trigger("menuWindowAllTools");
    QVERIFY(control<QWidget>("Toolbar1")->isVisible());
    QVERIFY(!m_program->config.ToolbarVisible);
}

void tst_FormCSD::tools_menuWindow_checksMatchTheFlags()
{
    show();
    auto *menu = control<QMenu>("menuWindow");
    trigger("menuWindowLineNumbers");
    emit menu->aboutToShow();
    QVERIFY(!action("menuWindowLineNumbers")->isChecked());
    QVERIFY(action("menuWindowBarraBook")->isChecked());
    QVERIFY(action("menuWindowToolbar")->isChecked());
}

void tst_FormCSD::window_halves_fillTheWorkArea()
{
    show();
    const QRect area = m_window->screen()->availableGeometry();
    trigger("menuWindowDown");
    QTRY_COMPARE(m_window->frameGeometry().top(), area.top() + area.height() / 2);
    trigger("menuWindowRight");
    QTRY_COMPARE(m_window->frameGeometry().left(), area.left() + area.width() / 2);
    QCOMPARE(m_program->config.WorkArea, area);
    trigger("menuWindowLeft");
    QTRY_COMPARE(m_window->frameGeometry().left(), area.left());
    QVERIFY(m_window->frameGeometry().width() <
            area.width()); // half the test's screen is too little
    QCOMPARE(m_window->frameGeometry().height(), area.height());
    m_window->showMaximized();
    QTRY_VERIFY(m_window->isMaximized());
    trigger("menuWindowUp");
    QTRY_VERIFY(!m_window->isMaximized());
    QTRY_COMPARE(m_window->frameGeometry(),
                 QRect(area.left(), area.top(), area.width(), area.height() / 2));
}

void tst_FormCSD::window_takesThePlacementThatWasKept()
{
    m_program->config.WindowLeft = 30L * 15;
    m_program->config.WindowTop = 20L * 15;
    m_program->config.WindowWidth = 700L * 15;
    m_program->config.WindowHeight = 500L * 15;
    show();
    QCOMPARE(m_window->pos(), QPoint(30, 20));
    QCOMPARE(m_window->size(), QSize(700, 500));
    delete m_window;
    m_program->config.WindowMaximized = true;
    show();
    QVERIFY(m_window->isMaximized());
}

// Split view. ------------------------------------------------------------------------------------

void tst_FormCSD::split_letterInEitherView_showsInTheOtherAtOnce()
{
    show("one\ntwo\n");
    trigger("buttonSplit");
    QCOMPARE(second()->Text(), first()->Text());
    caret(second(), 2, 1);
    QTest::keyClicks(second()->focusProxy(), QStringLiteral("x"));
    QCOMPARE(first()->Text(), QStringLiteral("one\r\ntxwo\r\n"));
    QCOMPARE(second()->Text(), first()->Text());
    caret(first(), 1, 3);
    QTest::keyClicks(first()->focusProxy(), QStringLiteral("y"));
    QCOMPARE(second()->Text(), QStringLiteral("oney\r\ntxwo\r\n"));
    QTest::keyClicks(first()->focusProxy(), QStringLiteral(" ~")); // the first and the last of them
    QCOMPARE(second()->Text(), QStringLiteral("oney ~\r\ntxwo\r\n"));
    QVERIFY(first()->GetState(2));
}

void tst_FormCSD::split_enter_isCopiedAndKeepsTheScrollPosition()
{
    show(QByteArray("line\n").repeated(500));
    trigger("buttonSplit");
    second()->SetTopLine(200);
    caret(first(), 3, 2);
    QTest::keyClick(first()->focusProxy(), Qt::Key_Return);
    QTRY_COMPARE(second()->Text(), first()->Text());
    QCOMPARE(second()->LineCount(), 502);
    QCOMPARE(second()->TopLine(), 200);
}

void tst_FormCSD::split_keyWithCtrl_isCopied()
{
    show("one");
    trigger("buttonSplit");
    first()->SelectAll();
    QTest::keyClick(first()->focusProxy(), Qt::Key_X, Qt::ControlModifier);
    QTRY_COMPARE(second()->Text(), QString());
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(second()->focusProxy(), Qt::Key_V, Qt::ControlModifier);
    QTRY_COMPARE(first()->Text(), QStringLiteral("oneone"));
}

void tst_FormCSD::split_begins_withoutAHistory()
{
    show("one");
    trigger("buttonSplit");
    second()->Undo();
    QCOMPARE(second()->Text(), QStringLiteral("one"));
}

void tst_FormCSD::split_off_copiesNothing()
{
    show("one");
    QTest::keyClick(first()->focusProxy(), Qt::Key_Return);
    QVERIFY(!control<QTimer>("TimerAggiorna")->isActive());
    QCOMPARE(second()->Text(), QString());
    trigger("buttonSplit");
    trigger("buttonSplit");
    QVERIFY(second()->isHidden());
    QCOMPARE(second()->Text(), QString());
}

void tst_FormCSD::split_randomEdits_endEqual()
{
    show(QByteArray("instr 1\nasig oscil 1, 440\nendin\n").repeated(20));
    trigger("buttonSplit");
    auto *timer = control<QTimer>("TimerAggiorna");
    QRandomGenerator random(20261120);
    const Qt::Key keys[] = {Qt::Key_A,      Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Down,
                            Qt::Key_Delete, Qt::Key_Tab,    Qt::Key_End,       Qt::Key_Up};
    for (int i = 0; i < 300; ++i) {
        LEditOCX *view = random.bounded(2) ? first() : second();
        const Qt::Key key = keys[random.bounded(8)];
        const bool shift = random.bounded(5) == 0;
        QTest::keyClick(view->focusProxy(), key, shift ? Qt::ShiftModifier : Qt::NoModifier);
        if (timer->isActive())
            QVERIFY(QSignalSpy(timer, &QTimer::timeout).wait());
        if (first()->Text() != second()->Text())
            QFAIL(qPrintable(QStringLiteral("after step %1, key %2").arg(i).arg(key)));
    }
}

void tst_FormCSD::split_keys_moveTheFocus()
{
    show("one");
    QTest::keyClick(first()->focusProxy(), Qt::Key_F12);
    QVERIFY(first()->hasFocus()); // the second view is hidden
    trigger("buttonSplit");
    QTest::keyClick(first()->focusProxy(), Qt::Key_F12);
    QVERIFY(second()->hasFocus());
    QTest::keyClick(second()->focusProxy(), Qt::Key_F12);
    QVERIFY(second()->hasFocus());
    QTest::keyClick(second()->focusProxy(), Qt::Key_F11);
    QVERIFY(first()->hasFocus());
}

// Side panel. ------------------------------------------------------------------------------------

void tst_FormCSD::tags_documentWords_appearOneByOne()
{
    show("<CsScore>\n</CsScore>\n<csoptions>\n");
    const auto *tree = control<QTreeWidget>("Tree");
    QCOMPARE(tree->topLevelItemCount(), int(m_program->config.Words.CsdWords.size()) - 1);
    QCOMPARE(tree->topLevelItem(0)->foreground(0).color(), QColor(0, 0, 255));
    QTRY_COMPARE(tree->topLevelItem(7)->text(0), QStringLiteral("</CsScore>"));
    QCOMPARE(tree->topLevelItem(6)->text(0), QStringLiteral("<CsScore>"));
    QCOMPARE(tree->topLevelItem(2)->text(0), QStringLiteral("...")); // the case differs
    first()->SetText(QStringLiteral("e"));
    QTRY_COMPARE(tree->topLevelItem(7)->text(0), QStringLiteral("..."));
}

/// Nothing is looked for in a text that is empty and was not touched.
void tst_FormCSD::tags_emptyUnmodifiedText_leavesTheTree()
{
    show("<CsScore>");
    const auto *tree = control<QTreeWidget>("Tree");
    QTRY_COMPARE(tree->topLevelItem(6)->text(0), QStringLiteral("<CsScore>"));
    first()->SetText(QString());
    first()->ClearState(2);
    QSignalSpy ticks(control<QTimer>("Timer1"), &QTimer::timeout);
    QTRY_VERIFY(ticks.count() > int(m_program->config.Words.CsdWords.size()));
    QCOMPARE(tree->topLevelItem(6)->text(0), QStringLiteral("<CsScore>"));
}

void tst_FormCSD::tags_listClick_insertsTheWordOnce()
{
    show("ab");
    trigger("buttonSplit");
    auto *list = control<QListWidget>("List1");
    const QRect row = list->visualItemRect(list->item(2));
    caret(first(), 1, 1);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row.center());
    QCOMPARE(first()->Text(), QStringLiteral("a<CsOptions>\r\nb"));
    QCOMPARE(second()->Text(), first()->Text());
    QVERIFY(!list->currentItem());
    QVERIFY(first()->hasFocus());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row.center());
    QCOMPARE(first()->Text(), QStringLiteral("a<CsOptions>\r\nb"));
    QVERIFY(first()->hasFocus());
    first()->SelectAll();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(4)).center());
    QCOMPARE(first()->Text(), list->item(4)->text() + QStringLiteral("\r\n"));
}

void tst_FormCSD::bookmarks_ctrlB_setsAndRemoves()
{
    show("instr\t1\n\nendin\n");
    const auto *tree = control<QTreeWidget>("Tree2");
    QCOMPARE(tree->topLevelItemCount(), 15);
    QTest::keyClick(first()->focusProxy(), Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(tree->topLevelItem(0)->text(0), QStringLiteral("-> instr 1"));
    QCOMPARE(first()->GetBookmarkLine(1), 1);
    QVERIFY(m_program->config.CSDModified);
    const auto background = [this] { // of the first line, behind its text
        return first()->grab().toImage().pixelColor(400, first()->PositionToPixels(1, 0).y() +
                                                             first()->LineHeight() / 2);
    };
    QCOMPARE(background(), QColor(240, 0, 0));
    QCOMPARE(tree->topLevelItem(0)->foreground(0).color(), QColor(0, 0, 255));
    caret(first(), 3, 0);
    trigger("menuPopupBookmark");
    caret(first(), 1, 2);
    trigger("menuToolsBookmark"); // the same command takes it away
    QCOMPARE(tree->topLevelItem(0)->text(0), QStringLiteral("..."));
    QCOMPARE(first()->GetBookmarkLine(1), -1);
    QVERIFY(background() != QColor(240, 0, 0));
    caret(first(), 2, 0);
    trigger("menuToolsBookmark"); // the free slot is the first to be used again
    QCOMPARE(tree->topLevelItem(0)->text(0), QStringLiteral("->"));
    trigger("menuToolsRemoveAllBookmark");
    QCOMPARE(tree->topLevelItem(1)->text(0), QStringLiteral("..."));
}

void tst_FormCSD::bookmarks_line_isWhiteOnRed()
{
    show("instr 1\nMMMMMMMM\n");
    caret(first(), 2, 0);
    trigger("menuToolsBookmark");
    caret(first(), 1, 0);
    const QPoint top = first()->PositionToPixels(2, 0);
    const QImage line =
        first()->grab(QRect(top.x(), top.y(), 400, first()->LineHeight())).toImage();
    QCOMPARE(line.pixelColor(350, line.height() / 2), QColor(240, 0, 0));
    bool white = false;
    for (int y = 0; y < line.height(); ++y)
        for (int x = 0; x < 100; ++x)
            white = white || line.pixelColor(x, y) == QColor(255, 255, 255);
    QVERIFY(white);
}

void tst_FormCSD::bookmarks_sixteenth_isRefused()
{
    show(QByteArray("line\n").repeated(20));
    for (int line = 1; line <= 15; ++line) {
        caret(first(), line, 0);
        trigger("menuToolsBookmark");
    }
    const Message full{QStringLiteral("You can insert max 15 Bookmarks!"),
                       QStringLiteral("Bookmark informations"), MessageIcon::Information,
                       MessageButtons::Ok};
    caret(first(), 16, 0);
    m_program->dialogs.expect(full);
    trigger("menuToolsBookmark");
    caret(first(), 3, 0); // even a line that has one
    m_program->dialogs.expect(full);
    trigger("menuToolsBookmark");
    QCOMPARE(first()->GetBookmarkLine(3), 3);
    trigger("menuToolsRemoveBookmark");
    QCOMPARE(first()->GetBookmarkLine(3), -1);
}

void tst_FormCSD::bookmarks_survive_inTheSideFile()
{
    show("a\nb\nc\nd\n");
    for (int line = 2; line <= 4; ++line) {
        caret(first(), line, 0);
        trigger("menuToolsBookmark");
    }
    caret(first(), 3, 0);
    trigger("menuToolsRemoveBookmark");
    caret(first(), 1, 0);
    QTest::keyClick(first()->focusProxy(), Qt::Key_Return); // the lines move down by one
    trigger("menuFileSalvaOrchestra");

    const QByteArray none = QByteArray("[NONE]").leftJustified(20);
    const auto record = [](const char *line, const char *text) {
        return QByteArray(line).leftJustified(20) + QByteArray(text).leftJustified(20);
    };
    QCOMPARE(m_program->read(QStringLiteral("piece.bkm")),
             record("3", "-> b") + none + none + record("5", "-> d") +
                 QByteArray(none + none).repeated(12));
    QVERIFY(!m_program->config.CSDModified);

    delete m_window;
    m_window = new FormCSD(m_program->context);
    QCOMPARE(first()->GetBookmarkLine(1), 3);
    QCOMPARE(first()->GetBookmarkLine(2), -1);
    QCOMPARE(first()->GetBookmarkLine(3), 5);
    QCOMPARE(control<QTreeWidget>("Tree2")->topLevelItem(2)->text(0),
             QStringLiteral("-> d").leftJustified(20));
}

void tst_FormCSD::bookmarks_flag_isClearedByASideFileAlone()
{
    show("a\n");
    trigger("menuToolsBookmark");
    trigger("menuFileSalvaOrchestra");
    trigger("menuToolsRemoveAllBookmark");
    const QByteArray sideFile = m_program->read(QStringLiteral("piece.bkm"));
    const auto open = [this](const char *name) {
        const QString path = m_program->write(QLatin1String(name), "b\n");
        m_program->dialogs.expectOpen(QStringLiteral("Open File"), path);
        trigger("menuFileApriOrchestra");
    };
    open("other.csd");
    QVERIFY(m_program->config.CSDModified);
    m_program->write(QStringLiteral("third.bkm"), sideFile);
    open("third.csd");
    QVERIFY(!m_program->config.CSDModified);
    QCOMPARE(first()->GetBookmarkLine(1), 1);
}

void tst_FormCSD::bookmarks_sideFile_goesWithTheLast()
{
    show("a\n");
    trigger("menuToolsBookmark");
    trigger("menuFileSalvaOrchestra");
    QVERIFY(QFile::exists(m_program->path(QStringLiteral("piece.bkm"))));
    trigger("menuToolsBookmark");
    trigger("menuFileSalvaOrchestra");
    QVERIFY(!QFile::exists(m_program->path(QStringLiteral("piece.bkm"))));
}

/// A text that bears a side file's name is still a text.
void tst_FormCSD::bookmarks_documentWithTheSideFilesName_isSafe()
{
    show();
    m_program->config.CSDFileName = m_program->write(QStringLiteral("text.bkm"), "my text");
    delete m_window;
    m_window = new FormCSD(m_program->context);
    trigger("menuToolsBookmark");
    trigger("menuFileSalvaOrchestra");
    trigger("menuToolsRemoveAllBookmark");
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("text.bkm")), QByteArray("my text"));
}

void tst_FormCSD::bookmarks_click_goesToTheLine()
{
    show(QByteArray("line\n").repeated(300));
    caret(first(), 250, 0);
    trigger("menuToolsBookmark");
    caret(first(), 1, 0);
    auto *tree = control<QTreeWidget>("Tree2");
    const auto click = [tree](int node) {
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualItemRect(tree->topLevelItem(node)).center());
    };
    click(0);
    first()->GetSelection();
    QCOMPARE(first()->SelStartLine, 250);
    QVERIFY(first()->TopLine() <= 250 && first()->TopLine() > 200);
    QVERIFY(first()->hasFocus());
    click(1); // a free slot only gives the focus
    first()->GetSelection();
    QCOMPARE(first()->SelStartLine, 250);
    QVERIFY(first()->hasFocus());
}

// Aids. ------------------------------------------------------------------------------------------

void tst_FormCSD::settings_reachBothViews()
{
    ConfigurationBlock &config = m_program->config;
    config.TabSize = QStringLiteral("4.5"); // half a character goes to the even neighbour
    config.FontSize = 14;
    config.DefaultFontName = QStringLiteral("DejaVu Sans Mono");
    config.ColorBackground = Color::rgb(10, 20, 30);
    show("x\n");
    trigger("buttonSplit");
    for (LEditOCX *view : {first(), second()}) {
        QCOMPARE(view->TabSize(), 4);
        QCOMPARE(view->FontSize(), 14.0);
        QCOMPARE(view->FontName(), QStringLiteral("DejaVu Sans Mono"));
        const QImage look = view->grab().toImage();
        QCOMPARE(look.pixelColor(look.width() / 2, look.height() / 2), QColor(10, 20, 30));
    }
}

void tst_FormCSD::settings_autoIndent_isOnAtExactlyOne_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("text");
    QTest::newRow("1") << "1"
                       << "\tx\r\n\t";
    QTest::newRow("1.0") << "1.0"
                         << "\tx\r\n\t";
    QTest::newRow("half") << "0.5"
                          << "\tx\r\n";
    QTest::newRow("0") << "0"
                       << "\tx\r\n";
}

void tst_FormCSD::settings_autoIndent_isOnAtExactlyOne()
{
    QFETCH(QString, setting);
    m_program->config.AutoIndent = setting;
    show("\tx");
    caret(first(), 1, 2);
    QTest::keyClick(first()->focusProxy(), Qt::Key_Return);
    QTEST(first()->Text(), "text");
}

void tst_FormCSD::gutter_press_selectsTheLine()
{
    show("one\ntwo\nthree\n");
    auto *gutter = control<QWidget>("PicNumeri");
    const int height = first()->LineHeight();
    QTest::mousePress(gutter, Qt::LeftButton, {}, QPoint(5, height + height / 2));
    QCOMPARE(first()->SelText(), QStringLiteral("two"));
    QVERIFY(first()->hasFocus());
    QTest::mousePress(gutter, Qt::LeftButton, {}, QPoint(5, height * 15)); // below the text
    first()->GetSelection();
    QCOMPARE(first()->SelStartLine, first()->LineCount());
}

void tst_FormCSD::gutter_font_isThatOfItsView()
{
    show();
    first()->SetFontName(QStringLiteral("DejaVu Sans Mono"));
    first()->SetFontSize(17);
    const QFont font = control<QWidget>("PicNumeri")->font();
    QCOMPARE(font.family(), QStringLiteral("DejaVu Sans Mono"));
    QCOMPARE(font.pointSizeF(), 17.0);
}

/// Turns the wheel over the view that has the focus, which leaves it to the window.
void tst_FormCSD::scroll(int delta)
{
    const LEditOCX *editor = second()->hasFocus() ? second() : first();
    QWidget *view = editor->childAt(20, 20);
    for (QWidget *receiver : {view, static_cast<QWidget *>(m_window)}) {
        QWheelEvent wheel(QPointF(20, 20), view->mapToGlobal(QPointF(20, 20)), {}, QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(receiver, &wheel);
        QCOMPARE(wheel.isAccepted(), receiver == m_window);
    }
}

void tst_FormCSD::wheel_scrollsTheFocusedView()
{
    m_program->config.WheelLinesCount = 6;
    show(QByteArray("line\n").repeated(500));
    trigger("buttonSplit");
    scroll(-120);
    QCOMPARE(first()->TopLine(), 7);
    QCOMPARE(second()->TopLine(), 1);
    scroll(-1); // only the sign counts
    QCOMPARE(first()->TopLine(), 13);
    scroll(120);
    QCOMPARE(first()->TopLine(), 7);
    second()->setFocus();
    scroll(-120);
    QCOMPARE(second()->TopLine(), 7);
    QCOMPARE(first()->TopLine(), 7);

    control<QListWidget>("List1")->setFocus();
    QWheelEvent wheel(QPointF(20, 20), QPointF(20, 20), {}, QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(m_window, &wheel);
    QCOMPARE(second()->TopLine(), 7);
    QCOMPARE(first()->TopLine(), 7);
}

void tst_FormCSD::fontSize_steps_stayBetween6And20()
{
    show();
    QVERIFY(action("menuFontSize(4)")->isChecked()); // 10 by default
    trigger("menuFontSize(13)");
    QCOMPARE(first()->FontSize(), 19.0);
    trigger("buttonCaratterePiu");
    trigger("buttonCaratterePiu");
    QCOMPARE(first()->FontSize(), 20.0);
    QVERIFY(action("menuFontSize(14)")->isChecked());
    QVERIFY(!action("menuFontSize(13)")->isChecked());
    trigger("menuFontSize(0)");
    trigger("buttonCarattereMeno");
    QCOMPARE(first()->FontSize(), 6.0);
    QVERIFY(action("menuFontSize(0)")->isChecked());
    trigger("buttonSplit");
    QCOMPARE(second()->FontSize(), 6.0);
}

/// A step that would leave the range only changes the number.
void tst_FormCSD::fontSize_defaultBeyondTheMenu_isStillThatOfTheText()
{
    m_program->config.DefaultFontSize = QStringLiteral("30");
    m_program->config.FontSize = 30;
    show();
    QCOMPARE(first()->FontSize(), 30.0);
    for (int i = 0; i < 15; ++i)
        QVERIFY(!action(qPrintable(QStringLiteral("menuFontSize(%1)").arg(i)))->isChecked());
    trigger("buttonCaratterePiu");
    QCOMPARE(m_program->config.FontSize, std::int16_t(20));
    QCOMPARE(first()->FontSize(), 30.0);
    trigger("buttonCarattereMeno");
    QCOMPARE(first()->FontSize(), 19.0);
}

void tst_FormCSD::popup_rightClick_movesTheCaretUnlessInTheSelection()
{
    show("instr one\nendin\n");
    auto *popup = control<QMenu>("menuPopup");
    QWidget *view = first()->childAt(20, 20);
    const auto rightClick = [&](int line, int column) {
        const QPoint at =
            first()->PositionToPixels(line, column) + QPoint(2, first()->LineHeight() / 2);
        QTest::mouseClick(view, Qt::RightButton, {}, view->mapFrom(first(), at));
        QTRY_VERIFY(popup->isVisible());
        popup->close();
    };
    caret(first(), 1, 2, 2, 3);
    rightClick(2, 1); // inside
    QCOMPARE(first()->SelectionLength(), 12);
    rightClick(2, 4); // behind its end
    QCOMPARE(first()->SelectionLength(), 0);
    first()->GetSelection();
    QCOMPARE(first()->SelStartLine, 2);
    QCOMPARE(first()->SelStartColumn, 4);
    caret(first(), 1, 2, 2, 3);
    rightClick(1, 0); // before its start
    QCOMPARE(first()->SelectionLength(), 0);
}

void tst_FormCSD::altKey_isSwallowed()
{
    show();
    for (const Qt::Key key : {Qt::Key_F, Qt::Key_J}) {
        QTest::keyClick(first()->focusProxy(), key, Qt::AltModifier);
        QCOMPARE(first()->Text(), QString());
        QVERIFY(!QApplication::activePopupWidget()); // no menu opens
    }
    QTest::keyClick(m_window->windowHandle(), Qt::Key_F, Qt::AltModifier);
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_FormCSD::altF4_closesTheWindow()
{
    show("text");
    trigger("buttonSplit");
    QTest::keyClick(second()->focusProxy(), Qt::Key_F4, Qt::AltModifier);
    QTRY_VERIFY(!m_window);
}

void tst_FormCSD::ctrlAltZ_redoesInItsView()
{
    show();
    QTest::keyClicks(first()->focusProxy(), QStringLiteral("x"));
    QTest::keyClick(first()->focusProxy(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(first()->Text(), QString());
    QTest::keyClick(first()->focusProxy(), Qt::Key_Z, Qt::ControlModifier | Qt::AltModifier);
    QCOMPARE(first()->Text(), QStringLiteral("x"));
}

// Help. ------------------------------------------------------------------------------------------

void tst_FormCSD::help_clickOnOpcode_fillsThePanels()
{
    show("asig oscil 1, 440\n");
    const auto *opcode = control<QLineEdit>("TextOpcode");
    const auto *parameters = control<QLineEdit>("TextParametri");
    QCOMPARE(opcode->text(), QStringLiteral("(Opcode)"));
    EditorInput::click(*first(), 1, 6);
    QVERIFY(opcode->text().startsWith(QLatin1String("[oscil] - ")));
    QVERIFY(parameters->text().contains(QLatin1String("oscil")));
    const QString shown = opcode->text();
    EditorInput::click(*first(), 1, 1); // no opcode
    QCOMPARE(opcode->text(), shown);
    trigger("buttonSplit");
    EditorInput::click(*second(), 1, 6);
    QCOMPARE(opcode->text(), shown);
    QTest::keyClick(first()->focusProxy(), Qt::Key_3, Qt::ControlModifier);
    QVERIFY(opcode->isHidden());
    QVERIFY(parameters->isHidden());
}

void tst_FormCSD::help_popup_namesTheWord()
{
    show("asig oscil 1, 440\n");
    EditorInput::click(*first(), 1, 6, Qt::RightButton);
    QCOMPARE(action("menuPopupOpcodeHelp")->text(), QStringLiteral("oscil -> Help"));
    control<QMenu>("menuPopup")->close();
    EditorInput::click(*first(), 1, 1, Qt::RightButton);
    QCOMPARE(action("menuPopupOpcodeHelp")->text(), QStringLiteral("Opcode -> Help"));
    control<QMenu>("menuPopup")->close();
}

void tst_FormCSD::help_noManual_saysWhichWay()
{
    m_program->config.FileGuida.clear();
    show("oscil");
    const Message byKey{QStringLiteral("No File associated to Csound Help\r\n"
                                       "Select File->Settings->CSound Help")};
    const Message byEntry{QStringLiteral("No File defined for CSound Help\r\n"
                                         "Please set: File->Settings->CSound Help")};
    for (const Qt::Key key : {Qt::Key_F1, Qt::Key_F2}) {
        m_program->dialogs.expect(byKey);
        QTest::keyClick(first()->focusProxy(), key);
    }
    m_program->dialogs.expect(byKey);
    trigger("menuPopupOpcodeHelp");
    for (const char *entry :
         {"menuInfoCsoundHelp", "menuInfoCSoundAVHelp", "buttonOpcodeHelp", "buttonFlagsHelp"}) {
        m_program->dialogs.expect(byEntry);
        trigger(entry);
    }
}

void tst_FormCSD::help_about_showsTheTablesVersion()
{
    show();
    QTimer::singleShot(0, m_window, [this] {
        auto *about = QApplication::activeModalWidget();
        QVERIFY(about);
        const auto *version = about->findChild<QLabel *>(QStringLiteral("lbl_Aggiornamento"));
        QCOMPARE(version->text(), QStringLiteral("Opcode On-Line Help Version ") +
                                      m_program->config.Words.OpcodeHelpVersion);
        QTest::keyClick(about, Qt::Key_Escape);
    });
    trigger("menuInfoAbout");
}

QTEST_MAIN(tst_FormCSD)
#include "tst_FormCSD.moc"
