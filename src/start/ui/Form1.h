#pragma once

#include "start/StartRules.h"
#include "start/ui/ChooserWindow.h"

#include <array>

namespace ardiphon {

struct ConfigurationBlock;
class ChooserLabel;
class Dialogs;
class SettingsStore;

/// The start window. Loading it starts the program; it stays on the screen, as a chooser, only when
/// nothing else says which document to open.
class Form1 : public ChooserWindow
{
    Q_OBJECT

public:
    Form1(ConfigurationBlock &config, SettingsStore &store, Dialogs &dialogs, EditorWindows windows,
          QWidget *parent = nullptr);

    /// Read the word tables of a folder, and close the file that they keep open. Until they are set
    /// nothing is read or closed.
    std::function<void(const QString &folder)> loadWords = [](const QString &) {};
    std::function<void()> closeWords = [] {};
    /// Show the information about the program, and the question about the file types, over the
    /// given window. Both must be set before Load().
    std::function<void(QWidget *)> showAbout;
    std::function<void(QWidget *)> showAssociate;

    /// Fills the configuration, reads the word tables of \a programFolder, and opens an editor
    /// window or shows the chooser. \a commandText: the command line, taken as one path, or "".
    /// \a rootPath: the private folder of this run, with its closing "/".
    void Load(const QString &commandText, const QString &programFolder, const QString &rootPath);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void setDefaultGeometry();
    void prepareChooser();
    void build();
    QWidget *buildTitle();
    QList<QWidget *> buildSmallPictures();
    QLayout *buildDocuments();
    QLayout *buildFiles();
    QWidget *buildKeyLabel(int number);
    QWidget *buildFileLabel(int index, const QString &caption, Qt::Key key,
                            const std::function<void()> &choice);
    void readFiles();

    void newCsd();
    void newProject();
    void openListed(int index);
    void browse();
    void openFile(const QString &path);
    void openEditor(StartWindow window);
    void leave();

    ConfigurationBlock &m_config;
    SettingsStore &m_store;
    Dialogs &m_dialogs;
    EditorWindows m_windows;
    QRect m_workArea;                           ///< of the screen, in logical pixels
    bool m_isLeaving = false;                   ///< the user ends the program
    std::array<ChooserLabel *, 5> LabelFiles{}; ///< 0 to 3 the recent files, 4 the browse entry
};

} // namespace ardiphon
