#include "platform/FileAssociation.h"
#include "platform/ProgramFolder.h"
#include "platform/linux/OpenerEntry.h"
#include "support/FileBytes.h"
#include "support/TestMain.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <filesystem>

using namespace ardiphon;

namespace {

constexpr const char *Package = "data/mime/packages/ardiphon-csound-csd.xml";
constexpr const char *Opener = "data/applications/ardiphon-opener.desktop";
constexpr const char *Defaults = "config/mimeapps.list";

} // namespace

/// What an association leaves in a user's folders, and what the system's own tools make of it.
class tst_FileAssociation : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void openCommand_isNotQuoted_data();
    void openCommand_isNotQuoted();
    void openerEntry_readsBackItsTypesAndFiles();
    void association_writesTypeOpenerIconsAndDefault();
    void association_asTheSystemSeesIt();
    void association_removed_leavesNothing_data();
    void association_removed_leavesNothing();
    void association_withoutClassKey_writesNothing();
    void association_withoutIcon_bindsAllTheSame();
    void association_oneOfTwoRemoved_keepsTheOther();
    void association_madeTwice_isUndoneOnce();
    void association_removedTwice_isNoFailure();
    void association_defaultsThatAreNoFile_areLeftAloneAndReported();
    void association_foldersThatCannotBeWritten_areReported();
    void association_fileThatCannotBeWritten_isReported();
    void removal_fileThatStays_isReported();
    void association_withoutUpdater_isReported();
    void removal_ofNothing_needsNoUpdater();
    void association_ofAnother_keepsItsBytes();
    void association_removed_keepsWhatAnotherAddedMeanwhile();
    void defaultsBehindALink_areWrittenThere();
    void iconCache_isOutdated();

private:
    QString path(const QString &name) const { return m_home->filePath(name); }
    void write(const QString &name, const QByteArray &bytes) const;
    QByteArray read(const QString &name) const;
    QByteArray tell(const QString &program, const QStringList &arguments) const;
    QMap<QString, QByteArray> everything() const;
    bool create(const char *key = "CSoundCSD", const char *extension = ".csd") const;
    static bool remove(const char *key = "CSoundCSD", const char *extension = ".csd");
    QString tryToCreate(const char *key = "CSoundCSD", const char *extension = ".csd") const;

    std::unique_ptr<QTemporaryDir> m_home;
};

void tst_FileAssociation::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    qputenv("HOME", m_home->path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", path("data").toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", path("config").toLocal8Bit());
    // What the machine has installed counts for nothing here.
    qputenv("XDG_DATA_DIRS", path("system/data").toLocal8Bit());
    qputenv("XDG_CONFIG_DIRS", path("system/config").toLocal8Bit());
    qputenv("XDG_CURRENT_DESKTOP", "GNOME"); // xdg-mime then asks the library, as a desktop does
    QVERIFY(QDir().mkpath(path("config")));
    write("program/Icons/csd.svg", "a drawing");
    write("program/Icons/16x16/csd.png", "small");
    write("program/Icons/256x256/csd.png", "large");
    write("program/Icons/256x256/orc.png", "another");
}

void tst_FileAssociation::write(const QString &name, const QByteArray &bytes) const
{
    QDir().mkpath(QFileInfo(path(name)).path());
    writeBytes(path(name), bytes);
}

QByteArray tst_FileAssociation::read(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "(none)";
}

QByteArray tst_FileAssociation::tell(const QString &program, const QStringList &arguments) const
{
    QProcess process;
    process.start(program, arguments);
    return process.waitForFinished() ? process.readAllStandardOutput() : "(cannot be run)";
}

/// Every file with its bytes, and every folder.
QMap<QString, QByteArray> tst_FileAssociation::everything() const
{
    QMap<QString, QByteArray> all;
    QDirIterator it(m_home->path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString name = m_home->path() + u'/';
        const QString each = it.next().mid(name.size());
        all.insert(each, it.fileInfo().isDir() ? "(folder)" : read(each));
    }
    return all;
}

bool tst_FileAssociation::create(const char *key, const char *extension) const
{
    return tryToCreate(key, extension).isEmpty();
}

bool tst_FileAssociation::remove(const char *key, const char *extension)
{
    return RemoveFileAssociation(key, extension).isEmpty();
}

/// What failed.
QString tst_FileAssociation::tryToCreate(const char *key, const char *extension) const
{
    return CreateFileAssociation(key, extension, "CSound CSD file", path("program/Icons/csd.svg"),
                                 "tst_FileAssociation"); // gio wants it to be there
}

void tst_FileAssociation::openCommand_isNotQuoted_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("exec");
    QTest::newRow("plain") << "/opt/a"
                           << ""
                           << "/opt/a/ArdiphonPro %1"
                           << "/opt/a/ArdiphonPro %f";
    QTest::newRow("root") << "/"
                          << ""
                          << "/ArdiphonPro %1"
                          << "/ArdiphonPro %f";
    QTest::newRow("blanks") << "/my own/a b"
                            << ""
                            << "/my own/a b/ArdiphonPro %1"
                            << "\"/my own/a b/ArdiphonPro\" %f";
    QTest::newRow("arguments") << "/opt/a"
                               << "  -x y "
                               << "/opt/a/ArdiphonPro -x y"
                               << "/opt/a/ArdiphonPro -x y";
    QTest::newRow("signs") << "/a$b\"c%d"
                           << ""
                           << "/a$b\"c%d/ArdiphonPro %1"
                           << "\"/a\\$b\\\"c%%d/ArdiphonPro\" %f";
}

void tst_FileAssociation::openCommand_isNotQuoted()
{
    QFETCH(QString, folder);
    QFETCH(QString, arguments);
    OpenerEntry entry;
    entry.program = programPath(folder, "ArdiphonPro");
    entry.arguments = arguments;
    QTEST(entry.openCommand(), "command");
    QTEST(entry.execLine(), "exec");
}

void tst_FileAssociation::openerEntry_readsBackItsTypesAndFiles()
{
    OpenerEntry entry;
    entry.types = QStringList{"text/a", "text/b"};
    entry.made = QStringList{"mime", "mime/packages"};
    const OpenerEntry again = OpenerEntry::fromText(entry.text());
    QCOMPARE(again.types, entry.types);
    QCOMPARE(again.made, entry.made);
    QVERIFY(OpenerEntry::fromText("").types.isEmpty());
}

void tst_FileAssociation::association_writesTypeOpenerIconsAndDefault()
{
    QVERIFY(create());
    QCOMPARE(read(Package), R"(<?xml version="1.0" encoding="UTF-8"?>
<mime-info xmlns="http://www.freedesktop.org/standards/shared-mime-info">
  <mime-type type="text/x-csound-csd">
    <comment>CSound CSD file</comment>
    <sub-class-of type="text/plain"/>
    <icon name="ardiphon-csound-csd"/>
    <glob pattern="*.csd" weight="60"/>
  </mime-type>
</mime-info>
)");
    const QByteArray folder = QCoreApplication::applicationDirPath().toUtf8();
    const QList<QByteArray> entry = read(Opener).split('\n');
    for (const QByteArray &line :
         {QByteArray("[Desktop Entry]"), QByteArray("Name=ArdiphonPro"),
          "Exec=" + folder + "/tst_FileAssociation %f", "Icon=" + folder + "/Icons/ardiphon.svg",
          QByteArray("MimeType=text/x-csound-csd;"),
          "X-Ardiphon-Command=" + folder + "/tst_FileAssociation %1"})
        QVERIFY2(entry.contains(line), line.constData());
    QCOMPARE(tell("desktop-file-validate", {path(Opener)}), "");
    QVERIFY(read(Defaults).contains("\ntext/x-csound-csd=ardiphon-opener.desktop\n"));

    const QString icons = "data/icons/hicolor/%1/mimetypes/ardiphon-csound-csd.%2";
    QCOMPARE(read(icons.arg("scalable", "svg")), "a drawing");
    QCOMPARE(read(icons.arg("16x16", "png")), "small");
    QCOMPARE(read(icons.arg("256x256", "png")), "large");
}

void tst_FileAssociation::association_asTheSystemSeesIt()
{
    const QStringList question{"query", "default", "text/x-csound-csd"};
    const QString piece = path("piece.CSD");
    write("piece.CSD", "<CsoundSynthesizer>\n");
    QCOMPARE(tell("xdg-mime", question), "");
    QVERIFY(!tell("gio", {"info", piece}).contains("text/x-csound-csd"));

    QVERIFY(create());
    QCOMPARE(tell("xdg-mime", question), "ardiphon-opener.desktop\n");
    QCOMPARE(tell("xdg-mime", {"query", "filetype", piece}), "text/x-csound-csd\n");
    const QByteArray info = tell("gio", {"info", piece});
    QVERIFY2(info.contains("standard::content-type: text/x-csound-csd"), info.constData());
    QVERIFY2(info.contains("ardiphon-csound-csd"), info.constData());

    QVERIFY(tell("gio", {"mime", "text/x-csound-csd"}).contains(": ardiphon-opener.desktop\n"));

    QVERIFY(remove());
    QCOMPARE(tell("xdg-mime", question), "");
    QVERIFY(!tell("gio", {"mime", "text/x-csound-csd"}).contains("ardiphon"));
    QVERIFY(!tell("gio", {"info", piece}).contains("text/x-csound-csd"));
}

void tst_FileAssociation::association_removed_leavesNothing_data()
{
    QTest::addColumn<QStringList>("folders");
    QTest::addColumn<QStringList>("files");
    QTest::newRow("nothing there") << QStringList() << QStringList();
    QTest::newRow("empty folders")
        << QStringList{"data/icons/hicolor/16x16", "data/applications"} << QStringList();
    QTest::newRow("a list") << QStringList() << QStringList{Defaults};
    QTest::newRow("another's entries")
        << QStringList()
        << QStringList{"data/applications/a.desktop", "data/icons/hicolor/16x16/mimetypes/a.png"};
}

void tst_FileAssociation::association_removed_leavesNothing()
{
    QFETCH(QStringList, folders);
    QFETCH(QStringList, files);
    for (const QString &folder : folders)
        QVERIFY(QDir().mkpath(path(folder)));
    for (const QString &file : files)
        write(file, "[Default Applications]\ntext/plain=a.desktop");
    const auto before = everything();
    QVERIFY(create("CSoundCSD", ".csd"));
    QVERIFY(create("CSoundORC", ".orc"));
    QVERIFY(create("CSoundSCO", ".sco"));
    QVERIFY(everything() != before);
    QVERIFY(remove("CSoundCSD", ".csd"));
    QVERIFY(remove("CSoundORC", ".orc"));
    QVERIFY(remove("CSoundSCO", ".sco"));
    QCOMPARE(everything().keys(), before.keys());
    QCOMPARE(everything(), before);
}

void tst_FileAssociation::association_withoutClassKey_writesNothing()
{
    const auto before = everything();
    QCOMPARE(CreateFileAssociation("", ".csd", "text", "", "ArdiphonPro"), QString());
    QCOMPARE(everything(), before);
}

void tst_FileAssociation::association_withoutIcon_bindsAllTheSame()
{
    QCOMPARE(CreateFileAssociation("CSoundCSD", ".csd", "A <b> & c", "", "ArdiphonPro"), QString());
    QVERIFY(!read(Package).contains("<icon"));
    QVERIFY(read(Package).contains("<comment>A &lt;b&gt; &amp; c</comment>"));
    QVERIFY(!QFileInfo::exists(path("data/icons")));
    QCOMPARE(tell("xdg-mime", {"query", "default", "text/x-csound-csd"}),
             "ardiphon-opener.desktop\n");
}

void tst_FileAssociation::association_oneOfTwoRemoved_keepsTheOther()
{
    QVERIFY(create("CSoundCSD", ".csd"));
    QVERIFY(create("CSoundORC", ".orc"));
    QVERIFY(read(Opener).contains("\nMimeType=text/x-csound-csd;text/x-csound-orc;\n"));
    QVERIFY(remove("CSoundCSD", ".csd"));
    QVERIFY(read(Opener).contains("\nMimeType=text/x-csound-orc;\n"));
    QCOMPARE(tell("xdg-mime", {"query", "default", "text/x-csound-csd"}), "");
    QCOMPARE(tell("xdg-mime", {"query", "default", "text/x-csound-orc"}),
             "ardiphon-opener.desktop\n");
}

void tst_FileAssociation::association_madeTwice_isUndoneOnce()
{
    const auto before = everything();
    QVERIFY(create());
    const auto once = everything();
    QVERIFY(create());
    QCOMPARE(everything().keys(), once.keys());
    QCOMPARE(read(Opener), once[Opener]);
    QVERIFY(remove());
    QCOMPARE(everything(), before);
}

void tst_FileAssociation::association_removedTwice_isNoFailure()
{
    const auto before = everything();
    QVERIFY(create());
    QVERIFY(remove());
    QVERIFY(remove());
    QCOMPARE(everything(), before);
}

void tst_FileAssociation::association_defaultsThatAreNoFile_areLeftAloneAndReported()
{
    QVERIFY(QDir().mkpath(path(Defaults)));
    const QString failure = path(Defaults) + " cannot be read.";
    QCOMPARE(tryToCreate(), failure);
    QVERIFY(QFileInfo(path(Defaults)).isDir());
    QCOMPARE(RemoveFileAssociation("CSoundCSD", ".csd"), failure);
    QVERIFY(QFileInfo(path(Defaults)).isDir());
    QVERIFY(!QFileInfo::exists(path("data"))); // the rest was done and undone
}

void tst_FileAssociation::association_foldersThatCannotBeWritten_areReported()
{
    write("data", "a file where the folder should be");
    QVERIFY(QDir(path("config")).removeRecursively());
    write("config", "here too");
    const auto before = everything();
    QCOMPARE(tryToCreate(), path(Package) + " cannot be written.");
    QVERIFY(remove()); // there is nothing to undo
    QCOMPARE(everything(), before);
}

/// Each of the files in its turn; what can be written is.
void tst_FileAssociation::association_fileThatCannotBeWritten_isReported()
{
    for (const char *name : {Package, Opener, Defaults}) {
        init();
        QVERIFY(QDir().mkpath(path(name) + "/taken"));
        const char *const what = name == Defaults ? " cannot be read." : " cannot be written.";
        QCOMPARE(tryToCreate(), path(name) + what);
        QVERIFY(QFileInfo(path(name)).isDir());
        for (const char *other : {Package, Opener, Defaults})
            QCOMPARE(QFileInfo(path(other)).isFile(), other != name);
    }
}

void tst_FileAssociation::removal_fileThatStays_isReported()
{
    QVERIFY(create());
    QVERIFY(QFile::remove(path(Package)));
    QVERIFY(QDir().mkpath(path(Package) + "/taken"));
    QCOMPARE(RemoveFileAssociation("CSoundCSD", ".csd"), path(Package) + " cannot be removed.");
    QVERIFY(!QFileInfo::exists(path(Opener)));
}

void tst_FileAssociation::association_withoutUpdater_isReported()
{
    const QByteArray search = qgetenv("PATH");
    qputenv("PATH", path("nowhere").toLocal8Bit());
    const QString failure = tryToCreate();
    qputenv("PATH", search);
    QCOMPARE(failure, "update-mime-database cannot be run.");
    QVERIFY(remove());
}

/// A user who has no file types of their own has nothing that an updater would have to read.
void tst_FileAssociation::removal_ofNothing_needsNoUpdater()
{
    const QByteArray search = qgetenv("PATH");
    qputenv("PATH", path("nowhere").toLocal8Bit());
    const QString failure = RemoveFileAssociation("CSoundCSD", ".csd");
    qputenv("PATH", search);
    QCOMPARE(failure, QString());
}

void tst_FileAssociation::association_ofAnother_keepsItsBytes()
{
    write(Defaults, "# mine\n[Default Applications]\ntext/x-csound-csd=vi.desktop\nx/y=z.desktop");
    write("data/applications/vi.desktop", "[Desktop Entry]\nType=Application\nName=V\nExec=cat %f\n"
                                          "MimeType=text/x-csound-csd;\n");
    write("data/mime/packages/vi.xml",
          "<?xml version=\"1.0\"?>\n"
          "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">"
          "<mime-type type=\"application/x-vi\"><glob pattern=\"*.csd\"/></mime-type></mime-info>");
    tell("update-mime-database", {path("data/mime")});
    tell("update-desktop-database", {path("data/applications")});
    const auto before = everything();
    write("piece.csd", "<CsoundSynthesizer>\n");
    QVERIFY(create());
    QCOMPARE(tell("xdg-mime", {"query", "default", "text/x-csound-csd"}),
             "ardiphon-opener.desktop\n");
    QCOMPARE(tell("xdg-mime", {"query", "filetype", path("piece.csd")}), "text/x-csound-csd\n");
    QVERIFY(remove());
    QCOMPARE(tell("xdg-mime", {"query", "default", "text/x-csound-csd"}), "vi.desktop\n");
    QCOMPARE(tell("xdg-mime", {"query", "filetype", path("piece.csd")}), "application/x-vi\n");
    QVERIFY(QFile::remove(path("piece.csd")));
    QCOMPARE(everything(), before);
}

void tst_FileAssociation::association_removed_keepsWhatAnotherAddedMeanwhile()
{
    QVERIFY(create());
    const QByteArray package =
        "<?xml version=\"1.0\"?>\n"
        "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">"
        "<mime-type type=\"application/x-vi\"><glob pattern=\"*.vi7\"/></mime-type></mime-info>";
    const QByteArray entry = "[Desktop Entry]\nType=Application\nName=V\nExec=cat %f\n"
                             "MimeType=application/x-vi;\n";
    write("data/mime/packages/vi.xml", package);
    write("data/applications/vi.desktop", entry);
    QVERIFY(remove());
    QCOMPARE(read("data/mime/packages/vi.xml"), package);
    QCOMPARE(read("data/applications/vi.desktop"), entry);
    QCOMPARE(tell("xdg-mime", {"query", "default", "application/x-vi"}), "vi.desktop\n");
    write("piece.vi7", "text\n");
    QCOMPARE(tell("xdg-mime", {"query", "filetype", path("piece.vi7")}), "application/x-vi\n");
}

void tst_FileAssociation::defaultsBehindALink_areWrittenThere()
{
    for (const QByteArray &content : {QByteArray("[Added Associations]\n"), QByteArray()}) {
        write("dotfiles/list", content);
        QFile::remove(path(Defaults));
        QVERIFY(QFile::link(path("dotfiles/list"), path(Defaults)));
        QVERIFY(create());
        QVERIFY(read("dotfiles/list").contains("ardiphon-opener.desktop"));
        QVERIFY(remove());
        QVERIFY(QFileInfo(path(Defaults)).isSymLink());
        QCOMPARE(read("dotfiles/list"), content);
    }
}

void tst_FileAssociation::iconCache_isOutdated()
{
    const QString cache = "data/icons/hicolor/icon-theme.cache";
    write(cache, "a cache");
    QVERIFY(QDir().mkpath(path("data/icons/hicolor/scalable/mimetypes")));
    QVERIFY(QDir().mkpath(path("data/icons/hicolor/16x16/mimetypes")));
    QVERIFY(QDir().mkpath(path("data/icons/hicolor/256x256/mimetypes")));
    const auto past = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    const std::filesystem::path theme = path("data/icons/hicolor").toStdString();
    std::filesystem::last_write_time(theme, past);
    QVERIFY(create());
    QVERIFY(std::filesystem::last_write_time(theme) > past);
    std::filesystem::last_write_time(theme, past);
    QVERIFY(remove());
    QVERIFY(std::filesystem::last_write_time(theme) > past);
    QCOMPARE(read(cache), "a cache");
}

ARDIPHON_TEST(tst_FileAssociation, QCoreApplication)
#include "tst_FileAssociation.moc"
