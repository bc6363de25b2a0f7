#include "help/ui/FormManual.h"

#include "help/ui/ManualBrowser.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QScreen>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include <memory>
#include <utility>

namespace ardiphon {

FormManual::FormManual(std::function<void(const QUrl &)> openOutside, QWidget *owner)
    : QWidget(owner, Qt::Window),
      m_openOutside(std::move(openOutside)),
      m_bar(new QHBoxLayout),
      m_browser(new ManualBrowser(m_openOutside, this))
{
    setObjectName(QStringLiteral("FormManual"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_browser->setObjectName(QStringLiteral("TextManual"));
    m_browser->setFrameShape(QFrame::NoFrame);

    m_bar->setContentsMargins(6, 6, 6, 6);
    m_bar->setSpacing(4);
    buildHistoryButtons();
    m_bar->addStretch();
    buildFindControls();
    m_bar->addStretch();
    buildOtherButtons();

    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(m_bar);
    layout->addWidget(m_browser);

    connect(m_browser, &QTextBrowser::sourceChanged, this, &FormManual::setTitle);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    resize(QSize(860, 680).boundedTo(screen()->availableSize()));
}

void FormManual::showPage(const QUrl &page, const QString &startPage)
{
    m_startPage = QUrl::fromLocalFile(startPage);
    m_browser->setSource(page);
    setTitle();
    show();
    raise();
    activateWindow();
    m_browser->setFocus();
}

QToolButton *FormManual::addButton(const QString &name, const QString &caption, const QString &hint,
                                   const QList<QKeySequence> &keys, std::function<void()> action)
{
    auto *const button = new QToolButton(this);
    button->setObjectName(name);
    button->setText(caption);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(
        keys.isEmpty() ? hint : hint + QStringLiteral(" (%1)").arg(keys.first().toString()));
    connect(button, &QToolButton::clicked, this, std::move(action));
    for (const QKeySequence &key : keys)
        connect(new QShortcut(key, this), &QShortcut::activated, button,
                [button] { button->click(); });
    m_bar->addWidget(button);
    return button;
}

void FormManual::buildHistoryButtons()
{
    QToolButton *const back = addButton(QStringLiteral("buttonBack"), QStringLiteral("\u2190 Back"),
                                        QStringLiteral("Previous page"), {Qt::ALT | Qt::Key_Left},
                                        [this] { m_browser->backward(); });
    QToolButton *const forward = addButton(
        QStringLiteral("buttonForward"), QStringLiteral("Forward \u2192"),
        QStringLiteral("Next page"), {Qt::ALT | Qt::Key_Right}, [this] { m_browser->forward(); });
    addButton(QStringLiteral("buttonStart"), QStringLiteral("Start page"),
              QStringLiteral("Contents of the manual"), {Qt::ALT | Qt::Key_Home},
              [this] { m_browser->setSource(m_startPage); });
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
}

void FormManual::buildFindControls()
{
    TextFind = new QLineEdit(this);
    TextFind->setObjectName(QStringLiteral("TextFind"));
    TextFind->setPlaceholderText(QStringLiteral("Find on page"));
    TextFind->setClearButtonEnabled(true);
    TextFind->setMinimumWidth(130);
    TextFind->setMaximumWidth(220);
    m_bar->addWidget(TextFind, 1);
    addButton(QStringLiteral("buttonFindPrevious"), QStringLiteral("\u25b2"),
              QStringLiteral("Previous match"), {Qt::SHIFT | Qt::Key_F3}, [this] { find(true); });
    addButton(QStringLiteral("buttonFindNext"), QStringLiteral("\u25bc"),
              QStringLiteral("Next match"), {Qt::Key_F3}, [this] { find(false); });
    LabelFind = new QLabel(this);
    LabelFind->setObjectName(QStringLiteral("LabelFind"));
    m_bar->addWidget(LabelFind);

    connect(TextFind, &QLineEdit::returnPressed, this, [this] { find(false); });
    connect(TextFind, &QLineEdit::textChanged, LabelFind, &QLabel::clear);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, TextFind, [this] {
        TextFind->setFocus();
        TextFind->selectAll();
    });
}

void FormManual::buildOtherButtons()
{
    addButton(QStringLiteral("buttonSmaller"), QStringLiteral("A\u2212"),
              QStringLiteral("Smaller text"), {Qt::CTRL | Qt::Key_Minus},
              [this] { m_browser->changeTextSize(-1); });
    addButton(QStringLiteral("buttonLarger"), QStringLiteral("A+"), QStringLiteral("Larger text"),
              {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
              [this] { m_browser->changeTextSize(1); });
    addButton(QStringLiteral("buttonBrowser"), QStringLiteral("Open in browser"),
              QStringLiteral("This page in the system's web browser"), {},
              [this] { m_openOutside(m_browser->source()); });
}

void FormManual::find(bool backward)
{
    const QString text = TextFind->text();
    if (text.isEmpty())
        return;
    const QTextDocument::FindFlags flags =
        backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    const QTextCursor before = m_browser->textCursor();
    bool found = m_browser->find(text, flags);
    if (!found) {
        // Go on from the other end of the page.
        m_browser->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
        found = m_browser->find(text, flags);
    }
    if (!found)
        m_browser->setTextCursor(before);
    LabelFind->setText(found ? QString() : QStringLiteral("Not found"));
}

void FormManual::setTitle()
{
    const QString page = m_browser->documentTitle();
    setWindowTitle(page.isEmpty() ? QStringLiteral("Csound Help")
                                  : page + QStringLiteral(" - Csound Help"));
}

HelpViewer manualViewer(QWidget *owner)
{
    const auto openOutside = [](const QUrl &url) { QDesktopServices::openUrl(url); };
    const auto form = std::make_shared<QPointer<FormManual>>();
    return {[owner, openOutside, form](const QUrl &page, const QString &startPage) {
                if (form->isNull())
                    *form = new FormManual(openOutside, owner);
                (*form)->showPage(page, startPage);
            },
            [openOutside](const QString &file) { openOutside(QUrl::fromLocalFile(file)); }};
}

} // namespace ardiphon
