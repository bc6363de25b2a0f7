#pragma once

#include "piece/Landmark.h"

#include <QByteArrayView>

#include <algorithm>
#include <vector>

namespace ardiphon {

/// The landmarks of a block of lines, in the order of the text, as they are found.
class LandmarkList
{
public:
    LandmarkList(NameTable &names, std::vector<Landmark> &marks) : m_names(names), m_marks(marks) {}

    /// The line, from 0 within the block, whose landmarks follow.
    void beginLine(int line, QByteArrayView text)
    {
        m_line = quint16(line);
        m_text = text;
    }
    QByteArrayView text() const { return m_text; }

    /// Adds one at \a length bytes from \a column on; they are its name where none is given.
    void add(LandmarkKind kind, int column, int length, int detail = 0)
    {
        add(kind, column, length, detail, m_text.sliced(column, length));
    }
    void add(LandmarkKind kind, int column, int length, int detail, QByteArrayView name)
    {
        m_marks.push_back({m_line, kind, quint8(std::clamp(detail, 0, 255)),
                           quint16(std::min(column, 0xffff)), quint16(std::min(length, 0xffff)),
                           m_names.idOf(name)});
    }
    /// Adds one unless the same body has one already, among the lines of the block and the last
    /// marks of it.
    void addFirst(LandmarkKind kind, int column, int length, int detail)
    {
        const NameTable::Id name = m_names.idOf(m_text.sliced(column, length));
        const auto isSame = [=](const Landmark &mark) {
            return mark.kind == kind && mark.name == name;
        };
        const qsizetype from = std::max(m_body, qsizetype(m_marks.size()) - MostLookedAt);
        if (std::none_of(m_marks.begin() + from, m_marks.end(), isSame))
            add(kind, column, length, detail);
    }
    /// What follows is in another body.
    void beginBody() { m_body = qsizetype(m_marks.size()); }

private:
    static constexpr qsizetype MostLookedAt = 200;

    NameTable &m_names;
    std::vector<Landmark> &m_marks;
    QByteArrayView m_text;
    qsizetype m_body = 0;
    quint16 m_line = 0;
};

} // namespace ardiphon
