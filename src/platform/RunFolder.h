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
    /// \a parent: where the folder is made; one whose path has a blank is not used, `/tmp` is then.
    explicit RunFolder(const QString &parent);

    /// With its closing "/"; "" when no folder could be made.
    QString path() const;

private:
    QTemporaryDir m_folder;
};

} // namespace ardiphon
