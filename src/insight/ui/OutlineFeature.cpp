#include "insight/ui/OutlineFeature.h"

#include "insight/ui/GoToPlace.h"
#include "insight/ui/OutlineModel.h"
#include "language/editor/LEditOCX.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/PieceFollower.h"

#include <QDockWidget>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

using namespace std::chrono_literals;

namespace ardiphon {

namespace {

constexpr int MostRows = 10000;
constexpr auto CaretPause = 60ms;
constexpr auto TextPause = 250ms; ///< of one who types

} // namespace

void OutlineFeature::install(FeatureHost &host)
{
    m_host = &host;
    build();
    followText();
    QAction *const action = host.commands().action("menuStudioOutline");
    host.commands().bind("menuStudioOutline", this, [this](bool shown) {
        m_dock->setVisible(shown);
        if (shown)
            LineOutlineFilter->setFocus();
    });
    connect(m_dock, &QDockWidget::visibilityChanged, this, [this, action] {
        action->setChecked(!m_dock->isHidden());
        readAgain();
    });
}

void OutlineFeature::build()
{
    auto *const content = new QWidget;
    LineOutlineFilter = new QLineEdit(content);
    LineOutlineFilter->setObjectName(QStringLiteral("LineOutlineFilter"));
    LineOutlineFilter->setPlaceholderText(QStringLiteral("Filter"));
    LineOutlineFilter->setClearButtonEnabled(true);
    LineOutlineFilter->installEventFilter(this);
    TreeOutline = new QTreeView(content);
    TreeOutline->setObjectName(QStringLiteral("TreeOutline"));
    TreeOutline->setHeaderHidden(true);
    TreeOutline->setUniformRowHeights(true);
    TreeOutline->setEditTriggers(QAbstractItemView::NoEditTriggers);
    TreeOutline->installEventFilter(this);
    m_model = new OutlineModel(TreeOutline);
    TreeOutline->setModel(m_model);
    auto *const layout = new QVBoxLayout(content);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    layout->addWidget(LineOutlineFilter);
    layout->addWidget(TreeOutline);
    m_dock = m_host->addDock({"DockOutline", "Outline"}, content);

    connect(LineOutlineFilter, &QLineEdit::textChanged, this, &OutlineFeature::filter);
    connect(TreeOutline, &QTreeView::clicked, this, &OutlineFeature::goToRow);
}

void OutlineFeature::followText()
{
    m_caret = new QTimer(this);
    m_caret->setSingleShot(true);
    m_caret->setInterval(CaretPause);
    connect(m_caret, &QTimer::timeout, this, &OutlineFeature::markCaret);
    m_rows = new QTimer(this);
    m_rows->setSingleShot(true);
    m_rows->setInterval(TextPause);
    connect(m_rows, &QTimer::timeout, this, &OutlineFeature::readAgain);
    connect(&m_host->piece(), &PieceFollower::pieceRead, this, [this] {
        m_isStale = true;
        m_rows->start();
    });
    for (const EditorView &view : m_host->views())
        connect(view.editor, &LEditOCX::caretMoved, m_caret, qOverload<>(&QTimer::start));
}

/// Nothing is read while the dock is not to be seen.
void OutlineFeature::readAgain()
{
    if (m_dock->isHidden() || !m_isStale)
        return;
    m_isStale = false;
    Outline outline = outlineOf(m_host->piece().piece(), MostRows);
    if (outline.rows == m_model->outline().rows)
        return;
    m_model->setOutline(outline);
    TreeOutline->expandAll();
    markCaret();
}

void OutlineFeature::markCaret()
{
    const LEditOCX *const focused = m_host->focusedEditor();
    if (m_dock->isHidden() || focused == nullptr)
        return;
    for (const EditorView &view : m_host->views()) {
        if (view.editor != focused)
            continue;
        const int row = outlineRowAt(m_model->outline(), view.role, focused->CaretLine());
        TreeOutline->setCurrentIndex(m_model->indexOfRow(row));
    }
}

void OutlineFeature::filter(const QString &typed)
{
    m_model->setFilter(typed);
    TreeOutline->expandAll();
    const QModelIndex section = m_model->index(0, 0);
    const QModelIndex first = m_model->index(0, 0, section);
    TreeOutline->setCurrentIndex(first.isValid() ? first : section);
}

void OutlineFeature::goToRow(const QModelIndex &index)
{
    if (const OutlineRow *const row = m_model->row(index))
        goToPlace(*m_host, PiecePlace(row->place));
}

bool OutlineFeature::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    auto *const press = static_cast<QKeyEvent *>(event);
    switch (press->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        goToRow(TreeOutline->currentIndex());
        return true;
    case Qt::Key_Escape:
        if (!LineOutlineFilter->text().isEmpty())
            LineOutlineFilter->clear();
        else if (!m_host->views().isEmpty())
            m_host->views().constFirst().editor->setFocus();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (watched != LineOutlineFilter)
            return false;
        QCoreApplication::sendEvent(TreeOutline, event);
        return true;
    default:
        return false;
    }
}

} // namespace ardiphon
