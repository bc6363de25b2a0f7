#pragma once

#include "platform/Dialogs.h"

#include <QString>

#include <optional>

namespace ardiphon {

/// The part of a CSD text between the first opening and the first closing tag of its orchestra (or
/// score), line ends included. Nothing when either tag is missing; case matters. The part is empty
/// when the closing tag is before the opening one.
std::optional<QString> orchestraOfCsd(const QString &csd);
std::optional<QString> scoreOfCsd(const QString &csd);

/// A CSD text around an orchestra and a score, with empty options. Both are inserted as they are;
/// the line ends around them are CR LF.
QString csdText(const QString &orchestra, const QString &score);

/// The name that a conversion proposes for its result: the file name of \a path, without its last
/// four characters, and \a ending. "" for an empty path.
QString proposedName(const QString &path, const QString &ending);

/// The message for a text without the tags of a CSD.
Message conversionError();

} // namespace ardiphon
