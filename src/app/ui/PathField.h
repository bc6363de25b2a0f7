#pragma once

#include <QLineEdit>

namespace ardiphon {

/// A field for a path of any length: while the user does not type in it, the middle of a path that
/// does not fit is left out; the tool tip shows all of it.
class PathField : public QLineEdit
{
public:
    explicit PathField(QWidget *parent);

    /// What the field shows now: its text, or the text with its middle left out.
    QString shownText() const;

protected:
    /// A tool tip that says no more than the field is not shown.
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QRect textPlace() const;
    bool textFits() const;
};

/// \a path as a tool tip: unchanged, whatever it looks like, in lines that fit on a screen.
QString pathToolTip(const QString &path);

} // namespace ardiphon
