#pragma once

#include "piece/Piece.h"

#include <QObject>

#include <chrono>

class QTimer;

namespace ardiphon {

class FeatureHost;
class LEditOCX;

/// The piece that a window's editors hold, kept up to date: an edit only notes which lines have
/// changed, and these are read in slices of a few milliseconds when the program has nothing else to
/// do.
class PieceFollower : public QObject
{
    Q_OBJECT

public:
    /// Of reading at once; with the block that is begun before its end, less than 4 ms.
    static constexpr std::chrono::milliseconds Slice{2};

    /// Follows the editors that \a host has now; they outlive it.
    PieceFollower(const FeatureHost &host, QObject *parent);

    /// As far as it has been read.
    const Piece &piece() const { return *m_piece; }
    /// The same when all of it is read, if that takes no longer than a slice; for an answer that
    /// the user waits for.
    const Piece &readPiece();

signals:
    /// All that had changed is read.
    void pieceRead();

private:
    void follow(LEditOCX &editor, DocumentRole role);
    void readSlice();

    std::unique_ptr<Piece> m_piece;
    QTimer *m_slices;
};

} // namespace ardiphon
