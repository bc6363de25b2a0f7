#pragma once

#include "platform/PrinterPage.h"

#include <QPainter>
#include <QRectF>

#include <memory>

class QPrinter;

namespace ardiphon {

/// A printer that the user chose. What is drawn on it is drawn in its own pixels, from the corner
/// of what it can reach. Where it prints into a file, all of its jobs follow each other in that
/// file, which is complete once the printer is destroyed.
class Printer
{
public:
    /// Takes over the paper and the resolution of \a printer; the caller sees to margins.
    explicit Printer(std::unique_ptr<QPrinter> printer);
    ~Printer();

    const PrinterPage &page() const { return m_page; }
    QRectF toPixels(const QRect &twips) const;

    /// Begins a job on a new page; \a name is what the queue shows. False when the printer cannot.
    bool startJob(const QString &name);
    /// False when the printer has failed.
    bool newPage();
    void endJob();
    /// Whether the last page that was asked for could not be begun.
    bool hasFailed() const { return m_failed; }

    /// Draws on the page; only between startJob and endJob.
    QPainter &painter() { return m_painter; }
    /// The device whose resolution is used to measure fonts.
    QPaintDevice *device() const;

private:
    bool printsToFile() const;

    const std::unique_ptr<QPrinter> m_printer;
    PrinterPage m_page;
    bool m_failed = false;
    QPainter m_painter;
};

} // namespace ardiphon
