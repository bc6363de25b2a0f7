#include "typing/UserSignature.h"

#include "piece/PieceBodies.h"
#include "piece/StatementTokens.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int MostBodyLines = 200;
constexpr int MostCommentLines = 3;

struct TypeDefault
{
    char letter;
    char type;
    const char *value; ///< null where it has to be given
};

constexpr TypeDefault TypeDefaults[] = {
    {'o', 'i', "0"},   {'p', 'i', "1"},   {'q', 'i', "10"},    {'v', 'i', "0.5"},
    {'j', 'i', "-1"},  {'h', 'i', "127"}, {'O', 'k', "0"},     {'P', 'k', "1"},
    {'V', 'k', "0.5"}, {'J', 'k', "-1"},  {'K', 'k', nullptr},
};

const TypeDefault *defaultOf(char letter)
{
    const auto *const found =
        std::find_if(std::begin(TypeDefaults), std::end(TypeDefaults),
                     [=](const TypeDefault &known) { return known.letter == letter; });
    return found == std::end(TypeDefaults) ? nullptr : found;
}

/// An argument as a heading gives it.
struct UserArgument
{
    QString name;
    QString value; ///< by default; "" where it has to be given
};

/// Those of the types \a types, as "aki[]o", called by \a names where there are as many.
QList<UserArgument> argumentsOf(QByteArrayView types, const QStringList &names)
{
    QList<UserArgument> arguments;
    for (qsizetype at = 0; at < types.size(); ++at) {
        const char letter = types[at];
        if (letter == '0' || letter == ' ' || letter == '[' || letter == ']')
            continue;
        const TypeDefault *const known = defaultOf(letter);
        const bool isArray = at + 1 < types.size() && types[at + 1] == '[';
        UserArgument argument;
        argument.name = QLatin1Char(known ? known->type : letter) +
                        QString::number(arguments.size() + 1) +
                        (isArray ? QStringLiteral("[]") : QString());
        if (known && known->value)
            argument.value = QLatin1String(known->value);
        arguments.append(argument);
    }
    if (names.size() == arguments.size()) {
        for (qsizetype i = 0; i < names.size(); ++i)
            arguments[i].name = names[i];
    }
    return arguments;
}

/// Adds \a arguments to the end of a signature.
void appendArguments(Signature &signature, QList<SignatureArgument> &to,
                     const QList<UserArgument> &arguments)
{
    bool isFirst = true;
    for (const UserArgument &argument : arguments) {
        const bool isOptional = !argument.value.isEmpty();
        if (isOptional)
            signature.text += isFirst ? QStringLiteral("[") : QStringLiteral(" [, ");
        else if (!isFirst)
            signature.text += QStringLiteral(", ");
        to.append({argument.name, int(signature.text.size()), isOptional, false, false});
        signature.text += argument.name;
        if (isOptional)
            signature.text += QStringLiteral(" = %1]").arg(argument.value);
        isFirst = false;
    }
}

class UserSignatureReader
{
public:
    UserSignatureReader(const Piece &piece, const PieceText &text, PlacedLandmark found)
        : m_piece(piece), m_text(text), m_found(found)
    {
    }

    UserSignature read()
    {
        UserSignature result;
        result.place = m_piece.placeOf(m_text, m_found);
        result.comment = commentOf(m_text, m_found.line);
        result.signature.name = m_piece.nameText(*m_found.mark);
        readLine(m_found.line);
        if (m_found.mark->detail == 1)
            readTyped(result.signature);
        else
            readPlain(result.signature);
        return result;
    }

private:
    void readLine(int line)
    {
        CodeState state = m_text.stateAt(line).code; // which reads other lines
        m_bytes = m_text.line(line);
        m_bytes = m_bytes.first(std::min(m_bytes.size(), PieceText::LongestLine));
        m_tokens.clear();
        for (const CodeToken &token : readCodeLine(m_bytes, state)) {
            if (token.kind != CodeTokenKind::Comment)
                m_tokens.append(token);
        }
    }

    /// opcode name, outputs, inputs
    void readPlain(Signature &signature)
    {
        QByteArrayList types(2);
        int at = -1;
        for (const CodeToken &token : m_tokens) {
            if (token.start <= m_found.mark->column)
                continue;
            if (token.in(m_bytes) == ",")
                ++at;
            else if (at >= 0 && at < 2)
                types[at] += token.in(m_bytes);
        }
        readBody();
        signature.form = SignatureForm::Statement;
        appendArguments(signature, signature.outputs, argumentsOf(types[0], m_outputs));
        if (!signature.text.isEmpty())
            signature.text += u' ';
        signature.text += signature.name + u' ';
        appendArguments(signature, signature.inputs, argumentsOf(types[1], m_inputs));
        signature.text = signature.text.trimmed();
    }

    /// opcode name(freq:k, amp:i):(a)
    void readTyped(Signature &signature)
    {
        const int start = m_found.mark->column;
        const int end = m_tokens.isEmpty() ? start : m_tokens.last().end();
        const QByteArrayView heading = m_bytes.sliced(start, std::max(0, end - start));
        signature.form = SignatureForm::Function;
        signature.text = QString::fromUtf8(heading);
        const StatementTokens tokens(m_bytes, m_tokens);
        qsizetype at = 0;
        while (tokens.has(at) && !tokens.isSymbol(at, "("))
            ++at;
        for (++at; tokens.has(at) && !tokens.isSymbol(at, ")"); ++at) {
            if (!tokens.isName(at) || tokens.isType(at))
                continue;
            const int behind = m_tokens[tokens.behindVariable(at) - 1].end();
            const int from = m_tokens[at].start;
            signature.inputs.append({QString::fromUtf8(m_bytes.sliced(from, behind - from)),
                                     charactersOf(m_bytes, from) - charactersOf(m_bytes, start),
                                     false, false, false});
        }
    }

    /// What xin and xout call the arguments.
    void readBody()
    {
        const auto body = bodyAt(m_piece, m_text, m_found.line);
        if (!body)
            return;
        const int last = std::min(body->lines.last, m_found.line + MostBodyLines);
        for (int line = m_found.line + 1; line <= last; ++line) {
            readLine(line);
            const StatementTokens tokens(m_bytes, m_tokens);
            for (qsizetype at = 0; tokens.has(at); ++at) {
                if (tokens.word(at) == "xin" && m_inputs.isEmpty())
                    m_inputs = names(tokens, 0, at);
                else if (tokens.word(at) == "xout" && m_outputs.isEmpty())
                    m_outputs = names(tokens, at + 1, m_tokens.size());
            }
        }
    }
    /// Variables with commas between them; none where there is anything else.
    static QStringList names(const StatementTokens &tokens, qsizetype from, qsizetype end)
    {
        QStringList found;
        for (qsizetype at = from; at < end; ++at) {
            if (!tokens.isName(at))
                return {};
            const bool isArray = tokens.isSymbol(at + 1, "[");
            found.append(QString::fromUtf8(tokens.word(at)) +
                         (isArray ? QStringLiteral("[]") : QString()));
            at = tokens.behindVariable(at);
            if (at < end && !tokens.isSymbol(at, ","))
                return {};
        }
        return found;
    }

    const Piece &m_piece;
    const PieceText &m_text;
    const PlacedLandmark m_found;
    QByteArrayView m_bytes;
    CodeTokens m_tokens;
    QStringList m_inputs;
    QStringList m_outputs;
};

/// The comment at the end of a line of code; or of a line that has nothing else.
QString commentIn(const PieceText &text, int line, bool isAlone)
{
    CodeState state = text.stateAt(line).code;
    const QByteArrayView bytes = text.line(line);
    const CodeTokens tokens =
        readCodeLine(bytes.first(std::min(bytes.size(), PieceText::LongestLine)), state);
    if (tokens.isEmpty() || tokens.last().kind != CodeTokenKind::Comment ||
        (isAlone && tokens.size() > 1))
        return QString();
    QString comment = QString::fromUtf8(tokens.last().in(bytes)).trimmed();
    while (!comment.isEmpty() && QStringView(u";/*-= ").contains(comment.front()))
        comment.remove(0, 1);
    while (!comment.isEmpty() && QStringView(u"/*-= ").contains(comment.back()))
        comment.chop(1);
    return comment;
}

} // namespace

QList<UserSignature> userSignaturesOf(const Piece &piece, QByteArrayView name)
{
    QList<UserSignature> all;
    const PieceText *const text = piece.orchestra();
    if (!text || !text->definesOpcode(name))
        return all;
    text->visitKind(LandmarkKind::Opcode, [&](PlacedLandmark found) {
        if (piece.nameOf(*found.mark) == name && found.line <= text->lineCount())
            all.append(UserSignatureReader(piece, *text, found).read());
        return all.size() < 20;
    });
    return all;
}

QString commentOf(const PieceText &text, int line)
{
    if (line < 1 || line > text.lineCount())
        return QString();
    const QString behind = commentIn(text, line, false);
    if (!behind.isEmpty())
        return behind;
    QStringList above;
    for (int at = line - 1; at >= 1 && above.size() < MostCommentLines; --at) {
        const QString comment = commentIn(text, at, true);
        if (comment.isEmpty())
            break;
        above.prepend(comment);
    }
    return above.join(u' ');
}

} // namespace ardiphon
