#include "check/ui/ProblemsPanel.h"

#include "check/ui/ProblemsModel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QTreeView>
#include <QVBoxLayout>

namespace ardiphon {

ProblemsPanel::ProblemsPanel(QWidget *parent)
    : QWidget(parent),
      LabelProblems(new QLabel(this)),
      TreeProblems(new QTreeView(this)),
      m_model(new ProblemsModel(this))
{
    LabelProblems->setObjectName(QStringLiteral("LabelProblems"));
    LabelProblems->setWordWrap(true);
    LabelProblems->hide();
    TreeProblems->setObjectName(QStringLiteral("TreeProblems"));
    TreeProblems->setModel(m_model);
    TreeProblems->setRootIsDecorated(false);
    TreeProblems->setUniformRowHeights(true);
    TreeProblems->setAllColumnsShowFocus(true);
    TreeProblems->setEditTriggers(QAbstractItemView::NoEditTriggers);
    TreeProblems->setContextMenuPolicy(Qt::CustomContextMenu);
    TreeProblems->header()->setStretchLastSection(false);
    TreeProblems->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    TreeProblems->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    TreeProblems->header()->setSectionResizeMode(2, QHeaderView::ResizeToContents);
    TreeProblems->installEventFilter(this);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    layout->addWidget(LabelProblems);
    layout->addWidget(TreeProblems);
    connect(TreeProblems, &QTreeView::clicked, this,
            [this](const QModelIndex &index) { emit chosen(index.row()); });
    connect(TreeProblems, &QWidget::customContextMenuRequested, this, &ProblemsPanel::showMenu);
}

void ProblemsPanel::setProblems(const QList<Problem> &problems) { m_model->setProblems(problems); }

void ProblemsPanel::setStatus(const QString &status)
{
    LabelProblems->setText(status);
    LabelProblems->setVisible(!status.isEmpty());
}

void ProblemsPanel::takeFocus()
{
    if (!TreeProblems->currentIndex().isValid())
        TreeProblems->setCurrentIndex(m_model->index(0, 0));
    TreeProblems->setFocus();
}

QSize ProblemsPanel::sizeHint() const
{
    constexpr int Rows = 6;
    return {QWidget::sizeHint().width(), Rows * fontMetrics().lineSpacing() * 4 / 3};
}

bool ProblemsPanel::eventFilter(QObject *, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (TreeProblems->currentIndex().isValid())
            emit chosen(TreeProblems->currentIndex().row());
        return true;
    case Qt::Key_Escape:
        emit left();
        return true;
    default:
        return false;
    }
}

/// What would mend the problem of the row.
void ProblemsPanel::showMenu(const QPoint &at)
{
    const Problem *const problem = m_model->problem(TreeProblems->indexAt(at));
    if (!problem || problem->fixes.isEmpty())
        return;
    auto *const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const ProblemFix &fix : problem->fixes)
        connect(menu->addAction(fix.caption), &QAction::triggered, this,
                [this, fix] { emit fixWanted(fix); });
    menu->popup(TreeProblems->viewport()->mapToGlobal(at));
}

} // namespace ardiphon
