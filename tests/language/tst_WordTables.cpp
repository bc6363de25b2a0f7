#include "language/WordTables.h"
#include "support/Fifo.h"
#include "support/FileBytes.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

namespace {

QByteArray padded(const QByteArray &text, int length)
{
    return text.leftJustified(length, ' ', true);
}

QByteArray record(const QByteArray &name, const QByteArray &description = "what it does",
                  const QByteArray &parameters = "ares name x")
{
    return padded(name, 50) + padded(description, 150) + padded(parameters, 230);
}

QByteArray records(const QList<QByteArray> &names)
{
    QByteArray bytes;
    for (const QByteArray &name : names)
        bytes += record(name);
    return bytes;
}

} // namespace

class tst_WordTables : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void csdWords_keepLastItem();
    void scoreWords_loseLastItem();
    void wordFile_isReadItemByItem_data();
    void wordFile_isReadItemByItem();
    void csdFile_missing_givesOneEmptyWord();
    void scoreFile_missing_givesNoTable();
    void scoreFile_oneWord_givesNoTable();
    void words_compareExactly();
    void emptyWord_isNeverFound();
    void opcodes_areNumberedFromOne();
    void opcodes_differingInCase_areSeparate();
    void opcodeFile_missing_isCreatedEmpty();
    void opcodeFile_missingInReadOnlyFolder_givesEmptyTable();
    void opcodeFile_lastRecordCut_isLeftOut();
    void opcodeFile_shorterThanARecord_givesEmptyTable();
    void opcodeFile_randomBytes_neverFails();
    void opcodeFile_isAFolder_givesEmptyTable();
    void files_thatAreFifos_areNotWaitedFor();
    void opcodeFile_blankName_isNeverFound();
    void version_isParametersOfLastRecordWithPadding();
    void firstLetterIndex_pointsToGroups();
    void firstLetterIndex_ungrouped_keepsLastGroup();
    void range_endsBeforeNextCharacterCode_data();
    void range_endsBeforeNextCharacterCode();
    void range_emptyWord_staysAsItWas();
    void range_emptyTable_findsNothing();
    void findInRange_laterGroupInRange_isFound();
    void findInRange_outsideRange_isNotFound();
    void findInRange_ungrouped_missesEarlierGroup();
    void findInTable_ungrouped_findsAll();
    void find_duplicates_givesFirst();
    void find_agreesWithAScan();
    void readRecord_givesPaddedFields();
    void readRecord_outsideTable_keepsRecord();
    void closeOpcodeFile_endsReading();
    void load_again_replacesEverything();

private:
    void write(const char *name, const QByteArray &bytes);
    void load() { m_words->LoadWordTables(m_folder->path()); }
    void loadOpcodes(const QList<QByteArray> &names)
    {
        write("opcode.txt", records(names));
        load();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<WordTables> m_words;
};

void tst_WordTables::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_words = std::make_unique<WordTables>();
}

void tst_WordTables::write(const char *name, const QByteArray &bytes)
{
    writeBytes(m_folder->filePath(name), bytes);
}

void tst_WordTables::csdWords_keepLastItem()
{
    write("csd.txt", "<CsoundSynthesizer>\r\n<CsOptions>\r\n</CsOptions>\r\n");
    load();
    QCOMPARE(m_words->CsdWords,
             QStringList({"", "<CsoundSynthesizer>", "<CsOptions>", "</CsOptions>"}));
}

void tst_WordTables::scoreWords_loseLastItem()
{
    write("score.txt", "i\r\nf\r\ne\r\ns\r\nx\r\n");
    load();
    QCOMPARE(m_words->ScoreWords, QStringList({"", "i", "f", "e", "s"}));
    QVERIFY(!m_words->IsScoreWord("x"));
}

void tst_WordTables::wordFile_isReadItemByItem_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("words");

    const QStringList three{"", "a", "b", "c"};
    QTest::newRow("lines") << QByteArray("a\nb\nc\n") << three;
    QTest::newRow("no closing line end") << QByteArray("a\nb\nc") << three;
    QTest::newRow("CR LF") << QByteArray("a\r\nb\r\nc\r\n") << three;
    QTest::newRow("CR") << QByteArray("a\rb\rc\r") << three;
    QTest::newRow("commas") << QByteArray("a,b,c") << three;
    QTest::newRow("mixed") << QByteArray("a,b\nc") << three;
    QTest::newRow("quotes") << QByteArray("\"a\",\"b\"\n\"c\"\n") << three;
    QTest::newRow("blanks around") << QByteArray("  a , b\t\n c ") << three;
    QTest::newRow("comma in quotes") << QByteArray("\"a,b\"\nc\n") << QStringList({"", "a,b", "c"});
    QTest::newRow("blanks in quotes") << QByteArray("\" a \"\n") << QStringList({"", " a "});
    QTest::newRow("quote without end") << QByteArray("\"a\nb") << QStringList({"", "a\nb"});
    QTest::newRow("empty line") << QByteArray("a\n\nb\n") << QStringList({"", "a", "", "b"});
    QTest::newRow("empty file") << QByteArray() << QStringList({"", ""});
    QTest::newRow("single byte letters") << QByteArray("\xE9\n") << QStringList({"", u"\u00e9"_qs});
}

void tst_WordTables::wordFile_isReadItemByItem()
{
    QFETCH(QByteArray, bytes);
    write("csd.txt", bytes);
    load();
    QTEST(m_words->CsdWords, "words");
}

void tst_WordTables::csdFile_missing_givesOneEmptyWord()
{
    load();
    QCOMPARE(m_words->CsdWords, QStringList({"", ""}));
}

void tst_WordTables::scoreFile_missing_givesNoTable()
{
    load();
    QVERIFY(m_words->ScoreWords.isEmpty());
    QVERIFY(!m_words->IsScoreWord("i"));
}

void tst_WordTables::scoreFile_oneWord_givesNoTable()
{
    write("score.txt", "i\n");
    load();
    QVERIFY(m_words->ScoreWords.isEmpty());
}

void tst_WordTables::words_compareExactly()
{
    write("csd.txt", "<CsOptions>\n");
    write("score.txt", "i\nx\n");
    load();
    QVERIFY(m_words->IsCsdWord("<CsOptions>"));
    QVERIFY(!m_words->IsCsdWord("<csoptions>"));
    QVERIFY(!m_words->IsCsdWord("<CsOptions"));
    QVERIFY(m_words->IsScoreWord("i"));
    QVERIFY(!m_words->IsScoreWord("I"));
}

void tst_WordTables::emptyWord_isNeverFound()
{
    write("csd.txt", "a\n");
    write("score.txt", "i\nx\n");
    loadOpcodes({"oscil", "~version"});
    QVERIFY(!m_words->IsCsdWord(""));
    QVERIFY(!m_words->IsScoreWord(""));
    m_words->FindOpcodeRange(u"oscil");
    QCOMPARE(m_words->FindInRange(""), 0);
    QCOMPARE(m_words->FindInTable(""), 0);
}

void tst_WordTables::opcodes_areNumberedFromOne()
{
    loadOpcodes({"abs", "oscil", "~version"});
    QCOMPARE(m_words->OpcodeCount, 3);
    QCOMPARE(m_words->OpcodeNames, QStringList({"", "abs", "oscil", "~version"}));
    QCOMPARE(m_words->FindInTable("abs"), 1);
    QCOMPARE(m_words->FindInTable("~version"), 3);
    QCOMPARE(m_words->FindInTable("osci"), 0);
}

void tst_WordTables::opcodes_differingInCase_areSeparate()
{
    loadOpcodes({"Oscil", "oscil", "~version"});
    QCOMPARE(m_words->FindInTable("Oscil"), 1);
    QCOMPARE(m_words->FindInTable("oscil"), 2);
    QCOMPARE(m_words->FindInTable("OSCIL"), 0);
}

void tst_WordTables::opcodeFile_missing_isCreatedEmpty()
{
    load();
    QFileInfo file(m_folder->filePath("opcode.txt"));
    QVERIFY(file.exists());
    QCOMPARE(file.size(), 0);
    QCOMPARE(m_words->OpcodeCount, 0);
    QVERIFY(m_words->OpcodeNames.isEmpty());
    QVERIFY(m_words->OpcodeHelpVersion.isEmpty());
    QCOMPARE(m_words->FindInTable("oscil"), 0);
    QVERIFY(!m_words->ReadOpcodeRecord(1));
}

void tst_WordTables::opcodeFile_missingInReadOnlyFolder_givesEmptyTable()
{
    m_words->LoadWordTables(m_folder->filePath("no such folder"));
    QCOMPARE(m_words->OpcodeCount, 0);
    QCOMPARE(m_words->CsdWords, QStringList({"", ""}));
    QVERIFY(!m_words->ReadOpcodeRecord(1));
}

void tst_WordTables::opcodeFile_lastRecordCut_isLeftOut()
{
    write("opcode.txt",
          record("abs") + record("oscil", "tone", "parameters") + record("x").left(429));
    load();
    QCOMPARE(m_words->OpcodeCount, 2);
    QCOMPARE(m_words->FindInTable("x"), 0);
    QCOMPARE(m_words->OpcodeHelpVersion, QString("parameters").leftJustified(230));
}

void tst_WordTables::opcodeFile_shorterThanARecord_givesEmptyTable()
{
    write("opcode.txt", record("abs").left(100));
    load();
    QCOMPARE(m_words->OpcodeCount, 0);
    QVERIFY(m_words->OpcodeHelpVersion.isEmpty());
}

void tst_WordTables::opcodeFile_randomBytes_neverFails()
{
    QByteArray bytes(430 * 100 + 17, '\0');
    QRandomGenerator random(randomSeed(4711));
    for (char &byte : bytes)
        byte = char(random.bounded(256));
    write("opcode.txt", bytes);
    write("csd.txt", bytes);
    write("score.txt", bytes);
    load();
    QCOMPARE(m_words->OpcodeCount, 100);
    for (int code = 0; code < 300; ++code) {
        m_words->FindOpcodeRange(QString(QChar(code)));
        m_words->FindInRange(QString(QChar(code)));
    }
    for (int number = 1; number <= 100; ++number)
        QVERIFY(m_words->ReadOpcodeRecord(number));
}

void tst_WordTables::opcodeFile_isAFolder_givesEmptyTable()
{
    QVERIFY(QDir(m_folder->path()).mkdir("opcode.txt"));
    QVERIFY(QDir(m_folder->path()).mkdir("csd.txt"));
    load();
    QCOMPARE(m_words->OpcodeCount, 0);
    QCOMPARE(m_words->CsdWords, QStringList({"", ""}));
}

void tst_WordTables::files_thatAreFifos_areNotWaitedFor()
{
    for (const char *name : {"opcode.txt", "csd.txt", "score.txt"}) {
        const QString path = m_folder->filePath(name);
        Fifo fifo(path);
        load();
        QVERIFY2(!fifo.wasWaitedFor(), name);
        QFile::remove(path);
    }
}

void tst_WordTables::opcodeFile_blankName_isNeverFound()
{
    loadOpcodes({"abs", "", "oscil", "~version"});
    QCOMPARE(m_words->OpcodeNames[2], "");
    QCOMPARE(m_words->FindInTable(""), 0);
    QCOMPARE(m_words->FirstLetterIndex['o'], 3);
}

void tst_WordTables::version_isParametersOfLastRecordWithPadding()
{
    write("opcode.txt", record("abs") + record("~version", "", "6.18"));
    load();
    QCOMPARE(m_words->OpcodeHelpVersion, QString("6.18").leftJustified(230));
}

void tst_WordTables::firstLetterIndex_pointsToGroups()
{
    loadOpcodes({"abs", "active", "balance", "dbamp", "~version"});
    QCOMPARE(m_words->FirstLetterIndex['a'], 1);
    QCOMPARE(m_words->FirstLetterIndex['b'], 3);
    QCOMPARE(m_words->FirstLetterIndex['c'], 0);
    QCOMPARE(m_words->FirstLetterIndex['d'], 4);
    QCOMPARE(m_words->FirstLetterIndex['~'], 5);
    QCOMPARE(m_words->FirstLetterIndex[300], 0);
}

void tst_WordTables::firstLetterIndex_ungrouped_keepsLastGroup()
{
    loadOpcodes({"abs", "balance", "active", "dbamp"});
    QCOMPARE(m_words->FirstLetterIndex['a'], 3);
}

void tst_WordTables::range_endsBeforeNextCharacterCode_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");

    // The table: abs active balance dbamp expon ~version
    QTest::newRow("next code follows") << "anything" << 1 << 2;
    QTest::newRow("next code starts nothing") << "balance" << 3 << 6;
    QTest::newRow("group in the middle") << "dbamp" << 4 << 4;
    QTest::newRow("last group") << "~version" << 6 << 6;
    QTest::newRow("code without opcodes, the next has some") << "compress" << 0 << 3;
    QTest::newRow("code without opcodes, nor the next") << "moog" << 0 << 6;
    QTest::newRow("code before the first") << "`" << 0 << 6;
    QTest::newRow("highest single-byte code") << QStringLiteral(u"\u00ff") << 0 << 6;
    QTest::newRow("beyond the single bytes") << QStringLiteral(u"\u6f22") << 0 << 6;
}

void tst_WordTables::range_endsBeforeNextCharacterCode()
{
    loadOpcodes({"abs", "active", "balance", "dbamp", "expon", "~version"});
    QFETCH(QString, word);
    m_words->FindOpcodeRange(word);
    QTEST(m_words->LookupFirst, "first");
    QTEST(m_words->LookupLast, "last");
}

void tst_WordTables::range_emptyWord_staysAsItWas()
{
    loadOpcodes({"abs", "balance", "~version"});
    m_words->FindOpcodeRange(u"abs");
    m_words->FindOpcodeRange(u"");
    QCOMPARE(m_words->LookupFirst, 1);
    QCOMPARE(m_words->LookupLast, 1);
}

void tst_WordTables::range_emptyTable_findsNothing()
{
    load();
    m_words->FindOpcodeRange(u"oscil");
    QCOMPARE(m_words->LookupFirst, 0);
    QCOMPARE(m_words->LookupLast, 0);
    QCOMPARE(m_words->FindInRange("oscil"), 0);
}

void tst_WordTables::findInRange_laterGroupInRange_isFound()
{
    loadOpcodes({"abs", "balance", "dbamp", "~version"});
    m_words->FindOpcodeRange(u"balance"); // nothing starts with "c"
    QCOMPARE(m_words->FindInRange("dbamp"), 3);
    m_words->FindOpcodeRange(u"x"); // starts nothing: from the top
    QCOMPARE(m_words->FindInRange("abs"), 1);
}

void tst_WordTables::findInRange_outsideRange_isNotFound()
{
    loadOpcodes({"abs", "balance", "~version"});
    m_words->FindOpcodeRange(u"abs");
    QCOMPARE(m_words->FindInRange("abs"), 1);
    QCOMPARE(m_words->FindInRange("balance"), 0);
}

void tst_WordTables::findInRange_ungrouped_missesEarlierGroup()
{
    loadOpcodes({"abs", "balance", "active", "~version"});
    m_words->FindOpcodeRange(u"abs");
    QCOMPARE(m_words->FindInRange("abs"), 0);
}

void tst_WordTables::findInTable_ungrouped_findsAll()
{
    loadOpcodes({"abs", "balance", "active", "~version"});
    QCOMPARE(m_words->FindInTable("abs"), 1);
    QCOMPARE(m_words->FindInTable("active"), 3);
}

void tst_WordTables::find_duplicates_givesFirst()
{
    loadOpcodes({"abs", "oscil", "oscil", "~version"});
    m_words->FindOpcodeRange(u"oscil");
    QCOMPARE(m_words->FindInRange("oscil"), 2);
    m_words->LookupFirst = 3;
    QCOMPARE(m_words->FindInRange("oscil"), 3);
    QCOMPARE(m_words->FindInTable("oscil"), 2);
}

/// The index behind the table must give what looking through the names one by one gives.
void tst_WordTables::find_agreesWithAScan()
{
    loadOpcodes({"a", "ab", "b", "a", "d", "", "ab", "e", "b", "~"});
    for (const QString word : {"a", "ab", "b", "c", "d", "e", "f", "~", ""}) {
        m_words->FindOpcodeRange(word);
        int found = 0;
        for (int i = m_words->LookupFirst; i <= m_words->LookupLast && !found; ++i)
            if (!word.isEmpty() && m_words->OpcodeNames[i] == word)
                found = i;
        QVERIFY2(m_words->FindInRange(word) == found, qPrintable(word));
    }
}

void tst_WordTables::readRecord_givesPaddedFields()
{
    write("opcode.txt", record("abs", "absolute value", "abs(x)") + record("\xE9t\xE9"));
    load();
    QVERIFY(m_words->ReadOpcodeRecord(1));
    QCOMPARE(m_words->OpcodeRecord.Name, QString("abs").leftJustified(50));
    QCOMPARE(m_words->OpcodeRecord.Description, QString("absolute value").leftJustified(150));
    QCOMPARE(m_words->OpcodeRecord.Parameters, QString("abs(x)").leftJustified(230));
    QVERIFY(m_words->ReadOpcodeRecord(2));
    QCOMPARE(m_words->OpcodeRecord.Name, u"\u00e9t\u00e9"_qs.leftJustified(50));
}

void tst_WordTables::readRecord_outsideTable_keepsRecord()
{
    loadOpcodes({"abs", "~version"});
    QVERIFY(m_words->ReadOpcodeRecord(1));
    for (const int number : {0, -1, 3, 1000000})
        QVERIFY(!m_words->ReadOpcodeRecord(number));
    QCOMPARE(m_words->OpcodeRecord.Name.trimmed(), "abs");
}

void tst_WordTables::closeOpcodeFile_endsReading()
{
    loadOpcodes({"abs", "~version"});
    m_words->CloseOpcodeFile();
    QVERIFY(!m_words->ReadOpcodeRecord(1));
    QCOMPARE(m_words->FindInTable("abs"), 1);
}

void tst_WordTables::load_again_replacesEverything()
{
    write("score.txt", "i\nf\nx\n");
    loadOpcodes({"abs", "balance", "~version"});
    write("score.txt", "e\nx\n");
    loadOpcodes({"dbamp", "~version"});
    QCOMPARE(m_words->ScoreWords, QStringList({"", "e"}));
    QCOMPARE(m_words->FindInTable("abs"), 0);
    QCOMPARE(m_words->FindInTable("dbamp"), 1);
    QCOMPARE(m_words->FirstLetterIndex['a'], 0);
}

ARDIPHON_TEST(tst_WordTables, QCoreApplication)
#include "tst_WordTables.moc"
