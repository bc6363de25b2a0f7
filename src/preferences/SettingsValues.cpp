#include "preferences/SettingsValues.h"

#include "app/ConfigurationBlock.h"
#include "app/Numbers.h"
#include "app/StudioSettings.h"
#include "app/modRegistry.h"

#include <cmath>

namespace ardiphon {

namespace {

struct StoredText
{
    const char *name;
    QString ConfigurationBlock::*field;
};

constexpr StoredText texts[] = {
    {"FileGuida", &ConfigurationBlock::FileGuida},
    {"FileCsound", &ConfigurationBlock::FileCSound},
    {"FileWinsound", &ConfigurationBlock::FileWinsound},
    {"FileDirectCSound", &ConfigurationBlock::FileDirectCSound},
    {"FileGuidaHtml", &ConfigurationBlock::FileGuidaHtml},
    {"WaveEditor", &ConfigurationBlock::WaveEditor},
    {"WorkingDirectory", &ConfigurationBlock::WorkingDirectory},
    {"TabSize", &ConfigurationBlock::TabSize},
    {"DefaultFontSize", &ConfigurationBlock::DefaultFontSize},
    {"DefaultFontName", &ConfigurationBlock::DefaultFontName},
    {"SaveToolsPreferences", &ConfigurationBlock::SaveToolsPreferences},
    {"StartupAction", &ConfigurationBlock::StartupAction},
    {"WheelLines", &ConfigurationBlock::WheelLines},
    {"AutoIndent", &ConfigurationBlock::AutoIndent},
};

constexpr QString ConfigurationBlock::*trimmedFields[] = {
    &ConfigurationBlock::FileGuida,        &ConfigurationBlock::FileCSound,
    &ConfigurationBlock::FileWinsound,     &ConfigurationBlock::FileDirectCSound,
    &ConfigurationBlock::FileGuidaHtml,    &ConfigurationBlock::WaveEditor,
    &ConfigurationBlock::WorkingDirectory, &ConfigurationBlock::TabSize,
    &ConfigurationBlock::DefaultFontSize,  &ConfigurationBlock::SaveToolsPreferences,
    &ConfigurationBlock::StartupAction,
};

struct StoredColor
{
    const char *name;
    Color ConfigurationBlock::*field;
};

constexpr StoredColor colors[] = {
    {"colorBackground", &ConfigurationBlock::ColorBackground},
    {"colorText", &ConfigurationBlock::ColorText},
    {"colorOrchestra", &ConfigurationBlock::ColorOrchestra},
    {"colorOrchestraBK", &ConfigurationBlock::ColorOrchestraBK},
    {"colorCSD", &ConfigurationBlock::ColorCSD},
    {"colorCSDBK", &ConfigurationBlock::ColorCSDBK},
    {"colorReminders", &ConfigurationBlock::ColorReminders},
    {"colorFiles", &ConfigurationBlock::ColorFiles},
    {"colorFilesBK", &ConfigurationBlock::ColorFilesBK},
    {"colorMacro", &ConfigurationBlock::ColorMacro},
    {"colorMacroBK", &ConfigurationBlock::ColorMacroBK},
    {"colorSelectionBack", &ConfigurationBlock::ColorSelectionBack},
    {"colorSelectionFore", &ConfigurationBlock::ColorSelectionFore},
    {"colorInstrEndin", &ConfigurationBlock::ColorInstrEndin},
    {"colorInstrEndinBK", &ConfigurationBlock::ColorInstrEndinBK},
};

} // namespace

bool isNumberWithin(const QString &text, int lowest, int highest)
{
    const double whole = std::trunc(leadingNumber(text));
    return isNumber(text) && whole >= lowest && whole <= highest;
}

QList<std::pair<QString, QString>> settingsToStore(const ConfigurationBlock &config)
{
    QList<std::pair<QString, QString>> values;
    for (const StoredText &each : texts)
        values.append({QString::fromLatin1(each.name), config.*each.field});
    return values;
}

QList<std::pair<QString, QString>> colorsToStore(const ConfigurationBlock &config)
{
    QList<std::pair<QString, QString>> values;
    for (const StoredColor &each : colors)
        values.append(
            {QString::fromLatin1(each.name), QString::number((config.*each.field).value)});
    return values;
}

QList<std::pair<QString, QString>> studioToStore(const ConfigurationBlock &config)
{
    QList<std::pair<QString, QString>> values;
    for (const StudioSwitch &each : StudioSwitches)
        values.append({QString::fromLatin1(each.name),
                       config.*each.field ? QStringLiteral("1") : QStringLiteral("0")});
    return values;
}

void SaveSettings(ConfigurationBlock &config, SettingsStore &store)
{
    for (const auto field : trimmedFields)
        config.*field = (config.*field).trimmed();
    WriteRegistryStrings(store, registry::SettingsKey, settingsToStore(config));
    WriteRegistryStrings(store, registry::ColorsKey, colorsToStore(config));
    WriteRegistryStrings(store, registry::StudioKey, studioToStore(config));
}

} // namespace ardiphon
