#include "documents/DocumentRules.h"

#include "platform/Dialogs.h"

namespace ardiphon {

QString csdTitle(const QString &csdFileName)
{
    return csdFileName + QStringLiteral(" - ") + WindowTitle;
}

QString programFirstTitle(const QString &csdFileName)
{
    return ProgramTitle + QStringLiteral(" - ") + csdFileName;
}

QString markedModified(const QString &title) { return title.endsWith(u'*') ? title : title + u'*'; }

} // namespace ardiphon
