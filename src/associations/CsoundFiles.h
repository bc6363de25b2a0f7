#pragma once

#include <functional>

namespace ardiphon {

class Dialogs;

/// Associates the three Csound file types (.csd, .orc, .sco) with the program and reports it in a
/// message box. \a afterwards is called between the two. When a step fails, the box says which one,
/// \a afterwards is not called, and the result is false.
bool associateFiles(Dialogs &dialogs, const std::function<void()> &afterwards = {});

/// Undoes that and reports it in a message box; false when a step failed. It is no failure when
/// nothing was associated.
bool removeFilesAssociation(Dialogs &dialogs);

} // namespace ardiphon
