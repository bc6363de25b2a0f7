#include "typing/BlockIndent.h"

#include "piece/CodeTokens.h"
#include "piece/OrchestraWords.h"
#include "piece/PieceBrackets.h"
#include "piece/PieceText.h"
#include "piece/StatementTokens.h"

#include <algorithm>
#include <utility>

namespace ardiphon {

namespace {

QByteArrayView blanksOf(QByteArrayView line)
{
    const auto end =
        std::find_if_not(line.begin(), line.end(), [](char c) { return c == ' ' || c == '\t'; });
    return line.first(end - line.begin());
}

bool isBodyBegin(QByteArrayView word) { return word == "instr" || word == "opcode"; }
bool isBodyEnd(QByteArrayView word) { return word == "endin" || word == "endop"; }

/// What a line says of the blocks around it.
struct BlockLine
{
    bool comesOut = false; ///< it begins with a word that ends or parts a block
    bool isBody = false;   ///< the block is an instrument or an opcode
    int firstWord = -1;    ///< where its first word is, in bytes
    int depth = 0;         ///< how many more blocks are open behind it than before
    bool isCode = false;   ///< it has a statement, or nothing but a comment
    bool goesOn = false;
    bool isCondition = false; ///< with its "then" still to come
    CodeState code = CodeState::Code;
};

class BlockLineReader
{
public:
    BlockLineReader(QByteArrayView text, CodeState state, bool isContinuation, bool isCondition)
        : m_tokens(readCodeLine(text, state)), m_statement(text, m_tokens)
    {
        m_line.code = state;
        m_line.isCondition = isCondition;
        while (!m_tokens.isEmpty() && m_tokens.last().kind == CodeTokenKind::Comment &&
               m_tokens.size() > 1)
            m_tokens.removeLast();
        read(isContinuation);
        m_line.goesOn = m_statement.goesOn();
        m_line.isCondition = m_line.isCondition && m_line.goesOn;
    }

    const BlockLine &line() const { return m_line; }

private:
    void read(bool isContinuation)
    {
        if (m_tokens.isEmpty())
            return;
        const bool isLabel = !isContinuation && m_statement.isLabel();
        m_line.isCode = !isLabel && m_tokens.front().kind != CodeTokenKind::Directive &&
                        m_tokens.front().kind != CodeTokenKind::MacroText;
        for (qsizetype at = isLabel ? 2 : 0; at < m_tokens.size(); ++at) {
            const bool isFirst = !isContinuation && at == (isLabel ? 2 : 0);
            if (m_statement.isName(at) && !m_statement.isType(at) && !m_statement.isMember(at))
                readWord(at, isFirst);
        }
    }

    void readWord(qsizetype at, bool isFirst)
    {
        const QByteArrayView word = m_statement.word(at);
        const auto block = blockWord(word);
        const bool ends = isBodyEnd(word) || (block && block->kind == LandmarkKind::BlockEnd);
        const bool parts = isFirst && block && block->kind == LandmarkKind::BlockMiddle;
        if (isFirst && (ends || parts)) {
            m_line.comesOut = true;
            m_line.firstWord = m_tokens[at].start;
        }
        if (ends)
            --m_line.depth;
        if (isFirst && (isBodyBegin(word) || isBodyEnd(word)))
            m_line.isBody = true;
        if (isFirst && isBodyBegin(word))
            ++m_line.depth;
        if (isFirst && block && block->kind == LandmarkKind::BlockBegin) {
            if (word == "if")
                m_line.isCondition = true;
            else
                ++m_line.depth;
        }
        const bool isThen = word == "then" || word == "ithen" || word == "kthen";
        if (isThen && std::exchange(m_line.isCondition, false))
            ++m_line.depth;
    }

    CodeTokens m_tokens;
    StatementTokens m_statement;
    BlockLine m_line;
};

bool isPartedHere(const BlockLine &line) { return line.comesOut && line.depth == 0; }

/// One tab stop deeper than \a blanks, with the kind of blanks that these have.
QByteArray deeper(QByteArrayView blanks, int tabSize)
{
    return blanks.contains(' ') ? blanks.toByteArray() + QByteArray(tabSize, ' ')
                                : blanks.toByteArray() + '\t';
}

/// Goes down the lines of an orchestra and counts the blocks that are open.
class Reindenter
{
public:
    Reindenter(const PieceText &text, int tabSize) : m_text(text), m_tabSize(tabSize) {}

    std::vector<EditorEdit> reindent(int first, int last)
    {
        const int start = bodyAbove(first);
        for (int line = start; line <= last && m_step.isEmpty(); ++line)
            readLine(line, false);
        m_depth = 0;
        m_isInBody = m_goesOn = m_isCondition = false;
        if (m_step.isEmpty())
            m_step = "\t";
        for (int line = start; line <= last; ++line)
            readLine(line, line >= first);
        return std::move(m_edits);
    }

private:
    /// The line from which the blocks around \a line can be counted: the heading of its body, or
    /// itself where it is in none.
    int bodyAbove(int line) const
    {
        int heading = line;
        m_text.visitBack(line, [&](PlacedLandmark found) {
            const LandmarkKind kind = found.mark->kind;
            const bool isHeading = kind == LandmarkKind::Instrument || kind == LandmarkKind::Opcode;
            const bool isEnd =
                kind == LandmarkKind::InstrumentEnd || kind == LandmarkKind::OpcodeEnd ||
                kind == LandmarkKind::SectionBegin || kind == LandmarkKind::SectionEnd;
            if (isHeading)
                heading = found.line;
            return !isHeading && !(isEnd && found.line < line);
        });
        return heading;
    }

    void readLine(int number, bool changes)
    {
        const PieceState state = m_text.stateAt(number);
        const QByteArrayView bytes = m_text.line(number); // until a line is asked for again
        if (state.section != PieceSection::Orchestra) {
            m_depth = 0;
            m_isInBody = m_goesOn = m_isCondition = false;
            return;
        }
        const CodeState before = state.code;
        const BlockLine line = BlockLineReader(bytes, before, m_goesOn, m_isCondition).line();
        const bool isContinuation = std::exchange(m_goesOn, line.goesOn);
        m_isCondition = line.isCondition;
        const int depth = place(line);
        if (before != CodeState::Code || blanksOf(bytes).size() == bytes.size())
            return;
        if (isContinuation)
            follow(number, bytes, changes);
        else if (line.isCode && (m_isInBody || depth > 0 || line.isBody))
            put(number, bytes, depth, changes);
        else
            m_from = m_to = blanksOf(bytes).toByteArray();
    }

    /// How many blocks the line is in; counts those that it begins and ends.
    int place(const BlockLine &line)
    {
        if (line.isBody) {
            m_isInBody = line.depth > 0;
            m_depth = m_isInBody ? 1 : 0;
            return 0;
        }
        const int depth = std::max(m_depth - (line.comesOut ? 1 : 0), m_isInBody ? 1 : 0);
        m_depth = std::max(m_depth + line.depth, m_isInBody ? 1 : 0);
        return depth;
    }

    void put(int number, QByteArrayView bytes, int depth, bool changes)
    {
        m_from = blanksOf(bytes).toByteArray();
        if (depth > 0 && !m_from.isEmpty() && m_step.isEmpty())
            m_step = m_from[0] == ' ' ? QByteArray(m_tabSize, ' ') : QByteArray("\t");
        m_to = changes ? m_step.repeated(depth) : m_from;
        change(number, m_from, m_to);
    }

    /// A line of a statement that is not its first.
    void follow(int number, QByteArrayView bytes, bool changes)
    {
        const QByteArrayView blanks = blanksOf(bytes);
        if (changes && blanks.startsWith(m_from))
            change(number, m_from, m_to);
    }

    void change(int number, const QByteArray &from, const QByteArray &to)
    {
        if (from != to)
            m_edits.push_back({number, 0, int(from.size()), QString::fromLatin1(to)});
    }

    const PieceText &m_text;
    const int m_tabSize;
    std::vector<EditorEdit> m_edits;
    QByteArray m_step; ///< the blanks of one tab stop, of the kind that the first line inside has
    QByteArray m_from; ///< the blanks of the statement's first line
    QByteArray m_to;   ///< what they become
    int m_depth = 0;
    bool m_isInBody = false;
    bool m_goesOn = false;
    bool m_isCondition = false;
};

constexpr int MostColumns = 1000;   ///< columns before a word that is looked at
constexpr int MostEmptyLines = 100; ///< that are passed for one that has blanks

int widthOf(QByteArrayView blanks, int tabSize)
{
    int width = 0;
    for (const char c : blanks)
        width += c == '\t' ? tabSize - width % tabSize : 1;
    return width;
}

/// The nearest line from \a line on, by steps of \a step, that has more than blanks; \a end where
/// there is none before it.
int writtenLine(const PieceText &text, int line, int end, int step)
{
    for (int passed = 0; line != end && passed < MostEmptyLines; line += step, ++passed) {
        const QByteArrayView bytes = text.line(line);
        if (blanksOf(bytes).size() != bytes.size())
            return line;
    }
    return end;
}

/// Whether the block that begins on line \a begin gives \a blanks to a line of it: one tab stop
/// more than it has itself, those of its first line, or those that an Enter above \a line gives.
bool areBlanksOfBlock(const PieceText &text, int begin, int line, const QByteArray &blanks,
                      int tabSize)
{
    const auto blanksAt = [&](int at) { return blanksOf(text.line(at)).toByteArray(); };
    if (blanks == deeper(blanksAt(begin), tabSize))
        return true;
    const int first = writtenLine(text, begin + 1, line, 1);
    if (first == line)
        return false;
    const int above = writtenLine(text, line - 1, begin, -1);
    const PieceState state = text.stateAt(above);
    const bool isContinuation = state.continuation != Continuation::None;
    const BlockLine last =
        BlockLineReader(text.line(above), state.code, isContinuation, false).line();
    const bool opens = last.depth > 0 || isPartedHere(last);
    const QByteArray given = opens ? deeper(blanksAt(above), tabSize) : blanksAt(above);
    return blanks == blanksAt(first) || blanks == given;
}

} // namespace

std::optional<TypedWord> typedWord(QByteArrayView line, int column, int length, const QString &text)
{
    const auto isOfWord = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '_';
    };
    if (text.isEmpty() || text.back().unicode() > 127 || !isOfWord(text.back().toLatin1()) ||
        column > line.size() || column > MostColumns)
        return std::nullopt;
    const QByteArrayView before = line.first(column);
    const QByteArrayView behind = line.sliced(std::min(qsizetype(column) + length, line.size()));
    const QByteArrayView blanks = blanksOf(before);
    const QByteArray word = before.sliced(blanks.size()).toByteArray() + text.toUtf8();
    if (!std::all_of(word.begin(), word.end(), isOfWord) ||
        blanksOf(behind).size() != behind.size())
        return std::nullopt;
    return TypedWord{blanks.toByteArray(), word};
}

std::optional<QString> blanksForClosingWord(const PieceText &text, int line, const TypedWord &typed,
                                            int tabSize)
{
    if (line < 1 || line > text.lineCount() || !isClosingWord(typed.word))
        return std::nullopt;
    const PieceState state = text.stateAt(line);
    if (state.section != PieceSection::Orchestra || state.code != CodeState::Code ||
        state.continuation != Continuation::None)
        return std::nullopt;
    const int begin = lineOfBegin(text, line, typed.word);
    if (begin == 0)
        return std::nullopt;
    const QByteArray own = blanksOf(text.line(begin)).toByteArray();
    if (widthOf(own, tabSize) >= widthOf(typed.blanks, tabSize) ||
        !areBlanksOfBlock(text, begin, line, typed.blanks, tabSize))
        return std::nullopt;
    return QString::fromLatin1(own);
}

std::optional<NewLineBlanks> blanksForNewLine(const PieceText &text, int line, int column,
                                              int tabSize)
{
    if (line < 1 || line > text.lineCount())
        return std::nullopt;
    const PieceState state = text.stateAt(line);
    if (state.section != PieceSection::Orchestra || state.code != CodeState::Code)
        return std::nullopt;
    const QByteArray whole = text.line(line).toByteArray();
    const QByteArray bytes =
        QString::fromUtf8(whole).left(column).toUtf8(); // what stays on the line
    const bool isContinuation = state.continuation != Continuation::None;
    const BlockLine here = BlockLineReader(bytes, state.code, isContinuation, false).line();
    if (here.code != CodeState::Code || here.goesOn || isContinuation)
        return std::nullopt;
    NewLineBlanks blanks;
    QByteArray own = blanksOf(bytes).toByteArray();
    if (here.comesOut) {
        const auto brackets = bracketsAt(text, line, charactersOf(whole, here.firstWord));
        if (brackets && brackets->partner.line < line) {
            const bool isOfBlock =
                areBlanksOfBlock(text, brackets->partner.line, line, own, tabSize);
            own = blanksOf(text.line(brackets->partner.line)).toByteArray();
            if (isOfBlock)
                blanks.line = QString::fromLatin1(own);
        }
    }
    const QByteArrayView rest = QByteArrayView(whole).sliced(bytes.size());
    const bool comesOutBelow = BlockLineReader(rest, CodeState::Code, false, false).line().comesOut;
    const bool opens = here.depth > 0 || isPartedHere(here);
    blanks.next = QString::fromLatin1(opens && !comesOutBelow ? deeper(own, tabSize) : own);
    return blanks;
}

std::vector<EditorEdit> reindentedLines(const PieceText &text, int first, int last, int tabSize)
{
    first = std::max(first, 1);
    last = std::min(last, text.lineCount());
    return first > last ? std::vector<EditorEdit>()
                        : Reindenter(text, tabSize).reindent(first, last);
}

} // namespace ardiphon
