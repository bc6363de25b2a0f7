#include "typing/PointerHelp.h"

#include "support/RandomSeed.h"
#include "support/TestMain.h"
#include "typing/HintPlace.h"
#include "typing/HintedPiece.h"

#include <QRandomGenerator>

using namespace ardiphon;

namespace {

/// The help for the letter behind the mark: what stands under the pointer, the lines of code, the
/// sentence.
QStringList helpTexts(const QByteArray &marked, DocumentRole role)
{
    const MarkedPiece of(marked, role);
    const auto help = pointerHelp(of.piece, of.text(), of.caretLine, of.caretColumn, hintedOpcode);
    if (!help)
        return {};
    const QString line = QString::fromUtf8(of.lines.line(help->place.line).toByteArray());
    QStringList texts = {line.mid(help->place.column, help->place.length)};
    texts += help->code;
    if (!help->sentence.isEmpty())
        texts += help->sentence;
    return texts;
}

} // namespace

class tst_PointerHelp : public QObject
{
    Q_OBJECT

private slots:
    void help_ofANameOfTheOrchestra_data();
    void help_ofANameOfTheOrchestra();
    void help_ofAFieldOfTheScore_data();
    void help_ofAFieldOfTheScore();
    void longLines_areCut();
    void anyPlace_isAnswered();
    void hintPlace_isAboveTheLine();
    void hintPlace_staysOnTheScreen();
    void hintPlace_leavesRoomForTheList();
};

void tst_PointerHelp::help_ofANameOfTheOrchestra_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("help");
    const auto row = [](const char *name, const QByteArray &text, const QStringList &help) {
        QTest::newRow(name) << text << help;
    };
    const QStringList oscili = {QStringLiteral("oscili"),
                                QStringLiteral("ares oscili xamp, xcps [, ifn, iphs]"),
                                QStringLiteral("kres oscili kamp, kcps [, ifn, iphs]"),
                                QStringLiteral("Repeats a stored waveform.")};
    row("opcode", "a1 §oscili .5, 440", oscili);
    row("its last letter", "a1 oscil§i .5, 440", oscili);
    row("behind its last letter", "a1 oscili§ .5, 440", {});
    row("function", "out §oscili:a(.5)", oscili);
    row("nothing is known", "§print 1", {});
    row("in a comment", "; a1 §oscili", {});
    row("in a text", "prints \"§oscili\"", {});
    row("a blank", "a1§  oscili .5", {});
    row("local variable", "instr 1\n  kx init 1\n  kx = 2\nout §kx\nendin",
        {QStringLiteral("kx"), QStringLiteral("line 2:  kx init 1")});
    row("of its own body", "instr 1\nkx = 1\nendin\ninstr 2\nkx = 2\nout §kx\nendin",
        {QStringLiteral("kx"), QStringLiteral("line 5:  kx = 2")});
    row("global variable", "instr 1\nout §gkx\nendin\ninstr 2\ngkx = 2\nendin",
        {QStringLiteral("gkx"), QStringLiteral("line 5:  gkx = 2")});
    row("variable without a value", "instr 1\nout §kx\nendin", {});
    row("table in a variable", "giSine ftgen 0, 0, 8, 10, 1\ninstr 1\na1 oscili 1, 1, §giSine",
        {QStringLiteral("giSine"), QStringLiteral("line 1:  giSine ftgen 0, 0, 8, 10, 1")});
    row("table by number", "gi1 ftgen 12, 0, 8, 10, 1\ninstr 1\na1 oscili 1, 1, 1§2",
        {QStringLiteral("12"), QStringLiteral("line 1:  gi1 ftgen 12, 0, 8, 10, 1")});
    row("a number that is no table", "gi1 ftgen 12, 0, 8, 10, 1\ninstr 1\na1 oscili §12, 1, 1", {});
    row("macro", "#define LEVEL #.5#\ninstr 1\nout §$LEVEL",
        {QStringLiteral("LEVEL"), QStringLiteral("#define LEVEL #.5#")});
    row("macro over lines", "#define A(x) #out $x\n  out 2\n#\ninstr 1\n$§A(1)",
        {QStringLiteral("A"), QStringLiteral("#define A(x) #out $x"), QStringLiteral("  out 2"),
         QStringLiteral("#")});
    row("instrument", "; a bell\ninstr Bell\nendin\ninstr 2\nschedule \"§Bell\", 0, 1",
        {QStringLiteral("Bell"), QStringLiteral("line 2:  instr Bell"), QStringLiteral("a bell")});
    row("instrument with a comment", "instr 3 ; a bell\nendin\ninstr 2\nschedule §3, 0, 1",
        {QStringLiteral("3"), QStringLiteral("line 1:  instr 3 ; a bell")});
    row("opcode of the piece", "opcode mine, a, k ; my own\nkcps xin\nendop\ninstr 1\na1 §mine 1",
        {QStringLiteral("mine"), QStringLiteral("a1 mine kcps"), QStringLiteral("my own")});
    row("p-field", "instr 1\niamp = p4\nout §p4",
        {QStringLiteral("p4"), QStringLiteral("p4 iamp")});
    row("p-field of every instrument", "instr 1\nout §p3",
        {QStringLiteral("p3"), QStringLiteral("p3 duration")});
    row("p-field without a name", "instr 1\nout §p9", {});
    row("label", "instr 1\nagain: out 1\ngoto §again", {});
}

void tst_PointerHelp::help_ofANameOfTheOrchestra()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, help);
    QCOMPARE(helpTexts(text, DocumentRole::Orchestra), help);
}

void tst_PointerHelp::help_ofAFieldOfTheScore_data()
{
    QTest::addColumn<QByteArray>("score");
    QTest::addColumn<QStringList>("help");
    const auto row = [](const char *name, const QByteArray &score, const QStringList &help) {
        QTest::newRow(name) << score << help;
    };
    row("field", "i 1 0 1 §.5", {QStringLiteral(".5"), QStringLiteral("p4 iamp  of instr 1")});
    row("start", "i 1 §0 1 .5", {QStringLiteral("0"), QStringLiteral("p2 start  of instr 1")});
    row("between fields", "i 1 0 1§  .5", {});
    row("instrument", "i §1 0 1 .5", {QStringLiteral("1"), QStringLiteral("line 2:  instr 1")});
    row("carried instrument", "i 1 0 1\ni §. + 1",
        {QStringLiteral("."), QStringLiteral("line 2:  instr 1")});
    row("none such", "i 9 0 §1", {});
    row("the letter", "§i 1 0 1", {});
    row("comment", "i 1 0 1 ; §4", {});
    row("macro", "#define LEVEL #.5#\ni 1 0 1 $§LEVEL",
        {QStringLiteral("LEVEL"), QStringLiteral("#define LEVEL #.5#")});
    row("macro of the orchestra alone", "i 1 0 1 $§ORC",
        {QStringLiteral("$ORC"), QStringLiteral("p4 iamp  of instr 1")});
    row("table", "f §1 0 8 10 1", {});
}

void tst_PointerHelp::help_ofAFieldOfTheScore()
{
    QFETCH(QByteArray, score);
    QFETCH(QStringList, help);
    QCOMPARE(helpTexts("<CsInstruments>\ninstr 1\niamp = p4\nendin\n#define ORC #1#\n"
                       "</CsInstruments>\n<CsScore>\n" +
                           score + "\n</CsScore>\n",
                       DocumentRole::Csd),
             help);
}

void tst_PointerHelp::longLines_areCut()
{
    const QStringList help =
        helpTexts("gkx = " + QByteArray(500, '1') + "\ninstr 1\nout §gkx", DocumentRole::Orchestra);
    QCOMPARE(help.size(), 2);
    QVERIFY(help[1].startsWith(QLatin1String("line 1:  gkx = 111")));
    QVERIFY(help[1].endsWith(QLatin1String("1 ...")));
    QVERIFY(help[1].size() < 200);
    QByteArray macro = "#define A #\n";
    for (int i = 0; i < 30; ++i)
        macro += "out 1\n";
    const QStringList lines = helpTexts(macro + "#\ninstr 1\n$§A", DocumentRole::Orchestra);
    QCOMPARE(lines.size(), 1 + 6 + 1);
    QCOMPARE(lines.last(), QStringLiteral("..."));
}

void tst_PointerHelp::anyPlace_isAnswered()
{
    static const QByteArrayList Some = {"oscili",
                                        "(",
                                        ")",
                                        ",",
                                        "gkx",
                                        "= 1",
                                        "\"",
                                        "{{",
                                        "/*",
                                        "*/",
                                        "\n",
                                        "\xff",
                                        "\xc3\xa9",
                                        "i 1 0 1",
                                        "; a",
                                        "instr 1\n",
                                        "12",
                                        "#define A #",
                                        "$A",
                                        "<CsScore>\n",
                                        "<CsInstruments>\n",
                                        "opcode mine, a, k\n",
                                        "mine",
                                        "p4",
                                        "p0",
                                        "p99999999999"};
    QRandomGenerator random(randomSeed(25));
    for (int round = 0; round < 500; ++round) {
        QByteArray text;
        for (int i = random.bounded(40); i > 0; --i)
            text += Some[random.bounded(int(Some.size()))] + (random.bounded(3) != 0 ? " " : "");
        const PieceOfLines of(text);
        for (int line = 0; line <= of.text().lineCount() + 1; ++line) {
            for (int column = -1; column < 60; column += 3) {
                const auto help = pointerHelp(of.piece, of.text(), line, column, hintedOpcode);
                QVERIFY(!help || (help->place.line == line && !help->code.isEmpty()));
            }
        }
    }
}

void tst_PointerHelp::hintPlace_isAboveTheLine()
{
    const QRect screen(0, 0, 1000, 800);
    const QRect line(100, 400, 300, 20);
    QCOMPARE(hintPlace(line, {200, 30}, screen, {}), QRect(100, 368, 200, 30));
    // Below where there is no room.
    QCOMPARE(hintPlace(line.translated(0, -380), {200, 30}, screen, {}), QRect(100, 42, 200, 30));
}

void tst_PointerHelp::hintPlace_staysOnTheScreen()
{
    const QRect screen(1000, 500, 1000, 800);
    const QRect corner(1950, 1280, 50, 20);
    QCOMPARE(hintPlace(corner, {200, 30}, screen, {}), QRect(1800, 1248, 200, 30));
    QCOMPARE(hintPlace({900, 900, 50, 20}, {200, 30}, screen, {}), QRect(1000, 868, 200, 30));
    const QRect wide = hintPlace({1200, 900, 50, 20}, {5000, 30}, screen, {});
    QCOMPARE(wide, QRect(1000, 868, 1000, 30));
    // None where it would be over the line.
    QCOMPARE(hintPlace({1200, 900, 50, 20}, {200, 790}, screen, {}), QRect());
}

void tst_PointerHelp::hintPlace_leavesRoomForTheList()
{
    const QRect screen(0, 0, 1000, 800);
    const QRect line(100, 400, 300, 20);
    // The list is below the line, above it, or below a line that has no room above.
    QCOMPARE(hintPlace(line, {200, 30}, screen, {100, 420, 300, 200}), QRect(100, 368, 200, 30));
    QCOMPARE(hintPlace(line, {200, 30}, screen, {100, 200, 300, 200}), QRect(100, 422, 200, 30));
    QCOMPARE(hintPlace({100, 10, 300, 20}, {200, 30}, screen, {100, 30, 300, 200}),
             QRect(100, 232, 200, 30));
}

ARDIPHON_TEST(tst_PointerHelp, NoApplication)
#include "tst_PointerHelp.moc"
