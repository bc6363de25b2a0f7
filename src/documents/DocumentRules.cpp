#include "documents/DocumentRules.h"

namespace ardiphon {

bool isUntitled(const QString &name)
{
    return name == Untitled || name == QLatin1String("[Untitled.CSD]");
}

QString csdTitle(const QString &csdFileName)
{
    return csdFileName + QStringLiteral(" - ") + WindowTitle;
}

QString markedModified(const QString &title) { return title.endsWith(u'*') ? title : title + u'*'; }

} // namespace ardiphon
