#pragma once

#include "start/ui/PictureDrawing.h"

#include <QAbstractButton>

namespace ardiphon {

/// A button that is one picture in three states. Its window sets the state and so decides which
/// picture is lit. It signals pressed() and released() of the left mouse button, and clicked() when
/// that counts as a choice, also by the keyboard.
class PictureButton : public QAbstractButton
{
    Q_OBJECT

public:
    PictureButton(Picture picture, QWidget *parent);

    PictureState state() const { return m_state; }
    void setState(PictureState state);

    /// Whether a press chooses wherever the mouse is released. Otherwise, as at first, only a
    /// release over the picture does.
    void setReleaseCountsAnywhere(bool anywhere) { m_releaseCountsAnywhere = anywhere; }

    QSize sizeHint() const override { return pictureSize(m_picture); }

signals:
    /// The mouse moves over the picture.
    void mouseMoved();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    Picture m_picture;
    PictureState m_state = PictureState::Gray;
    bool m_releaseCountsAnywhere = false;
};

} // namespace ardiphon
