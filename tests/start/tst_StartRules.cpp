#include "start/StartRules.h"

#include "app/ConfigurationBlock.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

Q_DECLARE_METATYPE(ardiphon::StartWindow)
Q_DECLARE_METATYPE(ardiphon::DocumentRole)

class tst_StartRules : public QObject
{
    Q_OBJECT

private slots:
    void roleOfPath_data();
    void roleOfPath();
    void longPathName_relative_isMadeAbsolute();
    void longPathName_spelling_isLeftAlone();
    void longPathName_missingFile_isLeftAlone();
    void longPathName_empty_staysEmpty();
    void longPathName_dots_goWhereTheyMeanTheSame();
    void longPathName_dotsBehindALink_stay();
    void commandText_isOnePath_data();
    void commandText_isOnePath();
    void commandText_fileNamedWithQuotes_isThatFile();
    void nameDocument_setsOnlyTheFieldThatFits_data();
    void nameDocument_setsOnlyTheFieldThatFits();
    void decideStart_commandLine_goesBeforeStartupAction();
    void decideStart_commandLine_emptiesTheOtherNames_data();
    void decideStart_commandLine_emptiesTheOtherNames();
    void decideStart_commandLine_beginsInTheFolderOfTheFile();
    void decideStart_startupAction_data();
    void decideStart_startupAction();
    void show_opensTheWindowAsked();
};

void tst_StartRules::roleOfPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<DocumentRole>("kind");

    QTest::newRow("orc") << "/m/piece.orc" << DocumentRole::Orchestra;
    QTest::newRow("ORC") << "/m/PIECE.ORC" << DocumentRole::Orchestra;
    QTest::newRow("sco in mixed case") << "/m/piece.ScO" << DocumentRole::Score;
    QTest::newRow("csd") << "/m/piece.csd" << DocumentRole::Csd;
    QTest::newRow("txt") << "/m/piece.txt" << DocumentRole::Csd;
    QTest::newRow("no extension") << "/m/piece" << DocumentRole::Csd;
    QTest::newRow("no dot but the letters") << "/m/torc" << DocumentRole::Orchestra;
    QTest::newRow("folder ends so, not the name") << "/m.orc/a" << DocumentRole::Csd;
    QTest::newRow("two letters") << "rc" << DocumentRole::Csd;
    QTest::newRow("empty") << "" << DocumentRole::Csd;
}

void tst_StartRules::roleOfPath()
{
    QFETCH(QString, path);
    QTEST(ardiphon::roleOfPath(path), "kind");
}

void tst_StartRules::longPathName_relative_isMadeAbsolute()
{
    QCOMPARE(LongPathName("piece.csd"), QDir::currentPath() + "/piece.csd");
    QCOMPARE(LongPathName("-piece.csd"), QDir::currentPath() + "/-piece.csd");
    QCOMPARE(LongPathName("./a/piece.csd"), QDir::currentPath() + "/a/piece.csd");
}

void tst_StartRules::longPathName_spelling_isLeftAlone()
{
    const QString path = QStringLiteral(u"/MY Music/t\u00e9ST file.CSD");
    QCOMPARE(LongPathName(path), path);
}

void tst_StartRules::longPathName_missingFile_isLeftAlone()
{
    QCOMPARE(LongPathName("/no/such/Folder/file.csd"), "/no/such/Folder/file.csd");
}

void tst_StartRules::longPathName_empty_staysEmpty() { QCOMPARE(LongPathName(""), ""); }

void tst_StartRules::longPathName_dots_goWhereTheyMeanTheSame()
{
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir("sub"));
    QCOMPARE(LongPathName(folder.path() + "/sub/../piece.csd"), folder.path() + "/piece.csd");
}

void tst_StartRules::longPathName_dotsBehindALink_stay()
{
    QTemporaryDir folder;
    QDir root(folder.path());
    QVERIFY(root.mkpath("real/sub"));
    QVERIFY(QFile::link(root.filePath("real/sub"), root.filePath("link")));
    for (const char *name : {"real/piece.csd", "piece.csd"}) {
        QFile file(root.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(name);
    }
    QFile opened(LongPathName(root.filePath("link") + "/../piece.csd"));
    QVERIFY(opened.open(QIODevice::ReadOnly));
    QCOMPARE(opened.readAll(), "real/piece.csd");
}

void tst_StartRules::commandText_isOnePath_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("path");

    QTest::newRow("plain") << "/m/piece.csd"
                           << "/m/piece.csd";
    QTest::newRow("blanks") << "/m/my piece.csd"
                            << "/m/my piece.csd";
    QTest::newRow("quoted") << "\"/m/my piece.csd\""
                            << "/m/my piece.csd";
    QTest::newRow("only the first quote looked at") << "\"/m/piece.csdX"
                                                    << "/m/piece.csd";
    QTest::newRow("quote inside") << "/m/a\"b.csd"
                                  << "/m/a\"b.csd";
    QTest::newRow("quote alone") << "\""
                                 << "";
    QTest::newRow("two paths are one") << "/m/a.csd /m/b.orc"
                                       << "/m/a.csd /m/b.orc";
}

void tst_StartRules::commandText_isOnePath()
{
    QFETCH(QString, text);
    QTEST(pathOfCommandText(text), "path");
}

void tst_StartRules::commandText_fileNamedWithQuotes_isThatFile()
{
    QTemporaryDir folder;
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    QFile file("\"quoted\"");
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(pathOfCommandText("\"quoted\""), QDir::currentPath() + "/\"quoted\"");
    QVERIFY(QDir::setCurrent(before));
}

void tst_StartRules::nameDocument_setsOnlyTheFieldThatFits_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<StartWindow>("window");
    QTest::addColumn<QStringList>("names"); // CSD, orchestra, score

    QTest::newRow("csd") << "/a.csd" << StartWindow::FormCSD << QStringList({"/a.csd", "o", "s"});
    QTest::newRow("txt") << "/a.txt" << StartWindow::FormCSD << QStringList({"/a.txt", "o", "s"});
    QTest::newRow("orc") << "/a.orc" << StartWindow::FormORCSCO
                         << QStringList({"c", "/a.orc", "s"});
    QTest::newRow("sco") << "/a.SCO" << StartWindow::FormORCSCO
                         << QStringList({"c", "o", "/a.SCO"});
}

void tst_StartRules::nameDocument_setsOnlyTheFieldThatFits()
{
    QFETCH(QString, path);
    ConfigurationBlock config;
    config.CSDFileName = "c";
    config.OrchestraFileName = "o";
    config.ScoreFileName = "s";
    QTEST(nameDocument(config, path), "window");
    QTEST(QStringList({config.CSDFileName, config.OrchestraFileName, config.ScoreFileName}),
          "names");
}

void tst_StartRules::decideStart_commandLine_goesBeforeStartupAction()
{
    ConfigurationBlock config;
    config.StartupAction = "CSD";
    QCOMPARE(decideStart(config, "/a.orc"), StartWindow::FormORCSCO);
    config.StartupAction = "ORCSCO";
    QCOMPARE(decideStart(config, "\"/a.csd\""), StartWindow::FormCSD);
    QCOMPARE(config.CSDFileName, "/a.csd");
}

void tst_StartRules::decideStart_commandLine_emptiesTheOtherNames_data()
{
    nameDocument_setsOnlyTheFieldThatFits_data();
}

void tst_StartRules::decideStart_commandLine_emptiesTheOtherNames()
{
    QFETCH(QString, path);
    QFETCH(QStringList, names);
    ConfigurationBlock config;
    config.CSDFileName = "c";
    config.OrchestraFileName = "o";
    config.ScoreFileName = "s";
    QTEST(decideStart(config, path), "window");
    const QStringList named{config.CSDFileName, config.OrchestraFileName, config.ScoreFileName};
    for (QString &name : names)
        if (name != path)
            name.clear();
    QCOMPARE(named, names);
}

void tst_StartRules::decideStart_commandLine_beginsInTheFolderOfTheFile()
{
    const QTemporaryDir folder;
    const QString before = QDir::currentPath();
    ConfigurationBlock config;
    decideStart(config, folder.filePath("a.csd"));
    QCOMPARE(QDir::currentPath(), folder.path());
    decideStart(config, "b.csd");
    QCOMPARE(config.CSDFileName, folder.filePath("b.csd"));
    decideStart(config, "/no/such/folder/c.csd");
    QCOMPARE(QDir::currentPath(), folder.path());
    QVERIFY(QDir::setCurrent(before));
}

void tst_StartRules::decideStart_startupAction_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<StartWindow>("window");

    QTest::newRow("CSD") << "CSD" << StartWindow::FormCSD;
    QTest::newRow("ORCSCO") << "ORCSCO" << StartWindow::FormORCSCO;
    QTest::newRow("STARTWINDOW") << "STARTWINDOW" << StartWindow::Chooser;
    QTest::newRow("unknown") << "SOMETHING" << StartWindow::Chooser;
    QTest::newRow("small letters are unknown") << "csd" << StartWindow::Chooser;
    QTest::newRow("empty") << "" << StartWindow::Chooser;
}

void tst_StartRules::decideStart_startupAction()
{
    QFETCH(QString, action);
    ConfigurationBlock config;
    config.StartupAction = action;
    config.CSDFileName = config.OrchestraFileName = config.ScoreFileName = "old";
    QTEST(decideStart(config, ""), "window");
    QCOMPARE(config.CSDFileName, "");
    QCOMPARE(config.OrchestraFileName, "");
    QCOMPARE(config.ScoreFileName, "");
}

void tst_StartRules::show_opensTheWindowAsked()
{
    QStringList shown;
    const EditorWindows windows{[&] { shown << "CSD"; }, [&] { shown << "ORCSCO"; }};
    windows.show(StartWindow::Chooser);
    windows.show(StartWindow::FormORCSCO);
    windows.show(StartWindow::FormCSD);
    QCOMPARE(shown, QStringList({"ORCSCO", "CSD"}));
}

ARDIPHON_TEST(tst_StartRules, QCoreApplication)
#include "tst_StartRules.moc"
