#include "piece/ScoreWords.h"

#include <algorithm>

namespace ardiphon {

namespace {

bool isWordByte(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

bool isPlayingLetter(char letter) { return letter == 'i' || letter == 'd' || letter == 'q'; }

QByteArrayView withoutZeros(QByteArrayView digits)
{
    while (digits.size() > 1 && digits.front() == '0')
        digits = digits.sliced(1);
    return digits;
}

bool isIdentifier(QByteArrayView text)
{
    return !text.isEmpty() && !(text[0] >= '0' && text[0] <= '9') &&
           std::all_of(text.begin(), text.end(), isWordByte);
}

class ScoreWordReader
{
public:
    ScoreWordReader(QByteArrayView line, int offset, const PieceWord &like,
                    const QByteArrayList &arguments, PieceWords &words)
        : m_line(line), m_offset(offset), m_like(like), m_arguments(arguments), m_words(words)
    {
    }

    void readStatement(const ScoreStatement &statement)
    {
        const auto &fields = statement.fields;
        if (isPlayingLetter(statement.letter) && !fields.isEmpty())
            readInstrument(fields[0]);
        else if ((statement.letter == '{' || statement.letter == 'r') && fields.size() > 1)
            addName(WordUse::Macro, fields[1], true);
        else if ((statement.letter == 'm' || statement.letter == 'n') && !fields.isEmpty())
            addName(WordUse::Label, fields[0], statement.letter == 'm');
    }

    void addName(WordUse use, ScoreRange at, bool defines)
    {
        if (!isIdentifier(at.in(m_line)))
            return;
        PieceWord word = wordAt(at);
        word.use = use;
        word.defines = defines;
        m_words.append(word);
    }

    void addMacros(ScoreRange at)
    {
        addMacroUses(at.in(m_line), m_offset + at.start, m_arguments, m_like, m_words);
    }

private:
    PieceWord wordAt(ScoreRange at) const
    {
        PieceWord word = m_like;
        word.start = word.literalStart = m_offset + at.start;
        word.length = word.literalLength = at.length;
        word.name = at.in(m_line);
        return word;
    }

    void readInstrument(ScoreRange field)
    {
        PieceWord word = wordAt(field);
        const QByteArrayView text = field.in(m_line);
        if (text.startsWith('[') || text.startsWith('$'))
            word.use = WordUse::HiddenInstrument;
        else if (!readInstrumentLiteral(text, m_offset + field.start, word))
            return;
        m_words.append(word);
    }

    QByteArrayView m_line;
    const int m_offset;
    const PieceWord &m_like;
    const QByteArrayList &m_arguments;
    PieceWords &m_words;
};

/// The text of a macro, from \a start to the # that ends it or to the end of the line.
void readScoreMacro(QByteArrayView line, int start, int length, const OpenMacro &macro,
                    PieceWords &words)
{
    PieceWord like;
    like.section = PieceSection::Score;
    like.isInMacro = true;
    const QByteArrayView text = line.sliced(start, length);
    CodeState state = CodeState::Code;
    const ScoreStatement statement = readScoreLine(text, state);
    ScoreWordReader(text, start, like, macro.arguments, words).readStatement(statement);
    addMacroUses(text, start, macro.arguments, like, words);
}

QByteArrayList argumentsOf(const ScoreDirective &directive, QByteArrayView line)
{
    QByteArrayList names;
    for (const ScoreRange &name : directive.arguments)
        names.append(name.in(line).toByteArray());
    return names;
}

void readScoreDirective(const ScoreDirective &directive, QByteArrayView line, OpenMacro &macro,
                        ScoreWordReader &reader, PieceWords &words)
{
    using Kind = ScoreDirective::Kind;
    if (directive.kind == Kind::Include || directive.kind == Kind::Else ||
        directive.kind == Kind::End)
        return;
    reader.addName(WordUse::Macro, directive.name, directive.kind == Kind::Define);
    if (directive.kind != Kind::Define)
        return;
    macro.arguments = argumentsOf(directive, line);
    for (const ScoreRange &argument : directive.arguments)
        reader.addName(WordUse::MacroArgument, argument, true);
    if (directive.text.length > 0)
        readScoreMacro(line, directive.text.start, directive.text.length, macro, words);
}

/// A note within a text in quotes, where a name's own quotes are written \".
void readEscapedNote(QByteArrayView text, int offset, PieceWords &words)
{
    qsizetype at = 0;
    while (at < text.size() && (text[at] == ' ' || text[at] == '\t'))
        ++at;
    if (at >= text.size() || !isPlayingLetter(text[at]))
        return;
    for (++at; at < text.size() && (text[at] == ' ' || text[at] == '\t');)
        ++at;
    const QByteArrayView rest = text.sliced(at);
    const bool isName = rest.startsWith("\\\"");
    qsizetype length = isName ? rest.indexOf("\\\"", 2) : 0;
    while (!isName && length < rest.size() &&
           (isWordByte(rest[length]) || rest[length] == '.' || rest[length] == '-' ||
            rest[length] == '+'))
        ++length;
    if (length <= 0)
        return;
    PieceWord word;
    const int start = offset + int(at);
    const QByteArray name = rest.sliced(isName ? 2 : 0, length - (isName ? 2 : 0)).toByteArray();
    const QByteArray quoted = '"' + name + '"';
    if (!readInstrumentLiteral(isName ? quoted : name, start, word))
        return;
    if (isName) {
        word.start += 1; // the backslash
        word.literalLength = int(length) + 2;
    }
    const QByteArrayView written = text.sliced(word.start - offset, word.length);
    word.name = isName ? written : withoutZeros(written);
    word.form = isName ? WordForm::EscapedQuoted : WordForm::EscapedNumber;
    words.append(word);
}

} // namespace

void readScoreWords(QByteArrayView line, CodeState &state, OpenMacro &macro, PieceWords &words)
{
    const bool beginsInMacro = state == CodeState::Macro;
    PieceWord like;
    like.section = PieceSection::Score;
    if (beginsInMacro) {
        const qsizetype end = line.indexOf('#');
        readScoreMacro(line, 0, int(end < 0 ? line.size() : end), macro, words);
    }
    const ScoreStatement statement = readScoreLine(line, state);
    static const QByteArrayList noArguments;
    ScoreWordReader reader(line, 0, like, noArguments, words);
    for (const ScoreDirective &directive : statement.directives)
        readScoreDirective(directive, line, macro, reader, words);
    reader.readStatement(statement);
    if (!line.contains('$'))
        return;
    for (const ScoreRange &field : statement.fields)
        reader.addMacros(field);
}

void readScoreText(QByteArrayView text, int offset, bool isQuoted, PieceWords &words)
{
    if (isQuoted) {
        readEscapedNote(text, offset, words);
        return;
    }
    CodeState state = CodeState::Code;
    const ScoreStatement statement = readScoreLine(text, state);
    const PieceWord like;
    if (isPlayingLetter(statement.letter))
        ScoreWordReader(text, offset, like, {}, words).readStatement(statement);
}

void addMacroUses(QByteArrayView text, int offset, const QByteArrayList &arguments,
                  const PieceWord &like, PieceWords &words)
{
    for (qsizetype at = text.indexOf('$'); at >= 0; at = text.indexOf('$', at)) {
        const qsizetype start = ++at;
        while (at < text.size() && isWordByte(text[at]))
            ++at;
        if (at == start)
            continue;
        PieceWord word = like;
        word.name = text.sliced(start, at - start);
        word.use = arguments.contains(word.name) ? WordUse::MacroArgument : WordUse::Macro;
        word.start = word.literalStart = offset + int(start);
        word.length = word.literalLength = int(at - start);
        words.append(word);
    }
}

bool readInstrumentLiteral(QByteArrayView literal, int offset, PieceWord &word)
{
    const std::optional<ScoreInstrument> read = instrumentOf(literal);
    const bool isQuoted = literal.startsWith('"');
    if (!read || (isQuoted && (literal.size() < 2 || !literal.endsWith('"'))))
        return false;
    word.use = WordUse::Instrument;
    word.literalStart = offset;
    word.literalLength = int(literal.size());
    if (isQuoted) {
        if (!isIdentifier(read->name))
            return false;
        word.form = WordForm::Quoted;
        word.start = offset + int(read->name.data() - literal.data());
        word.length = int(read->name.size());
        word.name = read->name;
        return true;
    }
    const int sign = literal[0] >= '0' && literal[0] <= '9' ? 0 : 1;
    const qsizetype fraction = literal.indexOf('.');
    word.form = WordForm::Number;
    word.start = offset + sign;
    word.length = int(fraction < 0 ? literal.size() : fraction) - sign;
    word.name = withoutZeros(literal.sliced(sign, word.length));
    return word.name != "0";
}

} // namespace ardiphon
