#include "compile/CompilerStart.h"
#include "compile/ProjectDialog.h"
#include "compile/ui/Launchers.h"
#include "support/TestMain.h"

#include <QApplication>

using namespace ardiphon;

/// The way from a command to its dialog. Which check refuses what is tested with the rules.
class tst_Launchers : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void csd_allWell_showsItsDialogModally();
    void csd_modified_saysSo();
    void csdCompile_ownLogFlag_saysSo();
    void csdWinsound_ok_startsIt();
    void csdWinsound_cancel_startsNothing();
    void csdWinsound_refused_asksNothing();
    void compiler_thatIsNoProgram_opensNoTerminal();
    void csdCSoundAV_emptyText_showsTheDialog();
    void project_allWell_showsItsDialogModally();
    void project_modifiedHalf_saysSo();
    void project_bothEmpty_saysNothing();

private:
    /// Launches; gives the name of the dialog that came up, closed again, or "".
    QString shown(const std::function<void(const CompileContext &)> &launch);

    std::unique_ptr<ProjectDialog> m_program;
    std::unique_ptr<QWidget> m_owner;
    LEditOCX *m_orchestra = nullptr; ///< holds the CSD as well
    LEditOCX *m_score = nullptr;
};

void tst_Launchers::init()
{
    m_program = std::make_unique<ProjectDialog>(QStringLiteral("my piece"));
    m_owner = std::make_unique<QWidget>();
    m_orchestra = new LEditOCX(m_owner.get());
    m_score = new LEditOCX(m_owner.get());
    m_orchestra->SetText(QStringLiteral("<CsOptions>\r\n-odac\r\n</CsOptions>"));
    m_orchestra->ClearState(TextState);
    m_owner->show();
}

void tst_Launchers::cleanup()
{
    QCOMPARE(m_program->dialogs.verify(), QString());
    m_owner.reset();
}

QString tst_Launchers::shown(const std::function<void(const CompileContext &)> &launch)
{
    QString name;
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog)
            return;
        look.stop();
        name = dialog->objectName();
        if (dialog->parentWidget() != m_owner.get())
            name.prepend(QStringLiteral("of another window: "));
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("Command1")),
                          Qt::LeftButton);
    });
    look.start(1);
    launch(m_program->compileContext(m_owner.get()));
    if (QApplication::activeModalWidget() || !m_owner->findChildren<QDialog *>().isEmpty())
        return QStringLiteral("not released: ") + name;
    return name;
}

void tst_Launchers::csd_allWell_showsItsDialogModally()
{
    const auto launched = [this](auto launch) {
        return shown([&](const CompileContext &context) { launch(context, *m_orchestra); });
    };
    QCOMPARE(launched(&launchCsdCompile), QStringLiteral("FormCSoundCSD"));
    QCOMPARE(launched(&launchCsdCSoundAV), QStringLiteral("FormCSoundAV"));
}

void tst_Launchers::csd_modified_saysSo()
{
    m_orchestra->SetSelText(QStringLiteral("x"));
    const auto launched = [this](auto launch, const char *name) {
        m_program->expectWarning(
            QStringLiteral("File has changed!\r\nYou must save it before start "
                           "%1 (CTRL+S)")
                .arg(QLatin1String(name)));
        return shown([&](const CompileContext &context) { launch(context, *m_orchestra); });
    };
    QCOMPARE(launched(&launchCsdCompile, "CSound compiler"), QString());
    QCOMPARE(launched(&launchCsdWinsound, "Winsound compiler"), QString());
    QCOMPARE(launched(&launchCsdCSoundAV, "CSoundAV"), QString());
}

void tst_Launchers::csdCompile_ownLogFlag_saysSo()
{
    m_orchestra->SetText(QStringLiteral("<CsOptions>\r\n-Olog.txt\r\n</CsOptions>"));
    m_orchestra->ClearState(TextState);
    m_program->expectWarning(QStringLiteral("Don't use '-O' flag in Ardiphon!"),
                             QStringLiteral("Error"));
    QCOMPARE(shown([&](const auto &context) { launchCsdCompile(context, *m_orchestra); }),
             QString());
}

void tst_Launchers::csdWinsound_ok_startsIt()
{
    m_program->dialogs.expect({QStringLiteral("Compile File?"), QStringLiteral("Winsound Compiler"),
                               MessageIcon::Question, MessageButtons::OkCancel},
                              Answer::Ok);
    launchCsdWinsound(m_program->compileContext(m_owner.get()), *m_orchestra);
    QTRY_VERIFY(StandInCompiler::pids(m_program->config.CSDFileName).leader != 0);
    const QString log = QString::fromUtf8(m_program->read(QStringLiteral("my piece.csd.log")));
    QCOMPARE(m_program->argumentsIn(log), QStringList{m_program->config.CSDFileName});
    QVERIFY(log.contains(QStringLiteral("directory ") + QCoreApplication::applicationDirPath()));
    QVERIFY(log.contains(QStringLiteral("SFDIR=") + m_program->folder.path() + u'\n'));
}

void tst_Launchers::csdWinsound_cancel_startsNothing()
{
    // If it were started, the failed start of a file that is not there would say nothing either.
    m_program->dialogs.expect({QStringLiteral("Compile File?"), QStringLiteral("Winsound Compiler"),
                               MessageIcon::Question, MessageButtons::OkCancel},
                              Answer::Cancel);
    launchCsdWinsound(m_program->compileContext(m_owner.get()), *m_orchestra);
    const QString cancelled = std::exchange(m_program->config.CSDFileName,
                                            m_program->write(QStringLiteral("other.csd"), {}));
    m_program->dialogs.expect({QStringLiteral("Compile File?"), QStringLiteral("Winsound Compiler"),
                               MessageIcon::Question, MessageButtons::OkCancel},
                              Answer::Ok);
    launchCsdWinsound(m_program->compileContext(m_owner.get()), *m_orchestra);
    QTRY_VERIFY(StandInCompiler::pids(m_program->config.CSDFileName).leader != 0);
    QCOMPARE(StandInCompiler::pids(cancelled).leader, 0);
}

void tst_Launchers::csdWinsound_refused_asksNothing()
{
    m_program->config.FileWinsound.clear();
    m_program->expectWarning(
        QStringLiteral("Cannot find Winsound.exe!\r\nSelect File->Settings->Winsound.exe!"));
    launchCsdWinsound(m_program->compileContext(m_owner.get()), *m_orchestra);
    m_orchestra->ClearDocument();
    m_orchestra->ClearState(TextState);
    launchCsdWinsound(m_program->compileContext(m_owner.get()), *m_orchestra);
}

/// The window would open and close again, and nobody could read why.
void tst_Launchers::compiler_thatIsNoProgram_opensNoTerminal()
{
    const QTemporaryDir folder;
    const auto make = [&folder](const char *name, const QByteArray &text, bool executable) {
        QFile file(folder.filePath(QLatin1String(name)));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("cannot write %s", name);
        if (executable)
            file.setPermissions(file.permissions() | QFile::ExeOwner);
        return file.fileName();
    };
    make("x-terminal-emulator", "#!/bin/sh\necho \"$@\" >>\"${0%/*}/called\"\n", true);
    make("ArdiphonConsole", "#!/bin/sh\n", true);
    const QByteArray search = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(folder.path()) + ':' + search);
    const QString document = folder.filePath(QStringLiteral("a.csd"));
    for (const QString &compiler :
         {make("text", "no program", false), folder.path(), folder.filePath(QStringLiteral("gone")),
          QStringLiteral("ardiphon-gone"), make("good", "#!/bin/sh\n", true)})
        startCompiler(compiler, QString(), document, folder.path());
    qputenv("PATH", search);
    QFile called(folder.filePath(QStringLiteral("called")));
    QTRY_VERIFY(called.size() > 0);
    QVERIFY(called.open(QIODevice::ReadOnly));
    const QByteArray calls = called.readAll();
    QVERIFY2(calls.contains("/good"), calls.constData());
    QCOMPARE(calls.count('\n'), 1);
}

void tst_Launchers::csdCSoundAV_emptyText_showsTheDialog()
{
    m_orchestra->ClearDocument();
    m_orchestra->ClearState(TextState);
    QCOMPARE(shown([&](const auto &context) { launchCsdCSoundAV(context, *m_orchestra); }),
             QStringLiteral("FormCSoundAV"));
    QCOMPARE(shown([&](const auto &context) { launchCsdCompile(context, *m_orchestra); }),
             QString());
}

void tst_Launchers::project_allWell_showsItsDialogModally()
{
    const auto launched = [this](auto launch) {
        return shown([&](const CompileContext &context) {
            launch(context, ProjectEditors{*m_orchestra, *m_score});
        });
    };
    QCOMPARE(launched(&launchProjectCompile), QStringLiteral("FormCSound"));
    QCOMPARE(launched(&launchProjectWinsound), QStringLiteral("FormWinsound"));
    QCOMPARE(launched(&launchProjectCSoundAV), QStringLiteral("FormCSoundAVORC"));
}

void tst_Launchers::project_modifiedHalf_saysSo()
{
    m_score->SetSelText(QStringLiteral("x"));
    const auto launched = [this](auto launch, const char *half, const char *name) {
        m_program->expectWarning(QStringLiteral("File %1 has changed!\r\nYou must save it before "
                                                "start %2 (CTRL+S)")
                                     .arg(QLatin1String(half), QLatin1String(name)));
        return shown([&](const CompileContext &context) {
            launch(context, ProjectEditors{*m_orchestra, *m_score});
        });
    };
    QCOMPARE(launched(&launchProjectCompile, "Score", "CSound compiler"), QString());
    QCOMPARE(launched(&launchProjectWinsound, "Score", "Winsound compiler"), QString());
    m_orchestra->SetSelText(QStringLiteral("x"));
    QCOMPARE(launched(&launchProjectCSoundAV, "Orchestra", "CSoundAV"), QString());
}

void tst_Launchers::project_bothEmpty_saysNothing()
{
    m_orchestra->ClearDocument();
    m_orchestra->ClearState(TextState);
    const auto launched = [this](auto launch) {
        return shown([&](const CompileContext &context) {
            launch(context, ProjectEditors{*m_orchestra, *m_score});
        });
    };
    QCOMPARE(launched(&launchProjectCompile), QString());
    QCOMPARE(launched(&launchProjectWinsound), QString());
    QCOMPARE(launched(&launchProjectCSoundAV), QStringLiteral("FormCSoundAVORC"));
}

ARDIPHON_TEST(tst_Launchers, QApplication)
#include "tst_Launchers.moc"
