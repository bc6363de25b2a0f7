#include "preferences/ui/FormDefaultFont.h"

#include "app/ConfigurationBlock.h"
#include "preferences/ui/FontList.h"
#include "preferences/ui/FontSample.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace ardiphon {

FormDefaultFont::FormDefaultFont(ConfigurationBlock &config, QWidget *owner)
    : QDialog(owner),
      m_config(config),
      m_before(config.DefaultFontName),
      List1(new FontList(this)),
      TextFont(new QLineEdit(this)),
      Text1(new FontSample(this))
{
    setObjectName(QStringLiteral("FormDefaultFont"));
    setWindowTitle(QStringLiteral("Default Font"));
    setModal(true);
    layOut();
    List1->select(m_before);
    choose(m_before);
    connect(List1, &FontList::chosen, this, &FormDefaultFont::choose);
}

void FormDefaultFont::layOut()
{
    List1->setObjectName(QStringLiteral("List1"));
    TextFont->setObjectName(QStringLiteral("TextFont"));
    TextFont->setReadOnly(true);
    Text1->setObjectName(QStringLiteral("Text1"));
    auto *const lblEsempio = new QLabel(QStringLiteral("Example:"), this);
    lblEsempio->setObjectName(QStringLiteral("lblEsempio"));

    auto *const buttons = new QHBoxLayout;
    const auto button = [this, buttons](const char *name, const char *caption, auto handler) {
        auto *const made = new QPushButton(QLatin1String(caption), this);
        made->setObjectName(QLatin1String(name));
        connect(made, &QPushButton::clicked, this, handler);
        buttons->addWidget(made);
        return made;
    };
    button("Command1", "&Restore Default", &FormDefaultFont::restoreDefault);
    buttons->addStretch();
    button("Command2", "&OK", &FormDefaultFont::accept)->setDefault(true);
    button("Command3", "&Cancel", &FormDefaultFont::cancel);

    auto *const all = new QVBoxLayout(this);
    all->addWidget(List1, 1);
    all->addWidget(TextFont);
    all->addWidget(lblEsempio);
    all->addWidget(Text1);
    all->addLayout(buttons);
    resize(400, 460);
}

void FormDefaultFont::choose(const QString &name)
{
    m_config.DefaultFontName = name;
    TextFont->setText(name);
    Text1->showIn(name);
}

void FormDefaultFont::restoreDefault()
{
    List1->select(UsualFontName);
    choose(UsualFontName);
}

/// When no entry is selected, a name that is not in the list stays.
void FormDefaultFont::accept()
{
    if (const QString name = List1->selectedName(); !name.isEmpty())
        m_config.DefaultFontName = name;
    QDialog::accept();
}

void FormDefaultFont::cancel()
{
    m_config.DefaultFontName = m_before;
    close();
}

void FormDefaultFont::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape)
        QDialog::keyPressEvent(event);
}

} // namespace ardiphon
