#include "documents/Conversion.h"
#include "support/TestMain.h"

#include <QFile>
#include <QTest>

using namespace ardiphon;

/// The texts of the conversion between a CSD and an orchestra and a score.
class tst_Conversion : public QObject
{
    Q_OBJECT

private slots:
    void split_parts_keepTheirLineEnds();
    void split_missingTag_fails_data();
    void split_missingTag_fails();
    void split_tagInComment_countsWhenItComesFirst();
    void split_closingTagFirst_isEmpty();
    void build_texts_areJoinedToTheByte();
    void build_thenSplit_addsTwoBlankLinesToEachEnd();
    void split_example_isTheTextBetweenTheTags();
    void proposedName_cutsFourCharacters_data();
    void proposedName_cutsFourCharacters();
};

void tst_Conversion::split_parts_keepTheirLineEnds()
{
    const QString csd = QStringLiteral("; before\r\n<CsOptions>\r\n-odac\r\n</CsOptions>\r\n"
                                       "<CsInstruments>\r\ninstr 1\r\nendin\r\n</CsInstruments>\r\n"
                                       "; between\r\n<CsScore>\r\ne\r\n</CsScore>\r\n");
    QCOMPARE(orchestraOfCsd(csd), QStringLiteral("\r\ninstr 1\r\nendin\r\n"));
    QCOMPARE(scoreOfCsd(csd), QStringLiteral("\r\ne\r\n"));
    // The sections are looked for each on its own: their order does not matter.
    const QString turned =
        QStringLiteral("<CsScore>s</CsScore><CsInstruments>o</CsInstruments><CsScore>x</CsScore>");
    QCOMPARE(orchestraOfCsd(turned), QStringLiteral("o"));
    QCOMPARE(scoreOfCsd(turned), QStringLiteral("s"));
}

void tst_Conversion::split_missingTag_fails_data()
{
    QTest::addColumn<QString>("csd");
    QTest::newRow("empty") << QString();
    QTest::newRow("no opening tag") << QStringLiteral("</CsInstruments></CsScore>");
    QTest::newRow("no closing tag") << QStringLiteral("<CsInstruments><CsScore>");
    QTest::newRow("lower case") << QStringLiteral(
        "<csinstruments></csinstruments><csscore></csscore>");
    QTest::newRow("one in lower case")
        << QStringLiteral("<CsInstruments></csInstruments><CsScore></csScore>");
    QTest::newRow("with an attribute")
        << QStringLiteral("<CsInstruments x></CsInstruments><CsScore bin=\"x\"></CsScore>");
}

void tst_Conversion::split_missingTag_fails()
{
    QFETCH(QString, csd);
    QVERIFY(!orchestraOfCsd(csd));
    QVERIFY(!scoreOfCsd(csd));
}

void tst_Conversion::split_tagInComment_countsWhenItComesFirst()
{
    QCOMPARE(scoreOfCsd(QStringLiteral("; the <CsScore> part\n<CsScore>e</CsScore>")),
             QStringLiteral(" part\n<CsScore>e"));
}

void tst_Conversion::split_closingTagFirst_isEmpty()
{
    QCOMPARE(orchestraOfCsd(QStringLiteral("</CsInstruments> text <CsInstruments> more")),
             QString());
    QVERIFY(orchestraOfCsd(QStringLiteral("</CsInstruments> text <CsInstruments> more")));
}

void tst_Conversion::build_texts_areJoinedToTheByte()
{
    QCOMPARE(
        csdText(QStringLiteral("instr 1\r\nendin"), QStringLiteral("i1 0 1\r\ne\r\n")).toUtf8(),
        QByteArray("<CsoundSynthesizer>\r\n"
                   "\r\n"
                   "<CsOptions>\r\n"
                   "</CsOptions>\r\n"
                   "\r\n"
                   "<CsInstruments>\r\n"
                   "\r\n"
                   "instr 1\r\nendin\r\n"
                   "\r\n"
                   "</CsInstruments>\r\n"
                   "\r\n"
                   "<CsScore>\r\n"
                   "\r\n"
                   "i1 0 1\r\ne\r\n\r\n"
                   "\r\n"
                   "</CsScore>\r\n"
                   "\r\n"
                   "</CsoundSynthesizer>\r\n"
                   "\r\n"));
    // A text that looks like a place holder is a text.
    QVERIFY(csdText(QStringLiteral("%1 %2"), QStringLiteral("%1")).contains(u"\r\n%1 %2\r\n"));
}

void tst_Conversion::build_thenSplit_addsTwoBlankLinesToEachEnd()
{
    const QString csd = csdText(QStringLiteral("o"), QStringLiteral("s"));
    QCOMPARE(orchestraOfCsd(csd), QStringLiteral("\r\n\r\no\r\n\r\n"));
    QCOMPARE(scoreOfCsd(csd), QStringLiteral("\r\n\r\ns\r\n\r\n"));
}

void tst_Conversion::split_example_isTheTextBetweenTheTags()
{
    QFile file(QStringLiteral(TEST_SOURCE_DIR "/../data/examples/first.csd"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString csd = QString::fromUtf8(file.readAll());
    const auto orchestra = orchestraOfCsd(csd);
    const auto score = scoreOfCsd(csd);
    QVERIFY(orchestra && score);
    QVERIFY(csd.contains(QStringLiteral("<CsInstruments>") + *orchestra +
                         QStringLiteral("</CsInstruments>")));
    QVERIFY(csd.contains(QStringLiteral("<CsScore>") + *score + QStringLiteral("</CsScore>")));
    QVERIFY(orchestra->contains(u"endin"));
}

void tst_Conversion::proposedName_cutsFourCharacters_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("file") << QStringLiteral("/home/u/piece.csd") << QStringLiteral("piece.orc");
    QTest::newRow("untitled") << QStringLiteral("[Untitled]") << QStringLiteral("[Untit.orc");
    QTest::newRow("no extension") << QStringLiteral("/home/u/prelude") << QStringLiteral("pre.orc");
    QTest::newRow("three letters") << QStringLiteral("/a.dir/csd") << QStringLiteral(".orc");
}

void tst_Conversion::proposedName_cutsFourCharacters()
{
    QFETCH(QString, path);
    QTEST(proposedName(path, QStringLiteral(".orc")), "name");
}

ARDIPHON_TEST(tst_Conversion, NoApplication)
#include "tst_Conversion.moc"
