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

LEditOCX *FeatureHost::editor(DocumentRole role) const
{
    for (const EditorView &view : views())
        if (view.role == role)
            return view.editor;
    return nullptr;
}

QList<LEditOCX *> FeatureHost::editors() const
{
    QList<LEditOCX *> found;
    for (const DocumentRole each :
         {DocumentRole::Csd, DocumentRole::Orchestra, DocumentRole::Score})
        if (LEditOCX *const holder = editor(each))
            found.append(holder);
    return found;
}

void FeatureHost::reportLog(const QString &log) const
{
    for (const auto &read : m_logs)
        read(log);
}

QList<TextNote> FeatureHost::notesAt(DocumentRole role, int line, int column) const
{
    QList<TextNote> found;
    for (const TextNotes &notes : m_notes)
        found += notes(role, line, column);
    return found;
}

} // namespace ardiphon
