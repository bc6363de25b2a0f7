// How much longer a compile takes in the dialog, from the click on "&Compile" until the log and the
// wave are there, than the same command in a shell. It needs csound, and writes only to a temporary
// folder of its own.

#include "Measure.h"

#include "app/ConfigurationBlock.h"
#include "compile/CompileRules.h"
#include "compile/ProjectParameters.h"
#include "compile/ui/FormCSound.h"
#include "language/editor/LEditOCX.h"
#include "platform/ui/QtDialogs.h"

#include <QPushButton>
#include <QStandardPaths>

#include <cstdlib>

using namespace ardiphon;

namespace measure::compile {

constexpr int Runs = 21;

struct Bench
{
    QTemporaryDir folder;
    ConfigurationBlock config;
    QtDialogs dialogs;
    LEditOCX orchestra;
    LEditOCX score;
    QString wave = folder.filePath(QStringLiteral("piece.wav"));

    Bench()
    {
        config.FileCSound = QStandardPaths::findExecutable(QStringLiteral("csound"));
        config.RootPath = folder.path() + u'/';
        config.ProgramFolder = folder.path();
        config.OrchestraFileName =
            measure::write(folder, "piece.orc",
                           "sr = 44100\nksmps = 32\nnchnls = 1\n0dbfs = 1\ninstr 1\n"
                           "a1 oscili 0.2, 440\nout a1\nendin\n");
        config.ScoreFileName = measure::write(folder, "piece.sco", "i 1 0 1\ne\n");
    }

    /// The command line of a shell that does the same.
    QByteArray command() const
    {
        const ProjectFields fields{QStringLiteral("-W"), wave, config.OrchestraFileName,
                                   config.ScoreFileName};
        return QStringLiteral("exec \"%1\" %2 </dev/null >/dev/null 2>&1")
            .arg(config.FileCSound, loggedProjectParameters(fields, config.RootPath))
            .toUtf8();
    }
};

BENCHMARK(compile)
{
    QApplication application(argc, argv);
    Bench bench;
    const CompileContext context{bench.config,
                                 bench.dialogs,
                                 nullptr,
                                 [](QWidget *) { return HelpViewer{}; },
                                 {RunSystem::real().tickCount, [] {}}};
    FormCSound dialog(context, bench.orchestra, bench.score);
    dialog.show();
    auto *compila = dialog.findChild<QPushButton *>(QStringLiteral("Compila"));
    auto *btnClose = dialog.findChild<QPushButton *>(QStringLiteral("btnClose"));
    const QByteArray command = bench.command();
    std::vector<double> shell;
    std::vector<double> window;
    int failures = 0;
    for (int run = 0; run < Runs; ++run) { // in turns, as the machine may have other work
        shell.push_back(
            measure::wallTime([&] { failures += std::system(command.constData()) != 0; }));
        QFile::remove(bench.wave);
        window.push_back(measure::wallTime([&] { compila->click(); }));
        failures += !QFile::remove(bench.wave);
        btnClose->click();
        QApplication::processEvents();
    }
    const double alone = measure::median(shell);
    const double shown = measure::median(window);
    measure::row("compile in a shell", measure::NoSize, alone, "ms");
    measure::row("compile in the dialog", measure::NoSize, shown, "ms");
    measure::row("compile overhead", measure::NoSize, shown - alone, "ms", 100);
    return failures;
}

} // namespace measure::compile
