#pragma once

#include <QObject>

#include <functional>

class QMenu;

namespace ardiphon {

class LEditOCX;
struct EditorMouseButton;

/// The right mouse button in an editor: it moves the caret unless it hits the selection, and then
/// opens the popup menu.
class EditorPopup : public QObject
{
    Q_OBJECT

public:
    /// \a prepare runs before \a popup is shown, with the caret where it was clicked.
    EditorPopup(LEditOCX &editor, QMenu &popup, std::function<void()> prepare);

private:
    void open(EditorMouseButton &button);
    bool hitsSelection(QPoint at) const;

    LEditOCX &m_editor;
    QMenu &m_popup;
    std::function<void()> m_prepare;
};

} // namespace ardiphon
