#include "printing/ui/PrintModule.h"

#include "platform/ui/Printer.h"
#include "printing/ui/PageFormatter.h"

#include <QFontMetricsF>

namespace ardiphon {

namespace {

constexpr int RuleWidth = 10; // twips

/// The header is in the second line of the page, whatever the top margin.
void drawHeader(Printer &printer, const PrintMargins &margins, const QFont &font,
                const QString &text)
{
    const QFontMetricsF metrics(font, printer.device());
    const double left = printer.toPixels(QRect(margins.left, 0, 0, 0)).left();
    QPainter &painter = printer.painter();
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QPointF(left, metrics.lineSpacing() + metrics.ascent()), text);

    const QLine rule = headerRule(printer.page(), margins);
    const QRectF place = printer.toPixels(QRect(rule.x1(), rule.y1(), rule.dx(), RuleWidth));
    painter.fillRect(place, Qt::black);
}

} // namespace

void PrintRichText(Printer &printer, const PrintText &box, const PrintMargins &margins,
                   const QString &documentPath)
{
    const QRect area = textRectangle(printer.page(), margins);
    const QString name = printedName(documentPath);
    if (area.isEmpty() || !printer.startJob(name))
        return;
    const PageFormatter formatter(box, printer.device());
    qsizetype first = 0;
    for (int number = 1;; ++number) {
        drawHeader(printer, margins, box.font, headerLine(name, number));
        first = formatter.render(printer.painter(), printer.toPixels(area), first);
        if (first >= box.text.size() || !printer.newPage())
            break;
    }
    printer.endJob();
}

} // namespace ardiphon
