#pragma once

#include "check/PieceFacts.h"
#include "check/Problem.h"

#include <functional>

namespace ardiphon {

struct OpcodeWords;

/// What a check is given.
struct CheckedFacts
{
    const PieceFacts &facts;
    const OpcodeWords &words;
    const QSet<QByteArray> &compilerOpcodes; ///< empty where they are not known
};

// The checks, one for each function. None says an Error, and none fills in who says it.

/// A note of an instrument that is not there.
QList<Problem> missingInstruments(const CheckedFacts &of);
/// An instrument that nothing plays.
QList<Problem> unplayedInstruments(const CheckedFacts &of);
/// A note with fewer or more p-fields than its instrument reads.
QList<Problem> wrongFieldCounts(const CheckedFacts &of);
/// A held note that nothing ends.
QList<Problem> heldNotes(const CheckedFacts &of);
/// A table that nothing makes.
QList<Problem> missingTables(const CheckedFacts &of);
/// A value that is read before it is written, though the compiler lets it pass.
QList<Problem> unwrittenValues(const CheckedFacts &of);
/// An opcode that the compiler of this computer does not have.
QList<Problem> opcodesUnknownHere(const CheckedFacts &of);
/// A channel that is read and never written.
QList<Problem> unwrittenChannels(const CheckedFacts &of);
/// A name in other capitals than the one that it must mean.
QList<Problem> wrongCapitals(const CheckedFacts &of);

} // namespace ardiphon
