#include "compile/CsdConsole.h"
#include "compile/FinishedText.h"
#include "support/TestMain.h"

#include <QStandardPaths>

using namespace ardiphon;
using namespace StandInCompiler;

namespace {

const QString StandInLog = QStringLiteral("this is the log\r\n");

} // namespace

class tst_FormCSoundCSD : public QObject
{
    Q_OBJECT

private slots:
    void opened_window_waits();
    void opened_stopClicked_onlyDisablesIt();
    void run_state_isRunning();
    void run_end_showsBannerAndLog();
    void run_end_coloursAndAlignment();
    void run_end_elapsedTime();
    void run_escapesInLog_areNotShown();
    void run_hugeLog_isShownWhole();
    void run_compiler_getsParametersDirectoryAndEnvironment();
    void close_afterRun_deletesLog();
    void close_duringRun_startsNoOther();
    void keys_escapeAndEnter_doNothing();
    void keys_mnemonics_pressButtons();
    void link_doubleClick_selectsTheLineAndCloses();
    void realCompiler_tinyPiece_logsAndWrites();
    void realCompiler_brokenPiece_linksLeadToTheLine_data();
    void realCompiler_brokenPiece_linksLeadToTheLine();
};

void tst_FormCSoundCSD::opened_window_waits()
{
    CsdConsole console(QStringLiteral("logged"));
    QCOMPARE(console.form->objectName(), QStringLiteral("FormCSoundCSD"));
    QCOMPARE(console.form->windowTitle(), QStringLiteral("CSound Console Compiler"));
    QCOMPARE(console.button("Command2")->text(), QStringLiteral("&Compile"));
    QCOMPARE(console.button("Command1")->text(), QStringLiteral("E&xit"));
    QCOMPARE(console.button("btnStop")->text(), QStringLiteral("&Stop Compiler"));
    QVERIFY(console.button("btnStop")->isEnabled());
    QCOMPARE(console.text(), QString());
    QCOMPARE(console.output->font().family(), QStringLiteral("Courier New"));
    QCOMPARE(console.output->palette().color(QPalette::Base), QColor(Qt::white));
    QCOMPARE(console.output->palette().color(QPalette::Text), QColor(Qt::black));
    QCoreApplication::processEvents();
    QCOMPARE(console.pids(QStringLiteral("logged")).leader, 0);
}

void tst_FormCSoundCSD::opened_stopClicked_onlyDisablesIt()
{
    CsdConsole console(QStringLiteral("logged"));
    console.click("btnStop");
    QVERIFY(!console.button("btnStop")->isEnabled());
    QCOMPARE(console.text(), QString());
    console.click("Command2"); // the run takes the request back
    QCOMPARE(console.text(), finishedText(StandInLog));
}

void tst_FormCSoundCSD::run_state_isRunning()
{
    CsdConsole console(QStringLiteral("slow"));
    console.click("btnStop");
    QString shown;
    QStringList enabled;
    console.whenRunning(QStringLiteral("slow"), [&] {
        shown = console.text();
        for (const auto *button : console.form->findChildren<QPushButton *>())
            if (button->isEnabled())
                enabled.append(button->objectName());
        console.click("btnStop");
    });
    console.click("Command2");
    QCOMPARE(shown, QStringLiteral("Compiling ."));
    QCOMPARE(enabled, QStringList({"Command2", "btnStop", "Command1"}));
}

void tst_FormCSoundCSD::run_end_showsBannerAndLog()
{
    CsdConsole console(QStringLiteral("logged"));
    console.click("Command2");
    QCOMPARE(console.text(), finishedText(StandInLog));
    QVERIFY(!console.button("btnStop")->isEnabled());
    QVERIFY(console.button("Command2")->isEnabled());
    QCOMPARE(console.form->focusWidget(), console.output);
    QCOMPARE(console.output->textCursor().position(), 0);
    QCOMPARE(console.beeps, 1);
    QCOMPARE(console.dialogs.verify(), QString());
}

void tst_FormCSoundCSD::run_end_coloursAndAlignment()
{
    const QStringList expected{"#009600 centre", "#009600 centre", "#009600 centre",
                               "#009600 centre", "empty left",     "empty left",
                               "#c80000 left",   "#000000 left",   "empty left"};
    CsdConsole console(QStringLiteral("logged"));
    console.click("Command2");
    QCOMPARE(console.look(), expected);
    console.click("Command2"); // what was there before leaves no trace
    QCOMPARE(console.look(), expected);
    QStringList running;
    console.choose(QStringLiteral("slow"));
    console.whenRunning(QStringLiteral("slow"), [&] {
        running = console.look();
        console.click("btnStop");
    });
    console.click("Command2");
    QCOMPARE(running, QStringList{"#000000 left"});
    QCOMPARE(console.look(), QStringList{"#000000 left"});
}

void tst_FormCSoundCSD::run_end_elapsedTime()
{
    CsdConsole console(QStringLiteral("logged"));
    qint64 tick = 5000;
    console.clock = [&tick] { return tick; };
    connect(console.output, &QPlainTextEdit::textChanged, console.form.get(),
            [&] { tick = 130'000; });
    console.click("Command2");
    QVERIFY(console.text().contains(QStringLiteral("Elapsed time (mm:ss) -> 02:05 \r\n")));
}

void tst_FormCSoundCSD::run_escapesInLog_areNotShown()
{
    CsdConsole console(QStringLiteral("escapes"));
    console.click("Command2");
    QCOMPARE(console.text(), finishedText(QStringLiteral("red and nothing\r\nnext\r\n")));
}

void tst_FormCSoundCSD::run_hugeLog_isShownWhole()
{
    CsdConsole console(QStringLiteral("flood"));
    console.click("Command2");
    const QTextDocument *shown = console.output->document();
    QCOMPARE(console.text().count(u'\n'), 7 + 200'000);
    QTRY_COMPARE_WITH_TIMEOUT(shown->blockCount(), 7 + 200'000 + 1, 60'000);
    QVERIFY(shown->findBlockByNumber(7).text().startsWith(QLatin1String("line 1 of")));
    QVERIFY(shown->lastBlock().previous().text().startsWith(QLatin1String("line 200000 of")));
}

void tst_FormCSoundCSD::run_compiler_getsParametersDirectoryAndEnvironment()
{
    qputenv("LC_ALL", "C.UTF-8");
    qunsetenv("SFDIR");
    CsdConsole console(QStringLiteral("-my \"own\"; $HOME *"));
    console.form.reset(); // the window is opened for one document
    console.form =
        std::make_unique<FormCSoundCSD>(console.config, console.dialogs, console.editor, nullptr);
    console.output = console.form->findChild<CompilerOutput *>(QStringLiteral("TxtOutputs"));
    console.click("Command2");
    const QStringList lines = console.text().split(QStringLiteral("\r\n"));
    QCOMPARE(lines.mid(7, 2), QStringList({QStringLiteral("argument ") + console.config.CSDFileName,
                                           QStringLiteral("argument -O") + console.logFile()}));
    QVERIFY(lines.contains(QStringLiteral("SFDIR=") + console.folder.path()));
    QVERIFY(lines.contains(QStringLiteral("LC_MESSAGES=C")));
    QVERIFY(lines.contains(QStringLiteral("LANG=C.UTF-8")));
    QVERIFY(!console.text().contains(QStringLiteral("LC_ALL")));
    QVERIFY(lines.contains(QStringLiteral("directory ") + QCoreApplication::applicationDirPath()));
}

void tst_FormCSoundCSD::close_afterRun_deletesLog()
{
    CsdConsole console(QStringLiteral("logged"));
    console.click("Command2");
    QVERIFY(QFile::exists(console.logFile()));
    console.click("Command1");
    QVERIFY(!console.form->isVisible());
    QVERIFY(!QFile::exists(console.logFile()));
}

void tst_FormCSoundCSD::close_duringRun_startsNoOther()
{
    const QString piece = QStringLiteral("slow");
    const QString other = QStringLiteral("logged");
    CsdConsole console(piece);
    console.whenRunning(piece, [&] {
        console.form->close();
        console.choose(other);
        QTest::keyClick(console.button("Command2"), Qt::Key_Space);
        console.form->reject();
    });
    console.click("Command2");
    QCOMPARE(console.pids(other).leader, 0);
    QVERIFY(!StandInCompiler::isAlive(console.pids(piece).leader));
}

void tst_FormCSoundCSD::keys_escapeAndEnter_doNothing()
{
    CsdConsole console(QStringLiteral("logged"));
    console.click("Command2");
    const QString shown = console.text();
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(console.output, key);
        QTest::keyClick(console.form.get(), key);
    }
    QTest::keyClick(console.button("Command2"), Qt::Key_Escape);
    QVERIFY(console.form->isVisible());
    QCOMPARE(console.text(), shown);
    QCOMPARE(console.beeps, 1);
}

void tst_FormCSoundCSD::keys_mnemonics_pressButtons()
{
    CsdConsole console(QStringLiteral("logged"));
    console.form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(console.form.get()));
    QTest::keyClick(console.form.get(), Qt::Key_C, Qt::AltModifier);
    QTRY_COMPARE(console.text(), finishedText(StandInLog));
    QTest::keyClick(console.form.get(), Qt::Key_X, Qt::AltModifier);
    QTRY_VERIFY(!console.form->isVisible());
}

void tst_FormCSoundCSD::link_doubleClick_selectsTheLineAndCloses()
{
    CsdConsole console(QStringLiteral("links"));
    console.editor.SetText(QStringLiteral("one\r\ntwo two\r\nthree"));
    console.click("Command2");
    console.doubleClick(QStringLiteral("error: syntax")); // names no line
    console.doubleClick(QStringLiteral("in line 1"));     // of another file
    QVERIFY(console.form->isVisible());
    console.editor.GetSelection();
    QCOMPARE(console.editor.SelText(), QString());
    console.doubleClick(QStringLiteral(" from file"));
    console.editor.GetSelection();
    QCOMPARE(console.editor.SelText(), QStringLiteral("two two"));
    QVERIFY(!console.form->isVisible());
    QVERIFY(!QFile::exists(console.logFile()));
}

void tst_FormCSoundCSD::realCompiler_tinyPiece_logsAndWrites()
{
    CsdConsole console(QStringLiteral("my piece è"));
    console.config.FileCSound = QStandardPaths::findExecutable(QStringLiteral("csound"));
    QVERIFY2(!console.config.FileCSound.isEmpty(), "csound is not installed");
    QFile piece(console.config.CSDFileName);
    QVERIFY(piece.open(QIODevice::WriteOnly));
    piece.write("<CsoundSynthesizer>\n<CsOptions>\n-W -o tiny.wav\n</CsOptions>\n<CsInstruments>\n"
                "sr = 44100\nksmps = 32\nnchnls = 1\n0dbfs = 1\ninstr 1\na1 oscili 0.2, 440\n"
                "out a1\nendin\n</CsInstruments>\n<CsScore>\ni 1 0 0.1\ne\n</CsScore>\n"
                "</CsoundSynthesizer>\n");
    piece.close();
    console.click("Command2");
    QVERIFY(console.text().startsWith(bannerText(0) + logHeading()));
    QVERIFY2(console.text().contains(QLatin1String("0 errors in performance")),
             qPrintable(console.text()));
    QVERIFY(!console.text().contains(u'\x1b'));
    const QFileInfo wave(console.folder.filePath(QStringLiteral("tiny.wav")));
    QVERIFY(wave.size() > 44);
}

void tst_FormCSoundCSD::realCompiler_brokenPiece_linksLeadToTheLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("clicked");
    QTest::addColumn<QString>("selected");
    const auto row = [](const char *name, const char *line, const char *clicked,
                        const char *selected = nullptr) {
        QTest::newRow(name) << line << clicked << QString(selected ? selected : line);
    };
    row("syntax", "out a1 * * 2", " from file");
    row("unknown opcode", "a2 oscilly 0.2, 440", " from file");
    row("wrong arguments", "a2 oscili \"x\", \"y\", \"z\"", "Line: 12");
    row("wrong arguments, file", "a2 oscili \"x\", \"y\", \"z\"", " from file");
    row("at initialisation", "a2 oscili 0.2, 440, 77", "INIT ERROR");
    // The compiler itself gives the line of the instrument.
    row("undefined variable", "out a1 * kamp", "Line 11", "instr 1");
}

void tst_FormCSoundCSD::realCompiler_brokenPiece_linksLeadToTheLine()
{
    QFETCH(QString, line);
    QFETCH(QString, clicked);
    QFETCH(QString, selected);
    CsdConsole console(QStringLiteral("my piece è"));
    console.config.FileCSound = QStandardPaths::findExecutable(QStringLiteral("csound"));
    QVERIFY2(!console.config.FileCSound.isEmpty(), "csound is not installed");
    const QString text =
        QStringLiteral("<CsoundSynthesizer>\r\n<CsOptions>\r\n-n\r\n</CsOptions>\r\n"
                       "<CsInstruments>\r\nsr = 44100\r\nksmps = 32\r\nnchnls = 1\r\n0dbfs = 1\r\n"
                       "\r\ninstr 1\r\n%1\r\nendin\r\n</CsInstruments>\r\n<CsScore>\r\n"
                       "i 1 0 0.1\r\ne\r\n</CsScore>\r\n</CsoundSynthesizer>\r\n")
            .arg(line);
    QFile piece(console.config.CSDFileName);
    QVERIFY(piece.open(QIODevice::WriteOnly));
    piece.write(QString(text).remove(u'\r').toUtf8());
    piece.close();
    console.editor.SetText(text);
    console.click("Command2");
    QVERIFY2(console.text().contains(QStringLiteral("\r\n") + clicked), qPrintable(console.text()));
    console.doubleClick(clicked);
    console.editor.GetSelection();
    QVERIFY2(console.editor.SelText() == selected, qPrintable(console.text()));
    QVERIFY(!console.form->isVisible());
}

ARDIPHON_TEST(tst_FormCSoundCSD, QApplication)
#include "tst_FormCSoundCSD.moc"
