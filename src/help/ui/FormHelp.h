#pragma once

#include <QDialog>

namespace ardiphon {

/// Shows the program's own key summary.
class FormHelp : public QDialog
{
    Q_OBJECT

public:
    explicit FormHelp(QWidget *owner);
};

} // namespace ardiphon
