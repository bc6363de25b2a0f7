#include "app/RecentFiles.h"
#include "documents/DocumentTexts.h"
#include "documents/ProjectFixture.h"
#include "support/FileDrop.h"
#include "support/TestMain.h"

#include <QFile>

#include <filesystem>
#include <system_error>

using namespace ardiphon;

namespace {

const QString SaveOrchestra = QStringLiteral("Save Orchestra");
const QString SaveScore = QStringLiteral("Save Score");

} // namespace

/// What the project's window asks before it writes over files that are not its own, and where each
/// answer leads.
class tst_ProjectOverwriting : public QObject, private ProjectFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void refused_beforeTheTextGoes_asksAgain_data();
    void refused_beforeTheTextGoes_asksAgain();
    void leave_refusedScore_keepsItsText();
    void project_oneHalfRefused_asksAgainForTheOther();
    void project_unmodifiedHalfRefused_goesOn();
    void save_otherNameForAHalf_isWrittenThere();
    void import_overFiles_saysThatTheyExist_data();
    void import_overFiles_saysThatTheyExist();
    void import_noFilesThere_asksNothing();

    // The pair.
    void saveAs_newOrchestraOverAScore_asksFirst_data();
    void saveAs_newOrchestraOverAScore_asksFirst();
    void saveAs_existingOrchestra_asksNoMore();
    void saveAs_oneFileForBoth_isRefused_data();
    void saveAs_oneFileForBoth_isRefused();
    void saveAs_refusedBeforeTheTextGoes_asksAgain();

private:
    void expectOverwrite(const QString &title, Answer answer,
                         const QString &what = ChangedByAnother);
    void expectReplace(const QString &name, Answer answer);
    void expectOneFile(const QString &name);
    void perform(const QByteArray &command);
    QByteArray onDisk(const char *name) const { return m->read(QLatin1String(name)); }
};

void tst_ProjectOverwriting::expectOverwrite(const QString &title, Answer answer,
                                             const QString &what)
{
    m->dialogs.expect({what + QStringLiteral("\r\nDo you want to overwrite it?"), title,
                       MessageIcon::Exclamation, MessageButtons::YesNoSaveAs, true},
                      answer);
}

void tst_ProjectOverwriting::expectReplace(const QString &name, Answer answer)
{
    m->dialogs.expect({name + QStringLiteral(" already exists.\r\nDo you want to replace it?"),
                       SaveProjectAsTitle, MessageIcon::Exclamation, MessageButtons::YesNo, true},
                      answer);
}

void tst_ProjectOverwriting::expectOneFile(const QString &name)
{
    m->expectMessage(QStringLiteral("Orchestra and Score would both be written to %1!\r\n"
                                    "Choose another name for the Orchestra (*.orc)!")
                         .arg(name));
}

/// Runs a command, drops a file, or closes the window.
void tst_ProjectOverwriting::perform(const QByteArray &command)
{
    if (command == "drop")
        FileDrop::on(*m->window, {m->path(QStringLiteral("b.orc"))});
    else if (command == "close")
        m->window->close();
    else
        m->trigger(command.constData());
}

void tst_ProjectOverwriting::refused_beforeTheTextGoes_asksAgain_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<bool>("inScore");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("firstLine");
    const auto add = [](const char *command, bool inScore, const char *title,
                        const QString &firstLine) {
        QTest::addRow("%s %d", command, inScore)
            << QByteArray(command) << inScore << QString::fromLatin1(title) << firstLine;
    };
    for (const bool inScore : {false, true}) {
        const QString half = inScore ? ScoreChanged : OrchestraChanged;
        add("menuFileEsci", inScore, "Exit Program", half);
        add("close", inScore, "Exit Program", half);
        add("menuFileNuovoProgetto", inScore, "New Project", ProjectChanged);
        add("menuFileApriProgetto", inScore, "Open Project", ProjectChanged);
        add("menuFileImportaCSD", inScore, "Import CSD File", half);
        add("drop", inScore, "Save File", QStringLiteral("File has changed!"));
        // The recent list: piece.orc, then these.
        add("menuLastFile(1)", inScore, inScore ? "Save Score" : "Save Orchestra", half); // a CSD
    }
    add("menuFileNuovaOrchestra", false, "New Orchestra", OrchestraChanged);
    add("menuFileNuovaScore", true, "New Score", ScoreChanged);
    add("menuFileApriOrchestra", false, "Open Orchestra", OrchestraChanged);
    add("menuFileApriScore", true, "Open Score", ScoreChanged);
    add("menuLastFile(2)", true, "Save Score", ScoreChanged);
    add("menuLastFile(3)", false, "Save Orchestra", OrchestraChanged);
}

void tst_ProjectOverwriting::refused_beforeTheTextGoes_asksAgain()
{
    QFETCH(QByteArray, command);
    QFETCH(bool, inScore);
    QFETCH(QString, title);
    QFETCH(QString, firstLine);
    for (const char *name : {"b.orc", "b.sco", "b.csd"})
        UpdateRecentFiles(m->config, m->settings, m->write(QLatin1String(name), "other"));
    m->showPair("o", "s");
    m->type(inScore ? m->score : m->orchestra, QStringLiteral("x"));
    const char *file = inScore ? "piece.sco" : "piece.orc";
    m->write(QLatin1String(file), "someone else's");
    m->expectQuestion(title, firstLine, Answer::Yes);
    expectOverwrite(inScore ? SaveScore : SaveOrchestra, Answer::No);
    m->expectQuestion(title, firstLine, Answer::Cancel);
    perform(command);
    QVERIFY(m->window && m->window->isVisible());
    QCOMPARE(m->orchestra->Text(), inScore ? QStringLiteral("o") : QStringLiteral("xo"));
    QCOMPARE(m->score->Text(), inScore ? QStringLiteral("xs") : QStringLiteral("s"));
    QVERIFY((inScore ? m->score : m->orchestra)->GetState(TextState));
    QCOMPARE(onDisk(file), QByteArray("someone else's"));
    QVERIFY(m->orchestra->hasFocus());
}

void tst_ProjectOverwriting::leave_refusedScore_keepsItsText()
{
    m->showPair("o", "s");
    m->type(m->orchestra, QStringLiteral("x"));
    m->type(m->score, QStringLiteral("x"));
    m->write(QStringLiteral("piece.sco"), "someone else's");
    const QString title = QStringLiteral("Exit Program");
    m->expectQuestion(title, OrchestraChanged, Answer::Yes);
    m->expectQuestion(title, ScoreChanged, Answer::Yes);
    expectOverwrite(SaveScore, Answer::SaveAs);
    m->dialogs.expectSave(QStringLiteral("Save Score As ... (*.SCO)"), std::nullopt);
    m->expectQuestion(title, ScoreChanged, Answer::Yes);
    expectOverwrite(SaveScore, Answer::SaveAs);
    m->dialogs.expectSave(QStringLiteral("Save Score As ... (*.SCO)"),
                          m->path(QStringLiteral("other.sco")));
    m->trigger("menuFileEsci");
    QVERIFY(!m->window->isVisible());
    QCOMPARE(onDisk("piece.orc"), QByteArray("xo"));
    QCOMPARE(onDisk("piece.sco"), QByteArray("someone else's"));
    QCOMPARE(onDisk("other.sco"), QByteArray("xs"));
}

void tst_ProjectOverwriting::project_oneHalfRefused_asksAgainForTheOther()
{
    m->showPair("o", "s");
    m->type(m->orchestra, QStringLiteral("x"));
    m->type(m->score, QStringLiteral("x"));
    m->write(QStringLiteral("piece.orc"), "someone else's");
    m->expectQuestion(OpenProject, ProjectChanged, Answer::Yes);
    expectOverwrite(SaveOrchestra, Answer::No);
    m->expectQuestion(OpenProject, ProjectChanged, Answer::Yes);
    expectOverwrite(SaveOrchestra, Answer::Yes);
    m->dialogs.expectOpen(OpenProject, std::nullopt);
    m->trigger("menuFileApriProgetto");
    QCOMPARE(onDisk("piece.orc"), QByteArray("xo"));
    QCOMPARE(onDisk("piece.sco"), QByteArray("xs"));
}

/// Nothing of the user's is in the half that was not written.
void tst_ProjectOverwriting::project_unmodifiedHalfRefused_goesOn()
{
    m->showPair("o", "s");
    m->type(m->orchestra, QStringLiteral("x"));
    m->write(QStringLiteral("piece.sco"), "someone else's");
    m->expectQuestion(OpenProject, ProjectChanged, Answer::Yes);
    expectOverwrite(SaveScore, Answer::No);
    m->dialogs.expectOpen(OpenProject, std::nullopt);
    m->trigger("menuFileApriProgetto");
    QCOMPARE(onDisk("piece.orc"), QByteArray("xo"));
    QCOMPARE(onDisk("piece.sco"), QByteArray("someone else's"));
}

void tst_ProjectOverwriting::save_otherNameForAHalf_isWrittenThere()
{
    m->showPair("o", "s");
    m->type(m->orchestra, QStringLiteral("x"));
    m->type(m->score, QStringLiteral("x"));
    m->write(QStringLiteral("piece.orc"), "someone else's");
    expectOverwrite(SaveOrchestra, Answer::SaveAs);
    m->dialogs.expectSave(QStringLiteral("Save Orchestra As ... (*.ORC)"),
                          m->path(QStringLiteral("other.orc")));
    m->trigger("menuFileSalvaProgetto");
    QCOMPARE(onDisk("piece.orc"), QByteArray("someone else's"));
    QCOMPARE(onDisk("other.orc"), QByteArray("xo"));
    QCOMPARE(onDisk("piece.sco"), QByteArray("xs"));
    QCOMPARE(m->label("LabelOrchestra"),
             QStringLiteral("File Orchestra: ") + m->path(QStringLiteral("other.orc")));
    QVERIFY(!m->orchestra->GetState(TextState) && !m->score->GetState(TextState));
}

void tst_ProjectOverwriting::import_overFiles_saysThatTheyExist_data()
{
    QTest::addColumn<bool>("changedSince");
    QTest::newRow("as they were") << false;
    QTest::newRow("changed since") << true;
}

/// The names come from the CSD; nobody has read or written the files that bear them.
void tst_ProjectOverwriting::import_overFiles_saysThatTheyExist()
{
    QFETCH(bool, changedSince);
    m->showPair("o", "s");
    m->write(QStringLiteral("b.orc"), "old orchestra");
    m->write(QStringLiteral("b.sco"), "old score");
    m->dialogs.expectOpen(ImportCsdTitle,
                          m->write(QStringLiteral("b.csd"), "<CsInstruments>O</CsInstruments>"
                                                            "<CsScore>S</CsScore>"));
    m->trigger("menuFileImportaCSD");
    if (changedSince)
        m->write(QStringLiteral("b.orc"), "newer orchestra");
    expectOverwrite(SaveOrchestra, Answer::No, AlreadyExists);
    expectOverwrite(SaveScore, Answer::Yes, AlreadyExists);
    m->trigger("menuFileSalvaProgetto");
    QCOMPARE(onDisk("b.orc"), QByteArray(changedSince ? "newer orchestra" : "old orchestra"));
    QCOMPARE(onDisk("b.sco"), QByteArray("S"));
    m->write(QStringLiteral("b.sco"), "someone else's"); // the score is the project's own now
    expectOverwrite(SaveOrchestra, Answer::Yes, AlreadyExists);
    expectOverwrite(SaveScore, Answer::No, ChangedByAnother);
    m->trigger("menuFileSalvaProgetto");
    QCOMPARE(onDisk("b.orc"), QByteArray("O"));
}

void tst_ProjectOverwriting::import_noFilesThere_asksNothing()
{
    m->showPair("o", "s");
    m->dialogs.expectOpen(ImportCsdTitle,
                          m->write(QStringLiteral("b.csd"), "<CsInstruments>O</CsInstruments>"
                                                            "<CsScore>S</CsScore>"));
    m->trigger("menuFileImportaCSD");
    m->trigger("menuFileSalvaProgetto");
    QCOMPARE(onDisk("b.orc"), QByteArray("O"));
    QCOMPARE(onDisk("b.sco"), QByteArray("S"));
}

// The pair. ---------------------------------------------------------------------------------------

void tst_ProjectOverwriting::saveAs_newOrchestraOverAScore_asksFirst_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::newRow("yes") << Answer::Yes;
    QTest::newRow("no") << Answer::No;
}

/// A No leads back to the dialog, which holds what was typed.
void tst_ProjectOverwriting::saveAs_newOrchestraOverAScore_asksFirst()
{
    QFETCH(Answer, answer);
    const bool replaced = answer == Answer::Yes;
    m->showPair("o", "s");
    m->type(m->orchestra, QStringLiteral("x"));
    m->write(QStringLiteral("b.sco"), "precious");
    const QString path = m->path(QStringLiteral("b.orc"));
    m->dialogs.expectSave(SaveProjectAsTitle, path);
    expectReplace(QStringLiteral("b.sco"), answer);
    if (!replaced)
        m->dialogs.expectSave(SaveProjectAsTitle, std::nullopt);
    m->trigger("menuFileSalvaProgettoNome");
    QCOMPARE(onDisk("b.sco"), QByteArray(replaced ? "s" : "precious"));
    QCOMPARE(onDisk("b.orc"), QByteArray(replaced ? "xo" : ""));
    QCOMPARE(m->config.OrchestraFileName, replaced ? path : m->path(QStringLiteral("piece.orc")));
    QCOMPARE(m->orchestra->GetState(TextState), !replaced);
    QCOMPARE(m->dialogs.fileQuestions.front().proposedName, QString());
    QCOMPARE(m->dialogs.fileQuestions.back().proposedName, replaced ? QString() : path);
}

/// The dialog's own question was about the pair.
void tst_ProjectOverwriting::saveAs_existingOrchestra_asksNoMore()
{
    m->showPair("o", "s");
    m->write(QStringLiteral("b.sco"), "old");
    m->dialogs.expectSave(SaveProjectAsTitle, m->write(QStringLiteral("b.orc"), "old"));
    m->trigger("menuFileSalvaProgettoNome");
    QCOMPARE(onDisk("b.orc"), QByteArray("o"));
    QCOMPARE(onDisk("b.sco"), QByteArray("s"));
}

void tst_ProjectOverwriting::saveAs_oneFileForBoth_isRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    QTest::newRow("score's name") << "b.sco"
                                  << "b.sco";
    QTest::newRow("link to the score") << "link.orc"
                                       << "link.sco";
    QTest::newRow("second name of the score") << "hard.orc"
                                              << "hard.sco";
}

void tst_ProjectOverwriting::saveAs_oneFileForBoth_isRefused()
{
    QFETCH(QString, name);
    QFETCH(QString, message);
    m->showPair("o", "s");
    m->type(m->orchestra, QStringLiteral("x"));
    m->write(QStringLiteral("b.sco"), "precious");
    QVERIFY(QFile::link(m->write(QStringLiteral("link.sco"), "precious"),
                        m->path(QStringLiteral("link.orc"))));
    std::error_code failure;
    std::filesystem::create_hard_link(
        m->write(QStringLiteral("hard.sco"), "precious").toStdString(),
        m->path(QStringLiteral("hard.orc")).toStdString(), failure);
    QVERIFY(!failure);
    m->dialogs.expectSave(SaveProjectAsTitle, m->path(name));
    expectOneFile(message);
    m->dialogs.expectSave(SaveProjectAsTitle, m->path(QStringLiteral("c.orc")));
    m->trigger("menuFileSalvaProgettoNome");
    QCOMPARE(m->read(name), QByteArray("precious"));
    QCOMPARE(onDisk("c.orc"), QByteArray("xo"));
    QCOMPARE(onDisk("c.sco"), QByteArray("s"));
}

/// The user has not given up the text; only a dialog that is cancelled at once counts as that.
void tst_ProjectOverwriting::saveAs_refusedBeforeTheTextGoes_asksAgain()
{
    m->show();
    m->type(m->orchestra, QStringLiteral("x"));
    m->expectQuestion(OpenProject, ProjectChanged, Answer::Yes);
    m->dialogs.expectSave(SaveProjectAsTitle, m->path(QStringLiteral("b.sco")));
    expectOneFile(QStringLiteral("b.sco"));
    m->dialogs.expectSave(SaveProjectAsTitle, std::nullopt);
    m->expectQuestion(OpenProject, ProjectChanged, Answer::Yes);
    m->dialogs.expectSave(SaveProjectAsTitle, std::nullopt);
    m->dialogs.expectOpen(OpenProject, std::nullopt);
    m->trigger("menuFileApriProgetto");
    QVERIFY(!QFile::exists(m->path(QStringLiteral("b.sco"))));
    QCOMPARE(m->orchestra->Text(), QStringLiteral("x"));
    QVERIFY(m->orchestra->GetState(TextState));
}

ARDIPHON_TEST(tst_ProjectOverwriting, QApplication)
#include "tst_ProjectOverwriting.moc"
