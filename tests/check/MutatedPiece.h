#pragma once

#include <QByteArrayList>
#include <QRandomGenerator>

/// A piece that was broken by chance, as typing breaks one.
struct MutatedPiece
{
    QByteArrayList lines;
    int line = 1;          ///< where it was broken, from 1
    const char *what = ""; ///< in words
};

namespace mutation {

inline QList<int> linesWith(const QByteArrayList &lines, const QByteArrayList &texts)
{
    QList<int> found;
    for (int i = 0; i < lines.size(); ++i) {
        for (const QByteArray &text : texts) {
            if (lines[i].contains(text)) {
                found.append(i);
                break;
            }
        }
    }
    return found;
}

template <typename List>
auto &oneOf(List &list, QRandomGenerator &random)
{
    return list[random.bounded(int(list.size()))];
}

} // namespace mutation

/// Changes a letter, removes a line, loses an end, drops a bracket or adds a p-field.
inline MutatedPiece mutated(const QByteArray &piece, QRandomGenerator &random)
{
    using namespace mutation;
    MutatedPiece result{piece.split('\n'), 1, ""};
    QByteArrayList &lines = result.lines;
    int index = random.bounded(int(lines.size()));
    const auto goTo = [&](const QByteArrayList &texts) {
        const QList<int> places = linesWith(lines, texts);
        if (!places.isEmpty())
            index = oneOf(places, random);
        return !places.isEmpty();
    };
    switch (random.bounded(5)) {
    case 0:
        result.what = "a letter changed";
        while (lines[index].isEmpty())
            index = random.bounded(int(lines.size()));
        lines[index][random.bounded(int(lines[index].size()))] =
            "abcdefghijklmnopqrstuvwxyz019.,_"[random.bounded(32)];
        break;
    case 1:
        result.what = "a line removed";
        lines.removeAt(index);
        break;
    case 2:
        result.what = "an end lost";
        if (goTo({"endin", "endop", "endif", "od"}))
            lines.removeAt(index);
        break;
    case 3:
        result.what = "a bracket dropped";
        if (goTo({"(", ")", "[", "]"})) {
            QByteArray &line = lines[index];
            QList<int> brackets;
            for (int i = 0; i < line.size(); ++i) {
                if (QByteArrayView("()[]").contains(line[i]))
                    brackets.append(i);
            }
            line.remove(oneOf(brackets, random), 1);
        }
        break;
    default:
        result.what = "a p-field too many";
        if (goTo({"i1", "i 1", "i2", "i \""}))
            lines[index] += " 5";
        break;
    }
    result.line = index + 1;
    return result;
}
