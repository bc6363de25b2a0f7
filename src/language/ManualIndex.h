#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QUrl>

#include <optional>

namespace ardiphon {

/// Finds the page of the Csound manual that explains a keyword.
///
/// The manual is a folder of HTML pages with a start page whose contents link to them all. Nothing
/// is read before the first keyword is asked for; what was read is remembered. First come the
/// contents and the names of the pages; the pages themselves are read, for the commands that they
/// explain, when a keyword is in neither. The answer is always a page in that folder.
class ManualIndex
{
public:
    /// \a startPage: the path of the start page. Any path is accepted: where it is not an HTML page
    /// that can be read, the manual has no keywords.
    explicit ManualIndex(const QString &startPage);

    const QString &startPage() const { return m_startPage; }

    /// The page of \a keyword with the place on it, or nothing when the manual has none. A keyword
    /// is an opcode, a tag of a CSD, a score statement with its suffix, or one of the fixed ones.
    std::optional<QUrl> find(const QString &keyword);

private:
    using Pages = QHash<QString, QString>; ///< a title or name, and the page with its anchor

    void readContents();
    void readSynopses();
    void addLink(const QString &title, const QString &target);
    std::optional<QUrl> urlOf(const QString &target) const;

    QString targetOf(const QString &keyword);
    QString targetOfName(const QString &name);
    QString targetOfTag(const QString &tag) const;
    QString targetOfStatement(const QString &statement) const;
    QString targetOfFamily(const QString &name) const;

    QString m_startPage;
    QString m_folder;
    bool m_contentsRead = false;
    bool m_synopsesRead = false;
    QSet<QString> m_files;
    Pages m_titles;
    Pages m_titlesInLowerCase;
    Pages m_statements; ///< of the score
    Pages m_synopses;
};

} // namespace ardiphon
