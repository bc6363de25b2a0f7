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

} // namespace ardiphon
