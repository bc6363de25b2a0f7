#include "piece/PieceIncludes.h"
#include "piece/PieceLines.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

/// Which files a piece includes, and where they are.
class tst_PieceIncludes : public QObject
{
    Q_OBJECT

private slots:
    void includes_areFoundOnceEach();
    void includes_ofAScore_areScores();
    void includes_inCommentsAndTexts_areNone();
    void includes_areAtMostSoMany();
    void folders_data();
    void folders();
    void folders_ofManyOptions_areBounded();
    void file_isLookedForInOrder();
    void file_absoluteName_isLookedForNowhereElse();
    void file_thatIsAFolder_isNone();
    void file_byALink_isTheFileItself();
    void text_isReadAsAPiece();
    void text_anyLineEndsAndEncoding();
    void noText_isKnownByItsBytes();

private:
    /// Makes a file with that text, and gives its path.
    QString make(const QString &name, const QByteArray &text = "x")
    {
        const QString path = m_folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() ? path
                                                                                  : QString();
    }

    QTemporaryDir m_folder;
};

namespace {

QStringList includesIn(const QByteArray &text, DocumentRole role = DocumentRole::Csd,
                       int most = 100)
{
    const PieceOfLines of(text, role);
    QStringList all;
    for (const IncludeStatement &statement : includesOf(of.piece, most))
        all.append(statement.name +
                   (statement.role == DocumentRole::Score ? QStringLiteral(" score") : QString()));
    return all;
}

} // namespace

void tst_PieceIncludes::includes_areFoundOnceEach()
{
    QCOMPARE(includesIn("#include \"a.inc\"\n  #include \"b c.inc\" ; b\n#include \"a.inc\"\n"
                        "#include |d.inc|\n# include \"e.inc\"\n#include f.inc\n",
                        DocumentRole::Orchestra),
             QStringList({"a.inc", "b c.inc", "d.inc", "e.inc"}));
}

void tst_PieceIncludes::includes_ofAScore_areScores()
{
    QCOMPARE(includesIn("<CsInstruments>\n#include \"a.inc\"\n</CsInstruments>\n"
                        "<CsScore>\n#include \"b.inc\"\n#include \"a.inc\"\n</CsScore>\n"),
             QStringList({"a.inc", "b.inc score", "a.inc score"}));
    QCOMPARE(includesIn("#include \"a.inc\"\n", DocumentRole::Score), QStringList("a.inc score"));
}

void tst_PieceIncludes::includes_inCommentsAndTexts_areNone()
{
    QCOMPARE(includesIn("; #include \"a\"\n/*\n#include \"b\"\n*/\nS = {{\n#include \"c\"\n}}\n",
                        DocumentRole::Orchestra),
             QStringList());
}

void tst_PieceIncludes::includes_areAtMostSoMany()
{
    QByteArray text;
    for (int i = 0; i < 50; ++i)
        text += "#include \"" + QByteArray::number(i) + "\"\n";
    QCOMPARE(includesIn(text, DocumentRole::Orchestra, 10).size(), 10);
}

void tst_PieceIncludes::folders_data()
{
    QTest::addColumn<QByteArray>("options");
    QTest::addColumn<QString>("incdir");
    QTest::addColumn<QStringList>("folders");
    QTest::newRow("none") << QByteArray("-n") << QString() << QStringList("/doc");
    QTest::newRow("environment") << QByteArray() << "/a:/b;/c"
                                 << QStringList({"/doc", "/a", "/b", "/c"});
    QTest::newRow("relative") << QByteArray("--env:INCDIR=a") << "b:/c"
                              << QStringList({"/doc", "/c"});
    QTest::newRow("option") << QByteArray("-d --env:INCDIR=/a -n") << "/c"
                            << QStringList({"/a", "/doc", "/c"});
    QTest::newRow("options") << QByteArray("--env:INCDIR=/a\n--env:INCDIR+=/b:/c\n") << QString()
                             << QStringList({"/a", "/b", "/c", "/doc"});
    QTest::newRow("quoted") << QByteArray("\"--env:INCDIR=/a b\" -n") << QString()
                            << QStringList({"/a b", "/doc"});
    QTest::newRow("comment") << QByteArray("; --env:INCDIR=/a") << QString() << QStringList("/doc");
    QTest::newRow("other") << QByteArray("--env:SSDIR=/a --env:INCDIRS=/b x--env:INCDIR=/c")
                           << QString() << QStringList("/doc");
    QTest::newRow("half typed") << QByteArray("--env:INCDIR= \"--env:INCDIR=") << QString()
                                << QStringList("/doc");
}

void tst_PieceIncludes::folders()
{
    QFETCH(const QByteArray, options);
    QFETCH(const QString, incdir);
    const PieceOfLines of("<CsOptions>\n" + options +
                          "\n</CsOptions>\n<CsInstruments>\n--env:INCDIR=/x\n</CsInstruments>\n");
    QTEST(includeFolders(of.piece, QStringLiteral("/doc"), incdir), "folders");
}

void tst_PieceIncludes::folders_ofManyOptions_areBounded()
{
    const PieceOfLines of("<CsOptions>\n" + QByteArray("--env:INCDIR+=/a\n").repeated(5000));
    QCOMPARE(includeFolders(of.piece, QString(), QString()).size(), 200);
    QCOMPARE(includeFolders(PieceOfLines("instr 1\n", DocumentRole::Orchestra).piece, QString(),
                            QString()),
             QStringList());
}

void tst_PieceIncludes::file_isLookedForInOrder()
{
    const QString own = m_folder.filePath(QStringLiteral("own"));
    const QStringList folders = {m_folder.filePath(QStringLiteral("one")),
                                 m_folder.filePath(QStringLiteral("two"))};
    const QString name = QStringLiteral("sub/a.inc");
    QCOMPARE(includedFile(name, own, folders), QString());
    for (const char *const folder : {"two", "one", "own"}) {
        const QString path = make(QLatin1String(folder) + u'/' + name);
        QCOMPARE(includedFile(name, own, folders), path);
    }
    QCOMPARE(includedFile(name, QString(), {}), QString());
    QCOMPARE(includedFile(QStringLiteral("../one/sub/a.inc"), own, {}),
             m_folder.filePath(QStringLiteral("one/sub/a.inc")));
    QCOMPARE(includedFile(QString(), own, folders), QString());
}

void tst_PieceIncludes::file_absoluteName_isLookedForNowhereElse()
{
    const QString path = make(QStringLiteral("absolute.inc"));
    QCOMPARE(includedFile(path, QString(), {}), path);
    QCOMPARE(includedFile(QStringLiteral("/absolute.inc"), m_folder.path(), {}), QString());
}

void tst_PieceIncludes::file_thatIsAFolder_isNone()
{
    make(QStringLiteral("folder.inc/x"));
    QCOMPARE(includedFile(QStringLiteral("folder.inc"), m_folder.path(), {}), QString());
    QCOMPARE(includedFile(m_folder.path(), QString(), {}), QString());
}

void tst_PieceIncludes::file_byALink_isTheFileItself()
{
    const QString path = make(QStringLiteral("real.inc"));
    QVERIFY(QFile::link(path, m_folder.filePath(QStringLiteral("link.inc"))));
    QCOMPARE(includedFile(QStringLiteral("link.inc"), m_folder.path(), {}), path);
}

void tst_PieceIncludes::text_isReadAsAPiece()
{
    PieceOfFile of("instr 1, Bell\nendin\n", DocumentRole::Orchestra, isTestOpcode);
    QVERIFY(of.readOn(QDeadlineTimer(QDeadlineTimer::Forever)));
    int line = 0;
    of.piece().orchestra()->visitKind(LandmarkKind::InstrumentEnd, [&](PlacedLandmark found) {
        line = found.line;
        return false;
    });
    QCOMPARE(line, 2);
    PieceOfFile empty(QByteArray(), DocumentRole::Score, isTestOpcode);
    QVERIFY(empty.readOn(QDeadlineTimer(QDeadlineTimer::Forever)));
    QCOMPARE(empty.piece().score()->lineCount(), 1);
}

void tst_PieceIncludes::text_anyLineEndsAndEncoding()
{
    PieceOfFile of("\xef\xbb\xbf; \xc3\xa9\rinstr 1\r\nendin\n\r", DocumentRole::Orchestra,
                   isTestOpcode);
    QCOMPARE(of.piece().orchestra()->lineCount(), 5);
    QCOMPARE(of.piece().orchestra()->line(1).toByteArray(), QByteArray("; \xc3\xa9"));
    PieceOfFile latin("; \xe9\n", DocumentRole::Orchestra, isTestOpcode);
    QCOMPARE(latin.piece().orchestra()->line(1).toByteArray(), QByteArray("; \xc3\xa9"));
}

void tst_PieceIncludes::noText_isKnownByItsBytes()
{
    QVERIFY(!isNoText(QByteArray()));
    QVERIFY(!isNoText("instr 1\n\xe9\x01"));
    QVERIFY(isNoText(QByteArray("RIFF\0\0", 6)));
    QVERIFY(isNoText(QByteArray(8191, ' ') + '\0'));
    QVERIFY(!isNoText(QByteArray(8192, ' ') + '\0')); // of a large file only the beginning counts
}

ARDIPHON_TEST(tst_PieceIncludes, QCoreApplication)
#include "tst_PieceIncludes.moc"
