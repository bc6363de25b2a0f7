#include "app/ConfigurationBlock.h"
#include "compile/LaunchChecks.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

namespace {

/// The two lines of the messages for a compiler that is called \a name there.
QString noName(const QString &document, const QString &name)
{
    return QStringLiteral("No name associated to ") + document +
           QStringLiteral("!\r\nYou must save it with a valid name before start ") + name +
           QStringLiteral(" (CTRL+S)");
}

QString changed(const QString &document, const QString &name)
{
    return document + QStringLiteral(" has changed!\r\nYou must save it before start ") + name +
           QStringLiteral(" (CTRL+S)");
}

const QString CSound = QStringLiteral("CSound compiler");
const QString Winsound = QStringLiteral("Winsound compiler");
const QString CSoundAV = QStringLiteral("CSoundAV");
const QString NoCSound =
    QStringLiteral("Cannot find CSound.exe!\r\nSelect File->Settings->Csound.exe!");
const QString NoWinsound =
    QStringLiteral("Cannot find Winsound.exe!\r\nSelect File->Settings->Winsound.exe!");
const QString NoCSoundAV = QStringLiteral("Cannot find CSoundAV.exe or DirectCSound.exe!\r\n"
                                          "Select File->Settings->CSoundAV.exe!");
const QString Opens = QStringLiteral("opens");

/// "opens", "" for neither a window nor a word, or what is said, with what a box of it should be.
QString outcome(const LaunchDecision &decision, const QString &title = ProgramTitle)
{
    if (!decision.message)
        return decision.open ? Opens : QString();
    const Message &said = *decision.message;
    const bool asExpected = !decision.open && said.title == title &&
                            said.icon == MessageIcon::Exclamation &&
                            said.buttons == MessageButtons::Ok;
    return asExpected ? said.text : QStringLiteral("wrong box: ") + said.text;
}

struct Named
{
    const Compiler &compiler;
    QString name;
    QString missing;
    QString ofEmptyText; ///< the outcome
};

const Named Compilers[] = {
    {CSoundCompiler, CSound, NoCSound, QString()},
    {WinsoundCompiler, Winsound, NoWinsound, QString()},
    {CSoundAVCompiler, CSoundAV, NoCSoundAV, Opens},
};

} // namespace

class tst_LaunchChecks : public QObject
{
    Q_OBJECT

private slots:
    void csd_anyCompiler_firstFailingCheckSpeaks();
    void csd_otherUntitled_passes();
    void csdCompile_ownLogFlag_isRefusedLast();
    void project_anyCompiler_firstFailingCheckSpeaks();
    void project_texts_oneIsEnough();
    void csOptions_text_namesLog_data();
    void csOptions_text_namesLog();
};

/// Each step mends what the step before was refused for.
void tst_LaunchChecks::csd_anyCompiler_firstFailingCheckSpeaks()
{
    for (const Named &each : Compilers) {
        ConfigurationBlock config;
        const auto check = [&](bool modified, const char *text) {
            return outcome(checkCsdLaunch(each.compiler, config, modified, QLatin1String(text)));
        };
        const QString file = QStringLiteral("File");
        QCOMPARE(check(true, ""), noName(file, each.name));
        config.CSDFileName = QStringLiteral("[Untitled]");
        QCOMPARE(check(true, ""), noName(file, each.name));
        config.CSDFileName = QStringLiteral("/a.csd");
        QCOMPARE(check(true, ""), changed(file, each.name));
        QCOMPARE(check(false, ""), each.compiler.needsText ? QString() : each.missing);
        QCOMPARE(check(false, "x"), each.missing);
        config.*each.compiler.path = QStringLiteral("/compiler");
        QCOMPARE(check(false, "x"), Opens);
        QCOMPARE(check(false, ""), each.ofEmptyText);
    }
}

void tst_LaunchChecks::csd_otherUntitled_passes()
{
    ConfigurationBlock config;
    config.CSDFileName = QStringLiteral("[Untitled.CSD]");
    config.FileCSound = QStringLiteral("/csound");
    QCOMPARE(outcome(checkCsdCompile(config, false, QStringLiteral("x"))), Opens);
}

void tst_LaunchChecks::csdCompile_ownLogFlag_isRefusedLast()
{
    ConfigurationBlock config;
    config.CSDFileName = QStringLiteral("/a.csd");
    const QString text = QStringLiteral("<CsOptions>-Ox</CsOptions>");
    QCOMPARE(outcome(checkCsdCompile(config, false, text)), NoCSound);
    config.FileCSound = QStringLiteral("/csound");
    QCOMPARE(outcome(checkCsdCompile(config, false, text), QStringLiteral("Error")),
             QStringLiteral("Don't use '-O' flag in Ardiphon!"));
    // The others look at no options.
    QCOMPARE(outcome(checkCsdLaunch(CSoundCompiler, config, false, text)), Opens);
}

void tst_LaunchChecks::project_anyCompiler_firstFailingCheckSpeaks()
{
    const QString orchestra = QStringLiteral("File Orchestra");
    const QString score = QStringLiteral("File Score");
    for (const Named &each : Compilers) {
        ConfigurationBlock config;
        const auto check = [&](const LaunchedHalf &first, const LaunchedHalf &second) {
            return outcome(checkProjectLaunch(each.compiler, config, first, second));
        };
        const LaunchedHalf modified{true, true};
        const LaunchedHalf empty{false, true};
        const LaunchedHalf written{false, false};
        QCOMPARE(check(modified, modified), noName(orchestra, each.name));
        config.OrchestraFileName = QStringLiteral("/a.orc");
        QCOMPARE(check(modified, modified), noName(score, each.name));
        config.ScoreFileName = QStringLiteral("/a.sco");
        QCOMPARE(check(modified, modified), changed(orchestra, each.name));
        QCOMPARE(check(empty, modified), changed(score, each.name));
        QCOMPARE(check(empty, empty), each.missing);
        config.*each.compiler.path = QStringLiteral("/compiler");
        QCOMPARE(check(written, written), Opens);
        QCOMPARE(check(empty, empty), each.ofEmptyText);
    }
}

void tst_LaunchChecks::project_texts_oneIsEnough()
{
    ConfigurationBlock config;
    config.OrchestraFileName = QStringLiteral("/a.orc");
    config.ScoreFileName = QStringLiteral("/a.sco");
    config.FileCSound = QStringLiteral("/csound");
    const LaunchedHalf empty{false, true};
    const LaunchedHalf written{false, false};
    QCOMPARE(outcome(checkProjectLaunch(CSoundCompiler, config, empty, written)), Opens);
    QCOMPARE(outcome(checkProjectLaunch(CSoundCompiler, config, written, empty)), Opens);
}

void tst_LaunchChecks::csOptions_text_namesLog_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("names");
    QTest::newRow("-odac") << "<CsOptions>\r\n-odac\r\n</CsOptions>" << false;
    QTest::newRow("-Ofile") << "<CsOptions>\r\n-Ofile\r\n</CsOptions>" << true;
    QTest::newRow("inside a word") << "<CsOptions>my-Own.wav</CsOptions>" << true;
    QTest::newRow("before the section") << "; -Ox\r\n<CsOptions>-W</CsOptions>" << false;
    QTest::newRow("behind the section") << "<CsOptions>-W</CsOptions>; -O" << false;
    QTest::newRow("no section") << "-Ox" << false;
    QTest::newRow("not closed") << "<CsOptions>-Ox" << false;
    QTest::newRow("closed before it opens") << "</CsOptions><CsOptions>-Ox" << false;
    QTest::newRow("other case of the tag") << "<csoptions>-Ox</csoptions>" << false;
    QTest::newRow("second section") << "<CsOptions></CsOptions><CsOptions>-O</CsOptions>" << false;
    QTest::newRow("torn by the closing tag") << "<CsOptions>-</CsOptions>O" << false;
}

void tst_LaunchChecks::csOptions_text_namesLog()
{
    QFETCH(QString, text);
    QTEST(csOptionsNameLog(text), "names");
}

ARDIPHON_TEST(tst_LaunchChecks, QCoreApplication)
#include "tst_LaunchChecks.moc"
