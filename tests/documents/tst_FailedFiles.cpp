// Files that cannot be written or read: the user learns why, once, and nothing is lost.

#include "documents/CsdDocumentFixture.h"
#include "documents/DocumentTexts.h"
#include "documents/ProjectWindow.h"
#include "platform/DocumentFile.h"
#include "support/Fifo.h"
#include "support/FileDrop.h"
#include "support/TestMain.h"

#include <QDir>

using namespace ardiphon;

namespace {

QString notOpened(const QString &path, const QString &reason)
{
    return QStringLiteral("The file \"%1\" cannot be opened: %2.").arg(path, reason);
}

const QString IsFolder = QStringLiteral("it is a folder");
const QString TooLarge = QStringLiteral("it is larger than 512 MB");

/// A file that takes no room, and is larger than a document may be.
QString makeLarge(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !file.resize(LargestDocument + 1))
        qFatal("cannot make %s", qPrintable(path));
    return path;
}

/// A drop of that file, as a file manager names it.
void dropUrl(QWidget &window, const QByteArray &url)
{
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), url + "\r\n");
    const QPoint at = window.rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
}

} // namespace

class tst_FailedFiles : public QObject, private CsdDocumentFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void csd_save_missingFolder_saysWhyAndKeepsTheStar();
    void csd_saveAs_folderInItsPlace_saysWhy();
    void csd_saveAs_failing_keepsNameBookmarksAndFile();
    void csd_saveAs_untitledFailing_staysUntitled();
    void csd_saveOnLeaving_untitledFailing_asksForAnotherName();
    void csd_saveOnLeaving_saysWhyAndAsksAgain();
    void csd_export_saysWhyOfEachFile();
    void csd_bookmarks_saysWhyOnce();
    void csd_bookmarksOfAFailedSave_sayNothingMore();
    void csd_sideFileThatIsAFifo_isNotWaitedFor();
    void csd_tooLarge_saysSoAndStaysUntouched();
    void csd_readOnlyFileThatCannotBeRead_staysReadOnly();
    void csd_import_leavesReadOnlyFilesAlone();
    void csd_overwriteThatFails_isNotAskedForAgain();
    void csd_importTooLarge_saysSo();
    void csd_nameThatIsNoText_opensNothing_data();
    void csd_nameThatIsNoText_opensNothing();
    void csd_missingFile_isANewDocument();

    void project_save_saysWhyOfEachHalf();
    void project_oneHalf_saysWhy();
    void project_saveAs_oneHalfFails_onlyTheOtherTakesItsName();
    void project_export_saysWhyOnce();
    void project_importTooLarge_saysSo();
    void project_tooLarge_saysSo();
    void project_nameThatIsNoText_opensNothing();

private:
    /// A document in a folder that was removed, changed.
    QString openInAFolderThatGoes();
    void expect(const QString &text, Answer answer = Answer::Ok)
    {
        m_program->dialogs.expect({text}, answer);
    }
};

QString tst_FailedFiles::openInAFolderThatGoes()
{
    QDir(m_program->folder.path()).mkdir(QStringLiteral("sub"));
    const QString path = m_program->write(QStringLiteral("sub/piece.csd"), "text\n");
    open(path);
    QDir(m_program->path(QStringLiteral("sub"))).removeRecursively();
    type(QStringLiteral("x"));
    return path;
}

void tst_FailedFiles::csd_save_missingFolder_saysWhyAndKeepsTheStar()
{
    const QString path = openInAFolderThatGoes();
    for (int i = 0; i < 2; ++i) {
        expect(notSaved(path, FolderGone));
        trigger("menuFileSalvaOrchestra");
        QCOMPARE(m_program->dialogs.verify(), QString());
        QVERIFY(m_editor->GetState(TextState));
        QTRY_COMPARE(m_window->windowTitle(), path + TitleEnd + u'*');
    }
    QVERIFY(QDir().mkdir(m_program->path(QStringLiteral("sub"))));
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("sub/piece.csd")), "xtext\n");
    QVERIFY(!m_editor->GetState(TextState));
}

void tst_FailedFiles::csd_saveAs_folderInItsPlace_saysWhy()
{
    open(m_program->write(QStringLiteral("piece.csd"), "text\n"));
    const QString folder = m_program->path(QStringLiteral("folder"));
    QVERIFY(QDir().mkdir(folder));
    type(QStringLiteral("x"));
    m_program->dialogs.expectSave(QStringLiteral("Save File As ..."), folder);
    expect(notSaved(folder, IsFolder));
    trigger("menuFileSalvaOrchestraNome");
    QVERIFY(m_editor->GetState(TextState));
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), "text\n");
}

/// The new name counts once the bytes are there; until then nothing has happened.
void tst_FailedFiles::csd_saveAs_failing_keepsNameBookmarksAndFile()
{
    const QString path = m_program->write(QStringLiteral("piece.csd"), "text\n");
    open(path);
    trigger("menuToolsBookmark");
    type(QStringLiteral("x"));
    const QString gone = m_program->path(QStringLiteral("gone/other.csd"));
    m_program->dialogs.expectSave(QStringLiteral("Save File As ..."), gone);
    expect(notSaved(gone, FolderGone));
    trigger("menuFileSalvaOrchestraNome");
    QCOMPARE(m_program->dialogs.verify(), QString());
    QCOMPARE(m_program->config.CSDFileName, path);
    QTRY_COMPARE(m_window->windowTitle(), path + TitleEnd + u'*');
    QVERIFY(m_program->config.CSDModified);
    QVERIFY(!QFile::exists(m_program->path(QStringLiteral("piece.bkm"))));

    // The file is still the document's own: it is saved there, and nothing is asked.
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), "xtext\n");
    QCOMPARE(m_program->read(QStringLiteral("piece.bkm")).size(), 600);
    QVERIFY(!m_program->config.CSDModified);
    QCOMPARE(m_window->windowTitle(), path + TitleEnd);
}

void tst_FailedFiles::csd_saveAs_untitledFailing_staysUntitled()
{
    open();
    type(QStringLiteral("x"));
    const QString gone = m_program->path(QStringLiteral("gone/new.csd"));
    m_program->dialogs.expectSave(QStringLiteral("Save File As ..."), gone);
    expect(notSaved(gone, FolderGone));
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->dialogs.verify(), QString());
    QCOMPARE(m_program->config.CSDFileName, QStringLiteral("[Untitled]"));
    QTRY_COMPARE(m_window->windowTitle(), QStringLiteral("[Untitled]") + TitleEnd + u'*');

    const QString path = m_program->path(QStringLiteral("new.csd"));
    m_program->dialogs.expectSave(QStringLiteral("Save File As ..."), path);
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->config.CSDFileName, path);
    QCOMPARE(m_program->read(QStringLiteral("new.csd")), "x");
}

void tst_FailedFiles::csd_saveOnLeaving_untitledFailing_asksForAnotherName()
{
    open();
    type(QStringLiteral("x"));
    const QString gone = m_program->path(QStringLiteral("gone/new.csd"));
    expectQuestion(QStringLiteral("Exit Program"), Answer::Yes, LeaveQuestion);
    m_program->dialogs.expectSave(QStringLiteral("Save File As ..."), gone);
    expect(notSaved(gone, FolderGone));
    expectQuestion(QStringLiteral("Exit Program"), Answer::Yes, LeaveQuestion);
    m_program->dialogs.expectSave(QStringLiteral("Save File As ..."),
                                  m_program->path(QStringLiteral("new.csd")));
    m_window->close();
    QTRY_VERIFY(!m_window);
    QCOMPARE(m_program->read(QStringLiteral("new.csd")), "x");
}

void tst_FailedFiles::csd_saveOnLeaving_saysWhyAndAsksAgain()
{
    const QString path = openInAFolderThatGoes();
    expectQuestion(QStringLiteral("Exit Program"), Answer::Yes, LeaveQuestion);
    expect(notSaved(path, FolderGone));
    expectQuestion(QStringLiteral("Exit Program"), Answer::Cancel, LeaveQuestion);
    m_window->close();
    QVERIFY(m_window->isVisible());
    QCOMPARE(m_editor->Text(), QStringLiteral("xtext\r\n"));
}

void tst_FailedFiles::csd_export_saysWhyOfEachFile()
{
    open(m_program->write(QStringLiteral("piece.csd"),
                          "<CsInstruments>o</CsInstruments><CsScore>s</CsScore>"));
    const QString path = m_program->path(QStringLiteral("gone/out.orc"));
    m_program->dialogs.expectSave(QStringLiteral("Save Orc/Sco As ... (*.ORC/*.SCO)"), path);
    expect(notSaved(path, FolderGone));
    expect(notSaved(m_program->path(QStringLiteral("gone/out.sco")), FolderGone));
    trigger("menuFileConvertToORCSCO");
}

void tst_FailedFiles::csd_bookmarks_saysWhyOnce()
{
    open(m_program->write(QStringLiteral("piece.csd"), "text\nmore\n"));
    const QString sideFile = m_program->path(QStringLiteral("piece.bkm"));
    QVERIFY(QDir().mkdir(sideFile));
    trigger("menuToolsBookmark");
    expect(notSaved(sideFile, IsFolder));
    for (int i = 0; i < 2; ++i) {
        type(QStringLiteral("x"));
        trigger("menuFileSalvaOrchestra");
        QVERIFY(!m_editor->GetState(TextState));
    }
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), "xxtext\nmore\n");
    QVERIFY(m_program->config.CSDModified);
    QVERIFY(QDir().rmdir(sideFile));
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("piece.bkm")).size(), 600);

    // Another failure is news again.
    QVERIFY(QFile::remove(sideFile) && QDir().mkdir(sideFile));
    expect(notSaved(sideFile, IsFolder));
    m_editor->SelStartLine = m_editor->SelEndLine = 2;
    m_editor->SetSelection();
    trigger("menuToolsBookmark");
    type(QStringLiteral("y"));
    trigger("menuFileSalvaOrchestra");
    QVERIFY(m_program->config.CSDModified);
}

void tst_FailedFiles::csd_bookmarksOfAFailedSave_sayNothingMore()
{
    const QString path = openInAFolderThatGoes();
    trigger("menuToolsBookmark");
    expect(notSaved(path, FolderGone));
    trigger("menuFileSalvaOrchestra");
    QVERIFY(m_program->config.CSDModified);
    m_program->config.CSDModified = false; // nothing is to be asked when the window closes
}

void tst_FailedFiles::csd_sideFileThatIsAFifo_isNotWaitedFor()
{
    const QString path = m_program->write(QStringLiteral("piece.csd"), "text\n");
    Fifo fifo(m_program->path(QStringLiteral("piece.bkm")));
    open(path);
    QCOMPARE(m_editor->Text(), QStringLiteral("text\r\n"));
    QVERIFY(!fifo.wasWaitedFor());
}

void tst_FailedFiles::csd_tooLarge_saysSoAndStaysUntouched()
{
    const QString path = makeLarge(m_program->path(QStringLiteral("large.csd")));
    expect(notOpened(path, TooLarge));
    open(path);
    QCOMPARE(m_editor->Text(), QString());
    type(QStringLiteral("x"));
    expect(unreadText(path));
    trigger("menuFileSalvaOrchestra");
    QVERIFY(m_editor->GetState(TextState));
    QCOMPARE(QFileInfo(path).size(), qint64(LargestDocument) + 1);
}

/// Only a file that was read becomes writable.
void tst_FailedFiles::csd_readOnlyFileThatCannotBeRead_staysReadOnly()
{
    const QString path = makeLarge(m_program->path(QStringLiteral("large.csd")));
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup));
    const QFile::Permissions before = QFile::permissions(path);
    expect(notOpened(path, TooLarge));
    open(path);
    QCOMPARE(QFile::permissions(path), before);
}

void tst_FailedFiles::csd_import_leavesReadOnlyFilesAlone()
{
    open(m_program->write(QStringLiteral("piece.csd"), "text\n"));
    const QString orchestra = m_program->write(QStringLiteral("a.orc"), "o");
    const QString score = m_program->write(QStringLiteral("a.sco"), "s");
    for (const QString &file : {orchestra, score})
        QVERIFY(QFile::setPermissions(file, QFile::ReadOwner));
    const QFile::Permissions before = QFile::permissions(orchestra);
    m_program->dialogs.expectOpen(ImportPairTitle, orchestra);
    trigger("menuFileImportaORCSCO");
    QVERIFY(m_editor->Text().contains(QStringLiteral("\r\no\r\n")));
    QCOMPARE(QFile::permissions(orchestra), before);
    QCOMPARE(QFile::permissions(score), before);
    m_editor->ClearState(TextState); // nothing is to be asked when the window goes
}

/// A user who gave up the other program's file learns why the save failed, and is asked no more.
void tst_FailedFiles::csd_overwriteThatFails_isNotAskedForAgain()
{
    const QString path = makeLarge(m_program->path(QStringLiteral("large.csd")));
    expect(notOpened(path, TooLarge));
    open(path);
    type(QStringLiteral("x"));
    QVERIFY(QFile::resize(path, LargestDocument + 2));
    m_program->dialogs.expect(
        {ChangedByAnother + QStringLiteral("\r\nDo you want to overwrite it?"),
         QStringLiteral("Save File"), MessageIcon::Exclamation, MessageButtons::YesNoSaveAs, true},
        Answer::Yes);
    for (int i = 0; i < 2; ++i) {
        expect(unreadText(path));
        trigger("menuFileSalvaOrchestra");
        QCOMPARE(m_program->dialogs.verify(), QString());
    }
    QCOMPARE(QFileInfo(path).size(), LargestDocument + 2);
    m_editor->ClearState(TextState); // nothing is to be asked when the window goes
}

void tst_FailedFiles::csd_importTooLarge_saysSo()
{
    open(m_program->write(QStringLiteral("piece.csd"), "text\n"));
    const QString orchestra = m_program->write(QStringLiteral("a.orc"), "o");
    const QString score = makeLarge(m_program->path(QStringLiteral("a.sco")));
    m_program->dialogs.expectOpen(QStringLiteral("Open Project (Orchestra & Score)"), orchestra);
    expect(notOpened(score, TooLarge));
    trigger("menuFileImportaORCSCO");
    QCOMPARE(m_editor->Text(), QStringLiteral("text\r\n"));
    QVERIFY(!m_editor->GetState(TextState));
}

void tst_FailedFiles::csd_nameThatIsNoText_opensNothing_data()
{
    QTest::addColumn<bool>("replacedNameExists");
    QTest::newRow("alone") << false;
    QTest::newRow("beside another") << true;
}

/// Also where a file has just the name that the other would be shown with.
void tst_FailedFiles::csd_nameThatIsNoText_opensNothing()
{
    QFETCH(bool, replacedNameExists);
    const QString path = m_program->write(QStringLiteral("piece.csd"), "text\n");
    const QString replaced = m_program->path(QStringLiteral("caf\uFFFD.csd"));
    if (replacedNameExists)
        m_program->write(QStringLiteral("caf\uFFFD.csd"), "another\n");
    open(path);
    expect(notOpened(replaced, QStringLiteral("its name is not UTF-8")));
    dropUrl(*m_window, "file://" + QFile::encodeName(m_program->path(QString())) + "/caf%E9.csd");
    QCOMPARE(m_program->config.CSDFileName, path);
    QCOMPARE(m_editor->Text(), QStringLiteral("text\r\n"));
    QCOMPARE(m_window->windowTitle(), path + TitleEnd);

    const QString other = m_program->write(QStringLiteral("caf\u00e9.csd"), "other\n");
    dropUrl(*m_window,
            "file://" + QFile::encodeName(m_program->path(QString())) + "/caf%C3%A9.csd");
    QCOMPARE(m_program->config.CSDFileName, other);
    QCOMPARE(m_editor->Text(), QStringLiteral("other\r\n"));
}

void tst_FailedFiles::csd_missingFile_isANewDocument()
{
    const QString path = m_program->path(QStringLiteral("new.csd"));
    open(path);
    type(QStringLiteral("x"));
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("new.csd")), "x");
}

void tst_FailedFiles::project_save_saysWhyOfEachHalf()
{
    ProjectWindow project;
    QVERIFY(QDir(project.folder.path()).mkdir(QStringLiteral("sub")));
    project.config.OrchestraFileName = project.write(QStringLiteral("sub/piece.orc"), "o\n");
    project.write(QStringLiteral("sub/piece.sco"), "s\n");
    project.show();
    project.type(project.orchestra, QStringLiteral("x"));
    project.type(project.score, QStringLiteral("y"));
    const QString folder = project.path(QStringLiteral("sub"));
    QVERIFY(QDir(folder).removeRecursively());
    project.expectMessage(notSaved(folder + QStringLiteral("/piece.orc"), FolderGone));
    project.expectMessage(notSaved(folder + QStringLiteral("/piece.sco"), FolderGone));
    project.trigger("menuFileSalvaProgetto");
    QCOMPARE(project.dialogs.verify(), QString());
    QVERIFY(project.orchestra->GetState(TextState) && project.score->GetState(TextState));
    QTRY_COMPARE(project.label("LabelOrchestra"),
                 QStringLiteral("File Orchestra: %1/piece.orc*").arg(folder));
    QTRY_COMPARE(project.label("LabelScore"),
                 QStringLiteral("File Score: %1/piece.sco*").arg(folder));
}

void tst_FailedFiles::project_oneHalf_saysWhy()
{
    ProjectWindow project;
    project.showPair();
    const QString folder = project.path(QStringLiteral("folder.sco"));
    QVERIFY(QDir().mkdir(folder));
    project.type(project.score, QStringLiteral("y"));
    project.dialogs.expectSave(QStringLiteral("Save Score As ... (*.SCO)"), folder);
    project.expectMessage(notSaved(folder, IsFolder));
    project.trigger("menuFileSalvaScoreNome");
    QCOMPARE(project.dialogs.verify(), QString());
    QVERIFY(project.score->GetState(TextState));
}

/// What was written bears the new name, what was not keeps its own.
void tst_FailedFiles::project_saveAs_oneHalfFails_onlyTheOtherTakesItsName()
{
    ProjectWindow project;
    project.showPair("o\n", "s\n");
    project.type(project.orchestra, QStringLiteral("x"));
    project.type(project.score, QStringLiteral("y"));
    const QString orchestra = project.path(QStringLiteral("new.orc"));
    QVERIFY(QDir().mkdir(orchestra));
    project.dialogs.expectSave(SaveProjectAsTitle, orchestra);
    project.dialogs.expect({notSaved(orchestra, IsFolder)}, Answer::Ok);
    project.trigger("menuFileSalvaProgettoNome");
    QCOMPARE(project.dialogs.verify(), QString());
    QCOMPARE(project.config.OrchestraFileName, project.path(QStringLiteral("piece.orc")));
    QCOMPARE(project.config.ScoreFileName, project.path(QStringLiteral("new.sco")));
    QVERIFY(project.orchestra->GetState(TextState));
    QVERIFY(!project.score->GetState(TextState));
    QCOMPARE(project.read(QStringLiteral("piece.orc")), "o\n");
    QCOMPARE(project.read(QStringLiteral("piece.sco")), "s\n");
    QCOMPARE(project.read(QStringLiteral("new.sco")), "ys\n");
    QTRY_COMPARE(project.label("LabelOrchestra"),
                 QStringLiteral("File Orchestra: %1*").arg(project.config.OrchestraFileName));
    QCOMPARE(project.label("LabelScore"),
             QStringLiteral("File Score: %1").arg(project.config.ScoreFileName));
    project.orchestra->ClearState(TextState); // nothing is to be asked when the window goes
}

void tst_FailedFiles::project_export_saysWhyOnce()
{
    ProjectWindow project;
    project.showPair();
    const QString gone = project.path(QStringLiteral("gone/out.csd"));
    project.dialogs.expectSave(ExportCsdTitle, gone);
    project.expectMessage(notSaved(gone, FolderGone));
    project.score->setFocus();
    project.trigger("menuFileConvertToCSD");
    QCOMPARE(project.dialogs.verify(), QString());
    QVERIFY(project.orchestra->hasFocus());
    QCOMPARE(project.config.CSDFileName, QString());
}

void tst_FailedFiles::project_importTooLarge_saysSo()
{
    ProjectWindow project;
    project.showPair();
    const QString csd = makeLarge(project.path(QStringLiteral("large.csd")));
    project.dialogs.expectOpen(QStringLiteral("Open CSound Unified File Format (*.CSD)"), csd);
    project.expectMessage(notOpened(csd, TooLarge));
    project.dialogs.expect(
        {QStringLiteral("Conversion Error!"), QStringLiteral("Error!"), MessageIcon::Critical});
    project.trigger("menuFileImportaCSD");
    QCOMPARE(project.dialogs.verify(), QString());
    QCOMPARE(project.orchestra->Text(), QStringLiteral("instr 1\r\nendin\r\n"));
}

void tst_FailedFiles::project_tooLarge_saysSo()
{
    ProjectWindow project;
    project.config.OrchestraFileName = project.write(QStringLiteral("piece.orc"), "o\n");
    const QString score = makeLarge(project.path(QStringLiteral("piece.sco")));
    project.expectMessage(notOpened(score, TooLarge));
    project.show();
    QCOMPARE(project.dialogs.verify(), QString());
    QCOMPARE(project.orchestra->Text(), QStringLiteral("o\r\n"));
    QCOMPARE(project.score->Text(), QString());
}

void tst_FailedFiles::project_nameThatIsNoText_opensNothing()
{
    ProjectWindow project;
    project.showPair();
    project.expectMessage(notOpened(project.path(QStringLiteral("caf\uFFFD.orc")),
                                    QStringLiteral("its name is not UTF-8")));
    dropUrl(*project.window,
            "file://" + QFile::encodeName(project.path(QString())) + "/caf%E9.orc");
    QCOMPARE(project.dialogs.verify(), QString());
    QCOMPARE(project.config.OrchestraFileName, project.path(QStringLiteral("piece.orc")));
}

ARDIPHON_TEST(tst_FailedFiles, QApplication)
#include "tst_FailedFiles.moc"
