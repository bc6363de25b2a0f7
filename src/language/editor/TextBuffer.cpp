#include "language/editor/TextBuffer.h"

#include "language/Utf8.h"

#include <Qsci/qsciscintillabase.h>

#include <algorithm>

namespace ardiphon {

using Sci = QsciScintillaBase;

TextBuffer::TextBuffer(QsciScintillaBase &view)
    : m_view(view),
      m_ask(reinterpret_cast<Ask>(view.SendScintillaPtrResult(Sci::SCI_GETDIRECTFUNCTION))),
      m_asked(reinterpret_cast<qintptr>(view.SendScintillaPtrResult(Sci::SCI_GETDIRECTPOINTER)))
{
}

long TextBuffer::send(unsigned message, qsizetype first, qsizetype second) const
{
    return m_view.SendScintilla(message, static_cast<unsigned long>(first),
                                static_cast<long>(second));
}

qsizetype TextBuffer::size() const { return send(Sci::SCI_GETLENGTH); }

int TextBuffer::lineCount() const { return int(send(Sci::SCI_GETLINECOUNT)); }

qsizetype TextBuffer::lineStart(int line) const
{
    return line > lineCount() ? size() : send(Sci::SCI_POSITIONFROMLINE, std::max(line, 1) - 1);
}

qsizetype TextBuffer::lineEnd(int line) const
{
    return line > lineCount() ? size() : send(Sci::SCI_GETLINEENDPOSITION, std::max(line, 1) - 1);
}

int TextBuffer::lineOf(qsizetype offset) const
{
    return int(send(Sci::SCI_LINEFROMPOSITION, offset)) + 1;
}

QByteArrayView TextBuffer::bytes(qsizetype start, qsizetype end) const
{
    if (end <= start)
        return {};
    const qintptr address = m_ask(m_asked, Sci::SCI_GETRANGEPOINTER, quintptr(start), end - start);
    return {reinterpret_cast<const char *>(address), // NOLINT(performance-no-int-to-ptr)
            end - start};
}

qsizetype TextBuffer::gap() const { return send(Sci::SCI_GETGAPPOSITION); }

char TextBuffer::byteAt(qsizetype offset) const
{
    return offset >= 0 && offset < size() ? char(send(Sci::SCI_GETCHARAT, offset)) : '\0';
}

QString TextBuffer::text(TextRange range) const
{
    return stringOf(withLineEnds(bytes(range.start, range.end), LineEnd::CrLf));
}

TextPosition TextBuffer::positionOf(qsizetype offset) const
{
    const int line = lineOf(offset);
    // A caret may be between a CR and an LF that met when the text between them was deleted.
    const qsizetype inLine = std::min(offset, lineEnd(line));
    return {line, int(utf16Length(bytes(lineStart(line), inLine)))};
}

qsizetype TextBuffer::offsetOf(TextPosition position) const
{
    if (position.line < 1)
        return 0;
    if (position.line > lineCount())
        return size();
    const qsizetype start = lineStart(position.line);
    return start + bytesOfUtf16(lineBytes(position.line), position.column);
}

TextRange TextBuffer::selection() const
{
    // Of a rectangle the library would tell the corners.
    const long main = send(Sci::SCI_GETMAINSELECTION);
    return {send(Sci::SCI_GETSELECTIONNSTART, main), send(Sci::SCI_GETSELECTIONNEND, main)};
}

void TextBuffer::select(TextRange range)
{
    send(Sci::SCI_SETEMPTYSELECTION, range.end); // ends a rectangle too
    send(Sci::SCI_SETSELECTION, range.end, range.start);
}

qsizetype TextBuffer::caret() const { return send(Sci::SCI_GETCURRENTPOS); }

void TextBuffer::setLineEndKind(LineEnd kind)
{
    static constexpr int modes[] = {Sci::SC_EOL_CRLF, Sci::SC_EOL_LF, Sci::SC_EOL_CR};
    m_lineEnd = kind;
    send(Sci::SCI_SETEOLMODE, modes[int(kind)]);
}

qsizetype TextBuffer::replace(TextRange range, QByteArrayView utf8)
{
    QByteArray inserted = withLineEnds(utf8, m_lineEnd);
    const auto behind = [&] { return inserted.isEmpty() ? byteAt(range.end) : inserted.front(); };
    if (byteAt(range.start - 1) == '\r' && behind() == '\n') {
        inserted.prepend("\r\n");
        --range.start;
    }
    if (inserted.endsWith('\r') && byteAt(range.end) == '\n')
        inserted.append('\n');
    send(Sci::SCI_SETTARGETRANGE, range.start, range.end);
    m_view.SendScintilla(Sci::SCI_REPLACETARGET, uintptr_t(inserted.size()), inserted.constData());
    return range.start + inserted.size();
}

void TextBuffer::reset(const QByteArray &utf8)
{
    send(Sci::SCI_SETUNDOCOLLECTION, false);
    send(Sci::SCI_CLEARALL);
    // Room for what is typed too: without any gap the first character would double the buffer.
    send(Sci::SCI_ALLOCATE, utf8.size() + (1 << 16));
    m_view.SendScintilla(Sci::SCI_APPENDTEXT, uintptr_t(utf8.size()), utf8.constData());
    send(Sci::SCI_SETUNDOCOLLECTION, true);
    send(Sci::SCI_EMPTYUNDOBUFFER);
    send(Sci::SCI_SETSAVEPOINT);
}

EditStep::EditStep(QsciScintillaBase &view) : m_view(view)
{
    m_view.SendScintilla(Sci::SCI_BEGINUNDOACTION);
}

EditStep::~EditStep() { m_view.SendScintilla(Sci::SCI_ENDUNDOACTION); }

} // namespace ardiphon
