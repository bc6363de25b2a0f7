// The processor time that suggestions take: from the key to the list on the screen, and for a key
// while the list is open and while there is none.

#include "Measure.h"
#include "MeasuredEditor.h"

#include "documents/ui/FormCSD.h"
#include "workbench/ui/PieceFollower.h"

#include <QKeyEvent>
#include <QListView>

using namespace ardiphon;

namespace measure::completion {

constexpr int CompletionSizes[] = {1'000, 100'000, 1'000'000};
constexpr int Names = 5'000;
constexpr int Runs = 41;

/// Instruments of eight lines with names of their own, and variables that all of them know.
QByteArray namedPiece(int lines)
{
    QByteArray text = "<CsoundSynthesizer>\n<CsInstruments>\n";
    const int names = std::min(Names, lines / 4);
    for (int i = 0; i < names; ++i)
        text += "gkOscillator" + QByteArray::number(i) + " init 0\n";
    const int instruments = (lines - names) / 8;
    for (int i = 1; i <= instruments; ++i) {
        text += "instr " + QByteArray::number(i) +
                "\n  icps = p5\n  kamp linseg 0, p3, p4\n  asig oscili kamp, icps\n"
                "  afil moogladder asig, 400, 0.5\n\n  outs afil, afil\nendin\n";
    }
    return text + "</CsInstruments>\n</CsoundSynthesizer>\n";
}

double p95(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() * 95 / 100];
}

class CompletionBench
{
public:
    void measureAt(int lines)
    {
        open(lines);
        reportOpening("variable and opcode names", lines, "asig ", "os");
        reportOpening("an argument", lines, "asig oscili 1, ", "gk");
        reportOpening("the beginning of a statement", lines, "", "ou");
        reportKeys(lines);
        first()->ClearState(TextState);
        delete m_window;
    }

private:
    LEditOCX *first() const { return m_window->findChild<LEditOCX *>(QStringLiteral("LEDIT1")); }
    QListView *list() const
    {
        return m_window->findChild<QListView *>(QStringLiteral("ListCompletion"));
    }

    void open(int lines)
    {
        const QByteArray text = namedPiece(lines);
        m_program.config.CSDFileName = measure::write(m_program.folder, "large.csd", text);
        m_window = new FormCSD(m_program.context);
        m_window->show();
        QApplication::processEvents();
        while (!m_window->piece().piece().isRead())
            QApplication::processEvents();
        // The empty line of an instrument in the middle.
        m_line = first()->LineCount() / 2;
        while (!first()->LineText(m_line).isEmpty() ||
               !first()->LineText(m_line + 2).startsWith(u'e'))
            ++m_line;
        first()->setFocus();
    }

    void type(const QString &text) const
    {
        for (const QChar c : text) {
            QKeyEvent key(QEvent::KeyPress, c.toUpper().unicode(), Qt::NoModifier, c);
            QApplication::sendEvent(first()->focusProxy(), &key);
        }
    }

    void settle() const
    {
        do
            QApplication::processEvents();
        while (!m_window->piece().piece().isRead());
    }

    void begin(const QString &before) const
    {
        goTo(*first(), m_line, 0);
        first()->SelEndColumn = first()->LineLength(m_line);
        first()->SetSelection();
        first()->SetSelText(before);
        paint(*first());
        settle();
    }

    void reportOpening(const char *what, int lines, const QString &before,
                       const QString &word) const
    {
        std::vector<double> times;
        for (int run = 0; run < Runs; ++run) {
            begin(before);
            type(word.left(1));
            paint(*first());
            settle();
            times.push_back(measure::processTime([&] {
                type(word.mid(1));
                list()->window()->repaint();
            }));
            if (!list() || !list()->isVisible())
                qFatal("no list");
        }
        begin(QString());
        measure::row((QByteArray("list of ") + what).constData(), lines, measure::median(times),
                     "ms", 16);
        measure::row((QByteArray("list of ") + what + ", p95").constData(), lines, p95(times), "ms",
                     30);
    }

    /// Of the keys of a word behind its second letter.
    double keyTime() const
    {
        return measure::medianOf(Runs, [this] {
            begin(QStringLiteral("asig "));
            type(QStringLiteral("os"));
            paint(*first());
            settle();
            return measure::processTime([this] {
                       type(QStringLiteral("cil"));
                       if (list()->isVisible())
                           list()->window()->repaint();
                   }) /
                   3;
        });
    }

    void reportKeys(int lines) const
    {
        const double open = keyTime();
        m_program.config.CompletionWhileTyping = false;
        const double closed = keyTime();
        m_program.config.CompletionWhileTyping = true;
        measure::row("key without the list", lines, closed, "ms");
        measure::row("what the open list adds to a key", lines, open - closed, "ms", 0.5);
    }

    mutable Program m_program;
    FormCSD *m_window = nullptr;
    int m_line = 1;
};

BENCHMARK(completion)
{
    QApplication app(argc, argv);
    for (const int lines : CompletionSizes) {
        CompletionBench bench;
        bench.measureAt(lines);
    }
    return 0;
}

} // namespace measure::completion
