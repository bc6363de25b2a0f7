#include "workbench/ui/ViewKeys.h"

#include "language/editor/LEditOCX.h"

namespace ardiphon {

void ViewKeys::follow(const EditorView &view)
{
    connect(view.editor, &LEditOCX::KeyDown, this,
            [this, view](EditorKey &key) { handle(view, key); });
}

void ViewKeys::bind(ViewKey meaning, Handler handler)
{
    m_handlers.insert(meaning, std::move(handler));
}

void ViewKeys::handle(const EditorView &view, EditorKey &key) const
{
    const ViewKey meaning = m_rule(key.KeyCode, key.Shift, view.position);
    if (!reachesControl(meaning))
        key.KeyCode = 0;
    if (const Handler handler = m_handlers.value(meaning))
        handler(view);
}

} // namespace ardiphon
