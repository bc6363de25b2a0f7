#include "preferences/ui/ColorPatch.h"

#include <QPainter>

namespace ardiphon {

namespace {

constexpr QSize PatchSize(64, 22);
constexpr int FocusMargin = 3; // pixels

} // namespace

ColorPatch::ColorPatch(QWidget *parent) : QAbstractButton(parent)
{
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ColorPatch::setColor(Color color)
{
    m_color = color;
    update();
}

QSize ColorPatch::sizeHint() const { return PatchSize; }

void ColorPatch::paintEvent(QPaintEvent *)
{
    const QColor fill(m_color.red(), m_color.green(), m_color.blue());
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Shadow));
    painter.setBrush(fill);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (!hasFocus())
        return;
    // Visible on any colour, unlike the style's own rectangle.
    painter.setPen(QPen(fill.lightness() < 128 ? Qt::white : Qt::black, 1, Qt::DotLine));
    painter.drawRect(rect().adjusted(FocusMargin, FocusMargin, -FocusMargin - 1, -FocusMargin - 1));
}

} // namespace ardiphon
