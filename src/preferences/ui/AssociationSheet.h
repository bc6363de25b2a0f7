#pragma once

#include <QGroupBox>

#include <functional>

class QGridLayout;

namespace ardiphon {

class Dialogs;

/// The settings' sheet that associates the Csound files with the program, or removes the
/// association.
class AssociationSheet : public QGroupBox
{
    Q_OBJECT

public:
    AssociationSheet(Dialogs &dialogs, QWidget *parent);

private:
    void addRow(QGridLayout &grid, const QString &label, const char *button, const QString &caption,
                const std::function<void()> &action);
};

} // namespace ardiphon
