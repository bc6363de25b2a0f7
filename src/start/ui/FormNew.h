#pragma once

#include "start/ui/ChooserWindow.h"

namespace ardiphon {

struct ConfigurationBlock;

/// The chooser for a new document, shown over an editor window. `NewDocumentChoice` mirrors the
/// choice.
class FormNew : public ChooserWindow
{
    Q_OBJECT

public:
    FormNew(ConfigurationBlock &config, QWidget *owner);

    /// Shows the chooser over \a owner and waits for the choice: "NEWCSD", "NEWORCSCO" or, after
    /// Cancel, "".
    static QString choose(ConfigurationBlock &config, QWidget *owner);

private:
    void setChoice(const QString &choice);
    void closeWith(const QString &choice);

    ConfigurationBlock &m_config;
    QString m_choice;
};

} // namespace ardiphon
