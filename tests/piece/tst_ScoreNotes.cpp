#include "piece/PieceLines.h"
#include "piece/ScoreNotes.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"
#include "support/TimeLimit.h"

#include <QRandomGenerator>

using namespace ardiphon;

namespace {

/// The notes of a text, with all of it read.
struct NotesOfText
{
    explicit NotesOfText(const QByteArray &text, ScoreIncludes includes = {})
        : lines(text), notes(lines, std::move(includes))
    {
        while (notes.readOn(1000)) {
        }
    }

    PieceTextLines lines;
    ScoreNotes notes;
};

/// What of a note is compared here: "line: instrument start duration".
QByteArray noteText(const ScoreNote &note)
{
    return QByteArray::number(note.line) + ": " +
           (note.name.isEmpty() ? QByteArray::number(note.number) : note.name.toByteArray()) + ' ' +
           QByteArray::number(note.startBeats) + ' ' + QByteArray::number(note.durationBeats);
}

QByteArrayList noteTexts(const ScoreNotes &notes)
{
    QByteArrayList all;
    for (qsizetype i = 0; i < notes.count(); ++i)
        all.append(noteText(notes.note(i)));
    return all;
}

/// Random bytes, those that mean something in a score more often than others.
QByteArray randomScore(QRandomGenerator &random, int size)
{
    static const QByteArrayList Words = {"i",       "i1 0 1", "#define M(a'b) #",
                                         "$M(1'2)", "#",      "{ 3 N",
                                         "}",       "r 2",    "s",
                                         "m A",     "n A",    "e",
                                         "\"",      "[",      "]",
                                         "/*",      "*/",     "#ifdef M",
                                         ".",       "+",      "$N",
                                         "\\",      "\n",     "#include \"x\""};
    QByteArray text;
    while (text.size() < size) {
        if (random.bounded(3) == 0)
            text += char(random.bounded(256));
        else
            text +=
                Words[random.bounded(int(Words.size()))] + (random.bounded(2) != 0 ? ' ' : '\n');
    }
    return text;
}

} // namespace

class tst_ScoreNotes : public QObject
{
    Q_OBJECT

private slots:
    void empty_hasNoNotes_data();
    void empty_hasNoNotes();
    void noMoreNotesThanAnybodyHears();
    void endless_comesToAnEnd_data();
    void endless_comesToAnEnd();
    void fileThatIncludesItself_comesToAnEnd();
    void usualScore_isWhole();
    void longLine_isANote_data();
    void longLine_isANote();
    void arguments_areThoseOfTheirMacro();
    void randomBytes_areReadAsWellAsCanBe();
    void slices_goOnWhereTheyStopped();
    void restart_readsTheLinesAsTheyAre();
};

void tst_ScoreNotes::empty_hasNoNotes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("an empty line") << QByteArray("\n");
    QTest::newRow("blanks") << QByteArray("  \n\t\n");
    QTest::newRow("a comment") << QByteArray("; i1 0 1\n/* i1 0 1");
    QTest::newRow("ends") << QByteArray("s\ns\ne");
    QTest::newRow("a zero byte") << QByteArray(1, '\0');
    QTest::newRow("a macro's text without its end") << QByteArray("#define A #i1 0 1\ni1 0 1");
    QTest::newRow("a branch without its end") << QByteArray("#ifdef A\ni1 0 1");
}

void tst_ScoreNotes::empty_hasNoNotes()
{
    QFETCH(QByteArray, text);
    const NotesOfText of(text);
    QVERIFY(of.notes.isComplete());
    QCOMPARE(of.notes.count(), 0);
    QVERIFY(!of.notes.isTruncated());
}

void tst_ScoreNotes::noMoreNotesThanAnybodyHears()
{
    const TimeLimit limit(std::chrono::seconds(120));
    const NotesOfText of("{ 1000 A\n{ 1000 B\n{ 1000 C\ni1 0 1\n}\n}\n}"); // 10^9
    QVERIFY(of.notes.isComplete());
    QVERIFY(of.notes.isTruncated());
    QVERIFY(of.notes.count() > 100'000);
    QVERIFY2(of.notes.count() <= 4'000'000, qPrintable(QString::number(of.notes.count())));
    QCOMPARE(of.notes.note(of.notes.count() - 1).number, 1.0);
}

void tst_ScoreNotes::endless_comesToAnEnd_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("a macro that calls itself") << QByteArray("#define A # $A#\ni1 0 1\ni1 1 $A");
    QTest::newRow("two that call each other")
        << QByteArray("#define A #$B#\n#define B #$A#\ni1 0 1\n$A");
    QTest::newRow("one that doubles itself") << QByteArray("#define A #$A $A#\ni1 0 1\n$A");
    QTest::newRow("an argument that is handed on")
        << QByteArray("#define A(x) #$A($x $x)#\ni1 0 1\n$A(1)");
    QTest::newRow("a count of itself") << QByteArray("i1 0 1\n#define A #$A#\n{ $A N\n}");
    QTest::newRow("a macro that defines itself")
        << QByteArray("#define A #\\#define A \\#$A\\# $A#\ni1 0 1\n$A");
}

void tst_ScoreNotes::endless_comesToAnEnd()
{
    QFETCH(QByteArray, text);
    const TimeLimit limit(std::chrono::seconds(120));
    const NotesOfText of(text);
    QVERIFY(of.notes.isComplete());
    QVERIFY(of.notes.isTruncated());
    QCOMPARE(noteText(of.notes.note(0)).sliced(1), QByteArray(": 1 0 1"));
}

void tst_ScoreNotes::fileThatIncludesItself_comesToAnEnd()
{
    const TimeLimit limit(std::chrono::seconds(120));
    int count = 0;
    const NotesOfText of("i1 0 1\n#include \"self.inc\"\n", [&](QByteArrayView name) {
        ++count;
        return std::optional<QByteArray>("i2 1 1\n#include \"" + name.toByteArray() + "\"\n");
    });
    QVERIFY(of.notes.isTruncated());
    QVERIFY2(count < 1000, qPrintable(QString::number(count)));
    QCOMPARE(noteText(of.notes.note(0)), QByteArray("1: 1 0 1"));
    QCOMPARE(noteText(of.notes.note(1)), QByteArray("2: 2 1 1")); // the line that includes
}

void tst_ScoreNotes::usualScore_isWhole()
{
    const NotesOfText of("#define LEN #2#\nt 0 120\ni1 0 $LEN 440\ni. + .\ni \"Bell\" 1 1\ns\n"
                         "{ 2 N\ni [3 + $N] $N 1\n}\ne\n");
    QVERIFY(!of.notes.isTruncated());
    QCOMPARE(of.notes.sectionCount(), 2);
    QCOMPARE(noteTexts(of.notes),
             QByteArrayList({"3: 1 0 2", "5: Bell 1 1", "4: 1 2 2", "8: 3 0 1", "8: 4 1 1"}));
    QCOMPARE(of.notes.note(2).startSeconds, 1.0);
    QCOMPARE(of.notes.note(2).durationSeconds, 1.0);
}

void tst_ScoreNotes::longLine_isANote_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("fields") << "i1 0 1" + QByteArray(" 1").repeated(2'500'000) + "\ni2 1 1";
    QTest::newRow("macros") << "#define A # 1#\ni1 0 1" + QByteArray(" $A").repeated(1'700'000) +
                                   "\ni2 1 1";
    QTest::newRow("one field") << "i1 0 1 " + QByteArray(5'000'000, '1') + "\ni2 1 1";
    QTest::newRow("a string") << "i1 0 1 \"" + QByteArray(5'000'000, 'x') + "\"\ni2 1 1";
    QTest::newRow("a comment") << "i1 0 1 ;" + QByteArray(5'000'000, '#') + "\ni2 1 1";
}

void tst_ScoreNotes::longLine_isANote()
{
    QFETCH(QByteArray, text);
    const TimeLimit limit(std::chrono::seconds(120));
    const NotesOfText of(text);
    QCOMPARE(of.notes.count(), 2);
    QVERIFY(noteText(of.notes.note(0)).endsWith(": 1 0 1"));
    QVERIFY(noteText(of.notes.note(1)).endsWith(": 2 1 1"));
}

void tst_ScoreNotes::arguments_areThoseOfTheirMacro()
{
    // The inner macro's x is another one than the outer's; a name that is no argument is a macro's.
    const NotesOfText of("#define Y #7#\n"
                         "#define INNER(x) #i$x 0 1\n#\n"
                         "#define OUTER(x'y) #$INNER($y)i$x 1 $Y\n$INNER($x.)#\n"
                         "$OUTER(1'2)\n"
                         "i3 0 $\0011,0\002 4\n"); // what stands for an argument, in the source
    QVERIFY(!of.notes.isTruncated());
    QCOMPARE(noteTexts(of.notes), QByteArrayList({"6: 1 0 1", "6: 2 0 1", "7: 3 0 4", "6: 1 1 7"}));
}

void tst_ScoreNotes::randomBytes_areReadAsWellAsCanBe()
{
    const TimeLimit limit(std::chrono::seconds(120));
    QRandomGenerator random(randomSeed(20));
    for (int i = 0; i < 300; ++i) {
        const QByteArray text = randomScore(random, random.bounded(1, 2000));
        PieceTextLines lines(text);
        ScoreNotes notes(
            lines, [](QByteArrayView) { return std::optional<QByteArray>("i9 0 1\n$M(3'4)\n"); });
        notes.readOn(20'000); // loops within each other would go on to where all scores are cut off
        for (qsizetype n = 0; n < notes.count(); ++n) {
            const ScoreNote note = notes.note(n);
            QVERIFY2(note.line >= 1 && note.line <= lines.lineCount(), text.toHex().constData());
            QVERIFY2(note.section >= 0 && note.section < notes.sectionCount(),
                     text.toHex().constData());
        }
    }
}

void tst_ScoreNotes::slices_goOnWhereTheyStopped()
{
    QByteArray text = "#define A(x'y) #$x 1 $y#\nm P\n";
    for (int i = 0; i < 200; ++i)
        text += "i1 $A(" + QByteArray::number(i * 37 % 100) + "'2)\ni . + .\n/* i9\n0 1 */\n";
    text += "s\nn P\nr 3 R\ni2 $R 1\ns\n";
    const NotesOfText whole(text);
    QVERIFY(whole.notes.count() > 800);

    PieceTextLines lines(text);
    ScoreNotes notes(lines);
    int slices = 0;
    qsizetype count = 0;
    while (notes.readOn(1)) {
        ++slices;
        QVERIFY(!notes.isComplete());
        QVERIFY(notes.count() >= count); // whole sections
        count = notes.count();
        lines.line(1 + slices % lines.lineCount()); // as others read between two slices
    }
    QVERIFY2(slices > 800, qPrintable(QString::number(slices)));
    QCOMPARE(noteTexts(notes), noteTexts(whole.notes));
    QVERIFY(!notes.readOn(1));
}

void tst_ScoreNotes::restart_readsTheLinesAsTheyAre()
{
    PieceTextLines lines("#define A #1#\nm P\ni$A 0 1\ns\ni2 0 1\n");
    ScoreNotes notes(lines);
    notes.readOn(4); // in the middle
    lines.replace(1, 1, {"#define B #3#"});
    lines.replace(3, 1, {"i$B 0 1"});
    notes.restart();
    QCOMPARE(notes.count(), 0);
    QVERIFY(!notes.isComplete());
    QVERIFY(!notes.readOn(QDeadlineTimer(QDeadlineTimer::Forever)));
    QCOMPARE(noteTexts(notes), QByteArrayList({"3: 3 0 1", "5: 2 0 1"}));
}

ARDIPHON_TEST(tst_ScoreNotes, NoApplication)
#include "tst_ScoreNotes.moc"
