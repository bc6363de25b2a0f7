// How much longer a compile takes in the dialog, from the click on "&Compile" until the log and the
// wave are there, than the same command in a shell. Run it with QT_QPA_PLATFORM=offscreen from any
// folder; it needs csound, and writes only to a temporary folder of its own.

#include "app/ConfigurationBlock.h"
#include "compile/CompileRules.h"
#include "compile/ProjectParameters.h"
#include "compile/ui/FormCSound.h"
#include "language/editor/LEditOCX.h"
#include "platform/ui/QtDialogs.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace ardiphon;

namespace {

constexpr int Runs = 21;

struct Bench
{
    QTemporaryDir folder;
    ConfigurationBlock config;
    QtDialogs dialogs;
    LEditOCX orchestra;
    LEditOCX score;
    QString wave = folder.filePath(QStringLiteral("piece.wav"));

    QString write(const char *name, const char *text) const
    {
        QFile file(folder.filePath(QLatin1String(name)));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write");
        file.write(text);
        return file.fileName();
    }

    Bench()
    {
        config.FileCSound = QStandardPaths::findExecutable(QStringLiteral("csound"));
        config.RootPath = folder.path() + u'/';
        config.ProgramFolder = folder.path();
        config.OrchestraFileName =
            write("piece.orc", "sr = 44100\nksmps = 32\nnchnls = 1\n0dbfs = 1\ninstr 1\n"
                               "a1 oscili 0.2, 440\nout a1\nendin\n");
        config.ScoreFileName = write("piece.sco", "i 1 0 1\ne\n");
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

double milliseconds(const std::function<void()> &action)
{
    QElapsedTimer clock;
    clock.start();
    action();
    return double(clock.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace

int main(int argc, char **argv)
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
        shell.push_back(milliseconds([&] { failures += std::system(command.constData()) != 0; }));
        QFile::remove(bench.wave);
        window.push_back(milliseconds([&] { compila->click(); }));
        failures += !QFile::remove(bench.wave);
        btnClose->click();
        QApplication::processEvents();
    }
    std::printf("compile in a shell       %8.1f ms median of %d\n", median(shell), Runs);
    std::printf("compile in the dialog    %8.1f ms median of %d\n", median(window), Runs);
    std::printf("the dialog's part        %8.1f ms\n", median(window) - median(shell));
    std::printf("failures                 %8d\n", failures);
    return failures;
}
