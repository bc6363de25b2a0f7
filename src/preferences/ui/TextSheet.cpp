#include "preferences/ui/TextSheet.h"

#include "app/ConfigurationBlock.h"
#include "app/Numbers.h"
#include "platform/Dialogs.h"
#include "preferences/SettingsValues.h"
#include "preferences/ui/FormDefaultFont.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace ardiphon {

namespace {

constexpr int SizeFieldWidth = 64; // pixels

} // namespace

TextSheet::TextSheet(ConfigurationBlock &config, Dialogs &dialogs, QWidget *parent)
    : QGroupBox(QStringLiteral("Text"), parent),
      m_config(config),
      m_dialogs(dialogs),
      textTabSize(newEdit("textTabSize", config.TabSize)),
      textFontSize(newEdit("textFontSize", QString::number(leadingNumber(config.DefaultFontSize)))),
      textFontName(newEdit("textFontName", config.DefaultFontName))
{
    setObjectName(QStringLiteral("FrameText"));
    textFontName->setReadOnly(true);
    layOut();
}

QLineEdit *TextSheet::newEdit(const char *name, const QString &text)
{
    auto *const edit = new QLineEdit(text, this);
    edit->setObjectName(QLatin1String(name));
    return edit;
}

void TextSheet::layOut()
{
    const auto button = [this](const char *name, const QString &caption, auto handler) {
        auto *const made = new QPushButton(caption, this);
        made->setObjectName(QLatin1String(name));
        connect(made, &QPushButton::clicked, this, handler);
        return made;
    };
    auto *const grid = new QGridLayout(this);
    const auto addRow = [this, grid](int line, const QString &label, QLineEdit *edit) {
        grid->addWidget(new QLabel(label, this), line, 0);
        grid->addWidget(edit, line, 1);
        edit->setAccessibleName(label);
    };
    addRow(0, QStringLiteral("Tab indent size:"), textTabSize);
    addRow(1, QStringLiteral("Default Font Size:"), textFontSize);
    addRow(2, QStringLiteral("Default Font Name:"), textFontName);
    textTabSize->setFixedWidth(SizeFieldWidth);
    textFontSize->setFixedWidth(SizeFieldWidth);
    grid->addWidget(new QLabel(QStringLiteral("(Min 2 - Max 30)"), this), 0, 2);
    // The least size is smaller than that; the note is as users of the program know it.
    grid->addWidget(new QLabel(QStringLiteral("(Min 10 - Max 20)"), this), 1, 2);
    grid->addWidget(button("Command6", QStringLiteral("Browse"), [this] { chooseFont(); }), 2, 2,
                    Qt::AlignLeft);
    grid->addWidget(button("Command5", QStringLiteral("Default"),
                           [this] {
                               textTabSize->setText(QStringLiteral("8"));
                               textFontSize->setText(QStringLiteral("10"));
                           }),
                    4, 0, Qt::AlignLeft);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(3, 1);
}

bool TextSheet::check(QLineEdit &edit, int lowest, int highest, const QString &message,
                      const QString &setting)
{
    if (isNumberWithin(edit.text(), lowest, highest))
        return true;
    m_dialogs.message({message, QStringLiteral("ERROR")});
    edit.setText(setting);
    return false;
}

bool TextSheet::take()
{
    if (!check(*textTabSize, 2, 30, QStringLiteral("Tab stop size is invalid!"), m_config.TabSize))
        return false;
    if (!check(*textFontSize, 6, 20, QStringLiteral("Font size is invalid!"),
               m_config.DefaultFontSize))
        return false;
    m_config.DefaultFontSize = textFontSize->text().trimmed();
    m_config.TabSize = textTabSize->text().trimmed();
    return true;
}

void TextSheet::chooseFont()
{
    FormDefaultFont(m_config, window()).exec();
    textFontName->setText(m_config.DefaultFontName);
}

} // namespace ardiphon
