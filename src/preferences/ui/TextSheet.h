#pragma once

#include <QGroupBox>

class QLineEdit;

namespace ardiphon {

class Dialogs;
struct ConfigurationBlock;

/// The settings' sheet of the tab size and of the font with which windows opened later begin.
class TextSheet : public QGroupBox
{
    Q_OBJECT

public:
    TextSheet(ConfigurationBlock &config, Dialogs &dialogs, QWidget *parent);

    /// Writes both sizes into the configuration. False when one is not a valid size: then a message
    /// has said so, its field shows the setting again, and the configuration is as it was.
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
