#pragma once

#include "app/DocumentRole.h"

namespace ardiphon {

/// A place in a text as the editors count: lines from 1, columns in characters from 0.
struct PiecePlace
{
    DocumentRole role = DocumentRole::Csd;
    int line = 1;
    int column = 0;
    int length = 0;

    friend bool operator==(const PiecePlace &, const PiecePlace &) = default;
};

} // namespace ardiphon
