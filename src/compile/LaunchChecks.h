#pragma once

#include "platform/Dialogs.h"

#include <optional>

namespace ardiphon {

/// What the launcher of a compile window decides: to open it, or not, with or without a word.
struct LaunchDecision
{
    bool open = false;
    std::optional<Message> message;
};

/// Whether the first <CsOptions> section of \a text holds "-O", which is the program's own to give.
/// A section that is not closed counts as none.
bool csOptionsNameLog(const QString &text);

/// Decides for a CSD document: the first check that fails ends it.
LaunchDecision checkCsdCompile(const QString &csdFileName, bool modified, const QString &text,
                               const QString &fileCSound);

} // namespace ardiphon
