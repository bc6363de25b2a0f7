#pragma once

#include "platform/Dialogs.h"

#include <optional>

namespace ardiphon {

struct ConfigurationBlock;

/// What the launcher of a compile window decides: to open it, or not, with or without a word.
struct LaunchDecision
{
    bool open = false;
    std::optional<Message> message;
};

/// A compiler as the launchers know it.
struct Compiler
{
    QString ConfigurationBlock::*path; ///< the setting that names its executable
    QString name;                      ///< as in "before start <name>"
    QString missing;                   ///< what is said when the setting is empty
    bool needsText;                    ///< an empty document is not worth a start
};

extern const Compiler CSoundCompiler;
extern const Compiler WinsoundCompiler;
extern const Compiler CSoundAVCompiler;

/// Whether the first <CsOptions> section of \a text holds "-O", which is the program's own to give.
/// A section that is not closed counts as none.
bool csOptionsNameLog(const QString &text);

/// Decides for the CSD document that \a config names: the first check that fails ends it.
LaunchDecision checkCsdLaunch(const Compiler &compiler, const ConfigurationBlock &config,
                              bool modified, const QString &text);
/// The same, before the console compiler alone: the document may not name a log file either.
LaunchDecision checkCsdCompile(const ConfigurationBlock &config, bool modified,
                               const QString &text);

/// One document of a project, as far as a launcher looks at it.
struct LaunchedHalf
{
    bool modified = false;
    bool empty = false;
};

/// Decides for the project that \a config names. One of its documents may be empty.
LaunchDecision checkProjectLaunch(const Compiler &compiler, const ConfigurationBlock &config,
                                  const LaunchedHalf &orchestra, const LaunchedHalf &score);

} // namespace ardiphon
