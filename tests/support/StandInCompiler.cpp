#include "support/StandInCompiler.h"

#include <QCoreApplication>
#include <QFile>

namespace StandInCompiler {

QString path()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/stand_in_compiler");
}

Pids pids(const QString &piece)
{
    QFile file(piece + QStringLiteral(".pid"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const pid_t leader = file.readLine().trimmed().toInt();
    return {leader, file.readLine().trimmed().toInt()};
}

bool isAlive(pid_t pid)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray stat = file.readAll();
    return stat.mid(stat.lastIndexOf(')') + 2, 1) != "Z";
}

} // namespace StandInCompiler
