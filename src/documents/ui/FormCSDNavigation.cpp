// Moving through the text of the CSD window: search, instruments, definitions.

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "documents/ui/FormCSD.h"
#include "documents/ui/SplitMirror.h"
#include "language/editor/LEditOCX.h"
#include "navigation/SearchRules.h"
#include "navigation/ui/Definitions.h"
#include "navigation/ui/Instruments.h"
#include "navigation/ui/SearchWindows.h"

namespace ardiphon {

void FormCSD::bindNavigation()
{
    CommandSet &set = commands();
    const auto search = [this, &set](const char *name, SearchKind kind) {
        set.bind(name, m_search, [this, kind] { m_search->open(kind, CsdCaller); });
    };
    search("menuModificaTrova", SearchKind::Find);
    search("menuModificaSostituisci", SearchKind::Replace);
    search("menuModificaTrovaRiga", SearchKind::FindLine);
    connect(m_search, &SearchWindows::replaced, m_mirror, &SplitMirror::copyFirstToSecond);

    m_definitions = new Definitions(*LEDIT1, config().Words, *set.action("menuPopupDefinition"),
                                    *set.action("menuPopupReference"));
    set.bind("menuPopupDefinition", m_definitions, &Definitions::GoToDefinition);
    set.bind("menuPopupReference", m_definitions, &Definitions::GoToReference);
    set.bind("menuPopupLastPosition", this, [] {}); // no position is kept to go back to
}

void FormCSD::preparePopup(LEditOCX &view) { m_definitions->prepareEntries(view); }

void FormCSD::navigateByKey(LEditOCX *view, ViewKey key)
{
    switch (key) {
    case ViewKey::Find:
        return m_search->open(SearchKind::Find, CsdCaller, *view, *view);
    case ViewKey::Replace:
        return m_search->open(SearchKind::Replace, CsdCaller, *view, *view);
    case ViewKey::FindLine:
        return m_search->open(SearchKind::FindLine, CsdCaller, *view, *view);
    case ViewKey::FirstInstrument:
        return m_instruments->GoToFirstInstrument();
    case ViewKey::PreviousInstrument:
        return m_instruments->GoToPreviousInstrument();
    case ViewKey::NextInstrument:
        return m_instruments->GoToNextInstrument();
    case ViewKey::LastInstrument:
        return m_instruments->GoToLastInstrument();
    default:
        return;
    }
}

} // namespace ardiphon
