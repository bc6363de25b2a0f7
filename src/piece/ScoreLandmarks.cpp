#include "piece/ScoreLandmarks.h"

#include "piece/ScoreStatement.h"

namespace ardiphon {

namespace {

void addDirective(LandmarkList &marks, const ScoreDirective &directive)
{
    using Kind = ScoreDirective::Kind;
    const auto add = [&](LandmarkKind kind, ScoreRange at, int detail = 0) {
        marks.add(kind, at.start, at.length, detail);
    };
    switch (directive.kind) {
    case Kind::Define:
        add(LandmarkKind::Macro, directive.name, int(directive.arguments.size()));
        break;
    case Kind::Include:
        add(LandmarkKind::Include, directive.name);
        break;
    case Kind::Ifdef:
    case Kind::Ifndef:
        marks.add(LandmarkKind::BranchBegin, directive.word.start, directive.word.length, 0,
                  directive.name.in(marks.text()));
        break;
    case Kind::Else:
        add(LandmarkKind::BranchMiddle, directive.word);
        break;
    case Kind::End:
        add(LandmarkKind::BranchEnd, directive.word);
        break;
    case Kind::Undef:
        break;
    }
}

void addOpenText(LandmarkList &marks, CodeState before, CodeState after)
{
    const int length = int(marks.text().size());
    if (before == after)
        return;
    if (before == CodeState::BlockComment)
        marks.add(LandmarkKind::BlockEnd, 0, 0, int(BlockFamily::Comment));
    if (before == CodeState::Macro)
        marks.add(LandmarkKind::MacroEnd, 0, 0);
    if (after == CodeState::BlockComment)
        marks.add(LandmarkKind::BlockBegin, length, 0, int(BlockFamily::Comment));
}

void addTitle(LandmarkList &marks)
{
    if (!marks.text().startsWith(";;;"))
        return;
    const QByteArrayView title = marks.text().sliced(3).trimmed();
    if (!title.isEmpty() && title[0] != ';')
        marks.add(LandmarkKind::Title, int(title.data() - marks.text().data()), int(title.size()));
}

/// A GEN that reads a file names it in its fifth field.
void addFile(LandmarkList &marks, const ScoreStatement &statement)
{
    for (const ScoreRange &field : statement.fields) {
        const QByteArrayView text = field.in(marks.text());
        if (text.size() > 2 && text[0] == '"')
            marks.add(LandmarkKind::File, field.start + 1, field.length - 2);
    }
}

/// A 0 only lengthens the section, and a number below removes a table.
bool isTableNumber(QByteArrayView field)
{
    bool isNumber = false;
    const double number = field.toDouble(&isNumber);
    return !isNumber || number > 0;
}

void addStatement(LandmarkList &marks, const ScoreStatement &statement)
{
    switch (statement.letter) {
    case 'f':
        if (!statement.fields.isEmpty() && isTableNumber(statement.fields[0].in(marks.text())))
            marks.add(LandmarkKind::Table, statement.fields[0].start, statement.fields[0].length);
        addFile(marks, statement);
        break;
    case 's':
        marks.add(LandmarkKind::ScoreSection, statement.letterAt, 1);
        break;
    case '{':
    case '}':
        marks.add(statement.letter == '{' ? LandmarkKind::BlockBegin : LandmarkKind::BlockEnd,
                  statement.letterAt, 1, int(BlockFamily::Braces));
        break;
    default:
        break;
    }
}

} // namespace

void readScoreLandmarks(LandmarkList &marks, PieceState &state, ScorePlayers &players)
{
    const CodeState before = state.code;
    const ScoreStatement statement = readScoreLine(marks.text(), state.code);
    addOpenText(marks, before, state.code);
    if (statement.letter == 0 && before == CodeState::Code && statement.directives.isEmpty())
        addTitle(marks);
    for (const ScoreDirective &directive : statement.directives)
        addDirective(marks, directive);
    addStatement(marks, statement);
    players.add(statement, marks.text());
}

} // namespace ardiphon
