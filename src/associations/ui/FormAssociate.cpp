#include "associations/ui/FormAssociate.h"

#include "app/modRegistry.h"
#include "associations/CsoundFiles.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace ardiphon {

FormAssociate::FormAssociate(SettingsStore &store, Dialogs &dialogs, QWidget *owner)
    : QDialog(owner), m_store(store), m_dialogs(dialogs), m_buttons(new QHBoxLayout)
{
    setObjectName(QStringLiteral("FormAssociate"));
    setWindowTitle(QStringLiteral("ArdiphonPro - CSound Files Association"));
    setModal(true);
    auto *const rows = new QVBoxLayout(this);
    rows->setContentsMargins(24, 20, 24, 16);
    rows->setSpacing(10);
    QLabel *const question =
        addLabel(QStringLiteral("Label1"),
                 QStringLiteral("Would you like to associate CSound files to ArdiphonPro?"));
    QFont bold = question->font();
    bold.setBold(true);
    question->setFont(bold);
    addLabel(QStringLiteral("Label2"),
             QStringLiteral("Note: You can associate/disassociate files later from "
                            "Menu->File->Settings!"));

    m_buttons->addStretch();
    QPushButton *const Command2 = addButton(QStringLiteral("Command2"), QStringLiteral("&Yes"));
    QPushButton *const Command1 = addButton(QStringLiteral("Command1"), QStringLiteral("&No"));
    Command2->setDefault(true);
    connect(Command2, &QPushButton::clicked, this, &FormAssociate::associate);
    connect(Command1, &QPushButton::clicked, this, [this] {
        keepAnswer();
        close();
    });
    rows->addSpacing(8);
    rows->addLayout(m_buttons);
    rows->setSizeConstraint(QLayout::SetFixedSize);
}

QLabel *FormAssociate::addLabel(const QString &name, const QString &text)
{
    auto *const label = new QLabel(text, this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    layout()->addWidget(label);
    return label;
}

QPushButton *FormAssociate::addButton(const QString &name, const QString &caption)
{
    auto *const button = new QPushButton(caption, this);
    button->setObjectName(name);
    m_buttons->addWidget(button);
    return button;
}

/// After a failed association the question will be asked again.
void FormAssociate::associate()
{
    if (associateFiles(m_dialogs, [this] { keepAnswer(); }))
        close();
}

void FormAssociate::keepAnswer()
{
    WriteRegistryString(m_store, registry::InstallPathKey, QStringLiteral("First"),
                        QStringLiteral("0"));
}

} // namespace ardiphon
