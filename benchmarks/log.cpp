// How long a compile window takes to show a log: until its beginning stands there, and until all of
// it does.

#include "Measure.h"

#include "compile/CompilerLog.h"
#include "compile/ui/CompilerOutput.h"

#include <QTextDocument>

using namespace ardiphon;

namespace measure::log {

QByteArray log(int lines)
{
    QByteArray text;
    for (int i = 0; i < lines; ++i)
        text += "new alloc for instr " + QByteArray::number(i) + ": \x1b[31;1mB 0.00\x1b[m ..\n";
    return text;
}

void measureLog(CompilerOutput &output, int lines, const QString &path)
{
    const double before = measure::ownMegabytes();
    const auto show = [&] {
        if (const auto text = readCompilerLog(path))
            output.setText(*text);
        QApplication::processEvents();
    };
    measure::row("log load, its beginning shows", lines, measure::wallTime(show), "ms", 500);
    const auto lineEnds = output.text().count(u'\n');
    const auto rest = [&] {
        while (output.document()->blockCount() <= lineEnds)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    measure::row("log load, the rest of it", lines, measure::wallTime(rest), "ms");
    measure::row("log load, memory", lines, measure::ownMegabytes() - before, "MB");
}

BENCHMARK(log)
{
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    for (const int lines : measure::Sizes) {
        CompilerOutput output;
        output.resize(760, 480);
        output.show();
        measureLog(output, lines, measure::write(folder, "tmp.txt", log(lines)));
    }
    return 0;
}

} // namespace measure::log
