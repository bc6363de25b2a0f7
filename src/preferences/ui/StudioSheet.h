#pragma once

#include <QGroupBox>
#include <QList>

class QVBoxLayout;

namespace ardiphon {

class LEditOCX;
struct ConfigurationBlock;

/// The settings' sheet of what the program does by its own reading of a piece. What is checked
/// counts at once in the open editors.
class StudioSheet : public QGroupBox
{
    Q_OBJECT

public:
    /// \a editors: all views of the open editor window.
    StudioSheet(ConfigurationBlock &config, const QList<LEditOCX *> &editors, QWidget *parent);

private:
    struct Check;
    static const Check checks[];

    void addCheck(QVBoxLayout &rows, const Check &check);
    void take(const Check &check, bool on);

    ConfigurationBlock &m_config;
    const QList<LEditOCX *> m_editors;
};

} // namespace ardiphon
