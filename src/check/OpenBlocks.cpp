#include "check/OpenBlocks.h"

#include "check/CodeLines.h"

#include <vector>

namespace ardiphon {

namespace {

bool isBody(LandmarkKind kind)
{
    return kind == LandmarkKind::Instrument || kind == LandmarkKind::Opcode;
}

bool isStatementBlock(const Landmark &mark)
{
    const auto family = BlockFamily(mark.detail);
    return family == BlockFamily::Condition || family == BlockFamily::Loop ||
           family == BlockFamily::Switch;
}

/// What begins and has not ended, the outermost first.
class OpenMarks
{
public:
    void take(PlacedLandmark found)
    {
        const Landmark &mark = *found.mark;
        if (isBody(mark.kind)) {
            if (mark.kind == LandmarkKind::Opcode || mark.detail == 0)
                m_open.push_back({found.line, mark});
        } else if (mark.kind == LandmarkKind::BlockBegin && isStatementBlock(mark)) {
            m_open.push_back({found.line, mark});
        } else if (mark.kind == LandmarkKind::BlockEnd && isStatementBlock(mark)) {
            if (!m_open.empty() && m_open.back().mark.kind == LandmarkKind::BlockBegin)
                m_open.pop_back();
        } else if (mark.kind == LandmarkKind::InstrumentEnd ||
                   mark.kind == LandmarkKind::OpcodeEnd) {
            endBody();
        }
    }

    struct Open
    {
        int line;
        Landmark mark;
    };
    const std::vector<Open> &open() const { return m_open; }

private:
    /// With what is open in it.
    void endBody()
    {
        while (!m_open.empty() && !isBody(m_open.back().mark.kind))
            m_open.pop_back();
        if (!m_open.empty())
            m_open.pop_back();
    }

    std::vector<Open> m_open;
};

/// Where a block of statements that begins in \a first and ends before \a end seems to end.
int lastIndentedLine(const PieceText &text, int first, int end)
{
    int indent = -1;
    int last = first;
    visitCode(text, {first, end - 1}, [&](int line, const CodeLine &code) {
        if (code.isEmpty())
            return true;
        if (indent < 0) {
            indent = code.indent();
            return true;
        }
        const QByteArrayView word = code.tokens().first().in(code.bytes());
        if (code.indent() <= indent && !word.startsWith("else"))
            return false;
        last = line;
        return true;
    });
    return last;
}

int lastCodeLine(const PieceText &text, int first, int end)
{
    int last = first;
    visitCode(text, {first, end - 1}, [&](int line, const CodeLine &code) {
        if (!code.isEmpty())
            last = line;
        return true;
    });
    return last;
}

/// The first indented code of these lines, or else the first code.
int firstBodyLine(const PieceText &text, LineRun lines)
{
    int first = 0;
    int indented = 0;
    visitCode(text, lines, [&](int line, const CodeLine &code) {
        if (code.isEmpty())
            return true;
        if (first == 0)
            first = line;
        if (code.indent() > 0)
            indented = line;
        return indented == 0;
    });
    return indented > 0 ? indented : std::max(first, lines.first);
}

QString wordAt(const PieceText &text, int line, const Landmark &mark)
{
    if (mark.kind == LandmarkKind::Instrument)
        return QStringLiteral("instr");
    if (mark.kind == LandmarkKind::Opcode)
        return QStringLiteral("opcode");
    return QString::fromUtf8(text.line(line).sliced(mark.column, mark.length));
}

} // namespace

std::optional<OpenBlock> openBlockBefore(const PieceText &text, LineRun orchestra, int line)
{
    OpenMarks marks;
    text.visit(orchestra.first, line - 1, [&](PlacedLandmark found) {
        marks.take(found);
        return true;
    });
    if (marks.open().empty())
        return std::nullopt;
    const OpenMarks::Open &open = marks.open().back();
    OpenBlock block{open.mark.kind, wordAt(text, open.line, open.mark), open.line, open.line};
    block.lastLine = isBody(open.mark.kind) ? lastCodeLine(text, open.line, line)
                                            : lastIndentedLine(text, open.line, line);
    return block;
}

std::optional<LostHeading> lostHeading(const PieceText &text, LineRun orchestra)
{
    std::optional<LostHeading> lost;
    bool isInBody = false;
    int lastEnd = orchestra.first - 1;
    text.visit(orchestra.first, orchestra.last,
               kindsOf(LandmarkKind::Instrument, LandmarkKind::Opcode, LandmarkKind::InstrumentEnd,
                       LandmarkKind::OpcodeEnd),
               [&](PlacedLandmark found) {
                   if (isBody(found.mark->kind)) {
                       isInBody = true;
                       return true;
                   }
                   if (!isInBody)
                       lost = {found.mark->kind, found.line,
                               firstBodyLine(text, {lastEnd + 1, found.line})};
                   isInBody = false;
                   lastEnd = found.line;
                   return !lost;
               });
    return lost;
}

} // namespace ardiphon
