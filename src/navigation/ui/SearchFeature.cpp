#include "navigation/ui/SearchFeature.h"

#include "app/ConfigurationBlock.h"
#include "language/WordTables.h"
#include "navigation/SearchRules.h"
#include "navigation/ui/Definitions.h"
#include "navigation/ui/SearchWindows.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/ViewKeys.h"

#include <QMainWindow>

namespace ardiphon {

namespace {

const QString &callerOf(DocumentRole role)
{
    switch (role) {
    case DocumentRole::Orchestra:
        return OrchestraCaller;
    case DocumentRole::Score:
        return ScoreCaller;
    case DocumentRole::Csd:
        break;
    }
    return CsdCaller;
}

QList<ServedEditor> servedEditors(const FeatureHost &host)
{
    QList<ServedEditor> served;
    for (const DocumentRole each :
         {DocumentRole::Csd, DocumentRole::Orchestra, DocumentRole::Score})
        if (LEditOCX *const editor = host.editor(each))
            served.append({callerOf(each), editor});
    return served;
}

} // namespace

void SearchFeature::install(FeatureHost &host)
{
    m_windows = new SearchWindows(host.config(), host.dialogs(), servedEditors(host), host.owner());
    bindMenu(host);
    bindButtons(host);
    bindKeys(host);
    bindDefinitions(host);
}

/// The menu's searches go to the only text, or to the editor that has the focus.
void SearchFeature::bindMenu(FeatureHost &host)
{
    const bool oneText = host.editors().size() == 1;
    const auto bind = [this, &host, oneText](const char *name, SearchKind kind) {
        host.commands().bind(name, m_windows, [this, kind, oneText] {
            if (oneText)
                m_windows->open(kind, CsdCaller);
            else
                m_windows->openForFocus(kind);
        });
    };
    bind("menuModificaTrova", SearchKind::Find);
    bind("menuModificaSostituisci", SearchKind::Replace);
    bind("menuModificaTrovaRiga", SearchKind::FindLine);
}

/// The searches of a half's toolbar go to its own editor.
void SearchFeature::bindButtons(FeatureHost &host)
{
    if (host.editor(DocumentRole::Csd))
        return;
    const auto bind = [this, &host](const char *name, SearchKind kind, const QString &caller) {
        host.commands().bind(name, m_windows,
                             [this, kind, caller] { m_windows->open(kind, caller); });
    };
    bind("buttonTrovaOrchestra", SearchKind::Find, OrchestraCaller);
    bind("buttonSostituisciOrchestra", SearchKind::Replace, OrchestraCaller);
    bind("buttonTrovaRigaOrchestra", SearchKind::FindLine, OrchestraCaller);
    bind("buttonTrovaScore", SearchKind::Find, ScoreCaller);
    bind("buttonSostituisciScore", SearchKind::Replace, ScoreCaller);
    bind("buttonTrovaRigaScore", SearchKind::FindLine, ScoreCaller);
}

/// Without text the focus goes to the view where the key was pressed, or to the first of two
/// editors.
void SearchFeature::bindKeys(FeatureHost &host)
{
    LEditOCX *const first = host.editors().size() > 1 ? host.editors().constFirst() : nullptr;
    const auto bind = [this, &host, first](ViewKey key, SearchKind kind) {
        host.keys().bind(key, [this, kind, first](const EditorView &view) {
            m_windows->open(kind, callerOf(view.role), *view.editor, first ? *first : *view.editor);
        });
    };
    bind(ViewKey::Find, SearchKind::Find);
    bind(ViewKey::Replace, SearchKind::Replace);
    bind(ViewKey::FindLine, SearchKind::FindLine);
}

void SearchFeature::bindDefinitions(FeatureHost &host)
{
    CommandSet &commands = host.commands();
    m_definitions = new Definitions(*host.editors().constFirst(), *host.config().Words,
                                    *commands.action("menuPopupDefinition"),
                                    *commands.action("menuPopupReference"));
    commands.bind("menuPopupDefinition", m_definitions, &Definitions::GoToDefinition);
    commands.bind("menuPopupReference", m_definitions, &Definitions::GoToReference);
    if (commands.has("menuPopupLastPosition")) // there is no earlier position to go back to
        commands.bind("menuPopupLastPosition", m_definitions, [] {});
    host.beforePopup([this](const EditorView &view) {
        m_definitions->prepareEntries(*view.editor, view.role != DocumentRole::Score);
    });
}

} // namespace ardiphon
