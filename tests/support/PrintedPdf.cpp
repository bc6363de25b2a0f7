#include "support/PrintedPdf.h"

#include "platform/ui/Printer.h"

#include <QDateTime>
#include <QFileInfo>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>

using namespace ardiphon;

namespace {

constexpr double TwipsPerPoint = 20;

} // namespace

QString PrintedPdf::told(const QString &tool, const QStringList &arguments) const
{
    const QFileInfo file(path());
    const QString question = QStringLiteral("%1 %2 %3 %4")
                                 .arg(tool, arguments.join(u' '))
                                 .arg(file.lastModified().toMSecsSinceEpoch())
                                 .arg(file.size());
    QString &answer = m_told[question];
    if (!answer.isEmpty())
        return answer;
    QProcess process;
    process.start(tool, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s failed: is poppler-utils installed?", qPrintable(tool));
    return answer = QString::fromUtf8(process.readAllStandardOutput());
}

std::shared_ptr<Printer> PrintedPdf::printer(QPageSize::PageSizeId paper, int resolution,
                                             double unreachable) const
{
    auto made = std::make_unique<QPrinter>();
    made->setOutputFormat(QPrinter::PdfFormat);
    made->setOutputFileName(path());
    made->setResolution(resolution);
    const QMarginsF edges(unreachable, unreachable, unreachable, unreachable);
    made->setPageLayout(QPageLayout(QPageSize(paper), QPageLayout::Portrait, edges,
                                    QPageLayout::Millimeter, edges));
    return std::make_shared<Printer>(std::move(made));
}

bool PrintedPdf::exists() const { return QFileInfo::exists(path()); }

int PrintedPdf::pageCount() const
{
    static const QRegularExpression count(QStringLiteral("Pages:\\s*(\\d+)"));
    return count.match(told(QStringLiteral("pdfinfo"), {path()})).captured(1).toInt();
}

QList<QStringList> PrintedPdf::pages() const
{
    QStringList texts =
        told(QStringLiteral("pdftotext"), {QStringLiteral("-raw"), path(), QStringLiteral("-")})
            .split(u'\f');
    texts.removeLast(); // each page ends with a form feed
    QList<QStringList> pages;
    for (const QString &text : texts)
        pages.append(text.split(u'\n', Qt::SkipEmptyParts));
    return pages;
}

QStringList PrintedPdf::bodyLines() const
{
    QStringList lines;
    for (const QStringList &page : pages())
        lines += page.mid(1);
    return lines;
}

QStringList PrintedPdf::headers() const
{
    QStringList lines;
    for (const QStringList &page : pages())
        lines += page.value(0);
    return lines;
}

QList<PrintedPdf::Word> PrintedPdf::words() const
{
    static const QRegularExpression tag(
        QStringLiteral("<page |<word xMin=\"([\\d.-]+)\" yMin=\"([\\d.-]+)\" xMax=\"([\\d.-]+)\" "
                       "yMax=\"([\\d.-]+)\">([^<]*)</word>"));
    QList<Word> found;
    int page = 0;
    auto tags = tag.globalMatch(
        told(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), path(), QStringLiteral("-")}));
    while (tags.hasNext()) {
        const QRegularExpressionMatch match = tags.next();
        if (match.captured(5).isEmpty()) {
            ++page;
            continue;
        }
        const auto twips = [&](int i) { return match.captured(i).toDouble() * TwipsPerPoint; };
        found.append({page, match.captured(5),
                      QRectF(QPointF(twips(1), twips(2)), QPointF(twips(3), twips(4)))});
    }
    return found;
}

PrintedPdf::Word PrintedPdf::word(const QString &text) const
{
    for (const Word &each : words())
        if (each.text == text)
            return each;
    qFatal("%s was not printed", qPrintable(text));
}

QString PrintedPdf::fonts() const { return told(QStringLiteral("pdffonts"), {path()}); }

QImage PrintedPdf::picture(int page) const
{
    const QString number = QString::number(page);
    const QString picture = m_folder.filePath(QStringLiteral("page"));
    told(QStringLiteral("pdftoppm"),
         {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("72"), QStringLiteral("-f"),
          number, QStringLiteral("-l"), number, QStringLiteral("-singlefile"), path(), picture});
    return QImage(picture + QStringLiteral(".png"));
}
