#include "compile/CompileRules.h"
#include "compile/CompilerEnvironment.h"
#include "compile/CompilerLog.h"
#include "support/TestMain.h"
#include "support/TimeLimit.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace ardiphon;

class tst_CsdCompileRules : public QObject
{
    Q_OBJECT

private slots:
    void executableDirectory_path_textBeforeLastSlash();
    void csdParameters_nameAndRoot_exactText();
    void nextProgressText_text_stepsInCycle();
    void bannerText_elapsed_minutesAndSeconds_data();
    void bannerText_elapsed_minutesAndSeconds();
    void bannerText_whole_exactText();
    void environment_plain_englishMessagesAndDocumentFolder();
    void environment_lcAll_movesToLang();
    void environment_sfdirSet_isLeftAlone();
    void outputFolder_isTheUsersOrTheDocuments();
    void soundFolder_separatorsInPath_areLinkedAround();
    void cleanLog_bytes_text_data();
    void cleanLog_bytes_text();
    void cleanLog_endlessLine_isBroken();
    void readLog_missingFolderOrPipe_nothing();
    void readLog_empty_emptyText();
    void readLog_withinBounds_isWhole();
    void readLog_tooManyBytes_middleIsLeftOut();
    void readLog_tooManyLines_middleIsLeftOut();
    void readLog_oneEndlessLine_staysBounded();

private:
    QString write(const QByteArray &bytes);
    QTemporaryDir m_folder;
};

void tst_CsdCompileRules::executableDirectory_path_textBeforeLastSlash()
{
    QCOMPARE(ExecutableDirectory(QStringLiteral("/usr/bin/csound")), QStringLiteral("/usr/bin"));
    QCOMPARE(ExecutableDirectory(QStringLiteral("/my apps/a b/c d")),
             QStringLiteral("/my apps/a b"));
    QCOMPARE(ExecutableDirectory(QStringLiteral("/usr/bin/")), QStringLiteral("/usr/bin"));
    QCOMPARE(ExecutableDirectory(QStringLiteral("csound")), QString());
    QCOMPARE(ExecutableDirectory(QStringLiteral("/csound")), QString());
    QCOMPARE(ExecutableDirectory(QString()), QString());
}

void tst_CsdCompileRules::csdParameters_nameAndRoot_exactText()
{
    QCOMPARE(CompileLogFile(QStringLiteral("/tmp/r/")), QStringLiteral("/tmp/r/tmp.txt"));
    QCOMPARE(csdParameters(QStringLiteral("/my music/piece.csd"), QStringLiteral("/tmp/r/")),
             QStringLiteral("\"/my music/piece.csd\" -O/tmp/r/tmp.txt"));
    QCOMPARE(csdParameters(QStringLiteral("/a\"b.csd"), QStringLiteral("/r/")),
             QStringLiteral("\"/a\"\"b.csd\" -O/r/tmp.txt"));
}

void tst_CsdCompileRules::nextProgressText_text_stepsInCycle()
{
    QCOMPARE(nextProgressText(QStringLiteral("Compiling")), QStringLiteral("Compiling ."));
    QCOMPARE(nextProgressText(QStringLiteral("Compiling .")), QStringLiteral("Compiling .."));
    QCOMPARE(nextProgressText(QStringLiteral("Compiling ..")), QStringLiteral("Compiling ..."));
    QCOMPARE(nextProgressText(QStringLiteral("Compiling ...")), QStringLiteral("Compiling"));
    for (const char *other : {"", "compiling", "Compiling ....", "Compiling\r\n", "Compiling  ."})
        QCOMPARE(nextProgressText(QLatin1String(other)), QLatin1String(other));
}

void tst_CsdCompileRules::bannerText_elapsed_minutesAndSeconds_data()
{
    QTest::addColumn<qint64>("milliseconds");
    QTest::addColumn<QString>("shown");
    QTest::newRow("none") << qint64(0) << "00:00";
    QTest::newRow("below a half") << qint64(499) << "00:00";
    QTest::newRow("half to even 0") << qint64(500) << "00:00";
    QTest::newRow("above a half") << qint64(501) << "00:01";
    QTest::newRow("half to even 2") << qint64(1500) << "00:02";
    QTest::newRow("half to even 2 again") << qint64(2500) << "00:02";
    QTest::newRow("rounded into a minute") << qint64(59'500) << "01:00";
    QTest::newRow("125 s") << qint64(125'000) << "02:05";
    QTest::newRow("99 minutes") << qint64(5'999'000) << "99:59";
    QTest::newRow("three digits") << qint64(6'001'000) << "100:01";
    QTest::newRow("never negative") << qint64(-5000) << "00:00";
}

void tst_CsdCompileRules::bannerText_elapsed_minutesAndSeconds()
{
    QFETCH(qint64, milliseconds);
    QFETCH(QString, shown);
    const QString line = bannerText(milliseconds).split(QStringLiteral("\r\n")).at(2);
    QCOMPARE(line, QStringLiteral("Elapsed time (mm:ss) -> ") + shown + u' ');
}

void tst_CsdCompileRules::bannerText_whole_exactText()
{
    const QString fifty(50, u'=');
    QCOMPARE(bannerText(7000),
             fifty + QStringLiteral("\r\nFinished!!!\r\nElapsed time (mm:ss) -> 00:07 \r\n") +
                 fifty + QStringLiteral("\r\n"));
    QCOMPARE(logHeading(), QStringLiteral("\r\n\r\nCSound Compiler Details:\r\n"));
}

void tst_CsdCompileRules::environment_plain_englishMessagesAndDocumentFolder()
{
    const auto changes = compilerEnvironment(
        QStringLiteral("/music"), [](const QString &) { return std::optional<QString>(); });
    QCOMPARE(changes, (QList<EnvironmentChange>{{"LC_MESSAGES", "C"}, {"SFDIR", "/music"}}));
}

void tst_CsdCompileRules::environment_lcAll_movesToLang()
{
    const auto changes = compilerEnvironment(QStringLiteral("/m"), [](const QString &name) {
        return name == QLatin1String("LC_ALL") ? std::optional<QString>("it_IT.UTF-8")
                                               : std::optional<QString>();
    });
    QVERIFY(changes.contains(EnvironmentChange{"LC_MESSAGES", "C"}));
    QVERIFY(changes.contains(EnvironmentChange{"LC_ALL", std::nullopt}));
    QVERIFY(changes.contains(EnvironmentChange{"LC_NUMERIC", std::nullopt}));
    QVERIFY(changes.contains(EnvironmentChange{"LANG", "it_IT.UTF-8"}));
}

void tst_CsdCompileRules::environment_sfdirSet_isLeftAlone()
{
    const auto with = [](const QString &value) {
        return compilerEnvironment(QStringLiteral("/m"), [value](const QString &name) {
            return name == QLatin1String("SFDIR") ? std::optional(value) : std::nullopt;
        });
    };
    QCOMPARE(with(QStringLiteral("/own")), (QList<EnvironmentChange>{{"LC_MESSAGES", "C"}}));
    QVERIFY(with(QString()).contains(EnvironmentChange{"SFDIR", "/m"}));
}

void tst_CsdCompileRules::outputFolder_isTheUsersOrTheDocuments()
{
    const auto with = [](std::optional<QString> value) {
        return outputFolder(QStringLiteral("/music"), [value](const QString &) { return value; });
    };
    QCOMPARE(with(std::nullopt), QStringLiteral("/music"));
    QCOMPARE(with(QString()), QStringLiteral("/music"));
    QCOMPARE(with(QStringLiteral("/sounds")), QStringLiteral("/sounds"));
}

void tst_CsdCompileRules::soundFolder_separatorsInPath_areLinkedAround()
{
    const QString root = m_folder.path() + u'/';
    const QString plain = m_folder.filePath(QStringLiteral("plain"));
    QCOMPARE(soundFolder(plain, root), plain);
    for (const char *name : {"a:b", "a;b"}) {
        const QString odd = m_folder.filePath(QLatin1String(name));
        QVERIFY(QDir().mkpath(odd));
        const QString link = soundFolder(odd, root);
        QVERIFY(!link.contains(u':') && !link.contains(u';'));
        QCOMPARE(QFileInfo(link).canonicalFilePath(), odd);
    }
}

void tst_CsdCompileRules::cleanLog_bytes_text_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, QByteArray bytes, const QString &text) {
        QTest::newRow(name) << bytes << text;
    };
    row("empty", "", "");
    row("line ends", "a\nb\r\nc\rd\n", "a\nb\nc\nd\n");
    row("blank lines", "\n\r\n\r\r\nx", "\n\n\n\nx");
    row("colours", "\x1b[31;1mred\x1b[0m and\x1b[m plain", "red and plain");
    row("of other kinds", "a\x1b[?25lb\x1b(Bc\x1b=d\x1b[2K", "abcd");
    row("titles", "a\x1b]0;title\ab\x1b]0;t\x1b\\c\x1b]0;open\nd", "abc\nd");
    row("title cut by a colour", "a\x1b]0;title\x1b[31mb", "ab");
    row("unfinished", "a\x1b[31", "a");
    row("escape at the end", "a\x1b", "a");
    row("escape before a line end", "a\x1b\nb\x1b[\nc", "a\nb\nc");
    row("nul", QByteArray("a\0b\0", 4), "ab");
    row("nul inside an escape",
        QByteArray("a\x1b\0[3\0"
                   "1mb",
                   9),
        "ab");
    row("utf-8",
        "pi\xc3\xa8"
        "ce\n",
        QString::fromUtf8("pi\xc3\xa8"
                          "ce\n"));
    row("latin-1 line among utf-8 lines", "\xc3\xa8\n\xe8\n",
        QString::fromUtf8("\xc3\xa8\n\xc3\xa8\n"));
    row("tabs stay", "amps:\t0.5", "amps:\t0.5");
}

void tst_CsdCompileRules::cleanLog_bytes_text()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    QCOMPARE(cleanLog(bytes), text.replace(u'\n', QStringLiteral("\r\n")));
}

void tst_CsdCompileRules::cleanLog_endlessLine_isBroken()
{
    const QString text = cleanLog(QByteArray(10'000, 'x') + "\ny");
    QCOMPARE(text.count(u'x'), 10'000);
    const QStringList lines = text.split(QStringLiteral("\r\n"));
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines[0].size(), 4000);
    QCOMPARE(lines[3], QStringLiteral("y"));
}

QString tst_CsdCompileRules::write(const QByteArray &bytes)
{
    QFile file(m_folder.filePath(QStringLiteral("log.txt")));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return QString();
    return file.fileName();
}

void tst_CsdCompileRules::readLog_missingFolderOrPipe_nothing()
{
    QVERIFY(!readCompilerLog(m_folder.filePath(QStringLiteral("missing"))));
    QVERIFY(!readCompilerLog(m_folder.path()));
    QVERIFY(!readCompilerLog(QStringLiteral("/dev/zero")));
    const QString pipe = m_folder.filePath(QStringLiteral("pipe"));
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const TimeLimit limit; // nobody will ever write into it
    QVERIFY(!readCompilerLog(pipe));
}

void tst_CsdCompileRules::readLog_empty_emptyText()
{
    const auto text = readCompilerLog(write({}));
    QVERIFY(text);
    QCOMPARE(*text, QString());
}

void tst_CsdCompileRules::readLog_withinBounds_isWhole()
{
    QCOMPARE(readCompilerLog(write("12345678\n12345678\n"), {9, 1}),
             QStringLiteral("12345678\r\n12345678\r\n"));
}

void tst_CsdCompileRules::readLog_tooManyBytes_middleIsLeftOut()
{
    // 10 bytes of each end: no line is torn, and what is said adds up.
    QCOMPARE(
        readCompilerLog(write("one\ntwo\nthree\nfour\nfive\nsix\n"), {10, 100}),
        QStringLiteral("one\r\ntwo\r\n\r\n[... 11 bytes of the log are not shown here ...]\r\n\r\n"
                       "five\r\nsix\r\n"));
}

void tst_CsdCompileRules::readLog_tooManyLines_middleIsLeftOut()
{
    QCOMPARE(readCompilerLog(write("1\n2\n3\n4\n5\n6\n"), {100, 2}),
             QStringLiteral(
                 "1\r\n2\r\n\r\n[... 6 bytes of the log are not shown here ...]\r\n\r\n6\r\n"));
}

void tst_CsdCompileRules::readLog_oneEndlessLine_staysBounded()
{
    QFile file(m_folder.filePath(QStringLiteral("huge.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(qint64(3) << 30)); // sparse: it takes no room
    QVERIFY(file.seek(0) && file.write("first\n") == 6);
    QVERIFY(file.seek(file.size() - 6) && file.write("\nlast\n") == 6);
    file.close();
    const auto text = readCompilerLog(file.fileName());
    QVERIFY(text);
    QVERIFY(text->startsWith(QLatin1String("first\r\n")));
    QVERIFY(text->endsWith(QLatin1String("last\r\n")));
    QVERIFY(text->contains(QLatin1String("bytes of the log are not shown here")));
    QVERIFY(text->size() < 20'000'000);
}

ARDIPHON_TEST(tst_CsdCompileRules, NoApplication)
#include "tst_CsdCompileRules.moc"
