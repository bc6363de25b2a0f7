#include "app/RecentFiles.h"
#include "documents/ProjectFixture.h"
#include "documents/ui/FormCSD.h"
#include "support/FileDrop.h"
#include "support/TestMain.h"

using namespace ardiphon;

/// How a project comes and goes besides its menu entries: recent files, drops, the closing and the
/// hand-over to the other editor window.
class tst_ProjectLeaving : public QObject, private ProjectFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void recent_endings_decide();
    void recent_csd_asksForBothHalves();
    void drop_score_opensThePair();
    void drop_other_goesToTheCsdWindow();
    void drop_onAnyControl_opensThePair();
    void leave_answers_data();
    void leave_answers();
    void leave_cancelAtTheFirst_stillAsksTheSecond();
    void leave_tools_areThreeValues();
    void handOver_keepsThePlacement();
    void handOver_thereAndBack_opensTheTexts();
};

void tst_ProjectLeaving::recent_endings_decide()
{
    const QString names[] = {QStringLiteral("b.txt"), QStringLiteral("b.SCO"),
                             QStringLiteral("b.orc")};
    for (const QString &name : names)
        UpdateRecentFiles(m->config, m->settings, m->write(name, name.toUtf8()));
    m->showPair("o", "s");
    m->type(m->orchestra, QStringLiteral("x"));
    m->trigger("menuLastFile(3)"); // the text file: nothing, not even a question
    m->score->setFocus();
    m->trigger("menuToolsBookmark");
    m->trigger("menuLastFile(2)");
    QVERIFY(QFile::exists(m->path(QStringLiteral("piece.bks"))));
    QCOMPARE(m->score->Text(), QStringLiteral("b.SCO"));
    QVERIFY(m->score->hasFocus());
    QCOMPARE(m->orchestra->Text(), QStringLiteral("xo")); // no partner is looked for
    m->expectQuestion(QStringLiteral("Save Orchestra"), OrchestraChanged, Answer::Yes);
    m->trigger("menuLastFile(1)");
    QCOMPARE(m->read(QStringLiteral("piece.orc")), QByteArray("xo"));
    QCOMPARE(m->orchestra->Text(), QStringLiteral("b.orc"));
    QCOMPARE(m->config.OrchestraFileName, m->path(QStringLiteral("b.orc")));
    QVERIFY(m->orchestra->hasFocus());
}

void tst_ProjectLeaving::recent_csd_asksForBothHalves()
{
    UpdateRecentFiles(m->config, m->settings, m->write(QStringLiteral("b.csd"), "c"));
    m->showPair("o", "s");
    m->type(m->orchestra, QStringLiteral("x"));
    m->type(m->score, QStringLiteral("x"));
    m->expectQuestion(QStringLiteral("Save Orchestra"), OrchestraChanged, Answer::Yes);
    m->expectQuestion(QStringLiteral("Save Score"), ScoreChanged, Answer::No);
    m->trigger("menuLastFile(1)");
    QCOMPARE(m->read(QStringLiteral("piece.orc")), QByteArray("xo"));
    QCOMPARE(m->read(QStringLiteral("piece.sco")), QByteArray("s"));
    QCOMPARE(m->csdWindows, 1);
    QCOMPARE(m->config.CSDFileName, m->path(QStringLiteral("b.csd")));
}

void tst_ProjectLeaving::drop_score_opensThePair()
{
    m->showPair("o", "s");
    m->type(m->score, QStringLiteral("x"));
    m->write(QStringLiteral("b.orc"), "O");
    const QString path = m->write(QStringLiteral("b.sco"), "S");
    m->expectQuestion(QStringLiteral("Save File"), QStringLiteral("File has changed!"),
                      Answer::Yes);
    FileDrop::on(*m->window, {path, QStringLiteral("/second.orc")});
    QCOMPARE(m->read(QStringLiteral("piece.sco")), QByteArray("xs"));
    QCOMPARE(m->orchestra->Text() + m->score->Text(), QStringLiteral("OS"));
    QCOMPARE(m->config.LastFileName, path);
    QVERIFY(m->score->hasFocus());
}

void tst_ProjectLeaving::drop_other_goesToTheCsdWindow()
{
    m->showPair("o", "s");
    FileDrop::on(*m->window, {m->path(QStringLiteral("b.txt"))});
    QCOMPARE(m->csdWindows, 1);
    QCOMPARE(m->config.CSDFileName, m->path(QStringLiteral("b.txt")));
}

void tst_ProjectLeaving::drop_onAnyControl_opensThePair()
{
    m->showPair();
    m->trigger("menuWindowBarraBook");
    m->trigger("menuWindowInstrument");
    const QString path = m->write(QStringLiteral("b.orc"), "o");
    const QList<QWidget *> controls = FileDrop::controlsOf(*m->window);
    QVERIFY(controls.contains(m->orchestra) && controls.contains(m->score));
    for (QWidget *control : controls) {
        m->config.LastFileName.clear();
        FileDrop::on(*control, {path});
        if (m->config.LastFileName != path)
            QFAIL(qPrintable(control->objectName() + u' ' + control->metaObject()->className()));
    }
}

void tst_ProjectLeaving::leave_answers_data()
{
    QTest::addColumn<Answer>("orchestra");
    QTest::addColumn<Answer>("score");
    for (const Answer orchestra : {Answer::Yes, Answer::No, Answer::Cancel})
        for (const Answer score : {Answer::Yes, Answer::No, Answer::Cancel})
            QTest::addRow("%d %d", int(orchestra), int(score)) << orchestra << score;
}

void tst_ProjectLeaving::leave_answers()
{
    QFETCH(Answer, orchestra);
    QFETCH(Answer, score);
    m->showPair("o", "s");
    for (LEditOCX *editor : {m->orchestra, m->score}) {
        editor->setFocus();
        m->trigger("menuToolsBookmark");
        m->type(editor, QStringLiteral("x"));
    }
    m->write(QStringLiteral("tmp.txt"), "log");
    m->expectQuestion(QStringLiteral("Exit Program"), OrchestraChanged, orchestra);
    m->expectQuestion(QStringLiteral("Exit Program"), ScoreChanged, score);
    m->trigger("menuFileEsci");
    QCOMPARE(m->read(QStringLiteral("piece.orc")),
             QByteArray(orchestra == Answer::Yes ? "xo" : "o"));
    QCOMPARE(m->read(QStringLiteral("piece.sco")), QByteArray(score == Answer::Yes ? "xs" : "s"));
    QCOMPARE(m->read(QStringLiteral("piece.bko")).isEmpty(), orchestra == Answer::No);
    QCOMPARE(m->read(QStringLiteral("piece.bks")).isEmpty(), score == Answer::No);
    QVERIFY(!QFile::exists(m->path(QStringLiteral("tmp.txt"))));
    QVERIFY(m->config.FormCSDClosing);
    const bool stays = orchestra == Answer::Cancel || score == Answer::Cancel;
    QCOMPARE(m->window->isVisible(), stays);
}

void tst_ProjectLeaving::leave_cancelAtTheFirst_stillAsksTheSecond()
{
    m->showPair("o", "s");
    m->type(m->orchestra, QStringLiteral("x"));
    m->type(m->score, QStringLiteral("x"));
    m->expectQuestion(QStringLiteral("Exit Program"), OrchestraChanged, Answer::Cancel);
    m->expectQuestion(QStringLiteral("Exit Program"), ScoreChanged, Answer::Yes);
    QVERIFY(!m->window->close());
    QCOMPARE(m->read(QStringLiteral("piece.sco")), QByteArray("xs"));
    QCOMPARE(m->orchestra->Text(), QStringLiteral("xo"));
}

void tst_ProjectLeaving::leave_tools_areThreeValues()
{
    const auto value = [this](const char *name) {
        return ReadRegistryString(m->settings, registry::WindowKey, QLatin1String(name));
    };
    WriteRegistryString(m->settings, registry::WindowKey, QStringLiteral("BookBar"),
                        QStringLiteral("kept"));
    m->config.SaveToolsPreferences = QStringLiteral("YES");
    m->showPair();
    m->trigger("menuWindowLineNumbers");
    m->trigger("menuWindowToolbar");
    QVERIFY(m->window->close());
    QCOMPARE(value("LineNumbers"), QStringLiteral("HIDE"));
    QCOMPARE(value("OnLineHelp"), QString());
    QCOMPARE(value("Toolbar"), QStringLiteral("HIDE"));
    QCOMPARE(value("BookBar"), QStringLiteral("kept"));
}

void tst_ProjectLeaving::handOver_keepsThePlacement()
{
    m->showPair();
    m->window->setGeometry(30, 40, 700, 600);
    const QPoint at = m->window->pos();
    m->dialogs.expectOpen(OpenProject, m->write(QStringLiteral("b.csd"), "c"));
    bool shownFirst = false;
    m->context.windows.showFormCSD = [&] { shownFirst = m->window && m->window->isVisible(); };
    m->trigger("menuFileApriProgetto");
    QVERIFY(shownFirst);
    QCOMPARE(m->config.WindowWidth, 700L * 15);
    QCOMPARE(m->config.WindowHeight, 600L * 15);
    QCOMPARE(m->config.WindowLeft, long(at.x()) * 15);
    QCOMPARE(m->config.WindowTop, long(at.y()) * 15);
    QVERIFY(!m->config.WindowMaximized);
    QTRY_VERIFY(!m->window);
}

/// The two real windows, one in the place of the other.
void tst_ProjectLeaving::handOver_thereAndBack_opensTheTexts()
{
    QPointer<FormCSD> csd;
    m->context.windows.showFormCSD = [&] {
        csd = new FormCSD(m->context);
        csd->show();
    };
    m->context.windows.showFormORCSCO = [&] {
        m->window = new FormORCSCO(m->context);
        m->window->show();
    };
    m->showPair("o", "s");
    const QPointer<FormORCSCO> first = m->window;
    m->dialogs.expectOpen(OpenProject, m->write(QStringLiteral("b.csd"), "c"));
    m->trigger("menuFileApriProgetto");
    QVERIFY(csd);
    QTRY_VERIFY(!first);
    QCOMPARE(csd->findChild<LEditOCX *>(QStringLiteral("LEDIT1"))->Text(), QStringLiteral("c"));

    m->dialogs.expectOpen(QStringLiteral("Open File"), m->path(QStringLiteral("piece.sco")));
    csd->findChild<QAction *>(QStringLiteral("menuFileApriOrchestra"))->trigger();
    QTRY_VERIFY(!csd);
    QVERIFY(m->window);
    QCOMPARE(m->control<LEditOCX>("LEDIT1")->Text(), QStringLiteral("o"));
    QCOMPARE(m->control<LEditOCX>("LEDIT2")->Text(), QStringLiteral("s"));
    QCOMPARE(m->config.OrchestraFileName, m->path(QStringLiteral("piece.orc")));
}

ARDIPHON_TEST(tst_ProjectLeaving, QApplication)
#include "tst_ProjectLeaving.moc"
