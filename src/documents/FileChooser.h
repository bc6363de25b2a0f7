#pragma once

#include <QString>

#include <optional>

namespace ardiphon {

struct ConfigurationBlock;
struct ProgramContext;
class Dialogs;

/// The file dialogs of an editor window. They share the folder in which they begin: that of the
/// last chosen file, or the working directory.
class FileChooser
{
public:
    explicit FileChooser(ProgramContext &program);

    /// Each asks for a file and returns its path; nothing when the user cancels.
    std::optional<QString> open(const QString &title, const QString &filter);
    std::optional<QString> save(const QString &title, const QString &filter,
                                const QString &proposedName = {});

    void beginIn(const QString &folder) { m_folder = folder; }
    void returnToWorkingDirectory();

private:
    void follow(const std::optional<QString> &path);

    const ConfigurationBlock &m_config;
    Dialogs &m_dialogs;
    QString m_folder;
};

} // namespace ardiphon
