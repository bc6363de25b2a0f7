#include "documents/DocumentTexts.h"
#include "documents/ProjectFixture.h"
#include "support/FileDrop.h"
#include "support/TestMain.h"

#include <QDir>

#include <optional>
#include <unistd.h>

using namespace ardiphon;

/// The life of the pair: loading, opening, a new one, saving.
class tst_ProjectDocument : public QObject, private ProjectFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    // Load.
    void load_orchestra_bringsItsScoreAndBothBookmarks();
    void load_score_bringsItsOrchestraAndHasTheFocus();
    void load_missingPartner_leavesItWithoutAName();
    void load_partnerInOtherCase_isFound_data();
    void load_partnerInOtherCase_isFound();
    void load_partnerIsAFolder_isNone();
    void load_noNames_areUntitled();
    void load_folder_isWhereDialogsBegin();
    void load_readOnlyPair_becomesWritable();
    void load_noSideFile_countsAsUnchanged();

    // The pair.
    void open_pair_loadsBothAndListsThemInOrder();
    void open_missingScore_emptiesBoth();
    void open_scoreThroughAllFiles_goesToTheCsdWindow();
    void open_cancelled_hasWrittenTheBookmarks();
    void newOrDrop_savesTheBookmarksFirst_data();
    void newOrDrop_savesTheBookmarksFirst();
    void open_modified_asks_data();
    void open_modified_asks();
    void open_unreadableScore_isNotOverwritten();
    void new_answers_data();
    void new_answers();
    void save_pair_writesBothAndDropsTheStars();
    void save_oneHalfUntitled_asksForOneNameForBoth();
    void save_halfWithoutAPartner_isAskedForOnlyWhenModified();
    void saveAs_nameWithoutExtension_cutsFourCharacters();
    void save_changedByAnotherProgram_asksWithTheHalfsTitle();
    void save_failed_asksAgain();

private:
    void expectOverwrite(const QString &title, Answer answer);
};

// Load. -------------------------------------------------------------------------------------------

void tst_ProjectDocument::load_orchestra_bringsItsScoreAndBothBookmarks()
{
    const QByteArray mark =
        QByteArray("2").leftJustified(20) + QByteArray("-> x").leftJustified(20);
    const QByteArray none = QByteArray("[NONE]").leftJustified(20).repeated(2);
    m->write(QStringLiteral("piece.bko"), mark + none.repeated(14));
    m->write(QStringLiteral("piece.bks"), none + mark + none.repeated(13));
    m->showPair();
    QCOMPARE(m->orchestra->Text(), QStringLiteral("instr 1\r\nendin\r\n"));
    QCOMPARE(m->score->Text(), QStringLiteral("i1 0 1\r\ne\r\n"));
    QCOMPARE(m->label("LabelOrchestra"),
             QStringLiteral("File Orchestra: ") + m->path(QStringLiteral("piece.orc")));
    QCOMPARE(m->label("LabelScore"),
             QStringLiteral("File Score: ") + m->path(QStringLiteral("piece.sco")));
    QCOMPARE(m->orchestra->GetBookmarkLine(1), 2);
    QCOMPARE(m->score->GetBookmarkLine(2), 2);
    QVERIFY(!m->orchestra->GetState(TextState) && !m->score->GetState(TextState));
    QVERIFY(m->orchestra->hasFocus());
    QCOMPARE(m->config.LastFileName, m->path(QStringLiteral("piece.orc")));
    QCOMPARE(m->recent("File1"), m->path(QStringLiteral("piece.orc")));
    QCOMPARE(m->recent("File2"), QString()); // the partner is not listed here
    QCOMPARE(m->window->windowTitle(), QStringLiteral("ArdiphonPro - Version " ARDIPHON_VERSION));
}

void tst_ProjectDocument::load_score_bringsItsOrchestraAndHasTheFocus()
{
    m->write(QStringLiteral("piece.orc"), "o");
    m->config.ScoreFileName = m->write(QStringLiteral("piece.SCO"), "s");
    m->show();
    QCOMPARE(m->orchestra->Text(), QStringLiteral("o"));
    QCOMPARE(m->score->Text(), QStringLiteral("s"));
    QVERIFY(m->score->hasFocus());
}

void tst_ProjectDocument::load_missingPartner_leavesItWithoutAName()
{
    m->config.OrchestraFileName = m->write(QStringLiteral("piece.orc"), "o");
    m->show();
    QCOMPARE(m->orchestra->Text(), QStringLiteral("o"));
    QCOMPARE(m->score->Text(), QString());
    QCOMPARE(m->config.ScoreFileName, QString());
}

void tst_ProjectDocument::load_partnerInOtherCase_isFound_data()
{
    QTest::addColumn<QString>("orchestra");
    QTest::addColumn<QString>("score");
    QTest::newRow("capital orchestra") << "piece.ORC"
                                       << "piece.sco";
    QTest::newRow("all capitals") << "piece.ORC"
                                  << "PIECE.SCO";
    QTest::newRow("capital score") << "piece.orc"
                                   << "piece.SCO";
    QTest::newRow("dots") << "a.b.orc"
                          << "a.b.sco";
}

void tst_ProjectDocument::load_partnerInOtherCase_isFound()
{
    QFETCH(QString, orchestra);
    QFETCH(QString, score);
    m->config.OrchestraFileName = m->write(orchestra, "o");
    const QString found = m->write(score, "s");
    m->show();
    QCOMPARE(m->score->Text(), QStringLiteral("s"));
    QCOMPARE(m->config.ScoreFileName, found);
    m->type(m->score, QStringLiteral("x"));
    m->trigger("menuFileSalvaScore");
    QCOMPARE(m->read(score), QByteArray("xs"));
}

void tst_ProjectDocument::load_partnerIsAFolder_isNone()
{
    m->config.OrchestraFileName = m->write(QStringLiteral("piece.orc"), "o");
    QVERIFY(QDir(m->folder.path()).mkdir(QStringLiteral("piece.sco")));
    m->show();
    QCOMPARE(m->config.ScoreFileName, QString());
}

void tst_ProjectDocument::load_noNames_areUntitled()
{
    m->show();
    QCOMPARE(m->config.OrchestraFileName, Untitled);
    QCOMPARE(m->config.ScoreFileName, Untitled);
    QCOMPARE(m->label("LabelOrchestra"), QStringLiteral("File Orchestra: [Untitled]"));
    QCOMPARE(m->label("LabelScore"), QStringLiteral("File Score: [Untitled]"));
}

void tst_ProjectDocument::load_folder_isWhereDialogsBegin()
{
    m->config.WorkingDirectory = QDir::rootPath();
    m->showPair();
    m->dialogs.expectOpen(OpenProject, std::nullopt);
    m->trigger("menuFileApriProgetto");
    QCOMPARE(m->dialogs.fileQuestions.back().directory, m->folder.path());
    m->trigger("buttonDefaultDir");
    m->dialogs.expectOpen(OpenProject, std::nullopt);
    m->trigger("menuFileApriProgetto");
    QCOMPARE(m->dialogs.fileQuestions.back().directory, QDir::rootPath());
}

void tst_ProjectDocument::load_readOnlyPair_becomesWritable()
{
    m->config.OrchestraFileName = m->write(QStringLiteral("piece.orc"), "o");
    const QString score = m->write(QStringLiteral("piece.sco"), "s");
    QVERIFY(QFile::setPermissions(score, QFile::ReadOwner));
    m->show();
    QVERIFY(QFile::permissions(score) & QFile::WriteOwner);
}

/// Bookmarks that were all taken away stay due at a save; the next document knows nothing of it.
void tst_ProjectDocument::load_noSideFile_countsAsUnchanged()
{
    m->showPair();
    for (LEditOCX *editor : {m->orchestra, m->score}) {
        editor->setFocus();
        m->trigger("menuToolsRemoveAllBookmark");
    }
    m->trigger("menuFileSalvaProgetto");
    QVERIFY(m->config.OrchestraModified && m->config.ScoreModified);
    m->dialogs.expectOpen(QStringLiteral("Open Orchestra (*.ORC)"),
                          m->write(QStringLiteral("b.orc"), "o"));
    m->trigger("menuFileApriOrchestra");
    QVERIFY(!m->config.OrchestraModified && m->config.ScoreModified);
    m->dialogs.expectOpen(QStringLiteral("Open Score (*.SCO)"),
                          m->write(QStringLiteral("b.sco"), "s"));
    m->trigger("menuFileApriScore");
    QVERIFY(!m->config.ScoreModified);
}

// The pair. ---------------------------------------------------------------------------------------

void tst_ProjectDocument::open_pair_loadsBothAndListsThemInOrder()
{
    m->show();
    const QString orchestra = m->write(QStringLiteral("piece.orc"), "o");
    const QString score = m->write(QStringLiteral("piece.sco"), "s");
    m->dialogs.expectOpen(OpenProject, orchestra);
    m->trigger("menuFileApriProgetto");
    QCOMPARE(m->orchestra->Text() + m->score->Text(), QStringLiteral("os"));
    QCOMPARE(m->config.ScoreFileName, score);
    QCOMPARE(m->recent("File1"), score);
    QCOMPARE(m->recent("File2"), orchestra);
    QCOMPARE(m->control<QAction>("menuLastFile(1)")->text(),
             u'[' + orchestra.left(2) + QStringLiteral("] piece.orc"));
    QVERIFY(m->orchestra->hasFocus());
    QCOMPARE(m->dialogs.fileQuestions.front().filter,
             QStringLiteral("CSound Files (*.csd;*.orc)|*.csd;*.orc|"
                            "Orc/Sco Files (*.orc & *.sco)|*.orc|Csd Files (*.csd)|*.csd|"
                            "Text Files (*.txt)|*.txt|All Files (*.*)|*.*"));
}

void tst_ProjectDocument::open_missingScore_emptiesBoth()
{
    m->showPair();
    const QString orchestra = m->write(QStringLiteral("other.orc"), "o");
    m->dialogs.expectOpen(OpenProject, orchestra);
    m->expectMessage(QStringLiteral("File Score: ") + m->path(QStringLiteral("other.sco")) +
                     QStringLiteral(" hasn't found!"));
    m->trigger("menuFileApriProgetto");
    QCOMPARE(m->orchestra->Text() + m->score->Text(), QString());
    QCOMPARE(m->config.OrchestraFileName, Untitled);
    QCOMPARE(m->config.ScoreFileName, Untitled);
    QCOMPARE(m->label("LabelScore"), QStringLiteral("File Score: [Untitled]"));
    QVERIFY(!m->orchestra->GetState(TextState));
    QCOMPARE(m->read(QStringLiteral("piece.orc")), QByteArray("instr 1\nendin\n"));
}

void tst_ProjectDocument::open_scoreThroughAllFiles_goesToTheCsdWindow()
{
    for (const QString &name : {QStringLiteral("b.sco"), QStringLiteral("b.csd")}) {
        m->showPair();
        const int before = m->csdWindows;
        m->dialogs.expectOpen(OpenProject, m->write(name, "x"));
        m->trigger("menuFileApriProgetto");
        QCOMPARE(m->csdWindows, before + 1);
        QCOMPARE(m->config.CSDFileName, m->path(name));
        QCOMPARE(m->config.OrchestraFileName, QString());
        QCOMPARE(m->config.ScoreFileName, QString());
        QTRY_VERIFY(!m->window);
    }
}

void tst_ProjectDocument::open_cancelled_hasWrittenTheBookmarks()
{
    m->showPair();
    m->score->setFocus();
    m->trigger("menuToolsBookmark");
    m->dialogs.expectOpen(OpenProject, std::nullopt);
    m->trigger("menuFileApriProgetto");
    QVERIFY(!m->read(QStringLiteral("piece.bks")).isEmpty());
    QVERIFY(m->read(QStringLiteral("piece.bko")).isEmpty());
    QCOMPARE(m->score->Text(), QStringLiteral("i1 0 1\r\ne\r\n"));
}

void tst_ProjectDocument::newOrDrop_savesTheBookmarksFirst_data()
{
    QTest::addColumn<bool>("byDrop");
    QTest::newRow("new") << false;
    QTest::newRow("drop") << true;
}

void tst_ProjectDocument::newOrDrop_savesTheBookmarksFirst()
{
    QFETCH(bool, byDrop);
    m->showPair();
    for (LEditOCX *editor : {m->orchestra, m->score}) {
        editor->setFocus();
        m->trigger("menuToolsBookmark");
    }
    if (byDrop) {
        FileDrop::on(*m->window, {m->write(QStringLiteral("b.orc"), "o")});
        QCOMPARE(m->orchestra->GetBookmarkLine(1), -1);
    } else {
        m->chooseInFormNew(Qt::Key_Escape);
        m->trigger("menuFileNuovoProgetto");
        QCOMPARE(m->orchestra->GetBookmarkLine(1), 1);
    }
    QVERIFY(!m->read(QStringLiteral("piece.bko")).isEmpty());
    QVERIFY(!m->read(QStringLiteral("piece.bks")).isEmpty());
}

void tst_ProjectDocument::open_modified_asks_data()
{
    QTest::addColumn<bool>("inScore");
    QTest::addColumn<Answer>("answer");
    for (const bool inScore : {false, true})
        for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel})
            QTest::addRow("%d %d", inScore, int(answer)) << inScore << answer;
}

void tst_ProjectDocument::open_modified_asks()
{
    QFETCH(bool, inScore);
    QFETCH(Answer, answer);
    m->showPair("o", "s");
    m->type(inScore ? m->score : m->orchestra, QStringLiteral("x"));
    m->score->setFocus();
    m->expectQuestion(OpenProject, ProjectChanged, answer);
    if (answer != Answer::Cancel)
        m->dialogs.expectOpen(OpenProject, std::nullopt);
    m->trigger("menuFileApriProgetto");
    const bool saved = answer == Answer::Yes;
    QCOMPARE(m->read(QStringLiteral("piece.orc")), QByteArray(saved && !inScore ? "xo" : "o"));
    QCOMPARE(m->read(QStringLiteral("piece.sco")), QByteArray(saved && inScore ? "xs" : "s"));
    QCOMPARE(m->orchestra->hasFocus(), answer == Answer::Cancel);
}

void tst_ProjectDocument::open_unreadableScore_isNotOverwritten()
{
    if (geteuid() == 0)
        QSKIP("everything is readable for root");
    m->config.OrchestraFileName = m->write(QStringLiteral("piece.orc"), "o");
    const QString score = m->write(QStringLiteral("piece.sco"), "s");
    QVERIFY(QFile::setPermissions(score, QFile::WriteOwner));
    m->expectMessage(
        QStringLiteral("The file \"%1\" cannot be opened: permission is denied.").arg(score));
    m->show();
    m->type(m->score, QStringLiteral("x"));
    m->expectMessage(QStringLiteral("The file \"%1\" was not saved: it could not be read, and what "
                                    "it holds would be lost.")
                         .arg(score));
    m->trigger("menuFileSalvaProgetto");
    QVERIFY(m->score->GetState(TextState));
    QVERIFY(QFile::setPermissions(score, QFile::ReadOwner));
    QCOMPARE(m->read(QStringLiteral("piece.sco")), QByteArray("s"));
}

void tst_ProjectDocument::new_answers_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("csdWindows");
    QTest::newRow("none") << int(Qt::Key_Escape) << QStringLiteral("os") << 0;
    QTest::newRow("project") << int(Qt::Key_O) << QString() << 0;
    QTest::newRow("csd") << int(Qt::Key_C) << QString() << 1;
}

void tst_ProjectDocument::new_answers()
{
    QFETCH(int, key);
    QFETCH(QString, text);
    QFETCH(int, csdWindows);
    m->showPair("o", "s");
    m->chooseInFormNew(Qt::Key(key));
    m->trigger("menuFileNuovoProgetto");
    QCOMPARE(m->csdWindows, csdWindows);
    if (csdWindows) {
        QCOMPARE(m->config.CSDFileName, QString());
        QTRY_VERIFY(!m->window);
        return;
    }
    QCOMPARE(m->orchestra->Text() + m->score->Text(), text);
    QCOMPARE(m->config.ScoreFileName == Untitled, text.isEmpty());
    QVERIFY(!m->orchestra->GetState(TextState) && !m->score->GetState(TextState));
}

void tst_ProjectDocument::save_pair_writesBothAndDropsTheStars()
{
    m->showPair("o", "s\xff");
    m->type(m->orchestra, QStringLiteral("x"));
    m->type(m->score, QStringLiteral("y"));
    QTRY_VERIFY(m->label("LabelOrchestra").endsWith(QLatin1String("piece.orc*")));
    QTRY_VERIFY(m->label("LabelScore").endsWith(QLatin1String("piece.sco*")));
    m->trigger("menuToolsBookmark");
    m->trigger("menuFileSalvaProgetto");
    QCOMPARE(m->read(QStringLiteral("piece.orc")), QByteArray("xo"));
    QCOMPARE(m->read(QStringLiteral("piece.sco")), QByteArray("ys\xff"));
    QVERIFY(!m->label("LabelOrchestra").endsWith(u'*'));
    QVERIFY(!m->label("LabelScore").endsWith(u'*'));
    QVERIFY(!m->read(QStringLiteral("piece.bko")).isEmpty() ||
            !m->read(QStringLiteral("piece.bks")).isEmpty());
}

void tst_ProjectDocument::save_oneHalfUntitled_asksForOneNameForBoth()
{
    m->showPair("o", "s");
    m->trigger("menuFileNuovaScore");
    m->type(m->score, QStringLiteral("t"));
    m->dialogs.expectSave(SaveProjectAsTitle, m->path(QStringLiteral("new.orc")));
    m->trigger("menuFileSalvaProgetto");
    QCOMPARE(m->read(QStringLiteral("new.orc")), QByteArray("o"));
    QCOMPARE(m->read(QStringLiteral("new.sco")), QByteArray("t"));
    QCOMPARE(m->config.OrchestraFileName, m->path(QStringLiteral("new.orc")));
    QCOMPARE(m->dialogs.fileQuestions.back().filter,
             QStringLiteral("Csound files (orc & sco)|*.orc"));
    QVERIFY(m->orchestra->hasFocus());
}

void tst_ProjectDocument::save_halfWithoutAPartner_isAskedForOnlyWhenModified()
{
    m->config.OrchestraFileName = m->write(QStringLiteral("piece.orc"), "o");
    m->show();
    m->type(m->orchestra, QStringLiteral("x"));
    m->trigger("menuFileSalvaProgetto");
    QCOMPARE(m->read(QStringLiteral("piece.orc")), QByteArray("xo"));
    m->type(m->score, QStringLiteral("s"));
    m->dialogs.expectSave(QStringLiteral("Save Score As ... (*.SCO)"),
                          m->path(QStringLiteral("piece.sco")));
    m->trigger("menuFileSalvaProgetto");
    QCOMPARE(m->read(QStringLiteral("piece.sco")), QByteArray("s"));
}

void tst_ProjectDocument::saveAs_nameWithoutExtension_cutsFourCharacters()
{
    m->showPair("o", "s");
    m->dialogs.expectSave(SaveProjectAsTitle, m->path(QStringLiteral("prelude")));
    m->trigger("menuFileSalvaProgettoNome");
    QCOMPARE(m->read(QStringLiteral("prelude")), QByteArray("o"));
    QCOMPARE(m->read(QStringLiteral("pre.sco")), QByteArray("s"));
    QCOMPARE(m->config.ScoreFileName, m->path(QStringLiteral("pre.sco")));
}

void tst_ProjectDocument::expectOverwrite(const QString &title, Answer answer)
{
    m->dialogs.expect({QStringLiteral("File has been changed by another program!\r\n"
                                      "Do you want to overwrite it?"),
                       title, MessageIcon::Exclamation, MessageButtons::YesNoSaveAs, true},
                      answer);
}

void tst_ProjectDocument::save_changedByAnotherProgram_asksWithTheHalfsTitle()
{
    m->showPair("o", "s");
    m->type(m->orchestra, QStringLiteral("x"));
    m->write(QStringLiteral("piece.orc"), "longer");
    m->write(QStringLiteral("piece.sco"), "longer");
    expectOverwrite(QStringLiteral("Save Orchestra"), Answer::Yes);
    expectOverwrite(QStringLiteral("Save Score"), Answer::No);
    m->trigger("menuFileSalvaProgetto");
    QCOMPARE(m->read(QStringLiteral("piece.orc")), QByteArray("xo"));
    QCOMPARE(m->read(QStringLiteral("piece.sco")), QByteArray("longer"));
}

/// The user has not seen the failure, so the question comes back before the text goes.
void tst_ProjectDocument::save_failed_asksAgain()
{
    m->showPair("o", "s");
    m->type(m->score, QStringLiteral("x"));
    QVERIFY(QFile::remove(m->path(QStringLiteral("piece.sco"))));
    QVERIFY(QDir(m->folder.path()).mkdir(QStringLiteral("piece.sco")));
    m->expectQuestion(OpenProject, ProjectChanged, Answer::Yes);
    expectOverwrite(QStringLiteral("Save Score"), Answer::Yes);
    m->expectMessage(QStringLiteral("The file \"%1\" was not saved: it is a folder.")
                         .arg(m->path(QStringLiteral("piece.sco"))));
    m->expectQuestion(OpenProject, ProjectChanged, Answer::Cancel);
    m->trigger("menuFileApriProgetto");
    QCOMPARE(m->score->Text(), QStringLiteral("xs"));
    QVERIFY(m->score->GetState(TextState));
}

ARDIPHON_TEST(tst_ProjectDocument, QApplication)
#include "tst_ProjectDocument.moc"
