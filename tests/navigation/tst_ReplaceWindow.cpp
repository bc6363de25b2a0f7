// The four buttons of the replace window.

#include "OpenedWindow.h"
#include "support/TestMain.h"

#include <QScreen>

using namespace ardiphon;
using namespace EditorInput;

class tst_ReplaceWindow : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(visibleWindows(), 0); }

    void replace_find_goesRoundTheText();
    void replace_nothingSelected_doesNothing();
    void replace_selection_isOverwrittenWhateverTheText();
    void replace_emptyText_buttons();
    void replaceAll_everyMatch_isOneStep();
    void replaceAll_miss_saysSo();
    void replaceFromCaret_onlyBehindTheCaret();
    void replaceFromCaret_noMatch_beepsOnce();
    void replaceFromCaret_linesOfTheSelection_stay();
    void replaceFromCaret_undo_takesOneBack();
    void replaceFromCaret_isSeenAndTheViewLives();
    void replace_emptyReplacement_deletes();
    void replace_everyPairOfTexts_ends_data();
    void replace_everyPairOfTexts_ends();
    void replace_wholeWord_leavesLongerWordsWhole();
    void replace_wholeWordOff_findsInside();
    void replace_accessKeys_pressButtons();
    void replace_splitView_isCopied();
};

void tst_ReplaceWindow::replace_find_goesRoundTheText()
{
    EditorPair project(QStringLiteral("x 1\r\nx 2"), QString());
    goTo(*project.first, 1, 1);
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("x"));
    for (const char *match : {"2:0-2:1", "1:0-1:1"}) {
        QTest::keyClick(search.text(), Qt::Key_Return);
        QCOMPARE(selection(*project.first), QLatin1String(match));
        QCOMPARE(focusName(), QStringLiteral("Text1"));
    }
    search.type(QStringLiteral("y"));
    project.dialogs.expect(NoMatches);
    search.click("Command5");
    QCOMPARE(selection(*project.first), QStringLiteral("1:0-1:1"));
    QCOMPARE(project.dialogs.verify(), QString());
    QCOMPARE(project.first->Text(), QStringLiteral("x 1\r\nx 2"));
}

void tst_ReplaceWindow::replace_nothingSelected_doesNothing()
{
    EditorPair project(QStringLiteral("x"), QString());
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("x"));
    search.type(QStringLiteral("y"), "Text2");
    search.click("Command2");
    QCOMPARE(project.first->Text(), QStringLiteral("x"));
    QVERIFY(!project.first->GetState(TextState));
    QCOMPARE(project.dialogs.verify(), QString());
    QCOMPARE(project.beeps, 0);
}

void tst_ReplaceWindow::replace_selection_isOverwrittenWhateverTheText()
{
    EditorPair project(QStringLiteral("one two three"), QString());
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("three"));
    search.type(QStringLiteral("2"), "Text2");
    select(*project.first, 1, 4, 1, 7);
    search.click("Command2");
    QCOMPARE(project.first->Text(), QStringLiteral("one 2 three"));
    QCOMPARE(selection(*project.first), QStringLiteral("1:5-1:5")); // and no search
    QVERIFY(project.first->GetState(TextState));
    search.click("Command2");
    QCOMPARE(project.first->Text(), QStringLiteral("one 2 three"));
    search.type(QString()); // nor is that tested
    select(*project.first, 1, 0, 1, 3);
    search.click("Command2");
    QCOMPARE(project.first->Text(), QStringLiteral("2 2 three"));
    project.first->Undo();
    QCOMPARE(project.first->Text(), QStringLiteral("one 2 three"));
}

void tst_ReplaceWindow::replace_emptyText_buttons()
{
    EditorPair project(QStringLiteral("text"), QString());
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("y"), "Text2");
    for (const char *button : {"Command5", "Command3", "Command1"}) {
        search.click(button);
        QCOMPARE(project.first->Text(), QStringLiteral("text"));
        QCOMPARE(selection(*project.first), QStringLiteral("1:0-1:0"));
    }
    QCOMPARE(project.beeps, 0);
    QCOMPARE(project.dialogs.verify(), QString());
}

void tst_ReplaceWindow::replaceAll_everyMatch_isOneStep()
{
    EditorPair project(QStringLiteral("x X\r\nxx x"), QString());
    goTo(*project.first, 2, 2);
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("x"));
    search.type(QStringLiteral("xy x"), "Text2");
    search.click("Command3");
    QCOMPARE(project.first->Text(), QStringLiteral("xy x xy x\r\nxx xy x"));
    QCOMPARE(focusName(), QStringLiteral("Text1"));
    QVERIFY(project.first->GetState(TextState));
    project.first->Undo();
    QCOMPARE(project.first->Text(), QStringLiteral("x X\r\nxx x"));
    QCOMPARE(project.beeps, 0);
    QCOMPARE(project.dialogs.verify(), QString());
}

void tst_ReplaceWindow::replaceAll_miss_saysSo()
{
    EditorPair project(QStringLiteral("xx"), QString());
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("x"));
    project.dialogs.expect(NoMatches);
    search.click("Command3");
    QCOMPARE(project.first->Text(), QStringLiteral("xx"));
    QCOMPARE(focusName(), QStringLiteral("Text1"));
    QCOMPARE(project.dialogs.verify(), QString());
}

void tst_ReplaceWindow::replaceFromCaret_onlyBehindTheCaret()
{
    EditorPair project(QStringLiteral("x x x\r\nx"), QString());
    select(*project.first, 1, 2, 1, 3); // a match begins at the selection's start, and counts
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("x"));
    search.type(QStringLiteral("[x]"), "Text2");
    search.click("Command1");
    QCOMPARE(project.first->Text(), QStringLiteral("x [x] [x]\r\n[x]"));
    QCOMPARE(project.beeps, 1);
    QCOMPARE(focusName(), QStringLiteral("Text1"));
    QCOMPARE(project.dialogs.verify(), QString());
}

void tst_ReplaceWindow::replaceFromCaret_noMatch_beepsOnce()
{
    EditorPair project(QStringLiteral("x\r\ny"), QString());
    goTo(*project.first, 2, 0);
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("x"));
    search.type(QStringLiteral("z"), "Text2");
    search.click("Command1");
    QCOMPARE(project.first->Text(), QStringLiteral("x\r\ny"));
    QCOMPARE(project.beeps, 1);
    QCOMPARE(focusName(), QStringLiteral("Text1"));
    QCOMPARE(project.dialogs.verify(), QString());
}

/// Only the columns of the selection meet: one over several lines still ends on its last line.
void tst_ReplaceWindow::replaceFromCaret_linesOfTheSelection_stay()
{
    EditorPair project(QStringLiteral("x x\r\nx x\r\nx x"), QString());
    select(*project.first, 1, 1, 2, 3);
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("x"));
    search.type(QStringLiteral("y"), "Text2");
    search.click("Command1");
    QCOMPARE(project.first->Text(), QStringLiteral("x x\r\nx y\r\ny y"));
}

void tst_ReplaceWindow::replaceFromCaret_undo_takesOneBack()
{
    EditorPair project(QStringLiteral("x x x"), QString());
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("x"));
    search.type(QStringLiteral("long"), "Text2");
    search.click("Command1");
    for (const char *text : {"long long long", "long long x", "long x x", "x x x"}) {
        QCOMPARE(project.first->Text(), QLatin1String(text));
        project.first->Undo();
    }
    QCOMPARE(project.first->Text(), QStringLiteral("x x x"));
}

/// The view draws nothing while the replacements run, and everything afterwards.
void tst_ReplaceWindow::replaceFromCaret_isSeenAndTheViewLives()
{
    EditorPair project(QStringLiteral("x x x\r\n").repeated(100), QString());
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("x"));
    search.type(QStringLiteral("WWW"), "Text2");
    const auto onScreen = [&] {
        QCoreApplication::processEvents();
        return project.window->screen()
            ->grabWindow(project.window->winId())
            .copy(project.first->geometry())
            .toImage();
    };
    const auto asItShouldBe = [&] {
        return project.window->grab(project.first->geometry()).toImage();
    };
    const QImage before = onScreen();
    search.click("Command1");
    QVERIFY(project.first->updatesEnabled());
    QVERIFY(project.first->TopLine() > 50); // the last replacement is in view
    QTRY_VERIFY(onScreen() != before);
    QCOMPARE(onScreen().convertToFormat(QImage::Format_RGB32),
             asItShouldBe().convertToFormat(QImage::Format_RGB32));
    const QImage replaced = onScreen();
    project.first->SetTopLine(1);
    QTRY_VERIFY(onScreen() != replaced);
    QCOMPARE(onScreen().convertToFormat(QImage::Format_RGB32),
             asItShouldBe().convertToFormat(QImage::Format_RGB32));
}

void tst_ReplaceWindow::replace_emptyReplacement_deletes()
{
    for (const char *button : {"Command2", "Command3", "Command1"}) {
        EditorPair project(QStringLiteral("ax"), QString());
        project.search->open(SearchKind::Replace, OrchestraCaller);
        const Opened search(project.window, SearchKind::Replace);
        search.choose("Check1");
        search.type(QStringLiteral("x"));
        if (qstrcmp(button, "Command2") == 0)
            search.click("Command5");
        search.click(button);
        QCOMPARE(project.first->Text(), QStringLiteral("a"));
    }
}

void tst_ReplaceWindow::replace_everyPairOfTexts_ends_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("find");
    QTest::addColumn<QString>("replacement");
    QTest::addColumn<QString>("result");
    QTest::newRow("contains it") << "ab ab"
                                 << "ab"
                                 << "xabx ab"
                                 << "xabx ab xabx ab";
    QTest::newRow("other case") << "ab Ab"
                                << "ab"
                                << "AB"
                                << "AB AB";
    QTest::newRow("the same") << "ab ab"
                              << "ab"
                              << "ab"
                              << "ab ab";
    QTest::newRow("twice it") << "aaa"
                              << "a"
                              << "aa"
                              << "aaaaaa";
    QTest::newRow("nothing, joining a new match") << "aabb ab"
                                                  << "ab"
                                                  << ""
                                                  << "ab ";
    QTest::newRow("begins with its end") << "aba"
                                         << "ab"
                                         << "b"
                                         << "ba";
    QTest::newRow("a line end") << "a\r\nb\r\n"
                                << "\n"
                                << " "
                                << "a b ";
    QTest::newRow("a line end by two") << "a\r\nb"
                                       << "\r\n"
                                       << "\n\n"
                                       << "a\r\n\r\nb";
    QTest::newRow("by a line end") << "a,b,c"
                                   << ","
                                   << "\n"
                                   << "a\r\nb\r\nc";
    QTest::newRow("beyond ASCII") << QString::fromUtf8("ä Ä €") << QString::fromUtf8("ä")
                                  << QString::fromUtf8("ää") << QString::fromUtf8("ää ää €");
}

void tst_ReplaceWindow::replace_everyPairOfTexts_ends()
{
    QFETCH(QString, text);
    QFETCH(QString, find);
    QFETCH(QString, replacement);
    for (const char *button : {"Command3", "Command1"}) {
        EditorPair project(text, QString());
        project.search->open(SearchKind::Replace, OrchestraCaller);
        const Opened search(project.window, SearchKind::Replace);
        search.choose("Check1");
        search.text()->setText(find);
        search.text("Text2")->setText(replacement);
        search.click(button);
        QTEST(project.first->Text(), "result");
    }
}

void tst_ReplaceWindow::replace_wholeWord_leavesLongerWordsWhole()
{
    const QString text = QStringLiteral("0123 5678 0123  betas\r\nbeta_ alphabeta betabeta");
    EditorPair project(text, QString());
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("beta"));
    search.type(QStringLiteral("x"), "Text2");
    for (int column = 0; column <= 21; ++column) {
        goTo(*project.first, 1, column);
        project.dialogs.expect(NoMatches);
        search.click("Command5");
        search.click("Command2"); // nothing was selected that it could replace
        project.dialogs.expect(NoMatches);
        search.click("Command3");
        search.click("Command1");
        QCOMPARE(project.first->Text(), text);
    }
    QVERIFY(!project.first->GetState(TextState));
    QCOMPARE(project.dialogs.verify(), QString());
    project.first->SetText(text + QStringLiteral("\r\nbeta"));
    for (const char *button : {"Command3", "Command1"}) {
        goTo(*project.first, 1, 0);
        search.click(button);
        QCOMPARE(project.first->Text(), text + QStringLiteral("\r\nx"));
        project.first->Undo();
    }
}

void tst_ReplaceWindow::replace_wholeWordOff_findsInside()
{
    for (const char *button : {"Command3", "Command1"}) {
        EditorPair project(QStringLiteral("xx"), QString());
        project.search->open(SearchKind::Replace, OrchestraCaller);
        const Opened search(project.window, SearchKind::Replace);
        search.type(QStringLiteral("x"));
        search.type(QStringLiteral("y"), "Text2");
        search.choose("Check1");
        search.click(button);
        QCOMPARE(project.first->Text(), QStringLiteral("yy"));
    }
}

void tst_ReplaceWindow::replace_accessKeys_pressButtons()
{
    EditorPair project(QStringLiteral("x x x"), QString());
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("x"));
    search.type(QStringLiteral("y"), "Text2");
    const auto alt = [&search](Qt::Key key) {
        QTest::keyClick(search.text(), key, Qt::AltModifier);
    };
    alt(Qt::Key_F);
    QTRY_COMPARE(selection(*project.first), QStringLiteral("1:0-1:1"));
    alt(Qt::Key_R);
    QTRY_COMPARE(project.first->Text(), QStringLiteral("y x x"));
    goTo(*project.first, 1, 4);
    alt(Qt::Key_C);
    QTRY_COMPARE(project.first->Text(), QStringLiteral("y x y"));
    QTRY_COMPARE(project.beeps, 1);
    alt(Qt::Key_A);
    QTRY_COMPARE(project.first->Text(), QStringLiteral("y y y"));
    alt(Qt::Key_X);
    QTRY_VERIFY(!search.window);
}

void tst_ReplaceWindow::replace_splitView_isCopied()
{
    CsdWindow csd("x x x");
    csd.trigger("buttonSplit");
    csd.trigger("menuModificaSostituisci");
    const Opened search(csd.form, SearchKind::Replace);
    search.type(QStringLiteral("x"));
    search.type(QStringLiteral("y"), "Text2");
    search.click("Command5");
    for (const char *button : {"Command2", "Command1", "Command3"}) {
        search.click(button);
        QCOMPARE(csd.second->Text(), csd.first->Text());
        search.type(QStringLiteral("y"));
        search.type(QStringLiteral("x"), "Text2");
    }
}

ARDIPHON_TEST(tst_ReplaceWindow, QApplication)
#include "tst_ReplaceWindow.moc"
