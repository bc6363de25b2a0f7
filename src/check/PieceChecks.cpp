#include "check/PieceChecks.h"

namespace ardiphon {

namespace {

constexpr qsizetype MostOfOneCheck = 100;
constexpr qsizetype FewestListed = 100; ///< opcodes of any compiler

constexpr PieceCheck Checks[] = {
    {"no-instrument", "Notes of instruments that are not there", missingInstruments},
    {"never-played", "Instruments that nothing plays", unplayedInstruments},
    {"p-fields", "Notes with too few or too many p-fields", wrongFieldCounts},
    {"held-note", "Held notes that nothing ends", heldNotes},
    {"no-table", "Tables that nothing makes", missingTables},
    {"before-written", "Values that are read before they are written", unwrittenValues},
    {"unknown-here", "Opcodes that this compiler does not have", opcodesUnknownHere},
    {"unwritten-channel", "Channels that nothing writes", unwrittenChannels},
    {"capitals", "Names in the wrong capitals", wrongCapitals},
};

bool isNameByte(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

} // namespace

std::span<const PieceCheck> pieceChecks() { return Checks; }

QList<Problem> pieceProblems(const Piece &piece, const OpcodeWords &words, const QSet<QString> &off,
                             const QSet<QByteArray> &compilerOpcodes)
{
    QList<Problem> problems;
    const PieceFacts facts = factsOf(piece);
    for (const PieceCheck &check : Checks) {
        const QString word = QString::fromLatin1(check.word);
        if (off.contains(word))
            continue;
        for (Problem &found :
             check.problems({facts, words, compilerOpcodes}).mid(0, MostOfOneCheck)) {
            found.source = word;
            problems.append(found);
        }
    }
    return problems;
}

QSet<QByteArray> opcodesListed(const QByteArray &listing)
{
    QSet<QByteArray> opcodes;
    const QByteArray text = listing.simplified();
    for (const QByteArray &word : text.split(' ')) {
        if (!word.isEmpty() && std::all_of(word.begin(), word.end(), isNameByte))
            opcodes.insert(word);
    }
    return opcodes.size() < FewestListed || !opcodes.contains("oscil") ? QSet<QByteArray>()
                                                                       : opcodes;
}

} // namespace ardiphon
