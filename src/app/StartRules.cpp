#include "app/StartRules.h"

#include "app/ConfigurationBlock.h"

#include <QDir>
#include <QFileInfo>

namespace ardiphon {

DocumentKind kindOfDocument(const QString &path)
{
    const QString ending = path.right(3).toUpper();
    if (ending == QLatin1String("ORC"))
        return DocumentKind::Orchestra;
    if (ending == QLatin1String("SCO"))
        return DocumentKind::Score;
    return DocumentKind::Csd;
}

void EditorWindows::show(StartWindow window) const
{
    // Where there is no window for projects, an orchestra or a score is edited as a plain text.
    if (window == StartWindow::FormORCSCO && showFormORCSCO)
        showFormORCSCO();
    else if (window != StartWindow::Chooser)
        showFormCSD();
}

QString LongPathName(const QString &path)
{
    return path.isEmpty() ? path : QDir::cleanPath(QDir::current().absoluteFilePath(path));
}

QString pathOfCommandText(const QString &commandText)
{
    const bool quoted = commandText.startsWith(u'"') && !QFileInfo::exists(commandText);
    return LongPathName(quoted ? commandText.mid(1).chopped(commandText.size() > 1 ? 1 : 0)
                               : commandText);
}

StartWindow nameDocument(ConfigurationBlock &config, const QString &path)
{
    switch (kindOfDocument(path)) {
    case DocumentKind::Orchestra:
        config.OrchestraFileName = path;
        return StartWindow::FormORCSCO;
    case DocumentKind::Score:
        config.ScoreFileName = path;
        return StartWindow::FormORCSCO;
    case DocumentKind::Csd:
        break;
    }
    config.CSDFileName = path;
    return StartWindow::FormCSD;
}

StartWindow decideStart(ConfigurationBlock &config, const QString &commandText)
{
    config.CSDFileName.clear();
    config.OrchestraFileName.clear();
    config.ScoreFileName.clear();
    if (!commandText.isEmpty())
        return nameDocument(config, pathOfCommandText(commandText));
    if (config.StartupAction == QLatin1String("CSD"))
        return StartWindow::FormCSD;
    if (config.StartupAction == QLatin1String("ORCSCO"))
        return StartWindow::FormORCSCO;
    return StartWindow::Chooser;
}

} // namespace ardiphon
