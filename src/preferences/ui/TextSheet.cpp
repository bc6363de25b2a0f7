#include "preferences/ui/TextSheet.h"

#include "app/ConfigurationBlock.h"
#include "app/Numbers.h"
#include "platform/Dialogs.h"
#include "preferences/SettingsValues.h"
#include "preferences/ui/FormDefaultFont.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>

namespace ardiphon {

namespace {

constexpr int SizeFieldWidth = 64; // pixels

/// The number that \a setting begins with, in as many digits as it has.
QString numberOf(const QString &setting)
{
    return QString::number(leadingNumber(setting), 'g', QLocale::FloatingPointShortest);
}

} // namespace

TextSheet::TextSheet(ConfigurationBlock &config, Dialogs &dialogs, QWidget *parent)
    : QGroupBox(QStringLiteral("Text"), parent),
      m_config(config),
      m_dialogs(dialogs),
      textTabSize(newEdit("textTabSize", config.TabSize)),
      textFontSize(newEdit("textFontSize", numberOf(config.DefaultFontSize))),
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
    auto *const form = new QFormLayout;
    const auto addRow = [form](const QString &label, QLineEdit *edit, QWidget *beside) {
        auto *const row = new QHBoxLayout;
        row->addWidget(edit);
        row->addWidget(beside);
        if (edit->maximumWidth() == SizeFieldWidth)
            row->addStretch();
        form->addRow(label, row);
        edit->setAccessibleName(label);
    };
    textTabSize->setFixedWidth(SizeFieldWidth);
    textFontSize->setFixedWidth(SizeFieldWidth);
    addRow(QStringLiteral("Tab indent size:"), textTabSize,
           new QLabel(QStringLiteral("(Min 2 - Max 30)"), this));
    // The smallest size is below that of the note; the note's text is fixed.
    addRow(QStringLiteral("Default Font Size:"), textFontSize,
           new QLabel(QStringLiteral("(Min 10 - Max 20)"), this));
    addRow(QStringLiteral("Default Font Name:"), textFontName,
           button("Command6", QStringLiteral("Browse"), [this] { chooseFont(); }));
    auto *const all = new QVBoxLayout(this);
    all->addLayout(form);
    all->addStretch();
    all->addWidget(button("Command5", QStringLiteral("Default"), [this] { showDefaultSizes(); }), 0,
                   Qt::AlignLeft);
}

void TextSheet::showDefaultSizes()
{
    textTabSize->setText(QStringLiteral("8"));
    textFontSize->setText(QStringLiteral("10"));
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
