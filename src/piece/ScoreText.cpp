#include "piece/ScoreText.h"

#include <array>

namespace ardiphon {

namespace {

/// Far more than any score is, and read in a few seconds.
constexpr qint64 MostCharacters = 256'000'000;
constexpr qsizetype MostBuilt = 1 << 20;
constexpr qsizetype MostRun = 1024;
constexpr size_t MostLoops = 64;
constexpr int MostTurns = 2'000'000'000;

/// What a line is read character by character for.
constexpr std::array<bool, 256> isActive = [] {
    std::array<bool, 256> active{};
    for (const char c : {'$', '#', '{', '}', '/', '\\', ';', '"', '\n'})
        active[quint8(c)] = true;
    return active;
}();

bool isScoreBlank(int c) { return c == ' ' || c == '\t' || c == '\r'; }

/// The end of the string that begins at \a start, after its quote; -1 where it takes more to find.
qsizetype endOfPlainString(QByteArrayView line, qsizetype start)
{
    for (qsizetype at = start + 1; at < line.size(); ++at) {
        if (line[at] == '"')
            return at + 1;
        if (line[at] == '\\' || line[at] == '$')
            return -1;
    }
    return -1;
}

/// How much of \a line stands before a comment; -1 where it is no line to be taken as it stands.
qsizetype plainLength(QByteArrayView line)
{
    for (qsizetype at = 0; at < line.size(); ++at) {
        if (!isActive[quint8(line[at])])
            continue;
        const char next = at + 1 < line.size() ? line[at + 1] : '\0';
        if (line[at] == ';' || (line[at] == '/' && next == '/'))
            return at;
        if (line[at] == '"') {
            at = endOfPlainString(line, at) - 1;
            if (at < 0)
                return -1;
        } else if (line[at] != '/' || next == '*') {
            return -1;
        }
    }
    return line.size();
}

} // namespace

ScoreText::ScoreText(const LineSource &lines, ScoreIncludes includes)
    : m_input(lines), m_preprocessor(m_input, std::move(includes))
{
    restart();
}

void ScoreText::restart()
{
    m_input.restart();
    m_preprocessor.restart();
    m_isInComment = false;
    m_isBehindLine = false;
    m_loops.clear();
    m_repeat.reset();
    m_built.clear();
    m_line = {};
    m_number = 1;
    m_isAtStart = true;
    m_isInString = false;
    m_isTruncated = false;
    m_isAtEnd = false;
}

ScoreText::Step ScoreText::next()
{
    if (std::exchange(m_isBehindLine, false))
        m_input.get();
    else
        m_input.refresh();
    if (m_isAtStart && !m_isInComment && !m_preprocessor.isBetween()) {
        m_built.clear();
        if (readWholeLine())
            return Step::Line;
    }
    constexpr int Characters = 32;
    for (int i = 0; i < Characters; ++i) {
        if (m_input.count() > MostCharacters || m_preprocessor.isFull())
            giveUp();
        if (m_isAtEnd)
            return Step::End;
        if (const Step step = readStep(); step != Step::Pending)
            return step;
        if (m_isInComment || m_preprocessor.isBetween())
            i += Characters / 4;
    }
    return Step::Pending;
}

/// Whether the line that comes is one that stays as it is, but for a comment.
bool ScoreText::readWholeLine()
{
    if (!m_input.isAtLine())
        return false;
    const QByteArrayView line = m_input.rest();
    qsizetype start = 0;
    while (start < line.size() && isScoreBlank(line[start]))
        ++start;
    const char first = start < line.size() ? line[start] : '\0';
    if (first == 'r' || (m_repeat && (first == 's' || first == 'e')))
        return false;
    const qsizetype length =
        first == 'c' ? 0 : plainLength(line.first(std::min(line.size(), MostBuilt)));
    if (length < 0)
        return false;
    m_number = m_input.line();
    m_input.skip(line.size());
    m_isBehindLine = true; // as the next line takes the place of this one
    m_line = line.first(length);
    return true;
}

ScoreText::Step ScoreText::readStep()
{
    if (m_isInComment)
        readComment();
    else if (m_preprocessor.isBetween())
        m_preprocessor.readLine();
    else
        return readCode();
    return Step::Pending;
}

ScoreText::Step ScoreText::readCode()
{
    const int c = m_input.get();
    if (m_isAtStart && m_repeat && (c == 's' || c == 'e' || c == ScoreInput::End))
        return endRepeat();
    if (c == ScoreInput::End) {
        m_isAtEnd = true;
        return finishLine();
    }
    if (c == '\n')
        return finishLine();
    if (m_isInString)
        return readInString(c);
    if (m_isAtStart && c == 'c') {
        m_input.skipLine();
        return Step::Pending;
    }
    if (m_isAtStart && c == 'r') {
        beginRepeat();
        return Step::Pending;
    }
    const int next = m_input.peekHere();
    if (c == ';' || (c == '/' && next == '/'))
        m_input.skipLine();
    else if (c == '/' && next == '*')
        m_input.get(), m_isInComment = true;
    else if (c == '#' && m_preprocessor.readDirective())
        return Step::Pending;
    else if (c == '$')
        expand();
    else if (c == '{')
        beginLoop();
    else if (c == '}')
        endLoop();
    else if (c != '\\' || !readBackslash()) {
        put(c);
        putRun();
    }
    return Step::Pending;
}

ScoreText::Step ScoreText::readInString(int c)
{
    if (c == '$') {
        expand();
        return Step::Pending;
    }
    if (c == '\\' && m_input.peek() != '\n') {
        put(c);
        put(m_input.get());
        return Step::Pending;
    }
    put(c);
    m_isInString = c != '"';
    return Step::Pending;
}

ScoreText::Step ScoreText::finishLine()
{
    m_line = m_built;
    m_isAtStart = true;
    m_isInString = false;
    return Step::Line;
}

void ScoreText::put(int c)
{
    if (m_isAtStart && !isScoreBlank(c)) {
        m_isAtStart = false;
        m_number = m_input.line();
    }
    if (c == '"' && !m_isInString)
        m_isInString = true;
    // A longer line is one that nobody wrote; its first fields are what counts.
    if (m_built.size() < MostBuilt)
        m_built.append(char(c));
}

/// What comes after a character that was put and needs no look at each.
void ScoreText::putRun()
{
    if (m_isAtStart || m_isInString || m_built.size() >= MostBuilt)
        return;
    const QByteArrayView rest = m_input.rest();
    qsizetype length = 0;
    while (length < rest.size() && length < MostRun && !isActive[quint8(rest[length])])
        ++length;
    m_built.append(rest.first(length));
    m_input.skip(length);
}

void ScoreText::readComment()
{
    const QByteArrayView rest = m_input.rest();
    const qsizetype end = rest.indexOf("*/");
    m_input.skip(end < 0 ? rest.size() : end + 2);
    if (end >= 0 || m_input.get() == ScoreInput::End)
        m_isInComment = false;
}

/// Whether the \ that was read ends the line, which goes on on the next.
bool ScoreText::readBackslash()
{
    const QByteArrayView rest = m_input.rest();
    for (const char c : rest)
        if (!isScoreBlank(c))
            return false;
    m_input.skip(rest.size());
    if (m_input.peek() == '\n')
        m_input.get();
    return true;
}

/// How many times, which a macro may say; 1 where nothing says it.
int ScoreText::readCount()
{
    m_input.skipBlanks();
    qint64 count = 0;
    for (int c = m_input.peek();; c = m_input.peek()) {
        if (c == '$') {
            m_input.get();
            const qsizetype built = m_built.size();
            expand();
            m_built.truncate(built); // what is no macro is no number either
        } else if (c >= '0' && c <= '9') {
            count = std::min<qint64>(count * 10 + (m_input.get() - '0'), MostTurns);
        } else {
            break;
        }
        if (isTruncated())
            break;
    }
    m_input.skipBlanks();
    return std::max(int(count), 1);
}

/// r, after its letter: what follows up to the section's end comes several times.
void ScoreText::beginRepeat()
{
    const int count = readCount();
    Loop repeat{{}, m_preprocessor.readName().toByteArray(), count, 0};
    repeat.body = m_input.place();
    m_preprocessor.beginCount(repeat.name);
    m_repeat = repeat;
}

/// At the end of the section that is repeated.
ScoreText::Step ScoreText::endRepeat()
{
    m_number = m_input.line();
    m_built = "s";
    m_line = m_built;
    if (!turn(*m_repeat))
        m_repeat.reset();
    return Step::Line;
}

/// {, after it.
void ScoreText::beginLoop()
{
    const int count = readCount();
    Loop loop{{}, m_preprocessor.readName().toByteArray(), count, 0};
    m_input.skipLine();
    m_input.get();
    loop.body = m_input.place();
    if (m_loops.size() >= MostLoops) {
        giveUp();
        return;
    }
    m_preprocessor.beginCount(loop.name);
    m_loops.push_back(loop);
}

void ScoreText::endLoop()
{
    if (!m_loops.empty() && !turn(m_loops.back()))
        m_loops.pop_back();
}

/// Whether there is another turn, which begins then.
bool ScoreText::turn(Loop &loop)
{
    if (++loop.turn >= loop.count || !m_input.goBackTo(loop.body))
        return false;
    m_preprocessor.setCount(loop.name, loop.turn);
    return true;
}

/// $, after it.
void ScoreText::expand()
{
    if (!m_preprocessor.expand())
        put('$'); // what is no field: the rest of the line does not count
}

void ScoreText::giveUp()
{
    m_isTruncated = true;
    m_isAtEnd = true;
}

} // namespace ardiphon
