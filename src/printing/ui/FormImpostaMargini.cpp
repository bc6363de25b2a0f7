#include "printing/ui/FormImpostaMargini.h"

#include "app/ConfigurationBlock.h"
#include "app/Numbers.h"
#include "platform/Dialogs.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace ardiphon {

namespace {

constexpr int Smallest = 0; // millimetres
constexpr int Largest = 100;
constexpr long DefaultMargin = 10;

struct Field
{
    const char *name;
    const char *caption;
};
constexpr Field fields[] = {
    {"txtSinistro", "Left:"},
    {"txtDestro", "Right:"},
    {"txtSuperiore", "Top:"},
    {"txtInferiore", "Bottom:"},
};

} // namespace

FormImpostaMargini::FormImpostaMargini(ConfigurationBlock &config, Dialogs &dialogs, QWidget *owner)
    : QDialog(owner),
      m_config(config),
      m_dialogs(dialogs),
      m_margins{{
          {&ConfigurationBlock::MarginLeft, "Invalid left margin!", config.MarginLeft, nullptr},
          {&ConfigurationBlock::MarginRight, "Invalid right margin!", config.MarginRight, nullptr},
          {&ConfigurationBlock::MarginTop, "Invalid top margin!", config.MarginTop, nullptr},
          {&ConfigurationBlock::MarginBottom, "Invalid bottom margin!", config.MarginBottom,
           nullptr},
      }}
{
    setObjectName(QStringLiteral("FormImpostaMargini"));
    setWindowTitle(QStringLiteral("Print margins"));
    setModal(true);
    auto *const all = new QVBoxLayout(this);
    all->addWidget(newFrame());
    all->addWidget(newButtons());
    all->setSizeConstraint(QLayout::SetFixedSize);
    showMargins();
    m_margins.front().field->setFocus();
}

QWidget *FormImpostaMargini::newFrame()
{
    auto *const frame =
        new QGroupBox(QStringLiteral("Set Print Margins (mm - Min 0 / Max 100)"), this);
    frame->setObjectName(QStringLiteral("Frame1"));
    auto *const form = new QFormLayout(frame);
    for (std::size_t i = 0; i < m_margins.size(); ++i) {
        auto *const field = new QLineEdit(frame);
        field->setObjectName(QLatin1String(fields[i].name));
        form->addRow(QLatin1String(fields[i].caption), field);
        m_margins[i].field = field;
    }
    return frame;
}

QWidget *FormImpostaMargini::newButtons()
{
    auto *const row = new QWidget(this);
    auto *const buttons = new QHBoxLayout(row);
    buttons->setContentsMargins({});
    const auto add = [&](const char *name, const char *caption, auto step) {
        auto *const button = new QPushButton(QLatin1String(caption), row);
        button->setObjectName(QLatin1String(name));
        connect(button, &QPushButton::clicked, this, step);
        buttons->addWidget(button);
        return button;
    };
    add("Command1", "&OK", &FormImpostaMargini::takeMargins)->setDefault(true);
    add("Command2", "C&ancel", &FormImpostaMargini::reject);
    buttons->addStretch();
    add("Command3", "&Default", &FormImpostaMargini::setDefaults);
    return row;
}

void FormImpostaMargini::showMargins()
{
    for (const Margin &margin : m_margins)
        margin.field->setText(QString::number(m_config.*margin.value));
}

void FormImpostaMargini::takeMargins()
{
    if (!checkFields())
        return;
    for (const Margin &margin : m_margins)
        m_config.*margin.value =
            roundedWithin(leadingNumber(margin.field->text()), Smallest, Largest);
    accept();
}

void FormImpostaMargini::setDefaults()
{
    for (const Margin &margin : m_margins)
        m_config.*margin.value = DefaultMargin;
    showMargins();
}

bool FormImpostaMargini::checkFields()
{
    bool valid = true;
    const auto check = [&](const Margin &margin, bool passed) {
        if (passed)
            return;
        valid = false;
        m_dialogs.message(
            {QLatin1String(margin.message), QStringLiteral("Errore"), MessageIcon::Exclamation});
    };
    for (const Margin &margin : m_margins)
        check(margin, isNumber(margin.field->text()));
    for (const Margin &margin : m_margins) {
        const double value = leadingNumber(margin.field->text());
        check(margin, value >= Smallest && value <= Largest);
    }
    return valid;
}

void FormImpostaMargini::reject()
{
    for (const Margin &margin : m_margins)
        m_config.*margin.value = margin.before;
    QDialog::reject();
}

} // namespace ardiphon
