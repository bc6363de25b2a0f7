#pragma once

#include <QByteArray>

namespace ardiphon {

enum class LineEnd { CrLf, Lf, Cr };

/// The bytes of a line end.
QByteArrayView bytesOf(LineEnd lineEnd);

/// How the bytes of a document's file are read and written.
struct DocumentForm
{
    bool utf8 = true; ///< else each byte is one Latin-1 character
    bool byteOrderMark = false;
    LineEnd lineEnd = LineEnd::CrLf; ///< what a new line gets; those of the file are kept as found

    friend bool operator==(const DocumentForm &, const DocumentForm &) = default;
};

/// A file as the editor holds it: UTF-8 without a byte order mark, with the file's own line ends.
struct DocumentText
{
    QByteArray utf8;
    DocumentForm form;
};

/// Reads the bytes of a file. Well-formed UTF-8 is UTF-8, anything else Latin-1. Every line end,
/// NUL and control character is kept, so that encodeDocument gives the same bytes again.
DocumentText decodeDocument(QByteArray bytes);

/// The bytes to be written for a text. A Latin-1 document becomes UTF-8, in \a form too, when it
/// got a character outside Latin-1, or when its Latin-1 bytes would be read back as another text.
QByteArray encodeDocument(const QByteArray &utf8, DocumentForm &form);

/// \a text in UTF-8 with each of its line ends, of whatever kind, as \a lineEnd.
QByteArray withLineEnds(QByteArrayView text, LineEnd lineEnd);

} // namespace ardiphon
