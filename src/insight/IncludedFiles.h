#pragma once

#include "piece/PieceIncludes.h"
#include "piece/PieceNames.h"
#include "piece/PieceOutline.h"
#include "workbench/FileStamp.h"

#include <QHash>

#include <memory>

namespace ardiphon {

/// Why nothing is known of what an included file defines.
enum class IncludeProblem : quint8 {
    None,
    NotFound,
    NotRead, ///< it is there, but no file that can be read
    TooLarge,
    NoText,
    Circle, ///< it includes itself, by whichever way
    TooDeep ///< too many include each other
};

/// What the outline says of it, or "".
QString problemText(IncludeProblem problem);

/// What the files define that a piece includes, and what they include in their turn. They are read
/// in steps of a few milliseconds, and read again when they have changed. What of a file was known
/// stays so until all are read anew.
class IncludedFiles
{
public:
    static constexpr qint64 LargestFile = qint64(1) << 20;
    static constexpr int MostFiles = 100;
    static constexpr int MostDepth = 5; ///< of files that include each other

    /// A piece, and where it is.
    struct Root
    {
        QList<IncludeStatement> includes;
        QStringList folders; ///< see includeFolders()
        QString path;        ///< of its document; "" where it has none

        friend bool operator==(const Root &, const Root &) = default;
    };

    explicit IncludedFiles(IsOpcode isOpcode) : m_isOpcode(std::move(isOpcode)) {}

    /// Looks for the files of \a root, which readOn() does then.
    void start(const Root &root);
    /// Reads until all is read or \a deadline has passed; at least one step. True when all is read.
    bool readOn(QDeadlineTimer deadline);
    bool isRead() const { return m_next >= m_reading.size(); }

    /// \a outline with the rows of each included file below the row of its statement, and a note
    /// there where nothing is known of it; at most \a mostRows.
    Outline withFiles(const Outline &outline, int mostRows) const;
    /// The names of all files, each file once; at most \a most.
    QList<PieceName> names(int most) const;
    /// Where a file defines the instrument that has \a name, or that number.
    std::optional<PieceName> instrumentNamed(QByteArrayView name) const;
    /// The path of the file that the piece includes by \a name; "" where there is none.
    QString fileOf(const QString &name) const;

private:
    /// What is known of a file.
    struct Content
    {
        FileStamp stamp;
        IncludeProblem problem = IncludeProblem::None;
        QList<OutlineRow> rows; ///< without sections, the level of all 0
        QList<PieceName> names;
        QList<IncludeStatement> includes;
    };
    /// A file that the piece includes, or another file.
    struct Node
    {
        IncludeStatement statement;
        int above = -1; ///< the node of the file that includes it; -1 for the piece
        int depth = 1;
        QString path = {};
        IncludeProblem problem = IncludeProblem::None;
        std::shared_ptr<const Content> content = {}; ///< null before it is read, and with a problem
    };
    using ContentKey = std::pair<QString, int>; ///< path and role
    static ContentKey keyOf(const Node &node) { return {node.path, int(node.statement.role)}; }

    void readStep(QDeadlineTimer deadline);
    IncludeProblem find(Node &node) const;
    void beginContent(const Node &node);
    void endContent();
    void take(const std::shared_ptr<const Content> &content);
    void end();
    const Node *nodeOf(const QString &name, int above) const;
    void addRow(Outline &outline, OutlineRow row, int above, int mostRows) const;

    const IsOpcode m_isOpcode;
    Root m_root;
    std::vector<Node> m_files;            ///< as they are known
    std::vector<Node> m_reading;          ///< as they are found now
    size_t m_next = 0;                    ///< of m_reading, the first one that is not read
    std::unique_ptr<PieceOfFile> m_piece; ///< of that one, while it is read
    std::shared_ptr<Content> m_content;
    QHash<ContentKey, std::shared_ptr<const Content>> m_known;
};

} // namespace ardiphon
