#include "preferences/ui/GeneralSheet.h"

#include "app/ConfigurationBlock.h"
#include "app/Numbers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QRadioButton>

namespace ardiphon {

namespace {

constexpr int MostWheelLines = 6;
constexpr int UsualWheelLines = 3;

QLayout *rowOf(QWidget *control, const QString &note)
{
    auto *const row = new QHBoxLayout;
    row->addWidget(control);
    row->addSpacing(6);
    row->addWidget(new QLabel(note));
    row->addStretch();
    return row;
}

} // namespace

struct GeneralSheet::StartupOption
{
    const char *name;
    const char *caption;
    const char *action;
};

const GeneralSheet::StartupOption GeneralSheet::startupOptions[] = {
    {"OptionNewWindow", "Ardiphon startup window", "STARTWINDOW"},
    {"OptionCSD", "New CSD file", "CSD"},
    {"OptionORCSCO", "New ORC/SCO project", "ORCSCO"},
};

GeneralSheet::GeneralSheet(ConfigurationBlock &config, QWidget *parent)
    : QGroupBox(QStringLiteral("General settings"), parent),
      m_config(config),
      CheckToolsPreferences(new QCheckBox(QStringLiteral("Save Tools preferences on Exit"), this)),
      ComboWheel(new QComboBox(this)),
      CheckAutoIndent(new QCheckBox(this))
{
    setObjectName(QStringLiteral("FrameGeneral"));
    CheckToolsPreferences->setObjectName(QStringLiteral("CheckToolsPreferences"));
    ComboWheel->setObjectName(QStringLiteral("ComboWheel"));
    CheckAutoIndent->setObjectName(QStringLiteral("CheckAutoIndent"));
    CheckAutoIndent->setAccessibleName(QStringLiteral("Tab Auto Indent"));
    layOut();
    showSettings();
}

void GeneralSheet::layOut()
{
    auto *const options = new QVBoxLayout;
    for (const StartupOption &option : startupOptions) {
        auto *const button = new QRadioButton(QLatin1String(option.caption), this);
        button->setObjectName(QLatin1String(option.name));
        options->addWidget(button);
    }
    auto *const form = new QFormLayout(this);
    form->setVerticalSpacing(16);
    form->addRow(QStringLiteral("Default startup action:"), options);
    form->addRow(QStringLiteral("Exit action:"), CheckToolsPreferences);
    form->addRow(QStringLiteral("Mouse Wheel Scroll:"),
                 rowOf(ComboWheel, QStringLiteral("Default: 3")));
    form->addRow(QStringLiteral("Tab Auto Indent:"), CheckAutoIndent);
}

void GeneralSheet::showSettings()
{
    CheckToolsPreferences->setChecked(m_config.SaveToolsPreferences != QLatin1String("NO"));
    for (const StartupOption &option : startupOptions)
        if (m_config.StartupAction == QLatin1String(option.action))
            findChild<QRadioButton *>(QLatin1String(option.name))->setChecked(true);
    for (int lines = 1; lines <= MostWheelLines; ++lines)
        ComboWheel->addItem(QString::number(lines));
    const double lines = leadingNumber(m_config.WheelLines);
    const bool known = lines >= 1 && lines <= MostWheelLines;
    ComboWheel->setCurrentIndex(
        (known ? roundedWithin(lines, 1, MostWheelLines) : UsualWheelLines) - 1);
    CheckAutoIndent->setChecked(leadingNumber(m_config.AutoIndent) == 1);
}

void GeneralSheet::take()
{
    m_config.SaveToolsPreferences =
        CheckToolsPreferences->isChecked() ? QStringLiteral("YES") : QStringLiteral("NO");
    for (const StartupOption &option : startupOptions)
        if (findChild<QRadioButton *>(QLatin1String(option.name))->isChecked())
            m_config.StartupAction = QLatin1String(option.action);
    m_config.WheelLines = ComboWheel->currentText();
    m_config.WheelLinesCount = std::uint8_t(m_config.WheelLines.toInt());
    m_config.AutoIndent = autoIndent() ? QStringLiteral("1") : QStringLiteral("0");
}

bool GeneralSheet::autoIndent() const { return CheckAutoIndent->isChecked(); }

} // namespace ardiphon
