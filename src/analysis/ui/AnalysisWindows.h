#pragma once

#include "analysis/AnalysisTool.h"
#include "analysis/ui/ToolContext.h"

#include <memory>

class QDialog;
class QWidget;

namespace ardiphon {

/// Makes the form of \a tool, not shown yet.
std::unique_ptr<QDialog> newToolForm(const AnalysisTool &tool, const ToolContext &context,
                                     QWidget *owner);

/// Shows the form of \a tool over \a owner until it is closed.
void showTool(const AnalysisTool &tool, const ToolContext &context, QWidget *owner);

} // namespace ardiphon
