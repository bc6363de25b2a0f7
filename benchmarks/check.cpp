// The check while one types: from the last key to the mark, what it adds to a key, and how near to
// a fault made by chance the errors are.

#include "Measure.h"
#include "MeasuredEditor.h"

#include "check/CheckedText.h"
#include "check/MutatedPiece.h"
#include "check/SectionProblems.h"
#include "documents/ui/FormCSD.h"

#include <QDir>
#include <QDockWidget>
#include <QKeyEvent>
#include <QProcess>

using namespace ardiphon;

namespace measure::check {

constexpr int PieceLines = 2'000;
constexpr int Runs = 11;
constexpr int Keys = 200;
constexpr int Mutations = 300;
constexpr int Near = 2; ///< lines

QByteArray checkedPiece(int lines)
{
    QByteArray text = "<CsoundSynthesizer>\n<CsInstruments>\nksmps = 32\n0dbfs = 1\n";
    for (int i = 1; i <= lines / 10; ++i)
        text += "instr " + QByteArray::number(i) +
                "\n  icps = p5\n  kamp linseg 0, p3, p4\n  asig oscili kamp, icps\n"
                "  afil tone asig, 400\n  out afil\nendin\n";
    text += "</CsInstruments>\n<CsScore>\n";
    for (int i = 1; i <= lines * 3 / 10; ++i)
        text += "i1 " + QByteArray::number(i) + " 1 .5 440\n";
    return text + "</CsScore>\n</CsoundSynthesizer>\n";
}

class CheckBench
{
public:
    explicit CheckBench(int lines)
    {
        m_program.config.RootPath = m_program.folder.path() + u'/';
        m_program.config.FileCSound = QStandardPaths::findExecutable(QStringLiteral("csound"));
        m_program.config.CSDFileName =
            measure::write(m_program.folder, "checked.csd", checkedPiece(lines));
        m_window = new FormCSD(m_program.context);
        m_window->show();
        settle(1000);
        first()->setFocus();
    }
    ~CheckBench()
    {
        first()->ClearState(TextState);
        delete m_window;
    }

    /// From the key that makes an opcode another word.
    double timeToMark() const
    {
        goTo(*first(), 8, 13);
        const double time = measure::wallTime([this] {
            key(u'q');
            waitFor(true);
        });
        first()->Undo();
        waitFor(false);
        return time;
    }

    /// Of keys that come faster than the pause.
    double keyTime(bool isChecked) const
    {
        m_program.config.CheckWhileTyping = isChecked;
        goTo(*first(), 8, 13);
        const double time = measure::processTime([this] {
            for (int i = 0; i < Keys; ++i) {
                key(u'q');
                QApplication::processEvents();
            }
        });
        for (int i = 0; i < Keys; ++i)
            first()->Undo();
        settle(700);
        m_program.config.CheckWhileTyping = true;
        return time / Keys;
    }

private:
    LEditOCX *first() const { return m_window->findChild<LEditOCX *>(QStringLiteral("LEDIT1")); }
    bool hasProblem() const
    {
        const auto *const dock = m_window->findChild<QDockWidget *>(QStringLiteral("DockProblems"));
        return dock->windowTitle() != QLatin1String("Problems");
    }
    void waitFor(bool problem) const
    {
        QElapsedTimer limit;
        limit.start();
        while (hasProblem() != problem && limit.elapsed() < 5000)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    }
    static void settle(int milliseconds)
    {
        QElapsedTimer time;
        time.start();
        while (time.elapsed() < milliseconds)
            QApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    void key(QChar c) const
    {
        QKeyEvent press(QEvent::KeyPress, c.toUpper().unicode(), Qt::NoModifier, c);
        QApplication::sendEvent(first()->focusProxy(), &press);
    }

    mutable Program m_program;
    FormCSD *m_window = nullptr;
};

bool isAccepted(const QTemporaryDir &folder, const QByteArray &piece)
{
    QProcess compiler;
    compiler.setWorkingDirectory(folder.path());
    compiler.setProcessChannelMode(QProcess::MergedChannels);
    compiler.start(QStringLiteral("csound"), {QStringLiteral("--syntax-check-only"),
                                              measure::write(folder, "mutated.csd", piece)});
    compiler.closeWriteChannel();
    if (!compiler.waitForFinished(5000))
        compiler.kill();
    return compiler.readAll().contains("Syntax check completed.");
}

/// Of the pieces that the compiler refuses, in percent.
double partWithErrorNear(const QByteArrayList &pieces)
{
    QRandomGenerator random(22);
    const QTemporaryDir folder;
    int refused = 0;
    int near = 0;
    for (int i = 0; i < Mutations; ++i) {
        const MutatedPiece broken = mutated(mutation::oneOf(pieces, random), random);
        const QByteArray piece = broken.lines.join('\n');
        if (isAccepted(folder, piece))
            continue;
        ++refused;
        const CheckedText checked(piece);
        const QList<Problem> problems = sectionProblems(checked.piece) + checked.problems;
        near += std::any_of(problems.begin(), problems.end(), [&](const Problem &problem) {
            return std::abs(problem.place.line - broken.line) <= Near;
        });
    }
    return refused == 0 ? 0 : 100.0 * near / refused;
}

QByteArrayList examples()
{
    QByteArrayList texts;
    const QDir folder(QStringLiteral(PROGRAM_DIR "/../../../data/examples"));
    for (const QString &name : folder.entryList({QStringLiteral("*.csd")}, QDir::Files)) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            texts.append(file.readAll());
    }
    return texts;
}

BENCHMARK(check)
{
    QApplication app(argc, argv);
    {
        const CheckBench bench(PieceLines);
        row("from the last key to the mark", PieceLines,
            medianOf(Runs, [&] { return bench.timeToMark(); }), "ms", 500);
        const double on = medianOf(Runs, [&] { return bench.keyTime(true); });
        const double off = medianOf(Runs, [&] { return bench.keyTime(false); });
        row("what checking adds to a key", PieceLines, on - off, "ms", 0.05);
    }
    if (const QByteArrayList pieces = examples(); !pieces.isEmpty())
        row("refused pieces with an error near the fault", NoSize, partWithErrorNear(pieces), "%");
    return 0;
}

} // namespace measure::check
