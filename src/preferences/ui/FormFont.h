#pragma once

#include <QDialog>

class QLabel;

namespace ardiphon {

class Dialogs;
class FontList;
class FontSample;
struct ConfigurationBlock;

/// Chooses `FontName`, the font that the editors have now.
class FormFont : public QDialog
{
    Q_OBJECT

public:
    FormFont(ConfigurationBlock &config, Dialogs &dialogs, QWidget *owner);

private:
    void layOut();
    void showExample(const QString &name);
    void apply();
    void restoreDefault();

    ConfigurationBlock &m_config;
    Dialogs &m_dialogs;
    FontList *const List1;
    FontSample *const Text1;
    QLabel *const lblActual;
    QLabel *const lblDefault;
    QLabel *const lblEsempio;
};

} // namespace ardiphon
