#include "support/Form1Fixture.h"
#include "support/FileBytes.h"
#include "support/Require.h"

using namespace ardiphon;

void Form1Fixture::setUp()
{
    m_form.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_store = std::make_unique<SettingsStore>(m_folder->filePath("settings.ini"));
    m_config = std::make_unique<ConfigurationBlock>();
    m_config->Words = std::make_shared<WordTables>();
    m_dialogs = std::make_unique<ScriptedDialogs>();
    m_shown.clear();
    m_windows = {[this] { m_shown << "FormCSD"; }, [this] { m_shown << "FormORCSCO"; }};
    writeBytes(m_folder->filePath("opcode.txt"), QByteArray("oscil").leftJustified(430, ' '));
}

QString Form1Fixture::tearDown() const { return m_dialogs->verify(); }

void Form1Fixture::load(const QString &commandText)
{
    m_form = std::make_unique<Form1>(*m_config, *m_store, *m_dialogs, m_windows);
    m_form->loadWords = [this](const QString &folder) { m_config->Words->LoadWordTables(folder); };
    m_form->closeWords = [this] { m_config->Words->CloseOpcodeFile(); };
    m_form->showAbout = [this](QWidget *owner) {
        require(owner == m_form.get(), "the start window does not own what it opens");
        m_shown << "FormAbout";
    };
    m_form->showAssociate = [this](QWidget *owner) {
        require(owner == m_form.get() && owner->isVisible(), "the start window is not shown");
        m_shown << "FormAssociate";
    };
    m_form->Load(commandText, m_folder->path(), "/run/folder/");
}

void Form1Fixture::setRecent(int number, const QString &path)
{
    WriteRegistryString(*m_store, registry::RecentFilesKey, QStringLiteral("File%1").arg(number),
                        path);
}

void Form1Fixture::addDocumentRows()
{
    QTest::addColumn<QString>("commandText");
    QTest::addColumn<QString>("window");
    QTest::addColumn<QStringList>("named");

    QTest::newRow("orc") << "/m/a.orc"
                         << "FormORCSCO" << QStringList({"", "/m/a.orc", ""});
    QTest::newRow("SCO") << "/m/a.SCO"
                         << "FormORCSCO" << QStringList({"", "", "/m/a.SCO"});
    QTest::newRow("csd") << "/m/a.csd"
                         << "FormCSD" << QStringList({"/m/a.csd", "", ""});
    QTest::newRow("txt") << "/m/a.txt"
                         << "FormCSD" << QStringList({"/m/a.txt", "", ""});
    QTest::newRow("no extension") << "/m/a"
                                  << "FormCSD" << QStringList({"/m/a", "", ""});
    QTest::newRow("quoted") << "\"/m/a b.orc\""
                            << "FormORCSCO" << QStringList({"", "/m/a b.orc", ""});
}

QStringList Form1Fixture::litPictures() const
{
    QStringList lit;
    for (const PictureButton *each : m_form->findChildren<PictureButton *>())
        if (each->state() == PictureState::Color)
            lit << each->objectName();
    return lit;
}

QList<int> Form1Fixture::litLabels() const
{
    QList<int> lit;
    for (int i = 0; i < 5; ++i)
        if (label(i)->isLit())
            lit << i;
    return lit;
}
