#pragma once

#include <QObject>

class QMainWindow;

namespace ardiphon {

/// F10, which no control has a use for, does in a window what Alt alone does: the keys go to the
/// menu bar, or back. The title that they have reached is drawn so that it is seen.
class MenuBarKeys : public QObject
{
    Q_OBJECT

public:
    explicit MenuBarKeys(QMainWindow &window);

protected:
    bool eventFilter(QObject *window, QEvent *event) override;
};

} // namespace ardiphon
