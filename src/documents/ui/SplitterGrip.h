#pragma once

#include <QWidget>

namespace ardiphon {

/// The small grip between the two editors of a project. It does not move itself.
///
/// No handle of a QSplitter, which would lay the editors out by itself: here the places of both
/// halves and of all around them follow from one table, by the same rules for every arrangement.
class SplitterGrip : public QWidget
{
    Q_OBJECT

public:
    /// \a direction: the one in which the grip is dragged.
    SplitterGrip(Qt::Orientation direction, QWidget *parent);

signals:
    /// The mouse takes the grip to that distance from the top or the left of its parent, in twips.
    void dragged(int position);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    int along(QPoint point) const;

    const Qt::Orientation m_direction;
    int m_grab = 0; ///< twips from the grip to the mouse where the button went down
};

} // namespace ardiphon
