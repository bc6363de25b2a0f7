#include "language/ManualText.h"

#include "platform/RegularFile.h"

#include <QFileInfo>

#include <array>
#include <utility>

namespace ardiphon {

namespace {

/// Calls use(content) for each stretch of \a html between \a open and \a close.
template <typename Use>
void forEachBetween(const QByteArray &html, const QByteArray &open, const QByteArray &close,
                    Use use)
{
    for (qsizetype at = html.indexOf(open); at >= 0; at = html.indexOf(open, at)) {
        at += open.size();
        const qsizetype end = html.indexOf(close, at);
        if (end < 0)
            return;
        use(html.mid(at, end - at));
        at = end;
    }
}

QString withoutEntities(QString text)
{
    static const std::array<std::pair<QLatin1String, QLatin1String>, 4> entities{
        {{QLatin1String("&lt;"), QLatin1String("<")},
         {QLatin1String("&gt;"), QLatin1String(">")},
         {QLatin1String("&quot;"), QLatin1String("\"")},
         {QLatin1String("&amp;"), QLatin1String("&")}}}; // last, or it would make new ones
    for (const auto &[entity, character] : entities)
        text.replace(entity, character);
    return text;
}

/// The value of \a attribute in the inside of a tag, or "".
QString attributeOf(const QByteArray &tag, const QByteArray &attribute)
{
    const QByteArray start = attribute + "=\"";
    const qsizetype at = tag.indexOf(start);
    if (at < 0)
        return {};
    const qsizetype value = at + start.size();
    const qsizetype end = tag.indexOf('"', value);
    return end < 0 ? QString() : QString::fromUtf8(tag.mid(value, end - value));
}

} // namespace

bool isManualPage(const QString &path)
{
    const QString extension = QFileInfo(path).suffix().toLower();
    return extension == QLatin1String("html") || extension == QLatin1String("htm") ||
           extension == QLatin1String("xhtml");
}

QByteArray readManualPage(const QString &path, qint64 limit)
{
    return readRegularFile(path, limit).value_or(QByteArray());
}

QString plainManualText(const QByteArray &html)
{
    QByteArray text;
    text.reserve(html.size());
    bool inTag = false;
    for (const char c : html) {
        if (c == '<')
            inTag = true;
        else if (c == '>' && inTag)
            inTag = false;
        else if (!inTag)
            text += c;
    }
    return withoutEntities(QString::fromUtf8(text)).simplified();
}

QList<ManualLink> manualLinks(const QByteArray &page)
{
    QList<ManualLink> links;
    forEachBetween(page, "<a ", "</a>", [&](const QByteArray &link) {
        const qsizetype end = link.indexOf('>');
        const QString target = attributeOf(link.left(end), "href");
        if (end >= 0 && !target.isEmpty())
            links.append({plainManualText(link.mid(end + 1)), withoutEntities(target)});
    });
    return links;
}

QStringList manualSynopses(const QByteArray &page)
{
    QStringList names;
    forEachBetween(page, "<pre class=\"synopsis\">", "</pre>", [&](const QByteArray &synopsis) {
        forEachBetween(synopsis, "<strong>", "</strong>",
                       [&](const QByteArray &name) { names.append(plainManualText(name)); });
    });
    return names;
}

QString manualTagAnchor(const QByteArray &page, const QString &tag)
{
    QString anchor;
    forEachBetween(page, "<h4>", "</h4>", [&](const QByteArray &heading) {
        if (anchor.isEmpty() && plainManualText(heading).contains(u'<' + tag + u'>'))
            anchor = attributeOf(heading, "id");
    });
    return anchor;
}

} // namespace ardiphon
