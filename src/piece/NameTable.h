#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>

#include <vector>

namespace ardiphon {

/// Gives each name of a piece a number, so that a landmark holds four bytes of it.
class NameTable
{
public:
    using Id = quint32;

    /// The number of \a name, a new one where it has none yet.
    Id idOf(QByteArrayView name)
    {
        const auto known = m_ids.constFind(QByteArray::fromRawData(name.data(), name.size()));
        if (known != m_ids.constEnd())
            return *known;
        const QByteArray copy = name.toByteArray();
        m_names.push_back(copy);
        return *m_ids.insert(copy, Id(m_names.size() - 1));
    }

    /// The name with a number that idOf() gave.
    const QByteArray &operator[](Id id) const { return m_names[id]; }

    size_t size() const { return m_names.size(); }
    void clear()
    {
        m_ids.clear();
        m_names.clear();
    }

private:
    QHash<QByteArray, Id> m_ids;
    std::vector<QByteArray> m_names;
};

} // namespace ardiphon
