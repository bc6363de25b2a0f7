#include "help/ui/ManualBrowser.h"

#include "language/ManualBounds.h"
#include "language/ManualText.h"

#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <utility>

namespace ardiphon {

namespace {

constexpr qint64 largestPage = qint64{2} * 1024 * 1024;
constexpr qint64 largestPicture = qint64{16} * 1024 * 1024;
constexpr qint64 largestPictureArea = 25'000'000; // pixels

// The text view supports little of style sheets, so the manual's own is replaced by this one. Sizes
// are steps, which follow the text size that the reader chose.
const char *const pageStyle = R"(
    h1 { font-size: xx-large; margin-top: 12px; margin-bottom: 8px; }
    h2 { font-size: x-large; margin-top: 18px; margin-bottom: 6px; }
    h3, h4 { font-size: large; margin-top: 14px; margin-bottom: 4px; }
    p { margin-top: 6px; margin-bottom: 6px; }
    dt { margin-top: 2px; }
    a { color: %1; text-decoration: none; }
    pre.synopsis { background-color: %2; margin-top: 0px; margin-bottom: 0px;
                   font-family: monospace; white-space: pre-wrap; }
    pre.programlisting, pre.screen, pre.source { background-color: %2; font-family: monospace;
                   white-space: pre-wrap; }
    .command { color: %3; }
    .nb, .k, .kr, .kd { color: %3; }
    .c, .c1, .cm, .cs { color: %4; font-style: italic; }
)";

QString escapedText(const QByteArray &bytes)
{
    return QStringLiteral("<pre class=\"source\">") + QString::fromUtf8(bytes).toHtmlEscaped() +
           QStringLiteral("</pre>");
}

/// Files that a manual links to for reading: its examples.
bool isReadableText(const QString &path)
{
    static const QStringList extensions{"csd", "orc", "sco", "txt", "inc", "udo", "h", "c", "py"};
    return extensions.contains(QFileInfo(path).suffix().toLower());
}

QString notice(const QString &title, const QString &reason, const QString &path, const QString &way)
{
    return QStringLiteral("<title>%1</title><h2>%1</h2><p>%2</p><p><b>%3</b></p><p>%4</p>")
        .arg(title, reason, path.toHtmlEscaped(), way);
}

QString missingPage(const QString &path)
{
    return notice(QStringLiteral("The manual cannot be shown"),
                  QStringLiteral("There is no page to read at"), path,
                  QStringLiteral("Choose the start page of the Csound manual under "
                                 "File-&gt;Settings-&gt;CSound Help."));
}

QString largePage(const QString &path)
{
    return notice(QStringLiteral("The page is too large"),
                  QStringLiteral("This window does not show pages as large as"), path,
                  QStringLiteral("It can be opened in the browser."));
}

/// The text at the end of a page that was cut, closing whatever elements are open there.
QString pageGoesOn()
{
    return QStringLiteral("</title></style><hr><p><b>The page goes on. It can be opened in the "
                          "browser.</b></p>");
}

} // namespace

ManualBrowser::ManualBrowser(std::function<void(const QUrl &)> openOutside, QWidget *parent)
    : QTextBrowser(parent), m_openOutside(std::move(openOutside))
{
    const bool dark = palette().base().color().lightness() < 128;
    document()->setDefaultStyleSheet(QString::fromLatin1(pageStyle).arg(
        dark ? "#8ab4f8" : "#1a4f9c", dark ? "#333333" : "#f0f1f4", dark ? "#ffb86c" : "#8b2500",
        dark ? "#8fbf8f" : "#2e6b2e"));
    document()->setDocumentMargin(14);
}

QVariant ManualBrowser::loadResource(int type, const QUrl &name)
{
    if (type == QTextDocument::StyleSheetResource)
        return QString();
    if (type == QTextDocument::HtmlResource)
        return contentOf(name);
    if (type == QTextDocument::ImageResource && name.scheme() != QLatin1String("data"))
        return pictureOf(name);
    return QTextBrowser::loadResource(type, name);
}

QString ManualBrowser::contentOf(const QUrl &page) const
{
    const QString path = page.toLocalFile();
    if (QFileInfo(path).size() > largestPage)
        return largePage(path);
    const QByteArray bytes = readManualPage(path, largestPage);
    if (bytes.isEmpty())
        return missingPage(path);
    const auto [html, whole] =
        boundedManualPage(isManualPage(path) ? QString::fromUtf8(bytes) : escapedText(bytes));
    return whole ? html : html + pageGoesOn();
}

/// A picture of an acceptable size. Any other is replaced by a broken picture; otherwise the
/// toolkit would read the whole file.
QVariant ManualBrowser::pictureOf(const QUrl &name) const
{
    const QImage broken(QStringLiteral(":/qt-project.org/styles/commonstyle/images/file-16.png"));
    const QFileInfo file(source().resolved(name).toLocalFile());
    if (!file.isFile() || file.size() > largestPicture)
        return broken;
    QImageReader reader(file.filePath());
    const QSize size = reader.size();
    if (qint64(size.width()) * size.height() > largestPictureArea)
        return broken;
    const QImage picture = reader.read();
    return picture.isNull() ? broken : picture;
}

void ManualBrowser::doSetSource(const QUrl &name, QTextDocument::ResourceType type)
{
    const QUrl target = source().resolved(name);
    const QString path = target.toLocalFile();
    const bool shown = isManualPage(path) || isReadableText(path) || !QFileInfo(path).isFile();
    if (!target.isLocalFile() || !shown)
        return m_openOutside(target);
    Q_UNUSED(type)
    QTextBrowser::doSetSource(target, QTextDocument::HtmlResource);
}

void ManualBrowser::changeTextSize(int steps)
{
    const int wanted = std::clamp(m_textSteps + steps, -4, 12);
    zoomIn(wanted - m_textSteps);
    m_textSteps = wanted;
}

} // namespace ardiphon
