#pragma once

#include "analysis/ui/ToolForm.h"

namespace ardiphon {

/// The noise reduction: it shows the parameters of each start in its field for more flags.
class FormDNoise : public ToolForm
{
    Q_OBJECT

public:
    FormDNoise(const ToolContext &context, QWidget *owner) : ToolForm(DNoise, context, owner) {}

protected:
    /// Sets the combo box to its default too.
    void revert() override;
    /// `CheckMoreFlags` stays as it is.
    void revertMoreFlags() override;
    void showParameters(const QString &parameters) override;
};

} // namespace ardiphon
