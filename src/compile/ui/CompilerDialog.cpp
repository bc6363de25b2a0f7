#include "compile/ui/CompilerDialog.h"

#include "app/ConfigurationBlock.h"
#include "app/ui/PathField.h"
#include "compile/ui/FlagCombo.h"
#include "compile/ui/FlagList.h"
#include "platform/Dialogs.h"

#include <QBoxLayout>
#include <QDir>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedLayout>

namespace ardiphon {

CompilerDialog::CompilerDialog(const CompilerDialogKind &kind, const CompileContext &context)
    : QDialog(context.owner),
      m_kind(kind),
      m_config(context.config),
      m_dialogs(context.dialogs),
      SavedCompilerPath(compilerPath()),
      m_pages(new QStackedLayout(this)),
      m_form(new QWidget(this))
{
    setObjectName(kind.name);
    setWindowTitle(kind.title);
    layOut();
    CercaCsound = newButton("CercaCsound", QStringLiteral("&Browse"));
    dir_Csound = addField("dir_Csound", kind.pathLabel, compilerPath(), CercaCsound);
    dir_Csound->setReadOnly(true);
    connect(CercaCsound, &QPushButton::clicked, this, &CompilerDialog::browse);
    connect(Compila, &QPushButton::clicked, this, &CompilerDialog::compile);
    connect(Command1, &QPushButton::clicked, this, &QWidget::close);
    Compila->setFocus();
}

void CompilerDialog::takeSize(int firstWidth)
{
    setFixedHeight(sizeHint().height());
    resize(firstWidth, height());
}

void CompilerDialog::layOut()
{
    Compila = newButton("Compila", m_kind.compileCaption);
    Command1 = newButton("Command1", QStringLiteral("E&xit"));
    m_fields = new QGridLayout;
    m_fields->setColumnStretch(1, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(Compila);
    buttons->addStretch();
    buttons->addWidget(Command1);
    m_parts = new QVBoxLayout(m_form);
    m_parts->addLayout(m_fields);
    m_parts->addLayout(buttons);
    m_pages->addWidget(m_form);
}

QPushButton *CompilerDialog::newButton(const char *name, const QString &caption)
{
    auto *button = new QPushButton(caption, m_form);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

QLineEdit *CompilerDialog::addField(const char *name, const QString &label, const QString &text,
                                    QWidget *beside)
{
    auto *field = new PathField(m_form);
    field->setObjectName(QLatin1String(name));
    field->setText(text);
    addRow(label, field, beside);
    return field;
}

void CompilerDialog::addRow(const QString &label, QWidget *control, QWidget *beside)
{
    const int row = m_fields->rowCount();
    auto *words = new QLabel(label, m_form);
    words->setBuddy(control);
    m_fields->addWidget(words, row, 0);
    m_fields->addWidget(control, row, 1, 1, beside ? 1 : 2);
    if (beside) {
        m_fields->addWidget(beside, row, 2);
        setTabOrder(control, beside);
    }
}

void CompilerDialog::addFlags(const FlagList &flags)
{
    addRow(QStringLiteral("Flags:"), flags.Flags, nullptr);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(flags.add);
    buttons->addWidget(flags.remove);
    buttons->addStretch();
    buttons->addWidget(flags.help);
    m_fields->addLayout(buttons, m_fields->rowCount(), 1, 1, 2);
}

void CompilerDialog::addPart(QWidget *part)
{
    m_parts->insertWidget(m_parts->count() - 1, part, 1);
}

void CompilerDialog::browse()
{
    const auto path =
        m_dialogs.openFile({m_kind.browseTitle, m_kind.browseFilter, QDir::currentPath()});
    if (!path)
        return;
    m_config.*m_kind.path = *path;
    dir_Csound->setText(*path);
}

bool CompilerDialog::isEnter(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

void CompilerDialog::keyPressEvent(QKeyEvent *event)
{
    if (!isEnter(*event))
        return QDialog::keyPressEvent(event);
    if (auto *button = qobject_cast<QPushButton *>(focusWidget()))
        button->click();
}

} // namespace ardiphon
