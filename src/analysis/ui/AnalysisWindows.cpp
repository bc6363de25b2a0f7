#include "analysis/ui/AnalysisWindows.h"

#include "analysis/ui/FormDNoise.h"
#include "analysis/ui/FormPVLook.h"
#include "platform/CommandText.h"
#include "platform/Terminal.h"

#include <QCoreApplication>

#include <tuple>

namespace ardiphon {

ToolContext ToolContext::real(const ConfigurationBlock &config, Dialogs &dialogs)
{
    return {config, dialogs,
            [](const QString &file, const QString &parameters, const QString &directory) {
                // The form stays open, and its user sees whether a terminal does.
                std::ignore = startInTerminal(commandOf(file, parameters, directory),
                                              QCoreApplication::applicationDirPath());
            }};
}

std::unique_ptr<QDialog> newToolForm(const AnalysisTool &tool, const ToolContext &context,
                                     QWidget *owner)
{
    if (&tool == &PVLook)
        return std::make_unique<FormPVLook>(context, owner);
    if (&tool == &DNoise)
        return std::make_unique<FormDNoise>(context, owner);
    return std::make_unique<ToolForm>(tool, context, owner);
}

void showTool(const AnalysisTool &tool, const ToolContext &context, QWidget *owner)
{
    newToolForm(tool, context, owner)->exec();
}

} // namespace ardiphon
