#include "piece/ScoreSections.h"

#include "piece/ScoreExpression.h"
#include "piece/ScoreFieldText.h"

#include <cmath>

namespace ardiphon {

namespace {

constexpr size_t MostTempoFields = 20'000;
constexpr int MostNames = 1'000'000;

/// The name of a mark at \a at.
QByteArray markName(QByteArrayView text, qsizetype at)
{
    const qsizetype start = afterScoreBlanks(text, at);
    qsizetype end = start;
    while (end < text.size() && !isScoreByte(text[end], ScoreFieldByte::Blank))
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
    return m_repeats.bytes() + qsizetype(m_sections.capacity() * sizeof(Section));
}

void ScoreSections::readLine(QByteArrayView text, int line)
{
    const qsizetype at = afterScoreBlanks(text, 0);
    if (at >= text.size())
        return;
    const char first = text[at];
    if (m_statement.letter != 0) {
        const bool goesOn = m_statement.letter == 't'
                                ? (first >= '0' && first <= '9') || first == '['
                                : beginsScoreField(first);
        if (goesOn) {
            readFields(text, at);
            m_repeats.record(text, line);
            return;
        }
        finishStatement();
    }
    if (m_isSkipping && first != 's' && first != 'e' && first != 'm')
        return;
    m_repeats.record(text, line); // before it is read: a mark is what comes after its line
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
        m_isSkipping = false;
        m_repeats.mark(markName(text, at));
        break;
    case 'n':
        m_repeats.begin(markName(text, at));
        break;
    case 's':
    case 'e':
        endSection(letter == 'e');
        break;
    default:
        break; // no statement, or one that says nothing of the notes
    }
}

/// What v, b and B say; \a none where they say nothing.
double ScoreSections::clockValue(QByteArrayView text, qsizetype at, double none) const
{
    at = afterScoreBlanks(text, at);
    return at < text.size() && beginsScoreField(text[at]) ? takeScoreNumber(text, at) : none;
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
    // What is behind the third field says nothing of when a note is played.
    while (!statement.wasRead && statement.fields < 3) {
        at = afterScoreBlanks(text, at);
        if (at >= text.size())
            return;
        if (!beginsScoreField(text[at])) {
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
        takeScoreToken(text, at);
    } else {
        takeScoreToken(text, at);
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
    const QByteArrayView token = takeScoreToken(text, at);
    if (token == "." && m_followsNote)
        player = m_lastPlayer;
    else
        player.number = scoreNumber(token);
}

void ScoreSections::readName(QByteArrayView text, qsizetype &at)
{
    Player &player = m_statement.note.player;
    const qsizetype start = at + 1;
    at = scoreStringEnd(text, at);
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
        at = afterScoreBlanks(text, at);
        if (at >= text.size())
            return;
        const bool isNumber = (text[at] >= '0' && text[at] <= '9') || text[at] == '[';
        if (!isNumber) {
            finishStatement(); // the rest does not count
            return;
        }
        const double value = takeScoreNumber(text, at);
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
    const bool isRepeated = m_repeats.isRepeating();
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
        m_repeats.end();
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

void ScoreSections::repeatLine()
{
    if (const auto line = m_repeats.next()) {
        readLine(line->text, line->number);
    } else { // the part has no end: that of the score is its end
        finishStatement();
        endSection(false);
    }
}

} // namespace ardiphon
