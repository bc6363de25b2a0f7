// A disk that is full costs nothing: what was saved before stays, what could not be saved is asked
// for again. The test mounts a small disk of its own, where the system lets it.

#include "documents/ui/FormCSD.h"
#include "documents/ui/FormORCSCO.h"
#include "language/editor/LEditOCX.h"
#include "platform/FileFailure.h"
#include "support/FileBytes.h"
#include "support/Require.h"
#include "support/TestMain.h"
#include "support/TestProgram.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QPointer>
#include <QTest>

#include <memory>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace ardiphon;

namespace {

const QByteArray OldText =
    "; old\r\n<CsInstruments>\r\n</CsInstruments>\r\n<CsScore>\r\n</CsScore>\r\n";

/// What finds no room where the old text stands: a disk gives it in pages.
const QString LongText = QStringLiteral("; new text\r\n").repeated(1000);

bool put(const char *path, const QByteArray &bytes)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// Makes this process the superuser of a world of its own, in which it may mount. To be called
/// before the first thread begins.
bool enterOwnWorld()
{
    const QByteArray user = "0 " + QByteArray::number(::geteuid()) + " 1";
    const QByteArray group = "0 " + QByteArray::number(::getegid()) + " 1";
    return ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && put("/proc/self/setgroups", "deny") &&
           put("/proc/self/uid_map", user) && put("/proc/self/gid_map", group);
}

bool inOwnWorld = false;

} // namespace

class tst_FullDisk : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void save_csd_keepsTheFileAndTheChange();
    void save_csdThatFits_isWrittenInPlace();
    void save_project_keepsBothFiles();
    void export_existingFiles_areKept();
    void leave_settingsStayWhole();

private:
    QString path(const char *name) const { return m_disk->filePath(QLatin1String(name)); }
    void write(const char *name, const QByteArray &bytes = OldText) const;
    /// Takes every free byte of the disk, and gives them back.
    void fill() const;
    void expectFull(const char *name) const
    {
        m_program->dialogs.expect(
            {QStringLiteral("The file \"%1\" was not saved: the disk is full.").arg(path(name))});
    }
    void freeAgain() const { QFile::remove(path("ballast")); }
    template <typename Window>
    void show()
    {
        m_window = new Window(m_program->context);
        m_window->show();
        require(QTest::qWaitForWindowExposed(m_window), "the window does not show");
    }
    LEditOCX *editor(const char *name) const
    {
        return m_window->findChild<LEditOCX *>(QLatin1String(name));
    }
    void trigger(const char *name) const
    {
        m_window->findChild<QAction *>(QLatin1String(name))->trigger();
    }
    QStringList files() const { return QDir(m_disk->path()).entryList(QDir::Files | QDir::Hidden); }

    std::unique_ptr<QTemporaryDir> m_disk;
    std::unique_ptr<TestProgram> m_program;
    QPointer<EditorWindow> m_window;
};

void tst_FullDisk::init()
{
    if (!inOwnWorld)
        QSKIP("no file system may be mounted here");
    m_disk = std::make_unique<QTemporaryDir>();
    const QByteArray folder = QFile::encodeName(m_disk->path());
    if (::mount("tmpfs", folder.constData(), "tmpfs", 0, "size=1m") != 0)
        QSKIP("no file system may be mounted here");
    m_program = std::make_unique<TestProgram>();
    m_program->context.windows.showFormCSD = [] {};
    m_program->context.windows.showFormORCSCO = [] {};
}

void tst_FullDisk::cleanup()
{
    delete m_window;
    if (m_program)
        QCOMPARE(m_program->dialogs.verify(), "");
    m_program.reset();
    if (m_disk)
        ::umount(QFile::encodeName(m_disk->path()).constData());
    m_disk.reset();
}

void tst_FullDisk::write(const char *name, const QByteArray &bytes) const
{
    require(put(QFile::encodeName(path(name)).constData(), bytes), "the file cannot be written");
}

void tst_FullDisk::fill() const
{
    QFile ballast(path("ballast"));
    require(ballast.open(QIODevice::WriteOnly | QIODevice::Unbuffered), "no file can be made");
    while (ballast.write(QByteArray(4096, 'x')) == 4096) {
    }
}

void tst_FullDisk::save_csd_keepsTheFileAndTheChange()
{
    write("piece.csd");
    m_program->config.CSDFileName = path("piece.csd");
    show<FormCSD>();
    editor("LEDIT1")->SetSelText(LongText);
    trigger("menuToolsBookmark");
    fill();
    const QStringList before = files();
    expectFull("piece.csd"); // and nothing more of the bookmarks
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(bytesOf(path("piece.csd")), OldText);
    QVERIFY(editor("LEDIT1")->GetState(TextState));
    QCOMPARE(files(), before);

    freeAgain();
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(bytesOf(path("piece.csd")), LongText.toLatin1() + OldText);
    QVERIFY(!editor("LEDIT1")->GetState(TextState));
    QCOMPARE(bytesOf(path("piece.bkm")).size(), 15 * 40);
}

/// The old text finds a place on another disk for the while; new bookmarks find none.
void tst_FullDisk::save_csdThatFits_isWrittenInPlace()
{
    write("piece.csd");
    m_program->config.CSDFileName = path("piece.csd");
    show<FormCSD>();
    editor("LEDIT1")->SetSelText("; new\r\n");
    trigger("menuToolsBookmark");
    fill();
    expectFull("piece.bkm");
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(bytesOf(path("piece.csd")), "; new\r\n" + OldText);
    QVERIFY(!editor("LEDIT1")->GetState(TextState));
    QCOMPARE(files(), QStringList({"ballast", "piece.csd"}));
}

void tst_FullDisk::save_project_keepsBothFiles()
{
    write("piece.orc");
    write("piece.sco");
    m_program->config.OrchestraFileName = path("piece.orc");
    show<FormORCSCO>();
    editor("LEDIT1")->SetSelText(LongText);
    editor("LEDIT2")->SetSelText(LongText);
    fill();
    expectFull("piece.orc");
    expectFull("piece.sco");
    trigger("menuFileSalvaProgetto");
    QCOMPARE(bytesOf(path("piece.orc")), OldText);
    QCOMPARE(bytesOf(path("piece.sco")), OldText);
    QVERIFY(editor("LEDIT1")->GetState(TextState) && editor("LEDIT2")->GetState(TextState));
    QCOMPARE(files(), QStringList({"ballast", "piece.orc", "piece.sco"}));
}

void tst_FullDisk::export_existingFiles_areKept()
{
    const QByteArray part = LongText.toLatin1();
    write("piece.csd",
          "<CsInstruments>" + part + "</CsInstruments><CsScore>" + part + "</CsScore>");
    write("out.orc", "an older orchestra");
    write("out.sco", "an older score");
    m_program->config.CSDFileName = path("piece.csd");
    show<FormCSD>();
    fill();
    m_program->dialogs.expectSave("Save Orc/Sco As ... (*.ORC/*.SCO)", path("out.orc"));
    expectFull("out.orc");
    expectFull("out.sco");
    trigger("menuFileConvertToORCSCO");
    QCOMPARE(bytesOf(path("out.orc")), "an older orchestra");
    QCOMPARE(bytesOf(path("out.sco")), "an older score");
    QCOMPARE(files(), QStringList({"ballast", "out.orc", "out.sco", "piece.csd"}));
}

void tst_FullDisk::leave_settingsStayWhole()
{
    SettingsStore settings(path("settings.ini"));
    WriteRegistryString(settings, registry::SettingsKey, "FileCSound", "/usr/bin/csound");
    const QByteArray before = bytesOf(path("settings.ini"));
    QVERIFY(before.contains("/usr/bin/csound"));
    fill();
    for (const int length : {10, 20'000}) {
        WriteRegistryString(settings, registry::SettingsKey, "WaveEditor", QString(length, u'w'));
        QCOMPARE(bytesOf(path("settings.ini")), before);
        QCOMPARE(settings.lastWrite().failure().kind, FileFailure::Kind::DiskFull);
    }
    SettingsStore again(path("settings.ini"));
    QCOMPARE(ReadRegistryString(again, registry::SettingsKey, "FileCSound"), "/usr/bin/csound");
    QCOMPARE(files(), QStringList({"ballast", "settings.ini"}));
}

ARDIPHON_TEST_RUN_BY(tst_FullDisk, [](int argc, char **argv) {
    inOwnWorld = enterOwnWorld();
    return runTest<tst_FullDisk, QApplication>(argc, argv);
})

#include "tst_FullDisk.moc"
