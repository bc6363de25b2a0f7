#include "check/CodeLines.h"

#include <algorithm>

namespace ardiphon {

CodeLine::CodeLine(QByteArrayView bytes, CodeState &state) : m_bytes(bytes)
{
    for (const CodeToken &token : readCodeLine(bytes, state)) {
        if (token.kind == CodeTokenKind::Comment)
            continue;
        m_tokens.append(token);
        for (const char c : token.in(bytes)) {
            if (c != ' ' && c != '\t')
                m_packed.append(c);
        }
        m_ends.push_back(m_packed.size());
    }
}

int CodeLine::tokenEndingAt(qsizetype length) const
{
    const auto found = std::lower_bound(m_ends.begin(), m_ends.end(), length);
    return length <= 0 || found == m_ends.end() ? -1 : int(found - m_ends.begin());
}

int CodeLine::tokenNamed(QByteArrayView text) const
{
    text = text.trimmed();
    for (qsizetype i = m_tokens.size() - 1; i >= 0; --i) {
        if (m_tokens[i].in(m_bytes) == text)
            return int(i);
    }
    return -1;
}

int CodeLine::indent() const
{
    int columns = 0;
    for (const char c : m_bytes.first(m_tokens.isEmpty() ? 0 : m_tokens.first().start))
        columns = c == '\t' ? (columns / 8 + 1) * 8 : columns + 1;
    return columns;
}

void visitCode(const PieceText &text, LineRun run,
               const std::function<bool(int line, const CodeLine &code)> &visit)
{
    const int last = std::min(run.last, text.lineCount());
    if (run.first < 1 || run.first > last)
        return;
    CodeState state = text.stateAt(run.first).code;
    for (int line = run.first; line <= last; ++line) {
        const QByteArrayView bytes = text.line(line);
        const CodeLine code(bytes.first(std::min(bytes.size(), PieceText::LongestLine)), state);
        if (!visit(line, code))
            return;
    }
}

QByteArray packed(const QString &text)
{
    QByteArray bytes = text.toUtf8();
    bytes.replace(" ", "").replace("\t", "");
    return bytes;
}

} // namespace ardiphon
