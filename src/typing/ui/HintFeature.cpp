#include "typing/ui/HintFeature.h"

#include "app/ConfigurationBlock.h"
#include "language/editor/LEditOCX.h"
#include "typing/HintPlace.h"
#include "typing/ui/LabelOfHint.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/PieceFollower.h"

#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QScreen>
#include <QTimer>

using namespace std::chrono_literals;

namespace ardiphon {

namespace {

constexpr auto CaretPause = 30ms; ///< so that a caret that only passes shows nothing

/// The caret's line from the begin of what the hint is about, in the editor.
QRect lineBeside(const LEditOCX &editor, const ArgumentHint &hint)
{
    const int line = editor.CaretLine();
    const int column = hint.place.line == line ? hint.place.column : 0;
    const QPoint at = editor.PositionToPixels(line, column);
    const int x = std::clamp(at.x(), 0, std::max(0, editor.width() - 1));
    return {x, at.y(), editor.width() - x, editor.LineHeight()};
}

} // namespace

void HintFeature::install(FeatureHost &host)
{
    m_host = &host;
    m_opcodes = std::make_unique<OpcodeSignatures>(*host.config().Words);
    m_label = new LabelOfHint(&host.owner());
    m_pause = new QTimer(this);
    m_pause->setSingleShot(true);
    m_pause->setInterval(CaretPause);
    connect(m_pause, &QTimer::timeout, this, &HintFeature::update);
    host.owner().installEventFilter(this);
    for (const EditorView &view : host.views())
        follow(view);
}

void HintFeature::follow(const EditorView &view)
{
    const LEditOCX &editor = *view.editor;
    connect(&editor, &LEditOCX::caretMoved, this, [this, &editor] { noteCaret(editor); });
    connect(&editor, &LEditOCX::textChanged, this, [this, &editor] { noteCaret(editor); });
    connect(&editor, &LEditOCX::Repaint, this, [this, &editor] { noteRepaint(editor); });
    connect(&editor, &LEditOCX::KeyDown, this, &HintFeature::takeEscape);
    editor.focusProxy()->installEventFilter(this);
}

void HintFeature::noteCaret(const LEditOCX &editor)
{
    if (!editor.hasFocus())
        return;
    if (m_label && m_label->isVisible() &&
        editor.PositionToPixels(editor.CaretLine(), 0).y() != m_caret.y())
        hide();
    m_pause->start();
}

/// Puts the hint away when the text moved under it.
void HintFeature::noteRepaint(const LEditOCX &editor)
{
    if (m_label && m_label->isVisible() && &editor == m_editor &&
        editor.PositionToPixels(editor.CaretLine(), 0) != m_caret)
        hide();
}

void HintFeature::takeEscape(EditorKey &key)
{
    if (key.KeyCode != Qt::Key_Escape || key.Shift != 0 || !m_label || !m_label->isVisible() ||
        list())
        return;
    m_dismissed = m_hint.place;
    hide();
    key.KeyCode = 0;
}

void HintFeature::update()
{
    const LEditOCX *const editor = m_host->focusedEditor();
    std::optional<ArgumentHint> hint;
    for (const EditorView &view : m_host->views()) {
        if (editor && view.editor == editor && m_host->config().ArgumentHints)
            hint = hintAt(view);
    }
    if (!hint || (m_dismissed && *m_dismissed != hint->place))
        m_dismissed.reset();
    if (!hint || m_dismissed)
        hide();
    else
        show(*editor, *hint);
}

std::optional<ArgumentHint> HintFeature::hintAt(const EditorView &view) const
{
    const Piece &piece = m_host->piece().piece();
    const PieceText &text = *piece.text(view.role);
    const int line = view.editor->CaretLine();
    if (line > text.lineCount())
        return std::nullopt;
    return argumentHint(piece, text, line, view.editor->CaretColumn(), lookupIn(*m_opcodes));
}

void HintFeature::show(const LEditOCX &editor, const ArgumentHint &hint)
{
    m_editor = &editor;
    m_hint = hint;
    m_caret = editor.PositionToPixels(editor.CaretLine(), 0);
    place();
}

void HintFeature::place()
{
    if (!m_label || !m_editor)
        return;
    const QRect line = lineBeside(*m_editor, m_hint);
    const QPoint corner = m_editor->mapToGlobal(line.topLeft());
    const QScreen *const found = QGuiApplication::screenAt(corner);
    const QRect screen = (found ? found : m_editor->screen())->availableGeometry();
    m_label->setHint(m_hint, screen.width());
    const QWidget *const shown = list();
    const QRect at =
        hintPlace({corner, line.size()}, m_label->size(), screen,
                  shown ? QRect(shown->mapToGlobal(QPoint()), shown->size()) : QRect());
    if (at.isEmpty() || line.top() < 0 || line.bottom() >= m_editor->height()) {
        hide();
        return;
    }
    m_label->move(at.topLeft());
    if (m_label->isVisible())
        return;
    m_label->show();
    qApp->installEventFilter(this); // to hear of the list of suggestions
}

void HintFeature::hide()
{
    if (!m_label || !m_label->isVisible())
        return;
    m_label->hide();
    qApp->removeEventFilter(this);
}

/// The window of the list of suggestions, while it is shown; or the list within this window.
QWidget *HintFeature::list() const
{
    auto *const list = m_host->owner().findChild<QWidget *>(QStringLiteral("ListCompletion"));
    if (!list || !list->isVisible())
        return nullptr;
    return list->window() == &m_host->owner() ? list : list->window();
}

bool HintFeature::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::FocusOut:
        if (m_editor && watched == m_editor->focusProxy())
            hide();
        break;
    case QEvent::FocusIn:
        m_pause->start();
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        if (watched == &m_host->owner())
            hide();
        else if (m_label && m_label->isVisible() && watched != m_label && watched == list())
            QTimer::singleShot(0, this, [this] {
                if (m_label && m_label->isVisible())
                    place();
            });
        break;
    case QEvent::WindowDeactivate:
    case QEvent::WindowStateChange:
        if (watched == &m_host->owner())
            hide();
        break;
    default:
        break;
    }
    return false;
}

} // namespace ardiphon
