#include "documents/CsdDocumentFixture.h"
#include "documents/ui/CsdDocument.h"
#include "support/EditorInput.h"
#include "support/TestMain.h"

#include <QDir>
#include <QLineEdit>

using namespace ardiphon;

/// The life of a CSD document through the window's own menu entries: loading, saving, opening, a
/// new one.
class tst_CsdDocument : public QObject, private CsdDocumentFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    // Loading.
    void load_namedFile_showsItAndPutsItOnTheRecentList();
    void load_noName_isUntitled();
    void load_directory_isEmptyAndCannotBeOverwritten();
    void load_readOnlyFile_becomesWritable();

    // Saving.
    void save_untitled_asksForAName();
    void save_otherUntitledName_asksForAName();
    void save_cancelledName_keepsUntitledAndTheStar();
    void save_named_writesTheBytesAndDropsTheStar();
    void save_changedByAnotherProgram_asksFirst();
    void save_madeByAnotherProgram_asksFirst();
    void saveAs_nameWithoutExtension_getsNone();

    void record_followsTheDocument();

    // Opening.
    void open_modified_asksWithItsTitle_data();
    void open_modified_asksWithItsTitle();
    void open_cancelledSaveAs_goesOn();
    void open_failedSave_asksAgain();
    void open_anotherFile_replacesTheText();
    void open_orchestra_handsOverAndKeepsThePath();
    void open_whileSplit_isMirrored();
    void open_orNew_savesTheBookmarksFirst();
    void dialogs_beginWhereTheUserWas();

    // New.
    void new_cancelledChoice_keepsTheText();
    void new_csd_beginsAnEmptyDocument();
    void new_project_handsOver();
};

// Loading. ----------------------------------------------------------------------------------------

void tst_CsdDocument::load_namedFile_showsItAndPutsItOnTheRecentList()
{
    const QString path = m_program->write(QStringLiteral("piece.csd"), "instr 1\nendin\n");
    open(path);
    QCOMPARE(m_editor->Text(), QStringLiteral("instr 1\r\nendin\r\n"));
    QCOMPARE(m_window->windowTitle(), path + TitleEnd);
    QVERIFY(!m_editor->GetState(TextState));
    QCOMPARE(
        ReadRegistryString(m_program->settings, registry::RecentFilesKey, QStringLiteral("File1")),
        path);
}

void tst_CsdDocument::load_noName_isUntitled()
{
    open();
    QCOMPARE(m_program->config.CSDFileName, QStringLiteral("[Untitled]"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("[Untitled]") + TitleEnd);
}

void tst_CsdDocument::load_directory_isEmptyAndCannotBeOverwritten()
{
    const QString path = m_program->path(QStringLiteral("folder.csd"));
    QVERIFY(QDir().mkdir(path));
    m_program->dialogs.expect(
        {QStringLiteral("The file \"%1\" cannot be opened: it is a folder.").arg(path)});
    open(path);
    QCOMPARE(m_editor->Text(), QString());
    type(QStringLiteral("x"));
    m_program->dialogs.expect({unreadText(path)});
    trigger("menuFileSalvaOrchestra");
    QVERIFY(m_editor->GetState(TextState));
    QVERIFY(QFileInfo(path).isDir());
}

void tst_CsdDocument::load_readOnlyFile_becomesWritable()
{
    const QString path = m_program->write(QStringLiteral("piece.csd"), "x");
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup));
    open(path);
    QCOMPARE(QFile::permissions(path) & (QFile::WriteOwner | QFile::WriteGroup),
             QFile::Permissions(QFile::WriteOwner));
}

// Saving. -----------------------------------------------------------------------------------------

void tst_CsdDocument::save_untitled_asksForAName()
{
    open();
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
    open(QStringLiteral("[Untitled.CSD]"));
    type(QStringLiteral("e"));
    m_program->dialogs.expectSave(QStringLiteral("Save File As ..."), std::nullopt);
    trigger("menuFileSalvaOrchestra");
    QVERIFY(m_editor->GetState(TextState));
}

void tst_CsdDocument::save_cancelledName_keepsUntitledAndTheStar()
{
    open();
    type(QStringLiteral("e"));
    m_program->dialogs.expectSave(QStringLiteral("Save File As ..."), std::nullopt);
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->config.CSDFileName, QStringLiteral("[Untitled]"));
    QVERIFY(m_editor->GetState(TextState));
}

void tst_CsdDocument::save_named_writesTheBytesAndDropsTheStar()
{
    const QString path = m_program->write(QStringLiteral("piece.csd"), "a\nb\xff\n");
    open(path);
    type(QStringLiteral("x"));
    QTRY_COMPARE(m_window->windowTitle(), path + TitleEnd + u'*');
    QTest::keyClick(m_editor->focusProxy(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), QByteArray("xa\nb\xff\n"));
    QCOMPARE(m_window->windowTitle(), path + TitleEnd);
    QVERIFY(!m_editor->GetState(TextState));
}

void tst_CsdDocument::save_changedByAnotherProgram_asksFirst()
{
    const QString path = m_program->write(QStringLiteral("piece.csd"), "mine");
    open(path);
    type(QStringLiteral("x"));
    m_program->write(QStringLiteral("piece.csd"), "someone else's");
    const Message question{QStringLiteral("File has been changed by another program!\r\n"
                                          "Do you want to overwrite it?"),
                           QStringLiteral("Save File"), MessageIcon::Exclamation,
                           MessageButtons::YesNoSaveAs, true};
    m_program->dialogs.expect(question, Answer::No);
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), QByteArray("someone else's"));
    QVERIFY(m_editor->GetState(TextState));

    m_program->dialogs.expect(question, Answer::Yes);
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), QByteArray("xmine"));

    type(QStringLiteral("y")); // its own save is no stranger's change
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), QByteArray("xymine"));
}

void tst_CsdDocument::save_madeByAnotherProgram_asksFirst()
{
    open(m_program->path(QStringLiteral("later.csd"))); // there is no such file yet
    type(QStringLiteral("x"));
    m_program->write(QStringLiteral("later.csd"), "someone else's");
    m_program->dialogs.expect({QStringLiteral("File has been changed by another program!\r\n"
                                              "Do you want to overwrite it?"),
                               QStringLiteral("Save File"), MessageIcon::Exclamation,
                               MessageButtons::YesNoSaveAs, true},
                              Answer::No);
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(m_program->read(QStringLiteral("later.csd")), QByteArray("someone else's"));
}

void tst_CsdDocument::saveAs_nameWithoutExtension_getsNone()
{
    open();
    type(QStringLiteral("e"));
    m_program->dialogs.expectSave(QStringLiteral("Save File As ..."),
                                  m_program->path(QStringLiteral("bare")));
    trigger("menuFileSalvaOrchestraNome");
    QCOMPARE(m_program->read(QStringLiteral("bare")), QByteArray("e"));
}

/// Role, name, encoding and stamp after each step; the configuration mirrors the name.
void tst_CsdDocument::record_followsTheDocument()
{
    const QString path = m_program->write(QStringLiteral("piece.csd"), "caf\xe9\n");
    open(path);
    const auto *document = m_window->findChild<CsdDocument *>();
    QVERIFY(document);
    const Document loaded = document->document();
    QCOMPARE(loaded.role(), DocumentRole::Csd);
    QCOMPARE(loaded.name(), path);
    QCOMPARE(loaded.form(), (DocumentForm{false, false, LineEnd::Lf}));
    QCOMPARE(loaded.stamp(), FileStamp::of(path));

    m_editor->SetSelText(QStringLiteral("\u6f22")); // which Latin-1 does not have
    QCOMPARE(document->document(), loaded);
    const QString other = m_program->path(QStringLiteral("other.csd"));
    m_program->dialogs.expectSave(QStringLiteral("Save File As ..."), other);
    trigger("menuFileSalvaOrchestraNome");
    QCOMPARE(document->document(),
             Document::loaded(DocumentRole::Csd, other, {true, false, LineEnd::Lf}));
    QCOMPARE(m_program->config.CSDFileName, other);

    chooseInFormNew(Qt::Key_C);
    trigger("menuFileNuovaOrchestra");
    QCOMPARE(document->document(), Document(DocumentRole::Csd).renamed("[Untitled]"));
    QCOMPARE(m_program->config.CSDFileName, "[Untitled]");
    QCOMPARE(loaded.name(), path); // what was kept of the document stays as it was
}

// Opening. ----------------------------------------------------------------------------------------

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
    open();
    type(QStringLiteral("e"));
    expectQuestion(title, Answer::Cancel);
    trigger(command.constData());
    QCOMPARE(m_editor->Text(), QStringLiteral("e"));
    QVERIFY(m_editor->hasFocus());
}

void tst_CsdDocument::open_cancelledSaveAs_goesOn()
{
    open();
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
    m_program->dialogs.expect(
        {QStringLiteral("The file \"%1\" cannot be opened: it is a folder.").arg(folder)});
    open(folder);
    type(QStringLiteral("e"));
    expectQuestion(QStringLiteral("Open File"), Answer::Yes);
    m_program->dialogs.expect({unreadText(folder)});
    expectQuestion(QStringLiteral("Open File"), Answer::Cancel);
    trigger("menuFileApriOrchestra");
    QCOMPARE(m_editor->Text(), QStringLiteral("e"));
}

void tst_CsdDocument::open_anotherFile_replacesTheText()
{
    open(m_program->write(QStringLiteral("one.csd"), "one"));
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
    open();
    const QString path = m_program->write(QStringLiteral("piece.ORC"), "instr 1");
    m_program->dialogs.expectOpen(QStringLiteral("Open File"), path);
    trigger("menuFileApriOrchestra");
    QCOMPARE(m_projectWindows, 1);
    QCOMPARE(m_program->config.OrchestraFileName, path);
    QCOMPARE(m_program->config.ScoreFileName, QString());
    QCOMPARE(m_program->config.CSDFileName, path);
    QTRY_VERIFY(!m_window);
}

void tst_CsdDocument::open_whileSplit_isMirrored()
{
    open(m_program->write(QStringLiteral("one.csd"), "one"));
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
    open(m_program->write(QStringLiteral("piece.csd"), "a\nb\n"));
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
    open(m_program->write(QStringLiteral("piece.csd"), "x"));
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
    open(); // a document without a file
    QCOMPARE(folderOfSaveAs(work + QStringLiteral("/e.csd")), work);
}

// New. --------------------------------------------------------------------------------------------

void tst_CsdDocument::new_cancelledChoice_keepsTheText()
{
    open();
    type(QStringLiteral("e"));
    expectQuestion(QStringLiteral("New File"), Answer::No);
    chooseInFormNew(Qt::Key_Escape);
    trigger("menuFileNuovaOrchestra");
    QCOMPARE(m_editor->Text(), QStringLiteral("e"));
    QVERIFY(m_editor->GetState(TextState));
}

void tst_CsdDocument::new_csd_beginsAnEmptyDocument()
{
    open(m_program->write(QStringLiteral("piece.csd"), "oscil"));
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
    QVERIFY(!m_editor->GetState(TextState));
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
    open();
    chooseInFormNew(Qt::Key_O);
    trigger("menuFileNuovaOrchestra");
    QCOMPARE(m_projectWindows, 1);
    QCOMPARE(m_program->config.WindowWidth, 1000L * 15);
    QVERIFY(!m_program->config.WindowMaximized);
    QTRY_VERIFY(!m_window);
    QVERIFY(m_program->config.Words->ReadOpcodeRecord(1)); // the other window goes on with them
}

ARDIPHON_TEST(tst_CsdDocument, QApplication)
#include "tst_CsdDocument.moc"
