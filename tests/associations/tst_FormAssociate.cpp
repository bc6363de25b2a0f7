#include "associations/CsoundFiles.h"
#include "associations/ui/FormAssociate.h"
#include "start/ui/Form1.h"
#include "support/Require.h"
#include "support/TestMain.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace ardiphon;

namespace {

const Message Executed{"CSound files association executed!", "Files association",
                       MessageIcon::Information};
const Message Removed{"CSound files association removed!", "Remove association",
                      MessageIcon::Information};
Message failed(const char *text, const QString &explanation)
{
    return {QLatin1String(text), "Error", MessageIcon::Critical,
            MessageButtons::Ok,  false,   explanation};
}

const QString NoUpdater = "update-mime-database cannot be run.";

/// No program can be found while it lives.
class EmptySearchPath
{
public:
    EmptySearchPath() { qputenv("PATH", "/nowhere"); }
    ~EmptySearchPath() { qputenv("PATH", m_before); }

private:
    QByteArray m_before = qgetenv("PATH");
};

} // namespace

/// The question of the first start, and the flows of the settings window.
class tst_FormAssociate : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void window_hasItsTexts();
    void yes_associatesAndAsksNoMore_data();
    void yes_associatesAndAsksNoMore();
    void yes_withoutUpdater_saysSoAndStaysOpen();
    void yes_folderThatCannotBeWritten_namesItAndStaysOpen();
    void no_associatesNothingAndAsksNoMore();
    void esc_leavesTheQuestionForLater();
    void start_asksUntilAnswered_data();
    void start_asksUntilAnswered();
    void removal_twice_reportsBothTimes();
    void removal_withoutUpdater_saysSo();

private:
    QString first();
    QStringList associated() const;
    static void press(QWidget &form, const char *button)
    {
        QTest::mouseClick(form.findChild<QPushButton *>(button), Qt::LeftButton);
    }

    std::unique_ptr<TestProgram> m_program;
};

void tst_FormAssociate::init()
{
    m_program = std::make_unique<TestProgram>();
    qputenv("XDG_DATA_HOME", m_program->path("data").toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", m_program->path("config").toLocal8Bit());
    WriteRegistryString(m_program->settings, registry::InstallPathKey, "First", "1");
}

QString tst_FormAssociate::first()
{
    return ReadRegistryString(m_program->settings, registry::InstallPathKey, "First");
}

QStringList tst_FormAssociate::associated() const
{
    return QDir(m_program->path("data/mime/packages")).entryList(QDir::Files);
}

void tst_FormAssociate::window_hasItsTexts()
{
    FormAssociate form(m_program->settings, m_program->dialogs, nullptr);
    form.show();
    QCOMPARE(form.objectName(), "FormAssociate");
    QCOMPARE(form.windowTitle(), "ArdiphonPro - CSound Files Association");
    QVERIFY(form.isModal());
    QCOMPARE(form.findChild<QLabel *>("Label1")->text(),
             "Would you like to associate CSound files to ArdiphonPro?");
    QCOMPARE(form.findChild<QLabel *>("Label2")->text(),
             "Note: You can associate/disassociate files later from Menu->File->Settings!");
    QCOMPARE(form.findChild<QPushButton *>("Command2")->text(), "&Yes");
    QCOMPARE(form.findChild<QPushButton *>("Command1")->text(), "&No");
    QCOMPARE(form.minimumSize(), form.maximumSize());
}

void tst_FormAssociate::yes_associatesAndAsksNoMore_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("click") << false;
    QTest::newRow("Alt+Y") << true;
}

void tst_FormAssociate::yes_associatesAndAsksNoMore()
{
    QFETCH(bool, byKey);
    FormAssociate form(m_program->settings, m_program->dialogs, nullptr);
    form.show();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    m_program->dialogs.expect(Executed);
    m_program->dialogs.beforeNextAnswer([&] {
        QCOMPARE(first(), "0");
        QVERIFY(form.isVisible());
    });
    if (byKey)
        CHECKED(QTest::keyClick(&form, Qt::Key_Y, Qt::AltModifier));
    else
        CHECKED(press(form, "Command2"));
    QTRY_VERIFY(!form.isVisible()); // a key lets the button go after a while
    QCOMPARE(m_program->dialogs.verify(), "");
    QCOMPARE(associated(), QStringList({"ardiphon-csound-csd.xml", "ardiphon-csound-orc.xml",
                                        "ardiphon-csound-sco.xml"}));
    for (const QString type : {"csd", "orc", "sco"}) {
        const QByteArray package =
            m_program->read("data/mime/packages/ardiphon-csound-" + type + ".xml");
        const QString comment = "<comment>CSound " + type.toUpper() + " file</comment>";
        QVERIFY2(package.contains(comment.toUtf8()), qPrintable(type));
        QVERIFY2(package.contains(("\"*." + type + "\"").toUtf8()), qPrintable(type));
    }
}

void tst_FormAssociate::yes_withoutUpdater_saysSoAndStaysOpen()
{
    FormAssociate form(m_program->settings, m_program->dialogs, nullptr);
    form.show();
    m_program->dialogs.expect(failed("Association Error!", NoUpdater));
    {
        const EmptySearchPath none;
        press(form, "Command2");
    }
    QCOMPARE(m_program->dialogs.verify(), "");
    QVERIFY(form.isVisible());
    QCOMPARE(first(), "1");
}

void tst_FormAssociate::yes_folderThatCannotBeWritten_namesItAndStaysOpen()
{
    m_program->write("data", "a file where the folder should be");
    FormAssociate form(m_program->settings, m_program->dialogs, nullptr);
    form.show();
    m_program->dialogs.expect(
        failed("Association Error!", m_program->path("data/mime/packages/ardiphon-csound-csd.xml") +
                                         " cannot be written."));
    press(form, "Command2");
    QCOMPARE(m_program->dialogs.verify(), "");
    QVERIFY(form.isVisible());
    QCOMPARE(first(), "1");
    press(form, "Command1");
    QVERIFY(!form.isVisible());
    QCOMPARE(first(), "0");
}

void tst_FormAssociate::no_associatesNothingAndAsksNoMore()
{
    FormAssociate form(m_program->settings, m_program->dialogs, nullptr);
    form.show();
    press(form, "Command1");
    QVERIFY(!form.isVisible());
    QCOMPARE(first(), "0");
    QCOMPARE(associated(), QStringList());
    QCOMPARE(m_program->dialogs.verify(), "");
}

void tst_FormAssociate::esc_leavesTheQuestionForLater()
{
    FormAssociate form(m_program->settings, m_program->dialogs, nullptr);
    form.show();
    QTest::keyClick(&form, Qt::Key_Escape);
    QVERIFY(!form.isVisible());
    QCOMPARE(first(), "1");
    QCOMPARE(associated(), QStringList());
}

void tst_FormAssociate::start_asksUntilAnswered_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("asked");
    QTest::newRow("first start") << "1"
                                 << ""
                                 << "" << true;
    QTest::newRow("answered") << "0"
                              << ""
                              << "" << false;
    QTest::newRow("unset") << ""
                           << ""
                           << "" << false;
    QTest::newRow("with a file") << "1"
                                 << "/m/a.csd"
                                 << "" << false;
    QTest::newRow("with another action") << "1"
                                         << ""
                                         << "CSD" << false;
}

void tst_FormAssociate::start_asksUntilAnswered()
{
    QFETCH(QString, value);
    QFETCH(QString, command);
    QFETCH(QString, action);
    WriteRegistryString(m_program->settings, registry::InstallPathKey, "First", value);
    WriteRegistryString(m_program->settings, registry::SettingsKey, "StartupAction", action);
    Form1 start(m_program->config, m_program->settings, m_program->dialogs, {[] {}, [] {}});
    bool asked = false;
    start.showAssociate = [&](QWidget *owner) {
        asked = true;
        FormAssociate form(m_program->settings, m_program->dialogs, owner);
        QTimer::singleShot(0, &form, [&form] { press(form, "Command1"); });
        form.exec();
    };
    start.Load(command, PROGRAM_DIR, m_program->config.RootPath);
    QTEST(asked, "asked");
    QCOMPARE(start.isVisible(), command.isEmpty() && action.isEmpty());
    QCOMPARE(first(), asked ? QString("0") : value);
}

void tst_FormAssociate::removal_twice_reportsBothTimes()
{
    m_program->dialogs.expect(Executed);
    m_program->dialogs.expect(Removed);
    m_program->dialogs.expect(Removed);
    QVERIFY(associateFiles(m_program->dialogs));
    QVERIFY(removeFilesAssociation(m_program->dialogs));
    QCOMPARE(associated(), QStringList());
    QVERIFY(removeFilesAssociation(m_program->dialogs));
    QCOMPARE(m_program->dialogs.verify(), "");
}

void tst_FormAssociate::removal_withoutUpdater_saysSo()
{
    m_program->dialogs.expect(Executed);
    m_program->dialogs.expect(failed("Remove Association Error!", NoUpdater));
    QVERIFY(associateFiles(m_program->dialogs));
    const EmptySearchPath none;
    QVERIFY(!removeFilesAssociation(m_program->dialogs));
    QCOMPARE(m_program->dialogs.verify(), "");
}

ARDIPHON_TEST(tst_FormAssociate, QApplication)
#include "tst_FormAssociate.moc"
