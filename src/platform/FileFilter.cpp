#include "platform/FileFilter.h"

#include <QList>

namespace ardiphon {

namespace {

const QString Programs = QStringLiteral("*.exe");

struct Entry
{
    QString nameFilter;
    bool asksForPrograms = false;
};

/// The pattern that has the meaning of \a pattern on this system.
QString patternHere(const QString &pattern)
{
    if (pattern == QLatin1String("*.*") || pattern == Programs)
        return QStringLiteral("*");
    if (pattern == QLatin1String("*.hlp"))
        return QStringLiteral("*.hlp *.html *.htm");
    if (pattern == QLatin1String("*.htm"))
        return QStringLiteral("*.htm *.html");
    return pattern;
}

QList<Entry> entriesOf(const QString &filter)
{
    QList<Entry> entries;
    const QStringList parts = filter.split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        bool asksForPrograms = false;
        QStringList patterns;
        for (const QString &part : parts[i + 1].split(u';', Qt::SkipEmptyParts)) {
            const QString pattern = part.trimmed();
            asksForPrograms = asksForPrograms || pattern == Programs;
            patterns.append(patternHere(pattern));
        }
        if (!patterns.isEmpty())
            entries.append(
                {parts[i] + QStringLiteral(" (") + patterns.join(u' ') + u')', asksForPrograms});
    }
    return entries;
}

} // namespace

QStringList nameFilters(const QString &filter)
{
    QStringList filters;
    for (const Entry &entry : entriesOf(filter))
        filters.append(entry.nameFilter);
    return filters;
}

QStringList programFilters(const QString &filter)
{
    QStringList filters;
    for (const Entry &entry : entriesOf(filter))
        if (entry.asksForPrograms)
            filters.append(entry.nameFilter);
    return filters;
}

} // namespace ardiphon
