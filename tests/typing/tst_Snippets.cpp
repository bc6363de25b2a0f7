#include "support/Fifo.h"
#include "support/FileBytes.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"
#include "support/TimeLimit.h"

#include "language/WordTables.h"
#include "typing/Snippets.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

/// The files of snippets: what is read of them, and of what is none.
class tst_Snippets : public QObject
{
    Q_OBJECT

private slots:
    void snippet_hasWordTitleAndText();
    void linesOfTheFile_areNoText();
    void places_standInTheText_data();
    void places_standInTheText();
    void sameWord_theLastOneCounts();
    void brokenHeading_leavesOutItsSnippet_data();
    void brokenHeading_leavesOutItsSnippet();
    void lineEnds_areAllOneKind_data();
    void lineEnds_areAllOneKind();
    void garbage_neverFails();
    void files_areJoined();
    void unreadableFiles_haveNone();
    void files_areTheProgramsAndTheUsers();
    void ownSnippets_areOffered();
};

namespace {

QString snippetsPath() { return QStringLiteral(TEST_SOURCE_DIR "/../data/snippets.txt"); }

/// As "1=dur@10 0=@14".
QString describedPlaces(const Snippet &snippet)
{
    QStringList texts;
    for (const SnippetPlace &place : snippet.places) {
        texts.append(QStringLiteral("%1=%2@%3")
                         .arg(place.number)
                         .arg(snippet.text.sliced(place.offset, place.length))
                         .arg(place.offset));
    }
    return texts.join(u' ');
}

QStringList wordsOf(const QList<Snippet> &snippets)
{
    QStringList words;
    for (const Snippet &snippet : snippets)
        words.append(snippet.word);
    return words;
}

} // namespace

void tst_Snippets::snippet_hasWordTitleAndText()
{
    const QList<Snippet> snippets = snippetsOf("a head\n"
                                               "@snippet sine_1 orchestra  A sine,  for all \n"
                                               "  asig oscili 0.1, 440\n"
                                               "\n"
                                               "\tout asig\n"
                                               "\n"
                                               "@snippet stop score The end\n"
                                               "e\n"
                                               "@snippet flags options No sound\n"
                                               "-n\n"
                                               "@snippet frame document A frame\n"
                                               "<CsoundSynthesizer>");
    QCOMPARE(snippets.size(), 4);
    QCOMPARE(snippets[0], (Snippet{"sine_1",
                                   "A sine,  for all",
                                   SnippetLanguage::Orchestra,
                                   "  asig oscili 0.1, 440\n\n\tout asig",
                                   {}}));
    QCOMPARE(snippets[1], (Snippet{"stop", "The end", SnippetLanguage::Score, "e", {}}));
    QCOMPARE(snippets[2], (Snippet{"flags", "No sound", SnippetLanguage::Options, "-n", {}}));
    QCOMPARE(snippets[3],
             (Snippet{"frame", "A frame", SnippetLanguage::Document, "<CsoundSynthesizer>", {}}));
}

void tst_Snippets::linesOfTheFile_areNoText()
{
    const QList<Snippet> snippets = snippetsOf("@snippet at score At signs\n"
                                               "@ a remark\n"
                                               "one\n"
                                               "@remark too\n"
                                               "@@two\n"
                                               " @three\n");
    QCOMPARE(snippets.size(), 1);
    QCOMPARE(snippets[0].text, QStringLiteral("one\n@two\n @three"));
}

void tst_Snippets::places_standInTheText_data()
{
    QTest::addColumn<QByteArray>("marked");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("places");

    const auto row = [](const char *name, const char *marked, const char *text,
                        const char *places) {
        QTest::newRow(name) << QByteArray(marked) << QString::fromUtf8(text)
                            << QString::fromUtf8(places);
    };
    row("none", "a b", "a b", "");
    row("one", "a ${1:b} c", "a b c", "1=b@2");
    row("empty", "a ${1:}${2} c", "a  c", "1=@2 2=@2");
    row("the same again", "${1:x} + ${1} + ${1:y}", "x + x + x", "1=x@0 1=x@4 1=x@8");
    row("in any order", "${2:b} ${1:a} ${0}", "b a ", "2=b@0 1=a@2 0=@4");
    row("two digits", "${12:b}", "b", "12=b@0");
    row("over lines", "a\n${1:b}\n ${2:c}", "a\nb\n c", "1=b@2 2=c@5");
    row("not ASCII", "é ${1:ü} ä", "é ü ä", "1=ü@2");
    row("a macro's name", "$${1:NAME}.", "$NAME.", "1=NAME@1");
    row("blanks in it", "${1:1 0.5 0.3}", "1 0.5 0.3", "1=1 0.5 0.3@0");
    row("not closed", "${1:a", "${1:a", "");
    row("over a line's end", "${1:a\nb}", "${1:a\nb}", "");
    row("no number", "${a:b} ${} ${:c}", "${a:b} ${} ${:c}", "");
    row("too many digits", "${123:b}", "${123:b}", "");
    row("a plain macro", "$NAME.", "$NAME.", "");
}

void tst_Snippets::places_standInTheText()
{
    QFETCH(QByteArray, marked);
    QFETCH(QString, text);
    QFETCH(QString, places);

    const QList<Snippet> snippets = snippetsOf("@snippet w orchestra t\n" + marked);
    QCOMPARE(snippets.size(), 1);
    QCOMPARE(snippets[0].text, text);
    QCOMPARE(describedPlaces(snippets[0]), places);
}

void tst_Snippets::sameWord_theLastOneCounts()
{
    const QList<Snippet> snippets = snippetsOf("@snippet one score First\n1\n"
                                               "@snippet two score Second\n2\n"
                                               "@snippet one orchestra Third\n${1:3}\n"
                                               "@snippet One score Fourth\n4\n");
    QCOMPARE(wordsOf(snippets), (QStringList{"one", "two", "One"}));
    QCOMPARE(snippets[0], (Snippet{"one", "Third", SnippetLanguage::Orchestra, "3", {{0, 1, 1}}}));
}

void tst_Snippets::brokenHeading_leavesOutItsSnippet_data()
{
    QTest::addColumn<QByteArray>("heading");

    for (const char *heading : {"@snippet", "@snippet w", "@snippet w score", "@snippet w score ",
                                "@snippet w poem A poem", "@snippet 1w score A word",
                                "@snippet w-w score A word", "@snippetw score A word",
                                "@snippet w Score A language", "@snippet \xff\xfe score A word"})
        QTest::newRow(heading) << QByteArray(heading);
}

void tst_Snippets::brokenHeading_leavesOutItsSnippet()
{
    QFETCH(QByteArray, heading);

    const QByteArray good = "@snippet good score Good\n1\n";
    const QList<Snippet> snippets =
        snippetsOf(good + heading + "\n2\n@snippet empty score Nothing\n \n\n" +
                   "@snippet last score Last\n3");
    QCOMPARE(wordsOf(snippets), (QStringList{"good", "last"}));
    QCOMPARE(snippets[0].text, QStringLiteral("1"));
    QCOMPARE(snippets[1].text, QStringLiteral("3"));
}

void tst_Snippets::lineEnds_areAllOneKind_data()
{
    QTest::addColumn<QByteArray>("end");

    QTest::newRow("LF") << QByteArray("\n");
    QTest::newRow("CR LF") << QByteArray("\r\n");
    QTest::newRow("CR") << QByteArray("\r");
}

void tst_Snippets::lineEnds_areAllOneKind()
{
    QFETCH(QByteArray, end);

    QByteArray file = "@snippet w score A title\n1\n${1:2}\n3\n";
    const QList<Snippet> snippets = snippetsOf(file.replace("\n", end));
    QCOMPARE(snippets.size(), 1);
    QCOMPARE(snippets[0].title, QStringLiteral("A title"));
    QCOMPARE(snippets[0].text, QStringLiteral("1\n2\n3"));
}

/// Whatever bytes are there: places are in their texts, and no time is lost.
void tst_Snippets::garbage_neverFails()
{
    const TimeLimit limit;
    QRandomGenerator random(randomSeed(1));
    static const QByteArray parts[] = {
        "@snippet ",         "w",    "score ", "t\n", "${1:", "}", "${2}", "\n", "@", "$",
        QByteArray(1, '\0'), "\xff", "\r",     "é"};
    for (int i = 0; i < 2000; ++i) {
        QByteArray file;
        for (int n = random.bounded(60); n > 0; --n)
            file += parts[random.bounded(int(std::size(parts)))];
        for (const Snippet &snippet : snippetsOf("@snippet w score t\n" + file)) {
            QVERIFY(!snippet.word.isEmpty() && !snippet.title.isEmpty());
            for (const SnippetPlace &place : snippet.places) {
                QVERIFY(place.offset >= 0 && place.length >= 0 && place.number >= 0);
                QVERIFY(place.offset + place.length <= snippet.text.size());
            }
        }
    }
    QCOMPARE(snippetsOf("@snippet w score t\n" + QByteArray("${1:").repeated(250'000)).size(), 1);
    QByteArray many;
    for (int i = 0; i < 40'000; ++i)
        many += "@snippet w" + QByteArray::number(i) + " score t\n1\n";
    QCOMPARE(snippetsOf(many).size(), 40'000);
}

void tst_Snippets::files_areJoined()
{
    const QTemporaryDir folder;
    writeBytes(folder.filePath("1"), "@snippet a score A\n1\n@snippet b score B\n2\n");
    writeBytes(folder.filePath("2"),
               "not of the file before\n@snippet a score Own\n3\n@snippet c score C\n4");
    const QList<Snippet> snippets =
        readSnippets({folder.filePath("1"), folder.filePath("none"), folder.filePath("2")});
    QCOMPARE(wordsOf(snippets), (QStringList{"a", "b", "c"}));
    QCOMPARE(snippets[0].title, QStringLiteral("Own"));
    QCOMPARE(snippets[0].text, QStringLiteral("3"));
    QCOMPARE(snippets[1].text, QStringLiteral("2"));
}

void tst_Snippets::unreadableFiles_haveNone()
{
    const TimeLimit limit;
    const QTemporaryDir folder;
    const Fifo fifo(folder.filePath("fifo"));
    writeBytes(folder.filePath("empty"), "");
    QVERIFY(readSnippets({}).isEmpty());
    QVERIFY(readSnippets({folder.path(), folder.filePath("fifo"), folder.filePath("empty"),
                          folder.filePath("none"), QStringLiteral("/dev/zero"), QString()})
                .isEmpty());
    // Of a file without end the beginning is read.
    writeBytes(folder.filePath("long"),
               "@snippet a score A\n1\n" + QByteArray(2 << 20, 'x') + "\n@snippet b score B\n2\n");
    QCOMPARE(wordsOf(readSnippets({folder.filePath("long")})), QStringList{"a"});
}

void tst_Snippets::files_areTheProgramsAndTheUsers()
{
    const QString own = qEnvironmentVariable("XDG_DATA_HOME") + "/Ardiphon/snippets.txt";
    QCOMPARE(snippetFiles(QStringLiteral("/prog")),
             (QStringList{QStringLiteral("/prog/snippets.txt"), own}));
    QCOMPARE(snippetFiles(QStringLiteral("/prog/")),
             (QStringList{QStringLiteral("/prog/snippets.txt"), own}));
}

/// The twenty that the program brings along: complete, none hidden by a word of the language.
void tst_Snippets::ownSnippets_areOffered()
{
    const QList<Snippet> snippets = readSnippets({snippetsPath()});
    QVERIFY(snippets.size() >= 20);
    const QByteArray file = bytesOf(snippetsPath());
    QCOMPARE(file.count("\n@snippet "), snippets.size());
    QCOMPARE(bytesOf(QStringLiteral(PROGRAM_DIR "/snippets.txt")), file);

    WordTables words;
    words.LoadWordTables(QStringLiteral(PROGRAM_DIR));
    for (const Snippet &snippet : snippets) {
        QVERIFY2(words.FindInTable(snippet.word) == 0, qPrintable(snippet.word));
        QVERIFY2(!snippet.text.contains(QLatin1String("${")), qPrintable(snippet.word));
        QVERIFY2(snippet.title.size() <= 60, qPrintable(snippet.word));
        for (const QString &line : snippet.text.split(u'\n'))
            QVERIFY2(line.size() <= 90 && !line.endsWith(u' '), qPrintable(line));
    }
}

ARDIPHON_TEST(tst_Snippets, QCoreApplication)
#include "tst_Snippets.moc"
