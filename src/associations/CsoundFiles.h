#pragma once

#include <functional>

namespace ardiphon {

class Dialogs;

/// Associates the three Csound file types (.csd, .orc, .sco) with the program and reports it in a
/// box. \a afterwards runs between the two. When a step fails, the box says which instead,
/// \a afterwards does not run, and the answer is false.
bool associateFiles(Dialogs &dialogs, const std::function<void()> &afterwards = {});

/// Undoes it and reports it in a box; false when a step failed. That nothing was associated is no
/// failure.
bool removeFilesAssociation(Dialogs &dialogs);

} // namespace ardiphon
