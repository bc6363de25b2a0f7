#pragma once

#include "piece/PieceBodies.h"
#include "typing/CandidateList.h"
#include "typing/PlaceFit.h"

namespace ardiphon {

/// Adds the names of a piece that can stand at a place: variables in scope, p-fields, opcodes of
/// its own, macros, labels, instruments, tables, channels.
class PieceCandidates
{
public:
    PieceCandidates(const Piece &piece, const CompletionPlace &place, const PlaceFit &fit,
                    CandidateList &found);

    void addVariables();
    void addPFields();
    void addOpcodes();
    void addMacros();
    void addLabels();
    void addScoreMarks();
    void addInstruments();
    void addTables();
    void addChannels();

private:
    const PieceText *placeText() const { return m_piece.text(m_place.role); }
    using Visitor = std::function<void(const PieceText &, PlacedLandmark, const QByteArray &name)>;
    void visitAll(LandmarkKinds kinds, const Visitor &visit) const;
    void addPField(int number, const QString &name, const QString &sentence);
    void addGlobals(const PieceText &text);
    void addVariable(const PieceText &text, PlacedLandmark found);
    void addLabel(const QString &name, const PieceText &text, int line);
    void addInstrument(const PieceText &text, PlacedLandmark found);
    static bool isHeaderName(PlacedLandmark found);
    bool isAtCaret(const PieceText &text, PlacedLandmark found) const;

    const Piece &m_piece;
    const CompletionPlace &m_place;
    const PlaceFit &m_fit;
    CandidateList &m_found;
    std::optional<PieceBodyLines> m_bodyLines; ///< of what the caret is in
    LineRun m_body;                            ///< the same; empty for none
};

} // namespace ardiphon
