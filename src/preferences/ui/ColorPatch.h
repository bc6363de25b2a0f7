#pragma once

#include "platform/Color.h"

#include <QAbstractButton>

namespace ardiphon {

/// A patch of one colour, which is clicked to choose another one.
class ColorPatch : public QAbstractButton
{
    Q_OBJECT

public:
    explicit ColorPatch(QWidget *parent);

    Color color() const { return m_color; }
    void setColor(Color color);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Color m_color;
};

} // namespace ardiphon
