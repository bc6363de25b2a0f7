#include "navigation/ui/FormTrovaRiga.h"

#include "language/editor/LEditOCX.h"
#include "navigation/SearchRules.h"
#include "platform/Dialogs.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace ardiphon {

FormTrovaRiga::FormTrovaRiga(SearchContext context)
    : SearchWindow(std::move(context), QStringLiteral("FormTrovaRiga"),
                   QStringLiteral("Find Line number"))
{
    Text1 = newField(QStringLiteral("Text1"));
    Label1 = newLabel(QStringLiteral("Label1"), tr("Line number:"), Text1);
    buttonTrova = newButton(QStringLiteral("buttonTrova"), tr("&Find"));
    buttonTrova->setDefault(true);
    buttonEsci = newButton(QStringLiteral("buttonEsci"), tr("E&xit"));
    layOut();
    connect(buttonTrova, &QPushButton::clicked, this, &FormTrovaRiga::goToLine);
    connect(buttonEsci, &QPushButton::clicked, this, &QDialog::reject);
}

void FormTrovaRiga::layOut()
{
    auto *buttons = new QVBoxLayout;
    buttons->addWidget(buttonTrova);
    buttons->addWidget(buttonEsci);
    buttons->addStretch();

    auto *all = new QGridLayout(this);
    all->addWidget(Label1, 0, 0);
    all->addWidget(Text1, 0, 1);
    all->addLayout(buttons, 0, 2, 2, 1);
    all->setColumnStretch(1, 1);
    all->setRowStretch(1, 1);
}

/// For a line that the document does not have, the editor selects one that it has.
void FormTrovaRiga::goToLine()
{
    const std::optional<int> line = lineNumberFrom(Text1->text());
    if (!line) {
        dialogs().message({QStringLiteral("No valid Line number!"), QStringLiteral("Error"),
                           MessageIcon::Exclamation});
        Text1->setFocus();
        return;
    }
    LEditOCX *const served = editor();
    if (served) {
        served->SelStartLine = served->SelEndLine = *line;
        served->SelStartColumn = 0;
        served->SelEndColumn = served->LineLength(*line);
        served->SetSelection();
    }
    reject();
    if (served)
        emit matchShown(served);
}

} // namespace ardiphon
