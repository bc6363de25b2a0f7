#pragma once

#include <QWidget>

namespace ardiphon {

struct ConfigurationBlock;

/// The line between two views that touch each other, in a colour that is visible on
/// `ColorBackground`. It covers the edge of one of them, so it takes no room, and the mouse passes
/// through it.
class SplitLine : public QWidget
{
    Q_OBJECT

public:
    SplitLine(const ConfigurationBlock &config, QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const ConfigurationBlock &m_config;
};

} // namespace ardiphon
