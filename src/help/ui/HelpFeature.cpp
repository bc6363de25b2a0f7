#include "help/ui/HelpFeature.h"

#include "app/ConfigurationBlock.h"
#include "help/ui/FormAbout.h"
#include "help/ui/FormHelp.h"
#include "help/ui/FormManual.h"
#include "language/WordTables.h"
#include "language/ui/KeywordHelp.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/ViewKeys.h"

#include <QMainWindow>

namespace ardiphon {

HelpFeature::HelpFeature() = default;
HelpFeature::~HelpFeature() = default;

void HelpFeature::install(FeatureHost &host)
{
    m_help =
        std::make_unique<KeywordHelp>(host.config(), host.dialogs(), manualViewer(&host.owner()));
    bindManual(host);
    bindViews(host);
    host.commands().bind("menuInfoArdiphonHelp", &host.owner(),
                         [&host] { FormHelp(&host.owner()).exec(); });
    host.commands().bind("menuInfoAbout", &host.owner(), [&host] {
        FormAbout(host.config().Words->OpcodeHelpVersion, &host.owner()).exec();
    });
}

void HelpFeature::bindManual(FeatureHost &host)
{
    const auto ask = [this, &host](const char *name, void (KeywordHelp::*request)()) {
        host.commands().bind(name, &host.owner(), [this, request] { (m_help.get()->*request)(); });
    };
    ask("menuInfoCsoundHelp", &KeywordHelp::helpIndex);
    ask("menuInfoCSoundAVHelp", &KeywordHelp::csoundAvHelp);
    ask("buttonOpcodeHelp", &KeywordHelp::opcodeHelp);
    ask("buttonDirectHtml", &KeywordHelp::htmlHelp);
    ask("menuPopupOpcodeHelp", &KeywordHelp::menuPopupOpcodeHelp);
    if (host.commands().has("buttonFlagsHelp"))
        ask("buttonFlagsHelp", &KeywordHelp::flagsHelp);
}

void HelpFeature::bindViews(FeatureHost &host)
{
    host.keys().bind(ViewKey::KeywordHelp,
                     [this](const EditorView &view) { m_help->keyHelp(*view.editor, view.role); });
    host.keys().bind(ViewKey::HelpIndex, [this](const EditorView &) { m_help->keyIndex(); });
    host.beforePopup([this, &host](const EditorView &view) {
        host.commands()
            .action("menuPopupOpcodeHelp")
            ->setText(m_help->prepareMenu(*view.editor, view.role));
    });
}

} // namespace ardiphon
