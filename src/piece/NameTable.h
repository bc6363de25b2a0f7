#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QHashFunctions>

#include <array>
#include <deque>
#include <utility>
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
        const size_t hash = qHash(name);
        Part &part = m_parts[hash % m_parts.size()];
        if (part.used * 2 >= part.places.size())
            grow(part);
        Id &place = placeOf(part, name, hash);
        if (place == Free) {
            place = Id(m_names.size());
            ++part.used;
            m_names.push_back(name.toByteArray());
        }
        return place;
    }

    /// The name with a number that idOf() gave.
    const QByteArray &operator[](Id id) const { return m_names[id]; }

    size_t size() const { return m_names.size(); }
    void clear()
    {
        m_parts = {};
        m_names.clear();
    }

    /// What it takes, in bytes.
    qsizetype memory() const
    {
        qsizetype bytes = 0;
        for (const Part &part : m_parts)
            bytes += qsizetype(part.places.capacity() * sizeof(Id));
        for (const QByteArray &name : m_names)
            bytes += qsizetype(sizeof(QByteArray) + sizeof(QArrayData)) + name.capacity() + 8;
        return bytes;
    }

private:
    static constexpr Id Free = ~Id(0);

    /// A number stands in the place that its name's hash tells, or in the next free one.
    struct Part
    {
        std::vector<Id> places;
        size_t used = 0;
    };

    Id &placeOf(Part &part, QByteArrayView name, size_t hash)
    {
        size_t at = hash / m_parts.size() % part.places.size();
        while (part.places[at] != Free && m_names[part.places[at]] != name)
            at = (at + 1) % part.places.size();
        return part.places[at];
    }

    void grow(Part &part)
    {
        const std::vector<Id> before =
            std::exchange(part.places, std::vector<Id>(part.places.size() * 2 + 4, Free));
        for (const Id id : before) {
            if (id != Free)
                placeOf(part, m_names[id], qHash(QByteArrayView(m_names[id]))) = id;
        }
    }

    // Many parts, and a deque, as none may take long to grow: a piece may have a hundred thousand
    // names.
    std::array<Part, 61> m_parts;
    std::deque<QByteArray> m_names;
};

} // namespace ardiphon
