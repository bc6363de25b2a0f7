#include "check/CheckedText.h"
#include "check/NearNames.h"
#include "support/TestMain.h"

using namespace ardiphon;

/// What the real compiler says of a piece, as problems at places of the text.
class tst_CompilerProblems : public QObject
{
    Q_OBJECT

private slots:
    void message_isUnderstood_data();
    void message_isUnderstood();
    void message_isPlaced_whereverItsLineIs_data();
    void message_isPlaced_whereverItsLineIs();
    void score_isReported_data();
    void score_isReported();
    void unknownOpcode_nearNamesAreOffered();
    void wrongCount_whatFitsIsOffered_data();
    void wrongCount_whatFitsIsOffered();
    void accepted_hasNoProblem();
};

namespace {

QByteArray unified(const QByteArray &orchestra, const QByteArray &score = "i1 0 1")
{
    return "<CsoundSynthesizer>\n<CsInstruments>\nsr = 44100\nksmps = 32\nnchnls = 1\n0dbfs = 1\n" +
           orchestra + "\n</CsInstruments>\n<CsScore>\n" + score +
           "\n</CsScore>\n</CsoundSynthesizer>\n";
}

} // namespace

/// The orchestra begins in line 7.
void tst_CompilerProblems::message_isUnderstood_data()
{
    QTest::addColumn<QByteArray>("orchestra");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char *name, const char *orchestra, const char *problem) {
        QTest::newRow(name) << QByteArray(orchestra) << problem;
    };
    row("no such opcode", "instr 1\n a1 oscilli 0.5, 440\n out a1\nendin",
        "8:4 oscilli: There is no opcode \"oscilli\".");
    row("no such opcode that is read as a name", "instr 1\n a1 oscily 0.5\n out a1\nendin",
        "8:4 oscily: There is no opcode \"oscily\".");
    row("no such function", "instr 1\n a1 = oscili(.5, 440) + nofunc(3)\n out a1\nendin",
        "8:24 nofunc: There is no opcode \"nofunc\".");
    row("too few inputs", "instr 1\n a1 comb a(1)\n out a1\nendin",
        "8:4 comb: \"comb\" does not take an audio signal and give an audio signal. It is written: "
        "ares comb asig, krvt, ilpt [, iskip] [, insmps]");
    row("a wrong type", "instr 1\n k1 = 1\n out k1\nendin",
        "9:1 out: \"out\" does not take a control value. It is written: out asig1 [, asig2, asig3 "
        "...]; "
        "out aarray[]");
    row("no value before", "instr 1\n a1 oscili a2, 440\n out a1\nendin",
        "8:11 a2: \"a2\" is used before it has a value.");
    row("no such label", "instr 1\n goto ahead\nendin", "8:6 ahead: There is no label \"ahead\".");
    row("no endin", "instr 1\n a1 oscili .5, 440\n out a1\n\n; the second one\ninstr 2\nendin",
        "9:1 out a1: The instrument that begins in line 7 has no endin.");
    row("no endin at the end", "instr 1\n a1 oscili .5, 440\n out a1\n",
        "9:1 out a1: The instrument that begins in line 7 has no endin.");
    row("no endop", "opcode half, a, a\n ain xin\n xout ain / 2\ninstr 1\nendin",
        "9:1 xout ain / 2: The opcode that begins in line 7 has no endop.");
    row("no endif", "instr 1\n if p4 == 1 then\n  k1 = 2\n k2 = 3\nendin",
        "9:2 k1 = 2: The \"if\" that begins in line 8 has no endif.");
    row("no od", "instr 1\n k1 = 0\n while k1 < 3 do\n  k1 += 1\nendin",
        "10:2 k1 += 1: The \"while\" that begins in line 9 has no od.");
    row("a bracket that is open", "instr 1\n a1 oscili (0.5, 440\n out a1\nendin",
        "8:15 ,: \",\" cannot stand here.");
    row("a bracket that is not open", "instr 1\n k1 = 2)\nendin",
        "8:7 ): \")\" cannot stand here. Expected is the end of the line or ,.");
    row("two operators", "instr 1\n k1 = 1 +* 2\nendin", "8:9 *: \"*\" cannot stand here.");
    row("a line that ends early", "instr 1\n a1 oscili ampdb(60\n out a1\nendin",
        "8:17 60: The line ends too early. Expected is , or ).");
    row("no such macro", "instr 1\n a1 oscili $AMP, 440\n out a1\nendin",
        "8:11 $AMP: There is no macro AMP.");
    row("a file that is not there", "#include \"nothing.inc\"\ninstr 1\nendin",
        "7:10 nothing.inc: The file \"nothing.inc\" cannot be read.");
    row("a quote that is open", "instr 1\n S1 = \"abc\n prints S1\nendin",
        "8:6 \"abc: The text in quotes does not end on its line.");
    row("two xin", "opcode foo, a, a\n ax xin\n ay xin\n xout ax\nendop",
        "9:4 xin: Multiple xin statements found. Only one is allowed.");
}

void tst_CompilerProblems::message_isUnderstood()
{
    QFETCH(QByteArray, orchestra);
    const CheckedText checked(unified(orchestra));
    QVERIFY(checked.isFinished);
    QVERIFY(checked.result.outcome == CheckOutcome::Refused);
    QTEST(checked.described().value(0), "problem");
    QVERIFY(checked.problems[0].severity == Severity::Error);
    QCOMPARE(checked.problems[0].source, CompilerSource);
}

/// The compiler counts no lines of some forms.
void tst_CompilerProblems::message_isPlaced_whereverItsLineIs_data()
{
    QTest::addColumn<QByteArray>("above");
    QTest::addColumn<QByteArray>("statement");
    QTest::addColumn<QByteArray>("word");

    const QByteArrayList aboves = {"/* a\n comment\n over\n lines */",
                                   "#define M(a) #\n k1 = $a\n k2 = 3\n#\n instr 9\n$M(2)\nendin",
                                   "instr 9\n a1 oscili 0.5, \\\n   440\nendin",
                                   "instr 9\nlab:\nlab2:\n igoto lab\nendin",
                                   "gStext = {{\n several\n lines\n}}"};
    const QList<QByteArrayList> statements = {{"a2 oscili 0.5, 440, \"x\", 3", "oscili"},
                                              {"a2 = a9 + 1", "a9"},
                                              {"k2 = 2 + * 3", "*"},
                                              {"a2 oscily 5", "oscily"},
                                              {"k2 = notone(4)", "notone"}};
    for (int i = 0; i < aboves.size(); ++i) {
        for (const QByteArrayList &each : statements)
            QTest::addRow("%d %s", i, each[0].constData()) << aboves[i] << each[0] << each[1];
    }
}

void tst_CompilerProblems::message_isPlaced_whereverItsLineIs()
{
    QFETCH(QByteArray, above);
    QFETCH(QByteArray, statement);
    QFETCH(QByteArray, word);
    const CheckedText checked(unified(above + "\ninstr 1\n a1 oscili 1, 4\n " + statement +
                                      "\n out a1\nendin\ninstr 2\n a1 oscili 1, 4\nendin"));
    QVERIFY(!checked.problems.isEmpty());
    const PiecePlace place = checked.problems[0].place;
    QCOMPARE(checked.lines.lines[place.line - 1].trimmed(), statement);
    QCOMPARE(checked.lines.lines[place.line - 1].mid(place.column, place.length), word);
}

/// The score begins in line 11.
void tst_CompilerProblems::score_isReported_data()
{
    QTest::addColumn<QByteArray>("score");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char *name, const char *score, const char *problem) {
        QTest::newRow(name) << QByteArray(score) << problem;
    };
    row("an early text", "i1 0 1\ni1 1 \"abc\" zz\ni1 2 3",
        "12:5 \"abc\": A text in quotes cannot stand here; the rest of the line is left out.");
    row("no number", "i1 0 1 zz", "11:7 zz: The compiler cannot read \"zz\" as a number.");
    row("a number with letters", "i1 0 np3",
        "11:5 np3: The compiler cannot read \"np3\" as a number and takes 0.");
    row("no such statement", "i1 0 1\nk1 2", "12:0 k1 2: The score has no statement \"k\".");
    row("a letter", "i1 a b", "11:3 a: \"a\" cannot stand here; the rest of the line is left out.");
    row("an open text", "i1 0 1 \"abc", "11:7 \": The text in quotes does not end on its line.");
    row("an end without a beginning", "i1 0 1\n}", "12:0 }: No loop begins that this could end.");
    row("an open expression", "i1 0 [2*(3",
        "11:5 [2*(3: The compiler cannot read this expression.");
    row("a macro without an end", "i1 0 1\n#define A # 1",
        "12:0 #define A # 1: The score ends within something, as the text of a macro.");
    row("no such macro", "i1 0 1\ni1 1 $LONG", "12:5 $LONG: There is no macro LONG.");
    row("a tempo", "t 0 60 1\ni1 0 1",
        "11:0 t 0 60 1: The beats of the tempo are not in their order.");
}

void tst_CompilerProblems::score_isReported()
{
    QFETCH(QByteArray, score);
    const CheckedText checked(unified("instr 1\nendin", score));
    QTEST(checked.described().value(0), "problem");
}

void tst_CompilerProblems::unknownOpcode_nearNamesAreOffered()
{
    const CheckedText checked(unified("instr 1\n a1 oscilli 0.5, 440\n out a1\nendin"));
    QCOMPARE(checked.problems.size(), 1);
    const QList<ProblemFix> &fixes = checked.problems[0].fixes;
    QCOMPARE(fixes.size(), 3);
    QCOMPARE(fixes[0].text, "oscili");
    QCOMPARE(fixes[0].caption, "Insert oscili");
    QVERIFY(fixes[0].place == checked.problems[0].place);
}

void tst_CompilerProblems::wrongCount_whatFitsIsOffered_data()
{
    QTest::addColumn<QByteArray>("statement");
    QTest::addColumn<QStringList>("fixes");

    QTest::newRow("too few") << QByteArray("a1 comb a(1)")
                             << QStringList("a1 comb a(1), krvt, ilpt");
    QTest::newRow("too many") << QByteArray("a1 comb a(1), 2, 3, 0, 1, 5, 6 ; mine")
                              << QStringList("a1 comb a(1), 2, 3, 0, 1");
    QTest::newRow("an output missing")
        << QByteArray("a1 pan2 a(1), .5") << QStringList("a1, a2 pan2 a(1), .5");
    QTest::newRow("a comma in brackets") << QByteArray("a1 comb oscili(1, 440), 2")
                                         << QStringList("a1 comb oscili(1, 440), 2, ilpt");
    QTest::newRow("a wrong type alone") << QByteArray("a1 comb 1, 2, 3") << QStringList();
}

void tst_CompilerProblems::wrongCount_whatFitsIsOffered()
{
    QFETCH(QByteArray, statement);
    const CheckedText checked(unified("instr 1\n " + statement + "\nendin"));
    QCOMPARE(checked.problems.size(), 1);
    QStringList fixes;
    for (const ProblemFix &fix : checked.problems[0].fixes) {
        QCOMPARE(fix.caption, "Insert " + fix.text);
        QCOMPARE(fix.place.line, 8);
        QCOMPARE(fix.place.column, 1);
        QCOMPARE(fix.place.length, int(statement.split(';')[0].trimmed().size()));
        fixes.append(fix.text);
    }
    QTEST(fixes, "fixes");
}

void tst_CompilerProblems::accepted_hasNoProblem()
{
    const CheckedText checked(unified("instr 1\n a1 oscili 0.5, 440\n out a1\nendin"));
    QVERIFY(checked.result.outcome == CheckOutcome::Accepted);
    QVERIFY(checked.problems.isEmpty());
}

ARDIPHON_TEST(tst_CompilerProblems, QCoreApplication)
#include "tst_CompilerProblems.moc"
