#include "preferences/ui/EditorViews.h"

#include "language/editor/LEditOCX.h"
#include "preferences/SettingsValues.h"

namespace ardiphon {

QList<LEditOCX *> openEditors(const EditorViews &views, const QString &settingsCaller)
{
    if (settingsCaller == ProjectSettings)
        return {&views.LEDIT1, &views.LEDIT2};
    return {&views.LEDIT1};
}

} // namespace ardiphon
