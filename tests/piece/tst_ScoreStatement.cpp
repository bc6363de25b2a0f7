#include "piece/ScoreStatement.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

using namespace ardiphon;

namespace {

QByteArray described(const ScoreDirective &directive, QByteArrayView line)
{
    QByteArray text =
        directive.word.in(line).toByteArray() + ' ' + directive.name.in(line).toByteArray();
    for (const ScoreRange &argument : directive.arguments)
        text.append(',').append(argument.in(line));
    return text + '=' + directive.text.in(line).toByteArray();
}

/// "i at 0: 1 | 0 | [1 + 2]; #define A,x=body": what is read of a line.
QByteArray described(const ScoreStatement &statement, QByteArrayView line)
{
    QByteArray text;
    if (statement.letter)
        text =
            QByteArray(1, statement.letter) + " at " + QByteArray::number(statement.letterAt) + ':';
    for (const ScoreRange &field : statement.fields)
        text.append(" |").append(field.in(line));
    for (const ScoreDirective &directive : statement.directives)
        text += "; " + described(directive, line);
    return text;
}

QByteArray readLine(QByteArrayView line, CodeState state = CodeState::Code)
{
    return described(readScoreLine(line, state), line);
}

} // namespace

class tst_ScoreStatement : public QObject
{
    Q_OBJECT

private slots:
    void line_givesStatement_data();
    void line_givesStatement();
    void lines_leaveOpenWhatTheyBegan_data();
    void lines_leaveOpenWhatTheyBegan();
    void instrumentOf_numberOrName_data();
    void instrumentOf_numberOrName();
    void statements_areThoseOfTheLanguage();
    void manyFields_areToldUpToABound();
    void randomBytes_stayInsideTheLine();
};

void tst_ScoreStatement::line_givesStatement_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("read");
    const auto row = [](const char *name, const char *line, const char *read) {
        QTest::newRow(name) << QByteArray(line) << QByteArray(read);
    };
    row("empty", "", "");
    row("blanks", " \t ", "");
    row("note", "i1 0 1 440 0.5", "i at 0: |1 |0 |1 |440 |0.5");
    row("blanks around", "  i  1\t0 1  ", "i at 2: |1 |0 |1");
    row("no blank before p1", "f1 0 8 10 1", "f at 0: |1 |0 |8 |10 |1");
    row("letter alone", "e", "e at 0:");
    row("carried", "i . + ^+1 ^-.5 ! < ( ) ~ np4", "i at 0: |. |+ |^+1 |^-.5 |! |< |( |) |~ |np4");
    row("name", "i \"Bell\" 0 1", "i at 0: |\"Bell\" |0 |1");
    row("names without blanks", "i\"a\"0\"b\"", "i at 0: |\"a\" |0 |\"b\"");
    row("string with signs", "i1 0 1 \"a ; b // [ \\\" $X\" 5",
        "i at 0: |1 |0 |1 |\"a ; b // [ \\\" $X\" |5");
    row("string without its end", "i1 0 1 \"a b", "i at 0: |1 |0 |1 |\"a b");
    row("expression", "i1 [ 1 + (2*3) ] [~]5", "i at 0: |1 |[ 1 + (2*3) ] |[~] |5");
    row("expression in an expression", "i1 [1+[2 * 3]] 4", "i at 0: |1 |[1+[2 * 3]] |4");
    row("expression without its end", "i1 [1 + 2 ; c", "i at 0: |1 |[1 + 2 ");
    row("semicolon", "i1 0 1; a 5", "i at 0: |1 |0 |1");
    row("two slashes", "i1 0 1// a 5", "i at 0: |1 |0 |1");
    row("one slash", "i1 0 1/2 3", "i at 0: |1 |0 |1/2 |3");
    row("comment line", "// i1 0 1", "");
    row("c comment", "c i1 0 1 /* open", "");
    row("block comment", "i1 /* 5 */ 0/**/1", "i at 0: |1 |0 |1");
    row("block comment first", "/* i2 */ i1 0", "i at 9: |1 |0");
    row("fields of the line above", " 440 < \"a\"", " |440 |< |\"a\"");
    row("string of the line above", "\"a b\" 5", " |\"a b\" |5");
    row("macro as statement", "$NOTE.(1'2 3) 4", "$ at 0: |$NOTE.(1'2 3) |4");
    row("macros as fields", "i$A.2 $B $C(1'(2 3)'4)x 5", "i at 0: |$A.2 |$B |$C(1'(2 3)'4)x |5");
    row("macro without its end", "i1 $C(1 2", "i at 0: |1 |$C(1 2");
    row("loop", "{ 4 CNT", "{ at 0: |4 |CNT");
    row("loop's end", "}", "} at 0:");
    row("repeat", "r3 CNT", "r at 0: |3 |CNT");
    row("mark", "m foo", "m at 0: |foo");
    row("unknown letter", "g1 2", "g at 0: |1 |2");
    row("define", "#define A #1 2#", "; #define A=1 2");
    row("define with arguments", " # define M ( a ' b'c ) #$a.#", "; # define M,a,b,c=$a.");
    row("define and note", "#define A#5# i1 0 $A", "i at 13: |1 |0 |$A; #define A=5");
    row("note and define", "i1 0 1 #define A #5#", "i at 0: |1 |0 |1; #define A=5");
    row("two defines", "#define A #1# #define B #2#", "; #define A=1; #define B=2");
    row("define without text", "#define A", "; #define A=");
    row("define with a comment", "#define A ; #1#", "; #define A=");
    row("define with a block comment", "#define A /* # */ #1#", "; #define A=1");
    row("undef", "#undef A ; c", "; #undef A=");
    row("include", "#include \"a b.sco\" i1 0", "i at 19: |1 |0; #include a b.sco=");
    row("include with other quotes", "#include :a:", "; #include a=");
    row("include without its end", "#include \"a", "; #include a=");
    row("include of nothing", "#include", "; #include =");
    row("branches", "#ifdef A", "; #ifdef A=");
    row("branch not", "#ifndef A", "; #ifndef A=");
    row("branch else", "#else", "; #else =");
    row("branch end", "#endif", "; #endif =");
    row("text of a define above", "#i2 0 1# i1 0", "i at 9: |1 |0");
    row("other bytes", "i1 \xe9\xff 0", "i at 0: |1 |\xe9\xff |0");
}

void tst_ScoreStatement::line_givesStatement()
{
    QFETCH(QByteArray, line);
    QTEST(readLine(line), "read");
}

void tst_ScoreStatement::lines_leaveOpenWhatTheyBegan_data()
{
    QTest::addColumn<QByteArrayList>("lines");
    QTest::addColumn<QByteArrayList>("read");
    QTest::addColumn<QList<CodeState>>("states");
    using State = CodeState;
    QTest::newRow("comment") << QByteArrayList{"i1 0 /* 1", "i2 0 1", "*/ 5", "i3"}
                             << QByteArrayList{"i at 0: |1 |0", "", " |5", "i at 0: |3"}
                             << QList{State::BlockComment, State::BlockComment, State::Code,
                                      State::Code};
    QTest::newRow("comment ends and begins")
        << QByteArrayList{"/*", "*/ i1 /*", "/*/"} << QByteArrayList{"", "i at 3: |1", ""}
        << QList{State::BlockComment, State::BlockComment, State::Code};
    QTest::newRow("/*/ is no end")
        << QByteArrayList{"/*/ i1", "*/i2"} << QByteArrayList{"", "i at 2: |2"}
        << QList{State::BlockComment, State::Code};
    QTest::newRow("define") << QByteArrayList{"#define A #i1 0", "i2 0 ; */", "i3 # i4 0", "i5"}
                            << QByteArrayList{"; #define A=i1 0", "", "i at 5: |4 |0", "i at 0: |5"}
                            << QList{State::Macro, State::Macro, State::Code, State::Code};
    QTest::newRow("text on the next line")
        << QByteArrayList{"#define A", "#i1 0", "i2 0#", "i3"}
        << QByteArrayList{"; #define A=", "", "", "i at 0: |3"}
        << QList{State::Code, State::Macro, State::Code, State::Code};
    QTest::newRow("states of the orchestra")
        << QByteArrayList{"i1"} << QByteArrayList{"i at 0: |1"} << QList{State::Code};
}

void tst_ScoreStatement::lines_leaveOpenWhatTheyBegan()
{
    QFETCH(QByteArrayList, lines);
    QFETCH(QByteArrayList, read);
    QFETCH(QList<CodeState>, states);
    const bool isOfTheOrchestra = lines.size() == 1;
    CodeState state = isOfTheOrchestra ? CodeState::Braces : CodeState::Code;
    for (int i = 0; i < lines.size(); ++i) {
        QCOMPARE(described(readScoreLine(lines[i], state), lines[i]), read[i]);
        QCOMPARE(state, states[i]);
    }
}

void tst_ScoreStatement::instrumentOf_numberOrName_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("instrument");
    const auto row = [](const char *field, const char *instrument) {
        QTest::newRow(field) << QByteArray(field) << QByteArray(instrument);
    };
    row("1", "1");
    row("17.35", "17");
    row("+2", "2");
    row("-3.1", "off 3");
    row("0", "0");
    row("2147483647", "2147483647");
    row("2147483648", "none");
    row("\"Bell\"", "Bell");
    row("\"-Bell\"", "off Bell");
    row("\"Bell.12\"", "Bell");
    row("\"Bell", "Bell");
    row("\"", "none");
    row("\"\"", "none");
    row("\"-\"", "none");
    row("", "none");
    row(".", "none");
    row("-", "none");
    row("-.", "none");
    row("$A", "none");
    row("1$A", "none");
    row("[1]", "none");
    row("Bell", "none");
}

void tst_ScoreStatement::instrumentOf_numberOrName()
{
    QFETCH(QByteArray, field);
    const std::optional<ScoreInstrument> read = instrumentOf(field);
    QByteArray text = read ? (read->turnsOff ? "off " : "") : "none";
    if (read)
        text += read->name.isEmpty() ? QByteArray::number(read->number) : read->name.toByteArray();
    QTEST(text, "instrument");
}

void tst_ScoreStatement::statements_areThoseOfTheLanguage()
{
    QByteArray known;
    for (int c = 0; c < 256; ++c)
        if (isScoreStatement(char(c)))
            known += char(c);
    QCOMPARE(known, QByteArray("BCabdefimnqrstvxy{}"));
}

void tst_ScoreStatement::manyFields_areToldUpToABound()
{
    CodeState state = CodeState::Code;
    const QByteArray line = "f1" + QByteArray(" 1").repeated(1'000'000) + " /*";
    const ScoreStatement statement = readScoreLine(line, state);
    QCOMPARE(statement.fields.size(), ScoreStatement::MostFields);
    QCOMPARE(state, CodeState::BlockComment);
}

void tst_ScoreStatement::randomBytes_stayInsideTheLine()
{
    QRandomGenerator random(randomSeed(20));
    const QByteArray often = "i1 .+\"[]()$#;/*{}\\'~!ef\t#define#include";
    CodeState state = CodeState::Code;
    for (int run = 0; run < 20'000; ++run) {
        QByteArray line(random.bounded(40), Qt::Uninitialized);
        for (char &c : line)
            c = random.bounded(8) ? often[random.bounded(int(often.size()))]
                                  : char(random.bounded(256));
        // A copy of just its bytes, so that a reader that goes past them is caught.
        const std::unique_ptr<char[]> bytes(new char[size_t(line.size())]);
        std::copy(line.cbegin(), line.cend(), bytes.get());
        const ScoreStatement statement = readScoreLine({bytes.get(), line.size()}, state);
        int at = 0;
        for (const ScoreRange &field : statement.fields) {
            QVERIFY(field.start >= at && field.length > 0);
            at = field.start + field.length;
        }
        QVERIFY(at <= line.size());
        for (const ScoreDirective &directive : statement.directives) {
            for (const ScoreRange &range : {directive.word, directive.name, directive.text})
                QVERIFY(range.start >= 0 && range.length >= 0 &&
                        range.start + range.length <= line.size());
        }
        QVERIFY(state == CodeState::Code || state == CodeState::BlockComment ||
                state == CodeState::Macro);
    }
}

ARDIPHON_TEST(tst_ScoreStatement, NoApplication)
#include "tst_ScoreStatement.moc"
