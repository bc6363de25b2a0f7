#include "app/modRegistry.h"
#include "platform/FileFailure.h"
#include "support/Fifo.h"
#include "support/FileBytes.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;
using registry::ColorsKey;
using registry::RecentFilesKey;
using registry::SettingsKey;

class tst_modRegistry : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void read_missingValue_givesDefault();
    void read_missingValueWithoutDefault_givesEmpty();
    void read_emptyValue_givesEmptyNotDefault();
    void read_otherCase_findsValue();
    void write_otherCase_replacesValue();
    void write_sameNameInOtherKey_isAnotherValue();
    void write_severalValues_keepsAll();
    void key_withAndWithoutClosingBackslash_isTheSame();
    void roundTrip_data();
    void roundTrip();
    void read_textWithNul_endsThere();
    void read_noText_givesDefault_data();
    void read_noText_givesDefault();
    void read_numberText_isText();
    void garbageFile_readsDefaultsAndTakesWrites_data();
    void garbageFile_readsDefaultsAndTakesWrites();
    void unwritableFile_isNotReported();
    void failedWrite_givesTheReasonWhenAsked();
    void noRegularFile_isNeitherWaitedForNorTouched();
    void missingFolder_isMade();
    void twoStores_writeInTurn_keepBothValues();
    void twoStores_oneWrites_otherReadsIt();
    void twoStores_otherCase_replacesTheOthersValue();
    void userFilePath_liesInConfigurationFolder();

private:
    QString read(const QString &name, const QString &otherwise = {})
    {
        return ReadRegistryString(*m_store, SettingsKey, name, otherwise);
    }
    void fill(const QByteArray &bytes);
    QString path() const { return m_folder->filePath("settings.ini"); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SettingsStore> m_store;
};

void tst_modRegistry::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_store = std::make_unique<SettingsStore>(path());
}

void tst_modRegistry::fill(const QByteArray &bytes)
{
    writeBytes(path(), bytes);
    m_store = std::make_unique<SettingsStore>(path());
}

void tst_modRegistry::read_missingValue_givesDefault() { QCOMPARE(read("TabSize", "8"), "8"); }

void tst_modRegistry::read_missingValueWithoutDefault_givesEmpty()
{
    QCOMPARE(read("TabSize"), "");
}

void tst_modRegistry::read_emptyValue_givesEmptyNotDefault()
{
    WriteRegistryString(*m_store, SettingsKey, "TabSize", "");
    QCOMPARE(read("TabSize", "8"), "");
}

void tst_modRegistry::read_otherCase_findsValue()
{
    WriteRegistryString(*m_store, SettingsKey, "FileCsound", "/usr/bin/csound");
    QCOMPARE(read("FileCSound"), "/usr/bin/csound");
    QCOMPARE(ReadRegistryString(*m_store, "software\\ARDIPHON\\settings\\", "FILECSOUND"),
             "/usr/bin/csound");
}

void tst_modRegistry::write_otherCase_replacesValue()
{
    WriteRegistryString(*m_store, ColorsKey, "ColorText", "1");
    WriteRegistryString(*m_store, ColorsKey, "colorText", "2");
    QCOMPARE(ReadRegistryString(*m_store, ColorsKey, "ColorText"), "2");
    QCOMPARE(ReadRegistryString(*m_store, ColorsKey, "colorText"), "2");
    QCOMPARE(m_store->file().allKeys().size(), 1);
}

void tst_modRegistry::write_sameNameInOtherKey_isAnotherValue()
{
    WriteRegistryString(*m_store, SettingsKey, "Toolbar", "a");
    WriteRegistryString(*m_store, registry::WindowKey, "Toolbar", "b");
    QCOMPARE(read("Toolbar"), "a");
    QCOMPARE(ReadRegistryString(*m_store, registry::WindowKey, "Toolbar"), "b");
}

void tst_modRegistry::write_severalValues_keepsAll()
{
    WriteRegistryString(*m_store, SettingsKey, "first", "old");
    WriteRegistryStrings(*m_store, SettingsKey, {{"First", "1"}, {"Second", "2"}});
    SettingsStore other(path());
    QCOMPARE(ReadRegistryString(other, SettingsKey, "First"), "1");
    QCOMPARE(ReadRegistryString(other, SettingsKey, "Second"), "2");
    QCOMPARE(other.file().allKeys().size(), 2);
}

void tst_modRegistry::key_withAndWithoutClosingBackslash_isTheSame()
{
    WriteRegistryString(*m_store, RecentFilesKey, "File1", "/a.csd");
    QCOMPARE(ReadRegistryString(*m_store, RecentFilesKey + '\\', "File1"), "/a.csd");
}

void tst_modRegistry::roundTrip_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("path") << "/home/user/a.csd";
    QTest::newRow("commas") << "a, b,c";
    QTest::newRow("quotes") << "say \"so\" and 'so'";
    QTest::newRow("backslashes") << "C:\\new\\table\\x41\\";
    QTest::newRow("line ends") << "one\r\ntwo\nthree\ttabbed";
    QTest::newRow("blanks around") << "  a  ";
    QTest::newRow("semicolon and hash") << "a;b#c";
    QTest::newRow("equals and percent") << "a=b%20c";
    QTest::newRow("brackets") << "[Section]";
    QTest::newRow("at sign") << "@Variant(x)";
    QTest::newRow("at signs") << "@@ByteArray()";
    QTest::newRow("letters of many scripts")
        << QStringLiteral(u"\u00e9\u00df\u6f22\u05d0\U0001F3B5");
    QTest::newRow("number") << "16777215";
    QTest::newRow("word for a boolean") << "true";
    QTest::newRow("control characters") << QStringLiteral(u"a\u0001b\u001bc\u007f");
    QTest::newRow("long") << QString(100000, 'x');
}

void tst_modRegistry::roundTrip()
{
    QFETCH(QString, text);
    WriteRegistryString(*m_store, SettingsKey, "Value", text);
    WriteRegistryString(*m_store, SettingsKey, "Other", "kept");
    SettingsStore other(path());
    QCOMPARE(ReadRegistryString(other, SettingsKey, "Value", "default"), text);
    QCOMPARE(ReadRegistryString(other, SettingsKey, "Other"), "kept");
}

void tst_modRegistry::read_textWithNul_endsThere()
{
    WriteRegistryString(*m_store, SettingsKey, "Value", QStringLiteral(u"ab\u0000cd"));
    QCOMPARE(read("Value", "default"), "ab");
    SettingsStore other(path());
    QCOMPARE(ReadRegistryString(other, SettingsKey, "Value", "default"), "ab");
}

void tst_modRegistry::read_noText_givesDefault_data()
{
    QTest::addColumn<QByteArray>("value");

    QTest::newRow("list") << QByteArray("a, b");
    QTest::newRow("byte array") << QByteArray("@ByteArray(abc)");
    QTest::newRow("number") << QByteArray("@Variant(\\0\\0\\0\\x2\\0\\0\\0\\x5)");
    QTest::newRow("rectangle") << QByteArray("@Rect(0 0 1 1)");
    QTest::newRow("invalid") << QByteArray("@Invalid()");
}

void tst_modRegistry::read_noText_givesDefault()
{
    QFETCH(QByteArray, value);
    fill("[Software]\nArdiphon\\Settings\\TabSize=" + value + "\nArdiphon\\Settings\\Next=x\n");
    QCOMPARE(read("TabSize", "8"), "8");
    QCOMPARE(read("Next"), "x");
}

void tst_modRegistry::read_numberText_isText()
{
    fill("[Software]\nArdiphon\\Settings\\TabSize=12\n");
    QCOMPARE(read("TabSize", "8"), "12");
}

void tst_modRegistry::garbageFile_readsDefaultsAndTakesWrites_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("no keys") << QByteArray("this is no settings file\n\n[\n]=\n");
    QTest::newRow("NUL bytes") << QByteArray(4096, '\0');
    QByteArray random(20000, '\0');
    QRandomGenerator generator(randomSeed(12345));
    for (char &byte : random)
        byte = char(generator.bounded(256));
    QTest::newRow("random bytes") << random;
    QTest::newRow("cut in a quoted value") << QByteArray("[Software]\nArdiphon\\Settings\\X=\"abc");
    QTest::newRow("cut in a section") << QByteArray("[Softw");
}

void tst_modRegistry::garbageFile_readsDefaultsAndTakesWrites()
{
    QFETCH(QByteArray, bytes);
    fill(bytes);
    QCOMPARE(read("TabSize", "8"), "8");
    WriteRegistryString(*m_store, SettingsKey, "TabSize", "4");
    QCOMPARE(read("TabSize", "8"), "4");
}

void tst_modRegistry::unwritableFile_isNotReported()
{
    fill("in the way");
    SettingsStore store(path() + "/Ardiphon/settings.ini"); // a folder that can't be
    WriteRegistryString(store, SettingsKey, "TabSize", "4");
    QCOMPARE(ReadRegistryString(store, SettingsKey, "FileCSound", "none"), "none");
    QFile file(path());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), "in the way");
}

void tst_modRegistry::failedWrite_givesTheReasonWhenAsked()
{
    WriteRegistryString(*m_store, SettingsKey, "TabSize", "4");
    QVERIFY(m_store->lastWrite());
    fill("in the way");
    SettingsStore store(path() + "/Ardiphon/settings.ini");
    WriteRegistryString(store, SettingsKey, "TabSize", "4");
    QCOMPARE(store.lastWrite().failure().kind, FileFailure::Kind::NotThere);
    SettingsStore other(m_folder->filePath("other.ini"));
    QVERIFY(QDir().mkdir(other.path()));
    WriteRegistryString(other, SettingsKey, "TabSize", "4");
    QCOMPARE(other.lastWrite().failure().kind, FileFailure::Kind::Folder);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList({"other.ini", "settings.ini"}));
}

void tst_modRegistry::noRegularFile_isNeitherWaitedForNorTouched()
{
    const QString path = m_folder->filePath("fifo.ini");
    {
        Fifo fifo(path);
        SettingsStore store(path);
        QCOMPARE(ReadRegistryString(store, SettingsKey, "TabSize", "8"), "8");
        WriteRegistryString(store, SettingsKey, "TabSize", "4");
        QCOMPARE(store.lastWrite().failure().kind, FileFailure::Kind::NoRegularFile);
        QVERIFY(!fifo.wasWaitedFor());
    }
    QVERIFY(QFile::remove(path));

    // One that takes the place of the file while the program runs.
    SettingsStore store(path);
    WriteRegistryString(store, SettingsKey, "TabSize", "4");
    QCOMPARE(ReadRegistryString(store, SettingsKey, "TabSize"), "4");
    QVERIFY(QFile::remove(path));
    {
        Fifo fifo(path);
        QCOMPARE(ReadRegistryString(store, SettingsKey, "TabSize", "8"), "8");
        WriteRegistryString(store, SettingsKey, "TabSize", "5");
        QVERIFY(!fifo.wasWaitedFor());
    }
    QVERIFY(QFile::link("/dev/zero", m_folder->filePath("device.ini")));
    SettingsStore device(m_folder->filePath("device.ini"));
    QCOMPARE(ReadRegistryString(device, SettingsKey, "TabSize", "8"), "8");
}

void tst_modRegistry::missingFolder_isMade()
{
    const QString deep = m_folder->filePath("a/b/settings.ini");
    SettingsStore store(deep);
    WriteRegistryString(store, SettingsKey, "TabSize", "4");
    SettingsStore other(deep);
    QCOMPARE(ReadRegistryString(other, SettingsKey, "TabSize"), "4");
}

void tst_modRegistry::twoStores_writeInTurn_keepBothValues()
{
    SettingsStore other(path());
    WriteRegistryString(*m_store, SettingsKey, "First", "1");
    WriteRegistryString(other, SettingsKey, "Second", "2");
    WriteRegistryString(*m_store, SettingsKey, "Third", "3");
    SettingsStore third(path());
    QCOMPARE(ReadRegistryString(third, SettingsKey, "First"), "1");
    QCOMPARE(ReadRegistryString(third, SettingsKey, "Second"), "2");
    QCOMPARE(ReadRegistryString(third, SettingsKey, "Third"), "3");
}

void tst_modRegistry::twoStores_oneWrites_otherReadsIt()
{
    QCOMPARE(read("TabSize", "8"), "8");
    SettingsStore other(path());
    WriteRegistryString(other, SettingsKey, "TabSize", "12");
    QCOMPARE(read("TabSize", "8"), "12");
}

/// Two values that differ in case alone would be one value with two texts.
void tst_modRegistry::twoStores_otherCase_replacesTheOthersValue()
{
    QCOMPARE(read("TabSize", "8"), "8");
    const QString elsewhere = m_folder->filePath("other.ini"); // stores of one file share it here
    SettingsStore other(elsewhere);
    WriteRegistryString(other, SettingsKey, "TabSize", "12");
    QFile::remove(path());
    QVERIFY(QFile::copy(elsewhere, path()));
    WriteRegistryString(*m_store, SettingsKey, "TABSIZE", "4");
    SettingsStore third(path());
    QCOMPARE(third.file().allKeys().size(), 1);
    QCOMPARE(ReadRegistryString(third, SettingsKey, "TabSize"), "4");
}

void tst_modRegistry::userFilePath_liesInConfigurationFolder()
{
    QCOMPARE(SettingsStore::userFilePath(),
             qEnvironmentVariable("XDG_CONFIG_HOME") + "/Ardiphon/settings.ini");
}

ARDIPHON_TEST(tst_modRegistry, QCoreApplication)
#include "tst_modRegistry.moc"
