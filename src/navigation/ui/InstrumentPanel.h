#pragma once

#include <QFrame>

#include <functional>

class QLabel;
class QLineEdit;
class QToolBar;

namespace ardiphon {

class Instruments;

/// The panel of the instrument search: first, previous, next and last, and a field for a number.
/// It fits into 143 x 80 pixels.
class InstrumentPanel : public QFrame
{
    Q_OBJECT

public:
    /// \a numberToolbar: the name of the toolbar with the one button beside the field, which
    /// differs from window to window.
    InstrumentPanel(Instruments &instruments, const QString &numberToolbar, QWidget *parent);

    /// The picture by which a floating panel is moved.
    QLabel *grip() const { return ImageINSTR; }

private:
    QToolBar *newToolbar(const QString &name);
    void addButton(QToolBar &bar, const char *icon, const QString &toolTip,
                   const std::function<void()> &go);
    void addMoves(Instruments &instruments);
    void addNumber(Instruments &instruments);
    void layOut();

    QLabel *ImageINSTR;
    QToolBar *Toolbar_INSTR;
    QLabel *Label1;
    QLineEdit *TextInstr;
    QToolBar *m_numberToolbar;
};

} // namespace ardiphon
