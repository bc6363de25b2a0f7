#pragma once

#include "app/DocumentRole.h"
#include "language/DocumentText.h"
#include "workbench/FileStamp.h"

#include <QString>

namespace ardiphon {

/// The name of a document without a file.
inline const QString Untitled = QStringLiteral("[Untitled]");

/// Whether \a name is that of a document that has no file yet.
bool isUntitled(const QString &name);

/// What a save would overwrite under a document's name.
enum class SaveConflict {
    None,
    ChangedFile, ///< the document's own file, changed by another program since
    AnotherFile  ///< a file that was there before the document had this name
};

/// What is known of one document besides its text: its role, its name, how its bytes are read and
/// written, and its file as it was when it was last read or written here. It is a value: loading,
/// saving and renaming give a new one.
class Document
{
public:
    /// A document without a name.
    explicit Document(DocumentRole role) : m_role(role) {}

    /// The document of \a path, whose text has just been read from there in \a form; also where the
    /// file could not be read or does not exist.
    [[nodiscard]] static Document loaded(DocumentRole role, const QString &path,
                                         const DocumentForm &form);
    /// This document when its text has just been written to \a path in \a form.
    [[nodiscard]] Document saved(const QString &path, const DocumentForm &form) const;
    /// This document under a name whose file, if there is one, it has neither read nor written.
    [[nodiscard]] Document renamed(const QString &name) const;
    /// This document when the user has agreed to lose the file of its name: there is no conflict
    /// with that file any more.
    [[nodiscard]] Document withFileGivenUp() const;

    DocumentRole role() const { return m_role; }
    /// A path, the marker of a document without a file, or "" where none has been given yet.
    const QString &name() const { return m_name; }
    /// Whether the name is a path. There need not be a file yet.
    bool hasFile() const;
    const DocumentForm &form() const { return m_form; }
    const FileStamp &stamp() const { return m_stamp; }
    /// What a save would overwrite now; looks at the disk.
    SaveConflict conflict() const;

    friend bool operator==(const Document &, const Document &) = default;

private:
    DocumentRole m_role;
    QString m_name;
    DocumentForm m_form;
    FileStamp m_stamp;
    bool m_isOverAnother = false; ///< a file may have had this name before the document
};

} // namespace ardiphon
