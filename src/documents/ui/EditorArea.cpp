#include "documents/ui/EditorArea.h"

#include "language/ui/Gutter.h"

namespace ardiphon {

Gutter *EditorArea::newGutter(const QString &name, LEditOCX &editor)
{
    auto *const gutter = new Gutter(editor, m_config, this);
    gutter->setObjectName(name);
    // The signal comes while the view is being drawn, when it must not be moved.
    connect(gutter, &Gutter::textWidthChanged, this, &EditorArea::arrange, Qt::QueuedConnection);
    return gutter;
}

void EditorArea::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

} // namespace ardiphon
