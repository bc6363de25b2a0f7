#include "workbench/ui/PieceFollower.h"

#include "app/ConfigurationBlock.h"
#include "language/WordTables.h"
#include "language/editor/LEditOCX.h"
#include "workbench/ui/FeatureHost.h"

#include <QTimer>

namespace ardiphon {

PieceFollower::PieceFollower(const FeatureHost &host, QObject *parent)
    : QObject(parent), m_slices(new QTimer(this))
{
    std::vector<Piece::Source> sources;
    for (const DocumentRole role :
         {DocumentRole::Csd, DocumentRole::Orchestra, DocumentRole::Score}) {
        if (LEditOCX *const editor = host.editor(role)) {
            sources.push_back({role, &editor->Lines()});
            follow(*editor, role);
        }
    }
    m_piece = std::make_unique<Piece>(sources, [words = host.config().Words](QByteArrayView name) {
        return words->FindInTable(QString::fromLatin1(name)) > 0;
    });
    m_slices->setInterval(0);
    connect(m_slices, &QTimer::timeout, this, &PieceFollower::readSlice);
    m_slices->start();
}

void PieceFollower::follow(LEditOCX &editor, DocumentRole role)
{
    connect(&editor, &LEditOCX::textChanged, this, [this, role](const TextChange &change) {
        m_piece->change(role, change);
        m_slices->start();
    });
}

const Piece &PieceFollower::readPiece()
{
    if (!m_piece->isRead())
        readSlice();
    return *m_piece;
}

void PieceFollower::readSlice()
{
    if (!m_piece->readOn(QDeadlineTimer(Slice)))
        return;
    m_slices->stop();
    emit pieceRead();
}

} // namespace ardiphon
