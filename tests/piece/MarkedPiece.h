#pragma once

#include "piece/PieceLines.h"
#include "piece/PieceOccurrences.h"

/// Some more opcodes of the language than isTestOpcode() has.
inline bool isMarkedOpcode(QByteArrayView name)
{
    static const QByteArrayList names = {
        "event_i", "scoreline", "scoreline_i", "nstrnum",  "turnoff2", "subinstr",  "alwayson",
        "massign", "maxalloc",  "timout",      "reinit",   "loop_lt",  "tigoto",    "chn_k",
        "chnsets", "cggoto",    "prealloc",    "insremot", "connect",  "schedwhen", "pgmassign",
        "i",       "k",         "nstrstr",     "line",     "setksmps", "rireturn",  "diskin2",
        "sprintf", "puts",      "lenarray",    "fillarray"};
    return isTestOpcode(name) || names.contains(name.toByteArray());
}

/// A piece that a test writes with marks: § where the caret is, and « and » around each place that
/// is to be found.
struct MarkedPiece
{
    explicit MarkedPiece(const QByteArray &text,
                         ardiphon::DocumentRole role = ardiphon::DocumentRole::Csd)
        : marked(QString::fromUtf8(text).remove(QChar(0xa7))),
          lines(plain(text)),
          piece({{role, &lines}}, isMarkedOpcode)
    {
        piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
        QString beforeCaret = QString::fromUtf8(text).section(QChar(0xa7), 0, 0);
        beforeCaret.remove(QChar(0xab)).remove(QChar(0xbb));
        caretLine = 1 + int(beforeCaret.count(u'\n'));
        caretColumn = int(beforeCaret.section(u'\n', -1).size());
    }

    static QByteArray plain(const QByteArray &text)
    {
        QString all = QString::fromUtf8(text);
        return all.remove(QChar(0xa7)).remove(QChar(0xab)).remove(QChar(0xbb)).toUtf8();
    }
    const ardiphon::PieceText &text() const { return piece.texts().front(); }
    std::optional<ardiphon::PieceSymbol> symbol() const
    {
        return symbolAt(piece, text(), caretLine, caretColumn);
    }
    /// The text with marks around \a places.
    QString markedWith(const QList<ardiphon::PiecePlace> &places) const
    {
        QStringList all = QString::fromUtf8(lines.lines.join('\n')).split(u'\n');
        for (auto place = places.rbegin(); place != places.rend(); ++place) {
            all[place->line - 1].insert(place->column + place->length, QChar(0xbb));
            all[place->line - 1].insert(place->column, QChar(0xab));
        }
        return all.join(u'\n');
    }

    QString marked; ///< without the caret
    PieceTextLines lines;
    ardiphon::Piece piece;
    int caretLine = 1;
    int caretColumn = 0;
};
