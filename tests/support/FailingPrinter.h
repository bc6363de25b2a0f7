#pragma once

#include <QPrintEngine>
#include <QPrinter>

/// A printer into a PDF that breaks down in the middle of a job.
class FailingPrinter : public QPrinter
{
public:
    /// \a lastPage: after that page no other can be begun. \a state: what the printer then reports
    /// of itself. \a asked counts the pages that it is asked for.
    FailingPrinter(const QString &pdf, int lastPage, QPrinter::PrinterState state, int &asked)
        : m_engine(pdf, lastPage, state, asked)
    {
        setEngines(&m_engine, m_engine.real.paintEngine());
    }

private:
    struct Engine : QPrintEngine
    {
        Engine(const QString &pdf, int last, QPrinter::PrinterState broken, int &asked)
            : pagesLeft(last - 1), pagesAskedFor(asked), brokenState(broken)
        {
            real.setOutputFormat(QPrinter::PdfFormat);
            real.setOutputFileName(pdf);
        }

        void setProperty(PrintEnginePropertyKey key, const QVariant &value) override
        {
            real.printEngine()->setProperty(key, value);
        }
        QVariant property(PrintEnginePropertyKey key) const override
        {
            return real.printEngine()->property(key);
        }
        bool newPage() override
        {
            ++pagesAskedFor;
            return pagesLeft-- > 0 && real.printEngine()->newPage();
        }
        bool abort() override { return real.printEngine()->abort(); }
        int metric(QPaintDevice::PaintDeviceMetric metric) const override
        {
            return real.printEngine()->metric(metric);
        }
        QPrinter::PrinterState printerState() const override
        {
            return pagesLeft > 0 ? real.printEngine()->printerState() : brokenState;
        }

        QPrinter real;
        int pagesLeft;
        int &pagesAskedFor;
        QPrinter::PrinterState brokenState;
    };

    Engine m_engine;
};
