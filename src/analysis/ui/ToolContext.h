#pragma once

#include <QString>

#include <functional>

namespace ardiphon {

struct ConfigurationBlock;
class Dialogs;

/// What the analysis windows need; tests replace `start`.
struct ToolContext
{
    const ConfigurationBlock &config;
    Dialogs &dialogs;
    /// Starts a program in a terminal of its own and returns at once; a failure is not reported.
    std::function<void(const QString &file, const QString &parameters, const QString &directory)>
        start;

    /// With real terminals.
    static ToolContext real(const ConfigurationBlock &config, Dialogs &dialogs);
};

} // namespace ardiphon
