#include "piece/PieceLines.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

class tst_OrchestraLine : public QObject
{
    Q_OBJECT

private slots:
    void landmarks_data();
    void landmarks();
};

namespace {

/// With the types of variables as letters.
QStringList landmarksOf(const QByteArray &orchestra)
{
    return describedLandmarks(PieceOfLines(orchestra, DocumentRole::Orchestra));
}

} // namespace

void tst_OrchestraLine::landmarks_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const char *text, const QStringList &expected) {
        QTest::newRow(name) << QByteArray(text) << expected;
    };
    const QString i = QString::number('i'), k = QString::number('k'), a = QString::number('a');

    row("nothing", "", {});
    row("instrument by number", "instr 1\nendin", {"1 instr 1", "2 endin endin"});
    row("a list of numbers and names", "instr 3, 4, Bell\nendin",
        {"1 instr 3", "1 instr 4 1", "1 instr Bell 2", "2 endin endin"});
    row("a name with a plus", "instr +Bell", {"1 instr Bell"});
    row("a list over two lines", "instr 3,\n 4\n kx init 1",
        {"1 instr 3", "2 instr 4 1", "3 var kx " + k});
    row("in the middle of a line there is none", "print 1 instr 2", {});
    row("indented, with a comment", "\t instr 5 ; instr 6", {"1 instr 5"});
    row("commented out", "; instr 1\n// instr 2\n/* instr 3\ninstr 4 */ instr 5",
        {"3 begin /* 3", "4 end  3", "4 instr 5"});
    row("in texts", "prints \"\ninstr 1\nprints {{\ninstr 2\n}}\nS = R\"(\ninstr 3\n)\"",
        {"2 instr 1", "6 var S " + QString::number('S')}); // a text in quotes ends with its line
    row("an opcode with its types", "opcode twice, i, ik\nendop",
        {"1 opcode twice", "2 endop endop"});
    row("an opcode in brackets", "opcode twice(ival:i, sig:a):(i)\nendop",
        {"1 opcode twice 1", "1 var ival " + i, "1 var sig " + a, "2 endop endop"});
    row("a type", "struct Point x:i, y:i", {"1 struct Point"});
    row("labels", "go:\nagain: kx = 1\n2:\nx:k = 1\nkx = a ? b : c",
        {"1 label go", "2 label again", "2 var kx " + k, "3 label 2", "4 var x " + k});
    row("macros", "#define A #1#\n#define B(X'Y) # $X\n$Y #\nkx = $A",
        {"1 macro A", "2 macro B 2", "3 macro-end ", "4 var kx " + k});
    row("what a macro's text says is none", "#define A #\ninstr 1\nendin # instr 2",
        {"1 macro A", "3 macro-end ", "3 instr 2"});
    row("a hash in a macro's text", "#define A #1 \\# 2# instr", {"1 macro A"});
    row("included", "#include \"a/b.inc\"\n# include 'c.udo'",
        {"1 include a/b.inc", "2 include c.udo"});
    row("branches", "#ifdef A\n#else\n#end\n#ifndef B\n#endif",
        {"1 ifdef A", "2 #else #else", "3 #end #end", "4 ifdef B", "5 #end #endif"});
    row("headers", "sr = 44100\n0dbfs=1\n nchnls_i = 2\nA4 = 442",
        {"1 header sr", "2 header 0dbfs", "3 header nchnls_i", "4 header A4"});
    row("variables", "kx, ay twice 3\nSname = \"a\"\ngkZ init 0\nkx = 4\nprint iv\nout ax",
        {"1 var kx " + k, "1 var ay " + a, "2 var Sname " + QString::number('S'),
         "3 var gkZ " + k});
    row("assigned with an operation", "kx += 1\nky == 2", {"1 var kx " + k});
    row("arrays", "kArr[] init 4\niArr[2] = 3", {"1 array kArr " + k, "2 array iArr " + i});
    row("with a type", "list:i[] = fillarray(1)", {"1 array list " + i});
    row("a bracket behind the opcode", "asound fof giGain[iband] * 2\nax oscili kx[1], 2",
        {"1 var asound " + a, "2 var ax " + a});
    row("by a macro", "asig $OSC 1", {"1 var asig " + a});
    row("in each body anew", "instr 1\nkx = 1\nkx = 2\nendin\ninstr 2\nkx = 1\nendin",
        {"1 instr 1", "2 var kx " + k, "4 endin endin", "5 instr 2", "6 var kx " + k,
         "7 endin endin"});
    row("an opcode without outputs", "print ival\nigoto done\nprints \"kx = 3\"\nkgoto kx", {});
    row("p-fields", "instr 1\ni1 = p4 + p5\nout p4, p12, pcount\nendin\nprint p6",
        {"1 instr 1", "2 var i1 " + i, "2 p p4 4", "2 p p5 5", "3 p p12 12", "4 endin endin"});
    row("channels", "chn_k \"a\", 1\nkx chnget \"b\"\nchnset kx, \"c d\"\nkx chnget Sname",
        {"1 chn a", "2 var kx " + k, "2 chn b 1", "3 chn c d 2"});
    row("tables", "giSine ftgen 1, 0, 1024, 10, 1\ngiB ftgen 0, 0, 8, 2, 1\ngiC = ftgen(0, 0, 8)",
        {"1 var giSine " + i, "1 table 1", "2 var giB " + i, "2 table giB", "3 var giC " + i});
    row("texts for numbers, files", "strset 3, \"x\"\nasig diskin2 \"a.WAV\", 1\nprints \"a. b\"",
        {"1 strset 3", "2 var asig " + a, "2 file a.WAV"});
    row("conditions",
        "if kx > 1 then\nelseif kx then\nelse\nendif\nif kx goto a\nif kx == \\\n1 then",
        {"1 begin if", "2 middle elseif", "3 middle else", "4 end endif", "6 begin if"});
    row("loops",
        "while kx < 1 do\nod\nuntil kx > 1 do\nenduntil\nswitch kx\ncase 1\ndefault\nendsw",
        {"1 begin while 1", "2 end od 1", "3 begin until 1", "4 end enduntil 1", "5 begin switch 2",
         "6 middle case 2", "7 middle default 2", "8 end endsw 2"});
    row("titles", ";;; Drums\n;;;; no title\nkx = 1 ;;; none\n;;;\n  ;;; indented",
        {"1 title Drums", "3 var kx " + k, "5 title indented"});
    row("a statement that goes on", "asig oscili 1,\n instr 3, 4\n out asig", {"1 var asig " + a});
    row("bytes of any kind", "\xff\xfe instr 1\ninstr \xc3\xa9\n\"\\", {});
}

void tst_OrchestraLine::landmarks()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, expected);
    QCOMPARE(landmarksOf(text), expected);
}

ARDIPHON_TEST(tst_OrchestraLine, NoApplication)
#include "tst_OrchestraLine.moc"
