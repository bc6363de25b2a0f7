// The processor time that it takes to know a piece: what a key costs, the slices in which the rest
// is read, and what the window makes of it.

#include "Measure.h"
#include "MeasuredEditor.h"

#include "documents/ui/FormCSD.h"
#include "language/ui/Gutter.h"
#include "piece/PieceBodies.h"
#include "workbench/ui/PieceFollower.h"

#include <QAction>
#include <QKeyEvent>

using namespace ardiphon;

namespace measure::piece {

constexpr int PieceSizes[] = {1'000, 50'000, 1'000'000};

/// An instrument of eight lines, with some of each that an orchestra has.
QByteArray orchestra(int lines)
{
    QByteArray text;
    for (int line = 0; line + 8 <= lines; line += 8) {
        text += "instr " + QByteArray::number(line / 8 + 1) +
                " ; a plain bell\n"
                "  icps = p5\n"
                "  kamp linseg 0, p3 * .5, p4, p3 * .5, 0\n"
                "  if kamp > 0.5 then\n"
                "    kamp = 0.5\n"
                "  endif\n"
                "  out oscili(kamp, icps, 1)\n"
                "endin\n";
    }
    return text;
}

QByteArray unified(int lines)
{
    return "<CsoundSynthesizer>\n<CsInstruments>\n" + orchestra(lines / 2) +
           "</CsInstruments>\n<CsScore>\n" + measure::score(lines / 2).replace("\r\n", "\n") +
           "</CsScore>\n</CsoundSynthesizer>\n";
}

/// A text in memory, any line of which can be another at once.
class MemoryLines : public LineSource
{
public:
    explicit MemoryLines(const QByteArray &text)
    {
        for (const QByteArray &line : text.split('\n'))
            m_lines.push_back(line.endsWith('\r') ? line.chopped(1) : line);
    }
    int lineCount() const override { return int(m_lines.size()); }
    QByteArrayView line(int line) const override { return m_lines[size_t(line) - 1]; }
    QByteArray &at(int line) { return m_lines[size_t(line) - 1]; }

private:
    std::vector<QByteArray> m_lines;
};

/// The model alone, over a text in memory.
class ModelBench
{
public:
    ModelBench(DocumentRole role, const QByteArray &text, const Program &program)
        : m_role(role), m_lines(text), m_piece({{role, &m_lines}}, opcodesOf(program))
    {
    }

    static IsOpcode opcodesOf(const Program &program)
    {
        return [words = program.config.Words](QByteArrayView name) {
            return words->FindInTable(QString::fromLatin1(name)) > 0;
        };
    }

    struct Reading
    {
        double whole = 0;
        double longestSlice = 0;
    };
    Reading read()
    {
        Reading reading;
        for (bool isRead = false; !isRead;) {
            const double slice = measure::processTime(
                [&] { isRead = m_piece.readOn(QDeadlineTimer(PieceFollower::Slice)); });
            reading.whole += slice;
            reading.longestSlice = std::max(reading.longestSlice, slice);
        }
        return reading;
    }
    /// A letter at the end of that line, then another one.
    double key(int line)
    {
        return measure::medianOf(101, [&] {
            m_lines.at(line) += m_lines.at(line).size() % 2 == 0 ? ' ' : '1';
            return measure::processTime([&] {
                m_piece.change(m_role, {line, 1, 1});
                m_piece.readOn(QDeadlineTimer(PieceFollower::Slice));
            });
        });
    }
    double bytesPerLine() const { return double(m_piece.memory()) / m_lines.lineCount(); }
    /// Opens a comment at the top, so that all lines are read again, and closes it.
    double longestSliceOfAComment()
    {
        double longest = 0;
        for (const QByteArray &line : {QByteArray("/*"), QByteArray()}) {
            m_lines.at(1) = line;
            m_piece.change(m_role, {1, 1, 1});
            longest = std::max(longest, read().longestSlice);
        }
        return longest;
    }

private:
    const DocumentRole m_role;
    MemoryLines m_lines;
    Piece m_piece;
};

void measureModel(const char *kind, DocumentRole role, const QByteArray &text, int lines,
                  const Program &program)
{
    const auto row = [=](const char *what, double value, const char *unit, double limit) {
        measure::row((QByteArray(kind) + ", " + what).constData(), lines, value, unit, limit);
    };
    ModelBench model(role, "\n" + text, program);
    const ModelBench::Reading reading = model.read();
    row("read all", reading.whole, "ms", role == DocumentRole::Score ? 1000 : 0);
    row("longest slice", reading.longestSlice, "ms", 4);
    row("memory", model.bytesPerLine(), "B a line", 24);
    row("key at the top", model.key(5), "ms", 0.2);
    row("key in the middle", model.key(lines / 2), "ms", 0.2);
    row("key at the end", model.key(lines - 5), "ms", 0.2);
    row("longest slice of a comment", model.longestSliceOfAComment(), "ms", 4);
}

/// Lines that no one would write, but a file may have.
void measureLongLines(const Program &program)
{
    const auto longest = [&](DocumentRole role, const QByteArray &text) {
        return ModelBench(role, text, program).read().longestSlice;
    };
    QByteArray names;
    for (int i = 0; names.size() < 5'000'000; ++i)
        names += "kname" + QByteArray::number(i) + ", ";
    const auto ofLength = [](const QByteArray &line, int bytes) {
        return (line.repeated(bytes / int(line.size())) + '\n').repeated(4'000'000 / bytes);
    };
    const QByteArray sum = "kone + oscili(p4, icps) * ";
    for (const int bytes : {250, 4'000, 60'000}) {
        const QByteArray what = "longest slice, lines of " + QByteArray::number(bytes) + " bytes, ";
        measure::row((what + "orc").constData(), measure::NoSize,
                     longest(DocumentRole::Orchestra, ofLength(sum, bytes)), "ms", 4);
        measure::row((what + "sco").constData(), measure::NoSize,
                     longest(DocumentRole::Score, ofLength("440.25 ", bytes)), "ms", 4);
    }
    measure::row("longest slice, names of 5 MB in a line", measure::NoSize,
                 longest(DocumentRole::Orchestra, names + "oscili 1"), "ms", 4);
}

/// What a window makes of the model.
class WindowBench
{
public:
    void measureAt(int lines)
    {
        open(lines);
        const int notes = lines * 3 / 4;
        for (const auto &[what, line] :
             {std::pair("at the top", 4), std::pair("in the notes", notes)})
            measureAt(lines, what, line);
        m_window->findChild<QAction *>(QStringLiteral("menuStudioOutline"))->trigger();
        measure::idle(500);
        measureKey(lines, "key, with the outline", notes);
        reportFolds(lines);
        editor()->ClearState(TextState);
        delete m_window;
    }

private:
    void measureAt(int lines, const QByteArray &where, int line)
    {
        measure::goTo(*editor(), line);
        measure::paint(*editor());
        report("caret move " + where, lines, 1, [this] { press(Qt::Key_Right, {}); });
        report("gutter with marks " + where, lines, 1, [this] { gutter()->repaint(); });
        measureKey(lines, "key in the window " + where, line);
    }
    void measureKey(int lines, const QByteArray &what, int line)
    {
        measure::goTo(*editor(), line);
        measure::paint(*editor());
        report(what, lines, 2, [this] { press(Qt::Key_1, QStringLiteral("1")); });
    }

    void reportFolds(int lines)
    {
        std::vector<double> fold;
        std::vector<double> unfold;
        for (int i = 0; i < 5; ++i) {
            fold.push_back(measure::processTime([this] { trigger("menuStudioFoldAll"); }));
            unfold.push_back(measure::processTime([this] { trigger("menuStudioUnfoldAll"); }));
        }
        measure::row("fold all", lines, measure::median(fold), "ms", 1000);
        measure::row("unfold all", lines, measure::median(unfold), "ms", 1000);
    }

    void open(int lines)
    {
        m_program.config.CSDFileName =
            measure::write(m_program.folder, "large.csd", unified(lines));
        m_window = new FormCSD(m_program.context);
        m_window->show();
        measure::idle(500);
        while (!follower().piece().isRead())
            QApplication::processEvents();
        measure::idle(500);
    }

    template <typename Step>
    static void report(const QByteArray &what, int lines, double limit, Step step)
    {
        measure::row(what.constData(), lines,
                     measure::medianOf(31, [&] { return measure::processTime(step); }), "ms",
                     limit);
    }

    /// The key, what follows from it and the painting.
    void press(int key, const QString &text)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(editor()->focusProxy(), &event);
        QApplication::processEvents();
    }
    void trigger(const char *command)
    {
        m_window->findChild<QAction *>(QLatin1String(command))->trigger();
        QApplication::processEvents();
    }

    LEditOCX *editor() const { return m_window->findChild<LEditOCX *>(QStringLiteral("LEDIT1")); }
    Gutter *gutter() const { return m_window->findChild<Gutter *>(); }
    PieceFollower &follower() const { return *m_window->findChild<PieceFollower *>(); }

    Program m_program;
    FormCSD *m_window = nullptr;
};

BENCHMARK(piece)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const Program program;
    for (const int lines : PieceSizes) {
        measureModel("score", DocumentRole::Score, measure::score(lines), lines, program);
        measureModel("orchestra", DocumentRole::Orchestra, orchestra(lines), lines, program);
        measureModel("unified", DocumentRole::Csd, unified(lines), lines, program);
    }
    measureLongLines(program);
    WindowBench window;
    for (const int lines : PieceSizes)
        window.measureAt(lines);
    return 0;
}

} // namespace measure::piece
