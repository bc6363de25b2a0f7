#include "language/ui/EditorSettings.h"
#include "preferences/SettingsWindow.h"
#include "preferences/ui/ColorPatch.h"
#include "support/EditorInput.h"
#include "support/TestMain.h"

#include <QDir>

using namespace ardiphon;

namespace {

const Color Red = Color::rgb(255, 0, 0);
const Color Green = Color::rgb(0, 200, 0);
const Color Black = Color::rgb(0, 0, 0);
const Color White = Color::rgb(255, 255, 255);

QColor toQColor(Color color) { return {color.red(), color.green(), color.blue()}; }

struct Patch
{
    const char *name;
    Color ConfigurationBlock::*field;
    Color usual;
};

using Block = ConfigurationBlock;
const Patch patches[] = {
    {"picBackColor", &Block::ColorBackground, White},
    {"picForeColor", &Block::ColorText, Black},
    {"picOrchestra", &Block::ColorOrchestra, Color::rgb(0, 0, 255)},
    {"picOrchestraBK", &Block::ColorOrchestraBK, White},
    {"picScore", &Block::ColorCSD, Color::rgb(220, 0, 110)},
    {"picScoreBK", &Block::ColorCSDBK, White},
    {"picRem", &Block::ColorReminders, Color::rgb(0, 150, 0)},
    {"picFiles", &Block::ColorFiles, Color::rgb(150, 0, 0)},
    {"picFilesBK", &Block::ColorFilesBK, White},
    {"picMacros", &Block::ColorMacro, Color::rgb(160, 50, 160)},
    {"picMacrosBK", &Block::ColorMacroBK, White},
    {"picSelectionFore", &Block::ColorSelectionFore, White},
    {"picSelectionBack", &Block::ColorSelectionBack, Black},
    {"picInstrEndin", &Block::ColorInstrEndin, Color::rgb(0, 0, 255)},
    {"picInstrEndinBK", &Block::ColorInstrEndinBK, White},
};

} // namespace

/// What the settings do: to the open editors before anything is saved, and to the store.
class tst_SettingsEffects : public QObject, private SettingsWindow
{
    Q_OBJECT

private slots:
    void init() { begin(); }
    void cleanup() { QCOMPARE(end(), QString()); }

    // Values.
    void isNumberWithin_text_data();
    void isNumberWithin_text();
    void store_order_isThatOfTheSettings();

    // Colours.
    void color_everyPatch_showsAndTakesItsField();
    void color_pick_repaintsTheOpenEditors();
    void color_operations_reachTheirEditors_data();
    void color_operations_reachTheirEditors();
    void color_cancel_changesNothingVisible();
    void color_backCancelled_levelsTheBackColors();
    void color_dialog_beginsWithTheLastPicked();
    void color_default_restoresAllFifteen();
    void color_keyboard_picksToo();

    // Saving.
    void save_writesEverything();
    void save_tabSizeAndIndent_reachTheRightEditors_data();
    void save_tabSizeAndIndent_reachTheRightEditors();
    void save_tabSize_isAppliedAsAtTheStart_data();
    void save_tabSize_isAppliedAsAtTheStart();
    void save_fonts_waitForNewWindows();
    void save_paths_areTrimmed();
    void save_otherSpelling_isReplaced();
    void save_fileChangedMeanwhile_keepsTheOtherValues();
    void save_fileIsAFolder_saysSoAndCloses();
    void save_nothingCanBeWritten_saysSoAndKeepsTheOldFile();
    void escape_afterChanges_savesNothing();
    void close_sizesTyped_areForgotten();
};

// Values. -----------------------------------------------------------------------------------------

void tst_SettingsEffects::isNumberWithin_text_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("within");

    for (const char *good : {"2", "30", "30.9", "2.", " 8 ", "+8", "1e1", "08", "3E0", "2.5e1"})
        QTest::newRow(good) << good << true;
    for (const char *bad :
         {"",   " ", "1",  "31",  "1.99",  "-8",     "abc", "8a", "8 8", "1,5", "0x8",
          "e1", ".", "1e", "--8", "1e999", "-1e999", "8/2", "٨",  "nan", "inf"})
        QTest::newRow(bad) << QString::fromUtf8(bad) << false;
}

void tst_SettingsEffects::isNumberWithin_text()
{
    QFETCH(QString, text);
    QTEST(isNumberWithin(text, 2, 30), "within");
}

void tst_SettingsEffects::store_order_isThatOfTheSettings()
{
    QStringList names;
    for (const auto &[name, text] : settingsToStore(m_program->config))
        names.append(name);
    QCOMPARE(names.join(' '),
             "FileGuida FileCsound FileWinsound FileDirectCSound FileGuidaHtml WaveEditor "
             "WorkingDirectory TabSize DefaultFontSize DefaultFontName SaveToolsPreferences "
             "StartupAction WheelLines AutoIndent");
    names.clear();
    for (const auto &[name, text] : colorsToStore(m_program->config))
        names.append(name);
    QCOMPARE(names.join(' '),
             "colorBackground colorText colorOrchestra colorOrchestraBK colorCSD colorCSDBK "
             "colorReminders colorFiles colorFilesBK colorMacro colorMacroBK colorSelectionBack "
             "colorSelectionFore colorInstrEndin colorInstrEndinBK");
}

// Colours. ----------------------------------------------------------------------------------------

void tst_SettingsEffects::color_everyPatch_showsAndTakesItsField()
{
    std::uint32_t number = 0;
    for (const Patch &patch : patches)
        m_program->config.*patch.field = Color::rgb(10, 20, ++number);
    open();
    number = 0;
    for (const Patch &patch : patches)
        QCOMPARE(control<ColorPatch>(patch.name)->color(), Color::rgb(10, 20, ++number));
    Color last = Black;
    for (const Patch &patch : patches) {
        const Color chosen = Color::rgb(200, 100, ++number);
        pick(patch.name, last, chosen);
        last = chosen;
        QCOMPARE(m_program->config.*patch.field, chosen);
        auto *shown = control<ColorPatch>(patch.name);
        QCOMPARE(shown->grab().toImage().pixelColor(shown->rect().center()), toQColor(chosen));
    }
    QCOMPARE(stored(registry::ColorsKey, "ColorText"), "(none)");
}

void tst_SettingsEffects::color_pick_repaintsTheOpenEditors()
{
    open(ProjectSettings);
    Color last = Black;
    std::uint32_t number = 0;
    for (const char *patch : {"picForeColor", "picOrchestraBK", "picScoreBK", "picFilesBK",
                              "picMacrosBK", "picInstrEndinBK"}) {
        const Color chosen = Color::rgb(250, 180, ++number);
        pick(patch, last, chosen);
        last = chosen;
        QVERIFY2(shows(*LEDIT1, chosen), patch);
        QVERIFY2(shows(*LEDIT2, chosen), patch);
    }
}

void tst_SettingsEffects::color_operations_reachTheirEditors_data()
{
    QTest::addColumn<QString>("caller");
    QTest::addColumn<bool>("second");

    QTest::newRow("csd") << "CSD" << false;
    QTest::newRow("project") << "ORCSCO" << true;
}

void tst_SettingsEffects::color_operations_reachTheirEditors()
{
    QFETCH(QString, caller);
    QFETCH(bool, second);
    for (LEditOCX *editor : {LEDIT1, LEDIT2})
        EditorInput::select(*editor, 3, 0, 3, 5);
    open(caller);
    Color last = Black;
    std::uint32_t number = 0;
    for (const char *patch : {"picBackColor", "picRem", "picSelectionBack", "picSelectionFore"}) {
        const Color chosen = Color::rgb(90, 180, ++number);
        pick(patch, last, chosen);
        last = chosen;
        QVERIFY2(shows(*LEDIT1, chosen), patch);
        if (qstrcmp(patch, "picBackColor") != 0) // its tokens ask for the colour themselves
            QCOMPARE(shows(*LEDIT2, chosen), second);
        else
            QCOMPARE(onScreen(*LEDIT1).pixelColor(250, 250), toQColor(chosen)); // below the text
    }
}

void tst_SettingsEffects::color_cancel_changesNothingVisible()
{
    m_program->config.ColorFiles = Red;
    open();
    const auto before = colorsToStore(m_program->config);
    for (const Patch &patch : patches) {
        if (qstrcmp(patch.name, "picBackColor") == 0)
            continue;
        pick(patch.name, Black, std::nullopt);
        QCOMPARE(colorsToStore(m_program->config), before);
        for (const Patch &each : patches)
            QCOMPARE(control<ColorPatch>(each.name)->color(), m_program->config.*each.field);
    }
}

void tst_SettingsEffects::color_backCancelled_levelsTheBackColors()
{
    m_program->config.ColorBackground = Green;
    m_program->config.ColorOrchestraBK = m_program->config.ColorFilesBK = Red;
    m_program->config.ColorSelectionBack = Red;
    open();
    pick("picBackColor", Black, std::nullopt);
    QCOMPARE(m_program->config.ColorBackground, Green);
    for (const auto field : {&Block::ColorOrchestraBK, &Block::ColorCSDBK, &Block::ColorFilesBK,
                             &Block::ColorMacroBK, &Block::ColorInstrEndinBK})
        QCOMPARE(m_program->config.*field, Green);
    QCOMPARE(m_program->config.ColorSelectionBack, Red);
    for (const Patch &patch : patches)
        QCOMPARE(control<ColorPatch>(patch.name)->color(), m_program->config.*patch.field);
    QVERIFY(!shows(*LEDIT1, Red));
}

void tst_SettingsEffects::color_dialog_beginsWithTheLastPicked()
{
    open();
    pick("picForeColor", Black, Red);
    pick("picRem", Red, std::nullopt);
    pick("picFiles", Red, Green);
    pick("picMacros", Green, std::nullopt);
    open(); // a new window begins again
    pick("picMacros", Black, std::nullopt);
}

void tst_SettingsEffects::color_default_restoresAllFifteen()
{
    for (const Patch &patch : patches)
        m_program->config.*patch.field = Red;
    open();
    LEDIT1->Redraw();
    QVERIFY(shows(*LEDIT1, Red));
    click("Command4");
    for (const Patch &patch : patches) {
        QVERIFY2(m_program->config.*patch.field == patch.usual, patch.name);
        QCOMPARE(control<ColorPatch>(patch.name)->color(), patch.usual);
    }
    EditorInput::select(*LEDIT1, 3, 0, 3, 5);
    QVERIFY(!shows(*LEDIT1, Red));
    QVERIFY(shows(*LEDIT1, Color::rgb(0, 150, 0))); // the comment
    QCOMPARE(stored(registry::ColorsKey, "ColorText"), "(none)");
}

void tst_SettingsEffects::color_keyboard_picksToo()
{
    open();
    turnTo("mostraColors");
    m_program->dialogs.expectColor(Black, Red);
    control<ColorPatch>("picRem")->setFocus();
    QTest::keyClick(control<ColorPatch>("picRem"), Qt::Key_Space);
    QCOMPARE(m_program->config.ColorReminders, Red);
}

// Saving. -----------------------------------------------------------------------------------------

void tst_SettingsEffects::save_writesEverything()
{
    m_program->config.FileGuida = "/doc/index.html";
    m_program->config.FileCSound = "/usr/bin/csound";
    m_program->config.WorkingDirectory = "/home/größe";
    open();
    pick("picOrchestra", Black, Color::rgb(1, 2, 3));
    type("textTabSize", "4");
    save();
    QVERIFY(!m_window->isVisible());

    for (const auto &[name, text] : settingsToStore(m_program->config))
        QCOMPARE(stored(registry::SettingsKey, qPrintable(name)), text);
    for (const auto &[name, text] : colorsToStore(m_program->config))
        QCOMPARE(stored(registry::ColorsKey, qPrintable(name)), text);
    for (const auto &[name, text] : studioToStore(m_program->config))
        QCOMPARE(stored(registry::StudioKey, qPrintable(name)), text);
    QCOMPARE(stored(registry::ColorsKey, "ColorOrchestra"), "197121");
    QCOMPARE(stored(registry::SettingsKey, "FileCSound"), "/usr/bin/csound");

    ConfigurationBlock next; // as the next start has it
    SettingsStore fresh(m_program->path("settings.ini"));
    LoadConfiguration(next, fresh);
    QCOMPARE(next.WorkingDirectory, "/home/größe");
    QCOMPARE(next.TabSize, "4");
    QCOMPARE(next.ColorOrchestra, Color::rgb(1, 2, 3));
}

void tst_SettingsEffects::save_tabSizeAndIndent_reachTheRightEditors_data()
{
    color_operations_reachTheirEditors_data();
}

/// The second view of a CSD keeps its tab size, and takes the indent all the same.
void tst_SettingsEffects::save_tabSizeAndIndent_reachTheRightEditors()
{
    QFETCH(QString, caller);
    QFETCH(bool, second);
    LEDIT1->SetTabSize(8);
    LEDIT2->SetTabSize(8);
    open(caller);
    type("textTabSize", "30.9");
    click("CheckAutoIndent");
    save();
    QCOMPARE(LEDIT1->TabSize(), 30);
    QCOMPARE(LEDIT2->TabSize(), second ? 30 : 8);
    for (LEditOCX *editor : {LEDIT1, LEDIT2}) {
        editor->SetText("  a");
        EditorInput::goTo(*editor, 1, 3);
        EditorInput::press(*editor, Qt::Key_Return);
        QCOMPARE(editor->LineText(2), "  ");
    }
}

void tst_SettingsEffects::save_tabSize_isAppliedAsAtTheStart_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("characters");

    QTest::newRow("whole") << "4" << 4;
    QTest::newRow("below a half") << "15.4" << 15;
    QTest::newRow("above a half") << "15.7" << 16;
    QTest::newRow("above the most") << "30.9" << 30;
}

void tst_SettingsEffects::save_tabSize_isAppliedAsAtTheStart()
{
    QFETCH(QString, text);
    open(ProjectSettings);
    type("textTabSize", text);
    save();
    QTEST(LEDIT1->TabSize(), "characters");
    QTEST(LEDIT2->TabSize(), "characters");
    applySettings(*LEDIT1, m_program->config);
    QTEST(LEDIT1->TabSize(), "characters");
}

void tst_SettingsEffects::save_fonts_waitForNewWindows()
{
    LEDIT1->SetFontName("DejaVu Sans Mono");
    LEDIT1->SetFontSize(11);
    m_program->config.DefaultFontName = "DejaVu Serif";
    open();
    type("textFontSize", "20");
    save();
    QCOMPARE(m_program->config.DefaultFontSize, "20");
    QCOMPARE(LEDIT1->FontName(), "DejaVu Sans Mono");
    QCOMPARE(LEDIT1->FontSize(), 11.0);
}

void tst_SettingsEffects::save_paths_areTrimmed()
{
    m_program->config.StartupAction = " LATER ";
    m_program->config.DefaultFontName = " Some Font ";
    const std::pair<const char *, QString Block::*> paths[] = {
        {"FileGuida", &Block::FileGuida},
        {"FileCSound", &Block::FileCSound},
        {"FileWinsound", &Block::FileWinsound},
        {"FileDirectCSound", &Block::FileDirectCSound},
        {"FileGuidaHtml", &Block::FileGuidaHtml},
        {"WaveEditor", &Block::WaveEditor},
        {"WorkingDirectory", &Block::WorkingDirectory},
    };
    for (const auto &[name, field] : paths)
        m_program->config.*field = QStringLiteral(" /path of/%1 \t").arg(name);
    open();
    save();
    for (const auto &[name, field] : paths) {
        QCOMPARE(m_program->config.*field, QStringLiteral("/path of/%1").arg(name));
        QCOMPARE(stored(registry::SettingsKey, name), m_program->config.*field);
    }
    QCOMPARE(m_program->config.StartupAction, "LATER");
    QCOMPARE(m_program->config.DefaultFontName, " Some Font "); // as the system names it
}

void tst_SettingsEffects::save_otherSpelling_isReplaced()
{
    WriteRegistryString(m_program->settings, registry::SettingsKey, "FileCSound", "/old");
    WriteRegistryString(m_program->settings, registry::ColorsKey, "ColorText", "7");
    m_program->config.FileCSound = "/new";
    open();
    save();
    QCOMPARE(stored(registry::SettingsKey, "FileCSound"), "/new");
    QCOMPARE(stored(registry::ColorsKey, "ColorText"), "0");
    QCOMPARE(m_program->read("settings.ini").toLower().count("filecsound="), 1);
}

void tst_SettingsEffects::save_fileChangedMeanwhile_keepsTheOtherValues()
{
    open();
    SettingsStore other(m_program->path("settings.ini"));
    WriteRegistryString(other, registry::RecentFilesKey, "File1", "/other/piece.csd");
    WriteRegistryString(other, registry::SettingsKey, "TabSize", "17");
    save();
    QCOMPARE(stored(registry::RecentFilesKey, "File1"), "/other/piece.csd");
    QCOMPARE(stored(registry::SettingsKey, "TabSize"), "8");
}

void tst_SettingsEffects::save_fileIsAFolder_saysSoAndCloses()
{
    open();
    QVERIFY(QDir().mkpath(m_program->path("settings.ini/inside")));
    type("textTabSize", "4");
    m_program->dialogs.expect({QStringLiteral("The file \"%1\" was not saved: it is a folder.")
                                   .arg(m_program->path("settings.ini"))});
    save();
    QVERIFY(!m_window->isVisible());
    QVERIFY(QDir(m_program->path("settings.ini/inside")).exists());
    QCOMPARE(m_program->config.TabSize, "4"); // for the rest of the run
}

void tst_SettingsEffects::save_nothingCanBeWritten_saysSoAndKeepsTheOldFile()
{
    WriteRegistryString(m_program->settings, registry::SettingsKey, "TabSize", "17");
    const QByteArray before = m_program->read("settings.ini");
    open();
    // There is a file where its folder was: so nobody can write there, not even the system's owner.
    const QString folder = m_program->folder.path();
    const QString away = folder + ".away";
    QVERIFY(QDir().rename(folder, away));
    QVERIFY(QFile(folder).open(QIODevice::WriteOnly));
    m_program->dialogs.expect(
        {QStringLiteral("The file \"%1\" was not saved: its folder does not exist.")
             .arg(m_program->path("settings.ini"))});
    save();
    QVERIFY(!m_window->isVisible());
    QCOMPARE(m_program->config.TabSize, "8"); // for the rest of the run
    QVERIFY(QFile::remove(folder));
    QVERIFY(QDir().rename(away, folder));
    QCOMPARE(m_program->read("settings.ini"), before);
}

void tst_SettingsEffects::escape_afterChanges_savesNothing()
{
    open();
    pick("picBackColor", Black, Red);
    m_program->dialogs.expectOpen("Wave Editor (*.EXE)", "/usr/bin/editor");
    click("CercaWaveEditor");
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    QVERIFY(!m_window->isVisible());
    QVERIFY(shows(*LEDIT1, Red));
    QCOMPARE(m_program->config.ColorBackground, Red);
    QCOMPARE(m_program->config.WaveEditor, "/usr/bin/editor");

    ConfigurationBlock next; // as the next start has it
    SettingsStore fresh(m_program->path("settings.ini"));
    LoadConfiguration(next, fresh);
    QCOMPARE(next.ColorBackground, White);
    QCOMPARE(next.WaveEditor, "");
}

void tst_SettingsEffects::close_sizesTyped_areForgotten()
{
    open();
    type("textTabSize", "nonsense");
    click("CheckAutoIndent");
    m_window->close();
    QCOMPARE(m_program->config.TabSize, "8");
    QCOMPARE(m_program->config.AutoIndent, "0");
    open();
    QCOMPARE(control<QLineEdit>("textTabSize")->text(), "8");
}

ARDIPHON_TEST(tst_SettingsEffects, QApplication)
#include "tst_SettingsEffects.moc"
