#pragma once

#include "language/WheelNotches.h"

#include <QObject>

class QWheelEvent;

namespace ardiphon {

class FeatureHost;

/// The wheel over a window scrolls the view that has the focus, wherever the mouse is: as many
/// lines per notch as the user has set.
class FocusedWheel : public QObject
{
    Q_OBJECT

public:
    explicit FocusedWheel(FeatureHost &host);

protected:
    bool eventFilter(QObject *window, QEvent *event) override;

private:
    bool scroll(QWheelEvent &event);

    FeatureHost &m_host;
    WheelNotches m_notches;
};

} // namespace ardiphon
