#include "piece/PieceNotes.h"

#include "piece/ScorePlayers.h"

#include <algorithm>

namespace ardiphon {

namespace {

/// The instrument that a line names; "" for none.
QByteArray instrumentNamedIn(const ScoreStatement &statement, QByteArrayView line)
{
    if (scorePlayOf(statement, line) != ScorePlay::Own || statement.letter == '$')
        return QByteArray();
    const std::optional<ScoreInstrument> played = instrumentOf(statement.fields[0].in(line));
    if (!played)
        return QByteArray();
    return played->name.isEmpty() ? QByteArray::number(played->number) : played->name.toByteArray();
}

/// The instruments of lines of a score, one after the other.
class PlayReader
{
public:
    PlayReader(const PieceText &text, int line)
        : m_text(text), m_line(line), m_state(text.stateAt(line))
    {
    }

    /// What the next line plays; "" for nothing.
    QByteArray readLine()
    {
        const int number = m_line++;
        if (m_state.section != PieceSection::Score)
            return QByteArray();
        const QByteArrayView line = m_text.line(number);
        const ScoreStatement statement =
            readScoreLine(line.first(std::min(line.size(), PieceText::LongestLine)), m_state.code);
        const ScorePlay play = scorePlayOf(statement, line);
        if (play == ScorePlay::None)
            return QByteArray();
        const QByteArray played =
            play == ScorePlay::Carried ? carriedAt(number) : instrumentNamedIn(statement, line);
        m_carried = leavesPlayer(statement) ? played : QByteArray();
        return played;
    }

private:
    QByteArray carriedAt(int line)
    {
        if (!m_carried) {
            const int from = m_text.lineCarriedAt(line);
            m_carried = from > 0 ? PlayReader(m_text, from).readLine() : QByteArray();
        }
        return *m_carried;
    }

    const PieceText &m_text;
    int m_line;
    PieceState m_state;
    std::optional<QByteArray> m_carried; ///< by a line that comes, where it is known
};

/// The first line of \a text from \a first to \a last that plays \a name; 0 for none.
int noteBetween(const PieceText &text, const QByteArray &name, int first, int last)
{
    PlayReader reader(text, first);
    for (int line = first; line <= last; ++line) {
        if (reader.readLine() == name)
            return line;
    }
    return 0;
}

int noteBehind(const PieceText &text, const QList<QByteArray> &names, int from)
{
    int nearest = 0;
    if (from > text.lineCount())
        return nearest;
    for (const QByteArray &name : names) {
        text.visitPlayed(name, from, [&](int first, int last) {
            if (nearest != 0 && first >= nearest)
                return false;
            const int found = noteBetween(text, name, first, last);
            if (found != 0 && (nearest == 0 || found < nearest))
                nearest = found;
            return found == 0;
        });
    }
    return nearest;
}

/// The first line of \a text that belongs to the score; behind the last for none.
int scoreBegin(const PieceText &text)
{
    if (text.role() == DocumentRole::Score)
        return 1;
    int line = text.lineCount() + 1;
    text.visit(1, text.lineCount(), [&](PlacedLandmark found) {
        const bool isScore = found.mark->kind == LandmarkKind::SectionBegin &&
                             PieceSection(found.mark->detail) == PieceSection::Score;
        line = isScore ? found.line + 1 : line;
        return !isScore;
    });
    return line;
}

} // namespace

QByteArray instrumentPlayed(const PieceText &text, int line)
{
    return PlayReader(text, line).readLine();
}

std::optional<PiecePlace> nextNote(const Piece &piece, const QStringList &names, int line)
{
    const PieceText *const text = piece.score();
    if (text == nullptr)
        return std::nullopt;
    QList<QByteArray> wanted;
    for (const QString &name : names)
        wanted.append(name.toUtf8());
    const int first = scoreBegin(*text);
    int found = noteBehind(*text, wanted, std::max(first, line + 1));
    if (found == 0)
        found = noteBehind(*text, wanted, first);
    if (found == 0)
        return std::nullopt;
    return PiecePlace{text->role(), found, 0, 0};
}

} // namespace ardiphon
