#pragma once

#include "analysis/ui/ToolContext.h"

#include <QDialog>

class QBoxLayout;
class QGroupBox;
class QLabel;

namespace ardiphon {

struct LauncherRow;

/// The launcher of the analysis utilities, with a short explanation of each.
class FormAnalisi : public QDialog
{
    Q_OBJECT

public:
    FormAnalisi(const ToolContext &context, QWidget *owner);

private:
    QWidget *newTools();
    void openTool(const LauncherRow &row);
    void buildHelp();
    void showHelp(const char *text);

    const ToolContext m_context;
    QGroupBox *Frame1 = nullptr;
    QLabel *LabelHelp = nullptr;
};

} // namespace ardiphon
