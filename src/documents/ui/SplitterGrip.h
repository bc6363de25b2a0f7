#pragma once

#include <QWidget>

namespace ardiphon {

/// The small grip between the two editors of a project. It does not move itself.
///
/// It is not the handle of a QSplitter, which would lay out the editors itself: here ProjectLayout
/// gives the places of both halves and of all around them, for every arrangement.
class SplitterGrip : public QWidget
{
    Q_OBJECT

public:
    /// \a direction: the direction in which the grip is dragged.
    SplitterGrip(Qt::Orientation direction, QWidget *parent);

signals:
    /// The mouse drags the grip to that distance from the top or the left of its parent, in twips.
    void dragged(int position);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    int along(QPoint point) const;

    const Qt::Orientation m_direction;
    int m_grab = 0; ///< twips from the grip to the place where the button was pressed
};

} // namespace ardiphon
