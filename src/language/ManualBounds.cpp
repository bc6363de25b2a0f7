#include "language/ManualBounds.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QStringView>

namespace ardiphon {

namespace {

/// Whether an element of that name needs no end tag, or ends where the next one begins.
bool isOpenEnded(const QString &name)
{
    static const QSet<QString> names{"a",  "area", "base",  "br",    "col",   "dd",   "dt", "embed",
                                     "hr", "img",  "input", "li",    "link",  "meta", "p",  "td",
                                     "th", "tr",   "tbody", "thead", "tfoot", "wbr"};
    return names.contains(name);
}

bool isPartOfTable(const QString &name)
{
    static const QSet<QString> names{"tr",    "td",      "th",  "tbody",   "thead",
                                     "tfoot", "caption", "col", "colgroup"};
    return names.contains(name);
}

bool isList(const QString &name)
{
    return name == QLatin1String("ul") || name == QLatin1String("ol") ||
           name == QLatin1String("dl");
}

/// Whether the element is part of a line, so that a word can go on after it.
bool isInLine(const QString &name)
{
    static const QSet<QString> names{"a",      "b",   "big", "code", "em",    "font",
                                     "i",      "kbd", "s",   "samp", "small", "span",
                                     "strong", "sub", "sup", "tt",   "u",     "var"};
    return names.contains(name);
}

/// Whether a cell is to span more than a hundred rows or columns.
bool spansTooMuch(QStringView tag)
{
    for (qsizetype at = tag.indexOf(u"span", 0, Qt::CaseInsensitive); at >= 0;
         at = tag.indexOf(u"span", at + 1, Qt::CaseInsensitive)) {
        int digits = 0;
        for (const QChar c : tag.mid(at + 4)) {
            digits += c.isDigit();
            if (!c.isDigit() && (digits > 0 || !QStringLiteral("= \"'").contains(c)))
                break;
        }
        if (digits > 2)
            return true;
    }
    return false;
}

struct Tag
{
    explicit Tag(QStringView text)
        : closes(text.startsWith(u"</")), closesItself(text.endsWith(u"/>"))
    {
        qsizetype at = closes ? 2 : 1;
        while (at < text.size() && text[at].isLetterOrNumber())
            name += text[at++].toLower();
    }
    QString name; ///< "" for a comment or declaration
    bool closes;
    bool closesItself;
};

class Bounding
{
public:
    Bounding(const QString &html, const ManualBounds &bounds) : m_html(html), m_bounds(bounds) {}

    BoundedPage run()
    {
        m_out.reserve(m_html.size());
        while (m_at < m_html.size() && isWithin()) {
            if (startsTag())
                takeTag();
            else
                takeText();
        }
        return {m_out, m_at >= m_html.size()};
    }

private:
    bool isWithin() const
    {
        return m_tags <= m_bounds.tags && m_cells <= m_bounds.cells &&
               m_items.last() <= m_bounds.items && m_characters <= m_bounds.characters;
    }

    bool startsTag() const
    {
        if (m_html[m_at] != u'<' || m_at + 1 == m_html.size())
            return false;
        const QChar next = m_html[m_at + 1];
        return next.isLetter() || next == u'/' || next == u'!' || next == u'?';
    }

    void takeTag()
    {
        const bool isComment = QStringView(m_html).mid(m_at).startsWith(u"<!--");
        const QString close = isComment ? QStringLiteral("-->") : QStringLiteral(">");
        const qsizetype found = m_html.indexOf(close, m_at);
        const qsizetype end = found < 0 ? m_html.size() : found + close.size();
        const QStringView text = QStringView(m_html).mid(m_at, end - m_at);
        m_at = end;
        ++m_tags;
        const Tag tag(isComment ? QStringView() : text);
        m_cells += !tag.closes && isPartOfTable(tag.name);
        if (!isInLine(tag.name))
            m_word = 0;
        if (tag.name == QLatin1String("a"))
            closeAnchor(tag);
        if (!isKept(tag))
            m_out += u' ';
        else if (tag.name == QLatin1String("td") && spansTooMuch(text))
            m_out += QStringLiteral("<td>");
        else if (tag.name == QLatin1String("th") && spansTooMuch(text))
            m_out += QStringLiteral("<th>");
        else
            m_out += text;
    }

    /// An anchor ends where the next one begins; the widget that shows the page reads it so too.
    void closeAnchor(const Tag &tag)
    {
        if (m_inAnchor && !tag.closes)
            m_out += QStringLiteral("</a>");
        m_inAnchor = !tag.closes && !tag.closesItself;
    }

    /// Keeps count of the open elements. The elements that were left out are the innermost ones.
    bool isKept(const Tag &tag)
    {
        if (tag.name == QLatin1String("li"))
            m_items.last() += !tag.closes;
        if (isPartOfTable(tag.name))
            return m_leftOut.value(QStringLiteral("table")) == 0;
        if (tag.name.isEmpty() || isOpenEnded(tag.name) || tag.closesItself)
            return true;
        int &leftOut = m_leftOut[tag.name];
        if (tag.closes) {
            if (leftOut > 0)
                return --leftOut, false;
            int &open = m_open[tag.name];
            if (open > 0 && isList(tag.name))
                m_items.removeLast();
            m_depth -= open > 0;
            open -= open > 0;
            return true;
        }
        const bool isTable = tag.name == QLatin1String("table");
        int &open = m_open[tag.name];
        if (m_depth >= m_bounds.elements || (isTable && open >= m_bounds.tables))
            return ++leftOut, false;
        if (isList(tag.name))
            m_items.append(0);
        ++open;
        ++m_depth;
        return true;
    }

    /// Copies the text up to the next "<", or up to where a word is to be broken.
    void takeText()
    {
        const qsizetype begin = m_at;
        const qsizetype end = qMin(m_html.size(), begin + m_bounds.characters + 1 - m_characters);
        do {
            m_word = m_html[m_at].isSpace() ? 0 : m_word + 1;
            ++m_at;
        } while (m_at < end && m_html[m_at] != u'<' && m_word < m_bounds.word);
        m_out += QStringView(m_html).mid(begin, m_at - begin);
        m_characters += int(m_at - begin);
        if (m_word >= m_bounds.word && !isInEntity()) {
            m_out += QChar(0x200b); // where a line may be broken, without a width
            m_word = 0;
        }
    }

    bool isInEntity() const
    {
        const qsizetype start = m_out.lastIndexOf(u'&');
        return start >= qMax(m_out.size() - 12, qsizetype(0)) && m_out.indexOf(u';', start) < 0;
    }

    const QString &m_html;
    const ManualBounds m_bounds;
    QString m_out;
    qsizetype m_at = 0;
    int m_tags = 0;
    int m_cells = 0;
    int m_characters = 0;
    int m_word = 0;
    int m_depth = 0;
    bool m_inAnchor = false;
    QList<int> m_items{0}; ///< of each list that is open
    QHash<QString, int> m_open;
    QHash<QString, int> m_leftOut;
};

} // namespace

BoundedPage boundedManualPage(const QString &html, const ManualBounds &bounds)
{
    return Bounding(html, bounds).run();
}

} // namespace ardiphon
