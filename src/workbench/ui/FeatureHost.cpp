#include "workbench/ui/FeatureHost.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "language/editor/LEditOCX.h"

#include <algorithm>

namespace ardiphon {

ConfigurationBlock &FeatureHost::config() const { return program().config; }

Dialogs &FeatureHost::dialogs() const { return program().dialogs; }

LEditOCX *FeatureHost::focusedEditor() const
{
    for (const EditorView &view : views())
        if (view.editor->hasFocus() && !view.editor->isHidden())
            return view.editor;
    return nullptr;
}

LEditOCX *FeatureHost::editor(ViewLanguage language) const
{
    for (const EditorView &view : views())
        if (view.language == language)
            return view.editor;
    return nullptr;
}

QList<LEditOCX *> FeatureHost::editors() const
{
    QList<LEditOCX *> found;
    for (const ViewLanguage each :
         {ViewLanguage::Csd, ViewLanguage::Orchestra, ViewLanguage::Score})
        if (LEditOCX *const holder = editor(each))
            found.append(holder);
    return found;
}

const QString &FeatureHost::documentPath(ViewLanguage language) const
{
    switch (language) {
    case ViewLanguage::Orchestra:
        return config().OrchestraFileName;
    case ViewLanguage::Score:
        return config().ScoreFileName;
    case ViewLanguage::Csd:
        break;
    }
    return config().CSDFileName;
}

} // namespace ardiphon
