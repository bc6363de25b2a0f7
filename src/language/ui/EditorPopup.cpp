#include "language/ui/EditorPopup.h"

#include "language/editor/LEditOCX.h"
#include "platform/Twips.h"

#include <QCoreApplication>
#include <QMenu>
#include <QMouseEvent>

namespace ardiphon {

namespace {

constexpr int RightButton = 2;

/// Does what a click of the left button at that place does: moves the caret there.
void clickLeft(const LEditOCX &editor, QPoint at)
{
    QWidget *view = editor.childAt(at); // only the visible part takes mouse events
    if (!view)
        return;
    const QPointF local = view->mapFrom(&editor, at);
    const QPointF global = view->mapToGlobal(local);
    QMouseEvent press(QEvent::MouseButtonPress, local, global, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, local, global, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(view, &press);
    QCoreApplication::sendEvent(view, &release);
}

} // namespace

EditorPopup::EditorPopup(LEditOCX &editor, QMenu &popup, std::function<void()> prepare)
    : QObject(&editor), m_editor(editor), m_popup(popup), m_prepare(std::move(prepare))
{
    connect(&editor, &LEditOCX::MouseButton, this, &EditorPopup::open);
}

void EditorPopup::open(EditorMouseButton &button)
{
    m_editor.setFocus();
    if (button.Button != RightButton)
        return;
    const QPoint at(toPixels(button.X), toPixels(button.Y));
    if (!hitsSelection(at))
        clickLeft(m_editor, at);
    m_prepare();
    m_popup.popup(m_editor.mapToGlobal(at));
}

bool EditorPopup::hitsSelection(QPoint at) const
{
    if (m_editor.SelectionLength() == 0)
        return false;
    m_editor.GetSelection();
    const int line = m_editor.LineAt(at.y());
    if (line < m_editor.SelStartLine || line > m_editor.SelEndLine)
        return false;
    const auto x = [this](int ofLine, int column) {
        return m_editor.PositionToPixels(ofLine, column).x();
    };
    if (line == m_editor.SelStartLine && at.x() < x(line, m_editor.SelStartColumn))
        return false;
    return line != m_editor.SelEndLine || at.x() <= x(line, m_editor.SelEndColumn);
}

} // namespace ardiphon
