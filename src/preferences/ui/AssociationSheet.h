#pragma once

#include <QGroupBox>

#include <functional>

class QGridLayout;

namespace ardiphon {

class Dialogs;

/// The settings' sheet that makes the program the opener of its documents, or no longer.
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
