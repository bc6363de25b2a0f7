#pragma once

#include <QString>

namespace ardiphon {

/// The wave file of an orchestra: its path less the last four characters, whatever they are, and
/// ".wav"; "" for an orchestra without a path.
QString defaultWaveName(const QString &orchestra);

/// What stands for the audio device in the place of a wave file.
inline const QString AudioDevice = QStringLiteral("devaudio");

/// Where the compiler writes \a wave: a relative name goes below \a folder. "" stays "".
QString writtenWave(const QString &wave, const QString &folder);

/// Whether \a flags hold "-" and \a letter anywhere, or the letter at the end of a group of flags
/// that take nothing behind them: "-Wo" gives "-o" as well.
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
/// The parameters with which a real-time compiler plays a project; the wave has no part in it.
QString playedProjectParameters(const ProjectFields &fields);

} // namespace ardiphon
