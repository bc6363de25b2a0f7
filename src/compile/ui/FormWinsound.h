#pragma once

#include "compile/ui/WaveCompileDialog.h"

namespace ardiphon {

/// The dialog in which a project is compiled by Winsound, a compiler with a window of its own: no
/// log, no progress, and no stop but to leave.
class FormWinsound : public WaveCompileDialog
{
    Q_OBJECT

public:
    explicit FormWinsound(const CompileContext &context);

    /// Every way of closing passes here.
    void done(int result) override;

private:
    bool flagsAreAllowed() override;
    void run() override;
};

} // namespace ardiphon
