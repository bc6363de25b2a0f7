#include "app/ConfigurationBlock.h"
#include "preferences/ui/FolderTree.h"
#include "preferences/ui/FormAbout.h"
#include "preferences/ui/FormDirectory.h"
#include "preferences/ui/FormHelp.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <QTextTable>

using namespace ardiphon;

namespace {

QStringList rowsOf(QTextEdit &text)
{
    // A table's cells are paragraphs of their own.
    return text.toPlainText().split(u'\n', Qt::SkipEmptyParts);
}

} // namespace

/// The three small windows: the key summary, the notices, the working directory.
class tst_HelpWindows : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void window_closesOnItsButtonAndOnEsc_data();
    void window_closesOnItsButtonAndOnEsc();
    void help_tellsTitleAndNotes();
    void help_tellsKeyViewAndAction_data();
    void help_tellsKeyViewAndAction();
    void help_hasARowForEachKey();
    void help_tellsTheMouse();
    void help_isReadOnly();
    void about_tellsBothVersions();
    void about_withoutTable_tellsNoVersion();
    void about_isAsNarrowAsEver();
    void directory_empty_becomesTheRoot();
    void directory_showsWhereItIs();
    void directory_thatIsGone_staysWithoutMessage();
    void directory_hidden_isShown();
    void directory_moving_choosesAtOnce();
    void directory_click_choosesAtOnce();
    void directory_closing_keepsTheChoice_data();
    void directory_closing_keepsTheChoice();
    void directory_unreadable_isEmpty();

private:
    static void show(QDialog &window);
    QString inFolder(const char *name) const { return m_folder->filePath(QLatin1String(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
    ConfigurationBlock m_config;
};

void tst_HelpWindows::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    for (const char *name : {"alpha/inner", "Beta", ".hidden/deep"})
        QVERIFY(QDir().mkpath(inFolder(name)));
    m_config.WorkingDirectory = m_folder->path();
}

void tst_HelpWindows::show(QDialog &window)
{
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
}

void tst_HelpWindows::window_closesOnItsButtonAndOnEsc_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("title");
    QTest::newRow("help") << "FormHelp"
                          << "Ardiphon Help";
    QTest::newRow("about") << "FormAbout"
                           << "About Ardiphon";
    QTest::newRow("directory") << "FormDirectory"
                               << "Working Directory";
}

void tst_HelpWindows::window_closesOnItsButtonAndOnEsc()
{
    QFETCH(QString, name);
    for (const bool byKey : {false, true}) {
        std::unique_ptr<QDialog> window;
        if (name == u"FormHelp")
            window = std::make_unique<FormHelp>(nullptr);
        else if (name == u"FormAbout")
            window = std::make_unique<FormAbout>(QStringLiteral("1.0"), nullptr);
        else
            window = std::make_unique<FormDirectory>(m_config, nullptr);
        show(*window);
        QCOMPARE(window->objectName(), name);
        QTEST(window->windowTitle(), "title");
        QVERIFY(window->isModal());
        QCOMPARE(window->minimumSize(), window->maximumSize());
        auto *const Command1 = window->findChild<QPushButton *>(QStringLiteral("Command1"));
        QCOMPARE(Command1->text(), QStringLiteral("&OK"));
        if (byKey)
            QTest::keyClick(window.get(), Qt::Key_Escape);
        else
            QTest::mouseClick(Command1, Qt::LeftButton);
        QVERIFY(!window->isVisible());
    }
}

void tst_HelpWindows::help_tellsTitleAndNotes()
{
    FormHelp window(nullptr);
    const QStringList rows = rowsOf(*window.findChild<QTextEdit *>(QStringLiteral("RichTextBox1")));
    QCOMPARE(rows[0], QStringLiteral("ArdiphonPro Help:"));
    QCOMPARE(rows[1], QStringLiteral("To activate the on-line help, select a file for the Csound "
                                     "help under File->Settings->CSound Help."));
    QCOMPARE(rows[2], QStringLiteral("As console compiler, use only Csound_con_xxx (Consound.exe), "
                                     "not csound_new."));
}

void tst_HelpWindows::help_tellsKeyViewAndAction_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("action");
    const auto add = [](const char *key, const char *view, const char *action) {
        QTest::addRow("%s %s", key, view)
            << QString::fromLatin1(key) << QString::fromLatin1(view) << QString::fromLatin1(action);
    };
    add("F1", "",
        "If the caret is on opcode words, launch the Csound help for the related opcode; if it "
        "isn't, launch the Csound help index");
    add("F2", "", "Start Csound Help");
    add("F3", "", "Start Csound Console Compiler");
    add("F4", "", "Start CSoundAV");
    add("F5", "Csd view", "Go to first instrument");
    add("F8", "Csd view", "Go to last instrument");
    add("F5", "Orc/Sco view", "Horizontal view");
    add("F9", "Orc/Sco view", "Refresh windows");
    add("F12", "Orc/Sco view", "Move caret to Score");
    add("F11", "Csd view", "When split is active, move the caret to the first window");
    add("CTRL + 3", "", "Show/Hide On-Line Opcode help");
    add("CTRL + 6", "", "Restore All tools");
    add("CTRL + 7", "Orc/Sco view only", "Show/Hide Instrument search");
    add("CTRL + P", "", "Print File");
    add("Ctrl+Alt+Z", "", "Redo");
    add("CTRL + H", "", "Find & Replace");
    add("CTRL + UP", "", "to the beginning of paragraph");
    add("CTRL + PGDN", "", "to the end of the visible text");
    add("CTRL + Y", "", "deletes one line");
    add("CTRL + L", "", "one word to left");
    add("CTRL + D", "", "to the end of the visible text");
}

void tst_HelpWindows::help_tellsKeyViewAndAction()
{
    QFETCH(QString, key);
    QFETCH(QString, view);
    QFETCH(QString, action);
    FormHelp window(nullptr);
    const QStringList lines =
        window.findChild<QTextEdit *>(QStringLiteral("RichTextBox1"))->toPlainText().split(u'\n');
    bool found = false;
    for (qsizetype i = 0; i + 2 < lines.size(); ++i)
        found = found || (lines[i] == key && lines[i + 1] == view && lines[i + 2] == action);
    QVERIFY(found);
}

void tst_HelpWindows::help_hasARowForEachKey()
{
    FormHelp window(nullptr);
    const auto *const text = window.findChild<QTextEdit *>(QStringLiteral("RichTextBox1"));
    int tables = 0;
    for (auto frame = text->document()->rootFrame()->begin(); !frame.atEnd(); ++frame)
        if (const auto *const table = qobject_cast<QTextTable *>(frame.currentFrame())) {
            ++tables;
            QCOMPARE(table->rows(), 51);
            QCOMPARE(table->columns(), 3);
        }
    QCOMPARE(tables, 1);
}

void tst_HelpWindows::help_tellsTheMouse()
{
    FormHelp window(nullptr);
    const QStringList rows = rowsOf(*window.findChild<QTextEdit *>(QStringLiteral("RichTextBox1")));
    QCOMPARE(rows.mid(rows.size() - 2),
             (QStringList{QStringLiteral("Left click on Opcode to view parameters"),
                          QStringLiteral("Right click to view popup menu (here you can launch "
                                         "Csound Opcode Help)")}));
}

void tst_HelpWindows::help_isReadOnly()
{
    FormHelp window(nullptr);
    show(window);
    auto *const text = window.findChild<QTextEdit *>(QStringLiteral("RichTextBox1"));
    const QString before = text->toPlainText();
    QTest::keyClicks(text, QStringLiteral("typed"));
    QTest::keyClick(text, Qt::Key_Delete);
    QCOMPARE(text->toPlainText(), before);
}

void tst_HelpWindows::about_tellsBothVersions()
{
    const QString version = QStringLiteral("Csound 9, 7 words").leftJustified(230);
    FormAbout window(version, nullptr);
    QCOMPARE(window.findChild<QLabel *>(QStringLiteral("Label8"))->text(),
             QStringLiteral("Version 2.3.0"));
    QCOMPARE(window.findChild<QLabel *>(QStringLiteral("lbl_Aggiornamento"))->text(),
             QStringLiteral("Opcode On-Line Help Version ") + version);
}

void tst_HelpWindows::about_withoutTable_tellsNoVersion()
{
    FormAbout window(QString(), nullptr);
    QCOMPARE(window.findChild<QLabel *>(QStringLiteral("lbl_Aggiornamento"))->text(),
             QStringLiteral("Opcode On-Line Help Version "));
}

void tst_HelpWindows::about_isAsNarrowAsEver()
{
    // The padding of the version and a table of random bytes must not widen the window.
    FormAbout plain(QStringLiteral("1.0"), nullptr);
    FormAbout padded(QStringLiteral("1.0").leftJustified(230), nullptr);
    FormAbout odd(QString(230, u'<') + QStringLiteral("\x01\n\xff"), nullptr);
    QCOMPARE(padded.width(), plain.width());
    QCOMPARE(padded.height(), plain.height());
    QCOMPARE(odd.width(), plain.width());
}

void tst_HelpWindows::directory_empty_becomesTheRoot()
{
    m_config.WorkingDirectory.clear();
    FormDirectory window(m_config, nullptr);
    QCOMPARE(m_config.WorkingDirectory, QStringLiteral("/"));
    QCOMPARE(window.findChild<QLineEdit *>(QStringLiteral("Text1"))->text(), QStringLiteral("/"));
    QCOMPARE(window.findChild<FolderTree *>(QStringLiteral("Dir1"))->path(), QStringLiteral("/"));
}

void tst_HelpWindows::directory_showsWhereItIs()
{
    FormDirectory window(m_config, nullptr);
    auto *const Dir1 = window.findChild<FolderTree *>(QStringLiteral("Dir1"));
    auto *const Text1 = window.findChild<QLineEdit *>(QStringLiteral("Text1"));
    QCOMPARE(Dir1->path(), m_folder->path());
    QCOMPARE(Text1->text(), m_folder->path());
    QVERIFY(Text1->isReadOnly());
    QCOMPARE(window.findChild<QLabel *>(QStringLiteral("Label1"))->text(),
             QStringLiteral("Selected Directory:"));
    QStringList names;
    for (int i = 0; i < Dir1->currentItem()->childCount(); ++i)
        names.append(Dir1->currentItem()->child(i)->text(0));
    QCOMPARE(names, (QStringList{QStringLiteral("alpha"), QStringLiteral("Beta")}));
}

void tst_HelpWindows::directory_thatIsGone_staysWithoutMessage()
{
    const QString gone = inFolder("gone");
    m_config.WorkingDirectory = gone;
    FormDirectory window(m_config, nullptr);
    show(window);
    auto *const Dir1 = window.findChild<FolderTree *>(QStringLiteral("Dir1"));
    QCOMPARE(Dir1->path(), QDir::currentPath());
    QCOMPARE(m_config.WorkingDirectory, gone);
    QCOMPARE(window.findChild<QLineEdit *>(QStringLiteral("Text1"))->text(), gone);
    QVERIFY(!QApplication::activeModalWidget() || QApplication::activeModalWidget() == &window);
}

void tst_HelpWindows::directory_hidden_isShown()
{
    m_config.WorkingDirectory = inFolder(".hidden/deep");
    FormDirectory window(m_config, nullptr);
    QCOMPARE(window.findChild<FolderTree *>(QStringLiteral("Dir1"))->path(),
             inFolder(".hidden/deep"));
}

void tst_HelpWindows::directory_moving_choosesAtOnce()
{
    FormDirectory window(m_config, nullptr);
    show(window);
    auto *const Dir1 = window.findChild<FolderTree *>(QStringLiteral("Dir1"));
    auto *const Text1 = window.findChild<QLineEdit *>(QStringLiteral("Text1"));
    const auto press = [&](Qt::Key key, const QString &expected) {
        QTest::keyClick(Dir1, key);
        QCOMPARE(m_config.WorkingDirectory, expected);
        QCOMPARE(Text1->text(), expected);
    };
    press(Qt::Key_Down, inFolder("alpha"));
    press(Qt::Key_Right, inFolder("alpha")); // opens it
    press(Qt::Key_Down, inFolder("alpha/inner"));
    press(Qt::Key_Down, inFolder("Beta"));
    press(Qt::Key_Left, m_folder->path());
}

void tst_HelpWindows::directory_click_choosesAtOnce()
{
    FormDirectory window(m_config, nullptr);
    show(window);
    auto *const Dir1 = window.findChild<FolderTree *>(QStringLiteral("Dir1"));
    QTreeWidgetItem *const beta = Dir1->currentItem()->child(1);
    Dir1->scrollToItem(beta);
    QTest::mouseClick(Dir1->viewport(), Qt::LeftButton, {}, Dir1->visualItemRect(beta).center());
    QCOMPARE(m_config.WorkingDirectory, inFolder("Beta"));
}

void tst_HelpWindows::directory_closing_keepsTheChoice_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("Esc") << true;
    QTest::newRow("OK") << false;
}

void tst_HelpWindows::directory_closing_keepsTheChoice()
{
    QFETCH(bool, byKey);
    FormDirectory window(m_config, nullptr);
    show(window);
    QTest::keyClick(window.findChild<FolderTree *>(QStringLiteral("Dir1")), Qt::Key_Down);
    if (byKey)
        QTest::keyClick(&window, Qt::Key_Escape);
    else
        QTest::mouseClick(window.findChild<QPushButton *>(QStringLiteral("Command1")),
                          Qt::LeftButton);
    QVERIFY(!window.isVisible());
    QCOMPARE(m_config.WorkingDirectory, inFolder("alpha"));
}

void tst_HelpWindows::directory_unreadable_isEmpty()
{
    FolderTree tree(nullptr);
    QVERIFY(!tree.setPath(QString()));
    QVERIFY(!tree.setPath(inFolder("gone")));
    QVERIFY(tree.setPath(inFolder("alpha/inner/..")));
    QCOMPARE(tree.path(), inFolder("alpha"));
    QVERIFY(tree.setPath(inFolder("Beta")));
    QCOMPARE(tree.currentItem()->childCount(), 0);
    // A folder that goes while the window is open reads as empty.
    QVERIFY(QDir(inFolder("alpha/inner")).removeRecursively());
    QTreeWidgetItem *const inner = tree.currentItem()->parent()->child(0)->child(0);
    inner->setExpanded(true);
    QCOMPARE(inner->childCount(), 0);
}

QTEST_MAIN(tst_HelpWindows)
#include "tst_HelpWindows.moc"
