#pragma once

#include "piece/PieceBodies.h"

namespace ardiphon {

/// A p-field that an instrument reads.
struct PieceField
{
    int number = 0;
    QString name;     ///< what the piece calls it; "" for nothing
    PiecePlace place; ///< where it is read first

    friend bool operator==(const PieceField &, const PieceField &) = default;
};

/// The p-fields of an instrument.
struct PieceFields
{
    QList<PieceField> fields; ///< by number
    bool readsAny = false;    ///< also fields that nobody can tell by reading, as with pcount

    /// What the piece calls the field of that number; "" for nothing.
    QString nameOf(int number) const;

    friend bool operator==(const PieceFields &, const PieceFields &) = default;
};

/// The p-fields that \a body reads, a body of \a text: p4, p(4), those that passign takes. A field
/// is called as the variable that is given it alone (icps = p5), else as a comment says (; p4
/// pitch): one in the body, or in the lines of comment above its heading. Reads the lines of the
/// body, 20,000 at most.
PieceFields fieldsOf(const PieceText &text, const PieceBodyLines &body);

} // namespace ardiphon
