#pragma once

#include <QList>
#include <QObject>

class QAction;

namespace ardiphon {

struct ConfigurationBlock;

/// The menu's fifteen font sizes, from `menuFontSize(0)` for 6 points to `menuFontSize(14)` for 20,
/// and the steps of the two buttons.
class FontSizeMenu : public QObject
{
    Q_OBJECT

public:
    static constexpr int Smallest = 6;
    static constexpr int Largest = 20;

    /// Checks the entry of `DefaultFontSize`.
    FontSizeMenu(ConfigurationBlock &config, QObject *parent);

    QList<QAction *> entries() const { return m_entries; }

    void stepDown();
    void stepUp();

signals:
    /// `FontSize` was chosen.
    void chosen();

private:
    void choose(int size);
    void check(int size);

    ConfigurationBlock &m_config;
    QList<QAction *> m_entries;
};

} // namespace ardiphon
