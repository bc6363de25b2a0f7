#include "typing/ui/CompletionPopup.h"

#include "typing/ui/CompletionModel.h"
#include "typing/ui/CompletionRow.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int FormWidth = 300; ///< of the signatures, in pixels
constexpr int TextWidth = 260; ///< of what is said of the selected row
constexpr int LeastName = 80;
constexpr int MostName = 220;
constexpr int RowsForWidth = 50; ///< the first ones, whose names tell how wide the column is

} // namespace

CompletionPopup::CompletionPopup(OpcodeSignatures &opcodes, QWidget *owner)
    : QFrame(owner, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      m_opcodes(opcodes),
      m_model(new CompletionModel(opcodes, this)),
      m_rows(new CompletionRow(this)),
      ListCompletion(new QListView(this)),
      LabelCompletion(new QLabel(this))
{
    setObjectName(QStringLiteral("FrameCompletion"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);

    ListCompletion->setObjectName(QStringLiteral("ListCompletion"));
    ListCompletion->setFocusPolicy(Qt::NoFocus);
    ListCompletion->setFrameShape(QFrame::NoFrame);
    ListCompletion->setModel(m_model);
    ListCompletion->setItemDelegate(m_rows);
    ListCompletion->setUniformItemSizes(true);
    ListCompletion->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ListCompletion->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    ListCompletion->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    connect(ListCompletion, &QListView::clicked, this,
            [this](const QModelIndex &index) { emit clicked(index.row()); });

    LabelCompletion->setObjectName(QStringLiteral("LabelCompletion"));
    LabelCompletion->setWordWrap(true);
    LabelCompletion->setTextFormat(Qt::PlainText);
    LabelCompletion->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    LabelCompletion->setMargin(6);
    LabelCompletion->setFixedWidth(TextWidth);
    LabelCompletion->setForegroundRole(QPalette::ToolTipText);
    LabelCompletion->setBackgroundRole(QPalette::ToolTipBase);
    LabelCompletion->setAutoFillBackground(true);

    auto *const both = new QHBoxLayout(this);
    both->setContentsMargins(0, 0, 0, 0);
    both->setSpacing(0);
    both->addWidget(ListCompletion);
    both->addWidget(LabelCompletion);
}

void CompletionPopup::open(std::unique_ptr<CompletionList> list, const QRect &word,
                           const QString &fontName)
{
    QFont font = ListCompletion->font();
    font.setFamily(fontName);
    ListCompletion->setFont(font);
    m_model->setList(std::move(list));
    m_word = word;
    measure();
    selectRow(0);
    show();
    raise();
}

bool CompletionPopup::narrow(const QString &typed)
{
    m_model->narrow(typed);
    if (m_model->list()->isEmpty())
        return false;
    measure();
    selectRow(0);
    return true;
}

void CompletionPopup::close()
{
    hide();
    m_model->setList(nullptr);
}

const CompletionList *CompletionPopup::list() const { return m_model->list(); }

int CompletionPopup::row() const { return isOpen() ? ListCompletion->currentIndex().row() : -1; }

void CompletionPopup::moveRow(int rows)
{
    selectRow(std::clamp(row() + rows, 0, std::max(0, m_model->rowCount() - 1)));
}

int CompletionPopup::pageRows() const { return std::min(m_model->rowCount(), MostRows); }

void CompletionPopup::selectRow(int row)
{
    const QModelIndex index = m_model->index(row);
    ListCompletion->setCurrentIndex(index);
    ListCompletion->scrollTo(index);
    showText();
}

void CompletionPopup::showText()
{
    const CompletionList *const list = m_model->list();
    const int row = ListCompletion->currentIndex().row();
    if (list == nullptr || row < 0)
        return;
    const CompletionText text = textOf(list->at(row), m_opcodes);
    QString shown = text.form;
    shown.replace(QLatin1String(" / "), QLatin1String("\n"));
    if (!shown.isEmpty() && !text.sentence.isEmpty())
        shown += QStringLiteral("\n\n");
    LabelCompletion->setText(shown + text.sentence);
}

/// The size that the rows take. The names have a column of their own, as wide as the first of them.
void CompletionPopup::measure()
{
    const QFontMetrics metrics(ListCompletion->font());
    int name = LeastName;
    for (int row = 0; row < std::min(m_model->rowCount(), RowsForWidth); ++row)
        name = std::max(name, metrics.horizontalAdvance(m_model->list()->at(row).name) + 6);
    name = std::min(name, MostName);
    m_rows->setNameWidth(name);
    const int rows = pageRows();
    const int height = rows * (metrics.height() + 4);
    ListCompletion->setFixedSize(CompletionRow::kindWidth(ListCompletion->font()) + name +
                                     FormWidth + 3 * CompletionRow::Gap +
                                     ListCompletion->verticalScrollBar()->sizeHint().width(),
                                 height);
    const int least = 4 * (metrics.height() + 4);
    resize(ListCompletion->width() + TextWidth + 2 * frameWidth(),
           std::max(height, least) + 2 * frameWidth());
    moveTo(m_word);
}

void CompletionPopup::moveTo(const QRect &word)
{
    m_word = word;
    const QScreen *screen = QGuiApplication::screenAt(word.center());
    if (screen == nullptr)
        screen = parentWidget()->screen();
    const QRect room = screen->availableGeometry();
    const int kind = CompletionRow::kindWidth(ListCompletion->font());
    int x = word.left() - kind - CompletionRow::Gap; // the names below what is typed
    int y = word.bottom() + 1;
    if (y + height() > room.bottom() + 1 && word.top() - height() >= room.top())
        y = word.top() - height();
    x = std::max(room.left(), std::min(x, room.right() + 1 - width()));
    y = std::max(room.top(), std::min(y, room.bottom() + 1 - height()));
    move(x, y);
}

} // namespace ardiphon
