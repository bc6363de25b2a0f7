#pragma once

#include "language/LineSource.h"
#include "piece/Piece.h"

#include <QByteArrayList>

/// A text in memory, whose lines a test changes.
class PieceTextLines : public ardiphon::LineSource
{
public:
    explicit PieceTextLines(const QByteArray &text = QByteArray()) : lines(text.split('\n')) {}

    int lineCount() const override { return int(lines.size()); }
    /// Each call takes the place of the one before, as in an editor; but for very long lines.
    QByteArrayView line(int line) const override
    {
        const QByteArray &found = lines[line - 1];
        if (found.size() > 100'000)
            return found;
        m_read.fill('?');
        m_read.resize(0);
        m_read.append(found.constData(), found.size());
        return m_read;
    }

    /// Puts \a added in the place of \a removed lines from \a line on.
    ardiphon::TextChange replace(int line, int removed, const QByteArrayList &added)
    {
        QByteArrayList changed = lines.first(line - 1);
        changed += added;
        changed += lines.sliced(line - 1 + removed);
        lines = changed;
        return {line, removed, int(added.size())};
    }

    QByteArrayList lines;

private:
    mutable QByteArray m_read;
};

/// Some opcodes of the language.
inline bool isTestOpcode(QByteArrayView name)
{
    static const QByteArrayList names = {
        "oscili", "out",  "outs",   "print", "prints",  "vco2",  "init",   "igoto",
        "kgoto",  "goto", "printk", "ftgen", "chnset",  "event", "chnget", "schedule",
        "xin",    "xout", "strset", "play",  "turnoff", "fout",  "active"};
    return names.contains(name.toByteArray());
}

/// A piece whose text is in memory, with all of it read.
struct PieceOfLines
{
    explicit PieceOfLines(const QByteArray &text,
                          ardiphon::DocumentRole role = ardiphon::DocumentRole::Csd)
        : lines(text), piece({{role, &lines}}, isTestOpcode)
    {
        piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    }
    const ardiphon::PieceText &text() const { return piece.texts().front(); }

    PieceTextLines lines;
    ardiphon::Piece piece;
};

/// What the landmarks of a text are, each as "line kind name", with its detail where it has one.
inline QStringList describedLandmarks(const PieceOfLines &of)
{
    static const char *const kinds[] = {
        "tag",   "end-tag", "instr",     "opcode", "struct", "label",  "macro", "include", "header",
        "var",   "array",   "p",         "chn",    "table",  "strset", "file",  "title",   "s",
        "endin", "endop",   "macro-end", "begin",  "middle", "end",    "ifdef", "#else",   "#end",
    };
    QStringList all;
    of.text().visit(1, of.text().lineCount(), [&](ardiphon::PlacedLandmark found) {
        QString text =
            QStringLiteral("%1 %2 %3")
                .arg(found.line)
                .arg(QLatin1String(kinds[int(found.mark->kind)]), of.piece.nameText(*found.mark));
        if (found.mark->detail != 0)
            text += QStringLiteral(" %1").arg(found.mark->detail);
        all.append(text);
        return true;
    });
    return all;
}
