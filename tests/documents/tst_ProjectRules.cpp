#include "documents/ProjectRules.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

/// The texts of a project's two halves, and the names of partners.
class tst_ProjectRules : public QObject
{
    Q_OBJECT

private slots:
    void texts_ofBothHalves_areTheirs();
    void label_fullForm_isThePathOrTheMarker();
    void label_shortForm_isTheBeginningAndTheName_data();
    void label_shortForm_isTheBeginningAndTheName();
    void partner_names_data();
    void partner_names();
    void partner_exactName_comesFirst();
    void partner_otherCase_isFound();
    void partner_folder_isNone();
};

void tst_ProjectRules::texts_ofBothHalves_areTheirs()
{
    QCOMPARE(OrchestraHalf.changedLine(), QStringLiteral("File Orchestra has changed!"));
    QCOMPARE(ScoreHalf.changedLine(), QStringLiteral("File Score has changed!"));
    QCOMPARE(OrchestraHalf.openTitle(), QStringLiteral("Open Orchestra (*.ORC)"));
    QCOMPARE(ScoreHalf.openTitle(), QStringLiteral("Open Score (*.SCO)"));
    QCOMPARE(OrchestraHalf.openFilter(),
             QStringLiteral("Csound Orchestra (*.orc)|*.orc|All Files (*.*)|*.*"));
    QCOMPARE(ScoreHalf.openFilter(),
             QStringLiteral("Csound Score (*.sco)|*.sco|All Files (*.*)|*.*"));
    QCOMPARE(OrchestraHalf.saveTitle(), QStringLiteral("Save Orchestra As ... (*.ORC)"));
    QCOMPARE(ScoreHalf.saveTitle(), QStringLiteral("Save Score As ... (*.SCO)"));
    QCOMPARE(OrchestraHalf.saveFilter(),
             QStringLiteral(
                 "Csound Orchestra (*.orc)|*.orc|Text Files (*.txt)|*.txt|All Files (*.*)|*.*"));
    QCOMPARE(
        ScoreHalf.saveFilter(),
        QStringLiteral("Csound Score (*.sco)|*.sco|Text Files (*.txt)|*.txt|All Files (*.*)|*.*"));
    QCOMPARE(missingScoreText(QStringLiteral("/a/b.sco")),
             QStringLiteral("File Score: /a/b.sco hasn't found!"));
}

void tst_ProjectRules::label_fullForm_isThePathOrTheMarker()
{
    QCOMPARE(OrchestraHalf.label(QStringLiteral("/home/u/a.orc")),
             QStringLiteral("File Orchestra: /home/u/a.orc"));
    QCOMPARE(ScoreHalf.label(QStringLiteral("[Untitled]")),
             QStringLiteral("File Score: [Untitled]"));
}

void tst_ProjectRules::label_shortForm_isTheBeginningAndTheName_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("label");
    QTest::newRow("path") << QStringLiteral("/home/u/music/a.orc")
                          << QStringLiteral("/ho ~ \\a.orc");
    QTest::newRow("short path") << QStringLiteral("/a") << QStringLiteral("/a ~ \\a");
    QTest::newRow("untitled") << QStringLiteral("[Untitled]") << QString();
    QTest::newRow("none") << QString() << QString();
}

void tst_ProjectRules::label_shortForm_isTheBeginningAndTheName()
{
    QFETCH(QString, path);
    QFETCH(QString, label);
    QCOMPARE(ProjectHalf::shortLabel(path).value_or(QString()), label);
}

void tst_ProjectRules::partner_names_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("withExtension"); // four characters made into ".sco"
    QTest::addColumn<QString>("withEnding");    // three characters made into "sco"
    QTest::newRow("usual") << "/u/a.orc"
                           << "/u/a.sco"
                           << "/u/a.sco";
    QTest::newRow("capitals") << "/u/A.ORC"
                              << "/u/A.sco"
                              << "/u/A.sco";
    QTest::newRow("no extension") << "/u/prelude"
                                  << "/u/pre.sco"
                                  << "/u/prelsco";
    QTest::newRow("three letters") << "/u.v/orc"
                                   << "/u.v.sco"
                                   << "/u.v/sco";
    QTest::newRow("dots in the folder") << "/u.orc/a.b.orc"
                                        << "/u.orc/a.b.sco"
                                        << "/u.orc/a.b.sco";
    QTest::newRow("nothing left") << "/a"
                                  << ".sco"
                                  << "sco";
}

void tst_ProjectRules::partner_names()
{
    QFETCH(QString, path);
    QTEST(pathWithExtension(path, QStringLiteral("sco")), "withExtension");
    QTEST(pathWithEnding(path, QStringLiteral("sco")), "withEnding");
}

namespace {

QString put(const QTemporaryDir &folder, const char *name)
{
    QFile file(folder.filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", name);
    return file.fileName();
}

} // namespace

void tst_ProjectRules::partner_exactName_comesFirst()
{
    const QTemporaryDir folder;
    put(folder, "PIECE.SCO");
    put(folder, "Piece.sco");
    const QString exact = put(folder, "piece.sco");
    QCOMPARE(existingPartner(exact), exact);
}

void tst_ProjectRules::partner_otherCase_isFound()
{
    const QTemporaryDir folder;
    const QString other = put(folder, "PIECE.SCO");
    put(folder, "piece.scores");
    QCOMPARE(existingPartner(folder.filePath(QStringLiteral("piece.sco"))), other);
    QVERIFY(!existingPartner(folder.filePath(QStringLiteral("other.sco"))));
    QVERIFY(!existingPartner(QStringLiteral("/no/such/folder/piece.sco")));
}

void tst_ProjectRules::partner_folder_isNone()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("piece.sco")));
    QVERIFY(!existingPartner(folder.filePath(QStringLiteral("piece.sco"))));
}

ARDIPHON_TEST(tst_ProjectRules, NoApplication)
#include "tst_ProjectRules.moc"
