#pragma once

#include <QDialog>

class QLineEdit;

namespace ardiphon {

class FolderTree;
struct ConfigurationBlock;

/// Chooses the working directory by moving through the folders: the folder that is shown is the
/// choice, however the window is closed.
class FormDirectory : public QDialog
{
    Q_OBJECT

public:
    /// An empty `WorkingDirectory` becomes the root at once.
    FormDirectory(ConfigurationBlock &config, QWidget *owner);

private:
    void layOut();

    ConfigurationBlock &m_config;
    FolderTree *const Dir1;
    QLineEdit *const Text1;
};

} // namespace ardiphon
