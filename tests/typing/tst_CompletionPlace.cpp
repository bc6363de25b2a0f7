#include "piece/MarkedPiece.h"
#include "support/TestMain.h"
#include "typing/CompletionPlace.h"

#include <QTest>

using namespace ardiphon;

namespace {

const char *const PlaceNames[] = {
    "nothing",          "statement", "output",      "opcode", "argument",  "value",  "label",
    "instrument",       "channel",   "gen",         "text",   "directive", "macro",  "score",
    "score-instrument", "score-gen", "score-label", "file",   "tag",       "option", "document",
};

/// As "argument oscili 2 'kf|req' left=a open=(".
QString described(const MarkedPiece &piece)
{
    const CompletionPlace place =
        completionPlace(piece.piece, piece.text(), piece.caretLine, piece.caretColumn);
    QString text = QLatin1String(PlaceNames[int(place.kind)]);
    if (!place.isSomething())
        return text;
    if (!place.opcode.isEmpty())
        text += QStringLiteral(" %1 %2").arg(QString::fromUtf8(place.opcode)).arg(place.argument);
    const QString line = QString::fromUtf8(piece.text().line(piece.caretLine).toByteArray());
    const int typed = int(place.typed.size());
    text += QStringLiteral(" '%1|%2'")
                .arg(line.mid(place.start, typed),
                     line.mid(place.start + typed, place.end - place.start - typed));
    if (line.mid(place.start, typed) != place.typed || place.start + typed != piece.caretColumn)
        text += QStringLiteral(" WRONG %1").arg(place.typed);
    if (!place.left.isEmpty()) {
        text += QStringLiteral(" left=");
        for (const ValueType &type : place.left)
            text += (type.letter ? QString(QLatin1Char(type.letter)) : QStringLiteral("?")) +
                    (type.isArray ? QStringLiteral("[]") : QString());
    }
    if (!place.open.isEmpty())
        text += QStringLiteral(" open=") + QString::fromUtf8(place.open);
    return text;
}

} // namespace

class tst_CompletionPlace : public QObject
{
    Q_OBJECT

private slots:
    void orchestra_data();
    void orchestra();
    void score_data();
    void score();
    void file_data();
    void file();
    void statementOverLines_goesOn();
    void anyText_hasAPlace();
};

void tst_CompletionPlace::orchestra_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("place");
    const auto row = [](const char *line, const char *place) {
        QTest::newRow(line) << QString::fromUtf8(line) << QString::fromUtf8(place);
    };
    // The beginning of a statement and its left.
    row("§", "statement '|'");
    row("  os§", "statement 'os|'");
    row("o§sc", "statement 'o|sc'");
    row("here: os§", "statement 'os|'");
    row("a1, as§", "output 'as|' left=a");
    row("a1, k2, §", "output '|' left=ak");
    row("asig os§", "opcode 'os|' left=a");
    row("asig §", "opcode '|' left=a");
    row("a1, k2 di§", "opcode 'di|' left=ak");
    row("gkval po§", "opcode 'po|' left=k");
    row("kArr[] fi§", "opcode 'fi|' left=k[]");
    row("my:a os§", "opcode 'os|' left=a");
    row("other os§", "opcode 'os|' left=?");
    // Arguments.
    row("outs §", "argument outs 1 '|'");
    row("outs as§", "argument outs 1 'as|'");
    row("outs asig, as§", "argument outs 2 'as|'");
    row("asig oscili 0.5, kf§req", "argument oscili 2 'kf|req' left=a");
    row("asig oscili 0.5, kf§, 1", "argument oscili 2 'kf|' left=a");
    row("asig oscili kA*am§", "argument oscili 1 'am|' left=a");
    row("asig oscili ampdb(ia§), 440", "argument ampdb 1 'ia|' left=a open=(");
    row("asig oscili (ia§", "argument oscili 1 'ia|' left=a open=(");
    row("asig oscili ampdb(-6), kf§", "argument oscili 2 'kf|' left=a");
    row("asig oscili:a(0.5, kf§", "argument oscili 2 'kf|' left=a open=(");
    row("asig = oscili:a(0.5, kf§", "argument oscili 2 'kf|' left=a open=(");
    row("outs(as§", "argument outs 1 'as|' open=(");
    row("outs(asig, as§)", "argument outs 2 'as|' open=(");
    // Other values.
    row("asig = as§", "value 'as|' left=a");
    row("asig += §", "value '|' left=a");
    row("asig = (k1 + k§", "value 'k|' left=a open=(");
    row("kval = kArr[in§", "value 'in|' left=k open=[");
    row("if kva§", "value 'kva|'");
    row("while kva§", "value 'kva|'");
    row("if kval > 1 th§", "value 'th|'");
    row("if kval > 1 then §", "statement '|'");
    row("else §", "statement '|'");
    row("a1 = x:§", "nothing");
    // Names of the piece.
    row("if k1 > 2 goto lo§", "label 'lo|'");
    row("goto lo§", "label goto 1 'lo|'");
    row("timout 0, 1, lo§", "label timout 3 'lo|'");
    row("schedule §", "instrument schedule 1 '|'");
    row("schedule \"Vo§", "instrument schedule 1 'Vo|' open=\"");
    row("schedule(\"Vo§\", 0, 1)", "instrument schedule 1 'Vo|' open=(\"");
    row("schedule 1, ki§", "argument schedule 2 'ki|'");
    row("event \"i\", \"V§", "instrument event 2 'V|' open=\"");
    row("event_i \"i\", §", "instrument event_i 2 '|'");
    row("event \"f\", §", "argument event 2 '|'");
    row("kval chnget \"am§p\"", "channel chnget 1 'am|p' left=k open=\"");
    row("chnset k1, \"am§", "channel chnset 2 'am|' open=\"");
    row("giS ftgen 1, 0, 1024, 1§", "gen ftgen 4 '1|' left=i");
    row("giS ftgen 1, 0, 1024, GE§", "gen ftgen 4 'GE|' left=i");
    row("giS ftgen 1, 0, 10§", "argument ftgen 3 '10|' left=i");
    // Text.
    row("asig diskin2 \"dr§um.wav\"", "text diskin2 1 'dr|um.wav' left=a open=\"");
    row("asig diskin2 \"dr§", "text diskin2 1 'dr|' left=a open=\"");
    row("asig diskin2 \"a b.w§", "text diskin2 1 'a b.w|' left=a open=\"");
    row("Sx = \"no§", "nothing");
    row("asig diskin2 \"drum.wav\", os§", "argument diskin2 2 'os|' left=a");
    row("#include \"ud§o.txt\"", "file 'ud|o.txt' open=\"");
    row("puts \"a\\\"b§", "text puts 1 'a\\\"b|' open=\"");
    // Comments, headings and the preprocessor.
    row("; os§", "nothing");
    row("asig oscili 1 ; os§", "nothing");
    row("// os§", "nothing");
    row("/* os§", "nothing");
    row("/* os */ os§", "statement 'os|'");
    row("instr Vo§", "nothing");
    row("opcode Na§, a, k", "nothing");
    row("#inc§", "directive '#inc|'");
    row("#§", "directive '#|'");
    row("#include§", "directive '#include|'");
    row("#ifdef AM§", "macro 'AM|'");
    row("#define AM§", "nothing");
    row("#define X # os§", "statement 'os|'");
    row("#define X # asig os§", "opcode 'os|' left=a");
    row("k1 = $AM§P", "macro '$AM|P'");
    row("k1 = $§", "macro '$|'");
    row("k1 = {{ os§", "nothing");
    // What is around the letters does not matter.
    row("é = ou§", "value 'ou|'");
    row("prints \"é\", ko§nst", "argument prints 2 'ko|nst'");
    row("os§;comment", "statement 'os|'");
    row("12§", "statement '12|'");
}

void tst_CompletionPlace::orchestra()
{
    QFETCH(const QString, line);
    MarkedPiece piece("<CsInstruments>\ninstr 1\n" + line.toUtf8() + "\nendin\n");
    QTEST(described(piece), "place");
}

void tst_CompletionPlace::score_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("place");
    const auto row = [](const char *line, const char *place) {
        QTest::newRow(line) << QString::fromUtf8(line) << QString::fromUtf8(place);
    };
    row("§", "score '|'");
    row("  lo§", "score 'lo|'");
    row("i §", "score-instrument '|'");
    row("i 1§2 0 1", "score-instrument '1|2'");
    row("i \"Vo§ice\" 0 1", "score-instrument 'Vo|ice' open=\"");
    row("i \"Vo§", "score-instrument 'Vo|' open=\"");
    row("i Vo§", "score-instrument 'Vo|'");
    row("q §", "score-instrument '|'");
    row("i 1 0 §", "nothing");
    row("i 1 0 \"no§", "nothing");
    row("f 1 0 1024 §", "score-gen '|'");
    row("f 1 0 1024 1§", "score-gen '1|'");
    row("f1 0 1024 10 §", "nothing");
    row("f 1 0 0 1 \"dr§um.wav\"", "file 'dr|um.wav' open=\"");
    row("f 1 0 0 -1 \"§", "file '|' open=\"");
    row("f 1 0 0 10 \"dr§", "nothing");
    row("n ve§", "score-label 've|'");
    row("i 1 0 1 $AM§", "macro '$AM|'");
    row("#inc§", "directive '#inc|'");
    row("#include \"no§", "file 'no|' open=\"");
    row("; i §", "nothing");
    row("i 1 0 1 ; §", "nothing");
    row("/* i §", "nothing");
    row("t 0 60 §", "nothing");
    row("12§", "nothing");
}

void tst_CompletionPlace::score()
{
    QFETCH(const QString, line);
    MarkedPiece piece("<CsScore>\ni 1 0 1\n" + line.toUtf8() + "\ni 1 1 1\n");
    QTEST(described(piece), "place");
}

void tst_CompletionPlace::file_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("place");
    const auto row = [](const char *name, const char *text, const char *place) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(place);
    };
    row("empty", "§", "document '|'");
    row("a tag", "<Cs§", "tag '<Cs|'");
    row("an end tag", "<CsScore>\ni 1 0 1\n</Cs§Sc", "tag '</Cs|Sc'");
    row("a tag in the orchestra", "<CsInstruments>\n  </§", "tag '</|'");
    row("behind a tag", "<CsInstruments> os§", "nothing");
    row("an option", "<CsOptions>\n-o§dac -d", "option '-o|dac'");
    row("a long option", "<CsOptions>\n-d --mid§", "option '--mid|'");
    row("a comment in the options", "<CsOptions>\n-d ; -o§", "nothing");
    row("text in the options", "<CsOptions>\n-o \"my so§ng\"", "nothing");
    row("outside", "a line\nos§", "document 'os|'");
    row("outside, a second word", "a line\nan os§", "nothing");
    row("the licence", "<CsLicense>\nos§", "nothing");
    row("in a comment over lines", "<CsInstruments>\n/* one\nos§\n*/", "nothing");
    row("behind a comment over lines", "<CsInstruments>\n/* one\ntwo */ os§", "statement 'os|'");
    row("in a macro over lines", "<CsInstruments>\n#define X # one\nasig os§ #",
        "opcode 'os|' left=a");
    row("in {{ }}", "<CsInstruments>\nscoreline_i {{\ni 1§\n}}", "nothing");
    row("names of an instrument", "<CsInstruments>\ninstr 1,\n Vo§", "nothing");
}

void tst_CompletionPlace::file()
{
    QFETCH(const QString, text);
    QTEST(described(MarkedPiece(text.toUtf8())), "place");
}

void tst_CompletionPlace::statementOverLines_goesOn()
{
    QCOMPARE(described(MarkedPiece("<CsInstruments>\nasig oscili 0.5, \\ ; the level\n  kf§")),
             QStringLiteral("argument oscili 2 'kf|' left=a"));
    QCOMPARE(described(MarkedPiece("<CsInstruments>\nouts a1,\n  a§")),
             QStringLiteral("argument outs 2 'a|'"));
}

/// Any bytes, at any column.
void tst_CompletionPlace::anyText_hasAPlace()
{
    const QByteArrayList texts = {"",
                                  "\"",
                                  "\"\"\"",
                                  "((((",
                                  "))))",
                                  "a,,,,b",
                                  "$",
                                  "#",
                                  "$$$",
                                  "#define",
                                  "#define X #",
                                  "#define X(a #",
                                  "a[",
                                  "a[b[c",
                                  "{{",
                                  "R\"(",
                                  "/*",
                                  "\\",
                                  "a \\",
                                  "instr",
                                  "\xff\xfe\x80",
                                  "\xe2\x82",
                                  QByteArray(5000, '('),
                                  QByteArray(20000, 'a'),
                                  QByteArray(4096, '"'),
                                  "i",
                                  "i\"",
                                  "f 1 0 0 -1 \"",
                                  "<",
                                  "</",
                                  "<<<>>>",
                                  "if",
                                  "if goto",
                                  "goto",
                                  ":",
                                  "a:",
                                  "a:b:c:"};
    for (const QByteArray &line : texts) {
        for (const char *const section :
             {"<CsInstruments>\n", "<CsScore>\n", "<CsOptions>\n", ""}) {
            const PieceOfLines piece(QByteArray(section) + line);
            const int last = piece.text().lineCount();
            for (int column = 0; column <= std::min<int>(int(line.size()) + 1, 40); ++column) {
                const CompletionPlace place =
                    completionPlace(piece.piece, piece.text(), last, column);
                QVERIFY(place.start <= place.end);
                QVERIFY(!place.isSomething() || place.start + place.typed.size() <= place.end);
            }
            QVERIFY(!completionPlace(piece.piece, piece.text(), last + 1, 0).isSomething());
            QVERIFY(!completionPlace(piece.piece, piece.text(), 0, 0).isSomething());
        }
    }
}

ARDIPHON_TEST(tst_CompletionPlace, NoApplication)
#include "tst_CompletionPlace.moc"
