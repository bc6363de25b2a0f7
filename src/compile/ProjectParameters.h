#pragma once

#include <QString>

namespace ardiphon {

/// The wave file of an orchestra: its path without the last four characters, whatever they are, and
/// with ".wav"; "" for an orchestra without a path.
QString defaultWaveName(const QString &orchestra);

/// The name that means the audio device in place of a wave file.
inline const QString AudioDevice = QStringLiteral("devaudio");

/// The path to which the compiler writes \a wave: a relative name goes below \a folder. "" stays
/// "".
QString writtenWave(const QString &wave, const QString &folder);

/// Whether \a flags have "-" and \a letter anywhere, or the letter at the end of a group of flags
/// that take no value: "-Wo" has "-o" too.
bool flagsGive(const QString &flags, QChar letter);

/// The texts of a compile dialog's fields.
struct ProjectFields
{
    QString flags;
    QString wave;
    QString orchestra;
    QString score;
};

/// The parameters that compile a project into its wave file. Without flags they begin with a blank.
QString projectParameters(const ProjectFields &fields);
/// The same, with the log going to a file below \a rootPath.
QString loggedProjectParameters(const ProjectFields &fields, const QString &rootPath);
/// The parameters with which a real-time compiler plays a project; the wave field is not used.
QString playedProjectParameters(const ProjectFields &fields);

} // namespace ardiphon
