#include "piece/ScoreSections.h"

#include "piece/ScoreExpression.h"

#include <array>
#include <cmath>

namespace ardiphon {

namespace {

constexpr size_t MostTempoFields = 20'000;
constexpr int MostNames = 1'000'000;
constexpr qsizetype MostRecorded = 64'000'000;
constexpr qsizetype MostMarks = 100'000;
constexpr size_t MostRepeats = 32; ///< within each other
constexpr qint64 MostRepeated = 256'000'000;

/// What a character is in a field.
enum FieldByte : quint8 { BeginsField = 1, InField = 2, IsBlank = 4 };

constexpr std::array<quint8, 256> fieldBytes = [] {
    std::array<quint8, 256> bytes{};
    for (const char c : {' ', '\t', '\r', '\n'})
        bytes[quint8(c)] = IsBlank;
    for (char c = '0'; c <= '9'; ++c)
        bytes[quint8(c)] = BeginsField | InField;
    for (const char c : {'+', '-', '.', '<', '>', '(', ')', '~', 'n', 'p', 'z'})
        bytes[quint8(c)] = BeginsField | InField;
    for (const char c : {'e', 'E'})
        bytes[quint8(c)] = InField;
    for (const char c : {'^', '!', '"', '['})
        bytes[quint8(c)] = BeginsField;
    return bytes;
}();

bool isField(char c, quint8 what) { return (fieldBytes[quint8(c)] & what) != 0; }

qsizetype afterBlanks(QByteArrayView text, qsizetype at)
{
    while (at < text.size() && isField(text[at], IsBlank))
        ++at;
    return at;
}

/// The number, or what stands in its place, that begins at \a at, which is behind it then.
QByteArrayView takeToken(QByteArrayView text, qsizetype &at)
{
    const qsizetype start = at;
    while (at < text.size() && isField(text[at], InField))
        ++at;
    return text.sliced(start, at - start);
}

/// The value of a number or an expression at \a at, which is behind it then.
double takeNumber(QByteArrayView text, qsizetype &at)
{
    if (at < text.size() && text[at] == '[')
        return scoreExpression(text, at);
    return scoreNumber(takeToken(text, at));
}

/// The end of the string that begins at \a at.
qsizetype stringEnd(QByteArrayView text, qsizetype at)
{
    for (++at; at < text.size(); ++at) {
        if (text[at] == '\\')
            ++at;
        else if (text[at] == '"')
            return at + 1;
    }
    return text.size();
}

/// The name of a mark at \a at.
QByteArray markName(QByteArrayView text, qsizetype at)
{
    const qsizetype start = afterBlanks(text, at);
    qsizetype end = start;
    while (end < text.size() && !isField(text[end], IsBlank))
        ++end;
    return text.sliced(start, end - start).toByteArray();
}

} // namespace

qint64 ScoreSections::Player::key() const
{
    if (name >= 0)
        return (qint64(1) << 40) + name;
    return qint64(std::clamp(number, -2e9, 2e9));
}

void ScoreSections::restart()
{
    m_notes->clear();
    *this = ScoreSections(*m_notes);
}

qsizetype ScoreSections::bytes() const
{
    qsizetype bytes = m_recorded.capacity();
    bytes += qsizetype(m_recordedLines.capacity() * sizeof(int));
    bytes += qsizetype(m_sections.capacity() * sizeof(Section));
    return bytes;
}

void ScoreSections::readLine(QByteArrayView text, int line)
{
    const qsizetype at = afterBlanks(text, 0);
    if (at >= text.size())
        return;
    const char first = text[at];
    if (m_statement.letter != 0) {
        const bool goesOn = m_statement.letter == 't'
                                ? (first >= '0' && first <= '9') || first == '['
                                : isField(first, BeginsField);
        if (goesOn) {
            readFields(text, at);
            if (m_isRecording)
                record(text, line);
            return;
        }
        finishStatement();
    }
    if (m_isSkipping && first != 's' && first != 'e' && first != 'm')
        return;
    // A mark is what comes after it, so it is told before its own line would be kept.
    if (m_isRecording)
        record(text, line);
    readStatement(text, at, line);
}

void ScoreSections::readStatement(QByteArrayView text, qsizetype at, int line)
{
    const char letter = text[at++];
    switch (letter) {
    case 'i':
    case 'f':
    case 'a':
    case 'd':
    case 'q':
    case 't':
        countStatement(line);
        if (letter == 't')
            m_tempoFields.clear(); // the last one counts
        m_statement = {};
        m_statement.letter = letter;
        m_statement.line = line;
        readFields(text, at);
        break;
    case 'v':
        m_warp = clockValue(text, at, m_warp);
        break;
    case 'b':
        m_clock = clockValue(text, at, m_clock);
        break;
    case 'B':
        m_clock += clockValue(text, at, 0);
        break;
    case 'y':
        m_followsNote = false;
        break;
    case 'x':
        countStatement(line);
        m_isSkipping = true;
        break;
    case 'm':
        readMark(text, at);
        break;
    case 'n':
        beginRepeat(text, at);
        break;
    case 's':
    case 'e':
        endSection(letter == 'e');
        break;
    default:
        break; // no statement, or one that tells nothing of the notes
    }
}

/// What v, b and B tell; \a none where they tell nothing.
double ScoreSections::clockValue(QByteArrayView text, qsizetype at, double none) const
{
    at = afterBlanks(text, at);
    return at < text.size() && isField(text[at], BeginsField) ? takeNumber(text, at) : none;
}

void ScoreSections::countStatement(int line)
{
    if (!m_hasStatements)
        m_sectionLine = line;
    m_hasStatements = true;
}

void ScoreSections::readFields(QByteArrayView text, qsizetype at)
{
    if (m_statement.letter == 't') {
        readTempoFields(text, at);
        return;
    }
    Statement &statement = m_statement;
    // What is behind the third field tells nothing of when a note is played.
    while (!statement.wasRead && statement.fields < 3) {
        at = afterBlanks(text, at);
        if (at >= text.size())
            return;
        if (!isField(text[at], BeginsField)) {
            statement.wasRead = true; // the rest of the line does not count, nor does the next
            finishStatement();
            return;
        }
        readField(text, at);
    }
    if (statement.wasRead)
        finishStatement();
}

void ScoreSections::readField(QByteArrayView text, qsizetype &at)
{
    Statement &statement = m_statement;
    const int field = ++statement.fields;
    if (field == 1) {
        readPlayer(text, at);
        return;
    }
    const char c = text[at];
    if (c == '"' || c == '!') { // which are no times: as if the line ended before
        statement.wasRead = true;
        return;
    }
    if (c == '[') {
        const double value = scoreExpression(text, at);
        if (field == 2)
            statement.note.start = value * m_warp + m_clock;
        else
            statement.note.beats = beatsOf(value);
        (field == 2 ? statement.hasStart : statement.hasBeats) = true;
        return;
    }
    const qsizetype start = at;
    if (c == '^') {
        ++at;
        const bool isSigned = at < text.size() && (text[at] == '+' || text[at] == '-');
        if (isSigned)
            ++at;
        takeToken(text, at);
    } else {
        takeToken(text, at);
    }
    const QByteArrayView token = text.sliced(start, at - start);
    if (field == 2)
        readStart(token);
    else
        readBeats(token);
}

void ScoreSections::readPlayer(QByteArrayView text, qsizetype &at)
{
    Player &player = m_statement.note.player;
    if (text[at] == '"') {
        readName(text, at);
        return;
    }
    if (text[at] == '[') {
        player.number = scoreExpression(text, at);
        return;
    }
    if (text[at] == '^' || text[at] == '!')
        ++at;
    const QByteArrayView token = takeToken(text, at);
    if (token == "." && m_followsNote)
        player = m_lastPlayer;
    else
        player.number = scoreNumber(token);
}

void ScoreSections::readName(QByteArrayView text, qsizetype &at)
{
    Player &player = m_statement.note.player;
    const qsizetype start = at + 1;
    at = stringEnd(text, at);
    QByteArrayView name = text.sliced(start, std::max<qsizetype>(at - start, 0));
    if (name.endsWith('"'))
        name.chop(1);
    if (name.startsWith('-')) {
        player.turnsOff = true;
        name = name.sliced(1);
    }
    const qsizetype fraction = name.indexOf('.');
    player.name = nameIndex(fraction < 0 ? name : name.first(fraction));
}

/// The index of an instrument's name; -1 where there are too many.
int ScoreSections::nameIndex(QByteArrayView name)
{
    const auto known = m_nameIndices.constFind(QByteArray::fromRawData(name.data(), name.size()));
    if (known != m_nameIndices.cend())
        return *known;
    if (m_names.size() >= MostNames) {
        m_isTruncated = true;
        return -1;
    }
    const int index = int(m_names.size());
    m_names.append(name.toByteArray());
    m_nameIndices.insert(m_names.last(), index);
    return index;
}

void ScoreSections::readStart(QByteArrayView token)
{
    if (token == ".")
        return; // as if it were not there
    Statement &statement = m_statement;
    statement.hasStart = true;
    if (token == "+") {
        statement.note.isAfterLast = true;
        statement.hasStart = false;
    } else if (token.startsWith('^')) {
        token = token.sliced(1);
        const double sign = token.startsWith('-') ? -1 : 1;
        if (token.startsWith('-') || token.startsWith('+'))
            token = token.sliced(1);
        const double before = m_lastStart < 0 ? 0 : m_lastStart;
        statement.note.start = before + sign * scoreNumber(token) * m_warp;
    } else {
        statement.note.start = scoreNumber(token) * m_warp + m_clock;
    }
}

/// The clock of a section counts for the length of a note, but not for what a d has in its place.
double ScoreSections::beatsOf(double value) const
{
    return m_statement.letter == 'd' ? value : value * m_warp;
}

void ScoreSections::readBeats(QByteArrayView token)
{
    if (token == ".")
        return;
    m_statement.hasBeats = true;
    m_statement.note.beats = beatsOf(scoreNumber(token));
}

void ScoreSections::readTempoFields(QByteArrayView text, qsizetype at)
{
    for (;;) {
        at = afterBlanks(text, at);
        if (at >= text.size())
            return;
        const bool isNumber = (text[at] >= '0' && text[at] <= '9') || text[at] == '[';
        if (!isNumber) {
            finishStatement(); // the rest does not count
            return;
        }
        const double value = takeNumber(text, at);
        if (m_tempoFields.size() < MostTempoFields)
            m_tempoFields.push_back(value);
        else
            m_isTruncated = true;
    }
}

void ScoreSections::finishStatement()
{
    const char letter = std::exchange(m_statement.letter, '\0');
    if (letter == 0)
        return;
    if (letter == 't') {
        m_followsNote = false;
        return;
    }
    finishNote(letter);
    m_followsNote = letter == 'i';
    if (letter == 'i' && m_notes->count() < MostNotes) {
        const Carried &note = m_statement.note;
        const Player &player = m_statement.note.player;
        m_notes->append(
            player.name < 0
                ? StoredNote::ofNumber(player.number, note.start, note.beats, m_statement.line)
                : StoredNote::ofName(player.name, player.turnsOff, note.start, note.beats,
                                     m_statement.line));
    } else if (letter == 'i') {
        m_isTruncated = true;
    }
}

/// Works out what the statement carries, and what it leaves to the next.
void ScoreSections::finishNote(char letter)
{
    Statement &statement = m_statement;
    Carried &note = statement.note;
    const bool isNote = letter == 'i';
    const bool isBare = isNote && statement.fields == 0;
    if (isBare && m_followsNote)
        note.player = m_lastPlayer;
    const auto last = m_carried.find(note.player.key());
    const bool isFirst = last == m_carried.end();
    if (isNote && !isFirst) {
        // An i alone is another note of the same instrument, but takes what the note before the
        // last had, where there is one.
        const Carried &from = isBare && last->hasBefore ? last->before : last->note;
        if (isBare)
            note.player = from.player;
        note.isAfterLast = note.isAfterLast || (!statement.hasStart && from.isAfterLast);
        if (note.isAfterLast)
            note.start = from.start + std::abs(from.beats);
        else if (!statement.hasStart)
            note.start = from.start;
        if (!statement.hasBeats)
            note.beats = from.beats;
    }
    m_lastStart = note.start;
    if (isNote)
        m_lastPlayer = note.player;
    if (!isNote && letter != 'd')
        return;
    if (isFirst)
        m_carried.insert(note.player.key(), {note, {}, false});
    else
        *last = {note, last->note, true};
}

void ScoreSections::endSection(bool isEnd)
{
    const bool isRepeated = !m_repeats.empty();
    if (m_hasStatements) {
        int tempo = -1;
        if (ScoreTempo given(m_tempoFields); given.isGiven()) {
            tempo = int(m_tempos.size());
            m_tempos.push_back(std::move(given));
        }
        m_sections.push_back({m_sectionLine, m_sectionNote, tempo, m_isPlayed});
        m_sectionNote = int(m_notes->count());
        m_notes->endSection();
        m_hasSectionEnded = true;
        if (isEnd)
            m_isPlayed = false;
    }
    m_hasStatements = false;
    m_tempoFields.clear();
    m_carried.clear();
    m_followsNote = false;
    m_lastStart = -1;
    m_isSkipping = false;
    if (isRepeated) {
        m_repeats.pop_back();
    } else if (!isEnd) {
        // After an e, and after a repeat, the compiler leaves the clock as it is.
        m_warp = 1;
        m_clock = 0;
    }
}

void ScoreSections::finish()
{
    finishStatement();
    if (m_hasStatements)
        endSection(false);
}

void ScoreSections::readMark(QByteArrayView text, qsizetype at)
{
    m_isSkipping = false;
    const QByteArray name = markName(text, at);
    if (!m_repeats.empty() || m_marks.contains(name))
        return; // the first one counts
    if (m_marks.size() >= MostMarks) {
        m_isTruncated = true;
        return;
    }
    m_isRecording = true;
    m_marks.insert(name, {m_recorded.size(), qsizetype(m_recordedLines.size())});
}

void ScoreSections::beginRepeat(QByteArrayView text, qsizetype at)
{
    const auto mark = m_marks.constFind(markName(text, at));
    if (mark == m_marks.cend())
        return;
    if (m_repeats.size() >= MostRepeats) {
        m_isTruncated = true;
        return;
    }
    m_repeats.push_back(*mark);
}

/// Keeps a line for the repeats to come.
void ScoreSections::record(QByteArrayView text, int line)
{
    if (m_recorded.size() + text.size() > MostRecorded) {
        m_isTruncated = true;
        return;
    }
    m_recorded.append(text).append('\n');
    m_recordedLines.push_back(line);
}

void ScoreSections::repeatLine()
{
    Mark &repeat = m_repeats.back();
    if (repeat.at >= m_recorded.size() || m_count > MostRepeated) {
        // The part has no end: that of the score is its end.
        m_isTruncated = m_isTruncated || m_count > MostRepeated;
        finishStatement();
        endSection(false);
        return;
    }
    const qsizetype end = m_recorded.indexOf('\n', repeat.at);
    const QByteArrayView text = QByteArrayView(m_recorded).sliced(repeat.at, end - repeat.at);
    const int line = m_recordedLines[size_t(repeat.line)];
    m_count += text.size() + 1;
    repeat.at = end + 1;
    ++repeat.line;
    const bool wasRecording = std::exchange(m_isRecording, false);
    readLine(text, line);
    m_isRecording = wasRecording;
}

} // namespace ardiphon
