#include "piece/PieceLines.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include "piece/Piece.h"
#include "typing/BlockIndent.h"

#include <QRandomGenerator>
#include <QTest>

using namespace ardiphon;

/// The blanks that blocks ask for, in an orchestra and in a unified file.
class tst_BlockIndent : public QObject
{
    Q_OBJECT

private slots:
    void newLine_data();
    void newLine();
    void newLine_hasTheBlanksOfTheText();
    void newLine_leavesOtherBlanks();
    void closingWord_data();
    void closingWord();
    void typedWord_isAlone_data();
    void typedWord_isAlone();
    void reindent_data();
    void reindent();
    void reindent_ofAPart();
    void reindent_usesTheBlanksOfTheText();
    void reindent_twiceIsOnce();
};

namespace {

/// A piece of one text, with "|" between its lines.
class LinedPiece
{
public:
    LinedPiece(DocumentRole role, QString text)
        : m_lines(text.replace(u'|', u'\n').toUtf8()),
          m_piece({{role, &m_lines}}, [](QByteArrayView) { return false; }),
          m_role(role)
    {
        m_piece.readOn(QDeadlineTimer::Forever);
    }
    const PieceText &text() const { return *m_piece.text(m_role); }

private:
    PieceTextLines m_lines;
    Piece m_piece;
    DocumentRole m_role;
};

/// The text after an Enter at its "^": the blanks with "-" for a tab.
QString afterEnter(DocumentRole role, const QString &marked)
{
    QStringList lines = marked.split(u'|');
    int line = 0;
    while (!lines[line].contains(u'^'))
        ++line;
    const int column = int(lines[line].indexOf(u'^'));
    QString text = marked;
    const LinedPiece piece(role, text.remove(u'^').replace(u'-', u'\t'));
    const auto blanks = blanksForNewLine(piece.text(), line + 1, column, 4);
    if (!blanks)
        return QStringLiteral("none");
    const QString shown = blanks->line ? *blanks->line + u'/' + blanks->next : u'/' + blanks->next;
    return QString(shown).replace(u'\t', u'-').replace(u' ', u'.');
}

/// The blanks that the word before the "^" gets, with "-" for a tab.
QString closedBlanks(DocumentRole role, const QString &marked)
{
    const QStringList lines = QString(marked).replace(u'-', u'\t').split(u'|');
    int line = 0;
    while (!lines[line].contains(u'^'))
        ++line;
    const int column = int(lines[line].indexOf(u'^'));
    QStringList before = lines; // the last letter is still to be typed
    before[line].remove(column - 1, 2);
    const LinedPiece piece(role, before.join(u'|'));
    const auto typed = typedWord(before[line].toUtf8(), column - 1, 0, lines[line][column - 1]);
    const auto blanks =
        typed ? blanksForClosingWord(piece.text(), line + 1, *typed, 4) : std::nullopt;
    return blanks ? QLatin1Char('[') + QString(*blanks).replace(u'\t', u'-') + u']'
                  : QStringLiteral("none");
}

QString reindentedText(DocumentRole role, const QString &text, int first = 1, int last = 1000)
{
    const LinedPiece piece(role, QString(text).replace(u'-', u'\t'));
    QStringList lines = QString(text).replace(u'-', u'\t').split(u'|');
    for (const EditorEdit &edit : reindentedLines(piece.text(), first, last, 4)) {
        if (edit.column != 0 || edit.lines != 0 || !edit.text.trimmed().isEmpty() ||
            !lines[edit.line - 1].first(edit.length).trimmed().isEmpty())
            return QStringLiteral("not only blanks");
        lines[edit.line - 1].replace(0, edit.length, edit.text);
    }
    return lines.join(u'|').replace(u'\t', u'-');
}

} // namespace

void tst_BlockIndent::newLine_data()
{
    QTest::addColumn<QString>("marked");
    QTest::addColumn<QString>("blanks"); // "of the line/of the new one"; "-" is a tab

    const auto row = [](const char *marked, const char *blanks) {
        QTest::newRow(marked) << QString::fromLatin1(marked) << QString::fromLatin1(blanks);
    };
    row("^", "/");
    row("sr = 48000^", "/");
    row("instr 1^", "/-");
    row("instr 1 ; a name^", "/-");
    row("instr 1|-kx = 1^", "/-");
    row("instr 1|-kx = 1|-endin^", "/");
    row("instr 1|-endin^", "/");
    row("  instr 1|      endin^", "../..");
    row("opcode foo, a, a^", "/-");
    row("opcode foo, a, a|-endop^", "/");
    row("-if kx == 1 then^", "/--");
    row("-if kx == 1 ithen^", "/--");
    row("-if kx == 1 goto there^", "/-");
    row("-if kx == 1 then|--ky = 1|--else^", "-/--");
    row("-if kx == 1 then|--ky = 1|--elseif kx == 2 then^", "-/--");
    row("-if kx == 1 then|--ky = 1|--endif^", "-/-");
    row("-if kx == 1 then|--ky = 1|--endif ; done^", "-/-");
    row("-while kx < 1 do^", "/--");
    row("-until kx < 1 do|--kx += 1|--od^", "-/-");
    row("-switch kx|--case 1^", "-/--");
    row("-if kx == 1 then ky = 1 endif^", "/-");
    row("kendif = 1^", "/");
    row("-od^", "/-");
    row("instr 1^ endin", "/");
    row("instr 1|^", "/");
    row("-/* a|-if kx then^", "none");
    row("-prints {{ a^", "none");
    row("-kx = ky + \\^", "none");
    row("-kx foo 1,^", "none");
    row("-kx = ky + \\|----kz^", "none");
    row("-; if kx then^", "/-");
    row("-\"if\" then^", "/-");
}

void tst_BlockIndent::newLine()
{
    QFETCH(QString, marked);
    QFETCH(QString, blanks);
    QCOMPARE(afterEnter(DocumentRole::Orchestra, marked), blanks);
    const QString unified = QStringLiteral("<CsoundSynthesizer>|<CsInstruments>|") + marked +
                            QStringLiteral("|</CsInstruments>");
    if (!marked.contains(QLatin1String("/*")) && !marked.contains(QLatin1String("{{")))
        QCOMPARE(afterEnter(DocumentRole::Csd, unified), blanks);
    QCOMPARE(afterEnter(DocumentRole::Score, marked), QStringLiteral("none"));
    QCOMPARE(afterEnter(DocumentRole::Csd, QStringLiteral("<CsScore>|") + marked),
             QStringLiteral("none"));
}

void tst_BlockIndent::newLine_hasTheBlanksOfTheText()
{
    QCOMPARE(afterEnter(DocumentRole::Orchestra, "instr 1|  if kx then^"),
             QStringLiteral("/......"));
    QCOMPARE(afterEnter(DocumentRole::Orchestra, "  instr 1^"), QStringLiteral("/......"));
}

/// Who has indented a line by hand keeps it.
void tst_BlockIndent::newLine_leavesOtherBlanks()
{
    QCOMPARE(afterEnter(DocumentRole::Orchestra, "  instr 1|     endin^"), QStringLiteral("/.."));
    QCOMPARE(afterEnter(DocumentRole::Orchestra, "-if kx then|--ky = 1|---else^"),
             QStringLiteral("/--"));
}

void tst_BlockIndent::closingWord_data()
{
    QTest::addColumn<QString>("marked");
    QTest::addColumn<QString>("blanks");

    const auto row = [](const char *marked, const char *blanks) {
        QTest::newRow(marked) << QString::fromLatin1(marked) << QString::fromLatin1(blanks);
    };
    row("instr 1|-endin^", "[]");
    row("instr 1, two|-kx = 1|-endin^", "[]");
    row("instr 1|-kx = 1||-endin^  ", "[]");
    row("opcode foo, a, a|-endop^", "[]");
    row("-if kx then|--ky = 1|--endif^", "[-]");
    row("-if kx then|--ky = 1|--fi^", "[-]");
    row("-if kx then|--ky = 1|--else^", "[-]");
    row("-if kx then|--ky = 1|--elseif^", "[-]");
    row("-while kx do|--od^", "[-]");
    row("-until kx do|--enduntil^", "[-]");
    row("-switch kx|--case^", "[-]");
    row("-switch kx|-case 1|--kx = 2|--default^", "[-]");
    row("-switch kx|-case 1|--kx = 2|--endsw^", "[-]");
    row("-if kx then|--if ky then|---kz = 1|--endif|--endif^", "[-]");
    row("-if kx then|--while ky do|---kz = 1|---od^", "[--]");
    row("-if kx && \\|   ky then|--endif^", "[-]");
    row("instr 1|  kx = 1|  endin^", "[]"); // the text has its own blanks
    row("instr 1|  kx = 1|  if kx then|    ky = 1|    endif^", "[  ]");
    row("instr 1|kx = 1|   ky = 1|   endin^", "[]");

    row("instr 1|endin^", "none");
    row("instr 1|--endin^", "none");
    row("instr 1|-kx = 1|  endin^", "none");
    row("-if kx then|--ky = 1|---endif^", "none");
    row("-if kx then|--ky = 1|-endif^", "none");
    row("--if kx then|-endif^", "none");
    row("-endin^", "none");
    row("instr 1|endin|-endin^", "none");
    row("instr 1|-endop^", "none");
    row("instr 1|-endif^", "none");
    row("-if kx goto a|--endif^", "none");
    row("-if kx then|--od^", "none");
    row("-if kx then|--if^", "none");
    row("-if kx then|--while^", "none");
    row("-if kx then|--endi^", "none");
    row("-if kx then|--kendif^", "none");
    row("-if kx then|--endif^ky", "none");
    row("-if kx then|--endif^ ; a", "none");
    row("-if kx then|--a: endif^", "none");
    row("-if kx then|--; endif^", "none");
    row("-if kx then|--\"endif^", "none");
    row("-if kx then|--/*|--endif^", "none");
    row("-if kx then|--prints {{|--endif^", "none");
    row("-if kx then|--kx = ky + \\|--endif^", "none");
    row("#define A #|-if kx then|--endif^", "none");
}

void tst_BlockIndent::closingWord()
{
    QFETCH(QString, marked);
    QFETCH(QString, blanks);
    QCOMPARE(closedBlanks(DocumentRole::Orchestra, marked), blanks);
    QCOMPARE(closedBlanks(DocumentRole::Score, marked), QStringLiteral("none"));
    const QString head = QStringLiteral("<CsoundSynthesizer>|<CsInstruments>|");
    QCOMPARE(closedBlanks(DocumentRole::Csd, head + marked), blanks);
    QCOMPARE(closedBlanks(DocumentRole::Csd, QStringLiteral("<CsScore>|") + marked),
             QStringLiteral("none"));
}

void tst_BlockIndent::typedWord_isAlone_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("found"); // "blanks/word"

    QTest::newRow("letter") << "  endi" << 6 << 0 << "n"
                            << "  /endin";
    QTest::newRow("first letter") << "" << 0 << 0 << "e"
                                  << "/e";
    QTest::newRow("digit") << "\tod" << 3 << 0 << "1"
                           << "\t/od1";
    QTest::newRow("taken") << " endi" << 1 << 4 << "endif"
                           << " /endif";
    QTest::newRow("rest of the word goes") << " eif" << 1 << 3 << "endif"
                                           << " /endif";
    QTest::newRow("blanks behind") << "endi \t" << 4 << 0 << "f"
                                   << "/endif";
    QTest::newRow("blank") << " od" << 3 << 0 << " "
                           << "";
    QTest::newRow("bracket") << " od" << 3 << 0 << "("
                             << "";
    QTest::newRow("nothing") << " od" << 3 << 0 << ""
                             << "";
    QTest::newRow("umlaut") << " o" << 2 << 0 << QStringLiteral("\u00e4") << "";
    QTest::newRow("umlaut before") << QStringLiteral("\u00e4") << 1 << 0 << "d"
                                   << "";
    QTest::newRow("umlaut behind") << QStringLiteral("o\u00e4") << 1 << 1 << "d"
                                   << "";
    QTest::newRow("word before") << "a o" << 3 << 0 << "d"
                                 << "";
    QTest::newRow("word behind") << " o a" << 2 << 0 << "d"
                                 << "";
    QTest::newRow("lines") << "" << 0 << 0 << "od\r\nod"
                           << "";
}

void tst_BlockIndent::typedWord_isAlone()
{
    QFETCH(QString, line);
    QFETCH(int, column);
    QFETCH(int, length);
    QFETCH(QString, text);
    QFETCH(QString, found);
    const auto typed = typedWord(line.toUtf8(), column, length, text);
    QCOMPARE(typed ? QString::fromLatin1(typed->blanks + '/' + typed->word) : QString(), found);
}

void tst_BlockIndent::reindent_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");

    const auto row = [](const char *before, const char *after) {
        QTest::newRow(before) << QString::fromLatin1(before) << QString::fromLatin1(after);
    };
    row("", "");
    row("instr 1|kx = 1|endin", "instr 1|-kx = 1|endin");
    row("--instr 1|---kx = 1|--endin", "instr 1|-kx = 1|endin");
    row("instr 1|if kx then|ky = 1|else|ky = 2|endif|endin",
        "instr 1|-if kx then|--ky = 1|-else|--ky = 2|-endif|endin");
    row("instr 1|if kx goto a|ky = 1|endin", "instr 1|-if kx goto a|-ky = 1|endin");
    row("instr 1|a:|ky = 1|  b:|endin", "instr 1|a:|-ky = 1|  b:|endin");
    row("opcode foo, a, a|ax xin|while 1 do|od|endop",
        "opcode foo, a, a|-ax xin|-while 1 do|-od|endop");
    row("  sr = 1|-; a|instr 1|; b||endin|  ; c", "  sr = 1|-; a|instr 1|-; b||endin|  ; c");
    row("instr 1|/*| if x then|*/|kx = 1|endin", "instr 1|-/*| if x then|*/|-kx = 1|endin");
    row("instr 1|prints {{|  a|endin|}}|kx = 1|endin",
        "instr 1|-prints {{|  a|endin|}}|-kx = 1|endin");
    row("instr 1|kx = ky + \\|    kz|kx foo 1,|       2|endin",
        "instr 1|-kx = ky + \\|-    kz|-kx foo 1,|-       2|endin");
    row("instr 1|if kx == 1 && \\|   ky == 1 then|kz = 1|endif|endin",
        "instr 1|-if kx == 1 && \\|-   ky == 1 then|--kz = 1|-endif|endin");
    row("instr 1|#ifdef A|kx = 1|#end|endin", "instr 1|#ifdef A|-kx = 1|#end|endin");
    row("instr 1|kx = 1|instr 2|ky = 1|endin", "instr 1|-kx = 1|instr 2|-ky = 1|endin");
    row("instr 1|endif|od|kx = 1|endin", "instr 1|-endif|-od|-kx = 1|endin");
    row("if 1 then|ix = 1|endif", "if 1 then|-ix = 1|endif");
    row("instr 1|switch kx|case 1|kx = 2|default|kx = 3|endsw|endin",
        "instr 1|-switch kx|-case 1|--kx = 2|-default|--kx = 3|-endsw|endin");
}

void tst_BlockIndent::reindent()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    QCOMPARE(reindentedText(DocumentRole::Orchestra, before), after);
    QCOMPARE(reindentedText(DocumentRole::Score, before), before);
    const QString head = QStringLiteral("  <CsoundSynthesizer>|<CsInstruments>|");
    const QString rest =
        QStringLiteral("|</CsInstruments>|<CsScore>|  i 1 0 1|instr 1|a|</CsScore>");
    QCOMPARE(reindentedText(DocumentRole::Csd, head + before + rest), head + after + rest);
}

void tst_BlockIndent::reindent_ofAPart()
{
    const QString text = QStringLiteral("instr 1|if kx then|ky = 1|kz = 1|endif|endin");
    QCOMPARE(reindentedText(DocumentRole::Orchestra, text, 3, 3),
             QStringLiteral("instr 1|if kx then|--ky = 1|kz = 1|endif|endin"));
    QCOMPARE(reindentedText(DocumentRole::Orchestra, text, 5, 5),
             QStringLiteral("instr 1|if kx then|ky = 1|kz = 1|-endif|endin"));
    QCOMPARE(reindentedText(DocumentRole::Orchestra, text, 7, 6), text);
}

void tst_BlockIndent::reindent_usesTheBlanksOfTheText()
{
    QCOMPARE(reindentedText(DocumentRole::Orchestra, "instr 1|  if kx then|ky = 1|endif|endin"),
             QStringLiteral("instr 1|    if kx then|        ky = 1|    endif|endin"));
}

/// Random lines: nothing but blanks changes, and a second time nothing does.
void tst_BlockIndent::reindent_twiceIsOnce()
{
    QRandomGenerator random(randomSeed(2));
    static const char *const parts[] = {"instr 1",
                                        "endin",
                                        "if kx then",
                                        "else",
                                        "endif",
                                        "od",
                                        "while kx do",
                                        "kx = 1",
                                        "a:",
                                        "/*",
                                        "*/",
                                        "{{",
                                        "}}",
                                        "kx = \\",
                                        "foo 1,",
                                        "; x",
                                        "",
                                        "<CsScore>",
                                        "</CsScore>",
                                        "<CsInstruments>",
                                        "opcode a, i, i",
                                        "endop",
                                        "#ifdef A"};
    for (int i = 0; i < 1000; ++i) {
        QStringList lines;
        const QChar blank = random.bounded(2) ? u' ' : u'-';
        for (int n = random.bounded(30); n >= 0; --n)
            lines.append(QString(random.bounded(3), blank) +
                         QLatin1String(parts[random.bounded(int(std::size(parts)))]));
        const DocumentRole role = random.bounded(2) ? DocumentRole::Csd : DocumentRole::Orchestra;
        const QString once = reindentedText(role, lines.join(u'|'));
        QVERIFY2(once != QLatin1String("not only blanks"), qPrintable(lines.join(u'|')));
        QCOMPARE(reindentedText(role, once), once);
    }
}

ARDIPHON_TEST(tst_BlockIndent, QCoreApplication)
#include "tst_BlockIndent.moc"
