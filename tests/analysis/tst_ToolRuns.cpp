// The real utilities, each started by its form on a wave that the test makes, in a stand-in for a
// terminal. What the form's run writes is compared with what the same line writes in a shell.

#include "analysis/ShownForm.h"
#include "platform/CommandText.h"
#include "platform/Terminal.h"
#include "support/Require.h"
#include "support/TestMain.h"
#include "support/WaveBytes.h"

#include <QProcess>
#include <QStandardPaths>

#include <cmath>
#include <tuple>

using namespace ardiphon;

namespace {

/// Half a second of a tone of 110 Hz with some noise, on one channel.
QByteArray tone(double level)
{
    constexpr int rate = 44100;
    QByteArray samples;
    for (int i = 0; i < rate / 2; ++i)
        samples += WaveBytes::number<qint16>(
            std::lround(level * std::sin(i * 2 * M_PI * 110 / rate)) + (i * 7919) % 41 - 20);
    return WaveBytes::wave(1, rate, samples);
}

} // namespace

class tst_ToolRuns : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void tool_writesWhatItWritesInAShell_data();
    void tool_writesWhatItWritesInAShell();
    void dnoise_defaults_areRefusedByTheTool();
    void pvlook_listing_isShown();
    void outputThatCannotBeWritten_isSilent();
    void names_thatAShellWouldRead_reachTheTool();
    void terminal_getsTheConsoleWithDirectoryAndCommand();
    void terminal_console_startsInTheDirectory();
    void terminal_missing_runsTheToolAllTheSame();
    void terminal_missingConsole_runsTheToolAllTheSame();
    void terminal_missingProgram_isSilent();

private:
    QString path(const QString &name) const { return m_form->program.path(name); }
    QByteArray read(const char *name) const { return m_form->program.read(QLatin1String(name)); }
    void show(const AnalysisTool &tool);
    void browse(const char *name, const char *button = "Command1")
    {
        m_form->browse(path(QLatin1String(name)), button);
    }
    void run();
    QByteArray inAShell(const QString &output);

    const QByteArray m_path = qgetenv("PATH");
    const QString m_csound = QStandardPaths::findExecutable(QStringLiteral("csound"));
    QString m_programFolder;
    std::unique_ptr<ShownForm> m_form;
};

void tst_ToolRuns::init()
{
    QVERIFY(!m_csound.isEmpty());
    m_programFolder = QStringLiteral(PROGRAM_DIR);
}

void tst_ToolRuns::cleanup()
{
    qputenv("PATH", m_path);
    if (m_form)
        QCOMPARE(m_form->program.dialogs.verify(), QString());
    m_form.reset();
}

/// The stand-in does what a terminal does, but for the window: it takes an option and then a
/// program with its arguments. No other terminal can be found.
void tst_ToolRuns::show(const AnalysisTool &tool)
{
    m_form = std::make_unique<ShownForm>(tool);
    m_form->program.config.FileCSound = m_csound;
    m_form->passOn = [this](const QString &file, const QString &parameters,
                            const QString &directory) {
        // As the program's own one; the tests look at what the tool has left.
        std::ignore = startInTerminal(commandOf(file, parameters, directory), m_programFolder);
    };
    m_form->program.write(QStringLiteral("a tone.wav"), tone(8000));
    m_form->program.write(QStringLiteral("some noise.wav"), tone(0));
    const QString terminal = m_form->program.write(
        QStringLiteral("x-terminal-emulator"),
        "#!/bin/sh\ncd \"${0%/*}\"\nhere=$PWD\nprintf '%s\\n' \"$@\" >arguments\nshift\n"
        "\"$@\" >\"$here/log\" 2>&1 </dev/null\n: >\"$here/done\"\n");
    require(QFile::setPermissions(terminal, QFile::ReadOwner | QFile::ExeOwner),
            "cannot make the terminal a program");
    qputenv("PATH", QFile::encodeName(m_form->program.folder.path()));
}

/// Presses the button and waits for the end of what was started.
void tst_ToolRuns::run()
{
    QFile::remove(path(QStringLiteral("done")));
    m_form->click("CommandAnalyze");
    const auto isDone = [this] { return QFile::exists(path(QStringLiteral("done"))); };
    require(QTest::qWaitFor(isDone, 60000), "what was started does not end");
}

/// What the line of the last start writes to \a output when a shell runs it.
QByteArray tst_ToolRuns::inAShell(const QString &output)
{
    QFile::remove(output);
    QProcess shell;
    shell.setWorkingDirectory(m_form->starts.constLast().at(2));
    shell.start(QStringLiteral("/bin/sh"),
                {QStringLiteral("-c"), m_csound + u' ' + m_form->starts.constLast().at(1)});
    if (!shell.waitForFinished(60000))
        qFatal("the shell does not end");
    QFile file(output);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_ToolRuns::tool_writesWhatItWritesInAShell_data()
{
    QTest::addColumn<const AnalysisTool *>("tool");
    QTest::addColumn<QString>("output");
    QTest::addColumn<int>("leastSize");
    QTest::newRow("hetro") << &Hetro << "a tone.het" << 1000;
    QTest::newRow("lpanal") << &LPAnal << "a tone.lp" << 1000;
    QTest::newRow("pvanal") << &PVAnal << "a tone.pv" << 10000;
    QTest::newRow("cvanal") << &CVAnal << "a tone.cv" << 10000;
    QTest::newRow("dnoise") << &DNoise << "a tone.den" << 40000;
}

void tst_ToolRuns::tool_writesWhatItWritesInAShell()
{
    QFETCH(const AnalysisTool *, tool);
    QFETCH(QString, output);
    QFETCH(int, leastSize);
    show(*tool);
    browse("a tone.wav");
    if (tool == &DNoise) {
        browse("some noise.wav", "Command2");
        m_form->type(6, QStringLiteral("0.5")); // 0.0 is no length of noise
    }
    QCOMPARE(m_form->text("TextOutput")->text(), path(output));
    run();
    const QByteArray written = m_form->program.read(output);
    QVERIFY2(written.size() > leastSize, read("log").constData());
    QCOMPARE(inAShell(path(output)), written);
}

/// The form's own values name an empty piece of noise; only the tool says so.
void tst_ToolRuns::dnoise_defaults_areRefusedByTheTool()
{
    show(DNoise);
    browse("a tone.wav");
    browse("some noise.wav", "Command2");
    run();
    QVERIFY2(read("log").contains("not enough samples of noise reference"),
             read("log").constData());
}

void tst_ToolRuns::pvlook_listing_isShown()
{
    show(PVAnal);
    browse("a tone.wav");
    run();
    QProcess pvlook;
    pvlook.setStandardErrorFile(path(QStringLiteral("pv_temp.txt")));
    pvlook.start(m_csound, {"-U", "pvlook", "-bb", "1", "-eb", "3", path("a tone.pv")});
    QVERIFY(pvlook.waitForFinished(60000));
    const QByteArray listing = read("pv_temp.txt");

    ToolContext context = m_form->context;
    const auto look = newToolForm(PVLook, context, nullptr);
    look->show();
    m_form->program.dialogs.expectOpen(QStringLiteral("Input File Name"), path("a tone.pv"));
    QTest::mouseClick(look->findChild<QPushButton *>("Command1"), Qt::LeftButton);
    QTest::mouseClick(look->findChild<QPushButton *>("CommandAnalyze"), Qt::LeftButton);
    const QString shown = look->findChild<QPlainTextEdit *>("RtfPVLook")->toPlainText();
    QVERIFY2(shown.contains(QStringLiteral("Bin 1 Freqs.")), listing.constData());
    QCOMPARE(shown, QString::fromUtf8(listing));
    QVERIFY(!QFile::exists(path(QStringLiteral("pv_temp.txt"))));
}

void tst_ToolRuns::outputThatCannotBeWritten_isSilent()
{
    show(CVAnal);
    browse("a tone.wav");
    m_form->text("TextOutput")->setText(QStringLiteral("/proc/no/such.cv"));
    run();
    QVERIFY(m_form->form->isVisible());
}

void tst_ToolRuns::names_thatAShellWouldRead_reachTheTool()
{
    show(CVAnal);
    const QString name = QStringLiteral("a $(touch b) `touch c`; touch d & 'e' *.wav");
    m_form->program.write(name, tone(8000));
    m_form->browse(path(name));
    run();
    QVERIFY2(m_form->program.read(QString(name).replace(".wav", ".cv")).size() > 10000,
             read("log").constData());
    for (const char *touched : {"b", "c", "d"})
        QVERIFY2(!QFile::exists(path(QLatin1String(touched))), touched);
}

void tst_ToolRuns::terminal_getsTheConsoleWithDirectoryAndCommand()
{
    show(CVAnal);
    browse("a tone.wav");
    run();
    const QString folder = m_csound.left(m_csound.lastIndexOf(u'/'));
    const QStringList expected{"-e",
                               m_programFolder + "/ArdiphonConsole",
                               folder,
                               m_csound,
                               "-U",
                               "cvanal",
                               "-b0.0",
                               "-d0.0",
                               path("a tone.wav"),
                               path("a tone.cv"),
                               QString()};
    QCOMPARE(QString::fromUtf8(read("arguments")).split(u'\n'), expected);
}

void tst_ToolRuns::terminal_console_startsInTheDirectory()
{
    show(CVAnal);
    QVERIFY(QDir(path(QString())).mkdir(QStringLiteral("a folder")));
    QVERIFY(startInTerminal({QStringLiteral("/bin/pwd"), {}, path(QStringLiteral("a folder"))},
                            m_programFolder));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(path(QStringLiteral("done"))), 60000);
    QVERIFY(read("log").startsWith(path(QStringLiteral("a folder")).toUtf8() + '\n'));
    QVERIFY(read("log").endsWith("\nPress a key to close this window."));
}

void tst_ToolRuns::terminal_missing_runsTheToolAllTheSame()
{
    show(CVAnal);
    QVERIFY(QFile::remove(path(QStringLiteral("x-terminal-emulator"))));
    browse("a tone.wav");
    m_form->click("CommandAnalyze");
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(path(QStringLiteral("a tone.cv"))).size() > 10000, 60000);
}

void tst_ToolRuns::terminal_missingConsole_runsTheToolAllTheSame()
{
    show(CVAnal);
    m_programFolder = QStringLiteral("/no/such/folder");
    browse("a tone.wav");
    m_form->click("CommandAnalyze");
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(path(QStringLiteral("a tone.cv"))).size() > 10000, 60000);
    QVERIFY(!QFile::exists(path(QStringLiteral("arguments"))));
}

void tst_ToolRuns::terminal_missingProgram_isSilent()
{
    show(CVAnal);
    m_form->program.config.FileCSound = QStringLiteral("/no/such/csound");
    browse("a tone.wav");
    run();
    QVERIFY2(read("log").startsWith("/no/such: No such file or directory\n"
                                    "/no/such/csound: No such file or directory\n"),
             read("log").constData());
}

ARDIPHON_TEST(tst_ToolRuns, QApplication)
#include "tst_ToolRuns.moc"
