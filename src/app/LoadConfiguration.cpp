#include "app/ConfigurationBlock.h"
#include "app/Numbers.h"
#include "app/StudioSettings.h"
#include "app/modRegistry.h"

#include <functional>
#include <limits>

namespace ardiphon {

namespace {

QString withDefault(const QString &text, const QString &whenEmpty)
{
    return text.isEmpty() ? whenEmpty : text;
}

/// \a text, or \a otherwise when it is empty or its number is outside [\a lowest, \a highest].
QString boundedNumber(const QString &text, int lowest, int highest, const QString &otherwise)
{
    const double number = leadingNumber(text);
    return text.isEmpty() || number < lowest || number > highest ? otherwise : text;
}

std::uint8_t wheelLines(const QString &text)
{
    const double lines = leadingNumber(text);
    return lines < 1 || lines > 6 ? std::uint8_t(3) : std::uint8_t(roundedWithin(lines, 1, 6));
}

void loadSettings(ConfigurationBlock &config, SettingsStore &store)
{
    const auto read = [&store](const char *name) {
        return ReadRegistryString(store, registry::SettingsKey, QString::fromLatin1(name));
    };
    config.FileGuida = read("FileGuida").trimmed();
    config.FileCSound = read("FileCSound");
    config.FileWinsound = read("FileWinsound");
    config.FileDirectCSound = read("FileDirectCSound");
    config.FileGuidaHtml = read("FileGuidaHtml").trimmed();
    config.WaveEditor = read("WaveEditor");
    config.WorkingDirectory = read("WorkingDirectory");
    config.TabSize = boundedNumber(read("TabSize"), 2, 30, QStringLiteral("8"));
    config.DefaultFontSize = withDefault(read("DefaultFontSize"), QStringLiteral("10"));
    config.FontSize = std::int16_t(roundedWithin(leadingNumber(config.DefaultFontSize),
                                                 std::numeric_limits<std::int16_t>::min(),
                                                 std::numeric_limits<std::int16_t>::max()));
    config.DefaultFontName = withDefault(read("DefaultFontName"), UsualFontName);
    config.SaveToolsPreferences = withDefault(read("SaveToolsPreferences"), QStringLiteral("YES"));
    config.StartupAction = withDefault(read("StartupAction"), QStringLiteral("STARTWINDOW"));
    config.WheelLines = read("WheelLines");
    config.WheelLinesCount = wheelLines(config.WheelLines);
    config.AutoIndent = boundedNumber(read("AutoIndent"), 0, 1, QStringLiteral("0"));
}

/// Sets all colours. \a textOf returns the text of a colour by its name; for "" the colour gets its
/// default.
void resolveColors(ConfigurationBlock &config,
                   const std::function<QString(const QString &name)> &textOf)
{
    const auto read = [&textOf](const char *name, Color whenEmpty) {
        const QString text = textOf(QString::fromLatin1(name));
        if (text.isEmpty())
            return whenEmpty;
        return Color{std::uint32_t(roundedWithin(leadingNumber(text), 0, 0xFFFFFF))};
    };
    // A colour whose default is another colour comes after that one.
    const Color back = config.ColorBackground = read("ColorBackground", Color::rgb(255, 255, 255));
    config.ColorText = read("ColorText", Color::rgb(0, 0, 0));
    config.ColorOrchestra = read("ColorOrchestra", Color::rgb(0, 0, 255));
    config.ColorOrchestraBK = read("ColorOrchestraBK", back);
    config.ColorCSD = read("ColorCSD", Color::rgb(220, 0, 110));
    config.ColorCSDBK = read("ColorCSDBK", back);
    config.ColorReminders = read("ColorReminders", Color::rgb(0, 150, 0));
    config.ColorFiles = read("ColorFiles", Color::rgb(150, 0, 0));
    config.ColorFilesBK = read("ColorFilesBK", back);
    config.ColorMacro = read("ColorMacro", Color::rgb(160, 50, 160));
    config.ColorMacroBK = read("ColorMacroBK", back);
    config.ColorSelectionBack = read("ColorSelectionBack", Color::rgb(0, 0, 0));
    config.ColorSelectionFore = read("ColorSelectionFore", Color::rgb(255, 255, 255));
    config.ColorInstrEndin = read("ColorInstrEndin", config.ColorOrchestra);
    config.ColorInstrEndinBK = read("ColorInstrEndinBK", back);
}

void loadStudio(ConfigurationBlock &config, SettingsStore &store)
{
    for (const StudioSwitch &each : StudioSwitches) {
        const QString value =
            ReadRegistryString(store, registry::StudioKey, QString::fromLatin1(each.name));
        config.*each.field = value == u'1' || (each.isOnAtFirst && value != u'0');
    }
}

} // namespace

void LoadConfiguration(ConfigurationBlock &config, SettingsStore &store)
{
    config.MarginLeft = config.MarginRight = config.MarginTop = config.MarginBottom = 10;
    config.WindowMaximized = true;
    config.FormCSDClosing = false;
    loadSettings(config, store);
    loadStudio(config, store);
    resolveColors(config, [&store](const QString &name) {
        return ReadRegistryString(store, registry::ColorsKey, name);
    });
}

void ResetColors(ConfigurationBlock &config)
{
    resolveColors(config, [](const QString &) { return QString(); });
}

} // namespace ardiphon
