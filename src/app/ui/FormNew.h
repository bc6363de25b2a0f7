#pragma once

#include "app/ui/ChooserWindow.h"

namespace ardiphon {

struct ConfigurationBlock;
struct EditorWindows;

/// The chooser for a new document, shown over an editor window. It leaves "NEWCSD", "NEWORCSCO"
/// or, for a cancel, "" in `NewDocumentChoice`.
class FormNew : public ChooserWindow
{
    Q_OBJECT

public:
    /// \a windows: tells whether projects are offered.
    FormNew(ConfigurationBlock &config, const EditorWindows &windows, QWidget *owner);

    /// Shows the chooser over \a owner and waits for the choice.
    static void showModal(ConfigurationBlock &config, const EditorWindows &windows, QWidget *owner);

private:
    void choose(const QString &choice);

    ConfigurationBlock &m_config;
};

} // namespace ardiphon
