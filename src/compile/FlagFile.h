#pragma once

#include "platform/Result.h"

#include <QString>
#include <QStringList>

namespace ardiphon {

/// How a file of flags lays out its records of 50 bytes.
enum class FlagLayout {
    Tagged, ///< a type word, 8, and a length word, both little-endian, then up to 46 bytes of text
    Padded  ///< the text, cut at 50 bytes and filled up with blanks
};

/// The flags in the file at \a path, in their order and without blanks at their ends. A tagged
/// record that is empty, or no text, is left out; a padded one is not. A failure when there is no
/// such file, or it cannot be read.
Result<QStringList> readFlagFile(const QString &path, FlagLayout layout);

/// Makes the file hold \a flags; without any, there is no file. A flag that is too long for a
/// tagged record leaves that record empty. A file that holds just these flags is left alone. A
/// failure leaves the file as it was.
Result<> writeFlagFile(const QString &path, FlagLayout layout, const QStringList &flags);

} // namespace ardiphon
