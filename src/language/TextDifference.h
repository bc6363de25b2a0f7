#pragma once

#include "language/TextSearch.h"

#include <QByteArrayView>

namespace ardiphon {

/// Where two texts differ: the stretch of the one and the stretch of the other between their
/// common head and their common tail. Both empty when the texts are alike.
struct TextDifference
{
    TextRange present;
    TextRange wanted;

    bool isNone() const { return present.start == present.end && wanted.start == wanted.end; }
};

/// Compares two UTF-8 texts; any line end equals any other. The stretches begin and end between
/// whole characters and whole line ends.
TextDifference differenceOf(QByteArrayView present, QByteArrayView wanted);

/// The same for a change of which one knows where it ends in \a wanted, as a caret tells. Where a
/// text repeats itself several stretches give the same result; this takes the one that ends there,
/// or the next behind it.
TextDifference differenceOf(QByteArrayView present, QByteArrayView wanted, qsizetype changeEnd);

} // namespace ardiphon
