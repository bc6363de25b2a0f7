#include "preferences/FolderReader.h"

#include <QDeadlineTimer>
#include <QFile>

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int EntriesAtOnce = 256; ///< between two looks at the clock

} // namespace

FolderReader::FolderReader(const QString &folder)
{
    std::error_code unreadable;
    m_next = std::filesystem::directory_iterator(
        std::filesystem::path(QFile::encodeName(folder).constData()), unreadable);
}

bool FolderReader::readOn(int milliseconds)
{
    const QDeadlineTimer end(milliseconds);
    const std::filesystem::directory_iterator last;
    do {
        for (int i = 0; i < EntriesAtOnce && m_next != last; ++i) {
            take();
            std::error_code failed; // a failure ends the reading
            m_next.increment(failed);
        }
    } while (m_next != last && !end.hasExpired());
    return m_next == last;
}

void FolderReader::take()
{
    const std::string name = m_next->path().filename().native();
    std::error_code unknown;
    if (!name.starts_with('.') && m_next->is_directory(unknown))
        m_names.append(QFile::decodeName(name.c_str()));
}

QStringList FolderReader::names() const
{
    QStringList sorted = m_names;
    std::sort(sorted.begin(), sorted.end(), folderNameLess);
    return sorted;
}

bool folderNameLess(const QString &left, const QString &right)
{
    const int order = left.compare(right, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : left < right;
}

} // namespace ardiphon
