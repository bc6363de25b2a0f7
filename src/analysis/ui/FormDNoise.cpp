#include "analysis/ui/FormDNoise.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

namespace ardiphon {

void FormDNoise::revert()
{
    const bool wantsMore = CheckMoreFlags->isChecked();
    Combo1->setCurrentIndex(0);
    ToolForm::revert();
    CheckMoreFlags->setChecked(wantsMore);
}

/// With `CheckMoreFlags` on, the next run takes this whole line among its flags.
void FormDNoise::showParameters(const QString &parameters) { TextMoreFlags->setText(parameters); }

} // namespace ardiphon
