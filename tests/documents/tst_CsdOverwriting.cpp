#include "app/RecentFiles.h"
#include "documents/CsdDocumentFixture.h"
#include "documents/DocumentTexts.h"
#include "support/FileDrop.h"
#include "support/TestMain.h"

#include <QDir>

#include <unistd.h>

using namespace ardiphon;

namespace {

const QString SaveAsTitle = QStringLiteral("Save File As ...");

} // namespace

/// What the CSD window asks before it writes over a file that is not its own, and where each answer
/// leads.
class tst_CsdOverwriting : public QObject, private CsdDocumentFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void refused_beforeTheTextGoes_asksAgain_data();
    void refused_beforeTheTextGoes_asksAgain();
    void leave_secondAnswer_decides_data();
    void leave_secondAnswer_decides();
    void save_otherName_isWrittenThere();
    void save_otherNameCancelled_writesNothing();
    void saveAs_failedOverAFile_asksNoMore();
    void saveAs_failedWhereNoFileIs_leavesTheFileThatIsThereLater();

    // A pair.
    void export_newOrchestraOverAScore_asksFirst_data();
    void export_newOrchestraOverAScore_asksFirst();
    void export_existingOrchestra_asksNoMore();
    void export_oneFileForBoth_isRefused();

private:
    void expectOverwrite(Answer answer, const QString &what = ChangedByAnother);
    void perform(const QByteArray &command);
    QByteArray onDisk() const { return m_program->read(QStringLiteral("piece.csd")); }
    void openChangedElsewhere();
    void openCsd();
    void expectReplace(Answer answer);
};

void tst_CsdOverwriting::expectOverwrite(Answer answer, const QString &what)
{
    m_program->dialogs.expect({what + QStringLiteral("\r\nDo you want to overwrite it?"),
                               QStringLiteral("Save File"), MessageIcon::Exclamation,
                               MessageButtons::YesNoSaveAs, true},
                              answer);
}

/// The window with a modified text, whose file another program has written meanwhile.
void tst_CsdOverwriting::openChangedElsewhere()
{
    open(m_program->write(QStringLiteral("piece.csd"), "mine"));
    type(QStringLiteral("x"));
    m_program->write(QStringLiteral("piece.csd"), "someone else's");
}

/// Runs a command, drops a file, or closes the window.
void tst_CsdOverwriting::perform(const QByteArray &command)
{
    if (command == "drop")
        FileDrop::on(*m_window, {m_program->write(QStringLiteral("other.csd"), "other")});
    else if (command == "close")
        m_window->close();
    else
        trigger(command.constData());
}

void tst_CsdOverwriting::refused_beforeTheTextGoes_asksAgain_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QString>("title");
    QTest::newRow("exit") << QByteArray("menuFileEsci") << "Exit Program";
    QTest::newRow("close box") << QByteArray("close") << "Exit Program";
    QTest::newRow("new") << QByteArray("menuFileNuovaOrchestra") << "New File";
    QTest::newRow("open") << QByteArray("menuFileApriOrchestra") << "Open File";
    QTest::newRow("import") << QByteArray("menuFileImportaORCSCO") << "Import Orc/Sco Files";
    QTest::newRow("drop") << QByteArray("drop") << "Save File";
    QTest::newRow("recent") << QByteArray("menuLastFile(1)") << "Save File";
}

void tst_CsdOverwriting::refused_beforeTheTextGoes_asksAgain()
{
    QFETCH(QByteArray, command);
    QFETCH(QString, title);
    UpdateRecentFiles(m_program->config, m_program->settings,
                      m_program->write(QStringLiteral("one.csd"), "one"));
    openChangedElsewhere();
    const QString question = title == u"Exit Program" ? LeaveQuestion : SaveQuestion;
    expectQuestion(title, Answer::Yes, question);
    expectOverwrite(Answer::No);
    expectQuestion(title, Answer::Cancel, question);
    perform(command);
    QVERIFY(m_window && m_window->isVisible());
    QCOMPARE(m_editor->Text(), QStringLiteral("xmine"));
    QVERIFY(m_editor->GetState(TextState));
    QCOMPARE(onDisk(), QByteArray("someone else's"));
}

void tst_CsdOverwriting::leave_secondAnswer_decides_data()
{
    QTest::addColumn<Answer>("save");
    QTest::addColumn<Answer>("overwrite");
    QTest::addColumn<bool>("named");
    QTest::addColumn<bool>("leaves");
    QTest::addColumn<QByteArray>("atPiece");
    QTest::addColumn<QByteArray>("atOther");
    const QByteArray theirs = "someone else's";
    const QByteArray mine = "xmine";
    QTest::newRow("no") << Answer::No << Answer::No << false << true << theirs << QByteArray();
    QTest::newRow("yes, yes") << Answer::Yes << Answer::Yes << false << true << mine
                              << QByteArray();
    QTest::newRow("yes, other name")
        << Answer::Yes << Answer::SaveAs << true << true << theirs << mine;
    QTest::newRow("yes, no other name")
        << Answer::Yes << Answer::SaveAs << false << false << theirs << QByteArray();
    QTest::newRow("yes, no") << Answer::Yes << Answer::No << false << false << theirs
                             << QByteArray();
}

void tst_CsdOverwriting::leave_secondAnswer_decides()
{
    QFETCH(Answer, save);
    QFETCH(Answer, overwrite);
    QFETCH(bool, named);
    QFETCH(bool, leaves);
    openChangedElsewhere();
    const QString title = QStringLiteral("Exit Program");
    expectQuestion(title, Answer::Yes, LeaveQuestion);
    expectOverwrite(Answer::No);
    expectQuestion(title, save, LeaveQuestion);
    if (save == Answer::Yes)
        expectOverwrite(overwrite);
    if (overwrite == Answer::SaveAs)
        m_program->dialogs.expectSave(
            SaveAsTitle,
            named ? std::optional(m_program->path(QStringLiteral("other.csd"))) : std::nullopt);
    if (!leaves)
        expectQuestion(title, Answer::Cancel, LeaveQuestion);
    trigger("menuFileEsci");
    if (leaves)
        QTRY_VERIFY(!m_window);
    else
        QVERIFY(m_window->isVisible() && m_editor->GetState(TextState));
    QTEST(onDisk(), "atPiece");
    QTEST(m_program->read(QStringLiteral("other.csd")), "atOther");
}

void tst_CsdOverwriting::save_otherName_isWrittenThere()
{
    openChangedElsewhere();
    const QString other = m_program->path(QStringLiteral("other.csd"));
    expectOverwrite(Answer::SaveAs);
    m_program->dialogs.expectSave(SaveAsTitle, other);
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(onDisk(), QByteArray("someone else's"));
    QCOMPARE(m_program->read(QStringLiteral("other.csd")), QByteArray("xmine"));
    QCOMPARE(m_program->config.CSDFileName, other);
    QCOMPARE(m_window->windowTitle(), other + TitleEnd);
    QVERIFY(!m_editor->GetState(TextState));
    type(QStringLiteral("y")); // the next save asks nothing
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("other.csd")), QByteArray("xymine"));
}

void tst_CsdOverwriting::save_otherNameCancelled_writesNothing()
{
    openChangedElsewhere();
    expectOverwrite(Answer::SaveAs);
    m_program->dialogs.expectSave(SaveAsTitle, std::nullopt);
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(onDisk(), QByteArray("someone else's"));
    QCOMPARE(m_program->config.CSDFileName, m_program->path(QStringLiteral("piece.csd")));
    QVERIFY(m_editor->GetState(TextState));
}

/// What was not written there is not the document's file, and the next save goes to its own.
void tst_CsdOverwriting::saveAs_failedOverAFile_asksNoMore()
{
    if (geteuid() == 0)
        QSKIP("everything is writable for root");
    open(m_program->write(QStringLiteral("piece.csd"), "mine"));
    type(QStringLiteral("x"));
    const QString other = m_program->write(QStringLiteral("other.csd"), "protected");
    QVERIFY(QFile::setPermissions(other, QFile::ReadOwner));
    m_program->dialogs.expectSave(SaveAsTitle, other);
    m_program->dialogs.expect({notSaved(other, PermissionDenied)});
    trigger("menuFileSalvaOrchestraNome");
    QVERIFY(m_editor->GetState(TextState));
    QVERIFY(QFile::setPermissions(other, QFile::ReadOwner | QFile::WriteOwner));
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), QByteArray("xmine"));
    QCOMPARE(m_program->read(QStringLiteral("other.csd")), QByteArray("protected"));
}

/// A folder that comes and goes, such as one on another machine.
void tst_CsdOverwriting::saveAs_failedWhereNoFileIs_leavesTheFileThatIsThereLater()
{
    open(m_program->write(QStringLiteral("piece.csd"), "mine"));
    type(QStringLiteral("x"));
    const QString other = m_program->path(QStringLiteral("away/other.csd"));
    m_program->dialogs.expectSave(SaveAsTitle, other);
    m_program->dialogs.expect({notSaved(other, FolderGone)});
    trigger("menuFileSalvaOrchestraNome");
    QVERIFY(m_editor->GetState(TextState));
    QVERIFY(QDir(m_program->folder.path()).mkdir(QStringLiteral("away")));
    m_program->write(QStringLiteral("away/other.csd"), "of long ago");
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->config.CSDFileName, m_program->path(QStringLiteral("piece.csd")));
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), QByteArray("xmine"));
    QCOMPARE(m_program->read(QStringLiteral("away/other.csd")), QByteArray("of long ago"));
}

// A pair. -----------------------------------------------------------------------------------------

void tst_CsdOverwriting::openCsd()
{
    open(m_program->write(QStringLiteral("piece.csd"), "<CsInstruments>o</CsInstruments>"
                                                       "<CsScore>s</CsScore>"));
}

void tst_CsdOverwriting::expectReplace(Answer answer)
{
    m_program->dialogs.expect(
        {QStringLiteral("parts.sco already exists.\r\nDo you want to replace it?"), ExportPairTitle,
         MessageIcon::Exclamation, MessageButtons::YesNo, true},
        answer);
}

void tst_CsdOverwriting::export_newOrchestraOverAScore_asksFirst_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::newRow("yes") << Answer::Yes;
    QTest::newRow("no") << Answer::No;
}

/// A No leads back to the dialog, which holds what was typed.
void tst_CsdOverwriting::export_newOrchestraOverAScore_asksFirst()
{
    QFETCH(Answer, answer);
    m_program->write(QStringLiteral("parts.sco"), "precious");
    openCsd();
    const QString path = m_program->path(QStringLiteral("parts.orc"));
    m_program->dialogs.expectSave(ExportPairTitle, path);
    expectReplace(answer);
    if (answer == Answer::No)
        m_program->dialogs.expectSave(ExportPairTitle, m_program->path(QStringLiteral("new.orc")));
    trigger("menuFileConvertToORCSCO");
    const bool replaced = answer == Answer::Yes;
    QCOMPARE(m_program->read(QStringLiteral("parts.sco")), QByteArray(replaced ? "s" : "precious"));
    QCOMPARE(m_program->read(QStringLiteral("parts.orc")), QByteArray(replaced ? "o" : ""));
    QCOMPARE(m_program->read(QStringLiteral("new.orc")), QByteArray(replaced ? "" : "o"));
    QCOMPARE(m_program->read(QStringLiteral("new.sco")), QByteArray(replaced ? "" : "s"));
    QCOMPARE(m_program->dialogs.fileQuestions.front().proposedName, QStringLiteral("piece.orc"));
    QCOMPARE(m_program->dialogs.fileQuestions.back().proposedName,
             replaced ? QStringLiteral("piece.orc") : path);
}

/// The dialog's own question was about the pair.
void tst_CsdOverwriting::export_existingOrchestra_asksNoMore()
{
    m_program->write(QStringLiteral("parts.sco"), "old");
    openCsd();
    m_program->dialogs.expectSave(ExportPairTitle,
                                  m_program->write(QStringLiteral("parts.orc"), "old"));
    trigger("menuFileConvertToORCSCO");
    QCOMPARE(m_program->read(QStringLiteral("parts.orc")), QByteArray("o"));
    QCOMPARE(m_program->read(QStringLiteral("parts.sco")), QByteArray("s"));
}

void tst_CsdOverwriting::export_oneFileForBoth_isRefused()
{
    openCsd();
    m_program->dialogs.expectSave(ExportPairTitle,
                                  m_program->write(QStringLiteral("parts.sco"), "precious"));
    m_program->dialogs.expect(
        {QStringLiteral("Orchestra and Score would both be written to parts.sco!\r\n"
                        "Choose another name for the Orchestra (*.orc)!")});
    m_program->dialogs.expectSave(ExportPairTitle, std::nullopt);
    trigger("menuFileConvertToORCSCO");
    QCOMPARE(m_program->read(QStringLiteral("parts.sco")), QByteArray("precious"));
}

ARDIPHON_TEST(tst_CsdOverwriting, QApplication)
#include "tst_CsdOverwriting.moc"
