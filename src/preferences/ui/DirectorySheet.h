#pragma once

#include <QGroupBox>

class QGridLayout;
class QLineEdit;

namespace ardiphon {

class Dialogs;
struct ConfigurationBlock;

/// The settings' sheet of paths. Only the browse buttons change them; a change has effect at once.
class DirectorySheet : public QGroupBox
{
    Q_OBJECT

public:
    DirectorySheet(ConfigurationBlock &config, Dialogs &dialogs, QWidget *parent);

private:
    struct PathRow;
    static const PathRow rows[];

    QLineEdit *addRow(QGridLayout &grid, int line, const char *label, const char *edit,
                      const char *button);
    void browse(const PathRow &row, QLineEdit &edit);

    ConfigurationBlock &m_config;
    Dialogs &m_dialogs;
};

} // namespace ardiphon
