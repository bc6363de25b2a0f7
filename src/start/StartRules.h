#pragma once

#include "app/DocumentRole.h"
#include "app/EditorWindows.h"

#include <QString>

namespace ardiphon {

struct ConfigurationBlock;

/// What a document is, by the last three characters of its path in whatever case; no dot is looked
/// for, and what is neither an orchestra nor a score is a CSD.
DocumentRole roleOfPath(const QString &path);

/// \a path made absolute against the current directory, its spelling left alone. "." and ".." go
/// where the path means the same file without them.
QString LongPathName(const QString &path);

/// The path that the text of a command line means: the whole text is one path. Quotes around it
/// are taken off, unless a file has just that name, quotes and all.
QString pathOfCommandText(const QString &commandText);

/// Names the document at \a path in \a config, only the field that fits, and tells the window that
/// opens it.
StartWindow nameDocument(ConfigurationBlock &config, const QString &path);

/// Names what the start opens in \a config and tells its window: the file of the command line, or
/// an empty document by `StartupAction`, or else the chooser. That file's folder becomes the
/// current directory, wherever a file manager started the program.
StartWindow decideStart(ConfigurationBlock &config, const QString &commandText);

} // namespace ardiphon
