#include "platform/ui/Printer.h"

#include <QCoreApplication>
#include <QPageLayout>
#include <QPrinter>

namespace ardiphon {

namespace {

constexpr int TwipsPerInch = 1440;
constexpr int TwipsPerPoint = 20;

PrinterPage pageOf(const QPrinter &printer)
{
    const int resolution = printer.resolution();
    const auto twips = [resolution](int pixels) {
        return qRound(double(pixels) * TwipsPerInch / resolution);
    };
    QPageLayout layout = printer.pageLayout();
    layout.setUnits(QPageLayout::Point);
    const QMarginsF unreachable = layout.minimumMargins();
    const QRect paper = layout.fullRectPixels(resolution);

    PrinterPage page;
    page.paperWidth = twips(paper.width());
    page.paperHeight = twips(paper.height());
    page.offsetX = qRound(unreachable.left() * TwipsPerPoint);
    page.offsetY = qRound(unreachable.top() * TwipsPerPoint);
    page.scaleWidth = page.paperWidth - page.offsetX - qRound(unreachable.right() * TwipsPerPoint);
    page.scaleHeight =
        page.paperHeight - page.offsetY - qRound(unreachable.bottom() * TwipsPerPoint);
    return page;
}

} // namespace

Printer::Printer(std::unique_ptr<QPrinter> printer) : m_printer(std::move(printer))
{
    m_printer->setFullPage(true); // places count from the paper's corner, whatever its margins
    m_page = pageOf(*m_printer);
}

Printer::~Printer() = default; // destroys the painter before the printer

QRectF Printer::toPixels(const QRect &twips) const
{
    const double scale = double(m_printer->resolution()) / TwipsPerInch;
    return {twips.x() * scale, twips.y() * scale, twips.width() * scale, twips.height() * scale};
}

bool Printer::startJob(const QString &name)
{
    if (m_painter.isActive()) // after another job in the same file
        return newPage();
    m_printer->setDocName(name);
    m_printer->setCreator(QCoreApplication::applicationName());
    m_failed = !m_painter.begin(m_printer.get());
    if (m_failed)
        return false;
    m_painter.translate(toPixels(QRect(m_page.offsetX, m_page.offsetY, 0, 0)).topLeft());
    return true;
}

bool Printer::newPage()
{
    m_failed = m_printer->printerState() == QPrinter::Error ||
               m_printer->printerState() == QPrinter::Aborted || !m_printer->newPage();
    return !m_failed;
}

void Printer::endJob()
{
    if (!printsToFile())
        m_painter.end();
}

QPaintDevice *Printer::device() const { return m_printer.get(); }

bool Printer::printsToFile() const { return !m_printer->outputFileName().isEmpty(); }

} // namespace ardiphon
