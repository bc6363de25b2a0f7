#include "typing/ArgumentHint.h"

#include "support/TestMain.h"
#include "typing/HintedPiece.h"
#include "typing/UserSignature.h"

using namespace ardiphon;

namespace {

/// The hint at the mark, with * around what is bold.
QStringList hintTexts(const QByteArray &marked, DocumentRole role = DocumentRole::Csd)
{
    const MarkedPiece of(marked, role);
    const auto hint = argumentHint(of.piece, of.text(), of.caretLine, of.caretColumn, hintedOpcode);
    QStringList texts;
    for (const HintLine &line : hint ? hint->lines : QList<HintLine>()) {
        QString text = line.text;
        if (line.boldLength > 0) {
            text.insert(line.boldStart + line.boldLength, u'*');
            text.insert(line.boldStart, u'*');
        }
        texts.append(text);
    }
    return texts;
}

QStringList hintsInOrchestra(const QByteArray &marked)
{
    return hintTexts(marked, DocumentRole::Orchestra);
}

} // namespace

class tst_ArgumentHint : public QObject
{
    Q_OBJECT

private slots:
    void signatures_thatFit_data();
    void signatures_thatFit();
    void userOpcode_hasItsNamesAndDefaults_data();
    void userOpcode_hasItsNamesAndDefaults();
    void score_hasTheInstrumentsFields_data();
    void score_hasTheInstrumentsFields();
    void place_isThatOfTheCall();
    void comment_isBehindOrAbove();
};

void tst_ArgumentHint::signatures_thatFit_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("hint");
    const auto row = [](const char *name, const QByteArray &text, const QStringList &hint) {
        QTest::newRow(name) << text << hint;
    };
    const QString audio = QStringLiteral("ares oscili *xamp*, xcps [, ifn, iphs]");
    const QString control = QStringLiteral("kres oscili *kamp*, kcps [, ifn, iphs]");
    row("by the output", "a1 oscili §", {audio});
    row("by another output", "k1 oscili §", {control});
    row("any output", "out oscili(§)", {audio, control});
    row("by the type", "out oscili:k(§)", {control});
    row("by what is assigned", "kx = oscili(§)", {control});
    row("by the arguments", "out oscili(a1, §)",
        {QStringLiteral("ares oscili xamp, *xcps* [, ifn, iphs]")});
    row("what is being written does not count", "out oscili(a1§)", {audio, control});
    row("an optional one", "a1 oscili 1, 2, §",
        {QStringLiteral("ares oscili xamp, xcps [, *ifn*, iphs]")});
    row("too many", "a1 oscili 1, 2, 3, 4, §",
        {QStringLiteral("ares oscili xamp, xcps [, ifn, iphs]"),
         QStringLiteral("kres oscili kamp, kcps [, ifn, iphs]")});
    row("none fits", "S1 oscili 1, §",
        {QStringLiteral("ares oscili xamp, *xcps* [, ifn, iphs]"),
         QStringLiteral("kres oscili kamp, *kcps* [, ifn, iphs]")});
    row("no outputs", "outs a1, §", {QStringLiteral("outs asig1, *asig2*")});
    row("four", "out chnget(§)",
        {QStringLiteral("ival chnget *Sname*"), QStringLiteral("kval chnget *Sname*"),
         QStringLiteral("aval chnget *Sname*"), QStringLiteral("Sval chnget *Sname*")});
    row("repeated", "kx[] fillarray 1, 2, 3, §",
        {QStringLiteral("kArray[] fillarray ival1, *ival2* [, ...]")});
    row("nothing known", "print §1", {});
    row("no call", "k1 = §1", {});
}

void tst_ArgumentHint::signatures_thatFit()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, hint);
    QCOMPARE(hintsInOrchestra(text), hint);
}

void tst_ArgumentHint::userOpcode_hasItsNamesAndDefaults_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("hint");
    const auto row = [](const char *name, const QByteArray &text, const char *hint) {
        QTest::newRow(name) << text << QStringList(QString::fromLatin1(hint));
    };
    row("names", "opcode mine, a, kio\nkcps, iamp, ipan xin\nxout asig\nendop\na1 mine 440, §",
        "asig mine kcps, *iamp* [, ipan = 0]");
    row("types alone", "opcode mine, aa, kj\nendop\na1, a2 mine §", "a1, a2 mine *k1* [, i2 = -1]");
    row("no outputs", "opcode mine, 0, i\nendop\nmine §", "mine *i1*");
    row("no inputs", "opcode mine, i, 0\nendop\ni1 mine §", "i1 mine");
    row("all optional", "opcode mine, 0, op\nendop\nmine 1, §", "mine [i1 = 0] [, *i2* = 1]");
    row("arrays", "opcode mine, k[], k[]i\nkin[], inum xin\nendop\nk1[] mine k2, §",
        "k1[] mine kin[], *inum*");
    row("in brackets", "opcode mine(freq:k, amp:i):(a)\nendop\na1 mine 440, §",
        "mine(freq:k, *amp:i*):(a)");
    row("as a function", "opcode mine, a, k\nkcps xin\nendop\nout mine(§)", "a1 mine *kcps*");
    row("heading with a comment", "opcode mine, a, k ; what\nendop\na1 mine §", "a1 mine *k1*");
}

void tst_ArgumentHint::userOpcode_hasItsNamesAndDefaults()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, hint);
    QCOMPARE(hintsInOrchestra(text), hint);
}

void tst_ArgumentHint::score_hasTheInstrumentsFields_data()
{
    QTest::addColumn<QByteArray>("score");
    QTest::addColumn<QStringList>("hint");
    const auto row = [](const char *name, const QByteArray &score, const QStringList &hint) {
        QTest::newRow(name) << score << hint;
    };
    row("a field with a name", "i 1 0 1 .§5 440",
        {QStringLiteral("instr 1:  p1 instrument  p2 start  p3 duration  *p4 iamp*  p5 icps")});
    row("the next one", "i 1 0 1 .5 §",
        {QStringLiteral("instr 1:  p1 instrument  p2 start  p3 duration  p4 iamp  *p5 icps*")});
    row("one that nobody reads", "i 1 0 1 .5 440 §",
        {QStringLiteral("instr 1:  p1 instrument  p2 start  p3 duration  p4 iamp  p5 icps  *p6*")});
    row("by name", "i \"Bell\" 0 §1",
        {QStringLiteral("instr Bell:  p1 instrument  p2 start  *p3 duration*  p4  p5 pan")});
    row("carried", "i 1 0 1 .5 440\ni . + §",
        {QStringLiteral("instr 1:  p1 instrument  p2 start  *p3 duration*  p4 iamp  p5 icps")});
    row("far away", "i 1 0 1 4 5 6 7 8 §9",
        {QStringLiteral("instr 1:  ...  p4 iamp  p5 icps  p6  p7  p8  *p9*")});
    row("an instrument that is none", "i 9 0 §1", {});
    row("a table", "f 1 0 §8 10 1", {});
}

void tst_ArgumentHint::score_hasTheInstrumentsFields()
{
    QFETCH(QByteArray, score);
    QFETCH(QStringList, hint);
    QCOMPARE(hintTexts("<CsInstruments>\ninstr 1\niamp = p4\nicps = p5\nendin\n"
                       "instr Bell\nk1 = p4 + p5 ; p5 pan\nendin\n</CsInstruments>\n<CsScore>\n" +
                       score + "\n</CsScore>\n"),
             hint);
}

void tst_ArgumentHint::place_isThatOfTheCall()
{
    const MarkedPiece of("instr 1\n a1 oscili .5, §440\nendin", DocumentRole::Orchestra);
    const auto hint = argumentHint(of.piece, of.text(), of.caretLine, of.caretColumn, hintedOpcode);
    QVERIFY(hint);
    QCOMPARE(hint->place, (PiecePlace{DocumentRole::Orchestra, 2, 4, 6}));
}

void tst_ArgumentHint::comment_isBehindOrAbove()
{
    const MarkedPiece of("; far\n\n;; a bell\n; with a tail --\ninstr 1\nendin\n"
                         "instr 2 /* here */\ninstr 3\n",
                         DocumentRole::Orchestra);
    QCOMPARE(commentOf(of.text(), 5), QStringLiteral("a bell with a tail"));
    QCOMPARE(commentOf(of.text(), 7), QStringLiteral("here"));
    QCOMPARE(commentOf(of.text(), 8), QString());
    QCOMPARE(commentOf(of.text(), 99), QString());
}

ARDIPHON_TEST(tst_ArgumentHint, NoApplication)
#include "tst_ArgumentHint.moc"
