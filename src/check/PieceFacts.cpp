#include "check/PieceFacts.h"

#include "check/CheckInput.h"

#include <algorithm>

namespace ardiphon {

namespace {

/// Sections that tell a piece of what is not in its orchestra and its score.
void readTags(const Piece &piece, PieceFacts &facts)
{
    const PieceText &text = *piece.orchestra();
    int optionsLine = 0;
    text.visit(1, text.lineCount(), kindsOf(LandmarkKind::SectionBegin, LandmarkKind::SectionEnd),
               [&](PlacedLandmark found) {
                   const QByteArray &name = piece.nameOf(*found.mark);
                   const bool begins = found.mark->kind == LandmarkKind::SectionBegin;
                   if (name == "CsOptions" && begins)
                       optionsLine = found.line;
                   for (int line = optionsLine + 1;
                        name == "CsOptions" && !begins && optionsLine > 0 && line < found.line;
                        ++line)
                       facts.options += text.line(line).toByteArray() + '\n';
                   facts.hasMidiFile |= name.startsWith("CsMidi");
                   return true;
               });
}

/// Whether there is a tag of another program outside of the sections \a orchestra and \a score.
bool hasForeignTag(const PieceText &text, LineRun orchestra, LineRun score)
{
    for (int line = 1; line <= text.lineCount(); ++line) {
        for (const LineRun &known : {orchestra, score}) {
            if (line >= known.first && line <= known.last)
                line = known.last + 1;
        }
        if (line > text.lineCount())
            return false;
        const QByteArrayView tag = text.line(line).trimmed();
        if (tag.startsWith('<') && !tag.startsWith("<Cs") && !tag.startsWith("</"))
            return true;
    }
    return false;
}

bool isMadeElsewhere(const PieceText &text, LineRun lines)
{
    return text.role() == DocumentRole::Csd && lines.first > 1 &&
           text.line(lines.first - 1).toByteArray().contains("bin");
}

} // namespace

QByteArray plainNumber(QByteArrayView written)
{
    bool isNumber = false;
    const int number = written.toByteArray().toInt(&isNumber);
    return isNumber ? QByteArray::number(number) : written.toByteArray();
}

bool OrchestraFacts::callsAny(std::initializer_list<const char *> opcodes) const
{
    return std::any_of(opcodes.begin(), opcodes.end(), [this](const char *opcode) {
        return called.contains(opcode) || macroText.contains(opcode);
    });
}

bool OrchestraFacts::hasMore() const
{
    return hasInclude || callsAny({"compilestr", "compileorc", "compilecsd", "evalstr", "readscore",
                                   "scoreline", "scoreline_i"});
}

PieceFacts factsOf(const Piece &piece)
{
    PieceFacts facts{piece, {}, {}, {}};
    if (piece.orchestra() == nullptr || piece.score() == nullptr)
        return facts;
    const CheckInput input = checkInputOf(piece);
    facts.orchestra = orchestraFacts(piece, *piece.orchestra(), input.orchestra.lines);
    facts.score = scoreFacts(*piece.score(), input.score.lines);
    if (isMadeElsewhere(*piece.score(), input.score.lines)) {
        facts.score = {};
        facts.score.isWhole = false;
    }
    if (input.isUnified)
        readTags(piece, facts);
    facts.hasForeignPart =
        input.isUnified &&
        hasForeignTag(*piece.orchestra(), input.orchestra.lines, input.score.lines);
    return facts;
}

} // namespace ardiphon
