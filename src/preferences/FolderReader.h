#pragma once

#include <QString>
#include <QStringList>

#include <filesystem>

namespace ardiphon {

/// The names of the folders in a folder, read a slice at a time: a folder may hold any number of
/// them, and lie on a slow disk. A link to a folder counts as one, a hidden folder does not.
class FolderReader
{
public:
    /// A folder that cannot be read counts as empty.
    explicit FolderReader(const QString &folder);

    /// Reads on for \a milliseconds or a little longer; a few hundred entries are always read. True
    /// when that was the last of them.
    bool readOn(int milliseconds);
    /// What was read so far, in the order of folderNameLess().
    QStringList names() const;

private:
    void take();

    std::filesystem::directory_iterator m_next;
    QStringList m_names;
};

/// Whether the folder \a left comes before \a right: by the letters, and by the case of them only
/// where they are the same.
bool folderNameLess(const QString &left, const QString &right);

} // namespace ardiphon
