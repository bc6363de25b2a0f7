#include "documents/ui/EditorWindow.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "language/editor/LEditOCX.h"
#include "platform/Twips.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QScreen>
#include <QWheelEvent>

namespace ardiphon {

namespace {

constexpr QSize SmallestWindow(480, 360);

/// The first local file of a drop, or "".
QString droppedFile(const QMimeData &data)
{
    for (const QUrl &url : data.urls())
        if (url.isLocalFile())
            return url.toLocalFile();
    return {};
}

} // namespace

EditorWindow::EditorWindow(ProgramContext &program) : m_program(program), m_commands(this)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAcceptDrops(true);
    setMinimumSize(SmallestWindow);
}

ConfigurationBlock &EditorWindow::config() const { return m_program.config; }

void EditorWindow::TrovaPosForm()
{
    ConfigurationBlock &kept = config();
    kept.WindowMaximized = isMaximized();
    if (kept.WindowMaximized)
        return;
    kept.WindowLeft = toTwips(x());
    kept.WindowTop = toTwips(y());
    kept.WindowWidth = toTwips(width());
    kept.WindowHeight = toTwips(height());
}

void EditorWindow::takePlacement()
{
    const ConfigurationBlock &kept = config();
    if (kept.WindowMaximized) {
        setWindowState(windowState() | Qt::WindowMaximized);
        return;
    }
    move(toPixels(int(kept.WindowLeft)), toPixels(int(kept.WindowTop)));
    resize(toPixels(int(kept.WindowWidth)), toPixels(int(kept.WindowHeight)));
}

void EditorWindow::moveToHalf(ScreenHalf half)
{
    config().WorkArea = screen()->availableGeometry();
    showNormal();
    // The rectangle is that of the whole window, frame included.
    const QSize frame = frameGeometry().size() - geometry().size();
    const QRect place = halfOf(config().WorkArea, half);
    move(place.topLeft());
    resize(place.size() - frame);
}

/// Only the direction of the wheel counts: a notch scrolls as many lines as the user has set.
void EditorWindow::wheelEvent(QWheelEvent *event)
{
    LEditOCX *editor = focusedEditor();
    const int delta = event->angleDelta().y();
    if (!editor || delta == 0)
        return;
    const int lines = config().WheelLinesCount;
    editor->SetTopLine(editor->TopLine() + (delta > 0 ? -lines : lines));
    event->accept();
}

void EditorWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!droppedFile(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void EditorWindow::dropEvent(QDropEvent *event)
{
    const QString path = droppedFile(*event->mimeData());
    if (path.isEmpty())
        return;
    event->acceptProposedAction();
    openDroppedFile(path);
}

} // namespace ardiphon
