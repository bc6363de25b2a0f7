#include "app/RecentFiles.h"
#include "documents/ProjectWindow.h"
#include "documents/ui/FormCSD.h"
#include "support/FileDrop.h"

#include <QDir>
#include <QTreeWidget>
#include <QtTest>

#include <memory>
#include <optional>
#include <unistd.h>

using namespace ardiphon;

namespace {

const QString Untitled = QStringLiteral("[Untitled]");
const QString ProjectChanged = QStringLiteral("Project has changed!");
const QString OrchestraChanged = QStringLiteral("File Orchestra has changed!");
const QString ScoreChanged = QStringLiteral("File Score has changed!");
const QString SaveProjectAs = QStringLiteral("Save Project As ... (*.ORC / *.SCO)");
const QString OpenProject = QStringLiteral("Open Project");

} // namespace

/// The life of a project: the pair and its two halves, through the window's own menu entries, drops
/// and closing.
class tst_ProjectDocument : public QObject
{
    Q_OBJECT

private slots:
    void init() { m = std::make_unique<ProjectWindow>(); }
    void cleanup();

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

    // One half.
    void half_new_leavesTheOther_data() { halves(); }
    void half_new_leavesTheOther();
    void half_open_takesNoPartner_data() { halves(); }
    void half_open_takesNoPartner();
    void half_openCancelled_keepsEverythingButTheBookmarks();
    void half_save_asksForAName_data() { halves(); }
    void half_save_asksForAName();
    void half_cancelInTheScore_leadsToTheOrchestra();

    // To and from a CSD.
    void export_emptyHalf_saysSo();
    void export_pair_writesOneCsd();
    void export_untitled_proposesTheCutMarker();
    void export_unwritableTarget_saysNothing();
    void import_csd_replacesBothTexts();
    void import_modified_asksForEachHalf();
    void import_noScore_leavesTheNewOrchestra();
    void import_noTags_changesNothing_data();
    void import_noTags_changesNothing();

    // Recent files, drops, leaving.
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

private:
    struct Half
    {
        const char *New, *Open, *Save, *SaveAs;
        const char *label;
        QString name, ending;
        LEditOCX *editor, *other;
        QString *fileName, *otherName;
    };
    static void halves();
    Half half() const;
    void expectOverwrite(const QString &title, Answer answer);

    std::unique_ptr<ProjectWindow> m;
};

void tst_ProjectDocument::cleanup()
{
    delete m->window; // before anything can fail: it must not outlive the configuration
    QCOMPARE(m->dialogs.verify(), QString());
    m.reset();
}

// Load. ------------------------------------------------------------------------------------------

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
    QVERIFY(!m->orchestra->GetState(2) && !m->score->GetState(2));
    QVERIFY(m->orchestra->hasFocus());
    QCOMPARE(m->config.LastFileName, m->path(QStringLiteral("piece.orc")));
    QCOMPARE(m->recent("File1"), m->path(QStringLiteral("piece.orc")));
    QCOMPARE(m->recent("File2"), QString()); // the partner is not listed here
    QCOMPARE(m->window->windowTitle(), QStringLiteral("ArdiphonPro - Version 2.3.0"));
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

// The pair. --------------------------------------------------------------------------------------

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
    QVERIFY(!m->orchestra->GetState(2));
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
    m->show();
    m->type(m->score, QStringLiteral("x"));
    m->trigger("menuFileSalvaProgetto");
    QVERIFY(m->score->GetState(2));
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
    QVERIFY(!m->orchestra->GetState(2) && !m->score->GetState(2));
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
    m->dialogs.expectSave(SaveProjectAs, m->path(QStringLiteral("new.orc")));
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
    m->dialogs.expectSave(SaveProjectAs, m->path(QStringLiteral("prelude")));
    m->trigger("menuFileSalvaProgettoNome");
    QCOMPARE(m->read(QStringLiteral("prelude")), QByteArray("o"));
    QCOMPARE(m->read(QStringLiteral("pre.sco")), QByteArray("s"));
    QCOMPARE(m->config.ScoreFileName, m->path(QStringLiteral("pre.sco")));
}

void tst_ProjectDocument::expectOverwrite(const QString &title, Answer answer)
{
    m->dialogs.expect({QStringLiteral("File has been changed by another program!\r\n"
                                      "Do you want to overwrite it?"),
                       title, MessageIcon::Exclamation, MessageButtons::YesNo},
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

/// The user has not been told of the failure, so the question comes back before the text goes.
void tst_ProjectDocument::save_failed_asksAgain()
{
    m->showPair("o", "s");
    m->type(m->score, QStringLiteral("x"));
    QVERIFY(QFile::remove(m->path(QStringLiteral("piece.sco"))));
    QVERIFY(QDir(m->folder.path()).mkdir(QStringLiteral("piece.sco")));
    m->expectQuestion(OpenProject, ProjectChanged, Answer::Yes);
    expectOverwrite(QStringLiteral("Save Score"), Answer::Yes);
    m->expectQuestion(OpenProject, ProjectChanged, Answer::Cancel);
    m->trigger("menuFileApriProgetto");
    QCOMPARE(m->score->Text(), QStringLiteral("xs"));
    QVERIFY(m->score->GetState(2));
}

// One half. --------------------------------------------------------------------------------------

void tst_ProjectDocument::halves()
{
    QTest::addColumn<bool>("isScore");
    QTest::newRow("orchestra") << false;
    QTest::newRow("score") << true;
}

tst_ProjectDocument::Half tst_ProjectDocument::half() const
{
    QFETCH(bool, isScore);
    QString *orchestra = &m->config.OrchestraFileName;
    QString *score = &m->config.ScoreFileName;
    if (isScore)
        return {"menuFileNuovaScore",
                "menuFileApriScore",
                "menuFileSalvaScore",
                "menuFileSalvaScoreNome",
                "LabelScore",
                QStringLiteral("Score"),
                QStringLiteral("sco"),
                m->score,
                m->orchestra,
                score,
                orchestra};
    return {"menuFileNuovaOrchestra",
            "menuFileApriOrchestra",
            "menuFileSalvaOrchestra",
            "menuFileSalvaOrchestraNome",
            "LabelOrchestra",
            QStringLiteral("Orchestra"),
            QStringLiteral("orc"),
            m->orchestra,
            m->score,
            orchestra,
            score};
}

void tst_ProjectDocument::half_new_leavesTheOther()
{
    m->showPair("o", "s");
    const Half half = this->half();
    const QString other = half.other->Text();
    half.editor->setFocus();
    m->trigger("menuToolsBookmark");
    m->type(half.editor, QStringLiteral("x"));
    m->expectQuestion(QStringLiteral("New ") + half.name,
                      QStringLiteral("File %1 has changed!").arg(half.name), Answer::No);
    m->trigger(half.New);
    QCOMPARE(half.editor->Text(), QString());
    QVERIFY(!half.editor->GetState(2));
    QVERIFY(half.editor->hasFocus());
    QCOMPARE(*half.fileName, Untitled);
    QCOMPARE(m->label(half.label), QStringLiteral("File %1: [Untitled]").arg(half.name));
    QCOMPARE(half.editor->GetBookmarkLine(1), -1);
    const QString sideFile = half.ending == u"orc" ? QStringLiteral("bko") : QStringLiteral("bks");
    QVERIFY(!m->read(QStringLiteral("piece.") + sideFile).isEmpty());
    QCOMPARE(half.other->Text(), other);
    QVERIFY(half.otherName->startsWith(m->folder.path()));
}

void tst_ProjectDocument::half_open_takesNoPartner()
{
    m->showPair("o", "s");
    const Half half = this->half();
    const QString other = *half.otherName;
    m->write(QStringLiteral("b.orc"), "O");
    m->write(QStringLiteral("b.sco"), "S");
    const QString path = m->path(QStringLiteral("b.") + half.ending);
    m->config.FontSize = 17;
    m->dialogs.expectOpen(QStringLiteral("Open %1 (*.%2)").arg(half.name, half.ending.toUpper()),
                          path);
    m->trigger(half.Open);
    QCOMPARE(half.editor->Text(), half.ending.left(1).toUpper());
    QCOMPARE(half.editor->FontSize(), 17.0);
    QCOMPARE(*half.fileName, path);
    QCOMPARE(*half.otherName, other);
    QCOMPARE(m->label(half.label), QStringLiteral("File %1: ").arg(half.name) + path);
    QCOMPARE(m->recent("File1"), path);
}

void tst_ProjectDocument::half_openCancelled_keepsEverythingButTheBookmarks()
{
    m->showPair("o", "s");
    m->trigger("menuToolsBookmark");
    m->type(m->orchestra, QStringLiteral("x"));
    m->expectQuestion(QStringLiteral("Open Orchestra"), OrchestraChanged, Answer::No);
    m->dialogs.expectOpen(QStringLiteral("Open Orchestra (*.ORC)"), std::nullopt);
    m->trigger("menuFileApriOrchestra");
    QCOMPARE(m->orchestra->Text(), QStringLiteral("xo"));
    QVERIFY(m->orchestra->GetState(2));
    QVERIFY(!m->read(QStringLiteral("piece.bko")).isEmpty());
}

void tst_ProjectDocument::half_save_asksForAName()
{
    m->show();
    const Half half = this->half();
    m->type(half.editor, QStringLiteral("x"));
    const QString path = m->path(QStringLiteral("named"));
    m->dialogs.expectSave(
        QStringLiteral("Save %1 As ... (*.%2)").arg(half.name, half.ending.toUpper()), path);
    m->trigger(half.Save);
    QCOMPARE(m->read(QStringLiteral("named")), QByteArray("x"));
    QCOMPARE(*half.fileName, path);
    QCOMPARE(*half.otherName, Untitled);
    QVERIFY(!half.editor->GetState(2));
    QVERIFY(half.editor->hasFocus());
    m->type(half.editor, QStringLiteral("y"));
    m->trigger(half.Save); // it has its name now
    QCOMPARE(m->read(QStringLiteral("named")), QByteArray("xy"));
}

void tst_ProjectDocument::half_cancelInTheScore_leadsToTheOrchestra()
{
    m->showPair("o", "s");
    m->score->setFocus();
    m->type(m->score, QStringLiteral("x"));
    m->expectQuestion(QStringLiteral("New Score"), ScoreChanged, Answer::Cancel);
    m->trigger("menuFileNuovaScore");
    QVERIFY(m->orchestra->hasFocus());
    QCOMPARE(m->score->Text(), QStringLiteral("xs"));
}

// To and from a CSD. -----------------------------------------------------------------------------

namespace {

const QString ImportTitle = QStringLiteral("Open CSound Unified File Format (*.CSD)");
const QString ExportTitle = QStringLiteral("Save CSD File As ... (*.CSD)");
const Message Failed{QStringLiteral("Conversion Error!"), QStringLiteral("Error!"),
                     MessageIcon::Critical, MessageButtons::Ok};

} // namespace

void tst_ProjectDocument::export_emptyHalf_saysSo()
{
    m->showPair("o", "");
    m->expectMessage(QStringLiteral("No available Orchestra or Score to convert!"));
    m->trigger("menuFileConvertToCSD");
}

void tst_ProjectDocument::export_pair_writesOneCsd()
{
    m->showPair("o\n", "s");
    m->score->setFocus();
    m->dialogs.expectSave(ExportTitle, m->path(QStringLiteral("x.csd")));
    m->trigger("menuFileConvertToCSD");
    QCOMPARE(m->read(QStringLiteral("x.csd")),
             QByteArray("<CsoundSynthesizer>\r\n\r\n<CsOptions>\r\n</CsOptions>\r\n\r\n"
                        "<CsInstruments>\r\n\r\no\r\n\r\n\r\n</CsInstruments>\r\n\r\n"
                        "<CsScore>\r\n\r\ns\r\n\r\n</CsScore>\r\n\r\n"
                        "</CsoundSynthesizer>\r\n\r\n"));
    const FileQuestion &question = m->dialogs.fileQuestions.back();
    QCOMPARE(question.filter, QStringLiteral("Csound CSD (*.csd)|*.csd|All Files (*.*)|*.*"));
    QCOMPARE(question.proposedName, QStringLiteral("piece.csd"));
    QVERIFY(m->orchestra->hasFocus());
    QVERIFY(!m->orchestra->GetState(2));
    QCOMPARE(m->config.OrchestraFileName, m->path(QStringLiteral("piece.orc")));
}

void tst_ProjectDocument::export_untitled_proposesTheCutMarker()
{
    m->show();
    m->type(m->orchestra, QStringLiteral("o"));
    m->type(m->score, QStringLiteral("s"));
    m->dialogs.expectSave(ExportTitle, std::nullopt);
    m->trigger("menuFileConvertToCSD");
    QCOMPARE(m->dialogs.fileQuestions.back().proposedName, QStringLiteral("[Untit.csd"));
}

void tst_ProjectDocument::export_unwritableTarget_saysNothing()
{
    m->showPair("o", "s");
    QVERIFY(QDir(m->folder.path()).mkdir(QStringLiteral("x.csd")));
    m->dialogs.expectSave(ExportTitle, m->path(QStringLiteral("x.csd")));
    m->trigger("menuFileConvertToCSD");
    QCOMPARE(m->orchestra->Text() + m->score->Text(), QStringLiteral("os"));
}

void tst_ProjectDocument::import_csd_replacesBothTexts()
{
    m->showPair("o", "s");
    m->config.FontSize = 15;
    m->dialogs.expectOpen(ImportTitle, m->write(QStringLiteral("new.csd"),
                                                "<CsInstruments>\nO\n</CsInstruments>\n"
                                                "<CsScore>\xe9</CsScore>\n"));
    m->trigger("menuFileImportaCSD");
    QCOMPARE(m->orchestra->Text(), QStringLiteral("\r\nO\r\n"));
    QCOMPARE(m->score->Text(), QString(QChar(0xe9)));
    QCOMPARE(m->config.OrchestraFileName, m->path(QStringLiteral("new.orc")));
    QCOMPARE(m->config.ScoreFileName, m->path(QStringLiteral("new.sco")));
    QVERIFY(m->label("LabelScore")
                .startsWith(QStringLiteral("File Score: ") + m->path(QStringLiteral("new.sco"))));
    QCOMPARE(m->orchestra->FontSize(), 15.0);
    QCOMPARE(m->score->FontSize(), 15.0);
    QVERIFY(m->orchestra->GetState(2));
    QVERIFY(!QFile::exists(m->path(QStringLiteral("new.orc")))); // only a name until it is saved
    QCOMPARE(m->dialogs.fileQuestions.back().filter,
             QStringLiteral("Csound CSD (*.csd)|*.csd|All Files (*.*)|*.*"));
    m->trigger("menuFileSalvaProgetto");
    QCOMPARE(m->read(QStringLiteral("new.orc")), QByteArray("\r\nO\r\n"));
}

void tst_ProjectDocument::import_modified_asksForEachHalf()
{
    m->showPair("o", "s");
    m->type(m->orchestra, QStringLiteral("x"));
    m->type(m->score, QStringLiteral("x"));
    m->expectQuestion(QStringLiteral("Import CSD File"), OrchestraChanged, Answer::Yes);
    m->expectQuestion(QStringLiteral("Import CSD File"), ScoreChanged, Answer::Cancel);
    m->trigger("menuFileImportaCSD");
    QCOMPARE(m->read(QStringLiteral("piece.orc")), QByteArray("xo"));
    QCOMPARE(m->score->Text(), QStringLiteral("xs"));
}

void tst_ProjectDocument::import_noScore_leavesTheNewOrchestra()
{
    m->showPair("o", "s");
    m->dialogs.expectOpen(ImportTitle, m->write(QStringLiteral("new.csd"),
                                                "<CsInstruments>O</CsInstruments><csscore>"));
    m->dialogs.expect(Failed);
    m->trigger("menuFileImportaCSD");
    QCOMPARE(m->orchestra->Text(), QStringLiteral("O"));
    QCOMPARE(m->config.OrchestraFileName, m->path(QStringLiteral("new.orc")));
    QCOMPARE(m->score->Text(), QStringLiteral("s"));
    QCOMPARE(m->config.ScoreFileName, m->path(QStringLiteral("piece.sco")));
}

void tst_ProjectDocument::import_noTags_changesNothing_data()
{
    QTest::addColumn<QByteArray>("csd");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("score alone") << QByteArray("<CsScore>e</CsScore>");
    QTest::newRow("lower case") << QByteArray("<csinstruments></csinstruments>");
}

void tst_ProjectDocument::import_noTags_changesNothing()
{
    QFETCH(QByteArray, csd);
    m->showPair("o", "s");
    m->dialogs.expectOpen(ImportTitle, m->write(QStringLiteral("new.csd"), csd));
    m->dialogs.expect(Failed);
    m->trigger("menuFileImportaCSD");
    QCOMPARE(m->orchestra->Text() + m->score->Text(), QStringLiteral("os"));
    QCOMPARE(m->config.OrchestraFileName, m->path(QStringLiteral("piece.orc")));
}

// Recent files, drops, leaving. ------------------------------------------------------------------

void tst_ProjectDocument::recent_endings_decide()
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

void tst_ProjectDocument::recent_csd_asksForBothHalves()
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

void tst_ProjectDocument::drop_score_opensThePair()
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

void tst_ProjectDocument::drop_other_goesToTheCsdWindow()
{
    m->showPair("o", "s");
    FileDrop::on(*m->window, {m->path(QStringLiteral("b.txt"))});
    QCOMPARE(m->csdWindows, 1);
    QCOMPARE(m->config.CSDFileName, m->path(QStringLiteral("b.txt")));
}

void tst_ProjectDocument::drop_onAnyControl_opensThePair()
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

void tst_ProjectDocument::leave_answers_data()
{
    QTest::addColumn<Answer>("orchestra");
    QTest::addColumn<Answer>("score");
    for (const Answer orchestra : {Answer::Yes, Answer::No, Answer::Cancel})
        for (const Answer score : {Answer::Yes, Answer::No, Answer::Cancel})
            QTest::addRow("%d %d", int(orchestra), int(score)) << orchestra << score;
}

void tst_ProjectDocument::leave_answers()
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

void tst_ProjectDocument::leave_cancelAtTheFirst_stillAsksTheSecond()
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

void tst_ProjectDocument::leave_tools_areThreeValues()
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

void tst_ProjectDocument::handOver_keepsThePlacement()
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
void tst_ProjectDocument::handOver_thereAndBack_opensTheTexts()
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

QTEST_MAIN(tst_ProjectDocument)
#include "tst_ProjectDocument.moc"
