#include "app/RecentFiles.h"
#include "app/ui/FormNew.h"
#include "documents/ui/FormCSD.h"
#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/FileDrop.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <QtTest>

#include <memory>

using namespace ardiphon;

namespace {

const QString SaveQuestion = QStringLiteral("File has changed!\r\nDo you want to save it?");
const QString LeaveQuestion = QStringLiteral("File CSD has changed!\r\nDo you want to save it?");
const QString TitleEnd = QStringLiteral(" - ArdiphonPro - Version 2.3.0");
const QString ProgramFirst = QStringLiteral("ArdiphonPro - ");

} // namespace

/// The life of a CSD document, through the window's own menu entries, drops and closing.
class tst_CsdDocument : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void load_namedFile_showsItAndPutsItOnTheRecentList();
    void load_noName_isUntitled();
    void load_directory_isEmptyAndCannotBeOverwritten();
    void load_readOnlyFile_becomesWritable();

    void save_untitled_asksForAName();
    void save_otherUntitledName_asksForAName();
    void save_cancelledName_keepsUntitledAndTheStar();
    void save_named_writesTheBytesAndDropsTheStar();
    void save_changedByAnotherProgram_asksFirst();
    void save_madeByAnotherProgram_asksFirst();
    void saveAs_nameWithoutExtension_getsNone();

    void open_modified_asksWithItsTitle_data();
    void open_modified_asksWithItsTitle();
    void open_cancelledSaveAs_goesOn();
    void open_failedSave_asksAgain();
    void open_anotherFile_replacesTheText();
    void open_orchestra_handsOverAndKeepsThePath();
    void open_whileSplit_isMirrored();
    void open_orNew_savesTheBookmarksFirst();
    void dialogs_beginWhereTheUserWas();
    void recent_missingFile_saysSo();
    void recent_otherFile_opens();
    void recent_textFile_opensHereInBothViews();
    void recent_score_handsOver();
    void recent_cancelled_changesNothing();
    void recent_captions_nameFolderAndFile();
    void recent_otherCopyWroteMeanwhile_opensWhatTheListHolds();
    void recent_bookmarks_areSavedBefore();

    void new_cancelledChoice_keepsTheText();
    void new_csd_beginsAnEmptyDocument();
    void new_project_handsOver();

    void export_emptyText_saysSo();
    void export_noScore_writesNothing();
    void export_parts_areWrittenAsTheyStand();
    void import_pair_makesAnUntitledText();
    void import_missingScore_saysSo();
    void import_cancelledQuestion_changesNothing();

    void properties_noName_saysSo();
    void properties_file_areShown();
    void drop_twoFiles_opensTheFirst();
    void drop_onAnyControl_opensTheFile();
    void drop_orchestra_handsOver();
    void drop_movedBookmarks_areSaved();
    void leave_answers_data();
    void leave_answers();
    void leave_cancelled_keepsTheWindowButClosesTheWords();
    void leave_closeBox_closesTheWords();
    void leave_underADialogThatHasNotReturned_waits();
    void title_modified_getsOneStar();

private:
    void show(const QString &file = {});
    void trigger(const char *command);
    void type(const QString &text);
    void expectQuestion(const QString &title, Answer answer, const QString &text = SaveQuestion);
    void chooseInFormNew(Qt::Key key);

    std::unique_ptr<TestProgram> m_program;
    QPointer<FormCSD> m_window;
    LEditOCX *m_editor = nullptr;
    int m_projectWindows = 0;
};

void tst_CsdDocument::init()
{
    m_program = std::make_unique<TestProgram>();
    m_projectWindows = 0;
    m_program->context.windows.showFormORCSCO = [this] { ++m_projectWindows; };
}

void tst_CsdDocument::cleanup()
{
    delete m_window; // before anything can fail: it must not outlive the configuration
    QCOMPARE(m_program->dialogs.verify(), QString());
    m_program.reset();
}

void tst_CsdDocument::show(const QString &file)
{
    m_program->config.CSDFileName = file;
    m_window = new FormCSD(m_program->context);
    m_window->show();
    m_editor = m_window->findChild<LEditOCX *>(QStringLiteral("LEDIT1"));
    QVERIFY(QTest::qWaitForWindowExposed(m_window));
}

void tst_CsdDocument::trigger(const char *command)
{
    auto *action = m_window->findChild<QAction *>(QLatin1String(command));
    QVERIFY2(action, command);
    action->trigger();
}

void tst_CsdDocument::type(const QString &text) { QTest::keyClicks(m_editor->focusProxy(), text); }

void tst_CsdDocument::expectQuestion(const QString &title, Answer answer, const QString &text)
{
    m_program->dialogs.expect({text, title, MessageIcon::Exclamation, MessageButtons::YesNoCancel},
                              answer);
}

void tst_CsdDocument::chooseInFormNew(Qt::Key key)
{
    QTimer::singleShot(0, this, [key] {
        auto *chooser = qobject_cast<FormNew *>(QApplication::activeModalWidget());
        QVERIFY(chooser);
        QTest::keyClick(chooser, key);
    });
}

// Loading. ---------------------------------------------------------------------------------------

void tst_CsdDocument::load_namedFile_showsItAndPutsItOnTheRecentList()
{
    const QString path = m_program->write(QStringLiteral("piece.csd"), "instr 1\nendin\n");
    show(path);
    QCOMPARE(m_editor->Text(), QStringLiteral("instr 1\r\nendin\r\n"));
    QCOMPARE(m_window->windowTitle(), path + TitleEnd);
    QVERIFY(!m_editor->GetState(2));
    QCOMPARE(
        ReadRegistryString(m_program->settings, registry::RecentFilesKey, QStringLiteral("File1")),
        path);
}

void tst_CsdDocument::load_noName_isUntitled()
{
    show();
    QCOMPARE(m_program->config.CSDFileName, QStringLiteral("[Untitled]"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("[Untitled]") + TitleEnd);
}

void tst_CsdDocument::load_directory_isEmptyAndCannotBeOverwritten()
{
    const QString path = m_program->path(QStringLiteral("folder.csd"));
    QVERIFY(QDir().mkdir(path));
    show(path);
    QCOMPARE(m_editor->Text(), QString());
    type(QStringLiteral("x"));
    trigger("menuFileSalvaOrchestra");
    QVERIFY(m_editor->GetState(2));
    QVERIFY(QFileInfo(path).isDir());
}

void tst_CsdDocument::load_readOnlyFile_becomesWritable()
{
    const QString path = m_program->write(QStringLiteral("piece.csd"), "x");
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup));
    show(path);
    QCOMPARE(QFile::permissions(path) & (QFile::WriteOwner | QFile::WriteGroup),
             QFile::Permissions(QFile::WriteOwner));
}

// Saving. ----------------------------------------------------------------------------------------

void tst_CsdDocument::save_untitled_asksForAName()
{
    show();
    type(QStringLiteral("e"));
    const QString path = m_program->path(QStringLiteral("new.csd"));
    m_program->dialogs.expectSave(QStringLiteral("Save File As ..."), path);
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("new.csd")), QByteArray("e"));
    QCOMPARE(m_program->config.CSDFileName, path);
    QCOMPARE(m_window->windowTitle(), path + TitleEnd);
    QCOMPARE(
        m_program->dialogs.fileQuestions.front().filter,
        QStringLiteral("Csound CSD (*.csd)|*.csd|Text Files (*.txt)|*.txt|All Files (*.*)|*.*"));
    // The new name is not put on the recent list here.
    QCOMPARE(
        ReadRegistryString(m_program->settings, registry::RecentFilesKey, QStringLiteral("File1")),
        QString());
}

void tst_CsdDocument::save_otherUntitledName_asksForAName()
{
    show();
    m_program->config.CSDFileName = QStringLiteral("[Untitled.CSD]");
    type(QStringLiteral("e"));
    m_program->dialogs.expectSave(QStringLiteral("Save File As ..."), std::nullopt);
    trigger("menuFileSalvaOrchestra");
    QVERIFY(m_editor->GetState(2));
}

void tst_CsdDocument::save_cancelledName_keepsUntitledAndTheStar()
{
    show();
    type(QStringLiteral("e"));
    m_program->dialogs.expectSave(QStringLiteral("Save File As ..."), std::nullopt);
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->config.CSDFileName, QStringLiteral("[Untitled]"));
    QVERIFY(m_editor->GetState(2));
}

void tst_CsdDocument::save_named_writesTheBytesAndDropsTheStar()
{
    const QString path = m_program->write(QStringLiteral("piece.csd"), "a\nb\xff\n");
    show(path);
    type(QStringLiteral("x"));
    QTRY_COMPARE(m_window->windowTitle(), path + TitleEnd + u'*');
    QTest::keyClick(m_editor->focusProxy(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), QByteArray("xa\nb\xff\n"));
    QCOMPARE(m_window->windowTitle(), path + TitleEnd);
    QVERIFY(!m_editor->GetState(2));
}

void tst_CsdDocument::save_changedByAnotherProgram_asksFirst()
{
    const QString path = m_program->write(QStringLiteral("piece.csd"), "mine");
    show(path);
    type(QStringLiteral("x"));
    m_program->write(QStringLiteral("piece.csd"), "someone else's");
    const Message question{QStringLiteral("File has been changed by another program!\r\n"
                                          "Do you want to overwrite it?"),
                           QStringLiteral("Save File"), MessageIcon::Exclamation,
                           MessageButtons::YesNo};
    m_program->dialogs.expect(question, Answer::No);
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), QByteArray("someone else's"));
    QVERIFY(m_editor->GetState(2));

    m_program->dialogs.expect(question, Answer::Yes);
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), QByteArray("xmine"));

    type(QStringLiteral("y")); // its own save is no stranger's change
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), QByteArray("xymine"));
}

void tst_CsdDocument::save_madeByAnotherProgram_asksFirst()
{
    show(m_program->path(QStringLiteral("later.csd"))); // there is no such file yet
    type(QStringLiteral("x"));
    m_program->write(QStringLiteral("later.csd"), "someone else's");
    m_program->dialogs.expect({QStringLiteral("File has been changed by another program!\r\n"
                                              "Do you want to overwrite it?"),
                               QStringLiteral("Save File"), MessageIcon::Exclamation,
                               MessageButtons::YesNo},
                              Answer::No);
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("later.csd")), QByteArray("someone else's"));
}

void tst_CsdDocument::saveAs_nameWithoutExtension_getsNone()
{
    show();
    type(QStringLiteral("e"));
    m_program->dialogs.expectSave(QStringLiteral("Save File As ..."),
                                  m_program->path(QStringLiteral("bare")));
    trigger("menuFileSalvaOrchestraNome");
    QCOMPARE(m_program->read(QStringLiteral("bare")), QByteArray("e"));
}

// Opening. ---------------------------------------------------------------------------------------

void tst_CsdDocument::open_modified_asksWithItsTitle_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QString>("title");
    QTest::newRow("new") << QByteArray("menuFileNuovaOrchestra") << "New File";
    QTest::newRow("open") << QByteArray("menuFileApriOrchestra") << "Open File";
}

void tst_CsdDocument::open_modified_asksWithItsTitle()
{
    QFETCH(QByteArray, command);
    QFETCH(QString, title);
    show();
    type(QStringLiteral("e"));
    expectQuestion(title, Answer::Cancel);
    trigger(command.constData());
    QCOMPARE(m_editor->Text(), QStringLiteral("e"));
    QVERIFY(m_editor->hasFocus());
}

void tst_CsdDocument::open_cancelledSaveAs_goesOn()
{
    show();
    type(QStringLiteral("e"));
    expectQuestion(QStringLiteral("Open File"), Answer::Yes);
    m_program->dialogs.expectSave(QStringLiteral("Save File As ..."), std::nullopt);
    m_program->dialogs.expectOpen(QStringLiteral("Open File"), std::nullopt);
    trigger("menuFileApriOrchestra");
    QCOMPARE(m_editor->Text(), QStringLiteral("e"));
}

void tst_CsdDocument::open_failedSave_asksAgain()
{
    const QString folder = m_program->path(QStringLiteral("folder.csd"));
    QVERIFY(QDir().mkdir(folder));
    show(folder);
    type(QStringLiteral("e"));
    expectQuestion(QStringLiteral("Open File"), Answer::Yes);
    expectQuestion(QStringLiteral("Open File"), Answer::Cancel);
    trigger("menuFileApriOrchestra");
    QCOMPARE(m_editor->Text(), QStringLiteral("e"));
}

void tst_CsdDocument::open_anotherFile_replacesTheText()
{
    show(m_program->write(QStringLiteral("one.csd"), "one"));
    const QString other = m_program->write(QStringLiteral("two.txt"), "two");
    m_program->dialogs.expectOpen(QStringLiteral("Open File"), other);
    QTest::keyClick(m_editor->focusProxy(), Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(m_editor->Text(), QStringLiteral("two"));
    QCOMPARE(m_window->windowTitle(), other + TitleEnd);
    m_editor->Undo();
    QCOMPARE(m_editor->Text(), QStringLiteral("two")); // the history was forgotten
    QCOMPARE(m_program->dialogs.fileQuestions.front().filter,
             QStringLiteral("CSound Files (*.csd;*.orc;*.sco)|*.csd;*.orc;*.sco|Csd Files "
                            "(*.csd)|*.csd|Orc/Sco Files (*.orc;*.sco)|*.orc;*.sco|Text Files "
                            "(*.txt)|*.txt|All Files (*.*)|*.*"));
}

void tst_CsdDocument::open_orchestra_handsOverAndKeepsThePath()
{
    show();
    const QString path = m_program->write(QStringLiteral("piece.ORC"), "instr 1");
    m_program->dialogs.expectOpen(QStringLiteral("Open File"), path);
    trigger("menuFileApriOrchestra");
    QCOMPARE(m_projectWindows, 1);
    QCOMPARE(m_program->config.OrchestraFileName, path);
    QCOMPARE(m_program->config.ScoreFileName, QString());
    QCOMPARE(m_program->config.CSDFileName, path);
    QTRY_VERIFY(!m_window);
}

void tst_CsdDocument::recent_missingFile_saysSo()
{
    const QString path = m_program->write(QStringLiteral("gone.csd"), "x");
    show(path);
    QVERIFY(QFile::remove(path));
    m_program->dialogs.expect({QStringLiteral("File not found!"), QStringLiteral("File Error"),
                               MessageIcon::Exclamation, MessageButtons::Ok});
    trigger("menuLastFile(0)");
    trigger("menuLastFile(1)"); // "..." means nothing
    QCOMPARE(
        ReadRegistryString(m_program->settings, registry::RecentFilesKey, QStringLiteral("File1")),
        path);
}

void tst_CsdDocument::recent_otherFile_opens()
{
    const QString first = m_program->write(QStringLiteral("one.csd"), "one");
    UpdateRecentFiles(m_program->config, m_program->settings, first);
    show();
    type(QStringLiteral("e"));
    expectQuestion(QStringLiteral("Save File"), Answer::No);
    trigger("menuLastFile(0)");
    QCOMPARE(m_editor->Text(), QStringLiteral("one"));
    QCOMPARE(m_program->config.CSDFileName, first);
    QCOMPARE(m_window->windowTitle(), ProgramFirst + first);
    type(QStringLiteral("e"));
    QTRY_COMPARE(m_window->windowTitle(), ProgramFirst + first + u'*');
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_window->windowTitle(), first + TitleEnd);
}

void tst_CsdDocument::recent_textFile_opensHereInBothViews()
{
    const QString text = m_program->write(QStringLiteral("notes.txt"), "notes");
    UpdateRecentFiles(m_program->config, m_program->settings, text);
    m_program->config.WorkingDirectory = m_program->folder.path();
    show();
    trigger("buttonSplit");
    trigger("menuLastFile(0)");
    QCOMPARE(m_editor->Text(), QStringLiteral("notes"));
    QVERIFY(!m_editor->GetState(2));
    auto *second = m_window->findChild<LEditOCX *>(QStringLiteral("LEDIT2"));
    QCOMPARE(second->Text(), QStringLiteral("notes"));
    second->Undo();
    QCOMPARE(second->Text(), QStringLiteral("notes"));

    m_program->dialogs.expectOpen(QStringLiteral("Open File"), std::nullopt);
    trigger("menuFileApriOrchestra");
    QCOMPARE(m_program->dialogs.fileQuestions.back().directory, QDir::currentPath());
}

void tst_CsdDocument::recent_score_handsOver()
{
    const QString score = m_program->write(QStringLiteral("piece.SCO"), "e");
    UpdateRecentFiles(m_program->config, m_program->settings, score);
    m_program->config.OrchestraFileName = QStringLiteral("/old.orc");
    show();
    type(QStringLiteral("x"));
    expectQuestion(QStringLiteral("Save File"), Answer::No);
    trigger("menuLastFile(0)");
    QCOMPARE(m_projectWindows, 1);
    QCOMPARE(m_program->config.OrchestraFileName, QString());
    QCOMPARE(m_program->config.ScoreFileName, score);
    QTRY_VERIFY(!m_window); // without a second question
}

void tst_CsdDocument::recent_cancelled_changesNothing()
{
    const QString other = m_program->write(QStringLiteral("one.csd"), "one");
    UpdateRecentFiles(m_program->config, m_program->settings, other);
    show();
    type(QStringLiteral("e"));
    expectQuestion(QStringLiteral("Save File"), Answer::Cancel);
    trigger("menuLastFile(0)");
    QCOMPARE(m_editor->Text(), QStringLiteral("e"));
    QCOMPARE(m_program->config.CSDFileName, QStringLiteral("[Untitled]"));
    QVERIFY(m_editor->hasFocus());
}

void tst_CsdDocument::recent_captions_nameFolderAndFile()
{
    UpdateRecentFiles(m_program->config, m_program->settings, QStringLiteral("/m/a & b.csd"));
    show();
    const auto caption = [this](const char *entry) {
        return m_window->findChild<QAction *>(QLatin1String(entry))->text();
    };
    QCOMPARE(caption("menuLastFile(0)"), QStringLiteral("[/m] a && b.csd")); // no access key
    for (const char *entry : {"menuLastFile(1)", "menuLastFile(2)", "menuLastFile(3)"})
        QCOMPARE(caption(entry), QStringLiteral("..."));
}

void tst_CsdDocument::open_whileSplit_isMirrored()
{
    show(m_program->write(QStringLiteral("one.csd"), "one"));
    trigger("buttonSplit");
    m_program->dialogs.expectOpen(QStringLiteral("Open File"),
                                  m_program->write(QStringLiteral("two.csd"), "two"));
    trigger("menuFileApriOrchestra");
    auto *second = m_window->findChild<LEditOCX *>(QStringLiteral("LEDIT2"));
    QCOMPARE(second->Text(), QStringLiteral("two"));
    second->Undo();
    QCOMPARE(second->Text(), QStringLiteral("two")); // the history was forgotten
}

void tst_CsdDocument::open_orNew_savesTheBookmarksFirst()
{
    const QString sideFile = QStringLiteral("piece.bkm");
    show(m_program->write(QStringLiteral("piece.csd"), "a\nb\n"));
    trigger("menuToolsBookmark");
    m_program->dialogs.expectOpen(QStringLiteral("Open File"), std::nullopt);
    trigger("menuFileApriOrchestra");
    QVERIFY(!m_program->read(sideFile).isEmpty());

    QVERIFY(QFile::remove(m_program->path(sideFile)));
    EditorInput::goTo(*m_editor, 2, 0);
    trigger("menuToolsBookmark");
    chooseInFormNew(Qt::Key_Escape);
    trigger("menuFileNuovaOrchestra");
    QVERIFY(!m_program->read(sideFile).isEmpty());
}

/// A file chosen in the working directory leaves the folder of the next dialog as it is.
void tst_CsdDocument::dialogs_beginWhereTheUserWas()
{
    QVERIFY(QDir(m_program->folder.path()).mkpath(QStringLiteral("work")));
    QVERIFY(QDir(m_program->folder.path()).mkpath(QStringLiteral("other")));
    const QString work = m_program->path(QStringLiteral("work"));
    const QString other = m_program->path(QStringLiteral("other"));
    m_program->config.WorkingDirectory = work;
    show(m_program->write(QStringLiteral("piece.csd"), "x"));
    const auto folderOfSaveAs = [this](const QString &answer) {
        m_program->dialogs.expectSave(QStringLiteral("Save File As ..."), answer);
        trigger("menuFileSalvaOrchestraNome");
        return m_program->dialogs.fileQuestions.back().directory;
    };
    QCOMPARE(folderOfSaveAs(other + QStringLiteral("/a.csd")), m_program->folder.path());
    QCOMPARE(folderOfSaveAs(work + QStringLiteral("/b.csd")), other);
    QCOMPARE(folderOfSaveAs(work + QStringLiteral("/c.csd")), other);
    trigger("buttonDefaultDir");
    QCOMPARE(folderOfSaveAs(work + QStringLiteral("/d.csd")), work);
    QCOMPARE(m_program->dialogs.fileQuestions.back().proposedName, QString());

    delete m_window;
    show(); // a document without a file
    QCOMPARE(folderOfSaveAs(work + QStringLiteral("/e.csd")), work);
}

void tst_CsdDocument::recent_otherCopyWroteMeanwhile_opensWhatTheListHolds()
{
    UpdateRecentFiles(m_program->config, m_program->settings,
                      m_program->write(QStringLiteral("one.csd"), "one"));
    show();
    SettingsStore otherCopy(m_program->path(QStringLiteral("settings.ini")));
    WriteRegistryString(otherCopy, registry::RecentFilesKey, QStringLiteral("File1"),
                        m_program->write(QStringLiteral("two.csd"), "two"));
    trigger("menuLastFile(0)");
    QCOMPARE(m_editor->Text(), QStringLiteral("two"));
}

void tst_CsdDocument::recent_bookmarks_areSavedBefore()
{
    UpdateRecentFiles(m_program->config, m_program->settings,
                      m_program->write(QStringLiteral("one.csd"), "one"));
    show(m_program->write(QStringLiteral("piece.csd"), "text"));
    trigger("menuToolsBookmark");
    trigger("menuLastFile(1)");
    QCOMPARE(m_editor->Text(), QStringLiteral("one"));
    QVERIFY(QFile::exists(m_program->path(QStringLiteral("piece.bkm"))));
    QCOMPARE(m_editor->GetBookmarkLine(1), -1);
}

// New. -------------------------------------------------------------------------------------------

void tst_CsdDocument::new_cancelledChoice_keepsTheText()
{
    show();
    type(QStringLiteral("e"));
    expectQuestion(QStringLiteral("New File"), Answer::No);
    chooseInFormNew(Qt::Key_Escape);
    trigger("menuFileNuovaOrchestra");
    QCOMPARE(m_editor->Text(), QStringLiteral("e"));
    QVERIFY(m_editor->GetState(2));
}

void tst_CsdDocument::new_csd_beginsAnEmptyDocument()
{
    show(m_program->write(QStringLiteral("piece.csd"), "oscil"));
    const auto *opcode = m_window->findChild<QLineEdit *>(QStringLiteral("TextOpcode"));
    EditorInput::click(*m_editor, 1, 2);
    QVERIFY(opcode->text().startsWith(QLatin1String("[oscil] - ")));
    trigger("menuToolsBookmark");
    trigger("buttonSplit");
    chooseInFormNew(Qt::Key_C);
    auto *elsewhere = m_window->findChild<QWidget *>(QStringLiteral("TextInstr"));
    elsewhere->setFocus();
    QTest::keyClick(elsewhere, Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(m_editor->Text(), QString());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("[Untitled]") + TitleEnd);
    QVERIFY(!m_editor->GetState(2));
    auto *second = m_window->findChild<LEditOCX *>(QStringLiteral("LEDIT2"));
    QVERIFY(second->isHidden());
    QCOMPARE(second->Text(), QString());
    QVERIFY(!m_window->findChild<QAction *>(QStringLiteral("buttonSplit"))->isChecked());
    QCOMPARE(opcode->text(), QStringLiteral("(Opcode)"));
    QCOMPARE(m_window->findChild<QLineEdit *>(QStringLiteral("TextParametri"))->text(),
             QStringLiteral("(Parameters)"));
    QCOMPARE(m_editor->GetBookmarkLine(1), -1);
    QCOMPARE(m_window->focusWidget(), m_editor->focusProxy());
}

void tst_CsdDocument::new_project_handsOver()
{
    show();
    chooseInFormNew(Qt::Key_O);
    trigger("menuFileNuovaOrchestra");
    QCOMPARE(m_projectWindows, 1);
    QCOMPARE(m_program->config.WindowWidth, 1000L * 15);
    QVERIFY(!m_program->config.WindowMaximized);
    QTRY_VERIFY(!m_window);
    QVERIFY(m_program->config.Words.ReadOpcodeRecord(1)); // the other window goes on with them
}

// Properties. ------------------------------------------------------------------------------------

void tst_CsdDocument::properties_noName_saysSo()
{
    show();
    m_program->config.CSDFileName.clear();
    m_program->dialogs.expect({QStringLiteral("Cannot find File!"), ProgramTitle,
                               MessageIcon::Exclamation, MessageButtons::Ok});
    trigger("menuFileProprieta");
}

void tst_CsdDocument::properties_file_areShown()
{
    show(m_program->write(QStringLiteral("piece.csd"), "12345"));
    trigger("menuFileProprieta");
    QTRY_VERIFY(m_window->findChild<QDialog *>(QStringLiteral("FileProperties")));
    QStringList texts;
    const auto *dialog = m_window->findChild<QDialog *>(QStringLiteral("FileProperties"));
    for (const QLabel *label : dialog->findChildren<QLabel *>())
        texts.append(label->text());
    QVERIFY(texts.contains(QStringLiteral("piece.csd")));
    QVERIFY(texts.contains(QStringLiteral("5 bytes")));
    QVERIFY(texts.contains(m_program->folder.path()));
}

// Drops and leaving. -----------------------------------------------------------------------------

// To and from an orchestra and a score.
// ------------------------------------------------------------

namespace {

const QString ExportTitle = QStringLiteral("Save Orc/Sco As ... (*.ORC/*.SCO)");
const QString ImportTitle = QStringLiteral("Open Project (Orchestra & Score)");

} // namespace

void tst_CsdDocument::export_emptyText_saysSo()
{
    show();
    m_program->dialogs.expect({QStringLiteral("No available Document to export!")});
    trigger("menuFileConvertToORCSCO");
}

void tst_CsdDocument::export_noScore_writesNothing()
{
    show(m_program->write(QStringLiteral("piece.csd"), "<CsInstruments>o</CsInstruments>"));
    m_program->dialogs.expect({QStringLiteral("Conversion Error!"), QStringLiteral("Error!"),
                               MessageIcon::Critical, MessageButtons::Ok});
    trigger("menuFileConvertToORCSCO");
    QCOMPARE(m_editor->Text(), QStringLiteral("<CsInstruments>o</CsInstruments>"));
}

void tst_CsdDocument::export_parts_areWrittenAsTheyStand()
{
    show(m_program->write(QStringLiteral("piece.csd"), "<CsInstruments>\no\n</CsInstruments>"
                                                       "<CsScore>s</CsScore>"));
    m_program->dialogs.expectSave(ExportTitle, m_program->path(QStringLiteral("parts.orc")));
    trigger("menuFileConvertToORCSCO");
    QCOMPARE(m_program->read(QStringLiteral("parts.orc")), QByteArray("\r\no\r\n"));
    QCOMPARE(m_program->read(QStringLiteral("parts.sco")), QByteArray("s"));
    const FileQuestion &question = m_program->dialogs.fileQuestions.back();
    QCOMPARE(question.filter, QStringLiteral("Csound Orc/Sco (*.orc/*.sco)|*.orc"));
    QCOMPARE(question.proposedName, QStringLiteral("piece.orc"));
    QCOMPARE(m_program->config.CSDFileName, m_program->path(QStringLiteral("piece.csd")));
    QVERIFY(!m_editor->GetState(2));
}

void tst_CsdDocument::import_pair_makesAnUntitledText()
{
    show(m_program->write(QStringLiteral("piece.csd"), "old"));
    m_program->write(QStringLiteral("parts.SCO"), "s");
    m_program->dialogs.expectOpen(ImportTitle,
                                  m_program->write(QStringLiteral("parts.orc"), "o\n"));
    trigger("menuFileImportaORCSCO");
    QCOMPARE(m_editor->Text(),
             QStringLiteral("<CsoundSynthesizer>\r\n\r\n<CsOptions>\r\n</CsOptions>\r\n\r\n"
                            "<CsInstruments>\r\n\r\no\r\n\r\n\r\n</CsInstruments>\r\n\r\n"
                            "<CsScore>\r\n\r\ns\r\n\r\n</CsScore>\r\n\r\n"
                            "</CsoundSynthesizer>\r\n\r\n"));
    QCOMPARE(m_program->config.CSDFileName, QStringLiteral("[Untitled]"));
    QVERIFY(m_window->windowTitle().startsWith(ProgramFirst + QStringLiteral("[Untitled]")));
    QCOMPARE(m_program->config.OrchestraFileName, QString());
    QVERIFY(m_editor->GetState(2));
    QCOMPARE(m_program->dialogs.fileQuestions.back().filter,
             QStringLiteral("Csound files (orc & sco)|*.orc"));
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), QByteArray("old"));
}

void tst_CsdDocument::import_missingScore_saysSo()
{
    show(m_program->write(QStringLiteral("piece.csd"), "old"));
    m_program->dialogs.expectOpen(ImportTitle, m_program->write(QStringLiteral("parts.orc"), "o"));
    m_program->dialogs.expect({QStringLiteral("File Score: ") +
                               m_program->path(QStringLiteral("parts.sco")) +
                               QStringLiteral(" hasn't found!")});
    trigger("menuFileImportaORCSCO");
    QCOMPARE(m_editor->Text(), QStringLiteral("old"));
}

void tst_CsdDocument::import_cancelledQuestion_changesNothing()
{
    show();
    type(QStringLiteral("e"));
    expectQuestion(QStringLiteral("Import Orc/Sco Files"), Answer::Cancel);
    trigger("menuFileImportaORCSCO");
    QCOMPARE(m_editor->Text(), QStringLiteral("e"));
}

void tst_CsdDocument::drop_twoFiles_opensTheFirst()
{
    show();
    type(QStringLiteral("e"));
    expectQuestion(QStringLiteral("Save File"), Answer::No);
    const QString first = m_program->write(QStringLiteral("one.csd"), "one");
    const QString second = m_program->write(QStringLiteral("two.csd"), "two");
    FileDrop::on(*m_window, {first, second});
    QCOMPARE(m_editor->Text(), QStringLiteral("one"));
    QCOMPARE(m_program->config.LastFileName, first);
    QCOMPARE(m_program->config.CSDFileName, first);
    QVERIFY(m_editor->hasFocus());
}

void tst_CsdDocument::drop_onAnyControl_opensTheFile()
{
    show();
    trigger("buttonSplit");
    const QString path = m_program->write(QStringLiteral("one.csd"), "one");
    const QList<QWidget *> controls = FileDrop::controlsOf(*m_window);
    QVERIFY(controls.size() > 40);
    for (QWidget *control : controls) {
        m_program->config.LastFileName.clear();
        FileDrop::on(*control, {path});
        if (m_program->config.LastFileName != path)
            QFAIL(qPrintable(control->objectName() + u' ' + control->metaObject()->className()));
    }
}

void tst_CsdDocument::drop_orchestra_handsOver()
{
    const QString piece = m_program->write(QStringLiteral("piece.csd"), "x");
    show(piece);
    const QString path = m_program->write(QStringLiteral("piece.orc"), "o");
    FileDrop::on(*m_window, {path});
    QCOMPARE(m_projectWindows, 1);
    QCOMPARE(m_program->config.OrchestraFileName, path);
    QCOMPARE(m_program->config.LastFileName, path);
    QCOMPARE(m_program->config.CSDFileName, piece); // only a CSD takes this name
    QTRY_VERIFY(!m_window);
}

/// Bookmarks that only moved with the text count as unchanged everywhere but here.
void tst_CsdDocument::drop_movedBookmarks_areSaved()
{
    show(m_program->write(QStringLiteral("piece.csd"), "a\nb\n"));
    trigger("menuToolsBookmark");
    trigger("menuFileSalvaOrchestra");
    QVERIFY(m_program->read(QStringLiteral("piece.bkm")).startsWith("1 "));
    QTest::keyClick(m_editor->focusProxy(), Qt::Key_Return);
    QVERIFY(!m_program->config.CSDModified);
    expectQuestion(QStringLiteral("Save File"), Answer::No);
    FileDrop::on(*m_window, {m_program->write(QStringLiteral("other.csd"), "x")});
    QVERIFY(m_program->read(QStringLiteral("piece.bkm")).startsWith("2 "));
}

void tst_CsdDocument::leave_answers_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QByteArray>("onDisk");
    QTest::addColumn<bool>("keptWritten");
    QTest::newRow("yes") << int(Answer::Yes) << QByteArray("xold") << true;
    QTest::newRow("no") << int(Answer::No) << QByteArray("old") << false;
    QTest::newRow("cancel") << int(Answer::Cancel) << QByteArray("old") << true;
}

void tst_CsdDocument::leave_answers()
{
    QFETCH(int, answer);
    QFETCH(QByteArray, onDisk);
    QFETCH(bool, keptWritten);
    show(m_program->write(QStringLiteral("piece.csd"), "old"));
    m_program->write(QStringLiteral("tmp.txt"), "log");
    type(QStringLiteral("x"));
    trigger("menuToolsBookmark");
    const char *tools[][2] = {{"menuWindowLineNumbers", "LineNumbers"},
                              {"menuWindowBarraBook", "BookBar"},
                              {"menuWindowHelp", "OnLineHelp"},
                              {"menuWindowToolbar", "Toolbar"}};
    for (const auto &[command, value] : tools)
        trigger(command);
    expectQuestion(QStringLiteral("Exit Program"), Answer(answer), LeaveQuestion);
    trigger("menuFileEsci");
    if (Answer(answer) == Answer::Cancel)
        QVERIFY(m_window->isVisible());
    else
        QTRY_VERIFY(!m_window);
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), onDisk);
    QCOMPARE(!m_program->read(QStringLiteral("piece.bkm")).isEmpty(), keptWritten);
    for (const auto &[command, value] : tools)
        QCOMPARE(ReadRegistryString(m_program->settings, registry::WindowKey, QLatin1String(value)),
                 keptWritten ? QStringLiteral("HIDE") : QString());
    QVERIFY(!QFile::exists(m_program->path(QStringLiteral("tmp.txt"))));
}

void tst_CsdDocument::leave_cancelled_keepsTheWindowButClosesTheWords()
{
    show();
    type(QStringLiteral("x"));
    m_program->write(QStringLiteral("tmp.txt"), "log");
    QVERIFY(m_program->config.Words.ReadOpcodeRecord(1));
    m_window->findChild<QLineEdit *>(QStringLiteral("TextInstr"))->setFocus();
    expectQuestion(QStringLiteral("Exit Program"), Answer::Cancel, LeaveQuestion);
    trigger("menuFileEsci");
    QVERIFY(m_window->isVisible());
    QVERIFY(!m_program->config.Words.ReadOpcodeRecord(1));
    QVERIFY(!QFile::exists(m_program->path(QStringLiteral("tmp.txt"))));
    QVERIFY(m_editor->hasFocus());
}

void tst_CsdDocument::leave_closeBox_closesTheWords()
{
    show();
    QVERIFY(m_program->config.Words.ReadOpcodeRecord(1));
    QCloseEvent byTheUser;
    QSpontaneKeyEvent::setSpontaneous(&byTheUser);
    qApp->notify(m_window, &byTheUser);
    QVERIFY(byTheUser.isAccepted());
    QVERIFY(!m_program->config.FormCSDClosing);
    QVERIFY(!m_program->config.Words.ReadOpcodeRecord(1));
}

void tst_CsdDocument::leave_underADialogThatHasNotReturned_waits()
{
    show();
    QEventLoop program;
    QTimer::singleShot(0, this, [&] {
        QEventLoop dialog;
        QTimer::singleShot(0, &dialog, [&] {
            QCloseEvent byUser;
            QSpontaneKeyEvent::setSpontaneous(&byUser);
            qApp->notify(m_window, &byUser);
        });
        QTimer::singleShot(50, &dialog, &QEventLoop::quit);
        dialog.exec();
        QVERIFY(m_window && m_window->isVisible());
    });
    connect(m_window, &QObject::destroyed, &program, &QEventLoop::quit);
    program.exec();
    QVERIFY(!m_window);
    QVERIFY(!m_program->config.Words.ReadOpcodeRecord(1)); // the user closed it
}

void tst_CsdDocument::title_modified_getsOneStar()
{
    show();
    type(QStringLiteral("x"));
    const QString starred = QStringLiteral("[Untitled]") + TitleEnd + u'*';
    QTRY_COMPARE(m_window->windowTitle(), starred);
    auto *timer = m_window->findChild<QTimer *>(QStringLiteral("Timer1"));
    QVERIFY(timer);
    QSignalSpy ticks(timer, &QTimer::timeout);
    QTRY_VERIFY(ticks.count() > 1);
    QCOMPARE(m_window->windowTitle(), starred);
}

QTEST_MAIN(tst_CsdDocument)
#include "tst_CsdDocument.moc"
