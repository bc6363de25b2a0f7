#include "app/ui/OkRow.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>

namespace ardiphon {

QHBoxLayout *newOkRow(QDialog &window)
{
    auto *const Command1 = new QPushButton(QStringLiteral("&OK"), &window);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    QObject::connect(Command1, &QPushButton::clicked, &window, &QWidget::close);

    auto *const row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(Command1);
    return row;
}

} // namespace ardiphon
