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
    QString missingText; ///< what is said when it has no name to show properties of
    DocumentRole role;

    QString changedLine() const; ///< the first line of its save question
    QString openTitle() const;
    QString openFilter() const;
    QString saveTitle() const;
    QString saveFilter() const;

    /// What its label shows: the whole path of \a fileName, or the marker of an untitled document.
    QString label(const QString &fileName) const;
    /// The same for a narrow label: the beginning of the path and the name of the file. Nothing for
    /// a document without a file, whose label stays as it is.
    static std::optional<QString> shortLabel(const QString &fileName);
};

extern const ProjectHalf OrchestraHalf;
extern const ProjectHalf ScoreHalf;

/// \a path with its last four characters, whatever they are, made into "." and \a extension.
QString pathWithExtension(const QString &path, const QString &extension);

/// \a path with its last three characters made into \a ending.
QString pathWithEnding(const QString &path, const QString &ending);

/// The file at \a path, or else the first one beside it whose name differs from it only in case.
/// Nothing when there is neither; a folder is no file.
std::optional<QString> existingPartner(const QString &path);

/// Whether both paths lead to one file, by the same name, a link or otherwise.
bool isOneFile(const QString &path, const QString &other);

/// The message of a partner that is missing, without its title.
QString missingScoreText(const QString &scorePath);

} // namespace ardiphon
