#pragma once

#include <QObject>
#include <QPoint>

class QWidget;

namespace ardiphon {

/// Makes a panel float over its window: hidden at first, and moved by a press on its title. It
/// stays where it was moved until it is shown again.
///
/// It is not a QDockWidget, which floats as a window of its own: this is a part of the window,
/// clipped by it and moved with it, and its title is a picture within it.
class FloatingPanel : public QObject
{
    Q_OBJECT

public:
    /// \a grip: the part of \a panel by which it is moved.
    FloatingPanel(QWidget &panel, QWidget &grip);

    bool isShown() const;
    void hide();
    /// Shows the panel over all its siblings, with its top left corner there.
    void showAt(QPoint topLeft);

protected:
    bool eventFilter(QObject *grip, QEvent *event) override;

private:
    QWidget &m_panel;
    QPoint m_grab; ///< from the panel to the place where the button was pressed
};

} // namespace ardiphon
