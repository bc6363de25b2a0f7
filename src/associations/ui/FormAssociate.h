#pragma once

#include <QDialog>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace ardiphon {

class Dialogs;
class SettingsStore;

/// Asks, the first time that the program runs, whether it is to open the Csound files. Either
/// answer is stored, so that the question comes once.
class FormAssociate : public QDialog
{
    Q_OBJECT

public:
    FormAssociate(SettingsStore &store, Dialogs &dialogs, QWidget *owner);

private:
    QLabel *addLabel(const QString &name, const QString &text);
    QPushButton *addButton(const QString &name, const QString &caption);
    void associate();
    void keepAnswer();

    SettingsStore &m_store;
    Dialogs &m_dialogs;
    QHBoxLayout *m_buttons;
};

} // namespace ardiphon
