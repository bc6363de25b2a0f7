#pragma once

#include <QList>

class QString;

namespace ardiphon {

class LEditOCX;

/// The two views of the open editor window.
struct EditorViews
{
    LEditOCX &LEDIT1;
    LEditOCX &LEDIT2;
};

/// The views in which new fonts and settings are applied at once, for the window that
/// \a settingsCaller names: both of a project, the first one of a CSD.
QList<LEditOCX *> openEditors(const EditorViews &views, const QString &settingsCaller);

} // namespace ardiphon
