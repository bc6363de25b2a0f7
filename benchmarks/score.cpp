// The reading of a score: single lines, and its notes in slices.

#include "Measure.h"

#include "piece/ScoreNotes.h"
#include "piece/ScoreStatement.h"

namespace measure::score_notes {

using namespace ardiphon;

/// A text as an editor has it: lines without their ends.
class TextLines : public LineSource
{
public:
    explicit TextLines(const QByteArray &text) : m_lines(text.split('\n')) {}
    int lineCount() const override { return int(m_lines.size()); }
    QByteArrayView line(int line) const override { return m_lines[line - 1]; }

private:
    const QByteArrayList m_lines;
};

QByteArray textOf(int lines, QByteArray (*lineOf)(int line))
{
    QByteArray text;
    for (int i = 1; i < lines; ++i)
        text += lineOf(i) + '\n';
    return text + "e";
}

QByteArray usualLine(int) { return "i1 0 1 440 0.5"; }
QByteArray walkingLine(int line) { return "i1 " + QByteArray::number(line * .25) + " .5 440 1200"; }
QByteArray carriedLine(int line) { return line % 100 == 1 ? "i1 0 .5 440" : "i. + . <"; }
QByteArray voicesLine(int line)
{
    return "i" + QByteArray::number(1 + line % 7) + " " +
           QByteArray::number(line * 7919 % 100'003) + " .5 440";
}
QByteArray activeLine(int line)
{
    return line == 1 ? "#define A(x) #[$x * .5] 1#" : "i1 $A(" + QByteArray::number(line) + ") 440";
}

void measureStatements(int lines)
{
    const TextLines text(textOf(lines, usualLine));
    CodeState state = CodeState::Code;
    qsizetype fields = 0;
    const double time = processTime([&] {
        for (int line = 1; line <= text.lineCount(); ++line)
            fields += readScoreLine(text.line(line), state).fields.size();
    });
    row("a line of a score is read", lines, time * 1000 / lines, "us", 0.25);
    if (fields != 5 * (lines - 1))
        std::puts("the fields are not those of the score");
}

void measureNotes(const char *what, const TextLines &text, int lines)
{
    constexpr double Slice = 4;
    ScoreNotes notes(text);
    double longest = 0;
    const double time = processTime([&] {
        // The slice that an idle program gives, and what it comes to.
        for (bool hasMore = true; hasMore;) {
            longest = std::max(longest, processTime([&] {
                                   hasMore = notes.readOn(QDeadlineTimer(3, Qt::PreciseTimer));
                               }));
        }
    });
    const QByteArray name(what);
    row((name + ", all").constData(), lines, time, "ms", lines == NoSize ? 0 : 1000);
    row((name + ", longest slice").constData(), lines, longest, "ms", Slice);
    if (lines > 10'000)
        row((name + ", bytes a line").constData(), lines, double(notes.bytes()) / lines, "bytes",
            24);
}

BENCHMARK(score)
{
    Q_UNUSED(argc)
    Q_UNUSED(argv)
    for (const int lines : {1'000, 50'000, 1'000'000}) {
        measureStatements(lines);
        measureNotes("notes of a score", TextLines(textOf(lines, walkingLine)), lines);
        measureNotes("carried notes", TextLines(textOf(lines, carriedLine)), lines);
        measureNotes("notes in no order", TextLines(textOf(lines, voicesLine)), lines);
        measureNotes("notes of macros", TextLines(textOf(lines, activeLine)), lines);
    }
    measureNotes("a line of 5 MB", TextLines("i1 0 1" + QByteArray(" 1").repeated(2'500'000)),
                 NoSize);
    measureNotes("a line of 5 MB to be expanded",
                 TextLines("#define A # 1#\ni1 0 1" + QByteArray(" $A").repeated(1'700'000)),
                 NoSize);
    measureNotes("loops without an end", TextLines("{ 1000000000 N\ni1 $N 1\n}"), NoSize);
    return 0;
}

} // namespace measure::score_notes
