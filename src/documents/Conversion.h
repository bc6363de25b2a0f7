#pragma once

#include "platform/Dialogs.h"

#include <QString>

#include <optional>

namespace ardiphon {

/// What a CSD text holds between the first opening and the first closing tag of its orchestra (or
/// score), line ends included. Nothing when either tag is missing with exactly these letters. A
/// closing tag that stands before the opening one leaves an empty part.
std::optional<QString> orchestraOfCsd(const QString &csd);
std::optional<QString> scoreOfCsd(const QString &csd);

/// A CSD text around an orchestra and a score, with empty options. The two are joined in as they
/// stand; the line ends around them are CR LF.
QString csdText(const QString &orchestra, const QString &score);

/// The name that a conversion proposes for its result: the file name of \a path, less its last four
/// characters, and \a ending. "" for an empty path.
QString proposedName(const QString &path, const QString &ending);

/// What is said where a text has not the tags of a CSD.
Message conversionError();

} // namespace ardiphon
