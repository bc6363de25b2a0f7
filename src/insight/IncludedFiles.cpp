#include "insight/IncludedFiles.h"

#include "platform/RegularFile.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <utility>

namespace ardiphon {

namespace {

constexpr int MostRowsOfAFile = 5000;
constexpr int MostNamesOfAFile = 10000;

/// The rows of what a file defines; it has one section, which is itself.
QList<OutlineRow> rowsOf(const Piece &piece, const QString &path)
{
    QList<OutlineRow> rows = outlineOf(piece, MostRowsOfAFile).rows;
    rows.removeIf([](const OutlineRow &row) { return row.level == 0; });
    for (OutlineRow &row : rows) {
        row.level = 0;
        row.file = path;
    }
    return rows;
}

QList<PieceName> namesIn(const Piece &piece, const QString &path)
{
    QList<PieceName> names = namesOf(piece, MostNamesOfAFile);
    for (PieceName &name : names)
        name.file = path;
    return names;
}

/// The name in the statement that \a row shows.
QString includedName(const OutlineRow &row)
{
    return row.name.sliced(QStringLiteral("include ").size());
}

} // namespace

QString problemText(IncludeProblem problem)
{
    switch (problem) {
    case IncludeProblem::NotFound:
        return QStringLiteral("not found");
    case IncludeProblem::NotRead:
        return QStringLiteral("cannot be read");
    case IncludeProblem::TooLarge:
        return QStringLiteral("too large to look into");
    case IncludeProblem::NoText:
        return QStringLiteral("no text");
    case IncludeProblem::Circle:
        return QStringLiteral("includes itself");
    case IncludeProblem::TooDeep:
        return QStringLiteral("too many in each other");
    case IncludeProblem::None:
        break;
    }
    return QString();
}

// Reading. -------------------------------------------------------------------------------------

void IncludedFiles::start(const Root &root)
{
    m_root = root;
    m_reading.clear();
    m_next = 0;
    m_piece.reset();
    for (const IncludeStatement &statement : root.includes)
        m_reading.push_back({statement});
    if (isRead())
        end();
}

bool IncludedFiles::readOn(QDeadlineTimer deadline)
{
    while (!isRead()) {
        readStep(deadline);
        if (deadline.hasExpired())
            break;
    }
    return isRead();
}

/// Finds a file, reads some of it, or takes what is known of it.
void IncludedFiles::readStep(QDeadlineTimer deadline)
{
    Node &node = m_reading[m_next];
    if (m_piece) {
        if (m_piece->readOn(deadline))
            endContent();
        return;
    }
    node.problem = find(node);
    if (node.problem != IncludeProblem::None) {
        take(nullptr);
        return;
    }
    const std::shared_ptr<const Content> known = m_known.value(keyOf(node));
    if (known && known->stamp == FileStamp::of(node.path))
        take(known);
    else
        beginContent(node);
}

IncludeProblem IncludedFiles::find(Node &node) const
{
    const QString &includer = node.above < 0 ? m_root.path : m_reading[size_t(node.above)].path;
    const QString folder = includer.isEmpty() ? QString() : QFileInfo(includer).path();
    node.path = includedFile(node.statement.name, folder, m_root.folders);
    if (node.path.isEmpty())
        return IncludeProblem::NotFound;
    bool isKnown = node.path == QFileInfo(m_root.path).canonicalFilePath();
    for (int above = node.above; above >= 0; above = m_reading[size_t(above)].above)
        isKnown = isKnown || m_reading[size_t(above)].path == node.path;
    if (isKnown)
        return IncludeProblem::Circle;
    return node.depth > MostDepth ? IncludeProblem::TooDeep : IncludeProblem::None;
}

void IncludedFiles::beginContent(const Node &node)
{
    m_content = std::make_shared<Content>();
    m_content->stamp = FileStamp::of(node.path);
    const auto bytes = readRegularFile(node.path, LargestFile + 1);
    if (!bytes)
        m_content->problem = IncludeProblem::NotRead;
    else if (bytes->size() > LargestFile)
        m_content->problem = IncludeProblem::TooLarge;
    else if (isNoText(*bytes))
        m_content->problem = IncludeProblem::NoText;
    else
        m_piece = std::make_unique<PieceOfFile>(*bytes, node.statement.role, m_isOpcode);
    if (!m_piece)
        take(m_content);
}

void IncludedFiles::endContent()
{
    const Piece &piece = m_piece->piece();
    const QString path = m_reading[m_next].path;
    m_content->rows = rowsOf(piece, path);
    m_content->names = namesIn(piece, path);
    m_content->includes = includesOf(piece, MostFiles);
    m_piece.reset();
    take(m_content);
}

/// The next file has this content; what it includes comes after all others.
void IncludedFiles::take(const std::shared_ptr<const Content> &content)
{
    Node &node = m_reading[m_next];
    node.content = content;
    const int above = int(m_next);
    const int depth = node.depth + 1;
    if (content) {
        node.problem = content->problem;
        m_known[keyOf(node)] = content;
        for (const IncludeStatement &statement : content->includes) {
            if (m_reading.size() < size_t(MostFiles))
                m_reading.push_back({statement, above, depth});
        }
    }
    ++m_next;
    if (isRead())
        end();
}

void IncludedFiles::end()
{
    m_files = m_reading;
    QHash<ContentKey, std::shared_ptr<const Content>> used;
    for (const Node &node : m_files) {
        if (node.content)
            used.insert(keyOf(node), node.content);
    }
    m_known = used;
}

// What is known. -------------------------------------------------------------------------------

const IncludedFiles::Node *IncludedFiles::nodeOf(const QString &name, int above) const
{
    const auto found = std::find_if(m_files.begin(), m_files.end(), [&](const Node &node) {
        return node.above == above && node.statement.name == name;
    });
    return found == m_files.end() ? nullptr : &*found;
}

Outline IncludedFiles::withFiles(const Outline &outline, int mostRows) const
{
    Outline all;
    all.isWhole = outline.isWhole;
    for (const OutlineRow &row : outline.rows)
        addRow(all, row, -1, mostRows);
    return all;
}

/// Adds \a row, which is of the piece or of the file \a above, and what it includes.
void IncludedFiles::addRow(Outline &outline, OutlineRow row, int above, int mostRows) const
{
    if (outline.rows.size() >= mostRows) {
        outline.isWhole = false;
        return;
    }
    const Node *const node =
        row.kind == LandmarkKind::Include ? nodeOf(includedName(row), above) : nullptr;
    if (node != nullptr) {
        row.note = problemText(node->problem);
        row.included = node->path;
    }
    outline.rows.append(row);
    if (node == nullptr || !node->content)
        return;
    for (OutlineRow below : node->content->rows) {
        below.level = row.level + 1;
        addRow(outline, below, int(node - m_files.data()), mostRows);
    }
}

QList<PieceName> IncludedFiles::names(int most) const
{
    QList<PieceName> names;
    QSet<QString> paths;
    for (const Node &node : m_files) {
        if (!node.content || paths.contains(node.path))
            continue;
        paths.insert(node.path);
        names +=
            node.content->names.first(std::min(node.content->names.size(), most - names.size()));
    }
    return names;
}

std::optional<PieceName> IncludedFiles::instrumentNamed(QByteArrayView name) const
{
    const QString wanted = QString::fromUtf8(name);
    for (const Node &node : m_files) {
        if (!node.content)
            continue;
        for (const PieceName &found : node.content->names) {
            if (found.kind == LandmarkKind::Instrument && found.name == wanted)
                return found;
        }
    }
    return std::nullopt;
}

QString IncludedFiles::fileOf(const QString &name) const
{
    const Node *const node = nodeOf(name, -1);
    return node == nullptr ? QString() : node->path;
}

} // namespace ardiphon
