#include "documents/FileChooser.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "platform/Dialogs.h"

#include <QDir>
#include <QFileInfo>

namespace ardiphon {

FileChooser::FileChooser(ProgramContext &program)
    : m_config(program.config), m_dialogs(program.dialogs), m_folder(QDir::currentPath())
{
    if (!m_config.WorkingDirectory.isEmpty())
        returnToWorkingDirectory();
}

std::optional<QString> FileChooser::open(const QString &title, const QString &filter)
{
    auto path = m_dialogs.openFile({title, filter, m_folder});
    follow(path);
    return path;
}

std::optional<QString> FileChooser::save(const QString &title, const QString &filter,
                                         const QString &proposedName)
{
    auto path = m_dialogs.saveFile({title, filter, m_folder, proposedName});
    follow(path);
    return path;
}

void FileChooser::returnToWorkingDirectory() { m_folder = m_config.WorkingDirectory; }

/// The next dialog begins in the folder of \a path, unless that is the working directory.
void FileChooser::follow(const std::optional<QString> &path)
{
    if (!path)
        return;
    const QString folder = QFileInfo(*path).path();
    if (folder != m_config.WorkingDirectory)
        m_folder = folder;
}

} // namespace ardiphon
