#include "check/PieceFacts.h"
#include "piece/ScoreStatement.h"

namespace ardiphon {

namespace {

std::optional<double> literalNumber(QByteArrayView field)
{
    bool isNumber = false;
    const double value = field.toByteArray().toDouble(&isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

class ScoreFactReader
{
public:
    explicit ScoreFactReader(const PieceText &text) : m_text(text) {}

    ScoreFacts read(LineRun lines)
    {
        const int last = std::min(lines.last, m_text.lineCount());
        const int end = std::min(last, lines.first + MostCheckedScoreLines - 1);
        m_facts.isWhole = end == last;
        if (lines.first < 1 || lines.first > last)
            return m_facts;
        CodeState state = m_text.stateAt(lines.first).code;
        for (int line = lines.first; line <= end && !m_isOver; ++line)
            readLine(line, state);
        return m_facts;
    }

private:
    void readLine(int number, CodeState &state)
    {
        const bool isCode = state == CodeState::Code;
        QByteArrayView line = m_text.line(number);
        line = line.first(std::min(line.size(), PieceText::LongestLine));
        const ScoreStatement statement = readScoreLine(line, state);
        for (const ScoreDirective &directive : statement.directives)
            readDirective(directive, line);
        if (state == CodeState::Macro || !isCode)
            m_facts.hasHiddenNote |= state == CodeState::Macro;
        if (statement.letter != 0)
            readStatement(statement, line, number);
        else if (isCode && statement.directives.isEmpty() && goesOn(line) && m_isAfterNote)
            m_facts.notes.last().isSure = false;
    }

    /// Whether a line without a statement has fields of the one above.
    static bool goesOn(QByteArrayView line)
    {
        line = line.trimmed();
        return !line.isEmpty() && line[0] != ';' && line[0] != '/' && line[0] != '#';
    }

    void readDirective(const ScoreDirective &directive, QByteArrayView line)
    {
        switch (directive.kind) {
        case ScoreDirective::Kind::Include:
            m_facts.isWhole = false;
            break;
        case ScoreDirective::Kind::Define:
            if (directive.text.length > 0) {
                const QByteArrayView text = directive.text.in(line);
                m_facts.hasHiddenNote |= text.contains('i') || text.contains('q');
                m_facts.hasHiddenTable |= text.contains('f');
            }
            break;
        case ScoreDirective::Kind::Ifdef:
        case ScoreDirective::Kind::Ifndef:
            ++m_branches;
            break;
        case ScoreDirective::Kind::End:
            m_branches = std::max(0, m_branches - 1);
            break;
        default:
            break;
        }
    }

    void readStatement(const ScoreStatement &statement, QByteArrayView line, int number)
    {
        m_facts.hasStatements = true;
        m_isAfterNote = false;
        switch (statement.letter) {
        case 'i':
        case 'd':
        case 'q':
            readNote(statement, line, number);
            break;
        case 'f':
            readTable(statement, line);
            break;
        case '{':
            ++m_loops;
            break;
        case '}':
            m_loops = std::max(0, m_loops - 1);
            break;
        case 's':
            ++m_section;
            m_isSkipped = false;
            break;
        case 'x':
            m_isSkipped = true;
            break;
        case 'e':
            m_isOver = m_branches == 0 && m_loops == 0;
            break;
        case '$':
            m_facts.hasHiddenNote = m_facts.hasHiddenTable = true;
            break;
        default:
            break;
        }
    }

    void readTable(const ScoreStatement &statement, QByteArrayView line)
    {
        if (statement.fields.isEmpty())
            return;
        const auto table = literalNumber(statement.fields[0].in(line));
        if (!table) {
            m_facts.hasHiddenTable = true;
            return;
        }
        const int number = std::abs(int(*table));
        m_facts.tables.insert(QByteArray::number(number));
        const auto routine = statement.fields.size() > 3
                                 ? literalNumber(statement.fields[3].in(line))
                                 : std::nullopt;
        if (!routine || std::abs(*routine) == 15) // which makes two
            m_facts.tables.insert(QByteArray::number(number + 1));
    }

    void readNote(const ScoreStatement &statement, QByteArrayView line, int number)
    {
        CheckedNote note;
        const auto &fields = statement.fields;
        note.isCarried = fields.isEmpty() || fields[0].in(line) == ".";
        note.section = m_section;
        note.fields = int(fields.size());
        note.isSure = statement.letter == 'i' && m_branches == 0 && m_loops == 0 && !m_isSkipped &&
                      !line.contains('$') && !line.contains('!') && !line.contains('\\');
        if (!note.isCarried)
            readPlayer(note, line, fields[0], number);
        if (fields.size() > 1)
            note.start = literalNumber(fields[1].in(line));
        if (fields.size() > 2)
            note.duration = literalNumber(fields[2].in(line));
        if (fields.size() > 3)
            note.more = place(line, number, fields[3].start, fields.last());
        m_facts.notes.append(note);
        m_isAfterNote = true;
    }

    void readPlayer(CheckedNote &note, QByteArrayView line, ScoreRange field, int number)
    {
        note.place = place(line, number, field.start, field);
        const auto played = instrumentOf(field.in(line));
        if (!played) {
            m_facts.hasHiddenNote = true;
            return;
        }
        note.instrument = played->name.isEmpty() ? QByteArray::number(played->number)
                                                 : played->name.toByteArray();
        note.voice = field.in(line).toByteArray().replace("\"", "");
        if (note.voice.startsWith('-') || note.voice.startsWith('+'))
            note.voice.remove(0, 1);
        if (played->name.isEmpty())
            note.voice = QByteArray::number(note.voice.toDouble());
    }

    PiecePlace place(QByteArrayView line, int number, int start, ScoreRange last) const
    {
        const int column = charactersOf(line, start);
        return {m_text.role(), number, column,
                charactersOf(line, last.start + last.length) - column};
    }

    const PieceText &m_text;
    ScoreFacts m_facts;
    int m_branches = 0;
    int m_loops = 0;
    int m_section = 0;
    bool m_isSkipped = false;
    bool m_isOver = false;
    bool m_isAfterNote = false;
};

} // namespace

ScoreFacts scoreFacts(const PieceText &text, LineRun lines)
{
    return ScoreFactReader(text).read(lines);
}

} // namespace ardiphon
