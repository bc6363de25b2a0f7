#include "start/StartRules.h"

#include "app/ConfigurationBlock.h"

#include <QDir>
#include <QFileInfo>

namespace ardiphon {

DocumentRole roleOfPath(const QString &path)
{
    const QString ending = path.right(3).toUpper();
    if (ending == QLatin1String("ORC"))
        return DocumentRole::Orchestra;
    if (ending == QLatin1String("SCO"))
        return DocumentRole::Score;
    return DocumentRole::Csd;
}

QString LongPathName(const QString &path)
{
    if (path.isEmpty())
        return path;
    const QString absolute = QDir::current().absoluteFilePath(path);
    const QString clean = QDir::cleanPath(absolute);
    // After a link to a folder, ".." leads to another place than the text suggests.
    const bool same =
        !absolute.contains(QLatin1String("/..")) ||
        QFileInfo(absolute).canonicalFilePath() == QFileInfo(clean).canonicalFilePath();
    return same ? clean : absolute;
}

QString pathOfCommandText(const QString &commandText)
{
    const bool quoted = commandText.startsWith(u'"') && !QFileInfo::exists(commandText);
    return LongPathName(quoted ? commandText.mid(1).chopped(commandText.size() > 1 ? 1 : 0)
                               : commandText);
}

StartWindow nameDocument(ConfigurationBlock &config, const QString &path)
{
    switch (roleOfPath(path)) {
    case DocumentRole::Orchestra:
        config.OrchestraFileName = path;
        return StartWindow::FormORCSCO;
    case DocumentRole::Score:
        config.ScoreFileName = path;
        return StartWindow::FormORCSCO;
    case DocumentRole::Csd:
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
    if (!commandText.isEmpty()) {
        const QString path = pathOfCommandText(commandText);
        QDir::setCurrent(QFileInfo(path).path());
        return nameDocument(config, path);
    }
    if (config.StartupAction == QLatin1String("CSD"))
        return StartWindow::FormCSD;
    if (config.StartupAction == QLatin1String("ORCSCO"))
        return StartWindow::FormORCSCO;
    return StartWindow::Chooser;
}

} // namespace ardiphon
