#include "help/ui/FormAbout.h"
#include "help/ui/FormHelp.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QLabel>
#include <QPushButton>
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

/// The two small windows: the key summary and the notices.
class tst_HelpWindows : public QObject
{
    Q_OBJECT

private slots:
    void window_closesOnItsButtonAndOnEsc_data();
    void window_closesOnItsButtonAndOnEsc();
    void help_describesTitleAndNotes();
    void help_describesKeyViewAndAction_data();
    void help_describesKeyViewAndAction();
    void help_hasARowForEachKey();
    void help_describesTheMouse();
    void help_isReadOnly();
    void about_showsBothVersions();
    void about_withoutTable_showsNoVersion();
    void about_isAsNarrowAsEver();

private:
    static void show(QDialog &window);
};

void tst_HelpWindows::show(QDialog &window)
{
    window.show();
    require(QTest::qWaitForWindowExposed(&window), "the window does not show");
}

void tst_HelpWindows::window_closesOnItsButtonAndOnEsc_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("title");
    QTest::newRow("help") << "FormHelp"
                          << "Ardiphon Help";
    QTest::newRow("about") << "FormAbout"
                           << "About Ardiphon";
}

void tst_HelpWindows::window_closesOnItsButtonAndOnEsc()
{
    QFETCH(QString, name);
    for (const bool byKey : {false, true}) {
        std::unique_ptr<QDialog> window;
        if (name == u"FormHelp")
            window = std::make_unique<FormHelp>(nullptr);
        else
            window = std::make_unique<FormAbout>(QStringLiteral("1.0"), nullptr);
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

void tst_HelpWindows::help_describesTitleAndNotes()
{
    FormHelp window(nullptr);
    const QStringList rows = rowsOf(*window.findChild<QTextEdit *>(QStringLiteral("RichTextBox1")));
    QCOMPARE(rows[0], QStringLiteral("ArdiphonPro Help:"));
    QCOMPARE(rows[1], QStringLiteral("To activate the on-line help, select a file for the Csound "
                                     "help under File->Settings->CSound Help."));
    QCOMPARE(rows[2], QStringLiteral("As console compiler, use only Csound_con_xxx (Consound.exe), "
                                     "not csound_new."));
}

void tst_HelpWindows::help_describesKeyViewAndAction_data()
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

void tst_HelpWindows::help_describesKeyViewAndAction()
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

void tst_HelpWindows::help_describesTheMouse()
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

void tst_HelpWindows::about_showsBothVersions()
{
    const QString version = QStringLiteral("Csound 9, 7 words").leftJustified(230);
    FormAbout window(version, nullptr);
    QCOMPARE(window.findChild<QLabel *>(QStringLiteral("Label8"))->text(),
             QStringLiteral("Version " ARDIPHON_VERSION));
    QCOMPARE(window.findChild<QLabel *>(QStringLiteral("lbl_Aggiornamento"))->text(),
             QStringLiteral("Opcode On-Line Help Version ") + version);
}

void tst_HelpWindows::about_withoutTable_showsNoVersion()
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

ARDIPHON_TEST(tst_HelpWindows, QApplication)
#include "tst_HelpWindows.moc"
