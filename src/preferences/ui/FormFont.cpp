#include "preferences/ui/FormFont.h"

#include "app/ConfigurationBlock.h"
#include "platform/Dialogs.h"
#include "preferences/ui/FontList.h"
#include "preferences/ui/FontSample.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace ardiphon {

FormFont::FormFont(ConfigurationBlock &config, Dialogs &dialogs, QWidget *owner)
    : QDialog(owner),
      m_config(config),
      m_dialogs(dialogs),
      List1(new FontList(this)),
      Text1(new FontSample(this)),
      lblActual(new QLabel(config.FontName, this)),
      lblDefault(new QLabel(u' ' + config.DefaultFontName + u' ', this)),
      lblEsempio(new QLabel(QStringLiteral("Example:"), this))
{
    setObjectName(QStringLiteral("FormFont"));
    setWindowTitle(QStringLiteral("Select font"));
    setModal(true);
    layOut();
    List1->select(m_config.FontName);
    showExample(m_config.FontName);
    connect(List1, &FontList::chosen, this, &FormFont::showExample);
}

void FormFont::layOut()
{
    List1->setObjectName(QStringLiteral("List1"));
    Text1->setObjectName(QStringLiteral("Text1"));
    lblActual->setObjectName(QStringLiteral("lblActual"));
    lblDefault->setObjectName(QStringLiteral("lblDefault"));
    lblEsempio->setObjectName(QStringLiteral("lblEsempio"));
    for (QLabel *label : {lblActual, lblDefault, lblEsempio})
        label->setTextFormat(Qt::PlainText);

    auto *const names = new QVBoxLayout;
    names->addWidget(new QLabel(QStringLiteral("Current Font:"), this));
    names->addWidget(lblActual);
    names->addSpacing(12);
    names->addWidget(new QLabel(QStringLiteral("Default Font:"), this));
    names->addWidget(lblDefault);
    names->addStretch();
    const auto button = [this, names](const char *name, const char *caption, auto handler) {
        auto *const made = new QPushButton(QLatin1String(caption), this);
        made->setObjectName(QLatin1String(name));
        connect(made, &QPushButton::clicked, this, handler);
        names->addWidget(made);
        return made;
    };
    button("Command1", "&Apply and Exit", &FormFont::apply)->setDefault(true);
    button("Command3", "&Restore Default Font", &FormFont::restoreDefault);
    button("Command2", "&Cancel", &QWidget::close);

    auto *const upper = new QHBoxLayout;
    upper->addWidget(List1, 1);
    upper->addLayout(names);
    auto *const all = new QVBoxLayout(this);
    all->addLayout(upper);
    all->addWidget(lblEsempio);
    all->addWidget(Text1);
    resize(480, 460);
}

void FormFont::showExample(const QString &name)
{
    Text1->showIn(name);
    lblEsempio->setText(QStringLiteral("Example (") + name + QStringLiteral("):"));
}

void FormFont::apply()
{
    const QString name = List1->selectedName();
    if (name.isEmpty()) {
        m_dialogs.message(
            {QStringLiteral("No font selected!"), ProgramTitle, MessageIcon::Information});
        return;
    }
    m_config.FontName = name;
    close();
}

/// The default font changes, the font of the editors does not.
void FormFont::restoreDefault()
{
    m_config.DefaultFontName = UsualFontName;
    List1->select(UsualFontName);
    showExample(UsualFontName);
}

} // namespace ardiphon
