#pragma once

#include <QLabel>

namespace ardiphon {

/// A sunken label that shows a path of any length: the middle of a path that does not fit is left
/// out; the tool tip shows all of it.
class PathLabel : public QLabel
{
public:
    PathLabel(const QString &name, QWidget *parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    void showPath(const QString &path);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace ardiphon
