#include "app/RecentFiles.h"

#include "app/ConfigurationBlock.h"
#include "app/modRegistry.h"
#include "support/TestMain.h"

#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

class tst_RecentFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void update_fiveDifferent_keepsLastFourNewestFirst();
    void update_knownFile_keepsOrder();
    void update_knownInAnyPlace_keepsOrder_data();
    void update_knownInAnyPlace_keepsOrder();
    void update_otherCase_takesSecondEntry();
    void update_blanksAround_areNoPartOfThePath();
    void update_knownButForBlanks_keepsOrder();
    void update_emptyPath_keepsList();
    void update_otherCopyWroteMeanwhile_keepsItsEntry();
    void update_damagedEntry_countsAsEmpty();
    void read_emptyStore_clearsTheList();
    void shownText_data();
    void shownText();

private:
    QStringList stored();
    void update(const QString &path) { UpdateRecentFiles(*m_config, *m_store, path); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SettingsStore> m_store;
    std::unique_ptr<ConfigurationBlock> m_config;
};

void tst_RecentFiles::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_store = std::make_unique<SettingsStore>(m_folder->filePath("settings.ini"));
    m_config = std::make_unique<ConfigurationBlock>();
}

/// What another store reads from the file, which must be what the list in memory holds.
QStringList tst_RecentFiles::stored()
{
    SettingsStore other(m_folder->filePath("settings.ini"));
    QStringList list;
    for (int i = 1; i <= 4; ++i)
        list << ReadRegistryString(other, registry::RecentFilesKey,
                                   QStringLiteral("File%1").arg(i));
    for (std::size_t i = 1; i <= 4; ++i)
        if (m_config->RecentFiles[i] != list[qsizetype(i) - 1])
            return {"memory and file differ"};
    return list;
}

void tst_RecentFiles::update_fiveDifferent_keepsLastFourNewestFirst()
{
    for (const char *path : {"/m/a.csd", "/m/b.orc", "/m/c.sco", "/m/d.txt", "/m/e.csd"})
        update(path);
    QCOMPARE(stored(), QStringList({"/m/e.csd", "/m/d.txt", "/m/c.sco", "/m/b.orc"}));
}

void tst_RecentFiles::update_knownFile_keepsOrder()
{
    for (const char *path : {"/m/a.csd", "/m/b.orc", "/m/a.csd"})
        update(path);
    QCOMPARE(stored(), QStringList({"/m/b.orc", "/m/a.csd", "", ""}));
}

void tst_RecentFiles::update_knownInAnyPlace_keepsOrder_data()
{
    QTest::addColumn<QString>("known");
    for (const char *path : {"/m/a.csd", "/m/b.orc", "/m/c.sco", "/m/d.txt"})
        QTest::newRow(path) << QString(path);
}

void tst_RecentFiles::update_knownInAnyPlace_keepsOrder()
{
    QFETCH(QString, known);
    for (const char *path : {"/m/a.csd", "/m/b.orc", "/m/c.sco", "/m/d.txt"})
        update(path);
    update(known);
    QCOMPARE(stored(), QStringList({"/m/d.txt", "/m/c.sco", "/m/b.orc", "/m/a.csd"}));
}

void tst_RecentFiles::update_otherCase_takesSecondEntry()
{
    update("/m/a.csd");
    update("/m/A.csd");
    QCOMPARE(stored(), QStringList({"/m/A.csd", "/m/a.csd", "", ""}));
}

void tst_RecentFiles::update_blanksAround_areNoPartOfThePath()
{
    update("  /m/a b.csd ");
    QCOMPARE(stored(), QStringList({"/m/a b.csd", "", "", ""}));
}

void tst_RecentFiles::update_knownButForBlanks_keepsOrder()
{
    WriteRegistryString(*m_store, registry::RecentFilesKey, "File2", " /m/a.csd ");
    update("/m/a.csd");
    QCOMPARE(stored(), QStringList({"", " /m/a.csd ", "", ""}));
}

void tst_RecentFiles::update_emptyPath_keepsList()
{
    for (const char *path : {"/m/a.csd", "/m/b.orc", "/m/c.sco", "/m/d.txt", "", "  "})
        update(path);
    QCOMPARE(stored(), QStringList({"/m/d.txt", "/m/c.sco", "/m/b.orc", "/m/a.csd"}));
}

void tst_RecentFiles::update_otherCopyWroteMeanwhile_keepsItsEntry()
{
    update("/m/a.csd");
    SettingsStore other(m_folder->filePath("settings.ini"));
    ConfigurationBlock otherConfig;
    UpdateRecentFiles(otherConfig, other, "/m/other.csd");
    update("/m/b.csd");
    QCOMPARE(stored(), QStringList({"/m/b.csd", "/m/other.csd", "/m/a.csd", ""}));
}

void tst_RecentFiles::update_damagedEntry_countsAsEmpty()
{
    QFile file(m_folder->filePath("settings.ini"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[Software]\nArdiphon\\RecentFiles\\File1=@Variant(\\0\\0\\0\\x2)\n"
               "Ardiphon\\RecentFiles\\File2=/m/b.csd\n");
    file.close();
    update("/m/a.csd");
    QCOMPARE(stored(), QStringList({"/m/a.csd", "", "/m/b.csd", ""}));
}

void tst_RecentFiles::read_emptyStore_clearsTheList()
{
    m_config->RecentFiles = {"zero", "/m/a.csd", "/m/b.csd", "/m/c.csd", "/m/d.csd"};
    ReadRecentFiles(*m_config, *m_store);
    QCOMPARE(stored(), QStringList({"", "", "", ""}));
}

void tst_RecentFiles::shownText_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("blanks") << "   "
                            << "";
    QTest::newRow("name without its folders") << "/home/user/a.csd"
                                              << "[/h] a.csd";
    QTest::newRow("blanks around") << " /home/user/a.csd "
                                   << "[/h] a.csd";
    QTest::newRow("in the root") << "/a.csd"
                                 << "[/a] a.csd";
    QTest::newRow("no folder") << "a"
                               << "[a] a";
    QTest::newRow("40 characters stay") << "/h/" + QString(35, 'x') << "[/h] " + QString(35, 'x');
    QTest::newRow("41 are cut to 40")
        << "/h/" + QString(35, 'x') + 'y' << "[/h] " + QString(35, 'x');
    QTest::newRow("deep and long")
        << "/h/" + QString("d/").repeated(50) + QString(200, 'x') << "[/h] " + QString(35, 'x');
    QTest::newRow("other letters")
        << QStringLiteral(u"/\u00e9tude/\u6f22.csd") << QStringLiteral(u"[/\u00e9] \u6f22.csd");
}

void tst_RecentFiles::shownText()
{
    QFETCH(QString, path);
    QTEST(recentFileText(path), "text");
}

ARDIPHON_TEST(tst_RecentFiles, QCoreApplication)
#include "tst_RecentFiles.moc"
