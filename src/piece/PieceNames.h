#pragma once

#include "piece/Piece.h"

#include <QList>

#include <optional>

namespace ardiphon {

/// A name of a piece, where it is defined.
struct PieceName
{
    LandmarkKind kind = LandmarkKind::Variable;
    QString name;
    QString scope; ///< of a variable, a label or a p-field: its body, as "instr 1"; else ""
    PiecePlace place;
    QString file = {}; ///< the included file that it is in, by its path; "" for the piece

    friend bool operator==(const PieceName &, const PieceName &) = default;
};

/// Every name of \a piece in the order of the text, each once in its scope: instruments, opcodes,
/// types, macros, included files, header values, variables, labels, tables, channels, titles. At
/// most \a most.
QList<PieceName> namesOf(const Piece &piece, int most);

/// What a name of that kind is called, as "instrument".
QString kindText(LandmarkKind kind);

/// Where the instrument is defined that has \a name, or that number.
std::optional<PiecePlace> instrumentNamed(const Piece &piece, QByteArrayView name);

} // namespace ardiphon
