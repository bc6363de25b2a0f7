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

    /// \a room: where in the form it may lie; it takes no more height than its text needs.
    void showHint(const QString &title, const QString &text, const QRect &room);
    /// Takes another place while it shows.
    void moveTo(const QRect &room);

signals:
    /// Its button was pressed.
    void closeWanted();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int heightFor(int width) const;

    QPlainTextEdit *Text1;
    QPushButton *Command5;
};

} // namespace ardiphon
