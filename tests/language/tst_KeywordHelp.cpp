#include "app/ConfigurationBlock.h"
#include "language/WordTables.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/EditorPopup.h"
#include "language/ui/KeywordHelp.h"
#include "support/EditorInput.h"
#include "support/FileBytes.h"
#include "support/ScriptedDialogs.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

namespace {

const Message viewMessage{QStringLiteral("No File associated to Csound Help\r\n"
                                         "Select File->Settings->CSound Help"),
                          QStringLiteral("ArdiphonPro"), MessageIcon::Exclamation,
                          MessageButtons::Ok};
const Message entryMessage{QStringLiteral("No File defined for CSound Help\r\n"
                                          "Please set: File->Settings->CSound Help"),
                           QStringLiteral("ArdiphonPro"), MessageIcon::Exclamation,
                           MessageButtons::Ok};

} // namespace

class tst_KeywordHelp : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void f1_onWord_opensItsPage_data();
    void f1_onWord_opensItsPage();
    void f1_inScore_opensTheFunctionTables();
    void f1_withoutManual_givesMessageAndKeepsHelpWord();
    void f2_opensTheStartPage();
    void f2_withoutManual_givesMessage();
    void popup_overWord_namesItAndOpensItsPage_data();
    void popup_overWord_namesItAndOpensItsPage();
    void popup_inScore_namesTheStatement();
    void popup_withoutManual_givesMessage();
    void entries_openTheirPages();
    void entries_withoutManual_giveMessage();
    void opcodeHelp_forgetsTheWord();
    void htmlHelp_file_goesToTheSystem();
    void manualOfAnotherKind_goesToTheSystem();
    void manualThatIsNone_isShownToBeSo_data();
    void manualThatIsNone_isShownToBeSo();
    void anotherManual_isUsedAtOnce();

private:
    void write(const QString &name, const QByteArray &bytes);
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }
    /// What the viewer was asked for since the last call, "start" standing for the start page.
    QString taken();
    /// A right click at that place; gives the caption of the popup's entry.
    QString openPopup(int line, int column);

    QTemporaryDir m_folder;
    ConfigurationBlock m_config;
    std::unique_ptr<ScriptedDialogs> m_dialogs;
    std::unique_ptr<KeywordHelp> m_help;
    std::unique_ptr<LEditOCX> m_editor;
    std::unique_ptr<QMenu> m_menu;
    DocumentRole m_language = DocumentRole::Csd;
    QStringList m_asked;
};

void tst_KeywordHelp::init()
{
    QByteArray opcodes;
    for (const char *name : {"oscil", "rand", "unexplained"})
        opcodes += QByteArray(name).leftJustified(430);
    write(QStringLiteral("opcode.txt"), opcodes);
    write(QStringLiteral("csd.txt"), "<CsScore>\n");
    write(QStringLiteral("score.txt"), "i\nf\nend\n");
    m_config.Words = std::make_shared<WordTables>();
    m_config.Words->LoadWordTables(m_folder.path());
    for (const char *page : {"oscil", "noise", "f", "gens", "flags", "front", "unified"})
        write(QLatin1String(page) + QStringLiteral(".html"), "<p>a page");
    write(QStringLiteral("noise.html"), "<pre class=\"synopsis\"><strong>rand</strong></pre>");
    write(QStringLiteral("index.html"),
          "<a href=\"oscil.html\">oscil</a> <a href=\"f.html\">f Statement</a>"
          "<a href=\"gens.html\">GEN Routines</a> <a href=\"flags.html\">Csound command line</a>"
          "<a href=\"front.html\">Front Ends</a>"
          "<a href=\"unified.html\">Unified File Format for Orchestras and Scores</a>");
    m_config.FileGuida = path("index.html");
    m_config.HelpWord = QStringLiteral("before");

    m_dialogs = std::make_unique<ScriptedDialogs>();
    m_help = std::make_unique<KeywordHelp>(
        m_config, *m_dialogs,
        HelpViewer{
            [this](const QUrl &page, const QString &startPage) {
                if (startPage != m_config.FileGuida)
                    m_asked.append(QStringLiteral("from ") + startPage);
                m_asked.append(page == QUrl::fromLocalFile(startPage) ? QStringLiteral("start")
                                                                      : page.fileName());
            },
            [this](const QString &file) { m_asked.append(QStringLiteral("system ") + file); }});
    m_editor = std::make_unique<LEditOCX>();
    m_editor->resize(500, 200);
    m_editor->SetText(QStringLiteral("oscil rand Oscil <CsScore> f i\r\n\r\nunexplained other"));
    m_language = DocumentRole::Csd;
    connect(m_editor.get(), &LEditOCX::KeyDown, this, [this](EditorKey &key) {
        if (key.KeyCode == Qt::Key_F1)
            m_help->keyHelp(*m_editor, m_language);
        if (key.KeyCode == Qt::Key_F2)
            m_help->keyIndex();
    });
    m_menu = std::make_unique<QMenu>();
    QAction *const entry = m_menu->addAction(QString());
    connect(entry, &QAction::triggered, this, [this] { m_help->menuPopupOpcodeHelp(); });
    new EditorPopup(*m_editor, *m_menu,
                    [this, entry] { entry->setText(m_help->prepareMenu(*m_editor, m_language)); });
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
}

void tst_KeywordHelp::cleanup()
{
    m_editor.reset();
    m_menu.reset();
    QCOMPARE(m_dialogs->verify(), QString());
    QCOMPARE(taken(), QString());
}

void tst_KeywordHelp::write(const QString &name, const QByteArray &bytes)
{
    writeBytes(m_folder.filePath(name), bytes);
}

QString tst_KeywordHelp::taken() { return std::exchange(m_asked, {}).join(u','); }

QString tst_KeywordHelp::openPopup(int line, int column)
{
    EditorInput::click(*m_editor, line, column, Qt::RightButton);
    if (!QTest::qWaitFor([this] { return m_menu->isVisible(); }))
        return QStringLiteral("no menu");
    return m_menu->actions().constFirst()->text();
}

void tst_KeywordHelp::f1_onWord_opensItsPage_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("helpWord");
    QTest::addColumn<QString>("page");
    QTest::newRow("opcode") << 1 << 2 << "oscil"
                            << "oscil.html";
    QTest::newRow("opcode on another's page") << 1 << 7 << "rand"
                                              << "noise.html";
    QTest::newRow("tag") << 1 << 20 << "<CsScore>"
                         << "unified.html";
    QTest::newRow("other case") << 1 << 13 << ""
                                << "start";
    QTest::newRow("score statement") << 1 << 27 << ""
                                     << "start";
    QTest::newRow("no word") << 2 << 0 << ""
                             << "start";
    QTest::newRow("opcode without a page") << 3 << 2 << "unexplained"
                                           << "start";
    QTest::newRow("unknown word") << 3 << 14 << ""
                                  << "start";
}

void tst_KeywordHelp::f1_onWord_opensItsPage()
{
    QFETCH(int, line);
    QFETCH(int, column);
    EditorInput::goTo(*m_editor, line, column);
    EditorInput::press(*m_editor, Qt::Key_F1);
    QTEST(m_config.HelpWord, "helpWord");
    QTEST(taken(), "page");
}

void tst_KeywordHelp::f1_inScore_opensTheFunctionTables()
{
    m_language = DocumentRole::Score;
    EditorInput::goTo(*m_editor, 1, 2);
    EditorInput::press(*m_editor, Qt::Key_F1);
    QCOMPARE(m_config.HelpWord, QStringLiteral("Gen Routines"));
    QCOMPARE(taken(), QStringLiteral("gens.html"));
}

void tst_KeywordHelp::f1_withoutManual_givesMessageAndKeepsHelpWord()
{
    m_config.FileGuida.clear();
    m_dialogs->expect(viewMessage);
    EditorInput::press(*m_editor, Qt::Key_F1);
    QCOMPARE(m_config.HelpWord, QStringLiteral("before"));
}

void tst_KeywordHelp::f2_opensTheStartPage()
{
    EditorInput::goTo(*m_editor, 2, 0);
    EditorInput::press(*m_editor, Qt::Key_F2);
    QCOMPARE(taken(), QStringLiteral("start"));
    EditorInput::goTo(*m_editor, 1, 2);
    EditorInput::press(*m_editor, Qt::Key_F2);
    QCOMPARE(taken(), QStringLiteral("start"));
    QCOMPARE(m_config.HelpWord, QStringLiteral("before"));
}

void tst_KeywordHelp::f2_withoutManual_givesMessage()
{
    m_config.FileGuida.clear();
    m_dialogs->expect(viewMessage);
    EditorInput::press(*m_editor, Qt::Key_F2);
}

void tst_KeywordHelp::popup_overWord_namesItAndOpensItsPage_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("page");
    QTest::newRow("opcode") << 1 << 2 << "oscil -> Help"
                            << "oscil.html";
    QTest::newRow("tag") << 1 << 20 << "<CsScore> -> Help"
                         << "unified.html";
    QTest::newRow("no word") << 2 << 0 << "Opcode -> Help"
                             << "start";
    QTest::newRow("unknown word") << 3 << 14 << "Opcode -> Help"
                                  << "start";
}

void tst_KeywordHelp::popup_overWord_namesItAndOpensItsPage()
{
    QFETCH(int, line);
    QFETCH(int, column);
    const QString caption = openPopup(line, column);
    QTEST(caption, "caption");
    QCOMPARE(m_config.HelpWord, caption == u"Opcode -> Help" ? QString() : caption.chopped(8));
    QTest::keyClick(m_menu.get(), Qt::Key_Down);
    QTest::keyClick(m_menu.get(), Qt::Key_Return);
    QTEST(taken(), "page");
}

void tst_KeywordHelp::popup_inScore_namesTheStatement()
{
    m_language = DocumentRole::Score;
    QCOMPARE(openPopup(1, 27), QStringLiteral("f (score statement) -> Help"));
    m_menu->actions().constFirst()->trigger();
    QCOMPARE(taken(), QStringLiteral("f.html"));
    m_menu->close();
    QCOMPARE(openPopup(1, 2), QStringLiteral("Opcode -> Help"));
}

void tst_KeywordHelp::popup_withoutManual_givesMessage()
{
    m_config.FileGuida.clear();
    QCOMPARE(openPopup(1, 2), QStringLiteral("oscil -> Help"));
    m_dialogs->expect(viewMessage);
    m_menu->actions().constFirst()->trigger();
}

void tst_KeywordHelp::entries_openTheirPages()
{
    m_help->helpIndex();
    QCOMPARE(taken(), QStringLiteral("start"));
    m_help->csoundAvHelp();
    QCOMPARE(taken(), QStringLiteral("front.html"));
    m_help->flagsHelp();
    QCOMPARE(taken(), QStringLiteral("flags.html"));
    QCOMPARE(m_config.HelpWord, QStringLiteral("before"));
}

void tst_KeywordHelp::entries_withoutManual_giveMessage()
{
    m_config.FileGuida.clear();
    for (void (KeywordHelp::*const entry)() : {&KeywordHelp::helpIndex, &KeywordHelp::csoundAvHelp,
                                               &KeywordHelp::flagsHelp, &KeywordHelp::opcodeHelp}) {
        m_dialogs->expect(entryMessage);
        (m_help.get()->*entry)();
    }
    QCOMPARE(m_config.HelpWord, QStringLiteral("before"));
}

void tst_KeywordHelp::opcodeHelp_forgetsTheWord()
{
    m_help->opcodeHelp();
    QCOMPARE(m_config.HelpWord, QString());
    QCOMPARE(taken(), QStringLiteral("start"));
}

void tst_KeywordHelp::htmlHelp_file_goesToTheSystem()
{
    m_dialogs->expect({QStringLiteral("No File defined for CSoundAV HTML Help\r\n"
                                      "Please set: File->Settings->CSoundAV Help")});
    m_help->htmlHelp();
    QCOMPARE(taken(), QString());
    m_config.FileGuidaHtml = path("av.html");
    m_help->htmlHelp();
    QCOMPARE(taken(), QStringLiteral("system ") + m_config.FileGuidaHtml);
}

void tst_KeywordHelp::manualOfAnotherKind_goesToTheSystem()
{
    write(QStringLiteral("manual.pdf"), "%PDF");
    m_config.FileGuida = path("manual.pdf");
    m_help->helpIndex();
    QCOMPARE(taken(), QStringLiteral("system ") + m_config.FileGuida);
    EditorInput::goTo(*m_editor, 1, 2);
    EditorInput::press(*m_editor, Qt::Key_F1);
    QCOMPARE(taken(), QStringLiteral("system ") + m_config.FileGuida);
}

void tst_KeywordHelp::manualThatIsNone_isShownToBeSo_data()
{
    QTest::addColumn<QString>("manual");
    QTest::newRow("missing page") << path("gone.html");
    QTest::newRow("missing file of another kind") << path("gone.chm");
    QTest::newRow("folder") << m_folder.path();
}

void tst_KeywordHelp::manualThatIsNone_isShownToBeSo()
{
    QFETCH(QString, manual);
    m_config.FileGuida = manual;
    EditorInput::goTo(*m_editor, 1, 2);
    EditorInput::press(*m_editor, Qt::Key_F1);
    EditorInput::press(*m_editor, Qt::Key_F2);
    QCOMPARE(taken(), QStringLiteral("start,start"));
}

void tst_KeywordHelp::anotherManual_isUsedAtOnce()
{
    m_help->flagsHelp();
    QCOMPARE(taken(), QStringLiteral("flags.html"));
    write(QStringLiteral("other.html"), "<a href=\"noise.html\">Csound command line</a>");
    m_config.FileGuida = path("other.html");
    m_help->flagsHelp();
    QCOMPARE(taken(), QStringLiteral("noise.html"));
}

ARDIPHON_TEST(tst_KeywordHelp, QApplication)
#include "tst_KeywordHelp.moc"
