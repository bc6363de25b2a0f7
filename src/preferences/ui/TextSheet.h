#pragma once

#include <QGroupBox>

class QLineEdit;

namespace ardiphon {

class Dialogs;
struct ConfigurationBlock;

/// The settings' sheet of the tab size and of the font that windows opened later begin with.
class TextSheet : public QGroupBox
{
    Q_OBJECT

public:
    TextSheet(ConfigurationBlock &config, Dialogs &dialogs, QWidget *parent);

    /// Puts both sizes into the configuration. False when one is no size: a box has said so then,
    /// its field shows the setting again, and the configuration is as it was.
    bool take();

private:
    void layOut();
    QLineEdit *newEdit(const char *name, const QString &text);
    bool check(QLineEdit &edit, int lowest, int highest, const QString &message,
               const QString &setting);
    void showDefaultSizes();
    void chooseFont();

    ConfigurationBlock &m_config;
    Dialogs &m_dialogs;
    QLineEdit *const textTabSize;
    QLineEdit *const textFontSize;
    QLineEdit *const textFontName;
};

} // namespace ardiphon
