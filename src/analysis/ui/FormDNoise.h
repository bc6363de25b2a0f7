#pragma once

#include "analysis/ui/ToolForm.h"

namespace ardiphon {

/// The noise reduction: it shows the command line that it starts among its own flags.
class FormDNoise : public ToolForm
{
    Q_OBJECT

public:
    FormDNoise(const ToolContext &context, QWidget *owner) : ToolForm(DNoise, context, owner) {}

protected:
    /// The combo box too.
    void revert() override;
    /// Whether they are wanted stays.
    void revertMoreFlags() override;
    void showParameters(const QString &parameters) override;
};

} // namespace ardiphon
