#pragma once

#include <QList>
#include <QString>

#include <utility>

namespace ardiphon {

struct ConfigurationBlock;
class SettingsStore;

// The values of `SettingsCaller`: the window from which the settings were opened.
inline const QString CsdSettings = QStringLiteral("CSD");
inline const QString ProjectSettings = QStringLiteral("ORCSCO");

/// Whether the whole of \a text is a number whose integer part lies within [\a lowest, \a highest].
bool isNumberWithin(const QString &text, int lowest, int highest);

/// The general settings and the colours of \a config for the store, in the order in which they are
/// written: value names and texts.
QList<std::pair<QString, QString>> settingsToStore(const ConfigurationBlock &config);
QList<std::pair<QString, QString>> colorsToStore(const ConfigurationBlock &config);

/// The same for the sheet "Studio".
QList<std::pair<QString, QString>> studioToStore(const ConfigurationBlock &config);

/// Trims the settings of \a config and writes all of them, the colours and what the sheet "Studio"
/// has to \a store. A write that fails is not reported.
void SaveSettings(ConfigurationBlock &config, SettingsStore &store);

} // namespace ardiphon
