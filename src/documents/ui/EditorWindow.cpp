#include "documents/ui/EditorWindow.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "documents/ui/FramePlacer.h"
#include "documents/ui/MenuBarStyle.h"
#include "documents/ui/RecentMenu.h"
#include "help/ui/FormManual.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/FontSizeMenu.h"
#include "language/ui/KeywordHelp.h"
#include "navigation/ui/Definitions.h"
#include "platform/Dialogs.h"
#include "platform/FileName.h"
#include "platform/Twips.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QThread>
#include <QTimer>
#include <QWheelEvent>

#include <utility>

namespace ardiphon {

namespace {

constexpr QSize SmallestWindow(480, 360);
constexpr int ClosingPause = 10; ///< in milliseconds, before a closing is tried again

/// The first local file of a drop; one without a path when there is none.
QUrl droppedFile(const QMimeData &data)
{
    for (const QUrl &url : data.urls())
        if (url.isLocalFile())
            return url;
    return {};
}

QByteArray nativePath(const QUrl &url)
{
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
}

/// A program from which something is moved may take it away; to open a file is not to move it.
void acceptCopy(QDropEvent &event)
{
    if (event.possibleActions() & Qt::CopyAction)
        event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

EditorWindow::EditorWindow(ProgramContext &program)
    : m_program(program),
      m_commands(this),
      m_files(program),
      m_recent(new RecentMenu(program, this)),
      m_fontSizes(new FontSizeMenu(program.config, this)),
      m_placer(new FramePlacer(*this)),
      m_help(std::make_unique<KeywordHelp>(program.config, program.dialogs, manualViewer(this)))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAcceptDrops(true);
    setMinimumSize(SmallestWindow);
    setCentralWidget(new QWidget(this));
    auto *const style = new MenuBarStyle;
    style->setParent(menuBar());
    menuBar()->setStyle(style);
}

EditorWindow::~EditorWindow() = default;

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
        resize(normalSize(screen()->availableGeometry().size())); // for when it is so no longer
        setWindowState(windowState() | Qt::WindowMaximized);
        return;
    }
    move(toPixels(int(kept.WindowLeft)), toPixels(int(kept.WindowTop)));
    resize(toPixels(int(kept.WindowWidth)), toPixels(int(kept.WindowHeight)));
}

void EditorWindow::handOver(const std::function<void()> &showOther)
{
    TrovaPosForm();
    showOther();
    close();
}

void EditorWindow::endClosing(QCloseEvent &event, bool leaves)
{
    const bool closedByUser = std::exchange(m_closedByUser, false) || event.spontaneous();
    if (closedByUser || config().FormCSDClosing)
        config().Words.CloseOpcodeFile();
    QFile::remove(config().RootPath + QStringLiteral("tmp.txt"));
    event.setAccepted(leaves);
}

void EditorWindow::insertInto(LEditOCX &editor, const QString &text)
{
    if (editor.SelectionLength() > 0)
        editor.SetSelText(QString());
    editor.SetSelText(text);
    editor.setFocus();
}

void EditorWindow::preparePopup(LEditOCX &view, ViewLanguage language)
{
    m_definitions->prepareEntries(view, language != ViewLanguage::Score);
    commands().action("menuPopupOpcodeHelp")->setText(m_help->prepareMenu(view, language));
}

void EditorWindow::followKey(LEditOCX &view, ViewLanguage language, ViewKey key)
{
    switch (key) {
    case ViewKey::CloseWindow:
        close();
        break;
    case ViewKey::Redo:
        view.Redo();
        break;
    case ViewKey::KeywordHelp:
        m_help->keyHelp(view, language);
        break;
    case ViewKey::HelpIndex:
        m_help->keyIndex();
        break;
    default:
        break;
    }
}

void EditorWindow::moveToHalf(ScreenHalf half)
{
    config().WorkArea = screen()->availableGeometry();
    m_placer->place(halfOf(config().WorkArea, half));
}

/// A dialog hides before it returns, and the window manager may close this window in between: gone
/// with the window, the dialog would have nothing to return to.
bool EditorWindow::event(QEvent *event)
{
    constexpr int programsOwnLoop = 1;
    if (event->type() == QEvent::Close && thread()->loopLevel() > programsOwnLoop) {
        event->ignore();
        closeLater(event->spontaneous());
        return true;
    }
    return QMainWindow::event(event);
}

void EditorWindow::closeLater(bool byUser)
{
    m_closedByUser |= byUser;
    QTimer::singleShot(ClosingPause, this, &QWidget::close);
}

void EditorWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    arrangeWindow();
}

/// F10, which no control has a use for, does what Alt alone does: the keys go to the menu bar, or
/// back. The bar knows only Alt, which it follows in its window; held is told as before the key.
void EditorWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_F10 || event->modifiers() != Qt::NoModifier)
        return QMainWindow::keyPressEvent(event);
    QKeyEvent altDown(QEvent::ShortcutOverride, Qt::Key_Alt, Qt::NoModifier);
    QKeyEvent altUp(QEvent::KeyRelease, Qt::Key_Alt, Qt::AltModifier);
    QCoreApplication::sendEvent(this, &altDown);
    QCoreApplication::sendEvent(this, &altUp);
}

/// A notch scrolls as many lines as the user has set.
void EditorWindow::wheelEvent(QWheelEvent *event)
{
    LEditOCX *editor = focusedEditor();
    const int delta = event->angleDelta().y();
    if (!editor || delta == 0)
        return;
    event->accept();
    if (const int notches = m_wheel.turn(delta))
        editor->SetTopLine(editor->TopLine() - notches * config().WheelLinesCount);
}

void EditorWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!droppedFile(*event->mimeData()).isEmpty())
        acceptCopy(*event);
}

void EditorWindow::dropEvent(QDropEvent *event)
{
    const QUrl file = droppedFile(*event->mimeData());
    if (file.isEmpty())
        return;
    acceptCopy(*event);
    if (isNamable(nativePath(file)))
        openDroppedFile(file.toLocalFile());
    else
        m_program.dialogs.message({brokenNameText(file.toLocalFile())});
}

} // namespace ardiphon
