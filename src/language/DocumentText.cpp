#include "language/DocumentText.h"

#include "language/Utf8.h"

#include <algorithm>
#include <cstring>

namespace ardiphon {

namespace {

/// Finds the line ends of a text one after the other; looks at each byte once for CR and once for
/// LF.
class LineEndFinder
{
public:
    explicit LineEndFinder(QByteArrayView text) : m_text(text) {}

    /// The first line end from \a at on, or the end of the text. \a at only grows.
    qsizetype next(qsizetype at)
    {
        if (m_carriageReturn < at)
            m_carriageReturn = find('\r', at);
        if (m_lineFeed < at)
            m_lineFeed = find('\n', at);
        return std::min(m_carriageReturn, m_lineFeed);
    }

private:
    qsizetype find(char byte, qsizetype at) const
    {
        const void *found = std::memchr(m_text.data() + at, byte, std::size_t(m_text.size() - at));
        return found ? static_cast<const char *>(found) - m_text.data() : m_text.size();
    }

    QByteArrayView m_text;
    qsizetype m_carriageReturn = -1;
    qsizetype m_lineFeed = -1;
};

constexpr QByteArrayView ByteOrderMark("\xEF\xBB\xBF");

// The kind of line end that is found most often; a text without any gets that of a new document.
LineEnd prevailingLineEnd(QByteArrayView text)
{
    qsizetype crLf = 0;
    qsizetype lf = 0;
    qsizetype cr = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] == '\n') {
            ++lf;
        } else if (text[at] == '\r') {
            const bool pair = at + 1 < text.size() && text[at + 1] == '\n';
            ++(pair ? crLf : cr);
            at += pair ? 1 : 0;
        }
    }
    if (crLf >= lf && crLf >= cr)
        return LineEnd::CrLf;
    return lf >= cr ? LineEnd::Lf : LineEnd::Cr;
}

QByteArray utf8FromLatin1(const QByteArray &bytes)
{
    QByteArray utf8;
    utf8.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x80) {
            utf8.append(byte);
        } else {
            utf8.append(char(0xC0 | code >> 6));
            utf8.append(char(0x80 | (code & 0x3F)));
        }
    }
    return utf8;
}

// False when a character is outside Latin-1.
bool latin1FromUtf8(QByteArrayView utf8, QByteArray &bytes)
{
    bytes.reserve(utf8.size());
    for (qsizetype at = 0; at < utf8.size();) {
        const Utf8Character character = characterAt(utf8, at);
        if (character.code > 0xFF)
            return false;
        bytes.append(char(character.code));
        at += character.length;
    }
    return true;
}

bool isAscii(QByteArrayView text)
{
    for (const char byte : text) {
        if (static_cast<unsigned char>(byte) >= 0x80)
            return false;
    }
    return true;
}

} // namespace

QByteArrayView bytesOf(LineEnd lineEnd)
{
    switch (lineEnd) {
    case LineEnd::Lf:
        return "\n";
    case LineEnd::Cr:
        return "\r";
    case LineEnd::CrLf:
        break;
    }
    return "\r\n";
}

DocumentText decodeDocument(QByteArray bytes)
{
    DocumentText document;
    document.form.utf8 = QByteArrayView(bytes).isValidUtf8();
    if (!document.form.utf8) {
        document.utf8 = utf8FromLatin1(bytes);
    } else {
        document.form.byteOrderMark = bytes.startsWith(ByteOrderMark);
        document.utf8 =
            document.form.byteOrderMark ? bytes.sliced(ByteOrderMark.size()) : std::move(bytes);
    }
    document.form.lineEnd = prevailingLineEnd(document.utf8);
    return document;
}

QByteArray encodeDocument(const QByteArray &utf8, DocumentForm &form)
{
    if (!form.utf8) {
        QByteArray bytes;
        if (latin1FromUtf8(utf8, bytes) && (isAscii(bytes) || !QByteArrayView(bytes).isValidUtf8()))
            return bytes;
        form.utf8 = true;
    }
    return form.byteOrderMark ? ByteOrderMark.toByteArray() + utf8 : utf8;
}

QByteArray withLineEnds(QByteArrayView text, LineEnd lineEnd)
{
    const QByteArrayView end = bytesOf(lineEnd);
    const auto most =
        std::count(text.begin(), text.end(), '\n') + std::count(text.begin(), text.end(), '\r');
    QByteArray result(text.size() + most * (end.size() - 1), Qt::Uninitialized);
    char *out = result.data();
    LineEndFinder finder(text);
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype stop = finder.next(at);
        out = std::copy_n(text.data() + at, stop - at, out);
        if (stop == text.size())
            break;
        out = std::copy_n(end.data(), end.size(), out);
        at = stop + (text.sliced(stop).startsWith("\r\n") ? 2 : 1);
    }
    result.truncate(out - result.constData());
    return result;
}

} // namespace ardiphon
