#pragma once

#include "language/DocumentText.h"
#include "language/LineSource.h"
#include "language/TextPresence.h"
#include "language/TextSearch.h"

#include <QByteArrayView>
#include <QString>

class QsciScintillaBase;

namespace ardiphon {

/// A place in the text as the contract of LEditOCX counts it.
struct TextPosition
{
    int line = 1;   ///< from 1
    int column = 0; ///< in QChars from 0
};

/// The document inside the view: UTF-8 bytes with the line ends of the file. Offsets are bytes,
/// lines are counted from 1, as in the contract.
class TextBuffer final : public GappedText, public LineSource
{
public:
    explicit TextBuffer(QsciScintillaBase &view);

    qsizetype size() const override;
    int lineCount() const override;
    bool hasLine(int line) const { return line >= 1 && line <= lineCount(); }
    /// The offset at which an existing line starts; size() for a line after the last.
    qsizetype lineStart(int line) const;
    /// The offset at which its text ends, before its line end.
    qsizetype lineEnd(int line) const;
    int lineOf(qsizetype offset) const;

    /// Bytes of the document itself, which the document may move: valid until the next call of this
    /// routine, lineBytes() or text(), or until the text changes.
    QByteArrayView bytes(qsizetype start, qsizetype end) const override;
    QByteArrayView lineBytes(int line) const { return bytes(lineStart(line), lineEnd(line)); }
    QByteArrayView line(int line) const override { return lineBytes(line); }
    qsizetype gap() const override;
    /// The text of a range with CR LF line ends.
    QString text(TextRange range) const;

    TextPosition positionOf(qsizetype offset) const;
    /// Clamped: a column after a line's end is that end, a line outside the text is the text's end.
    qsizetype offsetOf(TextPosition position) const;

    TextRange selection() const;
    /// With the caret at its end; scrolls nothing.
    void select(TextRange range);
    qsizetype caret() const;

    LineEnd lineEndKind() const { return m_lineEnd; }
    void setLineEndKind(LineEnd kind);

    /// Replaces a range by UTF-8 text. Its line ends become those of the document. A CR and an LF
    /// that would meet stay two line ends. Returns where the new text ends.
    qsizetype replace(TextRange range, QByteArrayView utf8);
    /// Replaces the whole document without history; \a utf8 is taken as it is.
    void reset(const QByteArray &utf8);

private:
    char byteAt(qsizetype offset) const;
    long send(unsigned message, qsizetype first = 0, qsizetype second = 0) const;

    QsciScintillaBase &m_view;
    // The library's own routine and its first argument. The view's call returns every answer as a
    // long, which cannot hold a pointer on every system.
    using Ask = qintptr (*)(qintptr, unsigned, quintptr, qintptr);
    Ask m_ask;
    qintptr m_asked;
    LineEnd m_lineEnd = LineEnd::CrLf;
};

/// Changes to the document that belong together and are one step of history.
class EditStep
{
public:
    explicit EditStep(QsciScintillaBase &view);
    ~EditStep();
    Q_DISABLE_COPY_MOVE(EditStep)

private:
    QsciScintillaBase &m_view;
};

} // namespace ardiphon
