// How long a document takes to be printed into a PDF.

#include "Measure.h"

#include "platform/ui/Printer.h"
#include "printing/ui/PageFormatter.h"
#include "printing/ui/PrintModule.h"

#include <QFontDatabase>
#include <QPrinter>

using namespace ardiphon;

namespace measure::print {

PrintText scoreToPrint(int lines)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(10);
    return {QString::fromLatin1(measure::score(lines)), font, 8};
}

double print(int lines)
{
    const QTemporaryDir folder;
    const PrintText text = scoreToPrint(lines);
    return measure::processTime([&] {
        auto pdf = std::make_unique<QPrinter>(QPrinter::HighResolution);
        pdf->setOutputFileName(folder.filePath(QStringLiteral("out.pdf")));
        pdf->setPageSize(QPageSize(QPageSize::A4));
        Printer printer(std::move(pdf));
        PrintRichText(printer, text, {570, 570, 570, 570}, QStringLiteral("large.sco"));
    });
}

BENCHMARK(print)
{
    QApplication application(argc, argv);
    measure::row("print 5,000 lines", measure::NoSize, print(5'000), "ms", 2000);
    for (const int lines : measure::Sizes)
        measure::row("print", lines, print(lines), "ms");
    return 0;
}

} // namespace measure::print
