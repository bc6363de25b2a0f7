#include "app/ConfigurationBlock.h"
#include "compile/ui/CsdCompileLauncher.h"
#include "language/editor/LEditOCX.h"
#include "support/ScriptedDialogs.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace ardiphon;

class tst_CsdCompileLauncher : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void launch_neverSaved_saysSo();
    void launch_modified_saysSo();
    void launch_empty_saysNothing();
    void launch_noCompiler_saysSo();
    void launch_ownLogFlag_saysSo();
    void launch_allWell_showsTheConsoleModally();

private:
    void launch();
    void expect(const QString &text, const QString &title = ProgramTitle);

    std::unique_ptr<ConfigurationBlock> m_config;
    ScriptedDialogs m_dialogs;
    std::unique_ptr<QWidget> m_owner;
    LEditOCX *m_editor = nullptr;
    int m_shown = 0; ///< consoles that the launcher has shown
};

void tst_CsdCompileLauncher::init()
{
    m_config = std::make_unique<ConfigurationBlock>();
    m_config->CSDFileName = QStringLiteral("/music/piece.csd");
    m_config->FileCSound = QStringLiteral("/usr/bin/csound");
    m_dialogs = ScriptedDialogs();
    m_owner = std::make_unique<QWidget>();
    m_editor = new LEditOCX(m_owner.get());
    m_editor->SetText(QStringLiteral("<CsOptions>\r\n-odac\r\n</CsOptions>"));
    m_editor->ClearState(2);
    m_owner->show();
    m_shown = 0;
}

void tst_CsdCompileLauncher::cleanup()
{
    QCOMPARE(m_dialogs.verify(), QString());
    m_owner.reset();
}

/// Launches; a console that comes up is looked at and closed.
void tst_CsdCompileLauncher::launch()
{
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
        QWidget *console = QApplication::activeModalWidget();
        if (!console)
            return;
        look.stop();
        ++m_shown;
        QCOMPARE(console->objectName(), QStringLiteral("FormCSoundCSD"));
        QCOMPARE(console->parentWidget(), m_owner.get());
        QTest::keyClick(console, Qt::Key_Escape);
        QVERIFY(console->isVisible());
        QTest::mouseClick(console->findChild<QPushButton *>(QStringLiteral("Command1")),
                          Qt::LeftButton);
    });
    look.start(1);
    launchCsdCompile(*m_config, m_dialogs, *m_editor, m_owner.get());
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(m_owner->findChildren<QDialog *>().isEmpty()); // released
}

void tst_CsdCompileLauncher::expect(const QString &text, const QString &title)
{
    m_dialogs.expect({text, title, MessageIcon::Exclamation, MessageButtons::Ok});
}

void tst_CsdCompileLauncher::launch_neverSaved_saysSo()
{
    for (const char *name : {"", "[Untitled]"}) {
        m_config->CSDFileName = QLatin1String(name);
        expect(QStringLiteral("No name associated to File!\r\nYou must save it with a valid name "
                              "before start CSound compiler (CTRL+S)"));
        launch();
    }
    QCOMPARE(m_shown, 0);
}

void tst_CsdCompileLauncher::launch_modified_saysSo()
{
    m_editor->SetSelText(QStringLiteral("x"));
    expect(QStringLiteral("File has changed!\r\nYou must save it before start CSound compiler "
                          "(CTRL+S)"));
    launch();
    QCOMPARE(m_shown, 0);
}

void tst_CsdCompileLauncher::launch_empty_saysNothing()
{
    m_editor->ClearDocument();
    m_editor->ClearState(2);
    launch();
    QCOMPARE(m_shown, 0);
}

void tst_CsdCompileLauncher::launch_noCompiler_saysSo()
{
    m_config->FileCSound.clear();
    expect(QStringLiteral("Cannot find CSound.exe!\r\nSelect File->Settings->Csound.exe!"));
    launch();
    QCOMPARE(m_shown, 0);
}

void tst_CsdCompileLauncher::launch_ownLogFlag_saysSo()
{
    m_editor->SetText(QStringLiteral("<CsOptions>\r\n-Olog.txt\r\n</CsOptions>"));
    m_editor->ClearState(2);
    expect(QStringLiteral("Don't use '-O' flag in Ardiphon!"), QStringLiteral("Error"));
    launch();
    QCOMPARE(m_shown, 0);
}

void tst_CsdCompileLauncher::launch_allWell_showsTheConsoleModally()
{
    launch();
    QCOMPARE(m_shown, 1);
}

QTEST_MAIN(tst_CsdCompileLauncher)
#include "tst_CsdCompileLauncher.moc"
