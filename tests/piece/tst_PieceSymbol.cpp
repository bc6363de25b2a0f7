#include "piece/MarkedPiece.h"
#include "piece/PieceWordReader.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QTest>

using namespace ardiphon;

class tst_PieceSymbol : public QObject
{
    Q_OBJECT

private slots:
    void symbolAt_tellsWhatAWordIs_data();
    void symbolAt_tellsWhatAWordIs();
    void symbolAt_besideAWord();
    void symbolAt_ofALocal_hasTheLinesOfItsBody();
    void words_knowTheSameStateAsTheModel();
};

namespace {

QString describedSymbol(const std::optional<PieceSymbol> &symbol)
{
    static const char *const kinds[] = {"instrument", "user opcode", "opcode", "variable",
                                        "macro",      "argument",    "label",  "channel",
                                        "p-field",    "word",        "unknown"};
    static const char *const scopes[] = {"piece", "orchestra", "score", "body", "between", "word"};
    if (!symbol)
        return QStringLiteral("none");
    return QStringLiteral("%1 %2 in %3")
        .arg(QLatin1String(kinds[int(symbol->kind)]), QString::fromUtf8(symbol->name),
             QLatin1String(scopes[int(symbol->scope)]));
}

} // namespace

void tst_PieceSymbol::symbolAt_tellsWhatAWordIs_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected");
    const auto orc = [](const char *text, const char *expected) {
        QTest::newRow(text) << QByteArray("<CsInstruments>\n") + text
                            << QString::fromLatin1(expected);
    };
    const auto sco = [](const char *text, const char *expected) {
        QTest::newRow(text) << QByteArray("<CsScore>\n") + text << QString::fromLatin1(expected);
    };
    orc("instr §1", "instrument 1 in piece");
    orc("instr 007§", "instrument 7 in piece");
    orc("instr 0§", "unknown 0 in word");
    orc("instr 3, 4, Be§ll", "instrument Bell in piece");
    orc("instr 3,\n §4", "instrument 4 in piece");
    orc("instr +Be§ll", "instrument Bell in piece");
    orc("opcode fo§o, i, k", "user opcode foo in orchestra");
    orc("opcode foo, i§, k", "none");
    orc("opcode foo, i, i\nendop\ninstr 1\nix f§oo 1", "user opcode foo in orchestra");
    orc("opcode foo, i, i\nendop\ninstr 1\nix = f§oo(1)", "user opcode foo in orchestra");
    orc("opcode kfoo, 0, i\nendop\ninstr 1\nkf§oo ix", "user opcode kfoo in orchestra");
    orc("opcode foo(va§l:i):(i)\nix = val\nendop", "variable val in body");
    orc("instr 1\nax osci§li 1, 2", "opcode oscili in orchestra");
    orc("instr 1\nax plug§in 1, 2", "unknown plugin in word");
    orc("instr 1\nax fplug§in 1, 2", "unknown fplugin in word");
    orc("instr 1\nfplug§in ax, 2", "unknown fplugin in word");
    orc("instr 1\nfplugin a§x, 2", "variable ax in body");
    orc("instr 1\nkx§ = 1", "variable kx in body");
    orc("instr 1\nif kx§ then", "variable kx in body");
    orc("instr 1\nwhile k§x do", "variable kx in body");
    orc("instr 1\nkx[§] init 3", "none");
    orc("k§x[] init 3", "variable kx in between");
    orc("instr 1\nendin\nk§x = 3", "variable kx in between");
    orc("instr 1\ngk§x = 3", "variable gkx in orchestra");
    orc("instr 1\ngain:§k = 1", "none");
    orc("instr 1\nga§in:k = 1", "variable gain in body");
    orc("instr 1\nfre§q:k = 1", "variable freq in body");
    orc("instr 1\nkx = fr§eq:k", "variable freq in body");
    orc("instr 1\nkx = kc ? ka:k§b", "variable kb in body");
    orc("instr 1\nkx = unhe§ard", "unknown unheard in word");
    orc("instr 1\nkx = p§4", "p-field p4 in body");
    orc("s§r = 44100", "word sr in orchestra");
    orc("instr 1\ni§f kx == 1 then", "word if in orchestra");
    orc("in§str 1", "word instr in orchestra");
    orc("instr 1\nkx = 1§2", "none");
    orc("instr 1 ; in§str", "none");
    orc("instr 1\nprints \"kx§\"", "none");
    orc("instr 1\n/*\nkx§ */", "none");
    orc("#define A§B #1#", "macro AB in orchestra");
    orc("#ifdef A§B", "macro AB in orchestra");
    orc("#undef A§B", "macro AB in orchestra");
    orc("#define AB(X'Y) #$§X. + $Z#", "argument X in word");
    orc("#define AB(X'Y) #$X. + $§Z#", "macro Z in orchestra");
    orc("#define AB(X'Y) #1\n + $§X. + $Z#", "argument X in word");
    orc("#define AB # k§x = 1 #", "variable kx in word");
    orc("#define AB # gk§x = 1 #", "variable gkx in orchestra");
    orc("instr 1\nkx = $§AB.", "macro AB in orchestra");
    orc("instr 1\nprints \"$A§B\"", "macro AB in orchestra");
    orc("instr 1\nprints {{$A§B}}", "none");
    orc("instr 1\nk§$AB = 1", "macro AB in orchestra");
    orc("instr 1\nk§x$AB = 1", "none");
    orc("instr 1\nag§ain:\ngoto again", "label again in body");
    orc("instr 1\nagain: print 3\ngoto aga§in", "label again in body");
    orc("instr 1\nif kx > 1 kgoto aga§in", "label again in body");
    orc("instr 1\ntimout 0, 1, ag§ain", "label again in body");
    orc("instr 1\nloop_lt ix, 1, 10, ag§ain", "label again in body");
    orc("instr 1\ncggoto ix == 1, ag§ain", "label again in body");
    orc("instr 1\nreinit ag§ain", "label again in body");
    orc("instr 1\ngoto 1§2", "label 12 in body");
    orc("chn_k \"a §b\", 1", "channel a b in orchestra");
    orc("kx chnget \"a§\"", "channel a in orchestra");
    orc("kx = chnget:k(\"a§\")", "channel a in orchestra");
    orc("chnset kx, \"a§\"", "channel a in orchestra");
    orc("chnsets \"n§o\", \"a\"", "none");
    orc("chnset kx, \"$A§B\"", "macro AB in orchestra");
    orc("schedule §3, 0, 1", "instrument 3 in piece");
    orc("schedule 3.1§2, 0, 1", "none");
    orc("schedule 3§.12, 0, 1", "instrument 3 in piece");
    orc("schedule -§3, 0, 1", "instrument 3 in piece");
    orc("schedule 3 +§ 1, 0, 1", "none");
    orc("schedule 3§ + 1, 0, 1", "none");
    orc("schedule(§3, 0, 1)", "instrument 3 in piece");
    orc("schedule 1, §3, 1", "none");
    orc("schedule nstrnum(\"Be§ll\"), 3, 1", "instrument Bell in piece");
    orc("event \"i\", \"Be§ll\", 0, 1", "instrument Bell in piece");
    orc("event \"f\", §3, 0, 1", "none");
    orc("event_i \"i\", \\\n §3, 0, 1", "instrument 3 in piece");
    orc("event_i \"i\",\n §3, 0, 1", "instrument 3 in piece");
    orc("scoreline_i {{i §3 0 1}}", "instrument 3 in piece");
    orc("scoreline_i {{\ni 1 0 1\ni \"Be§ll\" 0 1\n}}", "instrument Bell in piece");
    orc("prints {{\ni §3 0 1\n}}", "none");
    orc("scoreline_i \"i §3 0 1\"", "instrument 3 in piece");
    orc("scoreline_i \"i \\\"Be§ll\\\" 0 1\"", "instrument Bell in piece");
    orc("turnoff2 §3, 0, 1", "instrument 3 in piece");
    orc("ax subinstr \"Be§ll\", 1", "instrument Bell in piece");
    orc("massign 1, §3", "instrument 3 in piece");
    orc("massign §1, 3", "none");
    orc("insremot \"a\", \"b\", 2, §3", "instrument 3 in piece");
    orc("connect \"Be§ll\", \"a\", 3, \"b\"", "instrument Bell in piece");
    orc("connect \"Bell\", \"§a\", 3, \"b\"", "none");
    sco("i §3 0 1", "instrument 3 in piece");
    sco("i3§.1 0 1", "instrument 3 in piece");
    sco("i -§3 0 1", "instrument 3 in piece");
    sco("i \"Be§ll\" 0 1", "instrument Bell in piece");
    sco("i §. 0 1", "none");
    sco("i 3 §0 1", "none");
    sco("f §3 0 8 10 1", "none");
    sco("q §3 0 0", "instrument 3 in piece");
    sco("; i §3", "none");
    sco("i $A§B 0 1", "macro AB in score");
    sco("i 1 0 [2 * $A§B.]", "macro AB in score");
    sco("i 1 0 1 \"$A§B\"", "macro AB in score");
    sco("#define A§B #1#", "macro AB in score");
    sco("#define AB(X) #i §3 0 $X#", "instrument 3 in piece");
    sco("#define AB(X) #i 3 0 $§X#", "argument X in word");
    sco("#define AB(X) #\ni §3 0 $X\n#", "instrument 3 in piece");
    sco("#define AB(X) #\ni 3 0 $§X\n#", "argument X in word");
    sco("{ 3 C§NT", "macro CNT in score");
    sco("r 3 C§NT", "macro CNT in score");
    sco("m pla§ce", "label place in score");
    sco("n pla§ce", "label place in score");
    QTest::newRow("outside") << QByteArray("instr §1") << QStringLiteral("none");
    QTest::newRow("options") << QByteArray("<CsOptions>\ninstr §1") << QStringLiteral("none");
}

void tst_PieceSymbol::symbolAt_tellsWhatAWordIs()
{
    QFETCH(QByteArray, text);
    const MarkedPiece of(text);
    QTEST(describedSymbol(of.symbol()), "expected");
}

void tst_PieceSymbol::symbolAt_besideAWord()
{
    const MarkedPiece of("; \xc3\xa4\n  \xc3\xa4 gkx = 1", DocumentRole::Orchestra);
    const auto at = [&](int line, int column) {
        return symbolAt(of.piece, of.text(), line, column);
    };
    QVERIFY(!at(2, 3));
    for (int column = 4; column <= 7; ++column)
        QCOMPARE(at(2, column)->place, (PiecePlace{DocumentRole::Orchestra, 2, 4, 3}));
    QVERIFY(!at(2, 8));
    QVERIFY(!at(0, 0));
    QVERIFY(!at(3, 0));
    QVERIFY(!at(2, 1000));
    QVERIFY(!at(2, -1));
}

void tst_PieceSymbol::symbolAt_ofALocal_hasTheLinesOfItsBody()
{
    const MarkedPiece of("kx = 1\ninstr 1\nkx§ = 2\nendin\ninstr 2\nkx = 1\nendin",
                         DocumentRole::Orchestra);
    QCOMPARE(of.symbol()->body, (LineRun{2, 4}));
}

void tst_PieceSymbol::words_knowTheSameStateAsTheModel()
{
    const QByteArrayList some = {
        "instr 1",
        "instr 2, Bell ; a comment",
        "endin",
        "opcode foo, i, k",
        "endop",
        "kx = p4",
        "/*",
        "*/",
        "prints {{",
        "}}",
        "#define A #",
        "#",
        "R\"(",
        ")\" kx",
        "instr 1,",
        " 3, 4",
        "print 3, \\",
        "x: endin",
        "<CsScore>",
        "<CsInstruments>",
        "{ 3 N",
        "i 1 0 1",
        "s",
        "#define B(X) #",
        "\xff\"",
        "scoreline_i {{",
        "opcode foo(a:k):(k)",
        "",
        "struct A x:i",
        "2:",
    };
    QRandomGenerator random(randomSeed(21));
    for (int round = 0; round < 200; ++round) {
        QByteArrayList text;
        for (int line = 0; line < 40; ++line)
            text.append(some[random.bounded(some.size())]);
        const MarkedPiece of(text.join('\n'));
        PieceWordReader reader(of.text());
        while (!reader.atEnd()) {
            const PieceState known = of.text().stateAt(reader.nextLine());
            QVERIFY2(reader.state() == known, text.first(reader.nextLine()).join('\n').constData());
            reader.readLine();
        }
    }
}

ARDIPHON_TEST(tst_PieceSymbol, NoApplication)
#include "tst_PieceSymbol.moc"
