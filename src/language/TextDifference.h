#pragma once

#include "language/TextSearch.h"

#include <QByteArrayView>

namespace ardiphon {

/// Where two texts differ: the range of each between their common beginning and their common end.
/// Both are empty when the texts are the same.
struct TextDifference
{
    TextRange present;
    TextRange wanted;

    bool isNone() const { return present.start == present.end && wanted.start == wanted.end; }
};

/// Compares two UTF-8 texts; any line end equals any other. The ranges begin and end between whole
/// characters and whole line ends.
TextDifference differenceOf(QByteArrayView present, QByteArrayView wanted);

/// The same for a change that is known to end at \a changeEnd in \a wanted, as where the caret is.
/// Where a text repeats itself several ranges give the same result; this takes the one that ends
/// there, or the next one after it.
TextDifference differenceOf(QByteArrayView present, QByteArrayView wanted, qsizetype changeEnd);

} // namespace ardiphon
