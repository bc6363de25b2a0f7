#include "piece/ScorePlayers.h"

#include <QHashFunctions>

namespace ardiphon {

ScorePlay scorePlayOf(const ScoreStatement &statement, QByteArrayView line)
{
    switch (statement.letter) {
    case 'i':
        if (statement.fields.isEmpty())
            return ScorePlay::Carried;
        [[fallthrough]];
    case 'd':
    case 'q':
        if (statement.fields.isEmpty())
            return ScorePlay::Ends;
        return statement.fields[0].in(line) == "." ? ScorePlay::Carried : ScorePlay::Own;
    case '$':
        return ScorePlay::Own;
    case 'a':
    case 'e':
    case 'f':
    case 'n':
    case 's':
    case 't':
    case 'y':
        return ScorePlay::Ends;
    default:
        return ScorePlay::None;
    }
}

bool leavesPlayer(const ScoreStatement &statement)
{
    return statement.letter == 'i' || statement.letter == '$';
}

quint64 ScorePlayers::bitOf(QByteArrayView nameOrNumber)
{
    return quint64(1) << (qHash(nameOrNumber) % 64);
}

void ScorePlayers::add(const ScoreStatement &statement, QByteArrayView line)
{
    const ScorePlay play = scorePlayOf(statement, line);
    if (play == ScorePlay::None)
        return;
    if (play == ScorePlay::Carried)
        carryFirst = carryFirst || isLastAbove;
    quint64 own = 0;
    if (play == ScorePlay::Own) {
        const auto played =
            statement.letter == '$' ? std::nullopt : instrumentOf(statement.fields[0].in(line));
        own = !played                  ? ~quint64(0)
              : played->name.isEmpty() ? bitOf(QByteArray::number(played->number))
                                       : bitOf(played->name);
        named |= own;
    }
    if (!leavesPlayer(statement)) {
        end();
    } else if (play == ScorePlay::Own) {
        last = own;
        isLastAbove = false;
    }
}

void ScorePlayers::end()
{
    last = 0;
    isLastAbove = false;
}

} // namespace ardiphon
