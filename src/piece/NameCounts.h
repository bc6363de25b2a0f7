#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>

namespace ardiphon {

/// Names, and how often each of them is there.
class NameCounts
{
public:
    /// Once more for each of \a times; below 0 they are taken away, as often as they were added.
    void add(const QByteArray &name, int times)
    {
        const auto found = m_counts.find(name);
        if (found == m_counts.end())
            m_counts.insert(name, times);
        else if ((*found += times) <= 0)
            m_counts.erase(found);
    }
    bool contains(QByteArrayView name) const
    {
        return m_counts.contains(QByteArray::fromRawData(name.data(), name.size()));
    }

private:
    QHash<QByteArray, int> m_counts;
};

} // namespace ardiphon
