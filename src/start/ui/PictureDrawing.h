#pragma once

#include <QSize>

class QPainter;
class QRect;

namespace ardiphon {

/// The pictures of the choosers.
enum class Picture { Csd, OrcSco, Close, Info };

/// The three looks of a picture: at rest, under the mouse, and pressed.
enum class PictureState { Gray, Color, Press };

/// The size that \a picture is drawn for, in logical pixels.
QSize pictureSize(Picture picture);

/// Draws \a picture into \a area. It is made of shapes, so it is sharp at every scale.
void drawPicture(QPainter &painter, const QRect &area, Picture picture, PictureState state);

} // namespace ardiphon
