#pragma once

#include <QObject>

class QCloseEvent;
class QWidget;

namespace ardiphon {

/// Puts a closing of a window off while one of its dialogs has not returned yet: a dialog hides
/// before it returns, and the window manager may close the window in between. Without the window
/// the dialog would have nothing to return to.
class DeferredClose : public QObject
{
    Q_OBJECT

public:
    explicit DeferredClose(QWidget &window);

    /// Whether the user closes the window with \a event, at once or in a closing that was put off
    /// before. That one is forgotten.
    bool takeByUser(const QCloseEvent &event);

protected:
    bool eventFilter(QObject *window, QEvent *event) override;

private:
    QWidget &m_window;
    bool m_byUser = false; ///< as a closing that was put off has said
};

} // namespace ardiphon
