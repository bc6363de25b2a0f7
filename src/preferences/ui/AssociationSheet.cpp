#include "preferences/ui/AssociationSheet.h"

#include "associations/CsoundFiles.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace ardiphon {

AssociationSheet::AssociationSheet(Dialogs &dialogs, QWidget *parent)
    : QGroupBox(QStringLiteral("CSound Files Association"), parent)
{
    setObjectName(QStringLiteral("FrameAssociation"));
    auto *const grid = new QGridLayout(this);
    grid->setVerticalSpacing(16);
    addRow(*grid,
           QStringLiteral("Associate CSound file extension (*.csd,*.orc,*.sco)  with Ardiphon:"),
           "btnAssociate", QStringLiteral("Associate extensions"),
           [&dialogs] { associateFiles(dialogs); });
    addRow(*grid, QStringLiteral("Remove CSound files association:"), "btnRemoveAssociation",
           QStringLiteral("Remove files association"),
           [&dialogs] { removeFilesAssociation(dialogs); });
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(grid->rowCount(), 1);
}

void AssociationSheet::addRow(QGridLayout &grid, const QString &label, const char *button,
                              const QString &caption, const std::function<void()> &action)
{
    auto *const text = new QLabel(label, this);
    text->setWordWrap(true);
    auto *const push = new QPushButton(caption, this);
    push->setObjectName(QLatin1String(button));
    connect(push, &QPushButton::clicked, this, action);
    const int row = grid.rowCount();
    grid.addWidget(text, row, 0);
    grid.addWidget(push, row, 1);
}

} // namespace ardiphon
