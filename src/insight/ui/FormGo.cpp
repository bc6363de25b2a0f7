#include "insight/ui/FormGo.h"

#include "insight/ui/NameListModel.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QVBoxLayout>

namespace ardiphon {

namespace {

constexpr QSize UsualSize(480, 360);

} // namespace

FormGo::FormGo(const QList<PieceName> &names, QWidget *parent)
    : QDialog(parent),
      m_model(new NameListModel(names, this)),
      LineGoFilter(new QLineEdit(this)),
      ListGoNames(new QListView(this))
{
    setObjectName(QStringLiteral("FormGo"));
    setWindowTitle(QStringLiteral("Go to Name"));
    resize(UsualSize);
    LineGoFilter->setObjectName(QStringLiteral("LineGoFilter"));
    LineGoFilter->setPlaceholderText(QStringLiteral("Letters of the name"));
    LineGoFilter->setClearButtonEnabled(true);
    LineGoFilter->installEventFilter(this);
    ListGoNames->setObjectName(QStringLiteral("ListGoNames"));
    ListGoNames->setModel(m_model);
    ListGoNames->setUniformItemSizes(true);
    ListGoNames->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ListGoNames->setFocusPolicy(Qt::NoFocus);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(LineGoFilter);
    layout->addWidget(ListGoNames);
    connect(LineGoFilter, &QLineEdit::textChanged, this, &FormGo::narrow);
    connect(ListGoNames, &QListView::clicked, this, &FormGo::accept);
    narrow(QString());
}

FormGo::~FormGo() = default;

void FormGo::narrow(const QString &typed)
{
    m_model->setFilter(typed);
    ListGoNames->setCurrentIndex(m_model->index(0));
}

const PieceName &FormGo::chosen() const { return m_model->name(ListGoNames->currentIndex().row()); }

void FormGo::accept()
{
    if (ListGoNames->currentIndex().isValid())
        QDialog::accept();
}

bool FormGo::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != LineGoFilter || event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        accept();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(ListGoNames, event);
        return true;
    default:
        return false;
    }
}

} // namespace ardiphon
