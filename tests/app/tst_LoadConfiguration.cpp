#include "app/ConfigurationBlock.h"
#include "app/modRegistry.h"
#include "support/TestMain.h"

#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

namespace {

using TextField = QString ConfigurationBlock::*;
using ColorField = Color ConfigurationBlock::*;

struct TextSetting
{
    const char *name;
    TextField field;
};

struct ColorSetting
{
    const char *name;
    ColorField field;
    Color byDefault;
};

constexpr Color White = Color::rgb(255, 255, 255);
constexpr Color Blue = Color::rgb(0, 0, 255);

const TextSetting freeTexts[] = {
    {"FileGuida", &ConfigurationBlock::FileGuida},
    {"FileCSound", &ConfigurationBlock::FileCSound},
    {"FileWinsound", &ConfigurationBlock::FileWinsound},
    {"FileDirectCSound", &ConfigurationBlock::FileDirectCSound},
    {"FileGuidaHtml", &ConfigurationBlock::FileGuidaHtml},
    {"WaveEditor", &ConfigurationBlock::WaveEditor},
    {"WorkingDirectory", &ConfigurationBlock::WorkingDirectory},
};

const ColorSetting colors[] = {
    {"ColorBackground", &ConfigurationBlock::ColorBackground, White},
    {"ColorText", &ConfigurationBlock::ColorText, Color::rgb(0, 0, 0)},
    {"ColorOrchestra", &ConfigurationBlock::ColorOrchestra, Blue},
    {"ColorOrchestraBK", &ConfigurationBlock::ColorOrchestraBK, White},
    {"ColorCSD", &ConfigurationBlock::ColorCSD, Color::rgb(220, 0, 110)},
    {"ColorCSDBK", &ConfigurationBlock::ColorCSDBK, White},
    {"ColorReminders", &ConfigurationBlock::ColorReminders, Color::rgb(0, 150, 0)},
    {"ColorFiles", &ConfigurationBlock::ColorFiles, Color::rgb(150, 0, 0)},
    {"ColorFilesBK", &ConfigurationBlock::ColorFilesBK, White},
    {"ColorMacro", &ConfigurationBlock::ColorMacro, Color::rgb(160, 50, 160)},
    {"ColorMacroBK", &ConfigurationBlock::ColorMacroBK, White},
    {"ColorSelectionBack", &ConfigurationBlock::ColorSelectionBack, Color::rgb(0, 0, 0)},
    {"ColorSelectionFore", &ConfigurationBlock::ColorSelectionFore, White},
    {"ColorInstrEndin", &ConfigurationBlock::ColorInstrEndin, Blue},
    {"ColorInstrEndinBK", &ConfigurationBlock::ColorInstrEndinBK, White},
};

} // namespace

class tst_LoadConfiguration : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void emptyStore_givesAllDefaults();
    void runValues_areReset();
    void freeTexts_areTakenAsTheyAre();
    void helpFiles_areTrimmed();
    void text_isCheckedAtLoad_data();
    void text_isCheckedAtLoad();
    void wheelLines_countIsBounded_data();
    void wheelLines_countIsBounded();
    void fontSize_followsDefaultFontSize_data();
    void fontSize_followsDefaultFontSize();
    void everyColor_isReadFromItsOwnValue();
    void colors_writtenWithSmallInitial_areRead();
    void colors_withoutValues_giveDefaults();
    void backColors_withoutValues_followTheBackground();
    void instrColor_withoutValue_followsTheOrchestra();
    void color_numberIsBounded_data();
    void color_numberIsBounded();

private:
    void set(const char *name, const QString &text)
    {
        WriteRegistryString(*m_store, registry::SettingsKey, QString::fromLatin1(name), text);
    }
    void setColor(const QString &name, const QString &text)
    {
        WriteRegistryString(*m_store, registry::ColorsKey, name, text);
    }
    const ConfigurationBlock &load()
    {
        LoadConfiguration(*m_config, *m_store);
        return *m_config;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SettingsStore> m_store;
    std::unique_ptr<ConfigurationBlock> m_config;
};

void tst_LoadConfiguration::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_store = std::make_unique<SettingsStore>(m_folder->filePath("settings.ini"));
    m_config = std::make_unique<ConfigurationBlock>();
}

void tst_LoadConfiguration::emptyStore_givesAllDefaults()
{
    const ConfigurationBlock &config = load();
    for (const TextSetting &setting : freeTexts)
        QVERIFY2((config.*setting.field).isEmpty(), setting.name);
    QCOMPARE(config.TabSize, "8");
    QCOMPARE(config.DefaultFontSize, "10");
    QCOMPARE(config.FontSize, 10);
    QCOMPARE(config.DefaultFontName, "Courier New");
    QCOMPARE(config.SaveToolsPreferences, "YES");
    QCOMPARE(config.StartupAction, "STARTWINDOW");
    QCOMPARE(config.WheelLines, "");
    QCOMPARE(config.WheelLinesCount, 3);
    QCOMPARE(config.AutoIndent, "0");
    QVERIFY(!config.ColoursByMeaning);
    QVERIFY(config.CompletionWhileTyping && config.ArgumentHints && config.PointerHelp);
    QVERIFY(config.MarkOccurrences && !config.IndentByBlocks);
}

void tst_LoadConfiguration::runValues_areReset()
{
    m_config->MarginLeft = m_config->MarginRight = m_config->MarginTop = m_config->MarginBottom = 3;
    m_config->WindowMaximized = false;
    m_config->FormCSDClosing = true;
    const ConfigurationBlock &config = load();
    QCOMPARE(config.MarginLeft, 10);
    QCOMPARE(config.MarginRight, 10);
    QCOMPARE(config.MarginTop, 10);
    QCOMPARE(config.MarginBottom, 10);
    QVERIFY(config.WindowMaximized);
    QVERIFY(!config.FormCSDClosing);
}

void tst_LoadConfiguration::freeTexts_areTakenAsTheyAre()
{
    for (const TextSetting &setting : freeTexts)
        set(setting.name, QString("/opt/") + setting.name + "/a b");
    const ConfigurationBlock &config = load();
    for (const TextSetting &setting : freeTexts)
        QCOMPARE(config.*setting.field, QString("/opt/") + setting.name + "/a b");
}

void tst_LoadConfiguration::helpFiles_areTrimmed()
{
    for (const TextSetting &setting : freeTexts)
        set(setting.name, " x ");
    const ConfigurationBlock &config = load();
    QCOMPARE(config.FileGuida, "x");
    QCOMPARE(config.FileGuidaHtml, "x");
    QCOMPARE(config.FileCSound, " x ");
    QCOMPARE(config.WorkingDirectory, " x ");
}

void tst_LoadConfiguration::text_isCheckedAtLoad_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("loaded");

    const auto row = [](const char *name, const char *stored, const char *loaded) {
        QTest::addRow("%s of '%s'", name, stored)
            << QString(name) << QString(stored) << QString(loaded);
    };
    row("TabSize", "2", "2");
    row("TabSize", "30", "30");
    row("TabSize", "1", "8");
    row("TabSize", "31", "8");
    row("TabSize", "abc", "8");
    row("TabSize", "4 blanks", "4 blanks");
    row("AutoIndent", "0", "0");
    row("AutoIndent", "1", "1");
    row("AutoIndent", "-1", "0");
    row("AutoIndent", "2", "0");
    row("AutoIndent", "0.5", "0.5");
    row("AutoIndent", "abc", "abc");
    row("DefaultFontName", "Monospace", "Monospace");
    row("SaveToolsPreferences", "NO", "NO");
    row("SaveToolsPreferences", "maybe", "maybe");
    row("StartupAction", "CSD", "CSD");
    row("StartupAction", "ORCSCO", "ORCSCO");
    row("StartupAction", "unknown", "unknown");
}

void tst_LoadConfiguration::text_isCheckedAtLoad()
{
    QFETCH(QString, name);
    QFETCH(QString, stored);
    set(name.toLatin1().constData(), stored);
    const ConfigurationBlock &config = load();
    const QHash<QString, QString> fields{{"TabSize", config.TabSize},
                                         {"AutoIndent", config.AutoIndent},
                                         {"DefaultFontName", config.DefaultFontName},
                                         {"SaveToolsPreferences", config.SaveToolsPreferences},
                                         {"StartupAction", config.StartupAction}};
    QTEST(fields.value(name), "loaded");
}

void tst_LoadConfiguration::wheelLines_countIsBounded_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("count");

    QTest::newRow("empty") << "" << 3;
    QTest::newRow("none") << "0" << 3;
    QTest::newRow("least") << "1" << 1;
    QTest::newRow("most") << "6" << 6;
    QTest::newRow("too many") << "7" << 3;
    QTest::newRow("negative") << "-2" << 3;
    QTest::newRow("word") << "abc" << 3;
    QTest::newRow("far too many") << "1e300" << 3;
}

void tst_LoadConfiguration::wheelLines_countIsBounded()
{
    QFETCH(QString, stored);
    QFETCH(int, count);
    set("WheelLines", stored);
    QCOMPARE(load().WheelLines, stored);
    QCOMPARE(int(m_config->WheelLinesCount), count);
}

void tst_LoadConfiguration::fontSize_followsDefaultFontSize_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("size");

    QTest::newRow("default") << "" << 10;
    QTest::newRow("given") << "14" << 14;
    QTest::newRow("word") << "abc" << 0;
    QTest::newRow("too large for its type") << "1e9" << 32767;
}

void tst_LoadConfiguration::fontSize_followsDefaultFontSize()
{
    QFETCH(QString, stored);
    QFETCH(int, size);
    set("DefaultFontSize", stored);
    QCOMPARE(int(load().FontSize), size);
}

void tst_LoadConfiguration::everyColor_isReadFromItsOwnValue()
{
    std::uint32_t number = 1000;
    for (const ColorSetting &setting : colors)
        setColor(setting.name, QString::number(number++));
    const ConfigurationBlock &config = load();
    number = 1000;
    for (const ColorSetting &setting : colors)
        QVERIFY2((config.*setting.field).value == number++, setting.name);
}

void tst_LoadConfiguration::colors_writtenWithSmallInitial_areRead()
{
    setColor("colorBackground", "7");
    setColor("colorInstrEndin", "8");
    QCOMPARE(load().ColorBackground.value, 7u);
    QCOMPARE(m_config->ColorInstrEndin.value, 8u);
}

void tst_LoadConfiguration::colors_withoutValues_giveDefaults()
{
    const ConfigurationBlock &config = load();
    for (const ColorSetting &setting : colors)
        QVERIFY2(config.*setting.field == setting.byDefault, setting.name);
}

void tst_LoadConfiguration::backColors_withoutValues_followTheBackground()
{
    setColor("ColorBackground", "0");
    setColor("ColorMacroBK", "255");
    setColor("ColorOrchestraBK", "255"); // no other back follows this one
    const ConfigurationBlock &config = load();
    const Color black{0};
    QCOMPARE(config.ColorBackground.value, 0u);
    QVERIFY(config.ColorOrchestraBK == Color::rgb(255, 0, 0));
    QVERIFY(config.ColorCSDBK == black);
    QVERIFY(config.ColorFilesBK == black);
    QVERIFY(config.ColorInstrEndinBK == black);
    QVERIFY(config.ColorMacroBK == Color::rgb(255, 0, 0));
    QVERIFY(config.ColorSelectionFore == White);
}

void tst_LoadConfiguration::instrColor_withoutValue_followsTheOrchestra()
{
    setColor("ColorOrchestra", "255");
    QVERIFY(load().ColorInstrEndin == Color::rgb(255, 0, 0));
}

void tst_LoadConfiguration::color_numberIsBounded_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<quint32>("value");

    QTest::newRow("red is the lowest byte") << "1" << Color::rgb(1, 0, 0).value;
    QTest::newRow("green") << "256" << Color::rgb(0, 1, 0).value;
    QTest::newRow("blue") << "65536" << Color::rgb(0, 0, 1).value;
    QTest::newRow("white") << "16777215" << White.value;
    QTest::newRow("too large") << "99999999999" << White.value;
    QTest::newRow("negative") << "-5" << 0u;
    QTest::newRow("word") << "abc" << 0u;
}

void tst_LoadConfiguration::color_numberIsBounded()
{
    QFETCH(QString, stored);
    setColor("ColorText", stored);
    QTEST(quint32(load().ColorText.value), "value");
}

ARDIPHON_TEST(tst_LoadConfiguration, QCoreApplication)
#include "tst_LoadConfiguration.moc"
