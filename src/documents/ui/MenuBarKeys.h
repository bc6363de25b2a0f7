#pragma once

#include <QObject>

class QMainWindow;

namespace ardiphon {

/// F10, which no control uses, does in a window what Alt alone does: the keyboard goes to the menu
/// bar, or back. The title that has the keyboard is highlighted.
class MenuBarKeys : public QObject
{
    Q_OBJECT

public:
    explicit MenuBarKeys(QMainWindow &window);

protected:
    bool eventFilter(QObject *window, QEvent *event) override;
};

} // namespace ardiphon
