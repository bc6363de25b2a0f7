#pragma once

#include "platform/Result.h"

#include <QString>
#include <QStringList>

namespace ardiphon {

/// How a file of flags lays out its records of 50 bytes.
enum class FlagLayout {
    Tagged, ///< a type word, 8, and a length word, both little-endian, then up to 46 bytes of text
    Padded  ///< the text, cut at 50 bytes or padded with blanks
};

/// The flags in the file at \a path, in their order and without blanks at their ends. A tagged
/// record that is empty or not a text is left out; a padded one is not. A failure when there is no
/// such file, or it cannot be read.
Result<QStringList> readFlagFile(const QString &path, FlagLayout layout);

/// Writes \a flags to the file; without any flags the file is removed. A flag that is too long for
/// a tagged record leaves that record empty. A file that has exactly these flags is left as it is.
/// A failure leaves the file as it was.
Result<> writeFlagFile(const QString &path, FlagLayout layout, const QStringList &flags);

} // namespace ardiphon
