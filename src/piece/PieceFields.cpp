#include "piece/PieceFields.h"

#include "piece/StatementTokens.h"

#include <QMap>

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int MostLines = 20'000;
constexpr int MostCommentLines = 100; ///< above a heading
constexpr int LongestSaid = 40;       ///< characters of what a comment says
constexpr int MostFields = 2000;      ///< that a score has

/// The number of a literal; 0 for what is no number of a p-field.
int fieldNumber(QByteArrayView written)
{
    bool isNumber = false;
    const int number = written.toByteArray().toInt(&isNumber);
    return isNumber && number > 0 && number <= MostFields ? number : 0;
}

/// Takes from a comment what it says of p-fields: "p4 pitch", "p4 = amp, p5: cps".
class CommentNames
{
public:
    explicit CommentNames(QMap<int, QString> &names) : m_names(names) {}

    void read(QByteArrayView comment)
    {
        qsizetype end = 0;
        for (qsizetype at = nextField(comment, 0, end); at >= 0;) {
            const int number = fieldNumber(comment.sliced(at + 1, end - at - 1));
            qsizetype nextEnd = end;
            const qsizetype next = nextField(comment, end, nextEnd);
            const QByteArrayView said =
                comment.sliced(end, (next < 0 ? comment.size() : next) - end);
            if (number > 0 && !m_names.contains(number))
                take(number, said);
            at = next;
            end = nextEnd;
        }
    }

private:
    static bool isDigit(char c) { return c >= '0' && c <= '9'; }
    static bool isWordByte(char c)
    {
        return isDigit(c) || c == '_' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    }

    /// Where the next p and a number stand as a word, from \a from on, which ends at \a end; -1 for
    /// none.
    static qsizetype nextField(QByteArrayView text, qsizetype from, qsizetype &end)
    {
        for (qsizetype at = from; at + 1 < text.size(); ++at) {
            if (text[at] != 'p' || !isDigit(text[at + 1]) || (at > 0 && isWordByte(text[at - 1])))
                continue;
            end = at + 1;
            while (end < text.size() && isDigit(text[end]))
                ++end;
            if (end == text.size() || !isWordByte(text[end]))
                return at;
        }
        return -1;
    }

    void take(int number, QByteArrayView said)
    {
        QString name = QString::fromUtf8(said).section(u',', 0, 0).section(u';', 0, 0).trimmed();
        while (!name.isEmpty() &&
               (QStringView(u"=:-/*|>").contains(name.front()) || name.front().isSpace()))
            name.remove(0, 1);
        while (!name.isEmpty() &&
               (QStringView(u"=:-/*|.(").contains(name.back()) || name.back().isSpace()))
            name.chop(1);
        if (!name.isEmpty())
            m_names.insert(number, name.left(LongestSaid).trimmed());
    }

    QMap<int, QString> &m_names;
};

class FieldReader
{
public:
    FieldReader(const PieceText &text, const PieceBodyLines &body) : m_text(text), m_body(body) {}

    PieceFields read()
    {
        readBody();
        readCommentsAbove(); // those within the body count before them
        PieceFields result;
        result.readsAny = m_readsAny;
        for (PieceField &field : m_fields) {
            field.name = m_variables.value(field.number, m_comments.value(field.number));
            result.fields.append(field);
        }
        return result;
    }

private:
    void readBody()
    {
        CodeState state = m_text.stateAt(m_body.lines.first).code;
        const int last = std::min(m_body.lines.last, m_body.lines.first + MostLines);
        for (m_line = m_body.lines.first; m_line <= last; ++m_line) {
            m_bytes = m_text.line(m_line);
            m_bytes = m_bytes.first(std::min(m_bytes.size(), PieceText::LongestLine));
            CodeTokens tokens;
            for (const CodeToken &token : readCodeLine(m_bytes, state)) {
                if (token.kind == CodeTokenKind::Comment)
                    CommentNames(m_comments).read(token.in(m_bytes));
                else
                    tokens.append(token);
            }
            readStatement(tokens);
        }
    }

    /// The lines above the heading that have nothing but a comment.
    void readCommentsAbove()
    {
        int first = m_body.headingLine;
        while (first > 1 && first > m_body.headingLine - MostCommentLines &&
               beginsComment(m_text.line(first - 1)))
            --first;
        for (int line = first; line < m_body.headingLine; ++line)
            CommentNames(m_comments).read(m_text.line(line));
    }
    static bool beginsComment(QByteArrayView line)
    {
        line = line.trimmed();
        return line.startsWith(';') || line.startsWith("//");
    }

    void readStatement(const CodeTokens &tokens)
    {
        const StatementTokens statement(m_bytes, tokens);
        const qsizetype first = statement.isLabel() ? 2 : 0;
        for (qsizetype at = first; at < tokens.size(); ++at) {
            if (statement.isName(at) && !statement.isMember(at))
                readName(statement, tokens, first, at);
        }
    }

    void readName(const StatementTokens &statement, const CodeTokens &tokens, qsizetype first,
                  qsizetype at)
    {
        const QByteArrayView name = statement.word(at);
        if (const int number = pFieldNumber(name); number > 0) {
            add(number, tokens[at]);
            readGiven(statement, first, at, number);
        } else if (name == "pcount") {
            m_readsAny = true;
        } else if (name == "p" && statement.isSymbol(at + 1, "(")) {
            const int literal =
                statement.isSymbol(at + 3, ")") ? fieldNumber(statement.word(at + 2)) : 0;
            addComputed(literal, tokens[at]);
        } else if (name == "pindex") {
            const qsizetype argument = at + (statement.isSymbol(at + 1, "(") ? 2 : 1);
            addComputed(statement.endsArgument(argument) ? fieldNumber(statement.word(argument))
                                                         : 0,
                        tokens[at]);
        } else if (name == "passign") {
            readPassign(statement, tokens, first, at);
        }
    }

    /// A variable that is given the p-field \a at, and nothing else.
    void readGiven(const StatementTokens &statement, qsizetype first, qsizetype at, int number)
    {
        const bool isGiven = statement.isSymbol(at - 1, "=") || statement.word(at - 1) == "init";
        if (statement.has(at + 1) || !isGiven || !statement.isName(first) ||
            statement.behindVariable(first) != at - 1)
            return;
        name(number, statement.word(first));
    }

    /// Names on its left, in their order; an array takes them all.
    void readPassign(const StatementTokens &statement, const CodeTokens &tokens, qsizetype first,
                     qsizetype at)
    {
        int number = 1;
        if (statement.has(at + 1)) {
            number = fieldNumber(statement.word(at + 1));
            if (number == 0 || !statement.endsArgument(at + 1)) {
                m_readsAny = true;
                return;
            }
        }
        for (qsizetype output = first; output < at; ++output, ++number) {
            if (!statement.isName(output))
                return;
            const QByteArrayView variable = statement.word(output);
            const qsizetype behind = statement.behindVariable(output);
            if (statement.isSymbol(output + 1, "[")) {
                m_readsAny = true;
                return;
            }
            add(number, tokens[output]);
            name(number, variable);
            output = behind;
        }
    }

    void addComputed(int literal, const CodeToken &token)
    {
        if (literal > 0)
            add(literal, token);
        else
            m_readsAny = true;
    }

    void add(int number, const CodeToken &token)
    {
        if (number > MostFields || m_fields.contains(number))
            return;
        const int column = charactersOf(m_bytes, token.start);
        const PiecePlace place{m_text.role(), m_line, column,
                               charactersOf(m_bytes, token.end()) - column};
        m_fields.insert(number, {number, QString(), place});
    }

    void name(int number, QByteArrayView variable)
    {
        if (!m_variables.contains(number))
            m_variables.insert(number, QString::fromUtf8(variable));
    }

    const PieceText &m_text;
    const PieceBodyLines &m_body;
    int m_line = 1;
    QByteArrayView m_bytes;
    QMap<int, PieceField> m_fields;
    QMap<int, QString> m_variables;
    QMap<int, QString> m_comments;
    bool m_readsAny = false;
};

} // namespace

QString PieceFields::nameOf(int number) const
{
    const auto found = std::find_if(fields.begin(), fields.end(), [=](const PieceField &field) {
        return field.number == number;
    });
    return found == fields.end() ? QString() : found->name;
}

PieceFields fieldsOf(const PieceText &text, const PieceBodyLines &body)
{
    return FieldReader(text, body).read();
}

} // namespace ardiphon
