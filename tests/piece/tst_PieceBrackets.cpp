#include "piece/MarkedPiece.h"
#include "piece/PieceBrackets.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

class tst_PieceBrackets : public QObject
{
    Q_OBJECT

private slots:
    void brackets_data();
    void brackets();
    void brackets_hereIsFirst();
    void brackets_farAway();
    void brackets_readFewLines();
};

void tst_PieceBrackets::brackets_data()
{
    QTest::addColumn<QByteArray>("text");
    const auto orc = [](const char *text) {
        QTest::newRow(text) << QByteArray("<CsInstruments>\n") + text;
    };
    const auto sco = [](const char *text) {
        QTest::newRow(text) << QByteArray("<CsScore>\n") + text;
    };
    orc("kx = «§(»1 + (2 * 3)«)»");
    orc("kx = «(»§1 + (2 * 3)«)»");
    orc("kx = «(»1 + (2 * 3)«§)»");
    orc("kx = «(»1 + (2 * 3)«)»§");
    orc("kx = (1 + «(»2 * 3§«)»)");
    orc("kx = foo«(»1, \\\n 2§«)»");
    orc("kx = ka«[»kb[1]«]»§");
    orc("kx = «(»§\")\" /* ) */«)» ; )");
    orc("kx = (§1");
    orc("kx = 1)§");
    orc("prints \"(§)\"");
    orc("; (§)");
    orc("kx = 1§");
    orc("«i§f» kx == 1 then\nkx = 2\n«endif»");
    orc("«if» kx == 1 then\nif ky == 1 then\nelse\nendif\n«en§dif»");
    orc("if kx == 1 then\n«if» ky == 1 then\nelse\n«§endif»\nendif");
    orc("«if» kx == 1 then\nif ky == 1 then\nendif\n«§elseif» kx == 2 then\nendif");
    orc("«if» kx == 1 then\nelseif kx == 3 then\n«el§se»\nendif");
    orc("«if» kx == 1 «th§en»\nendif");
    orc("if kx == 1 then\n«elseif» kx == 3 «th§en»\nendif");
    orc("i§f kx == 1 then\nkx = 2");
    orc("if kx == 1 then\nendin\ninstr 2\nend§if");
    orc("i§f kx goto foo");
    orc("«whi§le» kx < 1 do\nif kx then\nendif\n«od»");
    orc("«until» kx < 1 do\nwhile ky do\nod\n«o§d»");
    orc("«switch» kx\ncase 1\nkx = 1\n«endsw§»");
    orc("«switch» kx\n«ca§se» 1\nkx = 1\nendsw");
    orc("«ins§tr» 1, 2\nkx = 1\n«endin»\ninstr 3\nendin");
    orc("instr 1, 2\nkx = 1\nendin\n«instr» 3,\n4\n«endin§»");
    orc("ins§tr 1\ninstr 2\nendin");
    orc("instr 1\nendin\nendi§n");
    orc("«opcod§e» foo, i, i\nix xin\n«endop»");
    orc("«opcode» foo, i, i\nix xin\n«e§ndop»");
    orc("instr 1\nend§op");
    orc("«#if§def» A\ninstr 1\n#ifndef B\n#end\n#else\nendin\n«#end»");
    orc("«#ifdef» A\n#ifndef B\n#end\n«#el§se»\n#endif");
    orc("«#ifdef» A\n#ifndef B\n#end\n#else\n«#endif§»");
    sco("«{§» 3 N\n{ 2 M\n}\n«}»");
    sco("«{» 3 N\n{ 2 M\n}\n«}»§");
    sco("i 1 0 «§[»1 + (2 * 3)«]»");
    sco("i 1 0 [1 + «(»2 * 3«§)»]");
    sco("i 1 0 \"§[\" ]");
    sco("i 1 0 1 ; (§)");
    QTest::newRow("not over sections")
        << QByteArray("<CsInstruments>\nkx = (§1\n<CsScore>\ni 1 0 [1)]");
    QTest::newRow("not back over sections")
        << QByteArray("<CsInstruments>\nkx = (1\n<CsInstruments>\nkx = 1)§");
    QTest::newRow("outside") << QByteArray("(§)");
}

void tst_PieceBrackets::brackets()
{
    QFETCH(QByteArray, text);
    const MarkedPiece of(text);
    const auto found = bracketsAt(of.text(), of.caretLine, of.caretColumn);
    QList<PiecePlace> places;
    if (found)
        places = {found->here, found->partner};
    std::sort(places.begin(), places.end(), [](const PiecePlace &a, const PiecePlace &b) {
        return std::pair(a.line, a.column) < std::pair(b.line, b.column);
    });
    QCOMPARE(of.markedWith(places), of.marked);
}

void tst_PieceBrackets::brackets_hereIsFirst()
{
    const MarkedPiece of("\xc3\xa4 = (1)§", DocumentRole::Orchestra);
    const PieceBrackets expected{{DocumentRole::Orchestra, 1, 6, 1},
                                 {DocumentRole::Orchestra, 1, 4, 1}};
    QCOMPARE(bracketsAt(of.text(), 1, of.caretColumn), expected);
    QVERIFY(!bracketsAt(of.text(), 0, 0));
    QVERIFY(!bracketsAt(of.text(), 2, 0));
}

void tst_PieceBrackets::brackets_farAway()
{
    const QByteArray inner = QByteArray("kx = (1)\n").repeated(2000);
    const MarkedPiece block("«i§f» kx then\n" + inner + "«endif»", DocumentRole::Orchestra);
    QCOMPARE(bracketsAt(block.text(), 1, 1)->partner.line, 2002);
    const MarkedPiece sign("«(»§\n" + inner + "«)»", DocumentRole::Orchestra);
    QVERIFY(!bracketsAt(sign.text(), 1, 1)); // nobody writes such a one
}

void tst_PieceBrackets::brackets_readFewLines()
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
    CountedLines lines(QByteArray("\nkx = (1").repeated(100000));
    Piece piece({{DocumentRole::Orchestra, &lines}}, isMarkedOpcode);
    piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    lines.read = 0;
    QVERIFY(!bracketsAt(*piece.orchestra(), 50000, 5));
    QVERIFY2(lines.read < 2 * 256 + 2 * 200 + 10, qPrintable(QString::number(lines.read)));
}

ARDIPHON_TEST(tst_PieceBrackets, NoApplication)
#include "tst_PieceBrackets.moc"
