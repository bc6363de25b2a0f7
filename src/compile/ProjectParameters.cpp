#include "compile/ProjectParameters.h"

#include "app/Blanks.h"
#include "compile/CompileRules.h"
#include "platform/CommandText.h"

#include <QDir>
#include <QRegularExpression>

namespace ardiphon {

namespace {

/// The compiler's flags of one letter that take no value.
const QString LoneFlags = QStringLiteral("3468acdefghlnsuvwAGIJKNRSVWZ");

} // namespace

QString defaultWaveName(const QString &orchestra)
{
    return orchestra.isEmpty()
               ? QString()
               : orchestra.chopped(qMin(orchestra.size(), 4)) + QLatin1String(".wav");
}

QString writtenWave(const QString &wave, const QString &folder)
{
    return wave.isEmpty() ? wave : QDir(folder).filePath(wave);
}

bool flagsGive(const QString &flags, QChar letter)
{
    const QRegularExpression group(QStringLiteral("(^|\\s)-[%1]+%2").arg(LoneFlags, letter));
    return flags.contains(u'-' + QString(letter)) || flags.contains(group);
}

QString projectParameters(const ProjectFields &fields)
{
    return withoutTrailingBlanks(fields.flags) + QLatin1String(" -o ") + quoted(fields.wave) +
           u' ' + quoted(fields.orchestra) + u' ' + quoted(fields.score);
}

QString loggedProjectParameters(const ProjectFields &fields, const QString &rootPath)
{
    return projectParameters(fields) + QLatin1String(" -O") + CompileLogFile(rootPath);
}

QString playedProjectParameters(const ProjectFields &fields)
{
    return withoutTrailingBlanks(fields.flags) + u' ' + quoted(fields.orchestra) + u' ' +
           quoted(fields.score);
}

} // namespace ardiphon
