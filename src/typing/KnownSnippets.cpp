#include "typing/KnownSnippets.h"

#include <QDir>
#include <QFileInfo>

namespace ardiphon {

namespace {

constexpr int MostFiles = 2000;

} // namespace

const QList<Snippet> &KnownSnippets::of(const QStringList &files)
{
    QList<QDateTime> times;
    for (const QString &file : files)
        times.append(QFileInfo(file).lastModified());
    if (times != m_times || files != m_files) {
        m_times = times;
        m_files = files;
        m_snippets = readSnippets(files);
    }
    return m_snippets;
}

QStringList fileNamesIn(const QString &folder)
{
    if (folder.isEmpty())
        return {};
    QStringList files = QDir(folder).entryList(QDir::Files | QDir::Readable, QDir::Name);
    if (files.size() > MostFiles)
        files.resize(MostFiles);
    return files;
}

} // namespace ardiphon
