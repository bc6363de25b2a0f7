#include "navigation/ui/formTrova.h"

#include "language/editor/LEditOCX.h"
#include "navigation/SearchRules.h"
#include "navigation/ui/EditorSearch.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace ardiphon {

formTrova::formTrova(SearchContext context)
    : SearchWindow(std::move(context), QStringLiteral("formTrova"), QStringLiteral("Find"))
{
    Text1 = newField(QStringLiteral("Text1"));
    labelTrova = newLabel(QStringLiteral("labelTrova"), tr("Text to find:"), Text1);
    Check1 = newWholeWordBox();
    Option1 = newOption(QStringLiteral("Option1"), tr("Up"));
    Option2 = newOption(QStringLiteral("Option2"), tr("Down"));
    Option3 = newOption(QStringLiteral("Option3"), tr("Up/Down"));
    Option3->setChecked(true);
    Label1 = newLabel(QStringLiteral("Label1"), tr("Search direction:"), Option3);
    Command1 = newButton(QStringLiteral("Command1"), tr("&Find"));
    Command1->setDefault(true);
    Command4 = newButton(QStringLiteral("Command4"), tr("E&xit"));
    layOut();
    takeSelection(*Text1);
    connect(Command1, &QPushButton::clicked, this, &formTrova::find);
    connect(Command4, &QPushButton::clicked, this, &QDialog::reject);
}

QRadioButton *formTrova::newOption(const QString &name, const QString &caption)
{
    auto *option = new QRadioButton(caption, this);
    option->setObjectName(name);
    return option;
}

void formTrova::layOut()
{
    auto *options = new QHBoxLayout;
    for (QWidget *option : {Option1, Option2, Option3})
        options->addWidget(option);
    options->addStretch();

    auto *buttons = new QVBoxLayout;
    buttons->addWidget(Command1);
    buttons->addWidget(Command4);
    buttons->addStretch();

    auto *all = new QGridLayout(this);
    all->addWidget(labelTrova, 0, 0);
    all->addWidget(Text1, 0, 1);
    all->addWidget(Check1, 1, 1);
    all->addWidget(Label1, 2, 0);
    all->addLayout(options, 2, 1);
    all->addLayout(buttons, 0, 2, 4, 1);
    all->setColumnStretch(1, 1);
    all->setRowStretch(3, 1);
}

int formTrova::direction() const
{
    if (Option2->isChecked())
        return FindDirection::Down;
    return Option1->isChecked() ? FindDirection::Up : FindDirection::UpDown;
}

void formTrova::find()
{
    LEditOCX *const served = editor();
    if (!served || Text1->text().isEmpty())
        return;
    if (findFirst(*served, Text1->text(), direction(), Check1->isChecked()))
        emit matchShown(served);
    else
        sayNotFound();
    Text1->setFocus();
}

} // namespace ardiphon
