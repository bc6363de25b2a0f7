#pragma once

#include <QDialog>

class QLabel;

namespace ardiphon {

/// Shows the version of the program and of its opcode table, and the notices that belong to them.
class FormAbout : public QDialog
{
    Q_OBJECT

public:
    /// \a opcodeHelpVersion: as the table's last record has it, padding included.
    FormAbout(const QString &opcodeHelpVersion, QWidget *owner);

private:
    QLabel *addLabel(const QString &name, const QString &text);
};

} // namespace ardiphon
