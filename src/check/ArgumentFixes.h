#pragma once

#include "check/Problem.h"
#include "typing/Signature.h"

namespace ardiphon {

/// Changes that give a statement as many outputs and inputs as the forms of its opcode want, at
/// most \a most: what is missing gets the names that the form has for it, what is too much is left
/// out. \a line is the bytes of the line, which is code from its beginning, and \a opcode the place
/// of the opcode's name in it. None for a call within an expression, and for a form that fits in
/// number.
QList<ProblemFix> argumentFixes(QByteArrayView line, const PiecePlace &opcode,
                                const QList<Signature> &forms, int most);

} // namespace ardiphon
