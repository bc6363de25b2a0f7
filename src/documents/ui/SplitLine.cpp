#include "documents/ui/SplitLine.h"

#include "app/ConfigurationBlock.h"

#include <QPainter>

namespace ardiphon {

SplitLine::SplitLine(const ConfigurationBlock &config, QWidget *parent)
    : QWidget(parent), m_config(config)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SplitLine::paintEvent(QPaintEvent *)
{
    const Color ground = m_config.ColorBackground;
    const bool dark = QColor(ground.red(), ground.green(), ground.blue()).lightness() < 128;
    QPainter(this).fillRect(rect(), dark ? Qt::lightGray : Qt::darkGray);
}

} // namespace ardiphon
