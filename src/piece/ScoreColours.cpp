#include "piece/ScoreColours.h"

#include "piece/ScoreStatement.h"

namespace ardiphon {

namespace {

bool isOfMacroName(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// Paints what the reader of the score tells of a line; what it passes over are comments and the
/// texts of macros.
class ScorePainter
{
public:
    /// \a part is the part of a line from \a offset on.
    ScorePainter(QByteArrayView part, qsizetype offset, Meaning directive, MeaningPaint &paint)
        : m_line(part), m_offset(offset), m_directive(directive), m_paint(paint)
    {
    }

    void read(CodeState &state)
    {
        const CodeState before = state;
        m_statement = readScoreLine(m_line, state);
        if (isScoreStatement(m_statement.letter))
            paint(m_statement.letterAt, 1, Meaning::Statement);
        for (const ScoreRange &field : m_statement.fields)
            paintField(field);
        paintName();
        for (const ScoreDirective &directive : m_statement.directives)
            paintDirective(directive);
        paintRest(before);
    }

private:
    void paint(qsizetype start, qsizetype length, Meaning meaning)
    {
        m_paint.paint(m_offset + start, length, meaning);
    }

    void paintField(ScoreRange field)
    {
        const QByteArrayView text = field.in(m_line);
        paint(field.start, field.length, text[0] == '"' ? Meaning::Text : Meaning::Plain);
        if (text[0] == '"')
            return;
        for (qsizetype at = text.indexOf('$'); at >= 0; at = text.indexOf('$', at + 1)) {
            qsizetype end = at + 1;
            while (end < text.size() && isOfMacroName(text[end]))
                ++end;
            if (end > at + 1 && end < text.size() && text[end] == '.')
                ++end;
            if (end > at + 1)
                paint(field.start + at, end - at, Meaning::Macro);
        }
    }

    /// The macro that a loop or a repetition counts with, or the place that a statement names.
    void paintName()
    {
        const char letter = m_statement.letter;
        const bool isPlace = letter == 'm' || letter == 'n';
        const qsizetype at = isPlace ? 0 : 1;
        if ((!isPlace && letter != '{' && letter != 'r') || m_statement.fields.size() <= at)
            return;
        const ScoreRange name = m_statement.fields[at];
        if (std::all_of(m_line.begin() + name.start, m_line.begin() + name.start + name.length,
                        isOfMacroName))
            paint(name.start, name.length, isPlace ? Meaning::Label : Meaning::Macro);
    }

    void paintDirective(const ScoreDirective &directive)
    {
        using Kind = ScoreDirective::Kind;
        paint(directive.word.start, directive.word.length, m_directive);
        if (directive.kind == Kind::Include && directive.name.length > 0) {
            const qsizetype end = directive.name.start + directive.name.length;
            paint(directive.name.start - 1,
                  std::min(end + 1, m_line.size()) - directive.name.start + 1, Meaning::Text);
        } else {
            paint(directive.name.start, directive.name.length, Meaning::Macro);
        }
        for (const ScoreRange &argument : directive.arguments)
            paint(argument.start, argument.length, Meaning::Macro);
        if (directive.text.length > 0)
            paintMacroText(directive.text.start, directive.text.length);
    }

    /// It is read by itself, as it is read again where it is used.
    void paintMacroText(qsizetype start, qsizetype length)
    {
        CodeState state = CodeState::Code;
        ScorePainter(m_line.sliced(start, length), m_offset + start, m_directive, m_paint)
            .read(state);
        for (qsizetype at = start; at < start + length; ++at) {
            if (!m_paint.isPainted(m_offset + at) && !MeaningPaint::isBlank(m_line[at]))
                paint(at, 1, Meaning::Plain);
        }
    }

    /// What was not told as a part of a statement.
    void paintRest(CodeState before)
    {
        qsizetype at = 0;
        if (before == CodeState::BlockComment)
            at = paintBlockComment(0, 0);
        else if (before == CodeState::Macro)
            at = paintOpenMacro(0);
        while (at < m_line.size()) {
            const QByteArrayView rest = m_line.sliced(at);
            if (m_paint.isPainted(m_offset + at) || MeaningPaint::isBlank(m_line[at])) {
                ++at;
            } else if (rest.startsWith("/*")) {
                at = paintBlockComment(at, at + 2);
            } else if (rest[0] == ';' || rest.startsWith("//") || beginsComment(rest[0])) {
                paint(at, rest.size(), Meaning::Comment);
                return;
            } else if (rest[0] == '#' && hasNoStatement()) {
                at = paintOpenMacro(at + 1);
            } else {
                ++at;
            }
        }
    }

    bool hasNoStatement() const { return m_statement.letter == 0 && m_statement.fields.isEmpty(); }
    /// There is a statement that is a comment.
    bool beginsComment(char c) const { return c == 'c' && hasNoStatement(); }

    /// Its text, behind what opens it, is searched from \a from on.
    qsizetype paintBlockComment(qsizetype start, qsizetype from)
    {
        const qsizetype found = m_line.sliced(from).indexOf("*/");
        const qsizetype end = found < 0 ? m_line.size() : from + found + 2;
        paint(start, end - start, Meaning::Comment);
        return end;
    }

    /// From \a start to the # that ends it; gives the place behind that.
    qsizetype paintOpenMacro(qsizetype start)
    {
        const qsizetype found = m_line.indexOf('#', start);
        const qsizetype end = found < 0 ? m_line.size() : found;
        if (end > start)
            paintMacroText(start, end - start);
        return std::min(end + 1, m_line.size());
    }

    const QByteArrayView m_line;
    const qsizetype m_offset;
    const Meaning m_directive;
    MeaningPaint &m_paint;
    ScoreStatement m_statement;
};

} // namespace

void paintScoreLine(QByteArrayView line, CodeState &state, Meaning directive, MeaningPaint &paint)
{
    ScorePainter(line, 0, directive, paint).read(state);
}

} // namespace ardiphon
