#include "check/CheckedText.h"
#include "check/PieceChecks.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace ardiphon;

namespace {

bool isTabledOpcode(QByteArrayView name)
{
    return checkWordTables().FindInTable(QString::fromUtf8(name)) > 0;
}

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString describedProblem(const Problem &problem, const PieceTextLines &lines)
{
    static const char *const severities[] = {"error", "warning", "hint"};
    const PiecePlace &place = problem.place;
    QString text =
        QStringLiteral("%1 %2 %3 <%4> %5")
            .arg(place.line)
            .arg(QLatin1String(severities[int(problem.severity)]), problem.source,
                 QString::fromUtf8(lines.line(place.line)).mid(place.column, place.length),
                 problem.sentence);
    for (const ProblemFix &fix : problem.fixes)
        text += QStringLiteral(" [%1: %2]").arg(fix.caption, fix.text);
    return text;
}

/// An orchestra with its score, in memory, all of it read.
struct PieceWithScore
{
    PieceWithScore(const QByteArray &orchestraText, const QByteArray &scoreText)
        : orchestra(orchestraText),
          score(scoreText),
          piece({{DocumentRole::Orchestra, &orchestra}, {DocumentRole::Score, &score}},
                isTabledOpcode)
    {
        piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    }

    QStringList said(const QSet<QString> &off = {}, const QSet<QByteArray> &known = {}) const
    {
        QStringList all;
        for (const Problem &problem : pieceProblems(piece, checkOpcodeWords(), off, known))
            all.append(describedProblem(
                problem, problem.place.role == DocumentRole::Score ? score : orchestra));
        return all;
    }

    PieceTextLines orchestra;
    PieceTextLines score;
    Piece piece;
};

struct UnifiedPiece
{
    explicit UnifiedPiece(const QByteArray &text)
        : lines(text), piece({{DocumentRole::Csd, &lines}}, isTabledOpcode)
    {
        piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    }

    QStringList said(const QSet<QString> &off = {}) const
    {
        QStringList all;
        for (const Problem &problem : pieceProblems(piece, checkOpcodeWords(), off))
            all.append(describedProblem(problem, lines));
        return all;
    }

    PieceTextLines lines;
    Piece piece;
};

} // namespace

/// What is known of a piece that the compiler does not say.
class tst_PieceChecks : public QObject
{
    Q_OBJECT

private slots:
    void problems_data();
    void problems();
    void unifiedFile_data();
    void unifiedFile();
    void unknownHere_needsTheListOfTheCompiler();
    void opcodesListed_readsWhatTheCompilerPrints();
    void eachCheck_canBeSwitchedOff();
    void manyProblems_areCutAtAHundred();
    void pieces_ofOthersHaveNoWarnings();
    void longScore_isCheckedInItsFirstLines();
};

void tst_PieceChecks::problems_data()
{
    QTest::addColumn<QByteArray>("orchestra");
    QTest::addColumn<QByteArray>("score");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const char *orchestra, const char *score,
                        const QStringList &expected) {
        QTest::newRow(name) << QByteArray(orchestra) << QByteArray(score) << expected;
    };
    const char *const one = "instr 1\nout oscili(.1, 440)\nendin";

    row("all is well", one, "i 1 0 1", {});
    row("empty", "", "", {});
    row("only a score", "", "i 1 0 1", {});
    row("only an orchestra", one, "", {});

    // Instruments that are not there.
    row("a number", one, "i1 0 1\ni 2 0 1",
        {QStringLiteral("2 warning no-instrument <2> There is no instrument 2.")});
    row("a fraction, a sign and zeros", one, "i1.3 0 1\ni-1 0 1\ni 01 0 1\ni 3.25 0 1\ni -4 0 0",
        {QStringLiteral("4 warning no-instrument <3.25> There is no instrument 3."),
         QStringLiteral("5 warning no-instrument <-4> There is no instrument 4.")});
    row("a name", "instr Bell\nprint p3\nendin", "i \"Bell\" 0 1\ni \"Drum\" 0 1",
        {QStringLiteral("2 warning no-instrument <\"Drum\"> There is no instrument \"Drum\".")});
    row("a name in other capitals", "instr Bell\nprint p3\nendin", "i \"bell\" 0 1\ni\"Bell\" 0 1",
        {QStringLiteral("1 warning no-instrument <\"bell\"> There is no instrument \"bell\". "
                        "[Insert Bell: \"Bell\"]")});
    row("the number that a name has", "instr 1\nendin\ninstr Bell\nendin",
        "i 1 0 1\ni 2 0 1\ni 3 0 1",
        {QStringLiteral("3 warning no-instrument <3> There is no instrument 3.")});
    row("of several heads", "instr 1, 5\nendin", "i 5 0 1\ni 1 0 1\ni 6 0 1",
        {QStringLiteral("3 warning no-instrument <6> There is no instrument 6.")});
    row("carried, a macro, an expression", one,
        "#define N #7#\ni 1 0 1\ni . 1 1\ni\ni $N 0 1\ni [3+4] 0 1", {});
    row("behind the end", one, "i 1 0 1\ne\ni 2 0 1", {});
    row("an included file", "#include \"more.orc\"\ninstr 1\nendin", "i 2 0 1", {});
    row("an instrument of a macro", "#define ANOTHER #instr 2\nendin#\n$ANOTHER\ninstr 1\nendin",
        "i 2 0 1", {});
    row("the number of a macro", "#define N #2#\ninstr $N\nendin", "i 2 0 1", {});
    row("code that comes later", "instr 1\nires compilestr \"instr 2\\nendin\"\nendin",
        "i 1 0 1\ni 2 0 1", {});
    row("in comments", "instr 1\nendin\n/* instr 3\nendin */ ;instr 4",
        "i 1 0 1\n;i 9 0 1\ni 3 0 1",
        {QStringLiteral("3 warning no-instrument <3> There is no instrument 3.")});

    // Instruments that nothing plays.
    row("not played", "instr 1\nendin\ninstr 2, Bell\nendin", "i 1 0 1",
        {QStringLiteral("3 hint never-played <2> Nothing plays instrument 2."),
         QStringLiteral("3 hint never-played <Bell> Nothing plays instrument \"Bell\".")});
    row("played by opcodes",
        "alwayson \"A\"\nschedule 2, 0, 1\nschedule(\"B\", 0, 1)\ninstr 1\n"
        "event \"i\", 3, 0, 1\nevent_i \"i\", \"C\", 0, 1\nscoreline_i {{i 4 0 1\ni \"D\" 0 1}}\n"
        "endin\ninstr A\nendin\ninstr 2\nendin\ninstr B\nendin\ninstr 3\nendin\ninstr C\nendin\n"
        "instr 4\nendin\ninstr D\nendin",
        "i 1 0 1", {});
    row("played by a value", "instr 1\niWho = 2\nschedule iWho, 0, 1\nendin\ninstr 2\nendin",
        "i 1 0 1", {});
    row("played by a value in brackets",
        "instr 1\niWho = 2\nschedule(iWho+1, 0, 1)\nendin\ninstr 2\nendin", "i 1 0 1", {});
    row("played by a text",
        "instr 1\nSLine sprintf \"i %d 0 1\", 2\nscoreline_i SLine\nendin\n"
        "instr 2\nendin",
        "i 1 0 1", {});
    row("played as an opcode", "instr Bell\nout poscil(p4, 440)\nendin\ninstr 1\nBell .5\nendin",
        "i 1 0 1", {});
    row("a name in a text", "instr 1\nSName = \"Bell\"\nprints SName\nendin\ninstr Bell\nendin",
        "i 1 0 1", {});
    row("played by keys", "massign 0, 2\ninstr 1\nendin\ninstr 2\nendin", "i 1 0 1", {});
    row("keys are read", "instr 1\nendin\ninstr 2\nicps cpsmidi\nendin", "i 1 0 1", {});
    row("hidden in the score", "instr 1\nendin\ninstr 2\nendin", "i 1 0 1\ni [1+1] 0 1", {});
    row("a macro of the score", "instr 1\nendin\ninstr 2\nendin",
        "#define PLAY #i 2 0 1#\ni 1 0 1\n$PLAY", {});
    row("a file of the score", "instr 1\nendin\ninstr 2\nendin", "i 1 0 1\n#include \"more.sco\"",
        {});

    // P-fields.
    row("too few", "instr 1\nprint p4, p5\nendin", "i 1 0 1 4",
        {QStringLiteral("1 warning p-fields <1 0 1 4> The note has 4 p-fields, but instrument 1 "
                        "reads p5.")});
    row("too many", "instr 1\nprint p4\nendin", "i 1 0 1 4 5 6",
        {QStringLiteral("1 hint p-fields <1 0 1 4 5 6> The note has 6 p-fields, but instrument 1 "
                        "reads none behind p4.")});
    row("too many for three", one, "i 1 0 1 4",
        {QStringLiteral("1 hint p-fields <1 0 1 4> The note has 4 p-fields, but instrument 1 reads "
                        "none behind p3.")});
    row("carried fields", "instr 1\nprint p4, p5\nendin", "i 1 0 1 4 5\ni 1 1 1\ni 1.2 2", {});
    row("carried, but not over a section", "instr 1\nprint p4\nendin", "i 1 0 1 4\ns\ni 1 0 1",
        {QStringLiteral("3 warning p-fields <1> The note has 3 p-fields, but instrument 1 reads "
                        "p4.")});
    row("fields of a name", "instr Bell\nprint p4\nendin", "i \"Bell\" 0 1 4\ni \"Bell\" 1 1 4 5",
        {QStringLiteral("2 hint p-fields <\"Bell\" 1 1 4 5> The note has 5 p-fields, but "
                        "instrument \"Bell\" reads none behind p4.")});
    row("counted by the instrument", "instr 1\nif pcount() > 4 then\nprint p5\nendif\nendin",
        "i 1 0 1 4\ni 1 0 1 2 3 4 5", {});
    row("all taken", "instr 1\niAll[] passign 4\nprintarray iAll\nendin", "i 1 0 1 4 5 6", {});
    row("computed", "instr 1\nindex = 4\nprint p(index)\nendin", "i 1 0 1 4 5 6", {});
    row("in a macro", "#define READ #p5#\ninstr 1\nprint p4, $READ\nendin", "i 1 0 1 4 5 6", {});
    row("set before", "pset 0, 0, 0, 440\ninstr 1\nprint p4\nendin", "i 1 0 1", {});
    row("fields by a macro", "instr 1\nprint p4, p5\nendin", "#define M #4 5#\ni 1 0 1 $M", {});
    row("fields of two lines", "instr 1\nprint p4, p5\nendin", "i 1 0 1 4\n5", {});
    row("a field in a continued line", "instr 1\nprint p4, \\\n p5\nendin", "i 1 0 1 4 5", {});

    // Held notes.
    row("held", one, "i 1 0 -1",
        {QStringLiteral("1 hint held-note <1> The note is held, and no later one of instrument 1 "
                        "in this section ends or continues it.")});
    row("ended", one, "i 1 0 -1\ni -1 4 0", {});
    row("continued", one, "i 1.5 0 -1\ni 1.5 4 2", {});
    row("another one ends", one, "i 1.5 0 -1\ni -1.4 4 0",
        {QStringLiteral("1 hint held-note <1.5> The note is held, and no later one of instrument "
                        "1.5 in this section ends or continues it.")});
    row("ended in another section", one, "i 1 0 -1\ns\ni -1 4 0",
        {QStringLiteral("1 hint held-note <1> The note is held, and no later one of instrument 1 "
                        "in this section ends or continues it.")});
    row("an earlier one", one, "i 1 2 -1\ni 1 0 1",
        {QStringLiteral("1 hint held-note <1> The note is held, and no later one of instrument 1 "
                        "in this section ends or continues it.")});
    row("at an unknown time", one, "i 1 2 -1\ni 1 [4] 1", {});
    row("carried on", one, "i 1 2 -1\ni . 4 1", {});
    row("turned off", "instr 1\nturnoff\nendin", "i 1 0 -1", {});

    // Tables.
    row("no table", "instr 1\nout oscili(.1, 440, 7)\na2 oscili .1, 440, 8\nout a2\nendin",
        "f 1 0 8 10 1\ni 1 0 1",
        {QStringLiteral("2 warning no-table <7> Nothing makes table 7."),
         QStringLiteral("3 warning no-table <8> Nothing makes table 8.")});
    row("tables",
        "gi1 ftgen 7, 0, 8, 10, 1\ninstr 1\nout oscili(.1, 440, 7)\n"
        "a2 oscili .1, 440, 8\nout a2\nendin",
        "f 8 0 8 10 1\ni 1 0 1", {});
    row("no number of a table",
        "instr 1\nout oscili(.1, 440, -1)\niWhich = 4\n"
        "a2 oscili .1, 440, iWhich\nout a2\nendin",
        "i 1 0 1", {});
    row("a number of its own", "gi1 ftgen 0, 0, 8, 10, 1\ninstr 1\nout oscili(.1, 440, 101)\nendin",
        "i 1 0 1", {});
    row("a table of a value",
        "iWhich = 7\ngi1 ftgen iWhich, 0, 8, 10, 1\ninstr 1\n"
        "out oscili(.1, 440, 7)\nendin",
        "i 1 0 1", {});
    row("tables of a file", "instr 1\nout oscili(.1, 440, 7)\nendin",
        "#include \"tables.sco\"\ni 1 0 1", {});
    row("tables of an event",
        "instr 1\nevent_i \"f\", 7, 0, 8, 10, 1\nout oscili(.1, 440, 7)\n"
        "endin",
        "i 1 0 1", {});
    row("an opcode of the piece",
        "opcode oscili2, a, i\nifn xin\nxout a(ifn)\nendop\ninstr 1\n"
        "out oscili2(7)\nendin",
        "i 1 0 1", {});

    row("a table made with another", "instr 1\nout oscili(.1, 440, 34)\nendin",
        "f 33 0 513 15 1 0 1 0\ni 1 0 1", {});
    row("fields read by an opcode of the piece",
        "opcode Last, i, 0\nxout pindex(pcount())\nendop\ninstr 1\nprint Last()\nendin",
        "i 1 0 1 4 5", {});

    // Values before they are written.
    row("written by an instrument", "instr 1\ngiX = 3\nendin\ngiY = giX*2\nprint giY", "i 1 0 1",
        {QStringLiteral("4 warning before-written <giX> \"giX\" has no value yet: only instruments "
                        "write it, and the header runs before them.")});
    row("written by the header", "giX = 2\ninstr 1\ngiX = 3\nendin\ngiY = giX*2", "i 1 0 1", {});
    row("read by an instrument", "instr 1\ngiX = 3\nendin\ninstr 2\nprint giX\nendin",
        "i 1 0 1\ni 2 1 1", {});
    row("passed over", "instr 1\nigoto there\niA = 3\nthere:\nprint iA\nendin", "i 1 0 1",
        {QStringLiteral("5 warning before-written <iA> \"iA\" has no value here: the jump to "
                        "\"there\" passes over where it is written.")});
    row("passed over, written before",
        "instr 1\niA = 1\nigoto there\niA = 3\nthere:\nprint iA\nendin", "i 1 0 1", {});
    row("a jump with a condition",
        "instr 1\nif p3 > 1 igoto there\niA = 3\nthere:\nprint iA\nendin", "i 1 0 1", {});
    row("a label between", "instr 1\nigoto there\nhere:\niA = 3\nthere:\nprint iA\nendin",
        "i 1 0 1", {});
    row("not passed over at init time", "instr 1\nkgoto there\niA = 3\nthere:\nprint iA\nendin",
        "i 1 0 1", {});

    // Channels.
    row("not written", "instr 1\nkA chnget \"vol\"\nkB = chnget:k(\"pan\")\nprintk 1, kA+kB\nendin",
        "i 1 0 1",
        {QStringLiteral("2 hint unwritten-channel <\"vol\"> Nothing in the piece writes the "
                        "channel \"vol\"."),
         QStringLiteral("3 hint unwritten-channel <\"pan\"> Nothing in the piece writes the "
                        "channel \"pan\".")});
    row("written",
        "chn_k \"a\", 1\ngkB chnexport \"b\", 3\ninstr 1\nchnset .5, \"c\"\n"
        "outvalue \"d\", 4\nkA chnget \"a\"\nkB chnget \"b\"\nkC chnget \"c\"\n"
        "kD chnget \"d\"\nprintk 1, kA+kB+kC+kD\nendin",
        "i 1 0 1", {});
    row("written by a value",
        "instr 1\nSName = \"a\"\nchnset .5, SName\nkA chnget \"b\"\n"
        "printk 1, kA\nendin",
        "i 1 0 1", {});
    row("of the host", "instr 1\nkA invalue \"a\"\nprintk 1, kA\nendin", "i 1 0 1", {});

    // Capitals.
    row("a variable", "instr 1\nkEnv linen 1, .1, p3, .1\nout oscili(kenv, 440)\nendin", "i 1 0 1",
        {QStringLiteral("3 warning capitals <kenv> \"kenv\" is not written, but \"kEnv\" is. "
                        "[Insert kEnv: kEnv]")});
    row("two of them", "instr 1\nkEnv = 1\nKenv = 2\nkenv = 3\nprintk 1, kenv+kEnv+Kenv\nendin",
        "i 1 0 1", {});
    row("in another instrument", "instr 1\nkEnv = 1\nendin\ninstr 2\nprintk 1, kenv\nendin",
        "i 1 0 1\ni 2 0 1", {});
    row("a global variable", "giWave = 1\ninstr 1\nprint giwave\nendin", "i 1 0 1",
        {QStringLiteral("3 warning capitals <giwave> \"giwave\" is not written, but \"giWave\" is. "
                        "[Insert giWave: giWave]")});
    row("an opcode", "instr 1\na1 Oscili .5, 440\na2 = PHASOR(440)\nout a1+a2\nendin", "i 1 0 1",
        {QStringLiteral("2 warning capitals <Oscili> \"Oscili\" is no opcode, but \"oscili\" is. "
                        "[Insert oscili: oscili]"),
         QStringLiteral("3 warning capitals <PHASOR> \"PHASOR\" is no opcode, but \"phasor\" is. "
                        "[Insert phasor: phasor]")});
    row("an opcode of the piece in capitals",
        "opcode Reverb, a, a\nain xin\nxout ain\nendop\n"
        "instr 1\nout Reverb(oscili(.1, 440))\nendin",
        "i 1 0 1", {});
    row("of a macro", "#define SET #kEnv = 1#\ninstr 1\n$SET\nKENV = 2\nprintk 1, kenv\nendin",
        "i 1 0 1", {});
}

void tst_PieceChecks::problems()
{
    QFETCH(const QByteArray, orchestra);
    QFETCH(const QByteArray, score);
    QFETCH(const QStringList, expected);
    QCOMPARE(PieceWithScore(orchestra, score).said(), expected);
}

void tst_PieceChecks::unifiedFile_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("expected");
    const auto file = [](const char *options, const char *scoreTag, const char *rest) {
        return QByteArray("<CsoundSynthesizer>\n<CsOptions>\n") + options +
               "\n</CsOptions>\n<CsInstruments>\ninstr 1\nkA chnget \"a\"\nprintk 1, kA\nendin\n"
               "instr 2\nendin\n</CsInstruments>\n" +
               scoreTag + "\ni 1 0 1\n</CsScore>\n</CsoundSynthesizer>\n" + rest;
    };
    const QString hint = QStringLiteral("10 hint never-played <2> Nothing plays instrument 2.");
    const QString channel = QStringLiteral("7 hint unwritten-channel <\"a\"> Nothing in the piece "
                                           "writes the channel \"a\".");
    QTest::newRow("plain") << file("-d", "<CsScore>", "") << QStringList{hint, channel};
    QTest::newRow("keys") << file("-M0", "<CsScore>", "") << QStringList{channel};
    QTest::newRow("lines") << file("-odac -L stdin", "<CsScore>", "") << QStringList{channel};
    QTest::newRow("made by a program")
        << file("-d", "<CsScore bin=\"cat\">", "") << QStringList{channel};
    QTest::newRow("another program's part")
        << file("-d", "<CsScore>", "<bsbPanel>\n</bsbPanel>\n") << QStringList{};
}

void tst_PieceChecks::unifiedFile()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QStringList, expected);
    QCOMPARE(UnifiedPiece(text).said(), expected);
}

void tst_PieceChecks::unknownHere_needsTheListOfTheCompiler()
{
    const PieceWithScore piece("opcode vstinit, i, i\nix xin\nxout ix\nendop\n"
                               "instr 1\na1 STKBrass 440, 1\na2 oscili .1, 440\n"
                               "ix vstinit 4\nix2 = (ix > 3 ? abs(ix) : 2)\nout a1+a2+ix2\nendin",
                               "i 1 0 1");
    QCOMPARE(piece.said(), {});
    QCOMPARE(piece.said({}, {"oscili", "out", "abs", "xin", "xout"}),
             {QStringLiteral("6 warning unknown-here <STKBrass> The compiler of this computer has "
                             "no opcode \"STKBrass\".")});
}

void tst_PieceChecks::opcodesListed_readsWhatTheCompilerPrints()
{
    QByteArray listing = "\noscil               oscili\n";
    for (int i = 0; i < 120; ++i)
        listing += "word" + QByteArray::number(i) + (i % 4 == 3 ? "\n" : "          ");
    const QSet<QByteArray> opcodes = opcodesListed(listing + "\033[m0 errors:\n");
    QCOMPARE(opcodes.size(), 122);
    QVERIFY(opcodes.contains("oscili"));
    QVERIFY(opcodes.contains("word119"));
    QVERIFY(opcodesListed("csound: command not found").isEmpty());
    QVERIFY(opcodesListed({}).isEmpty());
}

void tst_PieceChecks::eachCheck_canBeSwitchedOff()
{
    const PieceWithScore piece("instr 1\ngiX = 3\nkEnv = p4\nendin\nprint giX\ninstr 2\n"
                               "kA chnget \"a\"\nkEnv = 1\nout oscili(kenv, kA, 7)\n"
                               "a1 STKBrass 440, 1\nendin",
                               "i 1 0 -1\ni 3 0 1");
    const QSet<QByteArray> known = {"out", "oscili", "chnget", "print"};
    const QStringList all = piece.said({}, known);
    QSet<QString> words;
    for (const PieceCheck &check : pieceChecks()) {
        const QString word = QString::fromLatin1(check.word);
        QVERIFY(*check.title != '\0');
        words.insert(word);
        const auto isOfIt = [&](const QString &said) { return said.section(u' ', 2, 2) == word; };
        QVERIFY2(std::any_of(all.begin(), all.end(), isOfIt), check.word);
        QStringList others;
        std::copy_if(all.begin(), all.end(), std::back_inserter(others),
                     [&](const QString &said) { return !isOfIt(said); });
        QCOMPARE(piece.said({word}, known), others);
    }
    QCOMPARE(words.size(), 9);
    QCOMPARE(piece.said(words, known), {});
}

void tst_PieceChecks::manyProblems_areCutAtAHundred()
{
    const PieceWithScore piece("instr 1\nendin",
                               "i 1 0 1\n" + QByteArray("i 2 0 1\n").repeated(500));
    QCOMPARE(piece.said().size(), 100);
}

/// A warning there would be a false alarm.
void tst_PieceChecks::pieces_ofOthersHaveNoWarnings()
{
    QStringList said;
    int read = 0;
    for (const QString &folder :
         {QStringLiteral("data/examples"), QStringLiteral("tests/pieces")}) {
        const QDir dir(QStringLiteral(TEST_SOURCE_DIR "/../") + folder);
        for (const QFileInfo &file : dir.entryInfoList(QDir::Files, QDir::Name)) {
            const QString name = file.fileName();
            const QString base = file.path() + u'/' + file.completeBaseName();
            QStringList problems;
            if (name.endsWith(QLatin1String(".csd"), Qt::CaseInsensitive)) {
                problems = UnifiedPiece(fileBytes(file.filePath())).said();
            } else if (name.endsWith(QLatin1String(".orc"), Qt::CaseInsensitive)) {
                const bool isLoud = name.endsWith(QLatin1String(".ORC"));
                problems = PieceWithScore(fileBytes(file.filePath()),
                                          fileBytes(base + QLatin1String(isLoud ? ".SCO" : ".sco")))
                               .said();
            } else {
                continue;
            }
            ++read;
            for (const QString &problem : problems)
                said.append(name + u':' + problem);
        }
    }
    QVERIFY(read > 30);
    QCOMPARE(said, {});
}

void tst_PieceChecks::longScore_isCheckedInItsFirstLines()
{
    QByteArray score = QByteArray("i 1 0 1\n").repeated(MostCheckedScoreLines - 1);
    const PieceWithScore piece("instr 1\nendin\ninstr 2\nendin", score + "i 3 0 1\ni 4 0 1\n");
    QCOMPARE(piece.said(),
             {QStringLiteral("200000 warning no-instrument <3> There is no instrument 3.")});
}

ARDIPHON_TEST(tst_PieceChecks, QCoreApplication)
#include "tst_PieceChecks.moc"
