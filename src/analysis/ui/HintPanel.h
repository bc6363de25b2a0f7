#pragma once

#include <QGroupBox>

class QPlainTextEdit;
class QPushButton;

namespace ardiphon {

/// The panel `Frame1` that lies over a tool's form and explains one of its fields. It is hidden at
/// first.
class HintPanel : public QGroupBox
{
    Q_OBJECT

public:
    explicit HintPanel(QWidget *form);

    void showHint(const QString &title, const QString &text);
    /// Lies below \a line within \a room, or above it where there is more of it. It takes no more
    /// height than its text needs, but none of \a controls is covered by half.
    void moveTo(const QRect &room, const QRect &line, const QList<QRect> &controls);

signals:
    /// Its button was pressed.
    void closeRequested();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int heightFor(int width) const;

    QPlainTextEdit *Text1;
    QPushButton *Command5;
};

} // namespace ardiphon
