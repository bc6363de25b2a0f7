#pragma once

#include "compile/ui/WaveCompileDialog.h"

namespace ardiphon {

/// The dialog in which a project is compiled by Winsound, a compiler with a window of its own: no
/// log, no progress, and no way to stop it but to close the dialog.
class FormWinsound : public WaveCompileDialog
{
    Q_OBJECT

public:
    explicit FormWinsound(const CompileContext &context);

    /// Every way of closing the dialog calls this.
    void done(int result) override;

private:
    bool flagsAreAllowed() override;
    void run() override;
};

} // namespace ardiphon
