#include "analysis/ShownForm.h"
#include "support/TestMain.h"
#include "support/TimeLimit.h"

#include <sys/stat.h>

using namespace ardiphon;

namespace {

/// What a form shows each time that its pointer changes: the pointer, and the listing.
class PointerWatch : public QObject
{
public:
    explicit PointerWatch(const ShownForm &form) : m_form(form)
    {
        form.form->installEventFilter(this);
    }

    QList<std::pair<Qt::CursorShape, QString>> seen;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::CursorChange)
            return false;
        const std::pair now{static_cast<QWidget *>(watched)->cursor().shape(),
                            m_form.control<QPlainTextEdit>("RtfPVLook")->toPlainText()};
        if (seen.isEmpty() || seen.constLast() != now) // one change may come in several events
            seen.append(now);
        return false;
    }

private:
    const ShownForm &m_form;
};

} // namespace

/// The reader of phase vocoder files.
class tst_FormPVLook : public QObject
{
    Q_OBJECT

private slots:
    void pvlook_withoutAFile_clearsTheListing();
    void pvlook_showsTheFileOnce();
    void pvlook_reading_showsTheHourglass();
    void pvlook_fileThatCannotBeRead_isDeletedAllTheSame();
    void pvlook_badFile_isSilent();
    void pvlook_browse_clearsTheListing();
    void pvlook_obstacles();
    void pvlook_save_writesTheListing();
    void pvlook_saveOfNothing_doesNothing();
    void pvlook_revert_keepsTheListing();
};

void tst_FormPVLook::pvlook_withoutAFile_clearsTheListing()
{
    ShownForm form(PVLook);
    form.browse(QStringLiteral("a.pv"));
    auto *const listing = form.control<QPlainTextEdit>("RtfPVLook");
    listing->setPlainText(QStringLiteral("old"));
    form.click("CommandAnalyze");
    QCOMPARE(listing->toPlainText(), QString());
    QVERIFY(form.starts.isEmpty());
}

void tst_FormPVLook::pvlook_showsTheFileOnce()
{
    ShownForm form(PVLook);
    form.browse(QStringLiteral("a.pv"));
    form.type(0, QStringLiteral("9999999999")); // what the fields hold has no effect
    form.program.write(QStringLiteral("pv_temp.txt"), "Bin 1 Freqs.\n 0.5\n");
    form.click("CommandAnalyze");
    auto *const listing = form.control<QPlainTextEdit>("RtfPVLook");
    QCOMPARE(listing->toPlainText(), QStringLiteral("Bin 1 Freqs.\n 0.5\n"));
    QVERIFY(!QFile::exists(form.program.path(QStringLiteral("pv_temp.txt"))));
    QCOMPARE(form.form->cursor().shape(), Qt::ArrowCursor);
    form.click("CommandAnalyze");
    QCOMPARE(listing->toPlainText(), QString());
}

void tst_FormPVLook::pvlook_reading_showsTheHourglass()
{
    ShownForm form(PVLook);
    form.browse(QStringLiteral("a.pv"));
    form.program.write(QStringLiteral("pv_temp.txt"), "a listing");
    PointerWatch pointer(form);
    form.click("CommandAnalyze");
    const decltype(pointer.seen) expected{{Qt::WaitCursor, "Reading Data:"},
                                          {Qt::ArrowCursor, "a listing"}};
    QCOMPARE(pointer.seen, expected);
}

/// A pipe, which nobody writes to.
void tst_FormPVLook::pvlook_fileThatCannotBeRead_isDeletedAllTheSame()
{
    ShownForm form(PVLook);
    form.browse(QStringLiteral("a.pv"));
    const QString pipe = form.program.path(QStringLiteral("pv_temp.txt"));
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const TimeLimit limit;
    form.click("CommandAnalyze");
    QCOMPARE(form.control<QPlainTextEdit>("RtfPVLook")->toPlainText(),
             QStringLiteral("Reading Data:"));
    QVERIFY(!QFile::exists(pipe));
}

void tst_FormPVLook::pvlook_badFile_isSilent()
{
    ShownForm form(PVLook);
    form.browse(QStringLiteral("a.pv"));
    QVERIFY(QDir(form.program.folder.path()).mkdir(QStringLiteral("pv_temp.txt")));
    form.click("CommandAnalyze");
    QCOMPARE(form.program.dialogs.verify(), QString());
    QCOMPARE(form.control<QPlainTextEdit>("RtfPVLook")->toPlainText(),
             QStringLiteral("Reading Data:"));
    QVERIFY(QDir(form.program.folder.path()).rmdir(QStringLiteral("pv_temp.txt")));
    form.program.write(QStringLiteral("pv_temp.txt"), QByteArray("\0\xff\x1b[m\r\n", 7));
    form.click("CommandAnalyze");
    QCOMPARE(form.program.dialogs.verify(), QString());
}

void tst_FormPVLook::pvlook_browse_clearsTheListing()
{
    ShownForm form(PVLook);
    form.browse(QStringLiteral("a.pv"));
    QCOMPARE(form.program.dialogs.fileQuestions.constFirst().filter,
             QStringLiteral("PVAnal files (*.pv)|*.pv|All Files (*.*)|*.*"));
    auto *const listing = form.control<QPlainTextEdit>("RtfPVLook");
    listing->setPlainText(QStringLiteral("old"));
    form.browse(std::nullopt);
    QCOMPARE(listing->toPlainText(), QStringLiteral("old"));
    form.browse(QStringLiteral("a.pv"));
    QCOMPARE(listing->toPlainText(), QString());
}

void tst_FormPVLook::pvlook_obstacles()
{
    ShownForm form(PVLook);
    form.program.write(QStringLiteral("pv_temp.txt"), "x");
    form.program.dialogs.expect(
        {.text = QStringLiteral("No Input File!"), .icon = MessageIcon::Information});
    form.click("CommandAnalyze");
    form.program.config.FileCSound.clear();
    form.program.dialogs.expect({.text = QStringLiteral("Cannot find CSound.exe!\r\nSelect "
                                                        "File->Settings->Csound.exe!")});
    form.click("CommandAnalyze");
    QCOMPARE(form.program.dialogs.verify(), QString());
    QVERIFY(QFile::exists(form.program.path(QStringLiteral("pv_temp.txt"))));
}

void tst_FormPVLook::pvlook_save_writesTheListing()
{
    ShownForm form(PVLook);
    form.browse(QStringLiteral("a.pv"));
    const QString title = QStringLiteral("Save File As ...");
    for (const QByteArray bytes : {"one\ntwo \xc3\xa8\n", "one\r\ntwo\r\n", "a \xa0 b\n"}) {
        form.program.write(QStringLiteral("pv_temp.txt"), bytes);
        form.click("CommandAnalyze");
        form.program.dialogs.expectSave(title, form.program.path(QStringLiteral("list.txt")));
        form.click("Command2");
        QCOMPARE(form.program.read(QStringLiteral("list.txt")), bytes);
    }
    QCOMPARE(form.program.dialogs.fileQuestions.constLast().filter,
             QStringLiteral("Text files (*.txt)|*.txt|All Files (*.*)|*.*"));
    form.program.dialogs.expectSave(title, std::nullopt);
    form.click("Command2");
    form.program.dialogs.expectSave(title, QStringLiteral("/proc/no/file"));
    form.program.dialogs.expect(
        {QStringLiteral("The file \"/proc/no/file\" was not saved: its folder does not exist.")});
    form.click("Command2");
    QCOMPARE(form.program.dialogs.verify(), QString());
}

void tst_FormPVLook::pvlook_saveOfNothing_doesNothing()
{
    ShownForm form(PVLook);
    form.click("Command2");
    QCOMPARE(form.program.dialogs.verify(), QString());
}

void tst_FormPVLook::pvlook_revert_keepsTheListing()
{
    ShownForm form(PVLook);
    auto *const listing = form.control<QPlainTextEdit>("RtfPVLook");
    listing->setPlainText(QStringLiteral("old"));
    form.click("CommandRevert");
    QCOMPARE(listing->toPlainText(), QStringLiteral("old"));
    form.type(1, QString());
    QTest::keyClick(form.field(1), Qt::Key_Tab);
    QCOMPARE(form.field(1)->text(), QStringLiteral("-1"));
}

ARDIPHON_TEST(tst_FormPVLook, QApplication)
#include "tst_FormPVLook.moc"
