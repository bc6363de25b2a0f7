#include "analysis/ui/FormDNoise.h"

#include "analysis/ui/ToolFields.h"

#include <QComboBox>
#include <QLineEdit>

namespace ardiphon {

void FormDNoise::revert()
{
    fields().Combo1->setCurrentIndex(0);
    ToolForm::revert();
}

void FormDNoise::revertMoreFlags() { fields().TextMoreFlags->clear(); }

/// With `CheckMoreFlags` on, the next run has this whole line among its flags.
void FormDNoise::showParameters(const QString &parameters)
{
    fields().TextMoreFlags->setText(parameters);
}

} // namespace ardiphon
