#include "typing/CompletionPlace.h"

#include "piece/PieceSymbol.h"
#include "typing/OrchestraPlace.h"

namespace ardiphon {

namespace {

constexpr qsizetype LongestLine = 16384;

bool isOfName(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
           c == u'_';
}

/// A tag that stands alone at the beginning of the line.
bool readTag(QByteArrayView before, CodePlace &place)
{
    qsizetype at = 0;
    while (at < before.size() && (before[at] == ' ' || before[at] == '\t'))
        ++at;
    if (at >= before.size() || before[at] != '<')
        return false;
    place.start = int(at);
    place.kind = PlaceKind::Tag;
    for (++at; at < before.size(); ++at) {
        if (!isOfName(QLatin1Char(before[at])) && before[at] != '/')
            place.kind = PlaceKind::Nothing;
    }
    return true;
}

CodePlace optionPlace(QByteArrayView before)
{
    CodePlace place;
    qsizetype start = before.size();
    while (start > 0 && before[start - 1] != ' ' && before[start - 1] != '\t')
        --start;
    place.start = int(start);
    const bool isComment = before.contains(';') || before.trimmed().startsWith('#');
    place.kind = isComment || before.count('"') % 2 != 0 ? PlaceKind::Nothing : PlaceKind::Option;
    return place;
}

CodePlace documentPlace(QByteArrayView before)
{
    CodePlace place;
    place.start = wordStart(before);
    if (before.first(place.start).trimmed().isEmpty())
        place.kind = PlaceKind::Document;
    return place;
}

CodePlace codePlace(const Piece &piece, const PieceText &text, int line, QByteArrayView before)
{
    CodePlace place;
    const PieceState state = text.stateAt(line);
    if (text.role() == DocumentRole::Csd && state.code == CodeState::Code && readTag(before, place))
        return place;
    switch (state.section) {
    case PieceSection::Orchestra:
        return orchestraPlace(piece, text, line, before);
    case PieceSection::Score:
        return scorePlace(before, state.code);
    case PieceSection::Options:
        return state.code == CodeState::Code ? optionPlace(before) : place;
    case PieceSection::Outside:
        return state.code == CodeState::Code ? documentPlace(before) : place;
    default:
        return place;
    }
}

} // namespace

CompletionPlace completionPlace(const Piece &piece, const PieceText &text, int line, int column)
{
    CompletionPlace place;
    place.role = text.role();
    place.line = line;
    if (line < 1 || line > text.lineCount() || text.line(line).size() > LongestLine)
        return place;
    const QByteArray bytes = text.line(line).toByteArray();
    const int caret = byteOfCharacter(bytes, column);
    const CodePlace code = codePlace(piece, text, line, QByteArrayView(bytes).first(caret));
    place.kind = code.kind;
    place.section = text.stateAt(line).section;
    place.opcode = code.opcode;
    place.argument = code.argument;
    place.left = code.left;
    place.isQuoted = code.isQuoted;
    place.isInValue = code.isInValue;
    place.open = code.open;
    if (!place.isSomething())
        return place;
    place.start = charactersOf(bytes, code.start);
    place.end = charactersOf(bytes, caret);
    place.typed = QString::fromUtf8(bytes.sliced(code.start, caret - code.start));
    place.end += restOfWord(place, QString::fromUtf8(bytes.sliced(caret)));
    return place;
}

int restOfWord(const CompletionPlace &place, QStringView behind)
{
    qsizetype length = 0;
    while (length < behind.size() && isOfCompletedWord(place, behind[length]))
        ++length;
    // An open text may as well end with the line, and then it would have the whole rest of that.
    return place.isQuoted && length == behind.size() ? 0 : int(length);
}

bool isOfCompletedWord(const CompletionPlace &place, QChar c)
{
    if (place.isQuoted)
        return c != u'"';
    switch (place.kind) {
    case PlaceKind::Option:
        return c != u' ' && c != u'\t';
    case PlaceKind::Tag:
        return isOfName(c) || c == u'<' || c == u'/' || c == u'>';
    case PlaceKind::Macro:
        return isOfName(c) || c == u'$';
    case PlaceKind::Directive:
        return isOfName(c) || c == u'#';
    default:
        return isOfName(c);
    }
}

} // namespace ardiphon
