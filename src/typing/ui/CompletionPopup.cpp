#include "typing/ui/CompletionPopup.h"

#include "typing/ui/CompletionModel.h"
#include "typing/ui/CompletionRow.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QListView>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int MostForm = 300; ///< how wide the signatures are, in pixels
constexpr int LeastForm = 100;
constexpr int TextWidth = 260; ///< of what is said of the selected row
constexpr int LeastRows = 5;   ///< for the text beside them
constexpr int LeastName = 80;
constexpr int MostName = 220;
constexpr int RowsForWidth = 100; ///< the first ones, whose names tell how wide the column is

/// The names stand below each other like those in the text.
QFont fixedFont(const QFont &font)
{
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPointSizeF(font.pointSizeF());
    return fixed;
}

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

    ListCompletion->setFont(fixedFont(ListCompletion->font()));

    LabelCompletion->setObjectName(QStringLiteral("LabelCompletion"));
    LabelCompletion->setWordWrap(true);
    LabelCompletion->setTextFormat(Qt::PlainText);
    LabelCompletion->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    LabelCompletion->setMargin(6);
    LabelCompletion->setForegroundRole(QPalette::ToolTipText);
    LabelCompletion->setBackgroundRole(QPalette::ToolTipBase);
    LabelCompletion->setAutoFillBackground(true);
}

void CompletionPopup::open(std::unique_ptr<CompletionList> list, const QRect &word)
{
    m_model->setList(std::move(list));
    m_word = word;
    measureNames();
    fit();
    selectRow(0);
    show();
    raise();
}

bool CompletionPopup::narrow(const QString &typed)
{
    m_model->narrow(typed);
    if (m_model->list()->isEmpty())
        return false;
    fit();
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

/// The names have a column of their own, as wide as the first of them.
void CompletionPopup::measureNames()
{
    const QFontMetrics metrics(ListCompletion->font());
    int name = LeastName;
    for (int row = 0; row < std::min(m_model->rowCount(), RowsForWidth); ++row)
        name = std::max(name, metrics.horizontalAdvance(m_model->list()->at(row).name) + 6);
    name = std::min(name, MostName);
    m_rowHeight = CompletionRow::heightOf(ListCompletion->font());
    m_kindWidth = CompletionRow::kindWidth(ListCompletion->font());
    m_rows->setLook(ListCompletion->font(), name);
    const int rest = m_kindWidth + name + 3 * CompletionRow::Gap +
                     ListCompletion->verticalScrollBar()->sizeHint().width();
    const int room = screenRoom().width() - 2 * frameWidth();
    const int form = std::clamp(room - rest - TextWidth, LeastForm, MostForm);
    m_listWidth = rest + form;
    m_textWidth = std::max(0, std::min(TextWidth, room - m_listWidth));
}

/// Takes the size for the rows that there are, at most those that are shown at once.
void CompletionPopup::fit()
{
    const int inside = std::max(pageRows(), LeastRows) * m_rowHeight;
    const QSize wanted(m_listWidth + m_textWidth + 2 * frameWidth(), inside + 2 * frameWidth());
    ListCompletion->setGeometry(frameWidth(), frameWidth(), m_listWidth, inside);
    LabelCompletion->setGeometry(frameWidth() + m_listWidth, frameWidth(), m_textWidth, inside);
    if (size() != wanted)
        resize(wanted);
    moveTo(m_word);
}

QRect CompletionPopup::screenRoom() const
{
    const QScreen *const screen = QGuiApplication::screenAt(m_word.center());
    return (screen ? screen : parentWidget()->screen())->availableGeometry();
}

void CompletionPopup::moveTo(const QRect &word)
{
    m_word = word;
    const QRect room = screenRoom();
    int x = word.left() - m_kindWidth - 2 * CompletionRow::Gap; // the names below what is typed
    int y = word.bottom() + 1;
    if (y + height() > room.bottom() + 1 && word.top() - height() >= room.top())
        y = word.top() - height();
    x = std::max(room.left(), std::min(x, room.right() + 1 - width()));
    y = std::max(room.top(), std::min(y, room.bottom() + 1 - height()));
    if (pos() != QPoint(x, y))
        move(x, y);
}

} // namespace ardiphon
