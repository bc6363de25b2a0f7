#include "piece/ScoreStatement.h"
#include "typing/OrchestraPlace.h"

#include <algorithm>

namespace ardiphon {

namespace {

/// What is open where a line of the score is cut.
struct ScoreEnd
{
    bool isInComment = false;
    int text = -1; ///< where quotes are open
};

ScoreEnd endOf(QByteArrayView line, CodeState state)
{
    ScoreEnd end;
    end.isInComment = state == CodeState::BlockComment;
    for (qsizetype at = 0; at < line.size(); ++at) {
        const QByteArrayView rest = line.sliced(at);
        if (end.isInComment) {
            if (rest.startsWith("*/")) {
                end.isInComment = false;
                ++at;
            }
        } else if (end.text >= 0) {
            if (line[at] == '"')
                end.text = -1;
        } else if (line[at] == '"') {
            end.text = int(at);
        } else if (line[at] == ';' || rest.startsWith("//")) {
            end.isInComment = true;
            return end;
        } else if (rest.startsWith("/*")) {
            end.isInComment = true;
            ++at;
        }
    }
    return end;
}

bool readsFile(QByteArrayView gen)
{
    constexpr QByteArrayView readers[] = {"1", "23", "28", "43", "49"};
    const QByteArrayView number = gen.startsWith('-') ? gen.sliced(1) : gen;
    return std::find(std::begin(readers), std::end(readers), number) != std::end(readers);
}

/// What is wanted behind \a before, which ends between two fields or with the quotes of one.
CodePlace placeOfField(QByteArrayView before, CodeState state, bool isQuoted)
{
    CodePlace place;
    place.isQuoted = isQuoted;
    if (isQuoted)
        place.open = "\"";
    const ScoreStatement statement = readScoreLine(before, state);
    const qsizetype field = statement.fields.size();
    const char letter = statement.letter;
    if (isQuoted && before.trimmed().endsWith("#include"))
        place.kind = PlaceKind::File;
    else if (letter != 0 && QByteArrayView("idq").contains(letter) && field == 0)
        place.kind = PlaceKind::ScoreInstrument;
    else if (letter == 'f' && field == 3 && !isQuoted)
        place.kind = PlaceKind::ScoreGenNumber;
    else if (letter == 'f' && field == 4 && isQuoted && readsFile(statement.fields[3].in(before)))
        place.kind = PlaceKind::File;
    else if ((letter == 'n' || letter == 'm') && field == 0 && !isQuoted)
        place.kind = PlaceKind::ScoreLabel;
    return place;
}

} // namespace

CodePlace scorePlace(QByteArrayView before, CodeState state)
{
    CodePlace place;
    const ScoreEnd end = endOf(before, state);
    if (end.isInComment || state == CodeState::Macro)
        return place;
    if (end.text >= 0) {
        place = placeOfField(before.first(end.text), state, true);
        place.start = end.text + 1;
        return place;
    }
    const int start = wordStart(before);
    if (start > 0 && (before[start - 1] == '$' || before[start - 1] == '#')) {
        place.kind = before[start - 1] == '$' ? PlaceKind::Macro : PlaceKind::Directive;
        place.start = start - 1;
        return place;
    }
    if (before.first(start).trimmed().isEmpty() && !before.sliced(start).isEmpty() &&
        before[start] >= '0' && before[start] <= '9')
        return place;
    if (before.first(start).trimmed().isEmpty()) {
        place.kind = PlaceKind::ScoreStatement;
        place.start = start;
        return place;
    }
    place = placeOfField(before.first(start), state, false);
    place.start = start;
    return place;
}

} // namespace ardiphon
