#pragma once

#include <QGroupBox>

class QPlainTextEdit;
class QPushButton;

namespace ardiphon {

/// The panel `Frame1` that covers a part of a tool's form and explains one of its fields. It is
/// hidden at first.
class HintPanel : public QGroupBox
{
    Q_OBJECT

public:
    explicit HintPanel(QWidget *form);

    void showHint(const QString &title, const QString &text);
    /// Moves below \a line within \a room, or above it where there is more room. It is no higher
    /// than its text needs, but covers none of \a controls only in part.
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
