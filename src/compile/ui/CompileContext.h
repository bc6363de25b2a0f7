#pragma once

#include "compile/ui/RunConsoleProcess.h"
#include "language/ui/KeywordHelp.h"

class QWidget;

namespace ardiphon {

struct ConfigurationBlock;
class Dialogs;

/// What an editor window gives to every compile dialog that it opens.
struct CompileContext
{
    ConfigurationBlock &config;
    Dialogs &dialogs;
    QWidget *owner;
    /// Makes the window in which a dialog shows help, owned by that dialog.
    std::function<HelpViewer(QWidget *dialog)> helpViewer;
    RunSystem system = RunSystem::real();
};

} // namespace ardiphon
