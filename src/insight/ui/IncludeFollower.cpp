#include "insight/ui/IncludeFollower.h"

#include "workbench/Document.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/PieceFollower.h"

#include <QFileInfo>
#include <QMainWindow>
#include <QTimer>

using namespace std::chrono_literals;

namespace ardiphon {

namespace {

constexpr auto LongestWait = 200ms;

/// The document that the piece is, or that holds its orchestra; null where it has no file.
const Document *documentOf(const FeatureHost &host)
{
    for (const DocumentRole role :
         {DocumentRole::Csd, DocumentRole::Orchestra, DocumentRole::Score}) {
        const Document *const document = host.document(role);
        if (document != nullptr && document->hasFile())
            return document;
    }
    return nullptr;
}

} // namespace

IncludeFollower &IncludeFollower::of(FeatureHost &host)
{
    auto *known = host.owner().findChild<IncludeFollower *>(QString(), Qt::FindDirectChildrenOnly);
    return known != nullptr ? *known : *new IncludeFollower(host);
}

IncludeFollower::IncludeFollower(FeatureHost &host)
    : QObject(&host.owner()),
      m_host(host),
      m_files([&host](QByteArrayView name) { return host.piece().piece().isOpcode(name); }),
      m_slices(new QTimer(this))
{
    m_slices->setInterval(0);
    connect(m_slices, &QTimer::timeout, this, &IncludeFollower::readSlice);
}

IncludedFiles::Root IncludeFollower::root() const
{
    const Piece &piece = m_host.piece().piece();
    const Document *const document = documentOf(m_host);
    const QString path = document == nullptr ? QString() : document->name();
    const QString folder = path.isEmpty() ? QString() : QFileInfo(path).absolutePath();
    return {includesOf(piece, IncludedFiles::MostFiles),
            includeFolders(piece, folder, qEnvironmentVariable("INCDIR")), path};
}

void IncludeFollower::refresh()
{
    m_files.start(root());
    m_slices->start();
}

const IncludedFiles &IncludeFollower::refreshed()
{
    m_files.start(root());
    if (m_files.readOn(QDeadlineTimer(LongestWait)))
        emit filesRead();
    else
        m_slices->start();
    return m_files;
}

void IncludeFollower::readSlice()
{
    if (!m_files.readOn(QDeadlineTimer(PieceFollower::Slice)))
        return;
    m_slices->stop();
    emit filesRead();
}

} // namespace ardiphon
