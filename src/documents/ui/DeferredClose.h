#pragma once

#include <QObject>

class QCloseEvent;
class QWidget;

namespace ardiphon {

/// Delays the closing of a window until its dialogs have returned: a dialog hides before it
/// returns, and the window manager may close the window in between. Without the window the dialog
/// would have nothing to return to.
class DeferredClose : public QObject
{
    Q_OBJECT

public:
    explicit DeferredClose(QWidget &window);

    /// Whether \a event, or a delayed closing before it, comes from the user. Forgets the delayed
    /// one.
    bool takeByUser(const QCloseEvent &event);

protected:
    bool eventFilter(QObject *window, QEvent *event) override;

private:
    QWidget &m_window;
    bool m_byUser = false; ///< a delayed closing came from the user
};

} // namespace ardiphon
