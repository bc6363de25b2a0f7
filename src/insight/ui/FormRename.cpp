#include "insight/ui/FormRename.h"

#include "insight/ui/NameMark.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

using namespace std::chrono_literals;

namespace ardiphon {

namespace {

constexpr QSize UsualFormSize(620, 420);
constexpr auto RenameSlice = 3ms; ///< with the lines that are begun before its end, less than 4

QString kindText(const PieceSymbol &symbol)
{
    const bool isLocal = symbol.scope == SymbolScope::Body;
    switch (symbol.kind) {
    case SymbolKind::Instrument:
        return QStringLiteral("instrument");
    case SymbolKind::UserOpcode:
        return QStringLiteral("opcode");
    case SymbolKind::Variable:
        return isLocal ? QStringLiteral("variable, lines %1 to %2")
                             .arg(symbol.body.first)
                             .arg(symbol.body.last)
                       : QStringLiteral("variable");
    case SymbolKind::Macro:
        return symbol.scope == SymbolScope::Score ? QStringLiteral("macro of the score")
                                                  : QStringLiteral("macro of the orchestra");
    case SymbolKind::Label:
        return QStringLiteral("label");
    case SymbolKind::Channel:
        return QStringLiteral("channel");
    default:
        return QString();
    }
}

} // namespace

FormRename::FormRename(RenameContext context, QWidget *owner)
    : QDialog(owner),
      m_context(std::move(context)),
      m_places(new RenamePlacesModel(m_context.documentName, this)),
      LabelRenameName(newLabel("LabelRenameName")),
      LineRenameName(new QLineEdit(this)),
      LabelRenameReason(newLabel("LabelRenameReason")),
      LabelRenamePlaces(newLabel("LabelRenamePlaces")),
      TreeRenamePlaces(new QTreeView(this)),
      buttonRename(newButton("buttonRename", "&Rename")),
      buttonRenameCancel(newButton("buttonRenameCancel", "&Cancel"))
{
    setObjectName(QStringLiteral("FormRename"));
    setWindowTitle(QStringLiteral("Rename"));
    setModal(true);
    layOut();
    resize(UsualFormSize);
    connect(LineRenameName, &QLineEdit::textChanged, this, &FormRename::judge);
    connect(buttonRename, &QPushButton::clicked, this, &FormRename::accept);
    connect(buttonRenameCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(&m_slices, &QTimer::timeout, this, &FormRename::readSlice);
    restart();
}

FormRename::~FormRename() = default;

QLabel *FormRename::newLabel(const char *name, const QString &text, QWidget *buddy)
{
    auto *const label = new QLabel(text, this);
    label->setObjectName(QLatin1String(name));
    label->setBuddy(buddy);
    if (!buddy)
        label->setTextFormat(Qt::PlainText);
    return label;
}

QPushButton *FormRename::newButton(const char *name, const char *caption)
{
    auto *const button = new QPushButton(QLatin1String(caption), this);
    button->setObjectName(QLatin1String(name));
    return button;
}

void FormRename::layOut()
{
    LineRenameName->setObjectName(QStringLiteral("LineRenameName"));
    LabelRenameReason->setWordWrap(true);
    LabelRenamePlaces->setWordWrap(true);
    TreeRenamePlaces->setObjectName(QStringLiteral("TreeRenamePlaces"));
    TreeRenamePlaces->setModel(m_places);
    TreeRenamePlaces->setItemDelegateForColumn(RenamePlacesModel::TextColumn,
                                               new NameMark(TreeRenamePlaces));
    TreeRenamePlaces->setRootIsDecorated(false);
    TreeRenamePlaces->setUniformRowHeights(true);
    TreeRenamePlaces->setAllColumnsShowFocus(true);
    TreeRenamePlaces->setTabKeyNavigation(false);
    TreeRenamePlaces->header()->setSectionsMovable(false);
    buttonRename->setDefault(true);

    auto *const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(buttonRename);
    buttons->addWidget(buttonRenameCancel);
    auto *const all = new QGridLayout(this);
    all->addWidget(newLabel("LabelRenameOld", QStringLiteral("Name:")), 0, 0);
    all->addWidget(LabelRenameName, 0, 1);
    all->addWidget(newLabel("LabelRenameNew", QStringLiteral("&New name:"), LineRenameName), 1, 0);
    all->addWidget(LineRenameName, 1, 1);
    all->addWidget(LabelRenameReason, 2, 1);
    all->addWidget(LabelRenamePlaces, 3, 0, 1, 2);
    all->addWidget(TreeRenamePlaces, 4, 0, 1, 2);
    all->addLayout(buttons, 5, 0, 1, 2);
    all->setColumnStretch(1, 1);
    all->setRowStretch(4, 1);
    LineRenameName->setFocus();
}

// Finding the places.
// ------------------------------------------------------------------------------

void FormRename::restart()
{
    m_places->setPlaces(nullptr, nullptr);
    m_rename.reset();
    m_obstacle.clear();
    m_isReady = false;
    showProgress();
    judge();
    m_slices.start(0);
}

void FormRename::readSlice()
{
    if (!m_context.piece.isRead())
        return; // its follower is at it
    if (!m_rename) {
        const std::optional<PieceSymbol> symbol = m_context.symbol();
        m_obstacle = renameObstacle(symbol);
        if (symbol) {
            const QString name = QString::fromUtf8(symbol->name);
            LabelRenameName->setText(name + QStringLiteral("   ") + kindText(*symbol));
            if (!std::exchange(m_hasName, true)) {
                LineRenameName->setText(name);
                LineRenameName->selectAll();
            }
        }
        if (m_obstacle.isEmpty())
            m_rename = std::make_unique<PieceRename>(m_context.piece, *symbol);
    }
    if (m_rename && !m_rename->readOn(QDeadlineTimer(RenameSlice))) {
        showProgress();
        return;
    }
    m_slices.stop();
    m_isReady = true;
    showPlaces();
    judge();
}

void FormRename::showProgress()
{
    const int all = m_rename ? m_rename->linesInAll() : 0;
    const qint64 read = m_rename ? m_rename->linesRead() : 0;
    LabelRenamePlaces->setText(
        QStringLiteral("Reading ... %1 %").arg(all > 0 ? read * 100 / all : 0));
}

void FormRename::showPlaces()
{
    const qsizetype count = m_rename ? m_rename->count() : 0;
    const int hidden = m_rename ? m_rename->hiddenNotes() : 0;
    QString text = count == 1 ? QStringLiteral("1 place will change")
                              : QStringLiteral("%1 places will change").arg(count);
    if (hidden == 1)
        text += QStringLiteral("; 1 note, whose instrument a macro or an expression gives, stays "
                               "as it is");
    else if (hidden > 1)
        text += QStringLiteral("; %1 notes, whose instruments macros or expressions give, stay as "
                               "they are")
                    .arg(hidden);
    text += u':';
    LabelRenamePlaces->setText(text);
    m_places->setPlaces(&m_context.piece, m_rename.get());
    for (const int column : {RenamePlacesModel::DocumentColumn, RenamePlacesModel::LineColumn})
        TreeRenamePlaces->resizeColumnToContents(column);
}

// The new name.
// ------------------------------------------------------------------------------------

void FormRename::judge()
{
    const QString reason = !m_isReady ? QString()
                           : m_rename ? m_rename->refusal(LineRenameName->text())
                                      : m_obstacle;
    LabelRenameReason->setText(reason.isEmpty() ? QStringLiteral(" ") : reason);
    buttonRename->setEnabled(m_isReady && reason.isEmpty());
}

void FormRename::accept()
{
    if (buttonRename->isEnabled())
        QDialog::accept();
}

QList<RenameEdit> FormRename::edits() const
{
    return m_rename ? m_rename->editsFor(LineRenameName->text()) : QList<RenameEdit>();
}

} // namespace ardiphon
