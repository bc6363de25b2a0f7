#include "app/ui/PathField.h"
#include "preferences/SettingsWindow.h"
#include "preferences/ui/FormDirectory.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QTimer>
#include <QWindow>

using namespace ardiphon;

namespace {

using Block = ConfigurationBlock;

} // namespace

/// The sheets of the settings: what they show, what they take, and what they refuse.
class tst_FormImpostazioni : public QObject, private SettingsWindow
{
    Q_OBJECT

private slots:
    void init() { begin(); }
    void cleanup() { QCOMPARE(end(), QString()); }

    // The window.
    void window_opens_onDirectory();
    void sheets_click_showsOneAndMarksItsButton();
    void sheets_everyAccessKey_isThereOnce();
    void window_texts_areAsGiven();

    // Directory.
    void path_browse_countsAtOnce_data();
    void path_browse_countsAtOnce();
    void path_cancel_changesNothing();
    void path_field_cannotBeTyped();
    void path_long_isElidedAndGetsMoreRoom();
    void path_workingDirectory_comesFromItsWindow();

    // General.
    void general_settings_areShown_data();
    void general_settings_areShown();
    void general_clicks_areTaken();
    void general_wheelLines_shown_data();
    void general_wheelLines_shown();
    void general_unknownStartup_staysAsItIs();

    // Associations.
    void association_buttons_doTheirActions();
};

// The window. -------------------------------------------------------------------------------------

void tst_FormImpostazioni::window_opens_onDirectory()
{
    open();
    QCOMPARE(m_window->windowTitle(), "Settings");
    QVERIFY(m_window->isModal());
    QVERIFY(control<QGroupBox>("FrameDirectory")->isVisible());
    for (const char *frame :
         {"FrameGeneral", "FrameAssociation", "FrameText", "FrameColors", "FrameStudio"})
        QVERIFY2(!control<QGroupBox>(frame)->isVisible(), frame);
}

void tst_FormImpostazioni::sheets_click_showsOneAndMarksItsButton()
{
    open();
    const std::pair<const char *, const char *> sheets[] = {
        {"mostraGeneral", "FrameGeneral"},     {"mostraAssociation", "FrameAssociation"},
        {"mostraText", "FrameText"},           {"mostraColors", "FrameColors"},
        {"mostraDirectory", "FrameDirectory"}, {"mostraStudio", "FrameStudio"},
    };
    for (const auto &[chosen, shown] : sheets) {
        QTest::mouseClick(control<QPushButton>(chosen), Qt::LeftButton);
        for (const auto &[button, frame] : sheets) {
            const bool isChosen = qstrcmp(button, chosen) == 0;
            QCOMPARE(control<QGroupBox>(frame)->isVisible(), isChosen);
            QCOMPARE(control<QPushButton>(button)->isEnabled(), !isChosen);
            const QImage image = control<QPushButton>(button)->grab().toImage();
            QCOMPARE(image.pixelColor(5, 5),
                     isChosen ? QColor(233, 239, 243) : QColor(165, 175, 203));
        }
    }
}

void tst_FormImpostazioni::sheets_everyAccessKey_isThereOnce()
{
    open();
    QStringList keys;
    for (const auto *button : m_window->findChildren<QPushButton *>())
        if (const auto key = QKeySequence::mnemonic(button->text()); !key.isEmpty())
            keys.append(key.toString());
    QCOMPARE(keys.size(), 7);
    QCOMPARE(QSet<QString>(keys.begin(), keys.end()).size(), 7);
    QTest::keyClick(m_window->windowHandle(), Qt::Key_C, Qt::AltModifier);
    QTRY_VERIFY(control<QGroupBox>("FrameColors")->isVisible());
    QCOMPARE(m_window->focusWidget()->objectName(), "picBackColor");
}

void tst_FormImpostazioni::window_texts_areAsGiven()
{
    open();
    QStringList texts;
    for (const auto *group : m_window->findChildren<QGroupBox *>())
        texts.append(group->title());
    for (const auto *button : m_window->findChildren<QAbstractButton *>())
        texts.append(button->text());
    for (const auto *label : m_window->findChildren<QLabel *>())
        texts.append(label->text());
    for (const char *text : {"&General",
                             "&Files Association",
                             "&Text",
                             "&Colors",
                             "&Directory",
                             "General settings",
                             "CSound Files Association",
                             "Text",
                             "Colors (Click on color to change it)",
                             "Directory",
                             "CSound Console:",
                             "Winsound:",
                             "CSoundAV:",
                             "CSound Help:",
                             "CSoundAV Html Help:",
                             "Wave Editor:",
                             "Working Dir:",
                             "Default startup action:",
                             "Ardiphon startup window",
                             "New CSD file",
                             "New ORC/SCO project",
                             "Exit action:",
                             "Save Tools preferences on Exit",
                             "Mouse Wheel Scroll:",
                             "Default: 3",
                             "Tab Auto Indent:",
                             "Tab indent size:",
                             "(Min 2 - Max 30)",
                             "Default Font Size:",
                             "(Min 10 - Max 20)",
                             "Default Font Name:",
                             "Browse",
                             "Default",
                             "Text colors",
                             "BackColor:",
                             "ForeColor:",
                             "Syntax Highlight",
                             "Orchestra Opcode:",
                             "Fore:",
                             "Back:",
                             "CSD Tags:",
                             "Reminders:",
                             "Files (\"...\"):",
                             "Macros:",
                             "Selection:",
                             "Instr - Endin",
                             "Associate extensions",
                             "Associate CSound file extension (*.csd,*.orc,*.sco)  with Ardiphon:",
                             "Remove files association",
                             "Remove CSound files association:",
                             "&Save and Exit"})
        QVERIFY2(texts.contains(text), text);
}

// Directory. --------------------------------------------------------------------------------------

void tst_FormImpostazioni::path_browse_countsAtOnce_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("edit");
    QTest::addColumn<QString ConfigurationBlock::*>("field");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("filter");

    const auto row = [](const char *button, const char *edit, QString Block::*field,
                        const char *title, const char *filter) {
        QTest::newRow(button) << button << edit << field << title << filter;
    };
    row("CercaExe", "Text2", &Block::FileCSound, "File CSound (*.EXE)",
        "Csound.exe |*.exe|All files |*.*");
    row("Command8", "Text7", &Block::FileWinsound, "File Winsound (Csound_Win_xxx.EXE)",
        "Winsound.exe |*.exe|All files |*.*");
    row("CercaDirect", "Text3", &Block::FileDirectCSound, "File CSoundAV/DirectCSound (*.EXE)",
        "CSoundAV |*.exe|All files |*.*");
    row("Command3", "Text1", &Block::FileGuida, "CSound Help File (*.HLP)",
        "Csound Help (*.hlp)|*.hlp|All files |*.*");
    row("Command7", "Text6", &Block::FileGuidaHtml, "File CSoundAV Html Help (*.EXE)",
        "Html |*.htm|Html |*.html|All Files |*.*");
    row("CercaWaveEditor", "Text4", &Block::WaveEditor, "Wave Editor (*.EXE)",
        "Wave Editor |*.exe|All files |*.*");
}

void tst_FormImpostazioni::path_browse_countsAtOnce()
{
    QFETCH(QString, button);
    QFETCH(QString, edit);
    QFETCH(QString ConfigurationBlock::*, field);
    QFETCH(QString, title);
    QFETCH(QString, filter);
    m_program->config.*field = "/before/it";
    open();
    const auto *shown = control<QLineEdit>(qPrintable(edit));
    QCOMPARE(shown->text(), "/before/it");
    m_program->dialogs.expectOpen(title, "/new/place");
    click(qPrintable(button));
    QCOMPARE(m_program->config.*field, "/new/place");
    QCOMPARE(shown->text(), "/new/place");
    const FileQuestion &question = m_program->dialogs.fileQuestions.constFirst();
    QCOMPARE(question.filter, filter);
    QCOMPARE(question.directory, QDir::currentPath());
    QCOMPARE(question.proposedName, QString());
    QCOMPARE(stored(registry::SettingsKey, "FileGuida"), "(none)");
}

void tst_FormImpostazioni::path_cancel_changesNothing()
{
    m_program->config.FileCSound = "/usr/bin/csound";
    open();
    m_program->dialogs.expectOpen("File CSound (*.EXE)", std::nullopt);
    click("CercaExe");
    QCOMPARE(m_program->config.FileCSound, "/usr/bin/csound");
    QCOMPARE(control<QLineEdit>("Text2")->text(), "/usr/bin/csound");
}

void tst_FormImpostazioni::path_field_cannotBeTyped()
{
    m_program->config.WaveEditor = "/usr/bin/editor";
    open();
    for (int number = 1; number <= 7; ++number) {
        auto *edit = control<QLineEdit>(qPrintable(QString("Text%1").arg(number)));
        const QString before = edit->text();
        QTest::keyClicks(edit, "x");
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        QCOMPARE(edit->text(), before);
    }
}

void tst_FormImpostazioni::path_long_isElidedAndGetsMoreRoom()
{
    m_program->config.FileCSound =
        QStringLiteral("/a folder").repeated(30) + QStringLiteral("/csound");
    open();
    auto *field = static_cast<PathField *>(control<QLineEdit>("Text2"));
    QVERIFY(field->shownText().contains(QChar(0x2026)));
    QVERIFY(field->shownText().endsWith(QStringLiteral("/csound")));
    QCOMPARE(field->toolTip(), pathToolTip(field->text()));
    const QSize before = m_window->size();
    QVERIFY(before.width() <= 1024 && before.height() <= 768);
    QCOMPARE(m_window->minimumSize(), before);
    QCOMPARE(m_window->maximumHeight(), before.height()); // only the paths want more room
    const qsizetype shown = field->shownText().size();
    m_window->resize(1000, before.height());
    QTRY_VERIFY(field->shownText().size() > shown * 3 / 2);
}

void tst_FormImpostazioni::path_workingDirectory_comesFromItsWindow()
{
    m_program->config.WorkingDirectory = m_program->folder.path();
    open();
    QTimer::singleShot(0, this, [this] {
        auto *chooser = qobject_cast<FormDirectory *>(QApplication::activeModalWidget());
        require(chooser, "the window does not show");
        m_program->config.WorkingDirectory = "/usr"; // as a click on a folder does
        QTest::mouseClick(chooser->findChild<QPushButton *>("Command1"), Qt::LeftButton);
    });
    click("Command2");
    QCOMPARE(control<QLineEdit>("Text5")->text(), "/usr");
}

// General. ----------------------------------------------------------------------------------------

void tst_FormImpostazioni::general_settings_areShown_data()
{
    QTest::addColumn<QString>("startup");
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("saveTools");
    QTest::addColumn<bool>("saves");
    QTest::addColumn<QString>("autoIndent");
    QTest::addColumn<bool>("indents");

    QTest::newRow("chooser") << "STARTWINDOW"
                             << "OptionNewWindow"
                             << "YES" << true << "1" << true;
    QTest::newRow("csd") << "CSD"
                         << "OptionCSD"
                         << "NO" << false << "0" << false;
    QTest::newRow("project") << "ORCSCO"
                             << "OptionORCSCO"
                             << "no" << true << "0.5" << false;
    QTest::newRow("nonsense") << "csd"
                              << ""
                              << "whatever" << true << "x" << false;
}

void tst_FormImpostazioni::general_settings_areShown()
{
    QFETCH(QString, startup);
    QFETCH(QString, option);
    QFETCH(QString, saveTools);
    QFETCH(QString, autoIndent);
    m_program->config.StartupAction = startup;
    m_program->config.SaveToolsPreferences = saveTools;
    m_program->config.AutoIndent = autoIndent;
    open();
    for (const char *name : {"OptionNewWindow", "OptionCSD", "OptionORCSCO"})
        QCOMPARE(control<QRadioButton>(name)->isChecked(), option == QLatin1String(name));
    QTEST(control<QCheckBox>("CheckToolsPreferences")->isChecked(), "saves");
    QTEST(control<QCheckBox>("CheckAutoIndent")->isChecked(), "indents");
}

void tst_FormImpostazioni::general_clicks_areTaken()
{
    open();
    click("OptionORCSCO");
    click("CheckToolsPreferences");
    click("CheckAutoIndent");
    auto *wheel = control<QComboBox>("ComboWheel");
    wheel->setFocus();
    QTest::keyClick(wheel, Qt::Key_End);
    QCOMPARE(m_program->config.StartupAction, "STARTWINDOW"); // not before the saving
    save();
    QCOMPARE(m_program->config.StartupAction, "ORCSCO");
    QCOMPARE(m_program->config.SaveToolsPreferences, "NO");
    QCOMPARE(m_program->config.AutoIndent, "1");
    QCOMPARE(m_program->config.WheelLines, "6");
    QCOMPARE(int(m_program->config.WheelLinesCount), 6);
}

void tst_FormImpostazioni::general_wheelLines_shown_data()
{
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("shown");

    QTest::newRow("1") << "1"
                       << "1";
    QTest::newRow("6") << "6"
                       << "6";
    QTest::newRow("9") << "9"
                       << "3";
    QTest::newRow("0") << "0"
                       << "3";
    QTest::newRow("empty") << ""
                           << "3";
    QTest::newRow("word") << "many"
                          << "3";
    QTest::newRow("negative") << "-2"
                              << "3";
    QTest::newRow("number and word") << "4 lines"
                                     << "4";
}

void tst_FormImpostazioni::general_wheelLines_shown()
{
    QFETCH(QString, lines);
    m_program->config.WheelLines = lines;
    open();
    const auto *wheel = control<QComboBox>("ComboWheel");
    QCOMPARE(wheel->count(), 6);
    QTEST(wheel->currentText(), "shown");
}

void tst_FormImpostazioni::general_unknownStartup_staysAsItIs()
{
    m_program->config.StartupAction = "LATER";
    open();
    save();
    QCOMPARE(m_program->config.StartupAction, "LATER");
}

// Associations. -----------------------------------------------------------------------------------

void tst_FormImpostazioni::association_buttons_doTheirActions()
{
    qputenv("XDG_DATA_HOME", m_program->path("data").toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", m_program->path("config").toLocal8Bit());
    const auto types = [this] {
        return QDir(m_program->path("data/mime/packages")).entryList(QDir::Files).size();
    };
    const Message executed{"CSound files association executed!", "Files association",
                           MessageIcon::Information};
    const Message removed{"CSound files association removed!", "Remove association",
                          MessageIcon::Information};
    open();
    m_program->dialogs.expect(executed);
    click("btnAssociate");
    QCOMPARE(types(), 3);
    for (int time = 0; time < 2; ++time) {
        m_program->dialogs.expect(removed);
        click("btnRemoveAssociation");
        QCOMPARE(types(), 0);
    }
    QCOMPARE(m_program->dialogs.verify(), "");
    QVERIFY(m_window->isVisible());
}

ARDIPHON_TEST(tst_FormImpostazioni, QApplication)
#include "tst_FormImpostazioni.moc"
