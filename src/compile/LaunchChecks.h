#pragma once

#include "platform/Dialogs.h"

#include <optional>

namespace ardiphon {

struct ConfigurationBlock;

/// What the launcher of a compile window decides: whether to open it, and what to say, if anything.
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
    QString missing;                   ///< the message when the setting is empty
    bool needsText;                    ///< it is not started for an empty document
};

extern const Compiler CSoundCompiler;
extern const Compiler WinsoundCompiler;
extern const Compiler CSoundAVCompiler;

/// Whether the first <CsOptions> section of \a text has the flag "-O", which only the program may
/// give. A section that is not closed counts as none.
bool csOptionsNameLog(const QString &text);

/// Decides for the CSD document that \a config names: the first check that fails decides.
LaunchDecision checkCsdLaunch(const Compiler &compiler, const ConfigurationBlock &config,
                              bool modified, const QString &text);
/// The same for the console compiler: the document may not name a log file either.
LaunchDecision checkCsdCompile(const ConfigurationBlock &config, bool modified,
                               const QString &text);

/// What a launcher needs to know of one document of a project.
struct LaunchedHalf
{
    bool modified = false;
    bool empty = false;
};

/// Decides for the project that \a config names. One of its documents may be empty.
LaunchDecision checkProjectLaunch(const Compiler &compiler, const ConfigurationBlock &config,
                                  const LaunchedHalf &orchestra, const LaunchedHalf &score);

} // namespace ardiphon
