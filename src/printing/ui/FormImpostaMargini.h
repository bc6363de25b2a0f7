#pragma once

#include <QDialog>

#include <array>

class QLineEdit;

namespace ardiphon {

class Dialogs;
struct ConfigurationBlock;

/// The four print margins, in whole millimetres.
class FormImpostaMargini : public QDialog
{
    Q_OBJECT

public:
    FormImpostaMargini(ConfigurationBlock &config, Dialogs &dialogs, QWidget *owner);

protected:
    /// Reverts what "Default" has changed.
    void reject() override;

private:
    struct Margin
    {
        long ConfigurationBlock::*value;
        const char *message; ///< for a field without a valid margin
        long before;         ///< the value at the load
        QLineEdit *field;
    };

    QWidget *newFrame();
    QWidget *newButtons();
    void showMargins();
    void takeMargins();
    void setDefaults();
    /// Whether every field has a valid margin; each one that does not is reported.
    bool checkFields();

    ConfigurationBlock &m_config;
    Dialogs &m_dialogs;
    std::array<Margin, 4> m_margins; ///< left, right, top, bottom
};

} // namespace ardiphon
