#include "insight/ui/OutlineFeature.h"

#include "insight/ui/GoToPlace.h"
#include "insight/ui/IncludeFollower.h"
#include "insight/ui/OutlineModel.h"
#include "language/editor/LEditOCX.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/PieceFollower.h"

#include <QDockWidget>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QSignalBlocker>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

using namespace std::chrono_literals;

namespace ardiphon {

namespace {

constexpr int MostRows = 10000;
constexpr int MostOpenRows = 30; ///< of an included file, before the user has opened it
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
    const auto remember = [this](const QModelIndex &index, bool isOpen) {
        const OutlineRow *const row = m_model->row(index);
        if (!row->included.isEmpty())
            m_open.insert(row->included, isOpen);
    };
    connect(TreeOutline, &QTreeView::expanded, this,
            [remember](const QModelIndex &index) { remember(index, true); });
    connect(TreeOutline, &QTreeView::collapsed, this,
            [remember](const QModelIndex &index) { remember(index, false); });
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
    m_includes = &IncludeFollower::of(*m_host);
    connect(m_includes, &IncludeFollower::filesRead, this, &OutlineFeature::showRows);
    m_host->owner().installEventFilter(this);
}

/// Nothing is read while the dock is not to be seen.
void OutlineFeature::readAgain()
{
    if (m_dock->isHidden())
        return;
    if (std::exchange(m_isStale, false))
        m_own = outlineOf(m_host->piece().piece(), MostRows);
    showRows();
    m_includes->refresh();
}

void OutlineFeature::showRows()
{
    if (m_dock->isHidden())
        return;
    const Outline outline = m_includes->files().withFiles(m_own, MostRows);
    if (outline.rows == m_model->outline().rows)
        return;
    m_model->setOutline(outline);
    expandRows();
    markCaret();
}

/// All but the included files that have much in them, or that the user has closed.
void OutlineFeature::expandRows()
{
    const QSignalBlocker quiet(TreeOutline); // the user did not do it
    TreeOutline->expandAll();
    const QList<OutlineRow> &rows = m_model->outline().rows;
    for (int i = 0; i < rows.size() && LineOutlineFilter->text().isEmpty(); ++i) {
        if (rows[i].included.isEmpty())
            continue;
        const QModelIndex index = m_model->indexOfRow(i);
        const bool isShort = m_model->rowCount(index) <= MostOpenRows;
        TreeOutline->setExpanded(index, m_open.value(rows[i].included, isShort));
    }
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
    expandRows();
    TreeOutline->setCurrentIndex(m_model->firstMatch());
}

void OutlineFeature::goToRow(const QModelIndex &index)
{
    const OutlineRow *const found = m_model->row(index);
    if (found == nullptr)
        return;
    const OutlineRow row = *found; // the rows may change while the other window opens
    if (row.included.isEmpty())
        goToPlace(*m_host, row.place, row.file);
    else
        goToPlace(*m_host, PiecePlace(), row.included);
}

bool OutlineFeature::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::WindowActivate && watched == &m_host->owner())
        m_rows->start(); // an included file may have changed meanwhile
    if (event->type() != QEvent::KeyPress || watched == &m_host->owner())
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
