#include "piece/PieceBrackets.h"

#include "piece/CodeTokens.h"
#include "piece/OrchestraWords.h"
#include "piece/PieceSymbol.h"
#include "piece/PieceTags.h"
#include "piece/ScoreStatement.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int LinesOfBrackets = 200;        ///< that are read above and below one
constexpr int MostMarks = 50000;            ///< that are passed on the way to a word
constexpr qsizetype LongestCounted = 65536; ///< bytes of a line

/// A part of a line, in bytes.
struct LinePart
{
    int line = 0;
    int start = 0;
    int length = 0;

    bool touches(int at) const { return at >= start && at <= start + length; }
};

struct BracketSign
{
    LinePart at;
    char sign = 0;
};

bool opens(char sign) { return sign == '(' || sign == '[' || sign == '{'; }

char partnerOf(char sign)
{
    static constexpr QByteArrayView signs = "()[]{}";
    const qsizetype at = signs.indexOf(sign);
    return at < 0 ? '\0' : signs[at % 2 == 0 ? at + 1 : at - 1];
}

bool isTagMark(const Landmark &mark)
{
    return mark.kind == LandmarkKind::SectionBegin || mark.kind == LandmarkKind::SectionEnd;
}

bool isHeadingMark(const Landmark &mark)
{
    return (mark.kind == LandmarkKind::Instrument && mark.detail == 0) ||
           mark.kind == LandmarkKind::Opcode;
}

bool isEndOfBody(const Landmark &mark)
{
    return mark.kind == LandmarkKind::InstrumentEnd || mark.kind == LandmarkKind::OpcodeEnd;
}

class BracketFinder
{
public:
    BracketFinder(const PieceText &text, int line, int column)
        : m_text(text), m_line(line), m_at(byteOfCharacter(text.line(line), column))
    {
    }

    std::optional<PieceBrackets> find()
    {
        const PieceState state = m_text.stateAt(m_line);
        m_section = state.section;
        if (m_section != PieceSection::Orchestra && m_section != PieceSection::Score)
            return std::nullopt;
        if (const auto found = findSign())
            return found;
        if (const auto found = findBlock())
            return found;
        return m_section == PieceSection::Orchestra ? findKeyword(state.code) : std::nullopt;
    }

private:
    QByteArrayView bytes(int line) const
    {
        const QByteArrayView all = m_text.line(line);
        return all.first(std::min(all.size(), LongestCounted));
    }
    PiecePlace place(LinePart part) const
    {
        const QByteArrayView line = m_text.line(part.line);
        const int column = charactersOf(line, part.start);
        return {m_text.role(), part.line, column,
                charactersOf(line, part.start + part.length) - column};
    }
    std::optional<PieceBrackets> pair(LinePart here, LinePart partner) const
    {
        return partner.line == 0 ? std::nullopt
                                 : std::optional(PieceBrackets{place(here), place(partner)});
    }

    // Signs. -------------------------------------------------------------------------------------

    std::optional<PieceBrackets> findSign() const
    {
        const QByteArrayView line = bytes(m_line);
        const auto isSign = [&](qsizetype at) {
            return at >= 0 && at < line.size() && partnerOf(line[at]) != 0;
        };
        if (!isSign(m_at) && !isSign(m_at - 1))
            return std::nullopt;
        const std::vector<BracketSign> signs = signsAround();
        const BracketSign *here = nullptr;
        for (const BracketSign &sign : signs) {
            if (sign.at.line == m_line && sign.at.touches(m_at))
                here = &sign;
        }
        return here ? pair(here->at, partnerAmong(signs, here - signs.data())) : std::nullopt;
    }

    std::vector<BracketSign> signsAround() const
    {
        std::vector<BracketSign> signs;
        const int first = std::max(1, m_line - LinesOfBrackets);
        const int last = std::min(m_text.lineCount(), m_line + LinesOfBrackets);
        CodeState state = m_text.stateAt(first).code;
        for (int line = first; line <= last; ++line) {
            const QByteArrayView text = bytes(line);
            if (m_text.role() == DocumentRole::Csd && pieceTag(text)) {
                if (line > m_line)
                    break;
                signs.clear();
                state = CodeState::Code;
            } else {
                readSigns(line, text, state, signs);
            }
        }
        return signs;
    }

    void readSigns(int line, QByteArrayView text, CodeState &state,
                   std::vector<BracketSign> &signs) const
    {
        const auto add = [&](int at) {
            if (partnerOf(text[at]) != 0)
                signs.push_back({{line, at, 1}, text[at]});
        };
        if (m_section == PieceSection::Orchestra) {
            for (const CodeToken &token : readCodeLine(text, state)) {
                if (token.kind == CodeTokenKind::Symbol)
                    add(token.start);
            }
            return;
        }
        const ScoreStatement statement = readScoreLine(text, state);
        if (statement.letter != 0)
            add(statement.letterAt);
        for (const ScoreRange &field : statement.fields) {
            if (text[field.start] == '"' || field.start == statement.letterAt)
                continue;
            for (int at = field.start; at < field.start + field.length; ++at)
                add(at);
        }
    }

    static LinePart partnerAmong(const std::vector<BracketSign> &signs, qsizetype here)
    {
        const char sign = signs[size_t(here)].sign;
        const int step = opens(sign) ? 1 : -1;
        int depth = 0;
        for (qsizetype at = here; at >= 0 && at < qsizetype(signs.size()); at += step) {
            const BracketSign &each = signs[size_t(at)];
            if (each.sign == sign)
                ++depth;
            else if (each.sign == partnerOf(sign) && --depth == 0)
                return each.at;
        }
        return {};
    }

    // Words of blocks. ---------------------------------------------------------------------------

    static LinePart partOf(PlacedLandmark found)
    {
        return {found.line, int(found.mark->column), found.mark->length};
    }

    std::optional<PieceBrackets> findBlock() const
    {
        PlacedLandmark here;
        m_text.visit(m_line, m_line, [&](PlacedLandmark found) {
            const bool isWord =
                isEndOfBody(*found.mark) || (found.mark->kind >= LandmarkKind::BlockBegin &&
                                             found.mark->detail != quint8(BlockFamily::Comment));
            if (isWord && partOf(found).touches(m_at))
                here = found;
            return true;
        });
        if (!here.mark)
            return std::nullopt;
        if (isEndOfBody(*here.mark))
            return pair(partOf(here), headingAbove(here));
        return pair(partOf(here), partnerOfBlock(here));
    }

    LinePart partnerOfBlock(PlacedLandmark here) const
    {
        const bool isBranch = here.mark->kind >= LandmarkKind::BranchBegin;
        const LandmarkKind begin = isBranch ? LandmarkKind::BranchBegin : LandmarkKind::BlockBegin;
        const LandmarkKind end = isBranch ? LandmarkKind::BranchEnd : LandmarkKind::BlockEnd;
        const bool goesDown = here.mark->kind == begin;
        LinePart partner;
        int depth = here.mark->kind == begin || here.mark->kind == end ? 0 : 1;
        visitFrom(here, goesDown, [&](PlacedLandmark found) {
            const Landmark &mark = *found.mark;
            if (isTagMark(mark) || (!isBranch && isHeadingMark(mark)))
                return false;
            if (mark.detail != here.mark->detail)
                return true;
            if (mark.kind == (goesDown ? begin : end))
                ++depth;
            else if (mark.kind == (goesDown ? end : begin) && --depth == 0)
                partner = partOf(found);
            return partner.line == 0;
        });
        return partner;
    }

    /// From \a here on, itself included, down or up the text.
    void visitFrom(PlacedLandmark here, bool down,
                   const std::function<bool(PlacedLandmark)> &visit) const
    {
        bool isReached = false;
        int passed = 0;
        const auto next = [&](PlacedLandmark found) {
            isReached = isReached || found.mark == here.mark;
            return !isReached || (visit(found) && ++passed < MostMarks);
        };
        if (down)
            m_text.visit(here.line, m_text.lineCount(), next);
        else
            m_text.visitBack(here.line, next);
    }

    /// The word "instr" or "opcode" of the body that ends at \a end.
    LinePart headingAbove(PlacedLandmark end) const
    {
        const bool isInstrument = end.mark->kind == LandmarkKind::InstrumentEnd;
        LinePart heading;
        visitFrom(end, false, [&](PlacedLandmark found) {
            if (isHeadingMark(*found.mark) &&
                (found.mark->kind == LandmarkKind::Instrument) == isInstrument)
                heading = keyword(found.line, isInstrument ? "instr" : "opcode");
            return !isHeadingMark(*found.mark) && !isTagMark(*found.mark) &&
                   (found.mark == end.mark || !isEndOfBody(*found.mark));
        });
        return heading;
    }

    // Words that are no landmarks. ---------------------------------------------------------------

    LinePart keyword(int line, QByteArrayView word) const
    {
        CodeState state = m_text.stateAt(line).code;
        const QByteArrayView text = bytes(line);
        for (const CodeToken &token : readCodeLine(text, state)) {
            if (token.kind == CodeTokenKind::Name && token.in(text) == word)
                return {line, token.start, token.length};
        }
        return {};
    }

    std::optional<PieceBrackets> findKeyword(CodeState state) const
    {
        const QByteArrayView text = bytes(m_line);
        LinePart condition;
        for (const CodeToken &token : readCodeLine(text, state)) {
            const LinePart part{m_line, token.start, token.length};
            const QByteArrayView word = token.in(text);
            if (token.kind != CodeTokenKind::Name)
                continue;
            if (word == "if" || word == "elseif")
                condition = part;
            if (!part.touches(m_at))
                continue;
            if (word == "then" || word == "ithen" || word == "kthen")
                return pair(part, condition);
            if (word == "instr" || word == "opcode")
                return pair(part, endOfBody(word == "instr"));
        }
        return std::nullopt;
    }

    /// Of the body whose heading is on the line; none where another one begins first.
    LinePart endOfBody(bool isInstrument) const
    {
        LinePart end;
        bool isInside = false;
        m_text.visit(m_line, m_text.lineCount(), [&](PlacedLandmark found) {
            const Landmark &mark = *found.mark;
            if (isHeadingMark(mark)) {
                if (isInside || (mark.kind == LandmarkKind::Instrument) != isInstrument)
                    return false;
                isInside = true;
            }
            const LandmarkKind kind =
                isInstrument ? LandmarkKind::InstrumentEnd : LandmarkKind::OpcodeEnd;
            if (isInside && mark.kind == kind)
                end = partOf(found);
            return isInside && end.line == 0 && !isTagMark(mark);
        });
        return end;
    }

    const PieceText &m_text;
    const int m_line;
    const int m_at;
    PieceSection m_section = PieceSection::Outside;
};

} // namespace

std::optional<PieceBrackets> bracketsAt(const PieceText &text, int line, int column)
{
    if (line < 1 || line > text.lineCount())
        return std::nullopt;
    return BracketFinder(text, line, column).find();
}

int lineOfBegin(const PieceText &text, int line, QByteArrayView word)
{
    const auto block = blockWord(word);
    const bool endsInstrument = word == "endin";
    const bool endsBody = endsInstrument || word == "endop";
    if (!isClosingWord(word) || line < 2 || line > text.lineCount())
        return 0;
    int begin = 0;
    int depth = 1;
    int passed = 0;
    text.visitBack(line - 1, [&](PlacedLandmark found) {
        const Landmark &mark = *found.mark;
        if (isTagMark(mark) || isHeadingMark(mark) || (endsBody && isEndOfBody(mark))) {
            if (endsBody && isHeadingMark(mark) &&
                (mark.kind == LandmarkKind::Instrument) == endsInstrument)
                begin = found.line;
            return false;
        }
        if (!endsBody && mark.detail == quint8(block->family)) {
            if (mark.kind == LandmarkKind::BlockEnd)
                ++depth;
            else if (mark.kind == LandmarkKind::BlockBegin && --depth == 0)
                begin = found.line;
        }
        return begin == 0 && ++passed < MostMarks;
    });
    return begin;
}

} // namespace ardiphon
