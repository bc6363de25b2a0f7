#pragma once

#include <QString>
#include <QStringList>

namespace ardiphon {

/// How many letters have to be inserted, removed, changed or exchanged with their neighbour to make
/// \a first of \a second, whatever their capitals; \a most + 1 where it is more than \a most.
int nameDistance(QStringView first, QStringView second, int most);

/// Those of \a names that are most like \a written, the nearest first, at most \a most: none that
/// differs in more than a third of its letters.
QStringList nearNames(const QString &written, const QStringList &names, int most);

} // namespace ardiphon
