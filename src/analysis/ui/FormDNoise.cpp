#include "analysis/ui/FormDNoise.h"

#include <QComboBox>
#include <QLineEdit>

namespace ardiphon {

void FormDNoise::revert()
{
    Combo1->setCurrentIndex(0);
    ToolForm::revert();
}

void FormDNoise::revertMoreFlags() { TextMoreFlags->clear(); }

/// With `CheckMoreFlags` on, the next run has this whole line among its flags.
void FormDNoise::showParameters(const QString &parameters) { TextMoreFlags->setText(parameters); }

} // namespace ardiphon
