#pragma once

#include "start/ui/ChooserWindow.h"

namespace ardiphon {

struct ConfigurationBlock;

/// The chooser for a new document, shown over an editor window. It leaves "NEWCSD", "NEWORCSCO"
/// or, for a cancel, "" in `NewDocumentChoice`.
class FormNew : public ChooserWindow
{
    Q_OBJECT

public:
    FormNew(ConfigurationBlock &config, QWidget *owner);

    /// Shows the chooser over \a owner and waits for the choice.
    static void showModal(ConfigurationBlock &config, QWidget *owner);

private:
    void choose(const QString &choice);

    ConfigurationBlock &m_config;
};

} // namespace ardiphon
