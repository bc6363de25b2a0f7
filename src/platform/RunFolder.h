#pragma once

#include <QString>
#include <QTemporaryDir>

namespace ardiphon {

/// The private folder of one run of the program: readable by its user alone, under a name that no
/// one can guess, with no blank in its path. It goes with this object; what an earlier run left
/// behind because it was killed goes when the next one begins.
class RunFolder
{
public:
    /// \a parent: where the folder is made. Where it has a blank in its path or takes no folder,
    /// \a otherwise is used.
    explicit RunFolder(const QString &parent, const QString &otherwise = QStringLiteral("/tmp"));

    ~RunFolder();

    /// With its closing "/". When no folder could be made it is one that does not exist and can
    /// never exist, so that nothing is ever written or removed by a relative name.
    QString path() const;

private:
    QTemporaryDir m_folder;
};

/// A folder, with its closing "/", that does not exist and can never exist, nor anything below it.
QString impossibleFolder();

/// Sees to it that the private folder at \a path, as a RunFolder named it, is there: those who
/// clear away old files may have taken it. False where it cannot be made, or something that is not
/// this user's own stands in its place.
[[nodiscard]] bool restoreRunFolder(const QString &path);

} // namespace ardiphon
