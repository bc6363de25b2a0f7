#pragma once

#include "typing/ArgumentHint.h"

#include <QLabel>

namespace ardiphon {

/// The frame with a hint: a window above all others that takes neither the focus nor the mouse.
class LabelOfHint : public QLabel
{
    Q_OBJECT

public:
    explicit LabelOfHint(QWidget *window);

    /// Takes the text of \a hint, and the size that it needs within \a width pixels.
    void setHint(const ArgumentHint &hint, int width);
};

} // namespace ardiphon
