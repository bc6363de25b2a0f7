#pragma once

#include <QString>

#include <functional>

namespace ardiphon {

struct ConfigurationBlock;
class Dialogs;

/// What the analysis windows are given; tests replace the start.
struct ToolContext
{
    const ConfigurationBlock &config;
    Dialogs &dialogs;
    /// Starts a program in a terminal of its own and returns at once; whether it did is not asked.
    std::function<void(const QString &file, const QString &parameters, const QString &directory)>
        start;

    /// Real terminals.
    static ToolContext real(const ConfigurationBlock &config, Dialogs &dialogs);
};

} // namespace ardiphon
