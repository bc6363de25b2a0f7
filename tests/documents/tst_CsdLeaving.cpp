#include "app/RecentFiles.h"
#include "documents/CsdDocumentFixture.h"
#include "documents/DocumentTexts.h"
#include "documents/ui/CsdDocument.h"
#include "support/FileDrop.h"
#include "support/ShownToolTip.h"
#include "support/TestMain.h"

#include <QDialog>
#include <QDir>
#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QToolTip>

using namespace ardiphon;

namespace {

/// Quits a loop when a window has been asked that often to close, or has closed.
class CloseWatch : public QObject
{
public:
    CloseWatch(QWidget &window, int times, QEventLoop &loop) : m_left(times), m_loop(loop)
    {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Hide || (event->type() == QEvent::Close && --m_left == 0))
            m_loop.quit();
        return false;
    }

private:
    int m_left;
    QEventLoop &m_loop;
};

} // namespace

/// How a CSD document opens and closes besides its menu entries, and what is shown of it: recent
/// files, conversions, drops, properties, title and closing.
class tst_CsdLeaving : public QObject, private CsdDocumentFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    // Recent files.
    void recent_missingFile_saysSo();
    void recent_otherFile_opens();
    void recent_textFile_opensHereInBothViews();
    void recent_score_handsOver();
    void recent_cancelled_changesNothing();
    void recent_captions_nameFolderAndFile();
    void recent_entry_hasItsPathAsToolTip();
    void recent_otherCopyWroteMeanwhile_opensWhatTheListHolds();
    void recent_bookmarks_areSavedBefore();

    // To and from an orchestra and a score.
    void export_emptyText_saysSo();
    void export_noScore_writesNothing();
    void export_parts_areWrittenAsTheyAre();
    void import_pair_makesAnUntitledText();
    void import_missingScore_saysSo();
    void import_cancelledQuestion_changesNothing();

    // Properties, drops and leaving.
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
    void leave_handOver_keepsTheWordsWhateverTheMirrorSays();
    void leave_underADialogThatHasNotReturned_waits();
    void title_modified_getsOneStar();
};

// Recent files. -----------------------------------------------------------------------------------

void tst_CsdLeaving::recent_missingFile_saysSo()
{
    const QString path = m_program->write(QStringLiteral("gone.csd"), "x");
    open(path);
    QVERIFY(QFile::remove(path));
    m_program->dialogs.expect({QStringLiteral("File not found!"), QStringLiteral("File Error"),
                               MessageIcon::Exclamation, MessageButtons::Ok});
    trigger("menuLastFile(0)");
    trigger("menuLastFile(1)"); // "..." means nothing
    QCOMPARE(
        ReadRegistryString(m_program->settings, registry::RecentFilesKey, QStringLiteral("File1")),
        path);
}

void tst_CsdLeaving::recent_otherFile_opens()
{
    const QString first = m_program->write(QStringLiteral("one.csd"), "one");
    UpdateRecentFiles(m_program->config, m_program->settings, first);
    open();
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

void tst_CsdLeaving::recent_textFile_opensHereInBothViews()
{
    const QString text = m_program->write(QStringLiteral("notes.txt"), "notes");
    UpdateRecentFiles(m_program->config, m_program->settings, text);
    m_program->config.WorkingDirectory = m_program->folder.path();
    open();
    trigger("buttonSplit");
    trigger("menuLastFile(0)");
    QCOMPARE(m_editor->Text(), QStringLiteral("notes"));
    QVERIFY(!m_editor->GetState(TextState));
    auto *second = m_window->findChild<LEditOCX *>(QStringLiteral("LEDIT2"));
    QCOMPARE(second->Text(), QStringLiteral("notes"));
    second->Undo();
    QCOMPARE(second->Text(), QStringLiteral("notes"));

    m_program->dialogs.expectOpen(QStringLiteral("Open File"), std::nullopt);
    trigger("menuFileApriOrchestra");
    QCOMPARE(m_program->dialogs.fileQuestions.back().directory, QDir::currentPath());
}

void tst_CsdLeaving::recent_score_handsOver()
{
    const QString score = m_program->write(QStringLiteral("piece.SCO"), "e");
    UpdateRecentFiles(m_program->config, m_program->settings, score);
    m_program->config.OrchestraFileName = QStringLiteral("/old.orc");
    open();
    type(QStringLiteral("x"));
    expectQuestion(QStringLiteral("Save File"), Answer::No);
    trigger("menuLastFile(0)");
    QCOMPARE(m_projectWindows, 1);
    QCOMPARE(m_program->config.OrchestraFileName, QString());
    QCOMPARE(m_program->config.ScoreFileName, score);
    QTRY_VERIFY(!m_window); // without a second question
}

void tst_CsdLeaving::recent_cancelled_changesNothing()
{
    const QString other = m_program->write(QStringLiteral("one.csd"), "one");
    UpdateRecentFiles(m_program->config, m_program->settings, other);
    open();
    type(QStringLiteral("e"));
    expectQuestion(QStringLiteral("Save File"), Answer::Cancel);
    trigger("menuLastFile(0)");
    QCOMPARE(m_editor->Text(), QStringLiteral("e"));
    QCOMPARE(m_program->config.CSDFileName, QStringLiteral("[Untitled]"));
    QVERIFY(m_editor->hasFocus());
}

void tst_CsdLeaving::recent_captions_nameFolderAndFile()
{
    UpdateRecentFiles(m_program->config, m_program->settings, QStringLiteral("/m/a & b.csd"));
    open();
    const auto caption = [this](const char *entry) {
        return m_window->findChild<QAction *>(QLatin1String(entry))->text();
    };
    QCOMPARE(caption("menuLastFile(0)"), QStringLiteral("[/m] a && b.csd")); // no access key
    for (const char *entry : {"menuLastFile(1)", "menuLastFile(2)", "menuLastFile(3)"})
        QCOMPARE(caption(entry), QStringLiteral("..."));
}

/// The caption holds no folder, and forty characters of a name at most.
void tst_CsdLeaving::recent_entry_hasItsPathAsToolTip()
{
    const QString path = QStringLiteral("/music/<b>\"two\" & more</b>/piece.csd");
    UpdateRecentFiles(m_program->config, m_program->settings, path);
    open();
    auto *const menu = control<QMenu>("menuFile");
    menu->popup(m_window->mapToGlobal(QPoint()));
    QVERIFY(QTest::qWaitForWindowExposed(menu));
    const auto stayOver = [menu](const QAction *entry) {
        QTest::mouseMove(menu, menu->actionGeometry(const_cast<QAction *>(entry)).center());
    };
    stayOver(action("menuLastFile(1)")); // "..." has none, nor has any other entry
    stayOver(action("menuLastFile(0)"));
    QTRY_VERIFY(toolTipWindow());
    QCOMPARE(readToolTip(toolTipWindow()->text()), path);
    QPoint at = menu->actionGeometry(action("menuFileEsci")).center();
    QHelpEvent other(QEvent::ToolTip, at, menu->mapToGlobal(at));
    QToolTip::hideText();
    QTRY_VERIFY(!toolTipWindow());
    QApplication::sendEvent(menu, &other);
    at = menu->actionGeometry(action("menuLastFile(1)")).center();
    QHelpEvent empty(QEvent::ToolTip, at, menu->mapToGlobal(at));
    QApplication::sendEvent(menu, &empty);
    QVERIFY(!toolTipWindow());
    menu->close();
}

void tst_CsdLeaving::recent_otherCopyWroteMeanwhile_opensWhatTheListHolds()
{
    UpdateRecentFiles(m_program->config, m_program->settings,
                      m_program->write(QStringLiteral("one.csd"), "one"));
    open();
    SettingsStore otherCopy(m_program->path(QStringLiteral("settings.ini")));
    WriteRegistryString(otherCopy, registry::RecentFilesKey, QStringLiteral("File1"),
                        m_program->write(QStringLiteral("two.csd"), "two"));
    trigger("menuLastFile(0)");
    QCOMPARE(m_editor->Text(), QStringLiteral("two"));
}

void tst_CsdLeaving::recent_bookmarks_areSavedBefore()
{
    UpdateRecentFiles(m_program->config, m_program->settings,
                      m_program->write(QStringLiteral("one.csd"), "one"));
    open(m_program->write(QStringLiteral("piece.csd"), "text"));
    trigger("menuToolsBookmark");
    trigger("menuLastFile(1)");
    QCOMPARE(m_editor->Text(), QStringLiteral("one"));
    QVERIFY(QFile::exists(m_program->path(QStringLiteral("piece.bkm"))));
    QCOMPARE(m_editor->GetBookmarkLine(1), -1);
}

// To and from an orchestra and a score. -----------------------------------------------------------

void tst_CsdLeaving::export_emptyText_saysSo()
{
    open();
    m_program->dialogs.expect({QStringLiteral("No available Document to export!")});
    trigger("menuFileConvertToORCSCO");
}

void tst_CsdLeaving::export_noScore_writesNothing()
{
    open(m_program->write(QStringLiteral("piece.csd"), "<CsInstruments>o</CsInstruments>"));
    m_program->dialogs.expect({QStringLiteral("Conversion Error!"), QStringLiteral("Error!"),
                               MessageIcon::Critical, MessageButtons::Ok});
    trigger("menuFileConvertToORCSCO");
    QCOMPARE(m_editor->Text(), QStringLiteral("<CsInstruments>o</CsInstruments>"));
}

void tst_CsdLeaving::export_parts_areWrittenAsTheyAre()
{
    open(m_program->write(QStringLiteral("piece.csd"), "<CsInstruments>\no\n</CsInstruments>"
                                                       "<CsScore>s</CsScore>"));
    m_program->dialogs.expectSave(ExportPairTitle, m_program->path(QStringLiteral("parts.orc")));
    trigger("menuFileConvertToORCSCO");
    QCOMPARE(m_program->read(QStringLiteral("parts.orc")), QByteArray("\r\no\r\n"));
    QCOMPARE(m_program->read(QStringLiteral("parts.sco")), QByteArray("s"));
    const FileQuestion &question = m_program->dialogs.fileQuestions.back();
    QCOMPARE(question.filter, QStringLiteral("Csound Orc/Sco (*.orc/*.sco)|*.orc"));
    QCOMPARE(question.proposedName, QStringLiteral("piece.orc"));
    QCOMPARE(m_program->config.CSDFileName, m_program->path(QStringLiteral("piece.csd")));
    QVERIFY(!m_editor->GetState(TextState));
}

void tst_CsdLeaving::import_pair_makesAnUntitledText()
{
    open(m_program->write(QStringLiteral("piece.csd"), "old"));
    m_program->write(QStringLiteral("parts.SCO"), "s");
    m_program->dialogs.expectOpen(ImportPairTitle,
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
    QVERIFY(m_editor->GetState(TextState));
    QCOMPARE(m_program->dialogs.fileQuestions.back().filter,
             QStringLiteral("Csound files (orc & sco)|*.orc"));
    QCOMPARE(m_program->read(QStringLiteral("piece.csd")), QByteArray("old"));
}

void tst_CsdLeaving::import_missingScore_saysSo()
{
    open(m_program->write(QStringLiteral("piece.csd"), "old"));
    m_program->dialogs.expectOpen(ImportPairTitle,
                                  m_program->write(QStringLiteral("parts.orc"), "o"));
    m_program->dialogs.expect({QStringLiteral("File Score: ") +
                               m_program->path(QStringLiteral("parts.sco")) +
                               QStringLiteral(" hasn't found!")});
    trigger("menuFileImportaORCSCO");
    QCOMPARE(m_editor->Text(), QStringLiteral("old"));
}

void tst_CsdLeaving::import_cancelledQuestion_changesNothing()
{
    open();
    type(QStringLiteral("e"));
    expectQuestion(QStringLiteral("Import Orc/Sco Files"), Answer::Cancel);
    trigger("menuFileImportaORCSCO");
    QCOMPARE(m_editor->Text(), QStringLiteral("e"));
}

// Properties, drops and leaving. ------------------------------------------------------------------

void tst_CsdLeaving::properties_noName_saysSo()
{
    open();
    m_window->findChild<CsdDocument *>()->rename(QString());
    QCOMPARE(m_program->config.CSDFileName, QString());
    m_program->dialogs.expect({QStringLiteral("Cannot find File!"), ProgramTitle,
                               MessageIcon::Exclamation, MessageButtons::Ok});
    trigger("menuFileProprieta");
}

void tst_CsdLeaving::properties_file_areShown()
{
    open(m_program->write(QStringLiteral("piece.csd"), "12345"));
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

void tst_CsdLeaving::drop_twoFiles_opensTheFirst()
{
    open();
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

void tst_CsdLeaving::drop_onAnyControl_opensTheFile()
{
    open();
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

void tst_CsdLeaving::drop_orchestra_handsOver()
{
    const QString piece = m_program->write(QStringLiteral("piece.csd"), "x");
    open(piece);
    const QString path = m_program->write(QStringLiteral("piece.orc"), "o");
    FileDrop::on(*m_window, {path});
    QCOMPARE(m_projectWindows, 1);
    QCOMPARE(m_program->config.OrchestraFileName, path);
    QCOMPARE(m_program->config.LastFileName, path);
    QCOMPARE(m_program->config.CSDFileName, piece); // only a CSD takes this name
    QTRY_VERIFY(!m_window);
}

/// Bookmarks that only moved with the text count as unchanged everywhere but here.
void tst_CsdLeaving::drop_movedBookmarks_areSaved()
{
    open(m_program->write(QStringLiteral("piece.csd"), "a\nb\n"));
    trigger("menuToolsBookmark");
    trigger("menuFileSalvaOrchestra");
    QVERIFY(m_program->read(QStringLiteral("piece.bkm")).startsWith("1 "));
    QTest::keyClick(m_editor->focusProxy(), Qt::Key_Return);
    QVERIFY(!m_program->config.CSDModified);
    expectQuestion(QStringLiteral("Save File"), Answer::No);
    FileDrop::on(*m_window, {m_program->write(QStringLiteral("other.csd"), "x")});
    QVERIFY(m_program->read(QStringLiteral("piece.bkm")).startsWith("2 "));
}

void tst_CsdLeaving::leave_answers_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QByteArray>("onDisk");
    QTest::addColumn<bool>("keptWritten");
    QTest::newRow("yes") << int(Answer::Yes) << QByteArray("xold") << true;
    QTest::newRow("no") << int(Answer::No) << QByteArray("old") << false;
    QTest::newRow("cancel") << int(Answer::Cancel) << QByteArray("old") << true;
}

void tst_CsdLeaving::leave_answers()
{
    QFETCH(int, answer);
    QFETCH(QByteArray, onDisk);
    QFETCH(bool, keptWritten);
    open(m_program->write(QStringLiteral("piece.csd"), "old"));
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

void tst_CsdLeaving::leave_cancelled_keepsTheWindowButClosesTheWords()
{
    open();
    type(QStringLiteral("x"));
    m_program->write(QStringLiteral("tmp.txt"), "log");
    QVERIFY(m_program->config.Words->ReadOpcodeRecord(1));
    m_window->findChild<QLineEdit *>(QStringLiteral("TextInstr"))->setFocus();
    expectQuestion(QStringLiteral("Exit Program"), Answer::Cancel, LeaveQuestion);
    trigger("menuFileEsci");
    QVERIFY(m_window->isVisible());
    QVERIFY(!m_program->config.Words->ReadOpcodeRecord(1));
    QVERIFY(!QFile::exists(m_program->path(QStringLiteral("tmp.txt"))));
    QVERIFY(m_editor->hasFocus());
}

void tst_CsdLeaving::leave_closeBox_closesTheWords()
{
    open();
    QVERIFY(m_program->config.Words->ReadOpcodeRecord(1));
    QCloseEvent byTheUser;
    QSpontaneKeyEvent::setSpontaneous(&byTheUser);
    qApp->notify(m_window, &byTheUser);
    QVERIFY(byTheUser.isAccepted());
    QVERIFY(!m_program->config.FormCSDClosing);
    QVERIFY(!m_program->config.Words->ReadOpcodeRecord(1));
}

void tst_CsdLeaving::leave_handOver_keepsTheWordsWhateverTheMirrorSays()
{
    UpdateRecentFiles(m_program->config, m_program->settings,
                      m_program->write(QStringLiteral("piece.sco"), "e"));
    open();
    m_program->config.FormCSDClosing = true; // the window knows that nobody has asked it to end
    trigger("menuLastFile(0)");
    QCOMPARE(m_projectWindows, 1);
    QTRY_VERIFY(!m_window);
    QVERIFY(m_program->config.Words->ReadOpcodeRecord(1));
}

void tst_CsdLeaving::leave_underADialogThatHasNotReturned_waits()
{
    open();
    QEventLoop program;
    bool waited = false;
    QTimer::singleShot(0, this, [&] {
        QEventLoop dialog;
        QTimer::singleShot(0, &dialog, [&] {
            QCloseEvent byUser;
            QSpontaneKeyEvent::setSpontaneous(&byUser);
            qApp->notify(m_window, &byUser);
        });
        const CloseWatch attempts(*m_window, 3, dialog);
        dialog.exec();
        waited = m_window && m_window->isVisible();
    });
    connect(m_window, &QObject::destroyed, &program, &QEventLoop::quit);
    program.exec();
    QVERIFY(waited);
    QVERIFY(!m_window);
    QVERIFY(!m_program->config.Words->ReadOpcodeRecord(1)); // the user closed it
}

void tst_CsdLeaving::title_modified_getsOneStar()
{
    open();
    type(QStringLiteral("x"));
    const QString starred = QStringLiteral("[Untitled]") + TitleEnd + u'*';
    QTRY_COMPARE(m_window->windowTitle(), starred);
    auto *timer = m_window->findChild<QTimer *>(QStringLiteral("Timer1"));
    QVERIFY(timer);
    QSignalSpy ticks(timer, &QTimer::timeout);
    QTRY_VERIFY(ticks.count() > 1);
    QCOMPARE(m_window->windowTitle(), starred);
}

ARDIPHON_TEST(tst_CsdLeaving, QApplication)
#include "tst_CsdLeaving.moc"
