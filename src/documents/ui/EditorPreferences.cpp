// The settings and the fonts, which both editor windows offer alike.

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "documents/ui/EditorWindow.h"
#include "language/editor/LEditOCX.h"
#include "preferences/ui/FormFont.h"
#include "preferences/ui/FormImpostazioni.h"

namespace ardiphon {

namespace {

void setPlainFont(const QList<LEditOCX *> &editors, const QString &name)
{
    for (LEditOCX *editor : editors) {
        editor->SetFontName(name);
        editor->SetFontBold(false);
        editor->SetFontItalic(false);
        editor->SetFontUnderline(false);
        editor->SetFontStrikethrough(false);
    }
}

} // namespace

void EditorWindow::bindPreferences(const QString &settingsCaller, const EditorViews &views)
{
    config().FontName = views.LEDIT1.FontName();
    m_commands.bind("menuFilePreferenze", this, [this, settingsCaller, views] {
        config().SettingsCaller = settingsCaller;
        FormImpostazioni(m_program, views, this).exec();
    });
    const QList<LEditOCX *> editors = openEditors(views, settingsCaller);
    m_commands.bind("menuFormatoTipocarattere", this, [this, editors] { chooseFont(editors); });
    m_commands.bind("menuLista", this, [this, editors] { resetFont(editors); });
}

/// After a cancel the editors take the font that they have. The focus moves before the window is
/// arranged, which may give it to the only view that is shown.
void EditorWindow::chooseFont(const QList<LEditOCX *> &editors)
{
    setCursor(Qt::WaitCursor);
    FormFont(config(), m_program.dialogs, this).exec();
    unsetCursor();
    setPlainFont(editors, config().FontName);
    editors.constFirst()->setFocus();
    arrangeWindow();
}

void EditorWindow::resetFont(const QList<LEditOCX *> &editors)
{
    config().FontName = config().DefaultFontName;
    setPlainFont(editors, config().FontName);
    arrangeWindow();
    editors.constFirst()->setFocus();
}

} // namespace ardiphon
