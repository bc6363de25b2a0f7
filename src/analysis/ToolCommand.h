#pragma once

#include "analysis/AnalysisTool.h"
#include "platform/Dialogs.h"

#include <QHash>
#include <QSet>

namespace ardiphon {

/// The values in a tool's form, by the names of its controls.
struct ToolValues
{
    QHash<QString, QString> texts; ///< of fields and of labels that show file names
    QSet<QString> on;              ///< check boxes and radio buttons
    int item = 0;                  ///< of `Combo1`

    QString text(const char *name) const { return texts.value(QLatin1String(name)); }
    bool isOn(const char *name) const { return on.contains(QLatin1String(name)); }
};

/// \a path without its last three characters, whatever they are, and with \a suffix instead.
QString withSuffix(const QString &path, const char *suffix);

/// The message that says why the tool cannot start; nothing when it can.
std::optional<Message> startObstacle(const AnalysisTool &tool, const QString &fileCSound,
                                     const ToolValues &values);

/// The options of the tool in their order.
QString flagString(const AnalysisTool &tool, const ToolValues &values);

/// The parameters that start the tool. File names are put between double quotes unchanged.
QString toolParameters(const AnalysisTool &tool, const ToolValues &values);

} // namespace ardiphon
