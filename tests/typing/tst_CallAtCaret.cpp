#include "typing/CallAtCaret.h"

#include "piece/MarkedPiece.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

using namespace ardiphon;

namespace {

/// The call at the mark, as "oscili 1 [.5|440] -> ares", with "f" in front of a function.
QString callText(const QByteArray &marked)
{
    const MarkedPiece of(marked, DocumentRole::Orchestra);
    const auto call = callAtCaret(of.piece, of.text(), of.caretLine, of.caretColumn);
    if (!call)
        return QString();
    QString text = call->form == CallAtCaret::Form::Function ? QStringLiteral("f ") : QString();
    text += QStringLiteral("%1 %2 [%3]")
                .arg(QString::fromUtf8(call->name))
                .arg(call->argument)
                .arg(call->arguments.join(u'|'));
    if (call->knowsOutputs)
        text += QStringLiteral(" -> ") + call->outputs.join(u',');
    return text;
}

} // namespace

class tst_CallAtCaret : public QObject
{
    Q_OBJECT

private slots:
    void call_isTheInnermost_data();
    void call_isTheInnermost();
    void place_isThatOfTheName();
    void scoreField_isThatAtTheCaret_data();
    void scoreField_isThatAtTheCaret();
    void anyBytes_areRead();
};

void tst_CallAtCaret::call_isTheInnermost_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("call");
    const auto row = [](const char *name, const QByteArray &text, const char *call) {
        QTest::newRow(name) << text << QString::fromUtf8(call);
    };
    row("statement", "ares oscili .5, §440", "oscili 1 [.5|440] -> ares");
    row("its first argument", "ares oscili §.5, 440", "oscili 0 [.5|440] -> ares");
    row("behind a comma", "ares oscili .5,§", "oscili 1 [.5|] -> ares");
    row("nothing yet", "ares oscili §", "oscili 0 [] -> ares");
    row("in the name", "ares oscili§ .5", "");
    row("on the left", "ar§es oscili .5", "");
    row("no outputs", "outs a1, §a2", "outs 1 [a1|a2] -> ");
    row("several outputs", "a1, a2 diskin2 §", "diskin2 0 [] -> a1,a2");
    row("array output", "kout[] fillarray 1, §", "fillarray 1 [1|] -> kout[]");
    row("typed output", "sig:a oscili 1, §", "oscili 1 [1|] -> a");
    row("behind a label", "again: ares oscili .5, §440", "oscili 1 [.5|440] -> ares");
    row("function", "ares = oscili(.5, §440)", "f oscili 1 [.5|440] -> ares");
    row("function with its type", "out oscili:a(.5, §440)", "f oscili 1 [.5|440] -> a");
    row("function that is open", "out oscili(.5, §", "f oscili 1 [.5|]");
    row("before a function's bracket", "out oscili§(.5)", "out 0 [oscili(.5)] -> ");
    row("behind a function", "outs oscili(.5, 440), §1", "outs 1 [oscili(.5, 440)|1] -> ");
    row("functions in each other", "out oscili(chnget(§\"a\"), 440)", "f chnget 0 [\"a\"]");
    row("the outer one", "out oscili(chnget(\"a\"), §440)", "f oscili 1 [chnget(\"a\")|440]");
    row("brackets", "ares oscili (1 + §2) * 3, 440", "oscili 0 [(1 + 2) * 3|440] -> ares");
    row("indices", "ares oscili kamp[1, §2], 440", "oscili 0 [kamp[1, 2]|440] -> ares");
    row("in a text", "chnset 1, \"le§vel\"", "chnset 1 [1|\"level\"] -> ");
    row("a comma in a text", "prints \"a, b\", §1", "prints 1 [\"a, b\"|1] -> ");
    row("over lines", "ares oscili .5, \\\n  440, §1", "oscili 2 [.5|440|1] -> ares");
    row("after a comma", "ares oscili .5,\n  440,\n §1", "oscili 2 [.5|440|1] -> ares");
    row("lines below", "ares oscili §.5, \\\n  440", "oscili 0 [.5|440] -> ares");
    row("in a condition", "if active(§1) > 0 then", "f active 0 [1]");
    row("a condition is no call", "if §k1 > 0 then", "");
    row("an assignment is none", "k1 = §3", "");
    row("in a comment", "ares oscili .5 ; a, §b", "");
    row("in a comment over lines", "/* ares oscili .5,\n§ */", "");
    row("before a comment", "ares oscili .5, § ; b", "oscili 1 [.5|] -> ares");
    row("a heading", "instr §1", "");
    row("a macro's text", "#define A #oscili .5, §1#", "");
    row("an opcode of the piece", "opcode mine, a, k\nendop\na1 mine §", "mine 0 [] -> a1");
    row("not an opcode", "ares unknown .5, §440", "");
    row("a variable with an opcode's name", "line = §3", "");
    row("brackets without an end", "ares oscili ((1, §2", "oscili 0 [((1, 2] -> ares");
    row("brackets that close nothing", "ares oscili 1), §2", "oscili 1 [1)|2] -> ares");
}

void tst_CallAtCaret::call_isTheInnermost()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, call);
    QCOMPARE(callText(text), call);
}

void tst_CallAtCaret::place_isThatOfTheName()
{
    const MarkedPiece of(
        "instr 1\nprints \"\xc3\xa9\"\nS1 = \"\xc3\xa9\"\nares oscili \\\n.5, §440\n",
        DocumentRole::Orchestra);
    const auto call = callAtCaret(of.piece, of.text(), of.caretLine, of.caretColumn);
    QVERIFY(call);
    QCOMPARE(call->place, (PiecePlace{DocumentRole::Orchestra, 4, 5, 6}));
    QVERIFY(!callAtCaret(of.piece, of.text(), 0, 0));
    QVERIFY(!callAtCaret(of.piece, of.text(), 99, 0));
    QVERIFY(!callAtCaret(of.piece, of.text(), 1, 9999));
}

void tst_CallAtCaret::scoreField_isThatAtTheCaret_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("field");
    const auto row = [](const char *name, const QByteArray &text, const char *field) {
        QTest::newRow(name) << text << QString::fromLatin1(field);
    };
    row("in a field", "i 1 0 1 .§5 440", "i4 8 2");
    row("at its end", "i 1 0 1 .5§ 440", "i4 8 2");
    row("between two", "i 1 0 1  §  .5", "i4 9 0");
    row("the first", "i1§ 0 1", "i1 1 1");
    row("behind the last", "i 1 0 1 §", "i4 8 0");
    row("nothing yet", "i §", "i1 2 0");
    row("before the letter", "§i 1", "");
    row("at the letter's begin", " §i 1", "");
    row("q", "q 1 0 §1", "q3 6 1");
    row("no note", "f 1 0 §8", "");
    row("a comment", "i 1 0 1 ; 4§40", "");
    row("a name", "i \"Be§ll\" 0 1", "i1 2 6");
    row("an expression", "i 1 [1 + §2] 1", "i2 4 7");
    row("a carried one", "i . §+ .", "i2 4 1");
}

void tst_CallAtCaret::scoreField_isThatAtTheCaret()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, field);
    const MarkedPiece of(text, DocumentRole::Score);
    const auto found = scoreFieldAtCaret(of.text(), of.caretLine, of.caretColumn);
    QCOMPARE(found ? QStringLiteral("%1%2 %3 %4")
                         .arg(QLatin1Char(found->letter))
                         .arg(found->number)
                         .arg(found->start)
                         .arg(found->length)
                   : QString(),
             field);
}

void tst_CallAtCaret::anyBytes_areRead()
{
    static const QByteArrayList Some = {"oscili",
                                        "(",
                                        ")",
                                        "[",
                                        "]",
                                        ",",
                                        ":a",
                                        "ares",
                                        "=",
                                        "\"",
                                        "{{",
                                        "}}",
                                        "/*",
                                        "*/",
                                        "\\",
                                        "\n",
                                        "\xff",
                                        "\xc3\xa9",
                                        "i 1",
                                        "; a",
                                        "instr 1",
                                        "440",
                                        "#define A #",
                                        "$A",
                                        "<CsScore>\n",
                                        "<CsInstruments>\n",
                                        "opcode mine, a, k\n"};
    QRandomGenerator random(randomSeed(24));
    for (int round = 0; round < 1000; ++round) {
        QByteArray text;
        for (int i = random.bounded(40); i > 0; --i)
            text += Some[random.bounded(int(Some.size()))] + (random.bounded(3) != 0 ? " " : "");
        const PieceOfLines of(text);
        for (int line = 0; line <= of.text().lineCount() + 1; ++line) {
            for (int column = 0; column < 60; column += 7) {
                const auto call = callAtCaret(of.piece, of.text(), line, column);
                QVERIFY(!call || (call->argument >= 0 && call->argument < call->arguments.size()));
                (void)scoreFieldAtCaret(of.text(), line, column);
            }
        }
    }
}

ARDIPHON_TEST(tst_CallAtCaret, NoApplication)
#include "tst_CallAtCaret.moc"
