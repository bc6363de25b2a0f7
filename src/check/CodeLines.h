#pragma once

#include "language/LineRun.h"
#include "piece/CodeTokens.h"
#include "piece/PieceText.h"

#include <functional>
#include <vector>

namespace ardiphon {

/// The code of a line of an orchestra: its tokens without comments, and the same without the blanks
/// between them, as messages of the compiler are compared with it.
class CodeLine
{
public:
    /// Reads \a bytes, of which \a state tells what is open before them and then behind them. They
    /// outlive it.
    CodeLine(QByteArrayView bytes, CodeState &state);

    QByteArrayView bytes() const { return m_bytes; }
    const CodeTokens &tokens() const { return m_tokens; }
    bool isEmpty() const { return m_tokens.isEmpty(); }
    const QByteArray &packed() const { return m_packed; }
    /// The token that ends with the first \a length bytes of packed(), or has them in it; -1 for
    /// none.
    int tokenEndingAt(qsizetype length) const;
    /// The last token that is \a text, -1 where there is none; no blanks at its ends count.
    int tokenNamed(QByteArrayView text) const;
    /// How far the code is indented, in columns of tabs of 8.
    int indent() const;

private:
    QByteArrayView m_bytes;
    CodeTokens m_tokens;
    QByteArray m_packed;
    std::vector<qsizetype> m_ends; ///< of the tokens in m_packed
};

/// Calls \a visit for the lines \a run of the orchestra in \a text, until it returns false.
void visitCode(const PieceText &text, LineRun run,
               const std::function<bool(int line, const CodeLine &code)> &visit);

/// \a text without blanks.
QByteArray packed(const QString &text);

} // namespace ardiphon
