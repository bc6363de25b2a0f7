#pragma once

#include <QGroupBox>

class QCheckBox;
class QComboBox;

namespace ardiphon {

struct ConfigurationBlock;

/// The settings' sheet of what happens at the start and the end, and of the wheel and the indent.
class GeneralSheet : public QGroupBox
{
    Q_OBJECT

public:
    GeneralSheet(ConfigurationBlock &config, QWidget *parent);

    /// Writes what the sheet shows into the configuration.
    void take();
    /// Whether the sheet shows the indent as on.
    bool autoIndent() const;

private:
    struct StartupOption;
    static const StartupOption startupOptions[];

    void layOut();
    void showSettings();

    ConfigurationBlock &m_config;
    QCheckBox *const CheckToolsPreferences;
    QComboBox *const ComboWheel;
    QCheckBox *const CheckAutoIndent;
};

} // namespace ardiphon
