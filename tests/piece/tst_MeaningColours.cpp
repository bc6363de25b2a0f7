#include "app/ConfigurationBlock.h"
#include "piece/MeaningReader.h"
#include "piece/PieceLines.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QDir>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

using namespace ardiphon;

/// What the parts of lines are to the language.
class tst_MeaningColours : public QObject
{
    Q_OBJECT

private slots:
    void line_inAnOrchestra_data();
    void line_inAnOrchestra();
    void line_inAScore_data();
    void line_inAScore();
    void line_elsewhere_data();
    void line_elsewhere();
    void ranges_haveTheBytesOfTheLine();
    void opcodes_ofThePiece_followItsText();
    void state_isThatOfTheModel_data();
    void state_isThatOfTheModel();
    void state_ofRandomLines_isThatOfTheModel();
    void reader_asksOnceForLinesInOrder();
    void line_veryLong_isReadInPart();
    void colors_areThoseOfTheUser();
};

namespace {

bool isTestTag(QByteArrayView word) { return word == "<html>" || word.startsWith("<Cs"); }

/// What each part of the last line of \a text is, as "kind[part]"; what is plain is left out.
QString lastMeanings(const QByteArray &text, DocumentRole role)
{
    static const char *const kinds[] = {"plain", "comment", "text",  "opcode", "assign",   "body",
                                        "label", "p",       "macro", "tag",    "statement"};
    const PieceOfLines of(text, role);
    MeaningReader reader(of.text(), {[&of](QByteArrayView name) {
                                         return isTestOpcode(name) || name == "#define" ||
                                                of.piece.definesOpcode(name);
                                     },
                                     isTestTag});
    QStringList parts;
    for (int line = 1; line <= of.lines.lineCount(); ++line) {
        parts.clear();
        for (const MeaningRange &range : reader.read(line, of.lines.line(line))) {
            if (range.meaning != Meaning::Plain)
                parts.append(QStringLiteral("%1[%2]").arg(
                    QLatin1String(kinds[int(range.meaning)]),
                    QString::fromUtf8(of.lines.line(line).sliced(range.start, range.length))));
        }
    }
    return parts.join(u' ');
}

void addMeaning(const char *text, const char *meanings)
{
    QTest::newRow(text) << QByteArray(text) << QString::fromUtf8(meanings);
}

} // namespace

void tst_MeaningColours::line_inAnOrchestra_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("meanings");

    // Comments.
    addMeaning("a1 oscili 1 ; oscili", "opcode[oscili] comment[; oscili]");
    addMeaning("// \"oscili\" /* instr", "comment[// \"oscili\" /* instr]");
    addMeaning("a1 /* p4 */ oscili p4", "comment[/* p4 */] opcode[oscili] p[p4]");
    addMeaning("/* a\noscili\n*/ oscili", "comment[*/] opcode[oscili]");
    addMeaning("/* a\noscili // */", "comment[oscili // */]");
    addMeaning("/* a\n; still", "comment[; still]");
    addMeaning("// /*\noscili", "opcode[oscili]");
    addMeaning("\"/*\"\noscili", "opcode[oscili]");
    addMeaning("S = \"a;b\" ; c", "assign[=] text[\"a;b\"] comment[; c]");

    // Texts.
    addMeaning("prints \"instr $M\\\"\", 1", "opcode[prints] text[\"instr $M\\\"\"]");
    addMeaning("S = {{ instr 1 }} + 1", "assign[=] text[{{ instr 1 }}]");
    addMeaning("S = {{ a\n; \"oscili", "text[; \"oscili]");
    addMeaning("S = {{ a\n b }} oscili", "text[ b }}] opcode[oscili]");
    addMeaning("S = R\"(a \" ) b\n instr )\" oscili", "text[ instr )\"] opcode[oscili]");
    addMeaning("prints \"open", "opcode[prints] text[\"open]");

    // Words.
    addMeaning("instr 1", "body[instr]");
    addMeaning("instr 1, play, $N", "body[instr] macro[$N]");
    addMeaning("instr 1,\n play, oscili", "");
    addMeaning("endin", "body[endin]");
    addMeaning("ix = p4 + p44 + px + p4x", "assign[=] p[p4] p[p44]");
    addMeaning("if p4 == 1 && p5 >= 2 then", "p[p4] assign[==] p[p5] assign[=]");
    addMeaning("kx += 1", "assign[=]");
    addMeaning("0dbfs = 1", "opcode[0dbfs] assign[=]");
    addMeaning("a1 mine 1", "");
    addMeaning("opcode mine, i, k\nendop\na1 mine 1", "opcode[mine]");
    addMeaning("opcode mine(a:i):k\nendop\na1 = mine(1)", "assign[=] opcode[mine]");
    addMeaning("opcode init, i, init", "opcode[init]");
    addMeaning("größe oscili ünit init", "opcode[oscili] opcode[init]");
    addMeaning("\xc3\xa9init oscili\xc3\xa9", "");

    // Labels.
    addMeaning("again: kx init 1", "label[again] opcode[init]");
    addMeaning("10: a1 = 1", "label[10] assign[=]");
    addMeaning("kx:k = 1", "assign[=]");
    addMeaning(" igoto play ; out", "opcode[igoto] label[play] comment[; out]");
    addMeaning("if kx == 1 kgoto play", "assign[==] opcode[kgoto] label[play]");
    addMeaning("timout 0, p3, play", "p[p3] label[play]");
    addMeaning("loop_lt kx, 1, 10, play", "label[play]");
    addMeaning("reinit play", "label[play]");
    addMeaning("goto $LABEL", "opcode[goto] macro[$LABEL]");
    addMeaning("outs a1,\nplay: a1", "opcode[play]");

    // Macros.
    addMeaning("a1 $LOUD. + $X(p4)", "macro[$LOUD.] macro[$X] p[p4]");
    addMeaning("#define LOUD #oscili $a p4#", "opcode[#define] macro[LOUD] opcode[oscili] "
                                              "macro[$a] p[p4]");
    addMeaning("# define F(a'b) #1#", "opcode[# define] macro[F] macro[a] macro[b]");
    addMeaning("#define A #oscili\np4 \"a\" ; b\n# oscili", "opcode[oscili]");
    addMeaning("#define A #oscili\np4 \"a\" ; b", "p[p4] text[\"a\"] comment[; b]");
    addMeaning("#define A #a \\# oscili#", "opcode[#define] macro[A] opcode[oscili]");
    addMeaning("#ifdef LOUD", "macro[LOUD]");
    addMeaning("#undef LOUD ; x", "macro[LOUD] comment[; x]");
    addMeaning("#include \"oscili.inc\"", "text[\"oscili.inc\"]");

    // Nothing else.
    addMeaning("", "");
    addMeaning("i 1 0 1", "");
    addMeaning("<CsScore> oscili", "opcode[oscili]");
}

void tst_MeaningColours::line_inAnOrchestra()
{
    QFETCH(QByteArray, text);
    QTEST(lastMeanings(text, DocumentRole::Orchestra), "meanings");
    if (!text.contains("<Cs"))
        QTEST(lastMeanings("<CsInstruments>\n" + text, DocumentRole::Csd), "meanings");
}

void tst_MeaningColours::line_inAScore_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("meanings");

    addMeaning("i 1 0 1 oscili instr p4", "statement[i]");
    addMeaning("i1 0 1", "statement[i]");
    addMeaning("i \"Bell ; one\" 0 1 ; i 2", "statement[i] text[\"Bell ; one\"] comment[; i 2]");
    addMeaning("f1 0 8 10 1 // i", "statement[f] comment[// i]");
    addMeaning("i1 /* e */ 0 1", "statement[i] comment[/* e */]");
    addMeaning("/* i\ni 1 */ i 1", "comment[i 1 */] statement[i]");
    addMeaning("i1 0 1 /* a\nb ; c", "comment[b ; c]");
    addMeaning("c i 1 0 1", "comment[c i 1 0 1]");
    addMeaning("e", "statement[e]");
    addMeaning("{ 3 N", "statement[{] macro[N]");
    addMeaning("r 3 N", "statement[r] macro[N]");
    addMeaning("m part", "statement[m] label[part]");
    addMeaning("n part", "statement[n] label[part]");
    addMeaning("}", "statement[}]");
    addMeaning("i 1 [$N * 2] $A.1", "statement[i] macro[$N] macro[$A.]");
    addMeaning("$RIFF(1'$B)", "macro[$RIFF] macro[$B]");
    addMeaning(" 1 0 1", "");
    addMeaning("h 1", "");
    addMeaning("#define A(x'y) #i 1 0 $x#", "DIRECTIVE[#define] macro[A] macro[x] macro[y] "
                                            "statement[i] macro[$x]");
    addMeaning("#define A #\ni 1 0 \"a\" ; b", "statement[i] text[\"a\"] comment[; b]");
    addMeaning("#define A #\ni 1 # i 2", "statement[i] statement[i]");
    addMeaning("#include \"a.sco\"", "DIRECTIVE[#include] text[\"a.sco\"]");
    addMeaning("#include \"a.sco", "DIRECTIVE[#include] text[\"a.sco]");
    addMeaning("#include", "DIRECTIVE[#include]");
    addMeaning("#define", "DIRECTIVE[#define]");
    addMeaning("#undef A", "DIRECTIVE[#undef] macro[A]");
}

/// A word with # is an opcode in a unified file, as it is by its token, and nothing in a score.
void tst_MeaningColours::line_inAScore()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, meanings);
    const QString unified =
        QString(meanings).replace(QStringLiteral("DIRECTIVE"), QStringLiteral("opcode"));
    QCOMPARE(lastMeanings("<CsScore>\n" + text, DocumentRole::Csd), unified);
    static const QRegularExpression directive(QStringLiteral("DIRECTIVE\\S+ ?"));
    QCOMPARE(lastMeanings(text, DocumentRole::Score), QString(meanings).remove(directive));
}

void tst_MeaningColours::line_elsewhere_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("meanings");

    addMeaning("oscili i p4 $A ; instr", "comment[; instr]");
    addMeaning("/* about\noscili */ <CsoundSynthesizer>",
               "comment[oscili */] tag[<CsoundSynthesizer>]");
    addMeaning("/* about\n<CsInstruments>\noscili", "opcode[oscili]");
    addMeaning("<CsInstruments>", "tag[<CsInstruments>]");
    addMeaning(" </CsScore> ; out", "tag[</CsScore>] comment[; out]");
    addMeaning("<CsScore bin=\"sh\"> i 1", "tag[<CsScore bin=\"sh\">]");
    addMeaning("<html>", "tag[<html>]");
    addMeaning("<b>", "");
    addMeaning("<CsOptions>\n-odac -m7 \"a\" ; oscili", "text[\"a\"] comment[; oscili]");
    addMeaning("<CsLicence>\n; oscili \"i\" /*", "");
    addMeaning("<CsFileB filename=\"a\">\noscili \"b\"", "");
    addMeaning("<CsInstruments>\n/* a\n</CsInstruments>\noscili", "");
    addMeaning("<CsScore>\ni 1\n</CsScore>\ni 1", "");
}

void tst_MeaningColours::line_elsewhere()
{
    QFETCH(QByteArray, text);
    QTEST(lastMeanings(text, DocumentRole::Csd), "meanings");
}

void tst_MeaningColours::ranges_haveTheBytesOfTheLine()
{
    PieceState state;
    state.section = PieceSection::Orchestra;
    const MeaningWords words{isTestOpcode, isTestTag};
    const MeaningRanges ranges =
        meaningsOf("  \xc3\xa9 =  oscili p4;x", DocumentRole::Orchestra, state, words);
    const MeaningRanges expected = {{2, 2, Meaning::Plain},
                                    {5, 1, Meaning::Assignment},
                                    {8, 6, Meaning::Opcode},
                                    {15, 2, Meaning::PField},
                                    {17, 2, Meaning::Comment}};
    QCOMPARE(ranges.size(), expected.size());
    for (qsizetype i = 0; i < ranges.size(); ++i)
        QCOMPARE(ranges[i], expected[i]);
}

void tst_MeaningColours::opcodes_ofThePiece_followItsText()
{
    PieceTextLines lines("opcode one, i, i\nendop\nopcode two, i, i\nendop");
    Piece piece({{DocumentRole::Orchestra, &lines}}, isTestOpcode);
    const auto change = [&](int line, int removed, const QByteArrayList &added) {
        piece.change(DocumentRole::Orchestra, lines.replace(line, removed, added));
    };
    const auto read = [&] { piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever)); };
    QVERIFY(!piece.definesOpcode("one"));
    read();
    QVERIFY(piece.definesOpcode("one") && piece.definesOpcode("two"));
    change(1, 1, {"opcode uno, i, i"});
    QVERIFY(piece.definesOpcode("one")); // as it was read last
    read();
    QVERIFY(!piece.definesOpcode("one") && piece.definesOpcode("uno"));
    change(3, 0, QByteArrayList(1000, "opcode uno, i, i"));
    read();
    change(1, 1, {});
    read();
    QVERIFY(piece.definesOpcode("uno"));
    change(2, 1000, {});
    read();
    QVERIFY(!piece.definesOpcode("uno") && piece.definesOpcode("two"));
    change(1, lines.lineCount(), {""});
    read();
    QVERIFY(!piece.definesOpcode("two"));
}

void tst_MeaningColours::state_isThatOfTheModel_data()
{
    QTest::addColumn<QString>("path");

    for (const char *folder : {"/pieces", "/../data/examples"}) {
        const QDir pieces(QStringLiteral(TEST_SOURCE_DIR) + QLatin1String(folder));
        for (const QString &name : pieces.entryList(QDir::Files))
            QTest::newRow(qPrintable(name)) << pieces.filePath(name);
    }
}

namespace {

/// The first line before which the reading from above differs from the model, without the body; 0
/// for none.
int firstOtherState(const PieceOfLines &of)
{
    PieceState state = of.text().stateAt(1);
    for (int line = 1; line < of.lines.lineCount(); ++line) {
        meaningsOf(of.lines.line(line), of.text().role(), state, {isTestOpcode, isTestTag});
        PieceState known = of.text().stateAt(line + 1);
        known.body = state.body;
        if (state != known)
            return line + 1;
    }
    return 0;
}

} // namespace

void tst_MeaningColours::state_isThatOfTheModel()
{
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    for (const DocumentRole role :
         {DocumentRole::Csd, DocumentRole::Orchestra, DocumentRole::Score})
        QCOMPARE(firstOtherState(PieceOfLines(text, role)), 0);
}

void tst_MeaningColours::state_ofRandomLines_isThatOfTheModel()
{
    static const QByteArrayList Parts = {
        "/*", "*/",  "{{",    "}}",      "R\"(",     ")\"",         "\"",   "#",
        "//", ";",   " ",     "instr 1", ",",        "\\",          "$A",   "#define A ",
        "i",  "c",   "[",     "opcode",  "mine",     ":",           "goto", "<CsScore>",
        "p4", "x =", "endin", "1",       "#ifdef B", "<CsLicence>", "\xff", "</CsScore>",
    };
    QRandomGenerator random(randomSeed(20));
    for (int round = 0; round < 1000; ++round) {
        QByteArray text = round % 2 == 0 ? "<CsInstruments>\n" : "";
        for (int part = 0; part < 40; ++part)
            text += random.bounded(3) == 0 ? QByteArray("\n") : Parts[random.bounded(Parts.size())];
        for (const DocumentRole role :
             {DocumentRole::Csd, DocumentRole::Orchestra, DocumentRole::Score}) {
            const int other = firstOtherState(PieceOfLines(text, role));
            QVERIFY2(other == 0,
                     qPrintable(QString::number(other) + u' ' + QString::fromUtf8(text)));
        }
    }
}

namespace {

/// Counts the lines that are read.
class CountingLines : public PieceTextLines
{
public:
    using PieceTextLines::PieceTextLines;
    QByteArrayView line(int line) const override
    {
        ++count;
        return PieceTextLines::line(line);
    }
    mutable int count = 0;
};

} // namespace

void tst_MeaningColours::reader_asksOnceForLinesInOrder()
{
    const CountingLines lines(QByteArray("a = 1\n").repeated(10000));
    Piece piece({{DocumentRole::Orchestra, &lines}}, isTestOpcode);
    piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    lines.count = 0;
    MeaningReader reader(piece.texts().front(), {isTestOpcode, isTestTag});
    reader.read(9000, "a = 1");
    QVERIFY(lines.count <= 256);
    const int once = lines.count;
    for (int line = 9001; line < 9200; ++line)
        reader.read(line, "a = 1");
    QCOMPARE(lines.count, once);
    reader.read(9300, "a = 1"); // others are left out
    QVERIFY(lines.count > once && lines.count <= once + 256);
    QCOMPARE(reader.read(20000, "oscili")[0].meaning, Meaning::Opcode); // there is no such line
}

void tst_MeaningColours::line_veryLong_isReadInPart()
{
    PieceState state;
    state.section = PieceSection::Orchestra;
    const MeaningWords words{isTestOpcode, isTestTag};
    const QByteArray line = QByteArray(5'000'000, ' ') + "/* oscili";
    QCOMPARE(meaningsOf(line, DocumentRole::Orchestra, state, words).size(), 0);
    QCOMPARE(state.code, CodeState::Code);
    const QByteArray most = QByteArray(PieceText::LongestLine - 6, ' ') + "oscili /*";
    const MeaningRanges ranges = meaningsOf(most, DocumentRole::Orchestra, state, words);
    QCOMPARE(ranges.size(), 1);
    QCOMPARE(ranges[0], MeaningRange({PieceText::LongestLine - 6, 6, Meaning::Opcode}));
    QCOMPARE(state.code, CodeState::Code);
}

void tst_MeaningColours::colors_areThoseOfTheUser()
{
    ConfigurationBlock config;
    std::uint32_t next = 1;
    for (Color ConfigurationBlock::*field :
         {&ConfigurationBlock::ColorBackground, &ConfigurationBlock::ColorText,
          &ConfigurationBlock::ColorOrchestra, &ConfigurationBlock::ColorOrchestraBK,
          &ConfigurationBlock::ColorCSD, &ConfigurationBlock::ColorCSDBK,
          &ConfigurationBlock::ColorReminders, &ConfigurationBlock::ColorFiles,
          &ConfigurationBlock::ColorFilesBK, &ConfigurationBlock::ColorMacro,
          &ConfigurationBlock::ColorMacroBK, &ConfigurationBlock::ColorInstrEndin,
          &ConfigurationBlock::ColorInstrEndinBK})
        (config.*field).value = next++;
    const auto is = [&](Meaning meaning, Color back, Color fore) {
        return colorsOf(config, DocumentRole::Csd, meaning) == TokenColors{back, fore} &&
               colorsOf(config, DocumentRole::Orchestra, meaning) == TokenColors{back, fore};
    };
    QVERIFY(is(Meaning::Plain, config.ColorBackground, config.ColorText));
    QCOMPARE(colorsOf(config, DocumentRole::Csd, Meaning::Comment), std::nullopt);
    QVERIFY(is(Meaning::Text, config.ColorFilesBK, config.ColorFiles));
    QVERIFY(is(Meaning::Opcode, config.ColorOrchestraBK, config.ColorOrchestra));
    QVERIFY(is(Meaning::Assignment, config.ColorBackground, config.ColorOrchestra));
    QVERIFY(is(Meaning::BodyWord, config.ColorInstrEndinBK, config.ColorInstrEndin));
    QVERIFY(is(Meaning::Label, config.ColorInstrEndinBK, config.ColorInstrEndin));
    QVERIFY(is(Meaning::PField, config.ColorMacroBK, config.ColorMacro));
    QVERIFY(is(Meaning::Macro, config.ColorMacroBK, config.ColorMacro));
    QVERIFY(is(Meaning::Tag, config.ColorCSDBK, config.ColorCSD));
    QVERIFY(is(Meaning::Statement, config.ColorOrchestraBK, config.ColorOrchestra));
    QCOMPARE(colorsOf(config, DocumentRole::Score, Meaning::Statement),
             (TokenColors{config.ColorCSDBK, config.ColorCSD}));
}

ARDIPHON_TEST(tst_MeaningColours, NoApplication)
#include "tst_MeaningColours.moc"
