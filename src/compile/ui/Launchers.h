#pragma once

#include "compile/ui/RunConsoleProcess.h"

class QWidget;

namespace ardiphon {

struct ConfigurationBlock;
class LEditOCX;

/// What the CSD window's compile command does: checks whether the document in \a editor can be
/// compiled, says why not or, where all is well, shows FormCSoundCSD over \a owner until it is
/// closed.
void launchCsdCompile(const ConfigurationBlock &config, Dialogs &dialogs, const LEditOCX &editor,
                      QWidget *owner, const RunSystem &system = RunSystem::real());

} // namespace ardiphon
