#pragma once

#include "piece/Piece.h"

#include <QList>

namespace ardiphon {

/// A row of the outline.
struct OutlineRow
{
    LandmarkKind kind = LandmarkKind::SectionBegin;
    QString name; ///< as it is shown, for example "instr 3, Bell"
    QString note; ///< a comment or a signature, or ""
    PiecePlace place;
    int level = 0;     ///< 0 for a section of the piece, 1 for what is in it
    QString file = {}; ///< the included file that \a place is in, by its path; "" for the piece
    QString included =
        {}; ///< the file that it includes, by its path; "" for none, or not looked for

    friend bool operator==(const OutlineRow &, const OutlineRow &) = default;
};

struct Outline
{
    QList<OutlineRow> rows; ///< in the order of the text, the orchestra's before the score's
    bool isWhole = true;    ///< false where there are more rows than were asked for
};

/// What a piece is made of: its sections, instruments, opcodes, types, macros, tables, included
/// files, sections of the score, and comments that are titles. At most \a mostRows.
Outline outlineOf(const Piece &piece, int mostRows);

/// The row of \a outline that \a line of that text is in: the last one at or above it. -1 for none.
int outlineRowAt(const Outline &outline, DocumentRole role, int line);

/// Whether all letters of \a typed are in \a name in their order, without regard to capitals and
/// with blanks left out: "fmb" is in "fm bell". Nothing typed is in every name.
bool hasLettersInOrder(QStringView name, QStringView typed);

} // namespace ardiphon
