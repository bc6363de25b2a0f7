#include "support/Form1Fixture.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QScreen>

using namespace ardiphon;

/// What the start does, up to the editor window or the chooser.
class tst_Form1 : public Form1Fixture
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { QCOMPARE(tearDown(), QString()); }

    void load_fillsEverythingBeforeTheWindowShows();
    void load_commandLine_opensWithoutChooser_data();
    void load_commandLine_opensWithoutChooser();
    void load_startupAction_opensEmptyDocument_data();
    void load_startupAction_opensEmptyDocument();
    void load_otherStartupAction_showsChooser_data();
    void load_otherStartupAction_showsChooser();
    void load_chooser_setsSmallGeometry();
    void associate_isAskedOverTheChooserOnly_data();
    void associate_isAskedOverTheChooserOnly();
};

void tst_Form1::load_fillsEverythingBeforeTheWindowShows()
{
    WriteRegistryString(*m_store, registry::SettingsKey, "TabSize", "4");
    m_config->MarginLeft = 1;
    m_config->WindowMaximized = false;
    m_config->FormCSDClosing = true;
    m_config->WindowLeft = m_config->WindowTop = 99;
    m_windows.showFormCSD = [this] {
        m_shown << "FormCSD";
        QCOMPARE(m_config->TabSize, "4");
        QCOMPARE(m_config->MarginLeft, 10);
        QVERIFY(m_config->WindowMaximized);
        QVERIFY(!m_config->FormCSDClosing);
        QCOMPARE(m_config->Words->OpcodeCount, 1);
        QVERIFY(m_config->Words->ReadOpcodeRecord(1));
        QCOMPARE(m_config->RootPath, "/run/folder/");
        QVERIFY(QFileInfo(m_config->ProgramFolder).isWritable());
        const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
        QCOMPARE(m_config->WorkArea, area);
        QCOMPARE(m_config->WindowLeft, 0);
        QCOMPARE(m_config->WindowTop, 0);
        QCOMPARE(m_config->WindowWidth, (area.left() + area.width()) * 15);
        QCOMPARE(m_config->WindowHeight, (area.top() + area.height()) * 15);
    };
    CHECKED(load("/m/piece.csd"));
    QCOMPARE(m_shown, QStringList("FormCSD"));
}

void tst_Form1::load_commandLine_opensWithoutChooser_data() { addDocumentRows(); }

void tst_Form1::load_commandLine_opensWithoutChooser()
{
    QFETCH(QString, commandText);
    QFETCH(QString, window);
    load(commandText);
    QCOMPARE(m_shown, QStringList(window));
    QTEST(names(), "named");
    QVERIFY(!m_form->isVisible());
    QVERIFY(!picture("picCSD"));
}

void tst_Form1::load_startupAction_opensEmptyDocument_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("window");

    QTest::newRow("CSD") << "CSD"
                         << "FormCSD";
    QTest::newRow("ORCSCO") << "ORCSCO"
                            << "FormORCSCO";
}

void tst_Form1::load_startupAction_opensEmptyDocument()
{
    QFETCH(QString, action);
    QFETCH(QString, window);
    WriteRegistryString(*m_store, registry::SettingsKey, "StartupAction", action);
    load();
    QCOMPARE(m_shown, QStringList(window));
    QCOMPARE(names(), QStringList({"", "", ""}));
    QVERIFY(!m_form->isVisible());
}

void tst_Form1::load_otherStartupAction_showsChooser_data()
{
    QTest::addColumn<QString>("action");

    QTest::newRow("STARTWINDOW") << "STARTWINDOW";
    QTest::newRow("empty") << "";
    QTest::newRow("unknown") << "SOMETHING";
}

void tst_Form1::load_otherStartupAction_showsChooser()
{
    QFETCH(QString, action);
    WriteRegistryString(*m_store, registry::SettingsKey, "StartupAction", action);
    load();
    QVERIFY(m_form->isVisible());
    QCOMPARE(m_shown, QStringList());
}

void tst_Form1::load_chooser_setsSmallGeometry()
{
    load();
    QCOMPARE(m_config->WindowLeft, 0);
    QCOMPARE(m_config->WindowTop, 0);
    QCOMPARE(m_config->WindowWidth, 700);
    QCOMPARE(m_config->WindowHeight, 500);
    QVERIFY(m_config->WindowMaximized);
}

void tst_Form1::associate_isAskedOverTheChooserOnly_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("commandText");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QStringList>("shown");

    QTest::newRow("chooser") << "1"
                             << ""
                             << "STARTWINDOW" << QStringList("FormAssociate");
    QTest::newRow("answered before") << "0"
                                     << ""
                                     << "STARTWINDOW" << QStringList();
    QTest::newRow("no value") << ""
                              << ""
                              << "STARTWINDOW" << QStringList();
    QTest::newRow("command line") << "1"
                                  << "/m/a.csd"
                                  << "STARTWINDOW" << QStringList("FormCSD");
    QTest::newRow("startup action") << "1"
                                    << ""
                                    << "ORCSCO" << QStringList("FormORCSCO");
}

void tst_Form1::associate_isAskedOverTheChooserOnly()
{
    QFETCH(QString, first);
    QFETCH(QString, commandText);
    QFETCH(QString, action);
    WriteRegistryString(*m_store, registry::InstallPathKey, "First", first);
    WriteRegistryString(*m_store, registry::SettingsKey, "StartupAction", action);
    load(commandText);
    QTEST(m_shown, "shown");
}

ARDIPHON_TEST(tst_Form1, QApplication)
#include "tst_Form1.moc"
