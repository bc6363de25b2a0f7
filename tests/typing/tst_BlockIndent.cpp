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
    row("  instr 1|     endin^", "../..");
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
