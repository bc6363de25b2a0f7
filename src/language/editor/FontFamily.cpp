#include "language/editor/FontFamily.h"

#include <QFontDatabase>
#include <QStringList>

namespace ardiphon {

QString familyToDraw(const QString &family)
{
    const bool known = QFontDatabase::families().contains(family, Qt::CaseInsensitive);
    return known ? family : QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

} // namespace ardiphon
