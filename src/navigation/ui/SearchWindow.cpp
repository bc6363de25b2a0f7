#include "navigation/ui/SearchWindow.h"

#include "language/editor/LEditOCX.h"
#include "navigation/SearchRules.h"
#include "navigation/ui/EditorSearch.h"
#include "platform/Dialogs.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QWindow>

namespace ardiphon {

SearchWindow::SearchWindow(SearchContext context, const QString &name, const QString &title)
    : QDialog(context.owner), m_context(std::move(context))
{
    setObjectName(name);
    setWindowTitle(captionForCaller(title, m_context.caller));
    setAttribute(Qt::WA_DeleteOnClose);
}

QLineEdit *SearchWindow::newField(const QString &name)
{
    auto *field = new QLineEdit(this);
    field->setObjectName(name);
    field->setMaxLength(LongestFieldText);
    field->setMinimumWidth(fontMetrics().averageCharWidth() * 30);
    return field;
}

QLabel *SearchWindow::newLabel(const QString &name, const QString &caption, QWidget *field)
{
    auto *label = new QLabel(caption, this);
    label->setObjectName(name);
    label->setBuddy(field);
    return label;
}

QCheckBox *SearchWindow::newWholeWordBox()
{
    auto *box = new QCheckBox(tr("Whole word"), this);
    box->setObjectName(QStringLiteral("Check1"));
    box->setChecked(true);
    return box;
}

QPushButton *SearchWindow::newButton(const QString &name, const QString &caption)
{
    auto *button = new QPushButton(caption, this);
    button->setObjectName(name);
    return button;
}

void SearchWindow::takeSelection(QLineEdit &field) const
{
    const LEditOCX *const served = editor();
    const QString selected = served ? served->SelText() : QString();
    if (selected.isEmpty())
        return;
    field.setText(fieldTextFromSelection(selected));
    field.selectAll();
}

void SearchWindow::sayNotFound() const
{
    dialogs().message(
        {QStringLiteral("No matches found!"), ProgramTitle, MessageIcon::Information});
}

void SearchWindow::leave()
{
    if (LEditOCX *const served = editor())
        giveFocus(*served);
}

void SearchWindow::reject()
{
    leave();
    QDialog::reject();
}

void SearchWindow::makeRoomFor(const QRect &match)
{
    // The widget's own value of its frame may be from before the frame was there.
    const QRect frame = windowHandle()->frameGeometry();
    const QPoint place = placeBesideMatch(frame, match, screen()->availableGeometry());
    if (place != frame.topLeft())
        setGeometry(geometry().translated(place - frame.topLeft()));
}

} // namespace ardiphon
