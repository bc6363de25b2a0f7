#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace ardiphon {

/// Writes files below a folder and remembers the folders that had to be made for them, so that
/// they can be removed again. Paths are relative to the folder. A step that fails is skipped; the
/// first failure is kept.
class MadeFiles
{
public:
    explicit MadeFiles(const QString &folder) : m_folder(folder) {}

    const QString &folder() const { return m_folder; }
    /// The absolute path.
    QString path(const QString &relative) const;

    /// What was made, outer folders before inner ones; "." and ".." can be among them.
    QStringList made;
    bool isMade(const QString &relative) const { return made.contains(relative); }
    /// Counts a file that another program is about to write as made, unless it exists already.
    void noteIfAbsent(const QString &relative);

    void makeFolder(const QString &relative);
    void write(const QString &relative, const QByteArray &bytes);
    void remove(const QString &relative);
    /// Removes the empty folders of `made`.
    void removeEmptyFolders() const;

    /// What failed first, as a sentence; "" when nothing did.
    QString failure() const { return m_failure; }
    /// Counts a failure that another routine has returned; "" is none.
    void note(const QString &failure);

private:
    QString m_folder;
    QString m_failure;
};

} // namespace ardiphon
