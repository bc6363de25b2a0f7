#include "preferences/ui/PreferencesFeature.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/FontSizeMenu.h"
#include "preferences/SettingsValues.h"
#include "preferences/ui/EditorViews.h"
#include "preferences/ui/FormFont.h"
#include "preferences/ui/FormImpostazioni.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"

#include <QMainWindow>

namespace ardiphon {

namespace {

void setPlainFont(const FeatureHost &host)
{
    for (LEditOCX *editor : host.editors()) {
        editor->SetFontName(host.config().FontName);
        editor->SetFontBold(false);
        editor->SetFontItalic(false);
        editor->SetFontUnderline(false);
        editor->SetFontStrikethrough(false);
    }
}

/// After Cancel the editors are given the font that they have already. The focus moves before the
/// window is arranged, which may give it to the only view that is shown.
void chooseFont(FeatureHost &host)
{
    host.owner().setCursor(Qt::WaitCursor);
    FormFont(host.config(), host.dialogs(), &host.owner()).exec();
    host.owner().unsetCursor();
    setPlainFont(host);
    host.editors().constFirst()->setFocus();
    host.arrange();
}

void resetFont(FeatureHost &host)
{
    host.config().FontName = host.config().DefaultFontName;
    setPlainFont(host);
    host.arrange();
    host.editors().constFirst()->setFocus();
}

void showSettings(FeatureHost &host)
{
    const QList<EditorView> views = host.views();
    FormImpostazioni(host.program(), {*views.constFirst().editor, *views.constLast().editor},
                     host.editor(DocumentRole::Csd) ? CsdSettings : ProjectSettings, &host.owner())
        .exec();
}

void installSizes(FeatureHost &host)
{
    auto *const sizes = new FontSizeMenu(host.config(), &host.owner());
    CommandSet &commands = host.commands();
    commands.addGroup("menuFontSize", sizes->entries());
    commands.bind("buttonCarattereMeno", sizes, &FontSizeMenu::stepDown);
    commands.bind("buttonCaratterePiu", sizes, &FontSizeMenu::stepUp);
    QObject::connect(sizes, &FontSizeMenu::chosen, sizes, [&host] {
        for (LEditOCX *editor : host.editors())
            editor->SetFontSize(host.config().FontSize);
        host.arrange();
    });
}

} // namespace

void PreferencesFeature::install(FeatureHost &host)
{
    host.config().FontName = host.views().constFirst().editor->FontName();
    installSizes(host);
    const auto bind = [&host](const char *name, void (*handler)(FeatureHost &)) {
        host.commands().bind(name, &host.owner(), [&host, handler] { handler(host); });
    };
    bind("menuFilePreferenze", &showSettings);
    bind("menuFormatoTipocarattere", &chooseFont);
    bind("menuLista", &resetFont);
}

} // namespace ardiphon
