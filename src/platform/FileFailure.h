#pragma once

#include <QString>

namespace ardiphon {

/// Why a file could not be read or written. `Result` carries it to the code that can show it to the
/// user.
struct FileFailure
{
    enum class Kind {
        None,
        DiskFull,
        QuotaUsed,
        SizeLimit, ///< the disk or the user's limit takes no file as large
        NoPermission,
        ReadOnlyDisk,
        NotThere, ///< the file to read, or the folder to write into
        NameTooLong,
        LinksInACircle,
        Folder,
        NoRegularFile, ///< a device, a FIFO or a socket
        TooLarge,      ///< larger than a document may be
        NameNotUtf8,   ///< the name cannot be kept as a text
        NotRead,       ///< it could not be read, so a save would overwrite what nobody has seen
        System         ///< the system's text for `error`
    };

    Kind kind = Kind::None;
    int error = 0;           ///< the system's number
    QString oldContent = {}; ///< a file with the old content that could not be put back

    [[nodiscard]] static FileFailure ofSystem(int error);
    bool isNone() const { return kind == Kind::None; }
    /// Whether there is no room for the bytes.
    bool isLackOfRoom() const;

    friend bool operator==(const FileFailure &, const FileFailure &) = default;
};

/// One sentence each, for the user.
QString notSavedText(const QString &path, const FileFailure &failure);
QString notOpenedText(const QString &path, const FileFailure &failure);
/// The reason alone, as the end of a sentence and without its full stop. \a missing: the words for
/// what is not there, used where something is missing.
QString reasonText(const FileFailure &failure, const QString &missing);

} // namespace ardiphon
