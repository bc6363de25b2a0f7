#pragma once

#include "app/DocumentRole.h"
#include "app/EditorWindows.h"

#include <QString>

namespace ardiphon {

struct ConfigurationBlock;

/// The role of a document, by the last three characters of its path in any case; a dot is not
/// required, and what is neither an orchestra nor a score is a CSD.
DocumentRole roleOfPath(const QString &path);

/// \a path made absolute by the current directory, otherwise unchanged. "." and ".." are removed
/// where the path names the same file without them.
QString LongPathName(const QString &path);

/// The path in the text of a command line: the whole text is one path. Quotes around it are
/// removed, unless a file has exactly that name, with the quotes.
QString pathOfCommandText(const QString &commandText);

/// Writes \a path into the field of its role in \a config, and returns the window that opens it.
StartWindow nameDocument(ConfigurationBlock &config, const QString &path);

/// Writes into \a config what the program opens when it starts, and returns its window: for the
/// file of the command line, else by `StartupAction` for an empty document or the chooser. That
/// file's folder becomes the current directory, wherever a file manager started the program.
StartWindow decideStart(ConfigurationBlock &config, const QString &commandText);

} // namespace ardiphon
