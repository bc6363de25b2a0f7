#include "compile/ProjectDialog.h"
#include "compile/ui/FormCSound.h"
#include "compile/ui/LinkedOutput.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QTextBlock>

using namespace ardiphon;
using namespace StandInCompiler;

namespace {

QString finishedText(const QString &log) { return bannerText(0) + logHeading() + log; }

/// The dialog over two editors.
struct Dialog : ProjectDialog
{
    explicit Dialog(const QString &piece = QStringLiteral("logged")) : ProjectDialog(piece)
    {
        orchestra.SetText(QStringLiteral("one\r\ntwo two\r\nthree\r\n"));
        score.SetText(QStringLiteral("i1 0 1\r\ni2 0 1 2\r\ne\r\n"));
        show();
    }
    void show()
    {
        open<FormCSound>(orchestra, score);
        output = control<LinkedOutput>("TxtOutputs");
    }
    QString text() const { return output->text(); }
    bool isPanelOpen() const { return control<QWidget>("FrameCompiler")->isVisible(); }
    QPushButton *goToError() const { return control("btnGoToError"); }
    /// Clicks twice on the line of the output that begins so.
    void doubleClick(const QString &beginning) const
    {
        QTextBlock block = output->document()->begin();
        while (block.isValid() && !block.text().startsWith(beginning))
            block = block.next();
        if (!block.isValid())
            qFatal("no line %s", qPrintable(beginning));
        QTextCursor cursor(block);
        cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, 3);
        output->setTextCursor(cursor);
        const QPoint at = output->cursorRect(cursor).center();
        QTest::mouseMove(output->viewport(), at);
        QTest::mouseDClick(output->viewport(), Qt::LeftButton, {}, at);
    }

    LEditOCX orchestra;
    LEditOCX score;
    LinkedOutput *output = nullptr;
};

QString selection(LEditOCX &editor)
{
    editor.GetSelection();
    return editor.SelText();
}

} // namespace

class tst_FormCSound : public QObject
{
    Q_OBJECT

private slots:
    void opening_showsTheProject();
    void opening_orchestraOfOddName_itsWave();
    void browse_file_countsUntilClosing();
    void realTime_switchesTheWave();
    void compile_ownFlags_areRefusedFirst();
    void compile_noWave_nothing();
    void compile_waveExists_cancelKeepsAll();
    void compile_waveExists_okDeletesIt();
    void compile_folderOfThatName_isNoWave();
    void compile_passesTheFields();
    void compile_realTime_asksNothing();
    void compile_relativeWave_isFoundWhereItIsWritten();
    void compile_opensThePanel();
    void compile_end_showsLogAndWave();
    void compile_cannotStart_saysSoAndKeepsThePanel();
    void compile_again_hidesTheButton();
    void stop_closesThePanel();
    void close_afterRun_leadsBackToTheForm();
    void panel_movedBetween_movesBackFromThere();
    void error_button_selectsTheLine();
    void error_beyondTheText_doesNoHarm();
    void error_inScore_selectsThere();
    void error_selectedInLog();
    void error_farDownInALongLog_isSelected();
    void link_doubleClick_selectsTheLine();
    void link_pointer_showsIt();
    void link_otherLine_selectsItsWord();
    void leaving_anyWay_closingSteps_data();
    void leaving_anyWay_closingSteps();
    void leaving_duringRun_endsTheCompiler_data();
    void leaving_duringRun_endsTheCompiler();
    void leaving_stubbornLog_isDeleted();
    void leaving_duringRun_startsNoOther();
    void deluge_staysBoundedAndSaysSo();
    void keys_enter_pressesTheFocusedButton();
    void playing_disablesTheButtons();
};

void tst_FormCSound::opening_showsTheProject()
{
    Dialog dialog(QStringLiteral("my piece"));
    QCOMPARE(dialog.form->objectName(), QStringLiteral("FormCSound"));
    QCOMPARE(dialog.form->windowTitle(), QStringLiteral("CSound Console Compiler"));
    QCOMPARE(dialog.field("dir_Csound"), StandInCompiler::path());
    QCOMPARE(dialog.field("Orchestra"), dialog.path("my piece.orc"));
    QCOMPARE(dialog.field("Score"), dialog.path("my piece.sco"));
    QCOMPARE(dialog.field("Wave"), dialog.path("my piece.wav"));
    QVERIFY(!dialog.control<QCheckBox>("CheckRealTime")->isChecked());
    QVERIFY(!dialog.isPanelOpen());
    const std::pair<const char *, const char *> captions[] = {
        {"CercaCsound", "&Browse"},
        {"CheckRealTime", "Realtime"},
        {"Command2", "&Add Flags"},
        {"Command3", "&Remove Flags"},
        {"CommandFlags", "&Flags"},
        {"Compila", "&Compile"},
        {"EditorFileWave", "&Wave Editor"},
        {"Command1", "E&xit"},
        {"btnStop", "&Stop Compiler"},
        {"btnClose", "&Close"},
        {"btnGoToError", "Go to Line error -->>"},
    };
    for (const auto &[name, caption] : captions)
        QCOMPARE(dialog.control<QAbstractButton>(name)->text(), QLatin1String(caption));
    QCOMPARE(dialog.control<QGroupBox>("Frame1")->title(), QStringLiteral("Wave Player"));
}

void tst_FormCSound::opening_orchestraOfOddName_itsWave()
{
    Dialog dialog;
    dialog.config.OrchestraFileName = QStringLiteral("/a.o");
    dialog.show();
    QCOMPARE(dialog.field("Wave"), QStringLiteral(".wav"));
    dialog.config.OrchestraFileName.clear();
    dialog.show();
    QCOMPARE(dialog.field("Wave"), QString());
}

void tst_FormCSound::browse_file_countsUntilClosing()
{
    Dialog dialog;
    dialog.dialogs.expectOpen(QStringLiteral("CSound Directory"), std::nullopt);
    dialog.click("CercaCsound");
    QCOMPARE(dialog.config.FileCSound, StandInCompiler::path());
    dialog.dialogs.expectOpen(QStringLiteral("CSound Directory"), QStringLiteral("/other/csound"));
    dialog.click("CercaCsound");
    QCOMPARE(dialog.config.FileCSound, QStringLiteral("/other/csound"));
    QCOMPARE(dialog.field("dir_Csound"), QStringLiteral("/other/csound"));
    QCOMPARE(dialog.dialogs.fileQuestions.last().filter, QStringLiteral("Csound.exe |*.exe"));
    dialog.click("Command1");
    QCOMPARE(dialog.config.FileCSound, StandInCompiler::path());
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSound::realTime_switchesTheWave()
{
    Dialog dialog;
    dialog.control<QLineEdit>("Wave")->setText(QStringLiteral(" /b.wav "));
    dialog.click("CheckRealTime");
    QCOMPARE(dialog.field("Wave"), QStringLiteral("devaudio"));
    dialog.click("CheckRealTime");
    QCOMPARE(dialog.field("Wave"), QStringLiteral("/b.wav"));
}

void tst_FormCSound::compile_ownFlags_areRefusedFirst()
{
    Dialog dialog;
    dialog.control<QLineEdit>("Wave")->clear();
    const QString error = QStringLiteral("Error");
    for (const char *flags : {"-W -Olog -o x", "-O", "-WO"}) {
        dialog.setFlags(QLatin1String(flags));
        dialog.expectWarning(QStringLiteral("Don't use '-O' flag in Ardiphon!"), error);
        dialog.click("Compila");
    }
    for (const char *flags : {"-odac", "--no-output", "-Wo"}) {
        dialog.setFlags(QLatin1String(flags));
        dialog.expectWarning(QStringLiteral("Don't use '-o' flag in Ardiphon!"), error);
        dialog.click("Compila");
    }
    QCOMPARE(dialog.dialogs.verify(), QString());
    QVERIFY(!dialog.isPanelOpen());
}

void tst_FormCSound::compile_noWave_nothing()
{
    Dialog dialog;
    dialog.control<QLineEdit>("Wave")->clear();
    dialog.click("Compila");
    QVERIFY(!dialog.isPanelOpen());
    QCOMPARE(dialog.pids().leader, 0);
}

void tst_FormCSound::compile_waveExists_cancelKeepsAll()
{
    Dialog dialog;
    dialog.write(QStringLiteral("logged.wav"), "old");
    dialog.expectOverwriteQuestion(Answer::Cancel);
    dialog.click("Compila");
    QCOMPARE(dialog.read(QStringLiteral("logged.wav")), QByteArray("old"));
    QVERIFY(!dialog.isPanelOpen());
    QCOMPARE(dialog.pids().leader, 0);
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSound::compile_waveExists_okDeletesIt()
{
    Dialog dialog;
    QFile wave(dialog.write(QStringLiteral("logged.wav"), "old"));
    wave.setPermissions(QFile::ReadOwner);
    dialog.control<QLineEdit>("Wave")->setText(wave.fileName() + QStringLiteral("  "));
    dialog.expectOverwriteQuestion(Answer::Ok);
    dialog.click("Compila");
    QVERIFY(!wave.exists());
    QCOMPARE(dialog.text(), finishedText(QStringLiteral("this is the log\r\n")));
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSound::compile_folderOfThatName_isNoWave()
{
    Dialog dialog;
    QVERIFY(QDir(dialog.folder.path()).mkdir(QStringLiteral("logged.wav")));
    dialog.click("Compila");
    QVERIFY(QFileInfo(dialog.path(QStringLiteral("logged.wav"))).isDir());
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSound::compile_passesTheFields()
{
    Dialog dialog(QStringLiteral("my \"own\"; $HOME *"));
    dialog.setFlags(QStringLiteral("-W -d "));
    dialog.control<QLineEdit>("Score")->setText(QStringLiteral("/other.sco"));
    dialog.click("Compila");
    QCOMPARE(dialog.argumentsIn(dialog.text()),
             QStringList({"-W", "-d", "-o", dialog.path("my \"own\"; $HOME *.wav"),
                          dialog.config.OrchestraFileName, "/other.sco", "-O" + dialog.logFile()}));
    QVERIFY(dialog.text().contains("directory " + QCoreApplication::applicationDirPath()));
    QVERIFY(dialog.text().contains("SFDIR=" + dialog.folder.path()));
}

void tst_FormCSound::compile_realTime_asksNothing()
{
    Dialog dialog(QStringLiteral("my piece"));
    dialog.write(QStringLiteral("my piece.wav"), "old");
    dialog.click("CheckRealTime");
    dialog.click("Compila");
    QCOMPARE(dialog.argumentsIn(dialog.text()).mid(1, 2), QStringList({"-o", "devaudio"}));
    QCOMPARE(dialog.dialogs.verify(), QString());
    QCOMPARE(dialog.read(QStringLiteral("my piece.wav")), QByteArray("old"));
}

void tst_FormCSound::compile_relativeWave_isFoundWhereItIsWritten()
{
    Dialog dialog;
    dialog.write(QStringLiteral("take 2.wav"), "old");
    dialog.control<QLineEdit>("Wave")->setText(QStringLiteral("take 2.wav"));
    dialog.expectOverwriteQuestion(Answer::Cancel);
    dialog.click("Compila");
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSound::compile_opensThePanel()
{
    Dialog dialog(QStringLiteral("slow"));
    dialog.form->move(100, 300);
    const QSize compact = dialog.form->size();
    QSize size;
    QPoint place;
    bool stopEnabled = false;
    QString shown;
    const auto running = [&] { return dialog.text().startsWith(QLatin1String("Compiling ")); };
    dialog.when(running, [&] {
        size = dialog.form->size();
        place = dialog.form->pos();
        stopEnabled = dialog.control("btnStop")->isEnabled();
        shown = dialog.text();
        QVERIFY(dialog.isPanelOpen());
        QVERIFY(!dialog.control("Compila")->isVisible());
        QVERIFY(!dialog.goToError()->isVisible());
        dialog.click("btnStop");
    });
    dialog.click("Compila");
    QCOMPARE(size, compact + QSize(0, (8400 - 3960) / 15));
    QCOMPARE(place, QPoint(100, 300 - 2200 / 15));
    QVERIFY(stopEnabled);
    QCOMPARE(shown, QStringLiteral("Compiling ."));
}

void tst_FormCSound::compile_end_showsLogAndWave()
{
    Dialog dialog;
    QVERIFY(!dialog.control("btnStop")->isEnabled());
    dialog.click("Compila");
    QCOMPARE(dialog.text(), finishedText(QStringLiteral("this is the log\r\n")));
    QVERIFY(dialog.isPanelOpen());
    QVERIFY(!dialog.control("btnStop")->isEnabled());
    QVERIFY(!dialog.goToError()->isVisible());
    QVERIFY(dialog.output->hasFocus());
    QCOMPARE(dialog.beeps, 1);
}

void tst_FormCSound::compile_cannotStart_saysSoAndKeepsThePanel()
{
    Dialog dialog;
    dialog.config.FileCSound = QStringLiteral("/nowhere/csound");
    dialog.dialogs.expect({QStringLiteral("File was not found."), ProgramTitle, MessageIcon::None});
    dialog.click("Compila");
    QVERIFY(dialog.isPanelOpen());
    QVERIFY(dialog.control("btnStop")->isEnabled());
    QCOMPARE(dialog.text(), QString());
    QCOMPARE(dialog.beeps, 0);
    QCOMPARE(dialog.dialogs.verify(), QString());
}

void tst_FormCSound::compile_again_hidesTheButton()
{
    Dialog dialog(QStringLiteral("errors"));
    dialog.click("Compila");
    QVERIFY(dialog.goToError()->isVisible());
    dialog.click("btnClose");
    dialog.control<QLineEdit>("Orchestra")->setText(dialog.path(QStringLiteral("logged.orc")));
    dialog.click("Compila");
    QVERIFY(dialog.isPanelOpen());
    QVERIFY(!dialog.goToError()->isVisible());
}

void tst_FormCSound::stop_closesThePanel()
{
    Dialog dialog(QStringLiteral("ignores"));
    const QSize compact = dialog.form->size();
    dialog.form->move(100, 300);
    dialog.whenRunning([&] {
        dialog.click("btnStop");
        QVERIFY(!dialog.isPanelOpen());
    });
    dialog.click("Compila");
    QCOMPARE(dialog.text(), QStringLiteral("Stopped by user!!!"));
    QVERIFY(!isAlive(dialog.pids().leader));
    QVERIFY(!dialog.isPanelOpen());
    QCOMPARE(dialog.form->size(), compact);
    QCOMPARE(dialog.form->pos(), QPoint(100, 300));
    QVERIFY(dialog.form->isVisible());
    QCOMPARE(dialog.beeps, 0);
}

void tst_FormCSound::close_afterRun_leadsBackToTheForm()
{
    Dialog dialog;
    dialog.click("Compila");
    dialog.click("btnClose");
    QVERIFY(!dialog.isPanelOpen());
    QVERIFY(dialog.control("Compila")->isVisible());
    QCOMPARE(dialog.text(), finishedText(QStringLiteral("this is the log\r\n")));
    dialog.click("Compila"); // the request to stop is forgotten
    QVERIFY(dialog.isPanelOpen());
    QCOMPARE(dialog.beeps, 2);
}

void tst_FormCSound::panel_movedBetween_movesBackFromThere()
{
    Dialog dialog;
    dialog.form->move(100, 300);
    dialog.click("Compila");
    dialog.form->move(50, 60);
    dialog.click("btnClose");
    QCOMPARE(dialog.form->pos(), QPoint(50, 60 + 2200 / 15));
    // At the screen's upper edge there is less room to rise.
    dialog.form->move(0, 20);
    dialog.click("Compila");
    QCOMPARE(dialog.form->pos(), QPoint(0, 0));
    dialog.click("btnClose");
    QCOMPARE(dialog.form->pos(), QPoint(0, 20));
}

void tst_FormCSound::error_button_selectsTheLine()
{
    Dialog dialog(QStringLiteral("errors"));
    dialog.click("Compila");
    dialog.click("btnGoToError");
    QCOMPARE(selection(dialog.orchestra), QStringLiteral("two two"));
    QCOMPARE(selection(dialog.score), QString());
    QVERIFY(!dialog.form->isVisible());
    QVERIFY(!QFile::exists(dialog.logFile()));
}

void tst_FormCSound::error_beyondTheText_doesNoHarm()
{
    Dialog dialog(QStringLiteral("errors"));
    dialog.orchestra.SetText(QStringLiteral("one"));
    dialog.click("Compila");
    dialog.click("btnGoToError");
    QVERIFY(!dialog.form->isVisible());
    QCOMPARE(dialog.orchestra.Text(), QStringLiteral("one"));
}

void tst_FormCSound::error_inScore_selectsThere()
{
    Dialog dialog(QStringLiteral("scored"));
    dialog.click("Compila");
    dialog.click("btnGoToError");
    QCOMPARE(selection(dialog.score), QStringLiteral("i2 0 1 2"));
    QCOMPARE(selection(dialog.orchestra), QString());
}

void tst_FormCSound::error_selectedInLog()
{
    Dialog dialog(QStringLiteral("errors"));
    dialog.click("Compila");
    QCOMPARE(dialog.output->textCursor().selectedText(),
             QStringLiteral("error: syntax error, line 2"));
}

void tst_FormCSound::error_farDownInALongLog_isSelected()
{
    LinkedOutput output([](const QStringList &, qsizetype) { return false; }, 1, nullptr);
    const QString line = QStringLiteral("a line of many\r\n");
    const QString text = line.repeated(60'000) + QStringLiteral("the error\r\n") + line;
    output.setText(text);
    output.insertBanner(0);
    output.show();
    output.select(output.text().indexOf(QLatin1String("error")), 5);
    QVERIFY(!output.textCursor().hasSelection()); // as far as that it is not there yet
    QTRY_COMPARE(output.textCursor().selectedText(), QStringLiteral("error"));
    QCOMPARE(output.textCursor().blockNumber(), 60'007);
    // A new text drops what was to be selected in the old one.
    output.setText(text);
    output.select(text.indexOf(QLatin1String("error")), 5);
    output.setText(QStringLiteral("new"));
    QCoreApplication::processEvents();
    QVERIFY(!output.textCursor().hasSelection());
}

void tst_FormCSound::link_doubleClick_selectsTheLine()
{
    Dialog dialog(QStringLiteral("links"));
    dialog.click("Compila");
    QVERIFY(!dialog.goToError()->isVisible()); // its rules find nothing in such a log
    dialog.doubleClick(QStringLiteral(" from file"));
    QCOMPARE(selection(dialog.orchestra), QStringLiteral("two two"));
    QVERIFY(!dialog.form->isVisible());

    dialog.show();
    dialog.click("Compila");
    dialog.doubleClick(QStringLiteral("in line 1"));
    QCOMPARE(selection(dialog.score), QStringLiteral("i1 0 1"));
    QVERIFY(!dialog.form->isVisible());
}

void tst_FormCSound::link_pointer_showsIt()
{
    Dialog dialog(QStringLiteral("links"));
    dialog.click("Compila");
    const auto moveTo = [&](int block) {
        const QTextCursor cursor(dialog.output->document()->findBlockByNumber(block));
        QTest::mouseMove(dialog.output->viewport(), dialog.output->cursorRect(cursor).center());
        return dialog.output->viewport()->cursor().shape();
    };
    const QStringList lines = dialog.text().split(QStringLiteral("\r\n"));
    const int link = int(lines.indexOf(QRegularExpression(QStringLiteral("^ from file.*"))));
    QTRY_COMPARE(moveTo(link), Qt::PointingHandCursor);
    QTRY_COMPARE(moveTo(link - 1), Qt::IBeamCursor);
    // Only the link is underlined.
    const auto hasLine = [&](int block) {
        const QTextCursor cursor(dialog.output->document()->findBlockByNumber(block));
        QRect row = dialog.output->cursorRect(cursor);
        row.setWidth(60);
        const QImage image = dialog.output->viewport()->grab(row).toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) == QColor(0, 0, 220))
                    return true;
        return false;
    };
    QVERIFY(hasLine(link));
    QVERIFY(!hasLine(link - 1));
}

void tst_FormCSound::link_otherLine_selectsItsWord()
{
    Dialog dialog(QStringLiteral("links"));
    dialog.click("Compila");
    dialog.doubleClick(QStringLiteral("error"));
    QVERIFY(dialog.form->isVisible());
    QCOMPARE(dialog.output->textCursor().selectedText(), QStringLiteral("error"));
}

void tst_FormCSound::leaving_anyWay_closingSteps_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"Command1", "Escape", "close"})
        QTest::newRow(way) << way;
}

void tst_FormCSound::leaving_anyWay_closingSteps()
{
    QFETCH(QString, way);
    Dialog dialog;
    dialog.click("Compila");
    QVERIFY(QFile::exists(dialog.logFile()));
    dialog.click("btnClose");
    dialog.click("Command2");
    dialog.config.FileCSound = QStringLiteral("/chosen");
    if (way == QLatin1String("Command1"))
        dialog.click("Command1");
    else if (way == QLatin1String("Escape"))
        QTest::keyClick(dialog.form.get(), Qt::Key_Escape);
    else
        dialog.form->close();
    QVERIFY(!dialog.form->isVisible());
    QVERIFY(!QFile::exists(dialog.logFile()));
    QVERIFY(QFile::exists(dialog.path(QStringLiteral("own/CSFlags.dat"))));
    QCOMPARE(dialog.config.FileCSound, StandInCompiler::path());
    QCOMPARE(dialog.control<MMControl>("MMControl1")->Length(), 0);
}

void tst_FormCSound::leaving_duringRun_endsTheCompiler_data()
{
    QTest::addColumn<QString>("piece");
    for (const char *piece : {"slow", "ignores", "forks"})
        QTest::newRow(piece) << piece;
}

void tst_FormCSound::leaving_duringRun_endsTheCompiler()
{
    QFETCH(QString, piece);
    Dialog dialog(piece);
    dialog.click("Command2");
    bool flagsSaved = false;
    dialog.whenRunning([&] {
        dialog.form->close();
        flagsSaved = QFile::exists(dialog.path(QStringLiteral("own/CSFlags.dat")));
    });
    dialog.click("Compila");
    QVERIFY(flagsSaved);
    QVERIFY(!dialog.form->isVisible());
    QVERIFY(!isAlive(dialog.pids().leader));
    if (dialog.pids().child != 0)
        QTRY_VERIFY(!isAlive(dialog.pids().child));
    QVERIFY(!QFile::exists(dialog.logFile()));
    QCOMPARE(dialog.beeps, 0);
}

void tst_FormCSound::leaving_stubbornLog_isDeleted()
{
    Dialog dialog(QStringLiteral("stubborn"));
    dialog.whenRunning([&] { dialog.form->close(); });
    dialog.click("Compila");
    QVERIFY(!QFile::exists(dialog.logFile()));
}

void tst_FormCSound::leaving_duringRun_startsNoOther()
{
    Dialog dialog(QStringLiteral("slow"));
    const QString other = dialog.path(QStringLiteral("logged.orc"));
    dialog.whenRunning([&] {
        dialog.form->close();
        dialog.control<QLineEdit>("Orchestra")->setText(other);
        QTest::keyClick(dialog.control("Compila"), Qt::Key_Space);
        dialog.form->reject();
    });
    dialog.click("Compila");
    QCOMPARE(StandInCompiler::pids(other).leader, 0);
    QVERIFY(!isAlive(dialog.pids().leader));
}

void tst_FormCSound::deluge_staysBoundedAndSaysSo()
{
    Dialog dialog(QStringLiteral("deluge"));
    dialog.click("Compila");
    QVERIFY(dialog.goToError()->isVisible());
    QVERIFY(dialog.text().size() < 20'000'000);
    static const QRegularExpression said(
        QStringLiteral("\\[\\.\\.\\. \\d{9} bytes of the log are not shown here \\.\\.\\.\\]"));
    QVERIFY(dialog.text().contains(said));
    dialog.click("btnGoToError");
    QCOMPARE(selection(dialog.orchestra), QStringLiteral("three"));
}

void tst_FormCSound::keys_enter_pressesTheFocusedButton()
{
    Dialog dialog;
    QVERIFY(dialog.control("Compila")->hasFocus());
    for (const char *name : {"Score", "Wave"}) {
        auto *field = dialog.control<QLineEdit>(name);
        field->setFocus();
        QTest::keyClick(field, Qt::Key_Return);
        QVERIFY(!dialog.isPanelOpen());
    }
    dialog.control("Compila")->setFocus();
    QTest::keyClick(dialog.form.get(), Qt::Key_Return);
    QVERIFY(dialog.isPanelOpen());
    QTest::keyClick(dialog.output, Qt::Key_Return);
    QVERIFY(dialog.isPanelOpen());
    QTest::keyClick(dialog.form.get(), Qt::Key_C, Qt::AltModifier);
    QTRY_VERIFY(!dialog.isPanelOpen());
}

void tst_FormCSound::playing_disablesTheButtons()
{
    Dialog dialog;
    auto *media = dialog.control<MMControl>("MMControl1");
    const auto enabled = [&dialog] {
        QStringList names;
        for (const char *name : {"Compila", "CercaCsound", "EditorFileWave", "Command2", "Command3",
                                 "CommandFlags", "Command1"})
            if (dialog.control<QAbstractButton>(name)->isEnabled())
                names.append(QLatin1String(name));
        return names.size();
    };
    emit media->PlayClick();
    QCOMPARE(enabled(), 1);
    emit media->StopClick();
    QCOMPARE(enabled(), 7);
}

QTEST_MAIN(tst_FormCSound)
#include "tst_FormCSound.moc"
