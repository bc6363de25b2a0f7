#pragma once

#include <QString>
#include <QStringList>

#include <filesystem>

namespace ardiphon {

/// The names of the folders in a folder, read a slice at a time: a folder may hold any number of
/// them, and lie on a slow disk. A link to a folder counts as a folder, a hidden folder does not.
class FolderReader
{
public:
    /// A folder that cannot be read counts as empty.
    explicit FolderReader(const QString &folder);

    /// Continues reading for \a milliseconds or a little longer; at least a few hundred entries are
    /// read. True when nothing is left.
    bool readOn(int milliseconds);
    /// What was read so far, in the order of folderNameLess().
    QStringList names() const;

private:
    void take();

    std::filesystem::directory_iterator m_next;
    QStringList m_names;
};

/// Whether the folder \a left comes before \a right: by the letters, and by their case only where
/// the letters are the same.
bool folderNameLess(const QString &left, const QString &right);

} // namespace ardiphon
