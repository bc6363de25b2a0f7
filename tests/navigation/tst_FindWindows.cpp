// Searching in an editor, and going to a line of it, with keys and clicks.

#include "OpenedWindow.h"
#include "support/TestMain.h"

#include <QClipboard>

using namespace ardiphon;
using namespace EditorInput;

namespace {

const Message NoLine{QStringLiteral("No valid Line number!"), QStringLiteral("Error"),
                     MessageIcon::Exclamation};

} // namespace

class tst_FindWindows : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(visibleWindows(), 0); }

    void find_emptyText_doesNothing();
    void find_enter_movesOn();
    void find_directions_data();
    void find_directions();
    void find_caretWithinTheOnlyMatch_findsIt();
    void find_insideALongerWord_isNoMatchAsDefault();
    void find_turningRound_leavesLongerWordsWhole();
    void find_miss_changesNothing();
    void find_typingMeanwhile_startsAtTheCaret();
    void find_specialCharacters_meanThemselves_data();
    void find_specialCharacters_meanThemselves();
    void find_pastedLineEnds_match();
    void find_hugeText_isSearchedWhole();
    void find_hugeSelection_opensAtOnce();
    void line_number_selectsTheLineAndCloses_data();
    void line_number_selectsTheLineAndCloses();
    void line_noNumber_saysSoAndStays_data();
    void line_noNumber_saysSoAndStays();
};

void tst_FindWindows::find_emptyText_doesNothing()
{
    EditorPair project(QStringLiteral("text"), QString());
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened search(project.window, SearchKind::Find);
    search.box("Option2")->setFocus();
    QTest::keyClick(search.box("Option2"), Qt::Key_Return); // presses Find
    QCOMPARE(focusName(), QStringLiteral("Option2"));
    QCOMPARE(selection(*project.first), QStringLiteral("1:0-1:0"));
    QCOMPARE(project.dialogs.verify(), QString());
}

void tst_FindWindows::find_enter_movesOn()
{
    EditorPair project(QStringLiteral("sig a\r\nsig b\r\nSIG c"), QString());
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened search(project.window, SearchKind::Find);
    search.type(QStringLiteral("sig"));
    for (const char *match : {"1:0-1:3", "2:0-2:3", "3:0-3:3", "1:0-1:3"}) {
        QTest::keyClick(search.text(), Qt::Key_Return);
        QCOMPARE(selection(*project.first), QLatin1String(match));
        QCOMPARE(focusName(), QStringLiteral("Text1"));
    }
    search.click("Command1");
    QCOMPARE(selection(*project.first), QStringLiteral("2:0-2:3"));
    QCOMPARE(focusName(), QStringLiteral("Text1"));
    QTest::keyClick(search.text(), Qt::Key_F, Qt::AltModifier);
    QTRY_COMPARE(selection(*project.first), QStringLiteral("3:0-3:3"));
    QTest::keyClick(search.text(), Qt::Key_X, Qt::AltModifier);
    QTRY_VERIFY(!search.window);
}

void tst_FindWindows::find_directions_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QStringList>("matches"); // "" is a miss
    QTest::newRow("up") << "Option1" << QStringList{"2:0-2:1", "1:0-1:1", ""};
    QTest::newRow("down") << "Option2" << QStringList{"4:0-4:1", "5:0-5:1", ""};
    QTest::newRow("both") << "Option3"
                          << QStringList{"4:0-4:1", "5:0-5:1", "1:0-1:1", "2:0-2:1", "3:0-3:1"};
}

void tst_FindWindows::find_directions()
{
    QFETCH(QString, option);
    QFETCH(QStringList, matches);
    EditorPair project(QStringLiteral("x\r\nx\r\nx\r\nx\r\nx"), QString());
    select(*project.first, 3, 0, 3, 1);
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened search(project.window, SearchKind::Find);
    QCOMPARE(search.text()->text(), QStringLiteral("x"));
    search.choose(qPrintable(option));
    QString last;
    for (const QString &match : matches) {
        if (match.isEmpty())
            project.dialogs.expect(NoMatches);
        else
            last = match;
        search.click("Command1");
        QCOMPARE(selection(*project.first), last);
    }
    QCOMPARE(project.dialogs.verify(), QString());
}

void tst_FindWindows::find_caretWithinTheOnlyMatch_findsIt()
{
    const QString match = QString::fromUtf8("\u20ac\u00e9\u00e9\u20ac");
    EditorPair project("a " + match + match, QString());
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened search(project.window, SearchKind::Find);
    search.text()->setText(match + match);
    search.choose("Check1");
    for (int column = 2; column <= 10; ++column) {
        goTo(*project.first, 1, column);
        search.click("Command1");
        QCOMPARE(selection(*project.first), QStringLiteral("1:2-1:10"));
    }
}

void tst_FindWindows::find_insideALongerWord_isNoMatchAsDefault()
{
    EditorPair project(QStringLiteral("instrument my_instr instr2"), QString());
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened search(project.window, SearchKind::Find);
    search.type(QStringLiteral("instr"));
    project.dialogs.expect(NoMatches);
    search.click("Command1");
    QCOMPARE(focusName(), QStringLiteral("Text1"));
    search.choose("Check1");
    search.click("Command1");
    QCOMPARE(selection(*project.first), QStringLiteral("1:0-1:5"));
    QCOMPARE(project.dialogs.verify(), QString());
}

void tst_FindWindows::find_turningRound_leavesLongerWordsWhole()
{
    EditorPair project(QStringLiteral("0123 5678 0123  betas"), QString());
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened search(project.window, SearchKind::Find);
    search.type(QStringLiteral("beta"));
    for (int column = 0; column <= 21; ++column) {
        for (const char *option : {"Option1", "Option2", "Option3"}) {
            goTo(*project.first, 1, column);
            search.choose(option);
            project.dialogs.expect(NoMatches);
            search.click("Command1");
            QCOMPARE(selection(*project.first), QStringLiteral("1:%1-1:%1").arg(column));
        }
    }
    QCOMPARE(project.dialogs.verify(), QString());
}

void tst_FindWindows::find_miss_changesNothing()
{
    EditorPair project(QStringLiteral("one two three"), QString());
    select(*project.first, 1, 4, 1, 7);
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened search(project.window, SearchKind::Find);
    search.type(QStringLiteral("four"));
    for (const char *option : {"Option1", "Option2", "Option3"}) {
        search.choose(option);
        project.dialogs.expect(NoMatches);
        search.click("Command1");
        QCOMPARE(selection(*project.first), QStringLiteral("1:4-1:7"));
    }
    QCOMPARE(project.dialogs.verify(), QString());
}

void tst_FindWindows::find_typingMeanwhile_startsAtTheCaret()
{
    EditorPair project(QStringLiteral("x\r\nx\r\nx\r\n"), QString());
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened search(project.window, SearchKind::Find);
    search.type(QStringLiteral("x"));
    search.choose("Option2");
    search.click("Command1");
    QCOMPARE(selection(*project.first), QStringLiteral("1:0-1:1"));
    goTo(*project.first, 2, 1);
    type(*project.first, QStringLiteral(" x "));
    search.click("Command1");
    QCOMPARE(selection(*project.first), QStringLiteral("3:0-3:1"));
}

void tst_FindWindows::find_specialCharacters_meanThemselves_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {".*", "[a-z]", "\\d+", "^x$", "(a|b)", "?", "$HALL.", "\\n", "a{2}"})
        QTest::newRow(text) << text;
}

void tst_FindWindows::find_specialCharacters_meanThemselves()
{
    QFETCH(QString, text);
    EditorPair project("abc 1 n aa ab x HALL\r\n" + text, QString());
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened search(project.window, SearchKind::Find);
    search.type(text);
    search.click("Command1");
    QCOMPARE(selection(*project.first), QStringLiteral("2:0-2:%1").arg(text.size()));
}

void tst_FindWindows::find_pastedLineEnds_match()
{
    EditorPair project(QStringLiteral("a\r\nb\r\nc"), QString());
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened search(project.window, SearchKind::Find);
    QApplication::clipboard()->setText(QStringLiteral("b\nc"));
    QTest::keyClick(search.text(), Qt::Key_V, Qt::ControlModifier);
    search.click("Command1");
    QCOMPARE(selection(*project.first), QStringLiteral("2:0-3:1"));
}

void tst_FindWindows::find_hugeText_isSearchedWhole()
{
    QString huge;
    for (int i = 0; huge.size() < 100'000; ++i)
        huge += QString::number(i) + u' ';
    huge.truncate(100'000);
    EditorPair project(huge + "z\r\n" + huge + "y", QString());
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened search(project.window, SearchKind::Find);
    QApplication::clipboard()->setText(huge + u'y');
    QTest::keyClick(search.text(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(search.text()->text().size(), 100'001);
    search.click("Command1");
    QCOMPARE(selection(*project.first), QStringLiteral("2:0-2:100001"));
}

void tst_FindWindows::find_hugeSelection_opensAtOnce()
{
    QString lines;
    for (int i = 0; i < 100'000; ++i)
        lines += QStringLiteral("kamp line 0, p3, 1\r\n");
    EditorPair project(lines, QString());
    project.first->SelectAll();
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened search(project.window, SearchKind::Find);
    QCOMPARE(search.text()->text(), lines.left(LongestFieldText));
}

void tst_FindWindows::line_number_selectsTheLineAndCloses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("selected");
    QTest::newRow("12") << "12"
                        << "12:0-12:7";
    QTest::newRow("blanks") << " 12 "
                            << "12:0-12:7";
    QTest::newRow("rounded") << "11.6"
                             << "12:0-12:7";
    QTest::newRow("exponent") << "1e1"
                              << "10:0-10:7";
    QTest::newRow("the last") << "20"
                              << "20:0-20:7";
    QTest::newRow("beyond the last") << "21"
                                     << "20:7-20:7";
    QTest::newRow("1e3") << "1e3"
                         << "20:7-20:7";
    QTest::newRow("very large") << "99999999999"
                                << "20:7-20:7";
    QTest::newRow("zero") << "0"
                          << "1:0-1:0";
    QTest::newRow("negative") << "-5"
                              << "1:0-1:0";
}

void tst_FindWindows::line_number_selectsTheLineAndCloses()
{
    QFETCH(QString, text);
    QStringList lines;
    for (int line = 1; line <= 20; ++line)
        lines.append(QStringLiteral("line %1").arg(line, 2, 10, QLatin1Char('0')));
    EditorPair project(lines.join("\r\n"), lines.join("\r\n"));
    project.elsewhere->setFocus();
    project.search->open(SearchKind::FindLine, ScoreCaller);
    const Opened search(project.window, SearchKind::FindLine);
    QTest::keyClicks(search.text(), text);
    QTest::keyClick(search.text(), Qt::Key_Return);
    QTRY_VERIFY(!search.window);
    QTEST(selection(*project.second), "selected");
    QCOMPARE(selection(*project.first), QStringLiteral("1:0-1:0"));
    QTRY_VERIFY(project.second->hasFocus());
    QCOMPARE(project.dialogs.verify(), QString());
}

void tst_FindWindows::line_noNumber_saysSoAndStays_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"", " ", "abc", "12a", "1 2", "0x1", "--1"})
        QTest::addRow("'%s'", text) << text;
}

void tst_FindWindows::line_noNumber_saysSoAndStays()
{
    EditorPair project(QStringLiteral("a\r\nb"), QString());
    project.search->open(SearchKind::FindLine, OrchestraCaller);
    const Opened search(project.window, SearchKind::FindLine);
    QFETCH(QString, text);
    search.type(text);
    project.dialogs.expect(NoLine);
    QTest::keyClick(search.text(), Qt::Key_F, Qt::AltModifier);
    QTRY_COMPARE(project.dialogs.verify(), QString());
    QVERIFY(search.window->isVisible());
    QCOMPARE(focusName(), QStringLiteral("Text1"));
    QCOMPARE(selection(*project.first), QStringLiteral("1:0-1:0"));
}

ARDIPHON_TEST(tst_FindWindows, QApplication)
#include "tst_FindWindows.moc"
