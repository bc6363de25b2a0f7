#include "app/ui/PathField.h"
#include "compile/ProjectDialog.h"
#include "compile/ui/FormCSoundAV.h"
#include "support/TestMain.h"

#include <QLabel>

using namespace ardiphon;

class tst_FormCSoundAV : public QObject
{
    Q_OBJECT

private slots:
    void csd_opening_showsPathAndFile();
    void longPaths_areShownAndGetMoreRoom_data();
    void longPaths_areShownAndGetMoreRoom();
    void csd_play_startsAndCloses();
    void csd_editedField_hasNoEffect();
    void project_opening_showsPathAndFiles();
    void project_play_passesTheFields();
    void project_ownFlags_areNotRefused();
    void browse_file_isWhatPlays_data();
    void browse_file_isWhatPlays();
    void browse_file_countsUntilClosing_data();
    void browse_file_countsUntilClosing();
    void play_missingCompiler_saysNothing_data();
    void play_missingCompiler_saysNothing();
    void exitAndEscape_close_data();
    void exitAndEscape_close();

private:
    static void bothForms()
    {
        QTest::addColumn<bool>("project");
        QTest::newRow("CSD") << false;
        QTest::newRow("project") << true;
    }
    static void open(ProjectDialog &dialog)
    {
        QFETCH(bool, project);
        if (project)
            dialog.open<FormCSoundAVORC>();
        else
            dialog.open<FormCSoundAV>();
    }
    static QStringList labels(const ProjectDialog &dialog)
    {
        QStringList texts;
        for (const QLabel *label : dialog.form->findChildren<QLabel *>())
            texts.append(label->text());
        return texts;
    }
    /// The arguments that the stand-in was started with, once it has run on \a piece.
    static QStringList arguments(const ProjectDialog &dialog, const QString &piece)
    {
        if (!QTest::qWaitFor([&] { return StandInCompiler::pids(dialog.path(piece)).leader != 0; }))
            return {QStringLiteral("never started")};
        return dialog.argumentsIn(QString::fromUtf8(dialog.read(piece + QStringLiteral(".log"))));
    }
};

void tst_FormCSoundAV::csd_opening_showsPathAndFile()
{
    ProjectDialog dialog;
    dialog.open<FormCSoundAV>();
    QCOMPARE(dialog.form->objectName(), QStringLiteral("FormCSoundAV"));
    QCOMPARE(dialog.form->windowTitle(), QStringLiteral("CSoundAV"));
    QCOMPARE(labels(dialog), QStringList({"DirectCSound:", "CSD File:"}));
    QCOMPARE(dialog.field("dir_Csound"), StandInCompiler::path());
    QCOMPARE(dialog.field("Orchestra"), dialog.config.CSDFileName);
    QCOMPARE(dialog.control("CercaCsound")->text(), QStringLiteral("&Browse"));
    QCOMPARE(dialog.control("Compila")->text(), QStringLiteral("&Play"));
    QCOMPARE(dialog.control("Command1")->text(), QStringLiteral("E&xit"));
}

void tst_FormCSoundAV::longPaths_areShownAndGetMoreRoom_data()
{
    QTest::addColumn<bool>("ofProject");
    QTest::newRow("CSD") << false;
    QTest::newRow("project") << true;
}

void tst_FormCSoundAV::longPaths_areShownAndGetMoreRoom()
{
    QFETCH(bool, ofProject);
    ProjectDialog dialog(QStringLiteral("a folder/").repeated(30) + QStringLiteral("piece"));
    if (ofProject)
        dialog.open<FormCSoundAVORC>();
    else
        dialog.open<FormCSoundAV>();
    QWidget &form = *dialog.form;
    QCOMPARE(form.width(), 520);
    auto *field = static_cast<PathField *>(dialog.control<QLineEdit>("Orchestra"));
    QVERIFY(field->shownText().contains(QChar(0x2026)));
    QVERIFY(field->shownText().endsWith(ofProject ? QStringLiteral("piece.orc")
                                                  : QStringLiteral("piece.csd")));
    QCOMPARE(field->toolTip(), pathToolTip(field->text()));
    const int height = form.height();
    const qsizetype shown = field->shownText().size();
    form.resize(1000, height + 100);
    QTRY_COMPARE(form.size(), QSize(1000, height));
    QTRY_VERIFY(field->shownText().size() > shown * 3 / 2);
}

void tst_FormCSoundAV::csd_play_startsAndCloses()
{
    ProjectDialog dialog(QStringLiteral("my piece; $HOME"));
    dialog.open<FormCSoundAV>();
    dialog.click("Compila");
    QVERIFY(!dialog.form->isVisible());
    QCOMPARE(arguments(dialog, QStringLiteral("my piece; $HOME.csd")),
             QStringList{dialog.config.CSDFileName});
    const QByteArray told = dialog.read(QStringLiteral("my piece; $HOME.csd.log"));
    QVERIFY(told.contains("directory " + QCoreApplication::applicationDirPath().toUtf8()));
    QVERIFY(told.contains("SFDIR=" + dialog.folder.path().toUtf8() + '\n'));
}

void tst_FormCSoundAV::csd_editedField_hasNoEffect()
{
    ProjectDialog dialog(QStringLiteral("my piece"));
    dialog.open<FormCSoundAV>();
    dialog.control<QLineEdit>("Orchestra")->setText(QStringLiteral("/other.csd"));
    dialog.click("Compila");
    QCOMPARE(arguments(dialog, QStringLiteral("my piece.csd")),
             QStringList{dialog.config.CSDFileName});
}

void tst_FormCSoundAV::project_opening_showsPathAndFiles()
{
    ProjectDialog dialog;
    dialog.open<FormCSoundAVORC>();
    QCOMPARE(dialog.form->objectName(), QStringLiteral("FormCSoundAVORC"));
    QCOMPARE(dialog.form->windowTitle(), QStringLiteral("CSoundAV (Orc. & Sco.)"));
    QCOMPARE(labels(dialog), QStringList({"DirectCSound:", "Orchestra:", "Score:", "Flags:"}));
    QCOMPARE(dialog.field("dir_Csound"), StandInCompiler::path());
    QCOMPARE(dialog.field("Orchestra"), dialog.config.OrchestraFileName);
    QCOMPARE(dialog.field("Score"), dialog.config.ScoreFileName);
    QCOMPARE(dialog.control("Compila")->text(), QStringLiteral("&Play"));
    QCOMPARE(dialog.control("Command2")->text(), QStringLiteral("&Add Flags"));
    QCOMPARE(dialog.control("Command4")->text(), QStringLiteral("&Remove Flags"));
    QCOMPARE(dialog.control("Command5")->text(), QStringLiteral("&Flags"));
}

void tst_FormCSoundAV::project_play_passesTheFields()
{
    ProjectDialog dialog(QStringLiteral("my piece"));
    dialog.open<FormCSoundAVORC>();
    dialog.setFlags(QStringLiteral("-a \"b c\" "));
    dialog.control<QLineEdit>("Score")->setText(QStringLiteral("/other.sco"));
    dialog.click("Compila");
    QVERIFY(!dialog.form->isVisible());
    QCOMPARE(arguments(dialog, QStringLiteral("my piece.orc")),
             QStringList({"-a", "b c", dialog.config.OrchestraFileName, "/other.sco"}));
    const QByteArray told = dialog.read(QStringLiteral("my piece.orc.log"));
    QVERIFY(told.contains("directory " + QCoreApplication::applicationDirPath().toUtf8()));
    QVERIFY(told.contains("SFDIR=" + dialog.folder.path().toUtf8() + '\n'));
}

void tst_FormCSoundAV::project_ownFlags_areNotRefused()
{
    ProjectDialog dialog(QStringLiteral("my piece"));
    dialog.open<FormCSoundAVORC>();
    dialog.setFlags(QStringLiteral("-o x"));
    dialog.click("Compila");
    QCOMPARE(arguments(dialog, QStringLiteral("my piece.orc")).mid(0, 2), QStringList({"-o", "x"}));
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSoundAV::browse_file_isWhatPlays_data() { bothForms(); }

void tst_FormCSoundAV::browse_file_isWhatPlays()
{
    QFETCH(bool, project);
    ProjectDialog dialog(QStringLiteral("my piece"));
    const QString chosen = dialog.path(QStringLiteral("own/av"));
    QVERIFY(QFile::link(StandInCompiler::path(), chosen));
    dialog.config.FileDirectCSound = QStringLiteral("/nowhere/av");
    open(dialog);
    dialog.dialogs.expectOpen(QStringLiteral("DirectCSound/CSoundAV Directory"), chosen);
    dialog.click("CercaCsound");
    dialog.click("Compila");
    const QString piece = project ? QStringLiteral("my piece.orc") : QStringLiteral("my piece.csd");
    QVERIFY(arguments(dialog, piece).contains(dialog.path(piece)));
    QVERIFY(dialog.read(piece + QStringLiteral(".log"))
                .contains("directory " + dialog.path(QStringLiteral("own")).toUtf8()));
    QCOMPARE(dialog.config.FileDirectCSound, QStringLiteral("/nowhere/av"));
}

void tst_FormCSoundAV::browse_file_countsUntilClosing_data() { bothForms(); }

void tst_FormCSoundAV::browse_file_countsUntilClosing()
{
    ProjectDialog dialog;
    open(dialog);
    const QString title = QStringLiteral("DirectCSound/CSoundAV Directory");
    dialog.dialogs.expectOpen(title, std::nullopt);
    dialog.click("CercaCsound");
    QCOMPARE(dialog.config.FileDirectCSound, StandInCompiler::path());
    dialog.dialogs.expectOpen(title, QStringLiteral("/other/av"));
    dialog.click("CercaCsound");
    QCOMPARE(dialog.config.FileDirectCSound, QStringLiteral("/other/av"));
    QCOMPARE(dialog.field("dir_Csound"), QStringLiteral("/other/av"));
    QCOMPARE(dialog.dialogs.fileQuestions.last().filter, QStringLiteral("DirectCSound.exe |*.exe"));
    QCOMPARE(dialog.dialogs.fileQuestions.last().directory, QDir::currentPath());
    dialog.click("Command1");
    QCOMPARE(dialog.config.FileDirectCSound, StandInCompiler::path());
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSoundAV::play_missingCompiler_saysNothing_data() { bothForms(); }

void tst_FormCSoundAV::play_missingCompiler_saysNothing()
{
    ProjectDialog dialog;
    dialog.config.FileDirectCSound = QStringLiteral("/nowhere/av");
    open(dialog);
    dialog.click("Compila");
    QVERIFY(!dialog.form->isVisible());
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSoundAV::exitAndEscape_close_data() { bothForms(); }

void tst_FormCSoundAV::exitAndEscape_close()
{
    ProjectDialog dialog;
    open(dialog);
    QTest::keyClick(dialog.form.get(), Qt::Key_Escape);
    QVERIFY(!dialog.form->isVisible());
    open(dialog);
    QTest::keyClick(dialog.form.get(), Qt::Key_X, Qt::AltModifier);
    QTRY_VERIFY(!dialog.form->isVisible());
    QCOMPARE(dialog.pids().leader, 0);
}

ARDIPHON_TEST(tst_FormCSoundAV, QApplication)
#include "tst_FormCSoundAV.moc"
