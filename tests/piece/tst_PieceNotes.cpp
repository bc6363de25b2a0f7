#include "piece/PieceLines.h"
#include "piece/PieceNotes.h"
#include "piece/ScoreNotes.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

using namespace ardiphon;

namespace {

/// A score that counts which of its lines are read.
class CountedScore : public LineSource
{
public:
    explicit CountedScore(const QByteArray &text)
        : lines(text), piece({{DocumentRole::Score, this}}, isTestOpcode)
    {
        piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
        reads = 0;
    }
    int lineCount() const override { return lines.lineCount(); }
    QByteArrayView line(int line) const override
    {
        ++reads;
        return lines.line(line);
    }
    const PieceText &text() const { return piece.texts().front(); }

    PieceTextLines lines;
    mutable int reads = 0;
    Piece piece;
};

QByteArrayList playedBy(const QByteArray &score)
{
    const PieceOfLines of(score, DocumentRole::Score);
    QByteArrayList played;
    for (int line = 1; line <= of.text().lineCount(); ++line)
        played.append(instrumentPlayed(of.text(), line));
    return played;
}

int nextLine(const Piece &piece, const char *name, int line)
{
    const auto place = nextNote(piece, {QString::fromLatin1(name)}, line);
    return place ? place->line : 0;
}

} // namespace

class tst_PieceNotes : public QObject
{
    Q_OBJECT

private slots:
    void line_playsItsInstrument_data();
    void line_playsItsInstrument();
    void carried_endsWithItsSectionOfTheFile();
    void next_findsCarriedLinesToo();
    void next_ofAnotherInstrument_passesOverThem();
    void carriedOverManyBlocks_followsAnEdit();
    void longScore_isReadInPart();
    void lines_playWhatTheirNotesDo();
};

void tst_PieceNotes::line_playsItsInstrument_data()
{
    QTest::addColumn<QByteArrayList>("score");
    QTest::addColumn<QByteArrayList>("played");
    const auto row = [](const char *name, const QByteArrayList &score,
                        const QByteArrayList &played) { QTest::newRow(name) << score << played; };
    row("number", {"i1 0 1", "i 2.3 0 1", "i -3 0 1"}, {"1", "2", "3"});
    row("name", {"i \"Bell\" 0 1", "i \"-Bell.1\" 0 1"}, {"Bell", "Bell"});
    row("carried", {"i 1 0 1", "i . + .", "i", "i . 3 1 ; more"}, {"1", "1", "1", "1"});
    row("carried name", {"i \"Bell\" 0 1", "i ."}, {"Bell", "Bell"});
    row("of the last", {"i 1 0 1", "i 2 0 1", "i . 1 1"}, {"1", "2", "2"});
    row("over what is no note", {"i 1 0 1", "", "; a", "v 2", "b 3", "/* i 9", "*/", "i . 1 1"},
        {"1", "", "", "", "", "", "", "1"});
    row("over a line that goes on", {"i 1 0", " 1 2", "i . 1 1"}, {"1", "", "1"});
    row("none above", {"i .", "i", "i 1 0 1"}, {"", "", "1"});
    row("a table between", {"i 1 0 1", "f 1 0 8 10 1", "i . 1 1"}, {"1", "", ""});
    row("a tempo between", {"i 1 0 1", "t 0 60", "i . 1 1"}, {"1", "", ""});
    row("a section between", {"i 1 0 1", "s", "i . 1 1"}, {"1", "", ""});
    row("a note that is turned off between", {"i 1 0 1", "d 1 0 1", "i . 1 1"}, {"1", "1", ""});
    row("d carries", {"i 1 0 1", "d . 0 1"}, {"1", "1"});
    row("a plus is no instrument", {"i 1 0 1", "i + 1 1"}, {"1", ""});
    row("worked out", {"i [1 + 1] 0 1", "i . 1 1", "$NOTE", "i . 1 1"}, {"", "", "", ""});
}

void tst_PieceNotes::line_playsItsInstrument()
{
    QFETCH(QByteArrayList, score);
    QFETCH(QByteArrayList, played);
    QCOMPARE(playedBy(score.join('\n')), played);
}

void tst_PieceNotes::carried_endsWithItsSectionOfTheFile()
{
    const PieceOfLines of("<CsScore>\ni 1 0 1\n</CsScore>\n<CsScore>\ni . 0 1\n</CsScore>\n");
    QCOMPARE(instrumentPlayed(of.text(), 2), QByteArray("1"));
    QCOMPARE(instrumentPlayed(of.text(), 5), QByteArray());
}

void tst_PieceNotes::next_findsCarriedLinesToo()
{
    const PieceOfLines of("i 1 0 1\ni . + .\ni 2 0 1\ni\ni 1 5 1\nf 1 0 8 10 1\ni . 0 1\n",
                          DocumentRole::Score);
    QCOMPARE(nextLine(of.piece, "1", 0), 1);
    QCOMPARE(nextLine(of.piece, "1", 1), 2);
    QCOMPARE(nextLine(of.piece, "1", 2), 5);
    QCOMPARE(nextLine(of.piece, "1", 5), 1); // from the begin
    QCOMPARE(nextLine(of.piece, "2", 1), 3);
    QCOMPARE(nextLine(of.piece, "2", 3), 4);
    QCOMPARE(nextLine(of.piece, "2", 4), 3);
    QCOMPARE(nextLine(of.piece, "3", 0), 0);
}

void tst_PieceNotes::next_ofAnotherInstrument_passesOverThem()
{
    const PieceOfLines of("i 1 0 1\n" + QByteArray("i . + .\n").repeated(500) + "i 2 0 1\n" +
                              QByteArray("i\n").repeated(200) + "i 1 0 1\n",
                          DocumentRole::Score);
    QCOMPARE(nextLine(of.piece, "2", 0), 502);
    QCOMPARE(nextLine(of.piece, "1", 501), 703);
    QCOMPARE(nextLine(of.piece, "2", 600), 601);
    QCOMPARE(nextLine(of.piece, "2", 702), 502);
}

void tst_PieceNotes::carriedOverManyBlocks_followsAnEdit()
{
    PieceOfLines of("i 1 0 1\n" + QByteArray("i . + .\n").repeated(1000), DocumentRole::Score);
    QCOMPARE(instrumentPlayed(of.text(), 1000), QByteArray("1"));
    of.piece.change(DocumentRole::Score, of.lines.replace(1, 1, {"i \"Bell\" 0 1"}));
    of.piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    QCOMPARE(instrumentPlayed(of.text(), 1000), QByteArray("Bell"));
    QCOMPARE(nextLine(of.piece, "Bell", 999), 1000);
    QCOMPARE(nextLine(of.piece, "1", 0), 0);
    of.piece.change(DocumentRole::Score, of.lines.replace(500, 1, {"s"}));
    of.piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    QCOMPARE(instrumentPlayed(of.text(), 499), QByteArray("Bell"));
    QCOMPARE(instrumentPlayed(of.text(), 1000), QByteArray());
    QCOMPARE(nextLine(of.piece, "Bell", 499), 1);
}

void tst_PieceNotes::longScore_isReadInPart()
{
    const CountedScore of("i 1 0 1\n" + QByteArray("i . + .\n").repeated(20'000) + "i 2 0 1\n");
    QCOMPARE(instrumentPlayed(of.text(), 20'000), QByteArray("1"));
    QCOMPARE(nextLine(of.piece, "2", 0), 20'002);
    QVERIFY2(of.reads < 2'000, qPrintable(QString::number(of.reads)));
}

void tst_PieceNotes::lines_playWhatTheirNotesDo()
{
    static const QByteArrayList Some = {
        "i 1 0 1",      "i 2 1 1", "i. + .", "i . 1 1", "i", "i \"A\" 0 1", "i3.5 0 1",
        "f 1 0 8 10 1", "t 0 60",  "s",      "; i 4",   "",  "a 0 1 2",     "v 2",
        "b 1",          "d 1 0 1", "/*",     "*/",      "y", "q 1 0 0"};
    QRandomGenerator random(randomSeed(22));
    for (int round = 0; round < 300; ++round) {
        QByteArrayList score;
        for (int line = 0; line < 150; ++line)
            score.append(Some[random.bounded(int(Some.size()))]);
        const PieceOfLines of(score.join('\n'), DocumentRole::Score);
        ScoreNotes notes(of.lines);
        notes.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
        for (qsizetype i = 0; i < notes.count(); ++i) {
            const ScoreNote note = notes.note(i);
            const QByteArray expected = !note.name.isEmpty() ? note.name.toByteArray()
                                        : std::abs(note.number) < 1
                                            ? QByteArray()
                                            : QByteArray::number(int(note.number));
            QVERIFY2(instrumentPlayed(of.text(), note.line) == expected,
                     (score.first(note.line).join('\n') + " plays " + expected).constData());
        }
    }
}

ARDIPHON_TEST(tst_PieceNotes, NoApplication)
#include "tst_PieceNotes.moc"
