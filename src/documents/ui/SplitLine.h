#pragma once

#include <QWidget>

namespace ardiphon {

struct ConfigurationBlock;

/// The line between two views that touch each other, in a colour that is seen on `ColorBackground`.
/// It lies over the edge of one of them, so neither gives room for it, and is not there for the
/// mouse.
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
