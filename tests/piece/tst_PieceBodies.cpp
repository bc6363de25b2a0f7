#include "piece/PieceBodies.h"
#include "piece/PieceLines.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

/// What belongs together, from its first to its last line.
class tst_PieceBodies : public QObject
{
    Q_OBJECT

private slots:
    void blocks_ofAnOrchestra_data();
    void blocks_ofAnOrchestra() { compareBlocks(DocumentRole::Orchestra); }
    void blocks_ofAScore_data();
    void blocks_ofAScore() { compareBlocks(DocumentRole::Score); }
    void blocks_ofAUnifiedFile_data();
    void blocks_ofAUnifiedFile() { compareBlocks(DocumentRole::Csd); }
    void comment_ofManyLines_isLookedAtInPart();
    void around_isTheInnermost();
    void around_aUnifiedFile();
    void around_nothing_isEmpty();
    void outer_ofAnOrchestra();
    void outer_ofAScore();
    void outer_ofAUnifiedFile();
    void body_atALine();
    void body_ofAnOpcode_hasItsName();
    void body_withoutAnEnd_endsBeforeTheNext();

private:
    static void compareBlocks(DocumentRole role);
};

namespace {

QByteArray joined(const QByteArrayList &lines) { return lines.join('\n'); }

/// All that begins in a text, as "3-7".
QStringList blocksOf(const PieceOfLines &of)
{
    QStringList blocks;
    for (int line = 1; line <= of.text().lineCount(); ++line) {
        if (const int last = lastLineOfBlock(of.piece, of.text(), line); last != 0)
            blocks.append(QStringLiteral("%1-%2").arg(line).arg(last));
    }
    return blocks;
}

void blockRow(const char *name, const QByteArrayList &lines, const QStringList &blocks)
{
    QTest::newRow(name) << joined(lines) << blocks;
}

void blockColumns()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("blocks");
}

QString around(const PieceOfLines &of, int line)
{
    const LineRun block = blockAround(of.piece, of.text(), line);
    return block.isEmpty() ? QString() : QStringLiteral("%1-%2").arg(block.first).arg(block.last);
}

QStringList outer(const PieceOfLines &of)
{
    QStringList blocks;
    for (const LineRun &block : outerBlocks(of.piece, of.text()))
        blocks.append(QStringLiteral("%1-%2").arg(block.first).arg(block.last));
    return blocks;
}

/// The body at a line, as "3-7 Bell, 2".
QString body(const PieceOfLines &of, int line)
{
    const auto found = bodyAt(of.piece, of.text(), line);
    return found ? QStringLiteral("%1-%2 %3")
                       .arg(found->lines.first)
                       .arg(found->lines.last)
                       .arg(found->names.join(QStringLiteral(", ")))
                 : QString();
}

const QByteArrayList NestedOrchestra = {
    "sr = 44100",       // 1
    ";; what",          // 2
    ";; this is",       // 3
    "instr 1, Bell",    // 4
    "  ; one",          // 5
    "  ; two",          // 6
    "  if p4 > 1 then", // 7
    "    while p4 < 5", // 8
    "      p = 1",      // 9
    "    od",           // 10
    "  endif",          // 11
    "endin",            // 12
    "",                 // 13
    "opcode two, i, i", // 14
    "  xout 2",         // 15
    "endop",            // 16
};

const QByteArrayList UnifiedFile = {
    "<CsoundSynthesizer>",  // 1
    "<CsOptions>",          // 2
    "-d",                   // 3
    "</CsOptions>",         // 4
    "<CsInstruments>",      // 5
    "instr 1",              // 6
    "endin",                // 7
    "</CsInstruments>",     // 8
    "<CsScore>",            // 9
    "i 1 0 1",              // 10
    "s",                    // 11
    "i 1 0 1",              // 12
    "{ 3 N",                // 13
    "i 1 0 $N",             // 14
    "}",                    // 15
    "e",                    // 16
    "</CsScore>",           // 17
    "</CsoundSynthesizer>", // 18
};

} // namespace

void tst_PieceBodies::compareBlocks(DocumentRole role)
{
    QFETCH(const QByteArray, text);
    QFETCH(const QStringList, blocks);
    QCOMPARE(blocksOf(PieceOfLines(text, role)), blocks);
}

void tst_PieceBodies::blocks_ofAnOrchestra_data()
{
    blockColumns();
    blockRow("nothing", {""}, {});
    blockRow("instrument", {"", "instr 1", "a", "endin", ""}, {"2-4"});
    blockRow("of one line", {"instr 1", "endin"}, {"1-2"});
    blockRow("names over lines", {"instr 1,", "  Bell", "endin"}, {"1-3"});
    blockRow("two", {"instr 1", "endin", "instr 2", "endin"}, {"1-2", "3-4"});
    blockRow("no end", {"instr 1", "a", "", "instr 2", "endin"}, {"1-3", "4-5"});
    blockRow("no end at all", {"instr 1", "a", "b"}, {"1-3"});
    blockRow("no end, and nothing in it", {"instr 1", "instr 2"}, {});
    blockRow("an end alone", {"endin", "endop", "endif", "od"}, {});
    blockRow("opcode", {"opcode two, i, i", "xout 1", "endop"}, {"1-3"});
    blockRow("opcode with brackets", {"opcode two(a:i):i", "xout a", "endop"}, {"1-3"});
    blockRow("opcode without an end", {"opcode two, i, i", "xout 1", "instr 1", "endin"},
             {"1-2", "3-4"});
    blockRow("if", {"if p4 > 1 then", "a", "elseif p4 > 2 then", "b", "else", "c", "endif"},
             {"1-7"});
    blockRow("if in if", {"if p4 > 1 then", "if p5 > 1 then", "a", "endif", "endif"},
             {"1-5", "2-4"});
    blockRow("if that jumps", {"if p4 > 1 goto there", "a", "there:"}, {});
    blockRow("if without an end", {"instr 1", "if p4 > 1 then", "a", "endin"}, {"1-4"});
    blockRow("if whose end is another's",
             {"if p4 > 1 then", "instr 1", "if p4 > 1 then", "a", "endif", "endin"},
             {"2-6", "3-5"});
    blockRow("loops", {"while p4 < 1 do", "until p4 > 1 do", "a", "od", "od"}, {"1-5", "2-4"});
    blockRow("until with its end", {"until p4 > 1 do", "a", "enduntil"}, {"1-3"});
    blockRow("switch", {"switch p4", "case 1", "a", "default", "b", "endsw"}, {"1-6"});
    blockRow("all in each other",
             {"if p4 > 1 then", "while p4 < 1 do", "switch p4", "endsw", "od", "endif"},
             {"1-6", "2-5", "3-4"});
    blockRow("on one line", {"if p4 > 1 then a endif", "b"}, {});
    blockRow("branches", {"#ifdef A", "a", "#else", "b", "#end", "c"}, {"1-5"});
    blockRow("branches in branches", {"#ifdef A", "#ifndef B", "a", "#endif", "#end"},
             {"1-5", "2-4"});
    blockRow("branch around instruments", {"#ifdef A", "instr 1", "endin", "#end"}, {"1-4", "2-3"});
    blockRow("branch without an end", {"#ifdef A", "a"}, {});
    blockRow("comment over lines", {"a /* b", "c", "d */ e", "f"}, {"1-3"});
    blockRow("comment on one line", {"/* a */", "b"}, {});
    blockRow("comment without an end", {"/* a", "b"}, {});
    blockRow("a heading in a comment", {"/*", "instr 1", "*/", "endin"}, {"1-3"});
    blockRow("comment lines", {"; a", "  ;b", "\t; c", "d", "; e"}, {"1-3"});
    blockRow("one comment line", {"; a", "", "; b"}, {});
    blockRow("comment behind a statement", {"a = 1 ; b", "; c", "; d"}, {"2-3"});
    blockRow("macro over lines", {"#define A #", "instr 1", "endin", "#", "b"}, {"1-4"});
    blockRow("macro on one line", {"#define A #b#", "c"}, {});
    blockRow("macro without an end", {"#define A #", "b"}, {});
    blockRow("a text over lines", {"a = {{", "instr 1", "}}"}, {});
}

void tst_PieceBodies::blocks_ofAScore_data()
{
    blockColumns();
    blockRow("nothing", {""}, {});
    blockRow("one section without its end", {"i 1 0 1", "i 1 1 1"}, {});
    blockRow("sections", {"i 1 0 1", "s", "i 1 0 1", "i 1 1 1", "s", "i 1 0 1", "e"},
             {"1-2", "3-5"});
    blockRow("an empty section", {"i 1 0 1", "s", "s"}, {"1-2"});
    blockRow("loop", {"{ 3 N", "i 1 0 $N", "}"}, {"1-3"});
    blockRow("loops in loops", {"{ 3 N", "{ 2 M", "i 1 0 1", "}", "}"}, {"1-5", "2-4"});
    blockRow("loop without an end", {"{ 3 N", "i 1 0 1"}, {});
    blockRow("macro", {"#define A #", "i 1 0 1", "#"}, {"1-3"});
    blockRow("branch", {"#ifdef A", "i 1 0 1", "#end"}, {"1-3"});
    blockRow("comment over lines", {"/*", "s", "*/"}, {"1-3"});
    blockRow("comment lines", {"; a", "; b", "i 1 0 1"}, {"1-2"});
}

void tst_PieceBodies::blocks_ofAUnifiedFile_data()
{
    blockColumns();
    blockRow("whole", UnifiedFile, {"1-18", "2-4", "5-8", "6-7", "9-17", "10-11", "13-15"});
    blockRow("no end of a section", {"<CsInstruments>", "instr 1", "a", "<CsScore>", "i 1 0 1"},
             {"1-3", "2-3", "4-5"});
    blockRow("no end of the file", {"<CsoundSynthesizer>", "<CsScore>", "</CsScore>", "", ""},
             {"1-5", "2-3"});
    blockRow("an end alone", {"</CsScore>", "</CsoundSynthesizer>"}, {});
    blockRow("the end of another", {"<CsInstruments>", "a", "</CsScore>", "b"}, {"1-2"});
    blockRow("if to the end of the section",
             {"<CsInstruments>", "if p4 > 1 then", "a", "</CsInstruments>"}, {"1-4"});
    blockRow("licence", {"<CsLicence>", "instr 1", "endin", "</CsLicence>"}, {"1-4"});
}

void tst_PieceBodies::comment_ofManyLines_isLookedAtInPart()
{
    const PieceOfLines of(QByteArray("; a\n").repeated(5000), DocumentRole::Orchestra);
    QCOMPARE(lastLineOfBlock(of.piece, of.text(), 1), 2001);
    QCOMPARE(lastLineOfBlock(of.piece, of.text(), 2), 0);
}

void tst_PieceBodies::around_isTheInnermost()
{
    const PieceOfLines of(joined(NestedOrchestra), DocumentRole::Orchestra);
    const QStringList expected = {"",     "2-3",  "2-3",  "4-12", "5-6", "5-6",   "7-11",  "8-10",
                                  "8-10", "8-10", "7-11", "4-12", "",    "14-16", "14-16", "14-16"};
    for (int line = 1; line <= expected.size(); ++line)
        QCOMPARE(QStringLiteral("%1: %2").arg(line).arg(around(of, line)),
                 QStringLiteral("%1: %2").arg(line).arg(expected[line - 1]));
}

void tst_PieceBodies::around_aUnifiedFile()
{
    const PieceOfLines of(joined(UnifiedFile));
    const QStringList expected = {"1-18",  "2-4",   "2-4",   "2-4",   "5-8",   "6-7",
                                  "6-7",   "5-8",   "9-17",  "10-11", "10-11", "9-17",
                                  "13-15", "13-15", "13-15", "9-17",  "9-17",  "1-18"};
    for (int line = 1; line <= expected.size(); ++line)
        QCOMPARE(QStringLiteral("%1: %2").arg(line).arg(around(of, line)),
                 QStringLiteral("%1: %2").arg(line).arg(expected[line - 1]));
}

void tst_PieceBodies::around_nothing_isEmpty()
{
    QVERIFY(around(PieceOfLines("", DocumentRole::Orchestra), 1).isEmpty());
    QVERIFY(around(PieceOfLines("a\nb", DocumentRole::Score), 2).isEmpty());
    QVERIFY(around(PieceOfLines("a\nb"), 1).isEmpty());
}

void tst_PieceBodies::outer_ofAnOrchestra()
{
    QCOMPARE(outer(PieceOfLines(joined(NestedOrchestra), DocumentRole::Orchestra)),
             QStringList({"2-3", "4-12", "14-16"}));
    QCOMPARE(outer(PieceOfLines("a\n; b\n; c", DocumentRole::Orchestra)), QStringList("2-3"));
    QCOMPARE(outer(PieceOfLines("", DocumentRole::Orchestra)), QStringList());
}

void tst_PieceBodies::outer_ofAScore()
{
    QCOMPARE(outer(PieceOfLines("{ 2 N\ni 1 0 1\n}\ns\n; a\n; b\ni 1 0 1\n", DocumentRole::Score)),
             QStringList({"1-4", "5-6"}));
    QCOMPARE(outer(PieceOfLines("i 1 0 1\ns", DocumentRole::Score)), QStringList("1-2"));
}

void tst_PieceBodies::outer_ofAUnifiedFile()
{
    QCOMPARE(outer(PieceOfLines(joined(UnifiedFile))), QStringList({"6-7", "10-11", "13-15"}));
}

void tst_PieceBodies::body_atALine()
{
    const PieceOfLines of(joined(NestedOrchestra), DocumentRole::Orchestra);
    QCOMPARE(body(of, 3), QString());
    for (int line = 4; line <= 12; ++line)
        QCOMPARE(body(of, line), QStringLiteral("4-12 1, Bell"));
    QCOMPARE(body(of, 13), QString());
    QCOMPARE(bodyAt(of.piece, of.text(), 9)->kind, LandmarkKind::Instrument);
    QCOMPARE(bodyAt(of.piece, of.text(), 9)->headingLine, 4);
}

void tst_PieceBodies::body_ofAnOpcode_hasItsName()
{
    const PieceOfLines of(joined(NestedOrchestra), DocumentRole::Orchestra);
    QCOMPARE(body(of, 15), QStringLiteral("14-16 two"));
    QCOMPARE(bodyAt(of.piece, of.text(), 15)->kind, LandmarkKind::Opcode);
}

void tst_PieceBodies::body_withoutAnEnd_endsBeforeTheNext()
{
    const PieceOfLines of("<CsInstruments>\ninstr 1\n\ninstr 2\n\n</CsInstruments>\n");
    QCOMPARE(body(of, 3), QStringLiteral("2-3 1"));
    QCOMPARE(body(of, 5), QStringLiteral("4-5 2"));
    QCOMPARE(body(of, 6), QString());
    QCOMPARE(body(PieceOfLines("instr 7\n\n", DocumentRole::Orchestra), 3),
             QStringLiteral("1-3 7"));
}

ARDIPHON_TEST(tst_PieceBodies, NoApplication)
#include "tst_PieceBodies.moc"
