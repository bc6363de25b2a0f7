#include "piece/PieceLines.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QTest>

using namespace ardiphon;

class tst_PieceText : public QObject
{
    Q_OBJECT

private slots:
    void sections_ofAUnifiedFile();
    void score_landmarks();
    void score_tablesThatAreNone();
    void read_inSlices_isTheSame();
    void edits_areReadAsANewText();
    void edit_aComment_changesAllBelow();
    void edit_oneLine_readsFewLines();
    void visit_fromLineToLine_bothWays();
    void visit_someKinds_givesThemAlone();
    void longLines_areReadAFewAtATime();
    void played_givesTheLinesThatMay();
};

namespace {

const QList<QByteArray> Lines = {
    "",
    "instr 1",
    "instr 2, Bell ; a comment",
    "endin",
    "opcode foo, i, k",
    "endop",
    "kx = p4",
    "ax oscili 1, 2",
    "/*",
    "*/",
    "prints {{",
    "}}",
    "#define A #",
    "#",
    "if kx > 1 then",
    "endif",
    "<CsInstruments>",
    "</CsInstruments>",
    "<CsScore>",
    "</CsScore>",
    "i 1 0 1",
    "f 1 0 8 10 1",
    "s",
    "{ 3 N",
    "}",
    "instr 1,",
    " 3, 4",
    "#include \"a\"",
    "\xff\xfe",
};

/// What the text says, without what an edit may count in another block.
QStringList distinct(const PieceOfLines &of)
{
    QStringList all = describedLandmarks(of);
    all.removeIf([](const QString &mark) {
        return mark.contains(QLatin1String(" var ")) || mark.contains(QLatin1String(" p "));
    });
    return all;
}

QByteArrayList randomLines(QRandomGenerator &random, int most)
{
    QByteArrayList lines;
    for (int left = int(random.bounded(most + 1)); left > 0; --left)
        lines.append(Lines[random.bounded(Lines.size())]);
    return lines;
}

} // namespace

void tst_PieceText::sections_ofAUnifiedFile()
{
    const PieceOfLines of("instr 9\n<CsoundSynthesizer>\n <CsOptions>\n-d\n</CsOptions>\n"
                          "<CsInstruments>\ninstr 1\n/*\n</CsInstruments>\n<CsScore> \ns\ninstr 2\n"
                          "<CsLicence>\ninstr 3\n</CsLicence>\n</CsoundSynthesizer>");
    QCOMPARE(
        describedLandmarks(of),
        QStringList({"2 tag CsoundSynthesizer", "3 tag CsOptions 1", "5 end-tag CsOptions",
                     "6 tag CsInstruments 2", "7 instr 1", "8 begin /* 3",
                     "9 end-tag CsInstruments", "10 tag CsScore 3", "11 s s", "13 tag CsLicence 5",
                     "15 end-tag CsLicence", "16 end-tag CsoundSynthesizer"}));
    QCOMPARE(of.text().stateAt(9).code, CodeState::BlockComment);
    QCOMPARE(of.text().stateAt(10), PieceState());
    QCOMPARE(of.text().stateAt(12).section, PieceSection::Score);
}

void tst_PieceText::score_landmarks()
{
    const PieceOfLines of(
        "f1 0 8 10 1\nf 2 0 0 1 \"a.wav\" 0\ni1 0 1\ns ; two\n{ 3 N\ni 1 0 $N\n}\n"
        "#define X(A'B) #\ni 3 0 1\n#\n;;; Coda\n#include \"b\"\n/*\ns\n*/\ne",
        DocumentRole::Score);
    QCOMPARE(describedLandmarks(of),
             QStringList({"1 table 1", "2 table 2", "2 file a.wav", "4 s s", "5 begin { 4",
                          "7 end } 4", "8 macro X 2", "10 macro-end ", "11 title Coda",
                          "12 include b", "13 begin  3", "15 end  3"}));
}

void tst_PieceText::score_tablesThatAreNone()
{
    const PieceOfLines of("f 0 9.5\nf0 9\nf -1 0\nf [1] 0 8 10 1\nf $N 0 8 10 1\nf 2 0 8 10 1\nf\n",
                          DocumentRole::Score);
    QCOMPARE(describedLandmarks(of), QStringList({"4 table [1]", "5 table $N", "6 table 2"}));
}

void tst_PieceText::read_inSlices_isTheSame()
{
    QRandomGenerator random(randomSeed(11));
    const QByteArray text = randomLines(random, 4000).join('\n');
    PieceOfLines whole(text);
    PieceTextLines lines(text);
    Piece piece({{DocumentRole::Csd, &lines}}, isTestOpcode);
    int slices = 0;
    while (!piece.readOn(QDeadlineTimer(0)))
        ++slices;
    QCOMPARE(slices, (whole.text().lineCount() - 1) / 64);
    QVERIFY(piece.isRead());
}

void tst_PieceText::edits_areReadAsANewText()
{
    QRandomGenerator random(randomSeed(12));
    PieceOfLines of(randomLines(random, 900).join('\n'));
    for (int edit = 0; edit < 20000; ++edit) {
        const int line = 1 + int(random.bounded(of.lines.lineCount()));
        const int most = random.bounded(40) == 0 ? 600 : 3;
        int removed = int(random.bounded(most)) % (of.lines.lineCount() - line + 1);
        QByteArrayList added = randomLines(random, of.lines.lineCount() > 1500 ? 0 : most);
        if (removed == of.lines.lineCount() && added.isEmpty())
            added.append(QByteArray());
        if (random.bounded(50) == 0)
            added.append(QByteArray(5000, ';'));
        of.piece.change(DocumentRole::Csd, of.lines.replace(line, removed, added));
        if (random.bounded(3) == 0)
            of.piece.readOn(QDeadlineTimer(0));
        if (edit % 100 != 99)
            continue;
        of.piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
        const PieceOfLines afresh(of.lines.lines.join('\n'));
        QCOMPARE(of.text().lineCount(), of.lines.lineCount());
        QCOMPARE(distinct(of), distinct(afresh));
        const int some = 1 + int(random.bounded(of.lines.lineCount()));
        QCOMPARE(of.text().stateAt(some), afresh.text().stateAt(some));
    }
}

void tst_PieceText::edit_aComment_changesAllBelow()
{
    PieceOfLines of(QByteArray("\ninstr 1\nendin").repeated(500), DocumentRole::Orchestra);
    QCOMPARE(describedLandmarks(of).size(), 1000);
    of.piece.change(DocumentRole::Orchestra, of.lines.replace(1, 1, {"/*"}));
    QVERIFY(!of.piece.isRead());
    of.piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    QCOMPARE(describedLandmarks(of), QStringList("1 begin /* 3"));
    of.piece.change(DocumentRole::Orchestra, of.lines.replace(1, 1, {""}));
    of.piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    QCOMPARE(describedLandmarks(of).size(), 1000);
}

void tst_PieceText::edit_oneLine_readsFewLines()
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
    Piece piece({{DocumentRole::Score, &lines}}, isTestOpcode);
    piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    QCOMPARE(lines.read, lines.lineCount());
    lines.read = 0;
    piece.change(DocumentRole::Score, lines.replace(50000, 1, {"i 2 0 1"}));
    QCOMPARE(lines.read, 0);
    piece.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    QVERIFY2(lines.read <= 128, qPrintable(QString::number(lines.read)));
    QVERIFY(piece.memory() < 24 * lines.lineCount());
}

void tst_PieceText::visit_fromLineToLine_bothWays()
{
    const PieceOfLines of(QByteArray("instr 1\n").repeated(1000), DocumentRole::Orchestra);
    QList<int> down, up;
    of.text().visit(128, 131, [&](PlacedLandmark found) {
        down.append(found.line);
        return true;
    });
    of.text().visitBack(131, [&](PlacedLandmark found) {
        up.append(found.line);
        return found.line > 128;
    });
    QCOMPARE(down, QList({128, 129, 130, 131}));
    QCOMPARE(up, QList({131, 130, 129, 128}));
}

void tst_PieceText::visit_someKinds_givesThemAlone()
{
    const PieceOfLines of(QByteArray("instr 1\nif p4 > 1 then\nendif\nendin\n").repeated(100) +
                              "instr 2\n",
                          DocumentRole::Orchestra);
    QList<int> lines;
    const LandmarkKinds kinds = kindsOf(LandmarkKind::BlockEnd, LandmarkKind::Instrument);
    of.text().visit(190, 200, kinds, [&](PlacedLandmark found) {
        lines.append(found.line);
        return true;
    });
    QCOMPARE(lines, QList({191, 193, 195, 197, 199}));
    lines.clear();
    of.text().visit(3, 401, kindsOf(LandmarkKind::Macro), [&](PlacedLandmark found) {
        lines.append(found.line);
        return true;
    });
    QCOMPARE(lines, QList<int>());
}

void tst_PieceText::longLines_areReadAFewAtATime()
{
    PieceTextLines lines((QByteArray("p4 + ").repeated(1000) + '\n').repeated(100));
    Piece piece({{DocumentRole::Orchestra, &lines}}, isTestOpcode);
    int slices = 1;
    while (!piece.readOn(QDeadlineTimer(0)))
        ++slices;
    QCOMPARE(slices, 50 + 1); // of two lines each, and the empty one
    piece.change(DocumentRole::Orchestra, lines.replace(40, 1, {"#include \"a\""}));
    slices = 1;
    while (!piece.readOn(QDeadlineTimer(0)))
        ++slices;
    QVERIFY2(slices <= 4, qPrintable(QString::number(slices)));
    int found = 0;
    piece.text(DocumentRole::Orchestra)->visit(1, 101, [&](PlacedLandmark mark) {
        found = mark.mark->kind == LandmarkKind::Include ? mark.line : found;
        return true;
    });
    QCOMPARE(found, 40);
}

void tst_PieceText::played_givesTheLinesThatMay()
{
    QByteArray text = QByteArray("i 1 0 1\n").repeated(1000);
    text += "i \"Bell\" 0 1\n" + QByteArray("i 1 0 1\n").repeated(999);
    const PieceOfLines of(text, DocumentRole::Score);
    QList<int> ranges;
    const auto note = [&](int first, int last) {
        ranges.append({first, last});
        return true;
    };
    of.text().visitPlayed("Bell", 1, note);
    QCOMPARE(ranges.size(), 2);
    QVERIFY(ranges[0] <= 1001 && ranges[1] >= 1001 && ranges[1] - ranges[0] < 256);
    ranges.clear();
    of.text().visitPlayed("3", 1, note);
    QCOMPARE(ranges, QList<int>());
}

ARDIPHON_TEST(tst_PieceText, NoApplication)
#include "tst_PieceText.moc"
