#pragma once

#include "app/DocumentRole.h"
#include "workbench/Document.h"

#include <QString>

#include <optional>

namespace ardiphon {

/// One of the two documents of a project, and the texts that name it.
struct ProjectHalf
{
    QString name;        ///< "Orchestra" or "Score"
    QString extension;   ///< "orc" or "sco"
    QString missingText; ///< the message when properties are asked for and it has no name
    DocumentRole role;

    QString changedLine() const; ///< the first line of its save question
    QString openTitle() const;
    QString openFilter() const;
    QString saveTitle() const;
    QString saveFilter() const;

    /// The text of its label: the whole path of \a fileName, or the marker of an untitled document.
    QString label(const QString &fileName) const;
    /// The same for a narrow label: the beginning of the path and the name of the file. Nothing for
    /// a document without a file, whose label stays as it is.
    static std::optional<QString> shortLabel(const QString &fileName);
};

extern const ProjectHalf OrchestraHalf;
extern const ProjectHalf ScoreHalf;

/// \a path with its last four characters, whatever they are, replaced by "." and \a extension.
QString pathWithExtension(const QString &path, const QString &extension);

/// \a path with its last three characters replaced by \a ending.
QString pathWithEnding(const QString &path, const QString &ending);

/// The file at \a path, or else the first one beside it whose name differs from it only in case.
/// Nothing when there is neither; a folder does not count.
std::optional<QString> existingPartner(const QString &path);

/// Whether both paths name the same file, by the same name, by a link or otherwise.
bool isOneFile(const QString &path, const QString &other);

/// The message for a missing partner, without its title.
QString missingScoreText(const QString &scorePath);

} // namespace ardiphon
