#include "documents/CommandChecks.h"
#include "documents/CsdFixture.h"
#include "documents/ProgramStarts.h"
#include "help/KeySummary.h"
#include "support/EditorInput.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTimer>
#include <QToolBar>

using namespace ardiphon;

/// The commands of the CSD window: menus, toolbar, popup, editing and help.
class tst_FormCSD : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    // Menus and tables.
    void commands_shown_haveOneHandlerAndTheirCaption();
    void captions_areTheseTexts();
    void buttons_doWhatTheirCommandsDo();
    void shortcuts_areThereOnce();
    void shortcuts_textKeyAndHandler_agree();
    void shortcuts_theHelpNamesAllOfThem();
    void accessKeys_areThereOnceInEachMenu();
    void toolbar_everyButton_hasAnIconAndAName();
    void popup_holdsTheEditEntriesAndTheBookmarks();
    void keys_F10Alone_goesToTheMenuBarAndBack();

    void analysis_entries_openTheirWindows();
    void audio_entries_openTheirWindows_data();
    void audio_entries_openTheirWindows();
    void programs_everyWay_leadsToItsOwn();

    // Editing.
    void edit_entries_actOnTheFirstView();
    void edit_copyWhileSplit_copiesTheSecondViewBack();
    void header_withSelection_takesItsPlace();
    void template_isInsertedAtTheCaret();

    // Help.
    void help_clickOnOpcode_fillsThePanels();
    void help_popup_namesTheWord();
    void help_noManual_saysWhichWay();
    void help_about_showsTheTablesVersion();
};

// Menus and tables. -------------------------------------------------------------------------------

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

void tst_FormCSD::shortcuts_textKeyAndHandler_agree()
{
    show();
    QCOMPARE(CommandChecks::wrongShortcuts(*m_window, csdShortcuts()), QStringList());
    QCOMPARE(CommandChecks::wrongShortcuts(*m_window, editorShortcuts()), QStringList());
}

/// And no others. A key that only ends the program is not named there.
void tst_FormCSD::shortcuts_theHelpNamesAllOfThem()
{
    QSet<QKeySequence> named;
    static const QRegularExpression row(QStringLiteral("<tr[^>]*><td[^>]*><b>([^<]*)</b>"));
    for (const auto &match : row.globalMatch(keySummary(QStringLiteral("#ffffff"))))
        named.insert(QKeySequence(match.captured(1).remove(u' ').replace("PGDN", "PgDown")));
    QSet<QKeySequence> present;
    for (const auto &table : {editorShortcuts(), csdShortcuts(), projectShortcuts()})
        for (const Shortcut &each : table)
            present.insert(QKeySequence(QLatin1String(each.key)));
    present.remove(QKeySequence(QStringLiteral("Alt+F4")));
    QCOMPARE(named, present);
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
    CHECKED(ProgramStarts::goToCompilers(*m_program, *m_window, editor, QStringLiteral("File")));
    CHECKED(ProgramStarts::goToTools(*m_program, *m_window, editor));
    CHECKED(ProgramStarts::goToMissingHtmlHelp(*m_program, *m_window, editor));
}

// Editing. ----------------------------------------------------------------------------------------

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

// Help. -------------------------------------------------------------------------------------------

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
    QString version;
    QTimer::singleShot(0, m_window, [&version] {
        auto *about = QApplication::activeModalWidget();
        require(about, "the window does not show");
        version = about->findChild<QLabel *>(QStringLiteral("lbl_Aggiornamento"))->text();
        QTest::keyClick(about, Qt::Key_Escape);
    });
    trigger("menuInfoAbout");
    QCOMPARE(version, QStringLiteral("Opcode On-Line Help Version ") +
                          m_program->config.Words->OpcodeHelpVersion);
}

void tst_FormCSD::keys_F10Alone_goesToTheMenuBarAndBack()
{
    show("text\n");
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    const auto press = [](Qt::KeyboardModifiers with) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F10, with);
    };
    for (const Qt::KeyboardModifier with : {Qt::ControlModifier, Qt::AltModifier}) {
        press(with);
        QVERIFY(first()->hasFocus());
    }
    press(Qt::NoModifier);
    QVERIFY(m_window->menuBar()->hasFocus());
    press(Qt::NoModifier);
    QVERIFY(first()->hasFocus());
}

ARDIPHON_TEST(tst_FormCSD, QApplication)
#include "tst_FormCSD.moc"
