#include "platform/DesktopTools.h"
#include "platform/ProgramFolder.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

using namespace ardiphon;

/// What is started is looked for in the search path, which holds only programs of the test's own.
class tst_DesktopTools : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void prompt_terminal_opensAtTheRoot();
    void prompt_firstCannotStart_nextIsTried();
    void prompt_none_saysSo();
    void calculator_first_isStarted();
    void calculator_none_saysSo();
    void programFolder_writable_isKept();
    void programFolder_readOnly_isTheUsers();

private:
    /// A program that writes down its folder and the number of its arguments.
    void install(const char *name, const char *shell = "/bin/sh") const
    {
        QFile file(m_folder->filePath(QLatin1String(name)));
        require(file.open(QIODevice::WriteOnly), name);
        file.write("#!" + QByteArray(shell) + "\n{ pwd; echo $#; } > '" + file.fileName().toUtf8() +
                   ".ran~'\nmv '" + file.fileName().toUtf8() + ".ran~' '" +
                   file.fileName().toUtf8() + ".ran'\n");
        file.close();
        require(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner), name);
    }
    QByteArray traceOf(const char *name) const
    {
        QFile file(m_folder->filePath(QLatin1String(name) + QStringLiteral(".ran")));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_path;
};

void tst_DesktopTools::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = qgetenv("PATH");
    QVERIFY(QFile::link(QStringLiteral("/bin/mv"), m_folder->filePath(QStringLiteral("mv"))));
    qputenv("PATH", m_folder->path().toUtf8());
}

void tst_DesktopTools::cleanup() { qputenv("PATH", m_path); }

void tst_DesktopTools::prompt_terminal_opensAtTheRoot()
{
    install("xterm");
    install("konsole");
    QVERIFY(StartCommandPrompt());
    QTRY_COMPARE(traceOf("konsole"), QByteArray("/\n0\n"));
    QCOMPARE(traceOf("xterm"), QByteArray());
}

void tst_DesktopTools::prompt_firstCannotStart_nextIsTried()
{
    install("x-terminal-emulator", "/nowhere/sh");
    install("xterm");
    QVERIFY(StartCommandPrompt());
    QTRY_COMPARE(traceOf("xterm"), QByteArray("/\n0\n"));
}

void tst_DesktopTools::prompt_none_saysSo() { QVERIFY(!StartCommandPrompt()); }

void tst_DesktopTools::calculator_first_isStarted()
{
    install("xcalc");
    QVERIFY(StartCalculator());
    QTRY_VERIFY(!traceOf("xcalc").isEmpty());
}

void tst_DesktopTools::calculator_none_saysSo() { QVERIFY(!StartCalculator()); }

void tst_DesktopTools::programFolder_writable_isKept()
{
    QCOMPARE(writableProgramFolder(m_folder->path()), m_folder->path());
}

void tst_DesktopTools::programFolder_readOnly_isTheUsers()
{
    qputenv("XDG_DATA_HOME", m_folder->path().toUtf8());
    const QString folder = writableProgramFolder(QStringLiteral("/nowhere/program"));
    QCOMPARE(folder, m_folder->filePath(QStringLiteral("Ardiphon")));
    QVERIFY(QFileInfo(folder).isDir());
}

ARDIPHON_TEST(tst_DesktopTools, QCoreApplication)
#include "tst_DesktopTools.moc"
