#include "piece/PieceBodies.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int LongestComment = 2000; ///< lines of one that are looked at

bool isHeading(const Landmark &mark)
{
    return (mark.kind == LandmarkKind::Instrument && mark.detail == 0) ||
           mark.kind == LandmarkKind::Opcode;
}

bool isBodyEnd(const Landmark &mark)
{
    return mark.kind == LandmarkKind::InstrumentEnd || mark.kind == LandmarkKind::OpcodeEnd;
}

constexpr LandmarkKinds Tags = kindsOf(LandmarkKind::SectionBegin, LandmarkKind::SectionEnd);

bool isTag(const Landmark &mark)
{
    return mark.kind == LandmarkKind::SectionBegin || mark.kind == LandmarkKind::SectionEnd;
}

/// The line of the heading above \a line, or of its own; 0 when that line is in no body.
int headingAbove(const PieceText &text, int line)
{
    int heading = 0;
    text.visitBack(line, [&](PlacedLandmark found) {
        if (isHeading(*found.mark))
            heading = found.line;
        return heading == 0 && !isTag(*found.mark) &&
               !(isBodyEnd(*found.mark) && found.line < line);
    });
    return heading;
}

PieceBodyLines bodyOf(const Piece &piece, const PieceText &text, int heading)
{
    PieceBodyLines body;
    body.headingLine = heading;
    body.lines = {heading, text.lineCount()};
    text.visit(heading, text.lineCount(), [&](PlacedLandmark found) {
        const Landmark &mark = *found.mark;
        if (body.names.isEmpty() && isHeading(mark)) {
            body.kind = mark.kind;
        } else if (isHeading(mark) || isTag(mark)) {
            body.lines.last = found.line - 1;
            return false;
        } else if (isBodyEnd(mark)) {
            body.lines.last = found.line;
            return false;
        }
        if (mark.kind == body.kind)
            body.names.append(piece.nameText(mark));
        return true;
    });
    return body;
}

/// Whether there is nothing but a comment on that line, to its end.
bool isCommentLine(const PieceText &piece, int line)
{
    const QByteArrayView text = piece.line(line);
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    const auto first = std::find_if_not(text.begin(), text.end(), isBlank);
    return first != text.end() && *first == ';';
}

class BlockFinder
{
public:
    BlockFinder(const Piece &piece, const PieceText &text, int line)
        : m_piece(piece), m_text(text), m_line(line)
    {
    }

    int lastLine() const
    {
        int last = 0;
        m_text.visit(m_line, m_line, [&](PlacedLandmark found) {
            last = std::max(last, endOf(*found.mark));
            return true;
        });
        last = std::max({last, endOfScoreSection(), last > m_line ? 0 : endOfComment()});
        return last > m_line ? last : 0;
    }

private:
    int endOf(const Landmark &mark) const
    {
        switch (mark.kind) {
        case LandmarkKind::Instrument:
        case LandmarkKind::Opcode:
            return isHeading(mark) ? bodyOf(m_piece, m_text, m_line).lines.last : 0;
        case LandmarkKind::BlockBegin:
            return matching(LandmarkKind::BlockBegin, LandmarkKind::BlockEnd, mark.detail);
        case LandmarkKind::BranchBegin:
            return matching(LandmarkKind::BranchBegin, LandmarkKind::BranchEnd, mark.detail);
        case LandmarkKind::Macro:
            return endOfMacro();
        case LandmarkKind::SectionBegin:
            return endOfSection(mark);
        default:
            return 0;
        }
    }

    /// The line where as many have ended as have begun from here on.
    int matching(LandmarkKind begin, LandmarkKind end, quint8 detail) const
    {
        int depth = 0;
        int last = 0;
        const LandmarkKinds kinds =
            kindsOf(begin, end, LandmarkKind::Instrument, LandmarkKind::Opcode) | Tags;
        m_text.visit(m_line, m_text.lineCount(), kinds, [&](PlacedLandmark found) {
            const Landmark &mark = *found.mark;
            if (mark.detail == detail && mark.kind == begin)
                ++depth;
            else if (mark.detail == detail && mark.kind == end && depth > 0 && --depth == 0)
                last = found.line;
            const bool isOver = isTag(mark) || (begin == LandmarkKind::BlockBegin &&
                                                found.line > m_line && isHeading(mark));
            return last == 0 && !isOver;
        });
        return last;
    }

    int endOfMacro() const
    {
        int last = 0;
        m_text.visit(m_line + 1, m_text.lineCount(), [&](PlacedLandmark found) {
            if (found.mark->kind == LandmarkKind::MacroEnd)
                last = found.line;
            return false;
        });
        return last;
    }

    /// Of a unified file: to the end of the same name, or else before the next tag.
    int endOfSection(const Landmark &tag) const
    {
        int last = m_text.lineCount();
        const bool isWhole = PieceSection(tag.detail) == PieceSection::Outside;
        m_text.visit(m_line + 1, m_text.lineCount(), Tags, [&](PlacedLandmark found) {
            const bool isEnd =
                found.mark->kind == LandmarkKind::SectionEnd && found.mark->name == tag.name;
            if (!isEnd && (isWhole || !isTag(*found.mark)))
                return true;
            last = isEnd ? found.line : found.line - 1;
            return false;
        });
        return last;
    }

    /// Of lines that are comments alone, the first of which this is.
    int endOfComment() const
    {
        if (!isCommentLine(m_text, m_line) || (m_line > 1 && isCommentLine(m_text, m_line - 1)))
            return 0;
        const int bound = std::min(m_text.lineCount(), m_line + LongestComment);
        int last = m_line;
        while (last < bound && isCommentLine(m_text, last + 1))
            ++last;
        return last;
    }

    bool beginsScoreSection() const
    {
        if (m_line == 1)
            return m_text.role() == DocumentRole::Score;
        bool begins = false;
        m_text.visit(m_line - 1, m_line - 1, [&](PlacedLandmark found) {
            const Landmark &mark = *found.mark;
            begins = mark.kind == LandmarkKind::ScoreSection ||
                     (mark.kind == LandmarkKind::SectionBegin &&
                      PieceSection(mark.detail) == PieceSection::Score);
            return !begins;
        });
        return begins;
    }

    int endOfScoreSection() const
    {
        int last = 0;
        if (!beginsScoreSection())
            return 0;
        const LandmarkKinds kinds = kindsOf(LandmarkKind::ScoreSection) | Tags;
        m_text.visit(m_line, m_text.lineCount(), kinds, [&](PlacedLandmark found) {
            if (found.mark->kind == LandmarkKind::ScoreSection)
                last = found.line;
            return last == 0 && !isTag(*found.mark);
        });
        return last;
    }

    const Piece &m_piece;
    const PieceText &m_text;
    const int m_line;
};

/// Where a block may begin because of a landmark: at its line, or below it, as a section of the
/// score does; 0 for none.
int firstLineFrom(PlacedLandmark found)
{
    switch (found.mark->kind) {
    case LandmarkKind::Instrument:
    case LandmarkKind::Opcode:
    case LandmarkKind::BlockBegin:
    case LandmarkKind::BranchBegin:
    case LandmarkKind::Macro:
        return found.line;
    case LandmarkKind::ScoreSection:
        return found.line + 1;
    default:
        return 0;
    }
}

} // namespace

std::optional<PieceBodyLines> bodyAt(const Piece &piece, const PieceText &text, int line)
{
    const int heading = headingAbove(text, line);
    if (heading == 0)
        return std::nullopt;
    const PieceBodyLines body = bodyOf(piece, text, heading);
    return body.lines.contains(line) ? std::optional(body) : std::nullopt;
}

LineRun blockAround(const Piece &piece, const PieceText &text, int line)
{
    LineRun around;
    const auto tryFrom = [&](int first) {
        const int last = lastLineOfBlock(piece, text, first);
        if (first <= line && last >= line)
            around = {first, last};
        return around.isEmpty();
    };
    int comment = line;
    while (comment > 1 && isCommentLine(text, comment) && line - comment < LongestComment)
        --comment;
    if (!tryFrom(line) || (comment < line && !tryFrom(comment + 1)))
        return around;
    text.visitBack(line, [&](PlacedLandmark found) {
        if (found.mark->kind != LandmarkKind::SectionBegin)
            return firstLineFrom(found) == 0 || tryFrom(firstLineFrom(found));
        if (tryFrom(found.line + 1)) // the first section of the score
            tryFrom(found.line);
        return false;
    });
    if (around.isEmpty())
        tryFrom(1);
    return around;
}

QList<LineRun> outerBlocks(const Piece &piece, const PieceText &text)
{
    QList<LineRun> blocks;
    const auto add = [&](int first) {
        const int last = lastLineOfBlock(piece, text, first);
        if (last > first && (blocks.isEmpty() || first > blocks.last().last))
            blocks.append({first, last});
    };
    int next = 1;
    const auto addComments = [&](int end) {
        for (; next < end; ++next) {
            if (isCommentLine(text, next))
                add(next);
        }
    };
    if (text.role() == DocumentRole::Score)
        add(1);
    text.visit(1, text.lineCount(), [&](PlacedLandmark found) {
        addComments(found.line);
        const bool beginsScore = found.mark->kind == LandmarkKind::SectionBegin &&
                                 PieceSection(found.mark->detail) == PieceSection::Score;
        if (const int first = beginsScore ? found.line + 1 : firstLineFrom(found); first > 0)
            add(first);
        return true;
    });
    addComments(text.lineCount());
    return blocks;
}

int lastLineOfBlock(const Piece &piece, const PieceText &text, int line)
{
    return line <= text.lineCount() ? BlockFinder(piece, text, line).lastLine() : 0;
}

} // namespace ardiphon
