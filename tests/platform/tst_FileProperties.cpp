#include "platform/ui/FileProperties.h"
#include "support/TestMain.h"

#include <QDBusConnection>
#include <QDialog>
#include <QLabel>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <memory>
#include <optional>

using namespace ardiphon;

namespace {

const QString Service = QStringLiteral("org.freedesktop.FileManager1");
const QString ObjectPath = QStringLiteral("/org/freedesktop/FileManager1");

} // namespace

/// A file manager as far as the properties go.
class FileManager : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QList<QStringList> asked;

public slots:
    Q_SCRIPTABLE void ShowItemProperties(const QStringList &uris, const QString &)
    {
        asked.append(uris);
    }
};

/// The properties of a file, on a message bus of the test's own.
class tst_FileProperties : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void fileManager_isAskedForTheFile();
    void noFileManager_aDialogSaysSo();
    void missingFile_showsNothing();
    void windowGoneMeanwhile_doesNoHarm();
    void cleanupTestCase();

private:
    QDialog *dialog() const { return m_owner->findChild<QDialog *>("FileProperties"); }

    QProcess m_bus;
    QTemporaryDir m_folder;
    QString m_path;
    std::unique_ptr<QWidget> m_owner;
    FileManager m_manager;
    std::optional<QDBusConnection> m_managerBus;
};

void tst_FileProperties::initTestCase()
{
    if (QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty())
        QSKIP("there is no dbus-daemon");
    m_bus.start(QStringLiteral("dbus-daemon"),
                {QStringLiteral("--session"), QStringLiteral("--nofork"),
                 QStringLiteral("--print-address")});
    QVERIFY(m_bus.waitForReadyRead());
    const QByteArray address = m_bus.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    m_managerBus = QDBusConnection::connectToBus(QString::fromLatin1(address), "manager");
    QVERIFY(m_managerBus->isConnected());
    QVERIFY(m_managerBus->registerObject(ObjectPath, &m_manager,
                                         QDBusConnection::ExportScriptableSlots));

    m_path = m_folder.filePath(QStringLiteral("a b#c%20\u00E4.csd"));
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("12345");
}

void tst_FileProperties::init()
{
    m_owner = std::make_unique<QWidget>();
    m_owner->show();
    m_manager.asked.clear();
    m_managerBus->unregisterService(Service);
}

void tst_FileProperties::fileManager_isAskedForTheFile()
{
    QVERIFY(m_managerBus->registerService(Service));
    ShowFileProperties(m_owner.get(), m_path);
    QTRY_COMPARE(m_manager.asked.size(), 1);
    const QStringList uris = m_manager.asked.first();
    QCOMPARE(uris.size(), 1);
    QVERIFY2(uris.first().endsWith("/a%20b%23c%2520%C3%A4.csd"), qPrintable(uris.first()));
    QCOMPARE(QUrl(uris.first()).toLocalFile(), m_path);
    QVERIFY(!dialog());
}

void tst_FileProperties::noFileManager_aDialogSaysSo()
{
    ShowFileProperties(m_owner.get(), m_path);
    QTRY_VERIFY(dialog() && dialog()->isVisible());
    QStringList told;
    for (const QLabel *label : dialog()->findChildren<QLabel *>())
        told.append(label->text());
    QVERIFY(told.contains(QFileInfo(m_path).fileName()));
    QVERIFY(told.contains(m_folder.path()));
    QVERIFY(told.contains(QStringLiteral("5 bytes")));
    QTest::keyClick(dialog(), Qt::Key_Escape);
    QTRY_VERIFY(!dialog());
}

void tst_FileProperties::missingFile_showsNothing()
{
    QVERIFY(m_managerBus->registerService(Service));
    ShowFileProperties(m_owner.get(), m_folder.filePath(QStringLiteral("missing.csd")));
    ShowFileProperties(m_owner.get(), m_path); // what comes behind it has arrived, so would it
    QTRY_COMPARE(m_manager.asked.size(), 1);
    QVERIFY(m_manager.asked.first().first().endsWith(QLatin1String("%A4.csd")));
    QVERIFY(!dialog());
}

void tst_FileProperties::windowGoneMeanwhile_doesNoHarm()
{
    ShowFileProperties(m_owner.get(), m_path);
    m_owner = std::make_unique<QWidget>();
    ShowFileProperties(m_owner.get(), m_path); // answered behind the first
    QTRY_VERIFY(dialog());
}

void tst_FileProperties::cleanupTestCase()
{
    m_owner.reset();
    QDBusConnection::disconnectFromBus("manager");
    m_bus.kill();
    m_bus.waitForFinished();
}

ARDIPHON_TEST(tst_FileProperties, QApplication)
#include "tst_FileProperties.moc"
