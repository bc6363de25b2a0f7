#include "platform/linux/DefaultApplications.h"

#include <QList>

#include <algorithm>

namespace ardiphon {

namespace {

const QByteArray Header = "[Default Applications]";
/// Written above a header that was not there, so that it is removed with its last default.
const QByteArray Marker = "# This group was added by ArdiphonPro.";

/// The lines of a list, each with its end, and the group of the default applications among them.
class DefaultGroup
{
public:
    explicit DefaultGroup(const QByteArray &list);

    bool exists() const { return m_header >= 0; }
    bool isOurs() const { return m_header > 0 && m_lines[m_header - 1].trimmed() == Marker; }
    QByteArray text() const { return m_lines.join(); }

    /// The line with the defaults of a type, or -1.
    qsizetype lineOf(const QByteArray &type) const;
    QByteArray &line(qsizetype index) { return m_lines[index]; }
    void addFirst(const QByteArray &line);
    void remove(qsizetype index);
    /// Removes what was added besides the defaults, if \a entry does not need it any more.
    void tidy(const QByteArray &entry);

private:
    qsizetype end() const;
    static QByteArray typeOf(const QByteArray &line);

    QList<QByteArray> m_lines;
    qsizetype m_header = -1;
};

DefaultGroup::DefaultGroup(const QByteArray &list)
{
    for (qsizetype from = 0; from < list.size();) {
        const qsizetype end = list.indexOf('\n', from);
        m_lines.append(list.mid(from, end < 0 ? -1 : end + 1 - from));
        from += m_lines.last().size();
    }
    for (qsizetype i = 0; i < m_lines.size() && !exists(); ++i)
        if (m_lines[i].trimmed() == Header)
            m_header = i;
}

qsizetype DefaultGroup::end() const
{
    qsizetype i = m_header + 1;
    while (i < m_lines.size() && !m_lines[i].startsWith('['))
        ++i;
    return i;
}

/// The text before the "="; "" for a line that is not an entry.
QByteArray DefaultGroup::typeOf(const QByteArray &line)
{
    const qsizetype equals = line.indexOf('=');
    return equals < 0 || line.startsWith('#') ? QByteArray() : line.left(equals).trimmed();
}

qsizetype DefaultGroup::lineOf(const QByteArray &type) const
{
    if (!exists())
        return -1;
    const auto begin = m_lines.cbegin() + m_header + 1;
    const auto end = m_lines.cbegin() + this->end();
    const auto found =
        std::find_if(begin, end, [&type](const QByteArray &line) { return typeOf(line) == type; });
    return found == end ? -1 : found - m_lines.cbegin();
}

void DefaultGroup::addFirst(const QByteArray &line)
{
    if (m_lines[m_header].endsWith('\n'))
        m_lines.insert(m_header + 1, line + '\n');
    else
        m_lines.insert(m_header + 1, '\n' + line); // the header is the end of the file
}

void DefaultGroup::remove(qsizetype index)
{
    if (!m_lines[index].endsWith('\n')) // it becomes the end of the file
        m_lines[index - 1].chop(1);
    m_lines.removeAt(index);
}

void DefaultGroup::tidy(const QByteArray &entry)
{
    if (!exists() || !isOurs())
        return;
    const auto first = m_lines.cbegin() + m_header + 1;
    const auto last = m_lines.cbegin() + end();
    if (std::any_of(first, last, [&](const QByteArray &line) { return line.contains(entry); }))
        return;
    if (std::none_of(first, last, [](const QByteArray &line) { return !typeOf(line).isEmpty(); }))
        m_lines.removeAt(m_header);
    m_lines.removeAt(m_header - 1);
}

/// A line's value, without its line end, and the place where it begins.
struct Value
{
    explicit Value(const QByteArray &line) : begin(line.indexOf('=') + 1)
    {
        while (begin < line.size() && line[begin] == ' ')
            ++begin;
        qsizetype size = line.size() - begin;
        while (size > 0 && (line[begin + size - 1] == '\n' || line[begin + size - 1] == '\r'))
            --size;
        text = line.mid(begin, size);
    }
    qsizetype begin;
    QByteArray text;
};

/// A value's list of entries without one of them, the others unchanged.
QByteArray withoutEntry(const QByteArray &value, const QByteArray &entry)
{
    QList<QByteArray> entries = value.split(';');
    entries.removeIf([&](const QByteArray &each) { return each.trimmed() == entry; });
    return entries.join(';');
}

} // namespace

QByteArray withDefault(const QByteArray &list, const QByteArray &type, const QByteArray &entry)
{
    const QByteArray newLine = type + '=' + entry;
    DefaultGroup group(list);
    if (!group.exists())
        return Marker + '\n' + Header + '\n' + newLine + '\n' + list;
    const qsizetype index = group.lineOf(type);
    if (index < 0) {
        group.addFirst(newLine);
        return group.text();
    }
    QByteArray &line = group.line(index);
    const Value value(line);
    if (value.text.split(';').first().trimmed() != entry)
        line.replace(value.begin, value.text.size(), entry + ';' + withoutEntry(value.text, entry));
    return group.text();
}

QByteArray withoutDefault(const QByteArray &list, const QByteArray &type, const QByteArray &entry)
{
    DefaultGroup group(list);
    const qsizetype index = group.lineOf(type);
    if (index >= 0) {
        QByteArray &line = group.line(index);
        const Value value(line);
        if (value.text == entry)
            group.remove(index);
        else
            line.replace(value.begin, value.text.size(), withoutEntry(value.text, entry));
    }
    group.tidy(entry);
    return group.text();
}

} // namespace ardiphon
