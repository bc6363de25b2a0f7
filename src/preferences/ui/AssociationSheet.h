#pragma once

#include "preferences/FileAssociationActions.h"

#include <QGroupBox>

class QGridLayout;

namespace ardiphon {

/// The settings' sheet that makes the program the opener of its documents, or no longer.
class AssociationSheet : public QGroupBox
{
    Q_OBJECT

public:
    AssociationSheet(const FileAssociationActions &actions, QWidget *parent);

private:
    void addRow(QGridLayout &grid, const QString &label, const char *button, const QString &caption,
                const std::function<void()> &action);
};

} // namespace ardiphon
