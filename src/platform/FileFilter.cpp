#include "platform/FileFilter.h"

namespace ardiphon {

namespace {

QString patternList(const QString &patterns)
{
    QStringList list;
    for (const QString &pattern : patterns.split(u';', Qt::SkipEmptyParts)) {
        const QString trimmed = pattern.trimmed();
        list.append(trimmed == QLatin1String("*.*") ? QStringLiteral("*") : trimmed);
    }
    return list.join(u' ');
}

} // namespace

QStringList nameFilters(const QString &filter)
{
    QStringList filters;
    const QStringList parts = filter.split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString patterns = patternList(parts[i + 1]);
        if (!patterns.isEmpty())
            filters.append(parts[i] + QStringLiteral(" (") + patterns + u')');
    }
    return filters;
}

} // namespace ardiphon
