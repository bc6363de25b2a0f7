#pragma once

#include <QLabel>

#include <optional>

namespace ardiphon {

/// The caption of a window without a frame. Dragging it with the left button moves the window.
class TitleStrip : public QLabel
{
    Q_OBJECT

public:
    TitleStrip(const QString &caption, QWidget *parent);

signals:
    /// The mouse moves over the strip.
    void mouseMoved();

protected:
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    /// Where the window was held, from its top left corner; nothing while the system moves it.
    std::optional<QPoint> m_grip;
};

} // namespace ardiphon
