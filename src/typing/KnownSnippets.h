#pragma once

#include "typing/Snippets.h"

#include <QDateTime>

namespace ardiphon {

/// The snippets of some files, which are read again when one of them has changed.
class KnownSnippets
{
public:
    /// Those of the files as they are now; valid until the next call.
    const QList<Snippet> &of(const QStringList &files);
    /// The same as they were at the last call of that.
    const QList<Snippet> &known() const { return m_snippets; }

private:
    QList<Snippet> m_snippets;
    QStringList m_files;
    QList<QDateTime> m_times; ///< when they were changed
};

/// The names of the files in \a folder that can be read, in their order; at most some thousand.
/// None for "".
QStringList fileNamesIn(const QString &folder);

} // namespace ardiphon
