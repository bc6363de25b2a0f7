#pragma once

#include "piece/MarkedPiece.h"
#include "piece/PieceRename.h"

/// The texts of \a edits put into \a text, the last one first.
inline QByteArray withEdits(const QByteArray &text, const QList<ardiphon::RenameEdit> &edits)
{
    QStringList lines = QString::fromUtf8(text).split(u'\n');
    for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit)
        lines[edit->place.line - 1].replace(edit->place.column, edit->place.length, edit->text);
    return lines.join(u'\n').toUtf8();
}

/// The rename of what is at the caret of \a of, with all places found.
inline std::unique_ptr<ardiphon::PieceRename> readRename(const MarkedPiece &of)
{
    const auto symbol = of.symbol();
    if (!ardiphon::renameObstacle(symbol).isEmpty())
        return nullptr;
    auto rename = std::make_unique<ardiphon::PieceRename>(of.piece, *symbol);
    rename->readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    return rename;
}
