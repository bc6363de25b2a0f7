#include "typing/ui/PointerHelpFeature.h"

#include "app/ConfigurationBlock.h"
#include "language/editor/LEditOCX.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/PieceFollower.h"

#include <QAbstractScrollArea>
#include <QMouseEvent>
#include <QTimer>
#include <QToolTip>

using namespace std::chrono_literals;

namespace ardiphon {

namespace {

constexpr auto Rest = 500ms;
constexpr int LongestUnbroken = 120;     ///< characters
constexpr int ShowTime = 10 * 60 * 1000; ///< until the pointer moves off

QWidget *viewportOf(const LEditOCX &editor)
{
    const auto *const view = qobject_cast<QAbstractScrollArea *>(editor.focusProxy());
    return view ? view->viewport() : nullptr;
}

/// The character under \a at, in pixels from the editor's corner: its line and column. None beside
/// and below the text.
std::optional<std::pair<int, int>> characterAt(const LEditOCX &editor, QPoint at)
{
    const int line = editor.LineAt(at.y());
    const auto x = [&](int column) { return editor.PositionToPixels(line, column).x(); };
    if (line > editor.LineCount() || at.x() < x(0))
        return std::nullopt;
    int first = 0;
    int end = editor.LineLength(line);
    if (at.x() >= x(end))
        return std::nullopt;
    while (end - first > 1) {
        const int middle = (first + end) / 2;
        (at.x() < x(middle) ? end : first) = middle;
    }
    return std::pair(line, first);
}

QRect rectangleOf(const LEditOCX &editor, const PiecePlace &place)
{
    const QPoint start = editor.PositionToPixels(place.line, place.column);
    const QPoint end = editor.PositionToPixels(place.line, place.column + place.length);
    return {start.x(), start.y(), std::max(1, end.x() - start.x()), editor.LineHeight()};
}

/// The toolkit breaks lines where it likes unless it must not.
QString htmlOf(const PointerHelp &help)
{
    QString html;
    for (const QString &line : help.code)
        html += QStringLiteral("<div style=\"white-space:%1\">%2</div>")
                    .arg(line.size() <= LongestUnbroken ? QStringLiteral("pre")
                                                        : QStringLiteral("pre-wrap"),
                         line.toHtmlEscaped());
    if (!help.sentence.isEmpty())
        html +=
            QStringLiteral("<p style=\"margin-top:4px\">%1</p>").arg(help.sentence.toHtmlEscaped());
    return html;
}

QString htmlOf(const QList<TextNote> &notes)
{
    QString html;
    for (const TextNote &note : notes)
        html += QStringLiteral("<p style=\"margin-bottom:4px\"><b>%1</b></p>")
                    .arg(note.text.toHtmlEscaped());
    return html;
}

} // namespace

void PointerHelpFeature::install(FeatureHost &host)
{
    m_host = &host;
    m_opcodes = std::make_unique<OpcodeSignatures>(*host.config().Words);
    m_views = host.views();
    m_rest = new QTimer(this);
    m_rest->setSingleShot(true);
    m_rest->setInterval(Rest);
    connect(m_rest, &QTimer::timeout, this, &PointerHelpFeature::show);
    for (const EditorView &view : m_views) {
        const LEditOCX &editor = *view.editor;
        viewportOf(editor)->installEventFilter(this);
        connect(&editor, &LEditOCX::textChanged, this, &PointerHelpFeature::hide);
        connect(&editor, &LEditOCX::Repaint, this, [this, &editor] { noteRepaint(editor); });
    }
}

bool PointerHelpFeature::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseMove:
        for (const EditorView &view : std::as_const(m_views)) {
            auto *const viewport = viewportOf(*view.editor);
            const auto *const move = static_cast<QMouseEvent *>(event);
            if (watched == viewport && move->buttons() == Qt::NoButton)
                notePointer(view, viewport->mapTo(view.editor, move->position().toPoint()));
        }
        break;
    case QEvent::Leave:
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
        hide();
        break;
    default:
        break;
    }
    return false;
}

void PointerHelpFeature::notePointer(const EditorView &view, QPoint at)
{
    if (view.editor == m_view.editor && !m_name.isEmpty() && m_name.contains(at))
        return;
    hide();
    m_view = view;
    m_pointer = at;
    m_rest->start();
}

/// The text moved under the pointer.
void PointerHelpFeature::noteRepaint(const LEditOCX &editor)
{
    if (&editor == m_view.editor && !m_name.isEmpty() && rectangleOf(editor, m_place) != m_name)
        hide();
}

/// What is known of the name there, where the user wants that.
std::optional<PointerHelp> PointerHelpFeature::helpAt(int line, int column) const
{
    const Piece &piece = m_host->piece().piece();
    const PieceText &text = *piece.text(m_view.role);
    if (!m_host->config().PointerHelp || line > text.lineCount())
        return std::nullopt;
    return pointerHelp(piece, text, line, column, lookupIn(*m_opcodes));
}

void PointerHelpFeature::show()
{
    const LEditOCX &editor = *m_view.editor;
    QWidget *const viewport = viewportOf(editor);
    if (!editor.isActiveWindow() || !viewport->underMouse())
        return;
    const auto character = characterAt(editor, m_pointer);
    if (!character)
        return;
    const auto [line, column] = *character;
    const QList<TextNote> notes = m_host->notesAt(m_view.role, line, column);
    const auto help = helpAt(line, column);
    if (!help && notes.isEmpty())
        return;
    m_place = notes.isEmpty() ? help->place : notes.constFirst().place;
    m_name = rectangleOf(editor, m_place);
    m_shown = htmlOf(notes) + (help ? htmlOf(*help) : QString());
    const QRect inViewport(viewport->mapFrom(&editor, m_name.topLeft()), m_name.size());
    QToolTip::showText(
        editor.mapToGlobal(QPoint(m_pointer.x(), m_name.bottom() - m_name.height() / 2)), m_shown,
        viewport, inViewport, ShowTime);
    m_shown = QToolTip::text();
}

void PointerHelpFeature::hide()
{
    m_rest->stop();
    if (m_name.isEmpty())
        return;
    m_name = QRect();
    if (QToolTip::text() == m_shown)
        QToolTip::hideText();
}

} // namespace ardiphon
