#pragma once

#include "platform/StartDetached.h"

#include <QString>

namespace ardiphon {

/// The file into which a compiler writes its log. \a rootPath ends in "/" and has no blank.
QString CompileLogFile(const QString &rootPath);

/// The parameters that compile the CSD at \a csdFileName.
QString csdParameters(const QString &csdFileName, const QString &rootPath);

/// The text that a console shows as soon as a run has started.
inline const QString FirstProgressText = QStringLiteral("Compiling");
/// The progress text that follows \a text; \a text itself when it is none.
QString nextProgressText(const QString &text);

/// The text that a console shows after a stop.
inline const QString StoppedText = QStringLiteral("Stopped by user!!!");

/// The block in front of the log of a run that took \a milliseconds: whole seconds, a half rounded
/// to the even neighbour; minutes of 100 and more have three digits.
QString bannerText(qint64 milliseconds);
/// The text between that block and the log.
QString logHeading();

} // namespace ardiphon
