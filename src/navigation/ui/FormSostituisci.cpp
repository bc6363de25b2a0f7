#include "navigation/ui/FormSostituisci.h"

#include "language/editor/LEditOCX.h"
#include "navigation/SearchRules.h"
#include "navigation/ui/EditorSearch.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace ardiphon {

FormSostituisci::FormSostituisci(SearchContext context, std::function<void()> beep)
    : SearchWindow(std::move(context), QStringLiteral("FormSostituisci"),
                   QStringLiteral("Find and Replace")),
      m_beep(std::move(beep))
{
    Text1 = newField(QStringLiteral("Text1"));
    labelTrova = newLabel(QStringLiteral("labelTrova"), tr("Find:"), Text1);
    Text2 = newField(QStringLiteral("Text2"));
    labelSostituisci = newLabel(QStringLiteral("labelSostituisci"), tr("Replace with:"), Text2);
    Check1 = newWholeWordBox();
    Command5 = newButton(QStringLiteral("Command5"), tr("&Find"));
    Command5->setDefault(true);
    Command2 = newButton(QStringLiteral("Command2"), tr("&Replace"));
    Command3 = newButton(QStringLiteral("Command3"), tr("Replace &All"));
    Command1 = newButton(QStringLiteral("Command1"), tr("Replace from &caret to end"));
    Command4 = newButton(QStringLiteral("Command4"), tr("E&xit"));
    layOut();
    takeSelection(*Text1);
    connect(Command5, &QPushButton::clicked, this, &FormSostituisci::find);
    connect(Command2, &QPushButton::clicked, this, &FormSostituisci::replaceSelection);
    connect(Command3, &QPushButton::clicked, this, &FormSostituisci::replaceAll);
    connect(Command1, &QPushButton::clicked, this, &FormSostituisci::replaceFromCaret);
    connect(Command4, &QPushButton::clicked, this, &QDialog::reject);
}

void FormSostituisci::layOut()
{
    auto *buttons = new QVBoxLayout;
    for (QWidget *button : {Command5, Command2, Command3, Command1, Command4})
        buttons->addWidget(button);
    buttons->addStretch();

    auto *all = new QGridLayout(this);
    all->addWidget(labelTrova, 0, 0);
    all->addWidget(Text1, 0, 1);
    all->addWidget(labelSostituisci, 1, 0);
    all->addWidget(Text2, 1, 1);
    all->addWidget(Check1, 2, 1);
    all->addLayout(buttons, 0, 2, 4, 1);
    all->setColumnStretch(1, 1);
    all->setRowStretch(3, 1);
}

bool FormSostituisci::findInWholeText(LEditOCX &served) const
{
    return findFirst(served, Text1->text(), FindDirection::UpDown, Check1->isChecked());
}

void FormSostituisci::find()
{
    LEditOCX *const served = editor();
    if (!served || Text1->text().isEmpty())
        return;
    if (findInWholeText(*served))
        emit matchShown(served);
    else
        sayNotFound();
    Text1->setFocus();
}

/// Replaces whatever is selected, a match or not.
void FormSostituisci::replaceSelection()
{
    LEditOCX *const served = editor();
    if (!served || served->SelectionLength() == 0)
        return;
    served->SetSelText(Text2->text());
    emit replaced(served);
}

void FormSostituisci::replaceAll()
{
    LEditOCX *const served = editor();
    if (!served || Text1->text().isEmpty())
        return;
    if (findInWholeText(*served)) {
        served->SetReplaceText(Text2->text());
        served->ReplaceAll();
        emit replaced(served);
    } else {
        sayNotFound();
    }
    Text1->setFocus();
}

void FormSostituisci::replaceFromCaret()
{
    LEditOCX *const served = editor();
    if (!served || Text1->text().isEmpty())
        return;
    // A selection within one line becomes empty, so that a match that begins at it counts.
    served->GetSelection();
    served->SelEndColumn = served->SelStartColumn;
    served->SetSelection();
    served->setUpdatesEnabled(false);
    served->SetReplaceText(Text2->text());
    while (findFirst(*served, Text1->text(), FindDirection::Down, Check1->isChecked()))
        served->ReplaceCurrent();
    served->setUpdatesEnabled(true);
    served->GetSelection();
    served->SetSelection(); // scrolls to where it ended
    m_beep();
    emit replaced(served);
    Text1->setFocus();
}

} // namespace ardiphon
