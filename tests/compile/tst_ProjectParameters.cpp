#include "compile/ProjectParameters.h"
#include "platform/CommandText.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

class tst_ProjectParameters : public QObject
{
    Q_OBJECT

private slots:
    void defaultWaveName_orchestra_losesFourCharacters_data();
    void defaultWaveName_orchestra_losesFourCharacters();
    void writtenWave_name_isBelowTheFolder();
    void flagsGive_flags_looksAnywhere_data();
    void flagsGive_flags_looksAnywhere();
    void parameters_blanksInPaths_exactText();
    void parameters_noFlags_beginWithBlank();
    void parameters_blanksAtEnds_areCutFromFlagsAlone();
    void parameters_oddNames_stayOneArgument();
};

void tst_ProjectParameters::defaultWaveName_orchestra_losesFourCharacters_data()
{
    QTest::addColumn<QString>("orchestra");
    QTest::addColumn<QString>("wave");
    QTest::newRow("extension of three") << "/m/a.orc"
                                        << "/m/a.wav";
    QTest::newRow("shorter extension") << "/m/a.o"
                                       << "/m.wav";
    QTest::newRow("shorter extension, longer name") << "/a.o"
                                                    << ".wav";
    QTest::newRow("no extension") << "/m/orchestra"
                                  << "/m/orche.wav";
    QTest::newRow("shorter than what is cut") << "abc"
                                              << ".wav";
    QTest::newRow("none") << ""
                          << "";
}

void tst_ProjectParameters::defaultWaveName_orchestra_losesFourCharacters()
{
    QFETCH(QString, orchestra);
    QTEST(defaultWaveName(orchestra), "wave");
}

void tst_ProjectParameters::writtenWave_name_isBelowTheFolder()
{
    const QString folder = QStringLiteral("/music");
    QCOMPARE(writtenWave(QStringLiteral("/a b.wav "), folder), QStringLiteral("/a b.wav "));
    QCOMPARE(writtenWave(QStringLiteral("take 2.wav"), folder),
             QStringLiteral("/music/take 2.wav"));
    QCOMPARE(writtenWave(QString(), folder), QString());
}

void tst_ProjectParameters::flagsGive_flags_looksAnywhere_data()
{
    QTest::addColumn<QString>("flags");
    QTest::addColumn<QString>("given"); // of "-O" and "-o"
    QTest::newRow("none") << ""
                          << "";
    QTest::newRow("others") << "-W -d -m7"
                            << "";
    QTest::newRow("-o") << "-W -o x"
                        << "o";
    QTest::newRow("-odac") << "-odac"
                           << "o";
    QTest::newRow("-O") << "-Olog"
                        << "O";
    QTest::newRow("both") << "-O -o"
                          << "Oo";
    QTest::newRow("in a word") << "--my-own=1"
                               << "o";
    QTest::newRow("in a group") << "-Wo"
                                << "o";
    QTest::newRow("in a longer group") << "-d -3WdO"
                                       << "O";
    QTest::newRow("a letter behind a value") << "-Fsong.mid -b10 -mO"
                                             << "";
    QTest::newRow("without a dash") << "o O"
                                    << "";
}

void tst_ProjectParameters::flagsGive_flags_looksAnywhere()
{
    QFETCH(QString, flags);
    QString given;
    for (const QChar letter : {u'O', u'o'})
        if (flagsGive(flags, letter))
            given += letter;
    QTEST(given, "given");
}

void tst_ProjectParameters::parameters_blanksInPaths_exactText()
{
    const ProjectFields fields{QStringLiteral("-W"), QStringLiteral("/my music/a.wav"),
                               QStringLiteral("/my music/a.orc"),
                               QStringLiteral("/my music/a.sco")};
    QCOMPARE(loggedProjectParameters(fields, QStringLiteral("/r/")),
             QStringLiteral("-W -o \"/my music/a.wav\" \"/my music/a.orc\" \"/my music/a.sco\" "
                            "-O/r/tmp.txt"));
    QCOMPARE(projectParameters(fields),
             QStringLiteral("-W -o \"/my music/a.wav\" \"/my music/a.orc\" \"/my music/a.sco\""));
    QCOMPARE(playedProjectParameters(fields),
             QStringLiteral("-W \"/my music/a.orc\" \"/my music/a.sco\""));
}

void tst_ProjectParameters::parameters_noFlags_beginWithBlank()
{
    const ProjectFields fields{QString(), AudioDevice, QStringLiteral("a.orc"),
                               QStringLiteral("a.sco")};
    QCOMPARE(projectParameters(fields), QStringLiteral(" -o \"devaudio\" \"a.orc\" \"a.sco\""));
    QCOMPARE(playedProjectParameters(fields), QStringLiteral(" \"a.orc\" \"a.sco\""));
}

void tst_ProjectParameters::parameters_blanksAtEnds_areCutFromFlagsAlone()
{
    const ProjectFields fields{QStringLiteral(" -W  "), QStringLiteral(" a.wav "),
                               QStringLiteral(" a.orc "), QStringLiteral(" a.sco ")};
    QCOMPARE(projectParameters(fields),
             QStringLiteral(" -W -o \" a.wav \" \" a.orc \" \" a.sco \""));
}

void tst_ProjectParameters::parameters_oddNames_stayOneArgument()
{
    const QString odd = QStringLiteral("/a;b $HOME *?\n\"q\" 'x' `ls`/c");
    const QStringList arguments = splitCommandText(
        loggedProjectParameters({QStringLiteral("-W \"-m 7\""), odd + QStringLiteral(".wav"),
                                 odd + QStringLiteral(".orc"), odd + QStringLiteral(".sco")},
                                QStringLiteral("/r/")));
    QCOMPARE(arguments, QStringList({"-W", "-m 7", "-o", odd + ".wav", odd + ".orc", odd + ".sco",
                                     "-O/r/tmp.txt"}));
}

ARDIPHON_TEST(tst_ProjectParameters, QCoreApplication)
#include "tst_ProjectParameters.moc"
