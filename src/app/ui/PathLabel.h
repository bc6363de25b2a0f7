#pragma once

#include <QLabel>

namespace ardiphon {

/// A sunken label that shows a path of any length: what does not fit is left out in its middle,
/// and shown in the tool tip.
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
