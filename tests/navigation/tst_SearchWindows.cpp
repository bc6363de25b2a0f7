// The three search windows as such: how they open, whom they serve, how they close.

#include "OpenedWindow.h"
#include "support/TestMain.h"

using namespace ardiphon;
using namespace EditorInput;

Q_DECLARE_METATYPE(ardiphon::SearchKind)

namespace {

constexpr SearchKind Kinds[] = {SearchKind::Find, SearchKind::Replace, SearchKind::FindLine};

const Message NoDocument{QStringLiteral("No Document loaded!"), QStringLiteral("ArdiphonPro"),
                         MessageIcon::Information};

/// Opens a window in the way of the data row.
void openByRow(const CsdWindow &csd)
{
    QFETCH(QString, action);
    QFETCH(QString, button);
    QFETCH(int, key);
    if (!action.isEmpty())
        csd.trigger(qPrintable(action));
    else if (!button.isEmpty())
        QTest::mouseClick(csd.control<QWidget>(qPrintable(button)), Qt::LeftButton);
    else
        press(*csd.first, Qt::Key(key), Qt::ControlModifier);
}

} // namespace

class tst_SearchWindows : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(visibleWindows(), 0); }

    void open_menuKeyOrButton_opensTheWindow_data();
    void open_menuKeyOrButton_opensTheWindow();
    void open_emptyDocument_saysSo_data();
    void open_emptyDocument_saysSo();
    void open_emptySecondView_getsTheFocusBack();
    void open_secondView_servesTheFirst();
    void open_caller_isInTheCaption();
    void open_controls_haveTheirCaptions();
    void open_selection_isTakenTrimmed();
    void open_again_startsAgainInOneWindow();
    void open_menuOfTwoEditors_followsTheFocus();
    void open_emptyScore_focusDependsOnTheCommand();
    void keys_escapeAnywhere_closes_data();
    void keys_escapeAnywhere_closes();
    void keys_tab_reachesEveryControl();
    void exit_focus_asEachWindowHasIt();
    void owner_closes_windowsCloseAtOnce();
    void owner_handOver_newWindowsServeTheNewEditors();
    void caller_changes_servesTheOtherEditor();
    void match_underItsWindow_isUncovered_data();
    void match_underItsWindow_isUncovered();
    void line_underAnotherWindow_isUncovered();
};

void tst_SearchWindows::open_menuKeyOrButton_opensTheWindow_data()
{
    QTest::addColumn<SearchKind>("kind");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("key");
    const auto rows = [](const char *name, SearchKind kind, const char *action, const char *button,
                         Qt::Key key) {
        QTest::addRow("%s by menu", name) << kind << action << QString() << 0;
        QTest::addRow("%s by button", name) << kind << QString() << button << 0;
        QTest::addRow("%s by key", name) << kind << QString() << QString() << int(key);
    };
    rows("find", SearchKind::Find, "menuModificaTrova", "buttonTrova", Qt::Key_F);
    rows("replace", SearchKind::Replace, "menuModificaSostituisci", "buttonSostituisci", Qt::Key_H);
    rows("line", SearchKind::FindLine, "menuModificaTrovaRiga", "buttonTrovaRiga", Qt::Key_G);
}

void tst_SearchWindows::open_menuKeyOrButton_opensTheWindow()
{
    QFETCH(SearchKind, kind);
    CsdWindow csd("instr 1\nendin\n");
    openByRow(csd);
    const Opened search(csd.form, kind);
    QVERIFY(search.window);
    QVERIFY(!search.window->isModal());
    QVERIFY(search.window->isWindow());
    QCOMPARE(search.window->parentWidget(), csd.form);
    const QString *const words[] = {&csd.config.FindCaller, &csd.config.ReplaceCaller,
                                    &csd.config.FindLineCaller};
    for (const SearchKind each : Kinds)
        QCOMPARE(*words[int(each)], each == kind ? QStringLiteral("CSD") : QString());
    QCOMPARE(focusName(), QStringLiteral("Text1"));
    QCOMPARE(csd.first->Text(), QStringLiteral("instr 1\r\nendin\r\n"));
    QCOMPARE(csd.dialogs.verify(), QString());
}

void tst_SearchWindows::open_emptyDocument_saysSo_data()
{
    open_menuKeyOrButton_opensTheWindow_data();
}

void tst_SearchWindows::open_emptyDocument_saysSo()
{
    CsdWindow csd("");
    csd.dialogs.expect(NoDocument);
    csd.dialogs.beforeNextAnswer([&csd] { csd.form->setFocus(); });
    openByRow(csd);
    QVERIFY(csd.first->hasFocus());
    QCOMPARE(visibleWindows(), 0);
    QCOMPARE(csd.dialogs.verify(), QString());
}

void tst_SearchWindows::open_emptySecondView_getsTheFocusBack()
{
    CsdWindow csd("instr 1");
    csd.trigger("buttonSplit");
    csd.second->SetText(QString());
    csd.second->setFocus();
    csd.dialogs.expect(NoDocument);
    press(*csd.second, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(csd.second->hasFocus());
    QCOMPARE(visibleWindows(), 0);
    QCOMPARE(csd.dialogs.verify(), QString());
}

void tst_SearchWindows::open_secondView_servesTheFirst()
{
    CsdWindow csd("one two\n");
    csd.trigger("buttonSplit");
    select(*csd.second, 1, 0, 1, 3);
    csd.second->setFocus();
    press(*csd.second, Qt::Key_F, Qt::ControlModifier);
    const Opened search(csd.form, SearchKind::Find);
    QCOMPARE(search.text()->text(), QString()); // nothing is selected in the first view
    search.type(QStringLiteral("two"));
    search.click("Command1");
    QCOMPARE(csd.first->SelText(), QStringLiteral("two"));
    QCOMPARE(csd.second->SelText(), QStringLiteral("one"));
}

void tst_SearchWindows::open_caller_isInTheCaption()
{
    CsdWindow csd("text");
    EditorPair project(QStringLiteral("text"), QStringLiteral("text"));
    static const char *const titles[] = {"Find", "Find and Replace", "Find Line number"};
    static const char *const actions[] = {"menuModificaTrova", "menuModificaSostituisci",
                                          "menuModificaTrovaRiga"};
    for (const SearchKind kind : Kinds) {
        const QString title = QLatin1String(titles[int(kind)]);
        csd.trigger(actions[int(kind)]);
        QCOMPARE(Opened(csd.form, kind).window->windowTitle(), title);
        project.search->open(kind, OrchestraCaller);
        QCOMPARE(Opened(project.window, kind).window->windowTitle(), title + " (Orchestra)");
        project.search->open(kind, ScoreCaller);
        QCOMPARE(Opened(project.window, kind).window->windowTitle(), title + " (Score)");
    }
}

void tst_SearchWindows::open_controls_haveTheirCaptions()
{
    CsdWindow csd("text");
    const auto caption = [](const Opened &search, const char *name) {
        return search.control<QWidget>(name)->property("text").toString();
    };
    csd.trigger("menuModificaTrova");
    const Opened find(csd.form, SearchKind::Find);
    const std::pair<const char *, const char *> findCaptions[] = {{"labelTrova", "Text to find:"},
                                                                  {"Check1", "Whole word"},
                                                                  {"Option1", "Up"},
                                                                  {"Option2", "Down"},
                                                                  {"Option3", "Up/Down"},
                                                                  {"Label1", "Search direction:"},
                                                                  {"Command1", "&Find"},
                                                                  {"Command4", "E&xit"}};
    for (const auto &[name, expected] : findCaptions)
        QCOMPARE(caption(find, name), QLatin1String(expected));

    csd.trigger("menuModificaSostituisci");
    const Opened replace(csd.form, SearchKind::Replace);
    const std::pair<const char *, const char *> replaceCaptions[] = {
        {"labelTrova", "Find:"},  {"labelSostituisci", "Replace with:"},
        {"Check1", "Whole word"}, {"Command5", "&Find"},
        {"Command2", "&Replace"}, {"Command3", "Replace &All"},
        {"Command4", "E&xit"},    {"Command1", "Replace from &caret to end"}};
    for (const auto &[name, expected] : replaceCaptions)
        QCOMPARE(caption(replace, name), QLatin1String(expected));

    csd.trigger("menuModificaTrovaRiga");
    const Opened line(csd.form, SearchKind::FindLine);
    QCOMPARE(caption(line, "Label1"), QStringLiteral("Line number:"));
    QCOMPARE(caption(line, "buttonTrova"), QStringLiteral("&Find"));
    QCOMPARE(caption(line, "buttonEsci"), QStringLiteral("E&xit"));
}

void tst_SearchWindows::open_selection_isTakenTrimmed()
{
    CsdWindow csd("one  kamp  two");
    select(*csd.first, 1, 3, 1, 11);
    QCOMPARE(csd.first->SelText(), QStringLiteral("  kamp  "));
    for (const SearchKind kind : {SearchKind::Find, SearchKind::Replace}) {
        csd.trigger(kind == SearchKind::Find ? "menuModificaTrova" : "menuModificaSostituisci");
        QCOMPARE(Opened(csd.form, kind).text()->text(), QStringLiteral("kamp"));
    }
}

void tst_SearchWindows::open_again_startsAgainInOneWindow()
{
    CsdWindow csd("text");
    csd.trigger("menuModificaTrova");
    const Opened before(csd.form, SearchKind::Find);
    QVERIFY(before.box("Option3")->isChecked());
    QVERIFY(before.box("Check1")->isChecked());
    before.type(QStringLiteral("words"));
    before.choose("Option1");
    before.choose("Check1");
    QVERIFY(before.box("Option1")->isChecked());
    QVERIFY(!before.box("Check1")->isChecked());

    csd.trigger("menuModificaTrova");
    QCOMPARE(visibleWindows(), 1);
    QTRY_VERIFY(!before.window);
    const Opened after(csd.form, SearchKind::Find);
    QVERIFY(after.box("Option3")->isChecked());
    QVERIFY(after.box("Check1")->isChecked());
    QCOMPARE(after.text()->text(), QString());
    csd.trigger("menuModificaSostituisci");
    csd.trigger("menuModificaTrovaRiga");
    QCOMPARE(visibleWindows(), 3);
}

void tst_SearchWindows::open_menuOfTwoEditors_followsTheFocus()
{
    EditorPair project(QStringLiteral("instr"), QStringLiteral("f1"));
    project.elsewhere->setFocus();
    project.search->openForFocus(SearchKind::Find);
    QCOMPARE(visibleWindows(), 0);
    QCOMPARE(project.config.FindCaller, QString());
    project.search->open(SearchKind::Find, OrchestraCaller); // as that editor's own button does
    QCOMPARE(visibleWindows(), 1);

    bringToFront(project.window);
    project.second->setFocus();
    project.search->openForFocus(SearchKind::Find);
    QCOMPARE(project.config.FindCaller, QStringLiteral("SCORE"));
    bringToFront(project.window);
    project.first->setFocus();
    project.search->openForFocus(SearchKind::Replace);
    QCOMPARE(project.config.ReplaceCaller, QStringLiteral("ORCHESTRA"));
    project.search->open(SearchKind::Find, QStringLiteral("NOBODY"));
    QCOMPARE(project.config.FindCaller, QStringLiteral("SCORE"));
}

void tst_SearchWindows::open_emptyScore_focusDependsOnTheCommand()
{
    EditorPair project(QStringLiteral("instr"), QString());
    project.second->setFocus();
    for (const SearchKind kind : Kinds) {
        project.dialogs.expect(NoDocument);
        project.search->openForFocus(kind); // the menu
        QVERIFY(project.second->hasFocus());
        project.dialogs.expect(NoDocument);
        project.search->open(kind, ScoreCaller, *project.second, *project.first); // the key
        QVERIFY(project.first->hasFocus());
        project.second->setFocus();
    }
    QCOMPARE(project.dialogs.verify(), QString());
    QCOMPARE(visibleWindows(), 0);
}

void tst_SearchWindows::keys_escapeAnywhere_closes_data()
{
    QTest::addColumn<SearchKind>("kind");
    QTest::addColumn<QString>("name");
    for (const char *name :
         {"Text1", "Check1", "Option1", "Option2", "Option3", "Command1", "Command4"})
        QTest::addRow("find %s", name) << SearchKind::Find << name;
    for (const char *name :
         {"Text1", "Text2", "Check1", "Command1", "Command2", "Command3", "Command4", "Command5"})
        QTest::addRow("replace %s", name) << SearchKind::Replace << name;
    for (const char *name : {"Text1", "buttonTrova", "buttonEsci"})
        QTest::addRow("line %s", name) << SearchKind::FindLine << name;
}

void tst_SearchWindows::keys_escapeAnywhere_closes()
{
    QFETCH(SearchKind, kind);
    QFETCH(QString, name);
    EditorPair project(QStringLiteral("text"), QStringLiteral("text"));
    project.search->open(kind, ScoreCaller);
    const Opened search(project.window, kind);
    auto *control = search.control<QWidget>(qPrintable(name));
    control->setFocus();
    QVERIFY(control->hasFocus());
    QTest::keyClick(control, Qt::Key_Escape);
    QTRY_VERIFY(!search.window);
}

void tst_SearchWindows::keys_tab_reachesEveryControl()
{
    EditorPair project(QStringLiteral("text"), QStringLiteral("text"));
    static const int counts[] = {5, 8, 3}; // the three options are one stop
    for (const SearchKind kind : Kinds) {
        project.search->open(kind, OrchestraCaller);
        const Opened search(project.window, kind);
        QSet<QString> seen;
        for (int i = 0; i < counts[int(kind)]; ++i) {
            seen.insert(focusName());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(seen.size(), counts[int(kind)]);
        QCOMPARE(focusName(), QStringLiteral("Text1")); // and round again
        search.window->close();
    }
}

void tst_SearchWindows::exit_focus_asEachWindowHasIt()
{
    EditorPair project(QStringLiteral("text"), QStringLiteral("text"));
    static const char *const exits[] = {"Command4", "Command4", "buttonEsci"};
    for (const SearchKind kind : Kinds) {
        project.elsewhere->setFocus();
        project.search->open(kind, ScoreCaller);
        const Opened search(project.window, kind);
        search.click(exits[int(kind)]);
        QTRY_VERIFY(!search.window);
        if (kind == SearchKind::Replace)
            QCOMPARE(project.window->focusWidget(), project.elsewhere);
        else
            QTRY_VERIFY(project.second->hasFocus());
        bringToFront(project.window);
    }
}

void tst_SearchWindows::owner_closes_windowsCloseAtOnce()
{
    CsdWindow csd("text");
    csd.trigger("menuModificaTrova");
    csd.trigger("menuModificaSostituisci");
    csd.trigger("menuModificaTrovaRiga");
    QCOMPARE(visibleWindows(), 3);
    csd.form->close();
    QCOMPARE(visibleWindows(), 0);
    QTRY_VERIFY(!csd.form);
    for (const QWidget *each : QApplication::topLevelWidgets())
        QVERIFY(!qobject_cast<const SearchWindow *>(each));
}

/// The block is one for both editor windows, as it is for FormCSD and FormORCSCO.
void tst_SearchWindows::owner_handOver_newWindowsServeTheNewEditors()
{
    CsdWindow csd("text of the old window");
    csd.trigger("menuModificaTrova");
    EditorPair project(QStringLiteral("the new text"), QString());
    SearchWindows search(csd.config, csd.dialogs, {{OrchestraCaller, project.first}},
                         *project.window);
    csd.form->close();
    search.open(SearchKind::Find, OrchestraCaller);
    QCOMPARE(visibleWindows(), 1);
    const Opened found(project.window, SearchKind::Find);
    found.type(QStringLiteral("text"));
    found.click("Command1");
    QCOMPARE(project.first->SelText(), QStringLiteral("text"));
    QTRY_VERIFY(!csd.form);
    found.window->close();
    search.setParent(nullptr);
}

/// A window serves the editor that it was opened for; the configuration only mirrors its caller.
void tst_SearchWindows::caller_changes_servesTheOtherEditor()
{
    EditorPair project(QStringLiteral("same"), QStringLiteral("same"));
    project.search->open(SearchKind::Find, OrchestraCaller);
    project.search->open(SearchKind::Find, ScoreCaller);
    QCOMPARE(project.config.FindCaller, QStringLiteral("SCORE"));
    project.config.FindCaller = OrchestraCaller;
    QTRY_COMPARE(visibleWindows(), 1);
    const Opened search(project.window, SearchKind::Find);
    search.type(QStringLiteral("same"));
    search.click("Command1");
    QCOMPARE(project.first->SelText(), QString());
    QCOMPARE(project.second->SelText(), QStringLiteral("same"));
    search.click("Command4");
    QTRY_VERIFY(!search.window);
    project.search->open(SearchKind::Find, CsdCaller); // an editor that this owner does not have
    QCOMPARE(visibleWindows(), 0);
}

namespace {

/// The rows of these lines, as they appear on the screen.
QRect rowsOf(const LEditOCX &editor, int first, int last)
{
    const QPoint top = editor.mapToGlobal(QPoint(0, editor.PositionToPixels(first, 0).y()));
    return {top, QSize(editor.width(), (last - first + 1) * editor.LineHeight())};
}

const QString FiveLines = QStringLiteral("one\r\ntwo\r\nthree\r\nfour\r\nfive");

} // namespace

void tst_SearchWindows::match_underItsWindow_isUncovered_data()
{
    QTest::addColumn<SearchKind>("kind");
    QTest::addColumn<int>("lastLine"); // of the match, which begins with line 2
    QTest::addColumn<int>("lastColumn");
    QTest::newRow("Find") << SearchKind::Find << 2 << 3;
    QTest::newRow("Replace") << SearchKind::Replace << 2 << 3;
    QTest::newRow("several lines") << SearchKind::Find << 4 << 4;
}

void tst_SearchWindows::match_underItsWindow_isUncovered()
{
    QFETCH(SearchKind, kind);
    QFETCH(int, lastLine);
    QFETCH(int, lastColumn);
    EditorPair project(FiveLines, QString());
    project.window->move(0, 0);
    select(*project.first, 2, 0, lastLine, lastColumn);
    project.search->open(kind, OrchestraCaller);
    const Opened search(project.window, kind);
    // Over the end of the match alone, and beside where it ends.
    const QPoint end = project.first->mapToGlobal(project.first->PositionToPixels(lastLine, 0));
    search.window->move(end + QPoint(lastLine > 2 ? 100 : 0, 2));
    const QRect match = lastLine > 2 ? rowsOf(*project.first, 2, lastLine)
                                     : QRect(end, QSize(8, project.first->LineHeight()));
    QTRY_VERIFY(search.window->frameGeometry().intersects(match));
    QTest::keyClick(search.text(), Qt::Key_Return);
    QTRY_VERIFY(!search.window->frameGeometry().intersects(match));
    QCOMPARE(project.dialogs.verify(), QString());
}

void tst_SearchWindows::line_underAnotherWindow_isUncovered()
{
    EditorPair project(FiveLines, QString());
    project.window->move(0, 0);
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened waiting(project.window, SearchKind::Find);
    const QRect row = rowsOf(*project.first, 3, 3);
    waiting.window->move(row.topLeft());
    QTRY_VERIFY(waiting.window->frameGeometry().intersects(row));
    project.search->open(SearchKind::FindLine, OrchestraCaller);
    const Opened search(project.window, SearchKind::FindLine);
    QTest::keyClicks(search.text(), QStringLiteral("3"));
    QTest::keyClick(search.text(), Qt::Key_Return);
    const int nameEnd = project.first->PositionToPixels(3, 5).x();
    QTRY_VERIFY(!waiting.window->frameGeometry().intersects(
        QRect(row.topLeft(), QSize(nameEnd, row.height()))));
}

ARDIPHON_TEST(tst_SearchWindows, QApplication)
#include "tst_SearchWindows.moc"
