#pragma once

#include <QString>
#include <QTemporaryDir>

namespace ardiphon {

/// The private folder of one run of the program: readable by its user alone, under a name that no
/// one can guess, with no blank in its path. It is removed with this object; what an earlier run
/// left because it was killed is removed when the next one begins.
class RunFolder
{
public:
    /// Makes the folder in \a parent, or in \a otherwise where the path of \a parent has a blank or
    /// no folder can be made there.
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

/// Makes the private folder at \a path, the path() of a RunFolder, again if it is missing: a
/// program that removes old files may have removed it. False where it cannot be made, or something
/// that does not belong to this user is in its place.
[[nodiscard]] bool restoreRunFolder(const QString &path);

} // namespace ardiphon
