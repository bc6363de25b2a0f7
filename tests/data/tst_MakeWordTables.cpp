#include "support/FileBytes.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

/// The tool that makes the word tables: what it refuses, and the bytes that it writes.
class tst_MakeWordTables : public QObject
{
    Q_OBJECT

private slots:
    void opcodes_becomeSortedRecordsAndVersion();
    void words_becomeLines();
    void fieldsOfFullLength_areAllowed();
    void badLine_isRefusedWithPlaceAndReason_data();
    void badLine_isRefusedWithPlaceAndReason();
    void everyBadLine_isNamed();
    void duplicateInAnotherFile_isRefused();
    void badWords_areRefused_data();
    void badWords_areRefused();
    void missingSource_isRefused();
    void folderThatCannotBeWritten_fails();

private:
    struct Run
    {
        int exitCode = -1;
        QString errors;
        QTemporaryDir folder;

        QString path(const char *name) const { return folder.filePath(QLatin1String(name)); }
        void write(const char *name, const QByteArray &bytes) const;
        QByteArray read(const char *name) const;
        /// Runs the tool over csd, sco and \a opcodes, all in the folder, into its folder "out".
        void make(const QStringList &opcodes = {QStringLiteral("ops")});
        QStringList written() const { return QDir(path("out")).entryList(QDir::Files, QDir::Name); }
    };
};

void tst_MakeWordTables::Run::write(const char *name, const QByteArray &bytes) const
{
    writeBytes(path(name), bytes);
}

QByteArray tst_MakeWordTables::Run::read(const char *name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_MakeWordTables::Run::make(const QStringList &opcodes)
{
    QDir(folder.path()).mkdir(QStringLiteral("out"));
    for (const char *words : {"csd", "sco"})
        if (!QFile::exists(path(words)))
            write(words, "word\n");
    QProcess tool;
    tool.setWorkingDirectory(folder.path());
    tool.start(QStringLiteral(MAKE_WORD_TABLES),
               QStringList{"out", "6.18", "csd", "sco"} + opcodes);
    require(tool.waitForFinished(), "the tool does not end");
    exitCode = tool.exitCode();
    errors = QString::fromLatin1(tool.readAllStandardError());
}

void tst_MakeWordTables::opcodes_becomeSortedRecordsAndVersion()
{
    Run run;
    run.write("ops", "; a comment\n\nb | Does b. | b kx / b ix\na | Does a. | a\n");
    run.write("more", "B | Does B. | B\n");
    run.make({QStringLiteral("ops"), QStringLiteral("more")});

    const auto record = [](const char *name, const char *description, const char *parameters) {
        return QByteArray(name).leftJustified(50) + QByteArray(description).leftJustified(150) +
               QByteArray(parameters).leftJustified(230);
    };
    QCOMPARE(run.errors, QString());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.read("out/opcode.txt"),
             record("B", "Does B.", "B") + record("a", "Does a.", "a") +
                 record("b", "Does b.", "b kx / b ix") +
                 record("~version", "The version of this table.", "Csound 6.18, 3 words"));
}

void tst_MakeWordTables::words_becomeLines()
{
    Run run;
    run.write("csd", "; tags\n<B>\n\n<A>\n");
    run.write("sco", "i\nf\n");
    run.write("ops", "a | Does a. | a\n");
    run.make();
    QCOMPARE(run.read("out/csd.txt"), QByteArray("<B>\n<A>\n"));
    // One word more than it means to offer, since the last is left out by the reader.
    QCOMPARE(run.read("out/score.txt"), QByteArray("i\nf\nend-of-table\n"));
}

void tst_MakeWordTables::fieldsOfFullLength_areAllowed()
{
    Run run;
    run.write("ops",
              QByteArray(50, 'n') + " | " + QByteArray(150, 'd') + " | " + QByteArray(230, 'p'));
    run.make();
    QCOMPARE(run.errors, QString());
    QCOMPARE(run.read("out/opcode.txt").left(430),
             QByteArray(50, 'n') + QByteArray(150, 'd') + QByteArray(230, 'p'));
}

void tst_MakeWordTables::badLine_isRefusedWithPlaceAndReason_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("reason");
    const auto add = [](const char *name, const QByteArray &line, const char *reason) {
        QTest::newRow(name) << line << QString::fromLatin1(reason);
    };
    add("duplicate", "a | Again. | a", "\"a\" is in the table already");
    add("empty name", " | Does b. | b", "empty name");
    add("empty description", "b |  | b", "empty description");
    add("empty parameters", "b | Does b. | ", "empty parameters");
    add("long name", QByteArray(51, 'b') + " | Does b. | b",
        "name of 51 characters, 50 are allowed");
    add("long description", "b | " + QByteArray(151, 'd') + " | b",
        "description of 151 characters, 150 are allowed");
    add("long parameters", "b | Does b. | " + QByteArray(231, 'p'),
        "parameters of 231 characters, 230 are allowed");
    add("accent", "b | D\xc3\xa9tunes. | b", "a character that is not printable ASCII");
    add("tab", "b | Does\tb. | b", "a character that is not printable ASCII");
    add("carriage return", "b | Does b. | b\r", "a character that is not printable ASCII");
    add("one field", "b", "fewer than three fields");
    add("two fields", "b | Does b.", "fewer than three fields");
    add("four fields", "b | Does b. | b | more", "more than three fields");
}

void tst_MakeWordTables::badLine_isRefusedWithPlaceAndReason()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, reason);
    Run run;
    run.write("ops", "; comment\na | Does a. | a\n" + line + "\nz | Does z. | z\n");
    run.make();
    QCOMPARE(run.errors, QStringLiteral("ops:3: %1\n").arg(reason));
    QVERIFY(run.exitCode != 0);
    QCOMPARE(run.written(), QStringList());
}

void tst_MakeWordTables::everyBadLine_isNamed()
{
    Run run;
    run.write("ops", "a\na | Does a. | a\nb |  | b\n");
    run.make();
    QCOMPARE(run.errors,
             QStringLiteral("ops:1: fewer than three fields\nops:3: empty description\n"));
}

void tst_MakeWordTables::duplicateInAnotherFile_isRefused()
{
    Run run;
    run.write("ops", "a | Does a. | a\n");
    run.write("more", "; comment\na | Does a too. | a\n");
    run.make({QStringLiteral("ops"), QStringLiteral("more")});
    QCOMPARE(run.errors, QStringLiteral("more:2: \"a\" is in the table already\n"));
    QCOMPARE(run.written(), QStringList());
}

void tst_MakeWordTables::badWords_areRefused_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<QString>("error");
    QTest::newRow("two on a line") << QByteArray("i\ni f\n") << "csd:2: more than one word\n";
    QTest::newRow("comma") << QByteArray("i,f\n") << "csd:1: more than one word\n";
    QTest::newRow("quote") << QByteArray("\"i\"\n") << "csd:1: more than one word\n";
    QTest::newRow("twice") << QByteArray("i\nf\ni\n")
                           << "csd:3: \"i\" is here for the second time\n";
    QTest::newRow("accent") << QByteArray("\xe8\n")
                            << "csd:1: a character that is not printable ASCII\n";
}

void tst_MakeWordTables::badWords_areRefused()
{
    QFETCH(QByteArray, words);
    QFETCH(QString, error);
    Run run;
    run.write("csd", words);
    run.write("ops", "a | Does a. | a\n");
    run.make();
    QCOMPARE(run.errors, error);
    QCOMPARE(run.written(), QStringList());
}

void tst_MakeWordTables::missingSource_isRefused()
{
    Run run;
    run.make({QStringLiteral("nowhere")});
    QCOMPARE(run.errors, QStringLiteral("nowhere:0: cannot be read\n"));
    QCOMPARE(run.written(), QStringList());
}

void tst_MakeWordTables::folderThatCannotBeWritten_fails()
{
    Run run;
    run.write("ops", "a | Does a. | a\n");
    run.write("out", "a file in the folder's place");
    run.make();
    QCOMPARE(run.errors, QStringLiteral("out/opcode.txt: cannot be written\n"));
    QVERIFY(run.exitCode != 0);
}

ARDIPHON_TEST(tst_MakeWordTables, QCoreApplication)
#include "tst_MakeWordTables.moc"
