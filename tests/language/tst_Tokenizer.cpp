// The token rules, the state over lines, and the word at a column.

#include "language/Tokenizer.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QTest>

using namespace ardiphon;

class tst_Tokenizer : public QObject
{
    Q_OBJECT

private slots:
    void tokenizeLine_oneLine_givesTokens_data();
    void tokenizeLine_oneLine_givesTokens();
    void tokenizeLine_blockComment_goesOnOverLines();
    void tokenizeLine_unicodeLetters_areLetters();
    void stateBehind_randomText_isAsTokenized();
    void stateInside_lineCutAtABoundary_hasTheSameTokens();
    void boundaryInside_longToken_isCut();
    void wordAt_column_givesWord_data();
    void wordAt_column_givesWord();
    void wordAt_inBlockComment_isEmpty();
};

namespace {

QString describe(QByteArrayView line, LineState state = LineState::Text)
{
    QStringList parts;
    for (const Token &token : tokenizeLine(line, state)) {
        const QString text = QString::fromUtf8(line.sliced(token.start, token.length));
        const char kind = token.comment                       ? 'c'
                          : token.kind == TokenKind::Word     ? 'w'
                          : token.kind == TokenKind::Quoted   ? 'q'
                          : token.kind == TokenKind::Operator ? 'o'
                                                              : 'x';
        parts.append(QLatin1Char(kind) + text);
    }
    return parts.join(u'|');
}

} // namespace

void tst_Tokenizer::tokenizeLine_oneLine_givesTokens_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("tokens");
    const auto row = [](const char *name, const char *line, const char *tokens) {
        QTest::newRow(name) << QByteArray(line) << QString::fromUtf8(tokens);
    };
    row("empty", "", "");
    row("blanks", " \t ", "");
    row("opcode line", "a1 oscil 10000, 440", "wa1|woscil|x10000|o,|x440");
    row("operators", "=()*+-,^", "o=|o(|o)|o*|o+|o-|o,|o^");
    row("other signs", "<>[]{}|&!%:/\\.@?'", "x<|x>|x[|x]|x{|x}|x||x&|x!|x%|x:|x/|x\\|x.|x@|x?|x'");
    row("quoted", "\"piece.wav\" x", "q\"piece.wav\"|wx");
    row("quoted to the line's end", "x \"piece ; 1", "wx|q\"piece ; 1");
    row("quoted empty", "\"\"\"\"", "q\"\"|q\"\"");
    row("macro in quotes", "\"$M.\"", "q\"$M.\"");
    row("line comment", "i1 ; \"no\" /* no", "wi1|c; \"no\" /* no");
    row("block comment", "a/* b */c", "wa|c/* b */|wc");
    row("block comment that overlaps", "/*/ a */ b", "c/*/ a */|wb");
    row("block comment to the end", "a /* b", "wa|c/* b");
    row("star and slash alone", "a */ b", "wa|o*|x/|wb");
    row("number that starts a name", "0dbfs = 1", "x0dbfs|o=|x1");
    row("numbers", "1.5 2e3 0x1F", "x1|x.|x5|x2e3|x0x1F");
    row("names", "_a #define a_1 gk1", "w_a|w#define|wa_1|wgk1");
    row("macro with its point", "$AMP.+1", "w$AMP.|o+|x1");
    row("macro with two points", "$AMP..", "w$AMP.|x.");
    row("name with a point", "amp.", "wamp|x.");
    row("signs inside names", "a$b#c", "wa|w$b|w#c");
    row("signs alone", "$ # $.", "w$|w#|w$.");
    row("tags", "<CsOptions></CsOptions>", "w<CsOptions>|w</CsOptions>");
    row("no tag without letters", "<> </>", "x<|x>|x<|x/|x>");
    row("no tag with digits", "<Cs1>", "x<|wCs1|x>");
    row("no tag with blanks", "<Cs >", "x<|wCs|x>");
    row("comparison", "a<b", "wa|x<|wb");
    row("control character", "a\x01z", "wa|x\x01|wz");
}

void tst_Tokenizer::tokenizeLine_oneLine_givesTokens()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, tokens);
    QCOMPARE(describe(line), tokens);
}

void tst_Tokenizer::tokenizeLine_blockComment_goesOnOverLines()
{
    LineState state = LineState::Text;
    tokenizeLine("a /* b", state);
    QCOMPARE(state, LineState::BlockComment);
    QCOMPARE(describe("i1 ; \"x", state), "ci1 ; \"x");
    tokenizeLine("i1 ; \"x", state);
    QCOMPARE(state, LineState::BlockComment);
    QCOMPARE(describe("c */ d", state), "cc */|wd");
    tokenizeLine("c */ d", state);
    QCOMPARE(state, LineState::Text);
    QCOMPARE(describe("", LineState::BlockComment), "c");
}

void tst_Tokenizer::tokenizeLine_unicodeLetters_areLetters()
{
    QCOMPARE(describe("perché = già1 €"), QString::fromUtf8("wperché|o=|wgià1|x€"));
    QCOMPARE(describe("<Größe>"), QString::fromUtf8("w<Größe>"));
    QCOMPARE(describe("a\xC2\xA0"
                      "b"),
             "wa|wb"); // a no-break space separates
}

void tst_Tokenizer::stateBehind_randomText_isAsTokenized()
{
    QRandomGenerator random(randomSeed(7));
    constexpr char alphabet[] = "ab\"\";;//**\r\n\n \\";
    for (int round = 0; round < 20000; ++round) {
        QByteArray text;
        for (int i = random.bounded(40); i > 0; --i)
            text.append(alphabet[random.bounded(int(sizeof alphabet) - 1)]);
        const LineState before = random.bounded(2) ? LineState::Text : LineState::BlockComment;
        LineState expected = before;
        QByteArray lines = text;
        lines.replace("\r\n", "\n").replace('\r', '\n');
        for (const QByteArray &line : lines.split('\n'))
            tokenizeLine(line, expected);
        QVERIFY2(stateBehind(text, before) == expected, text.toPercentEncoding().constData());
    }
}

void tst_Tokenizer::stateInside_lineCutAtABoundary_hasTheSameTokens()
{
    QRandomGenerator random(randomSeed(14));
    const QByteArrayList pieces{"ab",  " ",   "\"", ";",  "/",         "*",        "/*", "*/",
                                "12x", "$M.", "-,", "= ", "<CsScore>", "\xC3\xA8", "()", "\t"};
    for (int round = 0; round < 20000; ++round) {
        QByteArray line;
        for (int i = random.bounded(30); i >= 0; --i)
            line += pieces[random.bounded(pieces.size())];
        const LineState before = random.bounded(2) ? LineState::Text : LineState::BlockComment;
        LineState state = before;
        const QList<Token> whole = tokenizeLine(line, state);
        const qsizetype cut = boundaryInside(line, 1 + random.bounded(int(line.size())));
        QVERIFY(cut > 0 && cut <= line.size());
        LineState inside = stateInside(line.first(cut), before);
        QList<Token> expected; // what of the tokens is behind the cut
        for (const Token &token : whole) {
            const qsizetype start = std::max(token.start, cut);
            if (start < token.end())
                expected.append({start - cut, token.end() - start, token.kind, token.comment});
        }
        QList<Token> tokens = tokenizeLine(QByteArrayView(line).sliced(cut), inside);
        // A comment or a quotation of which the cut leaves nothing may be given without length.
        tokens.removeIf([](const Token &token) { return token.length == 0; });
        for (QList<Token> *each : {&expected, &tokens})
            for (Token &token : *each)
                token.kind = token.comment ? TokenKind::Other : token.kind;
        QVERIFY2(tokens == expected,
                 (line.toPercentEncoding() + " cut at " + QByteArray::number(cut)).constData());
    }
}

void tst_Tokenizer::boundaryInside_longToken_isCut()
{
    QCOMPARE(boundaryInside("abc def", 1), qsizetype(4));
    QCOMPARE(boundaryInside("abcdef", 1), qsizetype(6));
    QCOMPARE(boundaryInside(QByteArray(5000, 'a') + " b", 1), qsizetype(1025));
    // Inside no character and inside no mark of a comment.
    QCOMPARE(boundaryInside("a" + QByteArray("\xC3\xA8").repeated(2000), 2), qsizetype(1027));
    QCOMPARE(boundaryInside(QByteArray(1024, 'a') + "/*" + QByteArray(5000, 'a'), 1),
             qsizetype(1027));
}

void tst_Tokenizer::wordAt_column_givesWord_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("word");
    // 0         1         2         3
    // 0123456789012345678901234567890123
    // a1 oscil "wave" <b>$M.+0dbfs ; instr
    QTest::newRow("start") << 0 << "a1";
    QTest::newRow("end of a word") << 2 << "a1";
    QTest::newRow("inside") << 5 << "oscil";
    QTest::newRow("quoted") << 11 << "";
    QTest::newRow("tag") << 17 << "<b>";
    QTest::newRow("between two words") << 19 << "$M.";
    QTest::newRow("closing point") << 22 << "$M.";
    QTest::newRow("other token") << 24 << "";
    QTest::newRow("comment") << 33 << "";
    QTest::newRow("behind the line") << 99 << "";
    QTest::newRow("before the line") << -1 << "";
}

void tst_Tokenizer::wordAt_column_givesWord()
{
    QFETCH(int, column);
    QFETCH(QString, word);
    const QByteArrayView line("a1 oscil \"wave\" <b>$M.+0dbfs ; instr");
    QCOMPARE(wordAt(line, column, LineState::Text), word);
}

void tst_Tokenizer::wordAt_inBlockComment_isEmpty()
{
    QCOMPARE(wordAt("instr */ endin", 2, LineState::BlockComment), QString());
    QCOMPARE(wordAt("instr */ endin", 10, LineState::BlockComment), "endin");
}

ARDIPHON_TEST(tst_Tokenizer, QCoreApplication)
#include "tst_Tokenizer.moc"
