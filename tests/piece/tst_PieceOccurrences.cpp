#include "piece/MarkedPiece.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

class tst_PieceOccurrences : public QObject
{
    Q_OBJECT

private slots:
    void occurrences_data();
    void occurrences();
    void occurrences_ofTheVisibleLinesOnly();
    void occurrences_readFewLines();
};

void tst_PieceOccurrences::occurrences_data()
{
    QTest::addColumn<QByteArray>("text");
    const auto orc = [](const char *name, const char *text) {
        QTest::newRow(name) << QByteArray("<CsInstruments>\n") + text;
    };
    orc("an instrument in both languages",
        "instr «1§», 2\nschedule «1», 1, 1\nevent_i \"i\", «1».2, 0\nprint 1 ; 1\nendin\n"
        "scoreline_i {{\ni «1» 0 1\nf 1 0 1\n}}\n<CsScore>\nf 1 0 8 10 1\ni«1» 0 1\ni «1».5 1 1\n"
        "i 2 0 1\ni 11 0 1\ni -«1» 0 0\n; i 1\n#define A #i «1» 0 1#\nq «1» 0 0\ni \"1\" 0 1");
    orc("an instrument by name",
        "instr 3, «Bell»\nkBell = 1\nschedule \"«Bell»\", 0, 1\nprints \"Bell\"\n"
        "scoreline \"i \\\"«Bell»\\\" 0 1\", 1\nBell:\ngoto Bell\nendin\n<CsScore>\n"
        "i \"«Be§ll»\" 0 1\ni \"-«Bell»\" 0 1\ni \"«Bell».1\" 0 1\ni 3 0 1 \"Bell\"");
    orc("an opcode",
        "opcode «foo», i, i\nendop\nopcode «foo», k, k\nendop\ninstr 1\nix «fo§o» 1\n"
        "ix = «foo»(2) + «foo»:k(3)\nifoo = 3\nprints \"foo\"\n#define A #«foo» 1#\nendin");
    orc("a local variable",
        "kx = 0\ninstr 1\n«k§x» = 1\nprint «kx» + «kx», kxx ; kx\n\"kx\"\n#define A #kx#\n"
        "kx: goto kx\nendin\ninstr 2\nkx = 2\nendin\nopcode foo, k, k\nkx xin\nendop\nprint kx");
    orc("a local of no instrument",
        "«kx» = 0\ninstr 1\nkx = 1\nendin\nprint «kx§»\nopcode foo, k, k\nkx xin\nendop\n«kx» = 1");
    orc("a parameter of an opcode",
        "opcode foo(«v§al»:i, b:i):(i)\nix = «val» + b\nendop\ninstr 1\nval:i = 2\nendin");
    orc("a member is no variable", "instr 1\n«k§x» = kp.kx + «kx».ky");
    orc("a global variable",
        "«gkx» init 0\ninstr 1\n«gkx» = «gkx» + 1\nendin\n#define A #«gkx§» = 2#\nprint(«gkx»)");
    orc("a macro of the orchestra",
        "#define «AB» #1#\n#define C(AB) #$AB#\n#define D #$«AB».2 + $ABC#\n#ifdef «AB»\n#undef "
        "«AB»\n#end\ninstr 1\nprint $«A§B»., AB ; $AB\nprints \"$«AB»\"\nprints {{$AB}}\nendin\n"
        "<CsScore>\n#define AB #1#\ni $AB 0 1");
    orc("a macro of the score",
        "#define AB #1#\nprint $AB\n<CsScore>\n#define «AB» #1#\ni $«A§B» 0 [$«AB».+1] \"$«AB»\"\n"
        "i 1 0 AB\n#ifdef «AB»\n#end\n#define C(AB) #$AB#");
    orc("the count of a loop", "<CsScore>\n{ 3 «CN§T»\ni 1 0 $«CNT»\n}\n{ 4 «CNT»\n}");
    orc("a label", "instr 1\n«aga§in»:\nkagain = again\ngoto «again»\nif kx == 1 goto «again»\n"
                   "timout 0, 1, «again»\nendin\ninstr 2\nagain:\ngoto again\nendin");
    orc("a place of the score", "<CsScore>\nm «pl§ace»\nn «place»\ni 1 0 1");
    orc("a channel",
        "chn_k \"«a»\", 1\ninstr 1\nkx chnget \"«§a»\"\nchnset kx, \"«a»\"\nprints \"a\"\n"
        "outvalue \"«a»\", 1\nchnset kx, \"a b\"\nchnset ka, Sa\nendin");
    orc("a p-field", "instr 1\nkx = «p§4» + p44\nprint «p4»\nendin\ninstr 2\nprint p4");
    orc("an opcode of the language",
        "instr 1\nax «osc§ili» 1, 2 ; oscili\nay = «oscili»(1, 2)\nendin\nprints \"oscili\"");
    orc("a word of the language", "«in§str» 1\nendin\n«instr» 2\nendin");
    orc("in a statement of several lines",
        "instr «1»\nprint 1, \\\n 1,\n 1\nevent_i \"i\", \\\n «§1», \\\n 1\nendin");
    orc("an argument of a macro", "#define A(X'Y) #$§X + $X#");
    orc("a word that nobody knows", "instr 1\nax = un§heard + unheard");
}

void tst_PieceOccurrences::occurrences()
{
    QFETCH(QByteArray, text);
    const MarkedPiece of(text);
    QVERIFY(of.symbol());
    const QList<PiecePlace> places =
        occurrencesOf(of.piece, *of.symbol(), of.text(), {1, of.text().lineCount()});
    QCOMPARE(of.markedWith(places), of.marked);
}

void tst_PieceOccurrences::occurrences_ofTheVisibleLinesOnly()
{
    const MarkedPiece of("gkx = 1\n«g§kx» = 2\n«gkx» = 3\ngkx = 4", DocumentRole::Orchestra);
    QCOMPARE(of.markedWith(occurrencesOf(of.piece, *of.symbol(), of.text(), {2, 3})), of.marked);
    QCOMPARE(occurrencesOf(of.piece, *of.symbol(), of.text(), {3, 2}).size(), 0);
    QCOMPARE(occurrencesOf(of.piece, *of.symbol(), of.text(), {-5, 500}).size(), 4);
}

void tst_PieceOccurrences::occurrences_readFewLines()
{
    class CountedLines : public PieceTextLines
    {
    public:
        using PieceTextLines::PieceTextLines;
        QByteArrayView line(int line) const override
        {
            ++read;
            return PieceTextLines::line(line);
        }
        mutable int read = 0;
    };
    CountedLines lines(QByteArray("\ni 1 0 1").repeated(100000));
    Piece piece({{DocumentRole::Score, &lines}}, isMarkedOpcode);
    piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    lines.read = 0;
    const auto symbol = symbolAt(piece, piece.texts().front(), 50000, 3);
    QVERIFY(symbol);
    QCOMPARE(occurrencesOf(piece, *symbol, piece.texts().front(), {49980, 50020}).size(), 41);
    QVERIFY2(lines.read < 2 * 256 + 45, qPrintable(QString::number(lines.read)));
}

ARDIPHON_TEST(tst_PieceOccurrences, NoApplication)
#include "tst_PieceOccurrences.moc"
