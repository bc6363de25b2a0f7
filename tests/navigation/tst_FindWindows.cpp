// Find, replace and go to a line, as a user does it: from an editor window, with keys and clicks.

#include "EditorWindows.h"
#include "navigation/ui/SearchWindow.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QToolBar>

using namespace ardiphon;
using namespace EditorInput;

Q_DECLARE_METATYPE(ardiphon::SearchKind)

namespace {

constexpr SearchKind Kinds[] = {SearchKind::Find, SearchKind::Replace, SearchKind::FindLine};

const char *windowName(SearchKind kind)
{
    static const char *const names[] = {"formTrova", "FormSostituisci", "FormTrovaRiga"};
    return names[int(kind)];
}

const Message NoDocument{QStringLiteral("No Document loaded!"), QStringLiteral("ArdiphonPro"),
                         MessageIcon::Information};
const Message NoMatches{QStringLiteral("No matches found!"), QStringLiteral("ArdiphonPro"),
                        MessageIcon::Information};
const Message NoLine{QStringLiteral("No valid Line number!"), QStringLiteral("Error"),
                     MessageIcon::Exclamation};

/// One search window, as its user has it.
class Opened
{
public:
    Opened(const QWidget *owner, SearchKind kind)
    {
        const QList<SearchWindow *> found =
            owner->findChildren<SearchWindow *>(QLatin1String(windowName(kind)));
        for (SearchWindow *each : found)
            if (each->isVisible())
                window = each;
        const auto inFront = [this] { return QApplication::activeWindow() == window; };
        if (window && !QTest::qWaitFor(inFront))
            qFatal("the search window does not come to the front");
    }

    template <typename Control>
    Control *control(const char *name) const
    {
        auto *found = window->findChild<Control *>(QLatin1String(name));
        if (!found)
            qFatal("no control %s", name);
        return found;
    }
    QLineEdit *text(const char *name = "Text1") const { return control<QLineEdit>(name); }
    void click(const char *name) const
    {
        QTest::mouseClick(control<QPushButton>(name), Qt::LeftButton);
    }
    /// Types over what stands in the field.
    void type(const QString &words, const char *field = "Text1") const
    {
        text(field)->setFocus();
        text(field)->selectAll();
        QTest::keyClick(text(field), Qt::Key_Delete);
        QTest::keyClicks(text(field), words);
    }
    void choose(const char *option) const
    {
        QTest::mouseClick(box(option), Qt::LeftButton, {}, {8, 10});
    }
    QAbstractButton *box(const char *name) const { return control<QAbstractButton>(name); }

    QPointer<SearchWindow> window;
};

int visibleWindows()
{
    int count = 0;
    for (const QWidget *each : QApplication::topLevelWidgets())
        count += qobject_cast<const SearchWindow *>(each) && each->isVisible();
    return count;
}

QString focusName()
{
    const QWidget *focus = QApplication::focusWidget();
    return focus ? focus->objectName() : QString();
}

} // namespace

class tst_FindWindows : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(visibleWindows(), 0); }

    // Opening.
    void open_menuKeyOrButton_opensTheWindow_data();
    void open_menuKeyOrButton_opensTheWindow();
    void open_emptyDocument_saysSo_data();
    void open_emptyDocument_saysSo();
    void open_emptySecondView_getsTheFocusBack();
    void open_secondView_servesTheFirst();
    void open_caller_isInTheCaption();
    void open_controls_haveTheirCaptions();
    void open_selection_isTakenTrimmed();
    void open_again_startsAnewInOneWindow();
    void open_menuOfTwoEditors_followsTheFocus();
    void open_emptyScore_focusDependsOnTheCommand();

    // The windows as such.
    void keys_escapeAnywhere_closes_data();
    void keys_escapeAnywhere_closes();
    void keys_tab_reachesEveryControl();
    void exit_focus_asEachWindowHasIt();
    void owner_closes_windowsAreGoneAtOnce();
    void owner_handOver_newWindowsServeTheNewEditors();
    void caller_changes_servesTheOtherEditor();

    // Find.
    void find_emptyText_doesNothing();
    void find_enter_movesOn();
    void find_directions_data();
    void find_directions();
    void find_insideALongerWord_isNoMatchAsDefault();
    void find_miss_changesNothing();
    void find_typingMeanwhile_startsAtTheCaret();
    void find_specialCharacters_meanThemselves_data();
    void find_specialCharacters_meanThemselves();
    void find_pastedLineEnds_match();
    void find_hugeText_isSearchedWhole();
    void find_hugeSelection_opensAtOnce();

    // Replace.
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
    void replace_emptyReplacement_deletes();
    void replace_everyPairOfTexts_ends_data();
    void replace_everyPairOfTexts_ends();
    void replace_wholeWordOff_findsInside();
    void replace_accessKeys_pressButtons();
    void replace_splitView_isCopied();

    // Line numbers.
    void line_number_selectsTheLineAndCloses_data();
    void line_number_selectsTheLineAndCloses();
    void line_noNumber_saysSoAndStays_data();
    void line_noNumber_saysSoAndStays();
};

// Opening. ---------------------------------------------------------------------------------------

void tst_FindWindows::open_menuKeyOrButton_opensTheWindow_data()
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

void tst_FindWindows::open_menuKeyOrButton_opensTheWindow()
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

void tst_FindWindows::open_emptyDocument_saysSo_data()
{
    open_menuKeyOrButton_opensTheWindow_data();
}

void tst_FindWindows::open_emptyDocument_saysSo()
{
    CsdWindow csd("");
    csd.dialogs.expect(NoDocument);
    csd.dialogs.beforeNextAnswer([&csd] { csd.form->setFocus(); });
    openByRow(csd);
    QVERIFY(csd.first->hasFocus());
    QCOMPARE(visibleWindows(), 0);
    QCOMPARE(csd.dialogs.verify(), QString());
}

void tst_FindWindows::open_emptySecondView_getsTheFocusBack()
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

void tst_FindWindows::open_secondView_servesTheFirst()
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

void tst_FindWindows::open_caller_isInTheCaption()
{
    CsdWindow csd("text");
    ProjectWindow project(QStringLiteral("text"), QStringLiteral("text"));
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

void tst_FindWindows::open_controls_haveTheirCaptions()
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

void tst_FindWindows::open_selection_isTakenTrimmed()
{
    CsdWindow csd("one  kamp  two");
    select(*csd.first, 1, 3, 1, 11);
    QCOMPARE(csd.first->SelText(), QStringLiteral("  kamp  "));
    for (const SearchKind kind : {SearchKind::Find, SearchKind::Replace}) {
        csd.trigger(kind == SearchKind::Find ? "menuModificaTrova" : "menuModificaSostituisci");
        QCOMPARE(Opened(csd.form, kind).text()->text(), QStringLiteral("kamp"));
    }
}

void tst_FindWindows::open_again_startsAnewInOneWindow()
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

void tst_FindWindows::open_menuOfTwoEditors_followsTheFocus()
{
    ProjectWindow project(QStringLiteral("instr"), QStringLiteral("f1"));
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

void tst_FindWindows::open_emptyScore_focusDependsOnTheCommand()
{
    ProjectWindow project(QStringLiteral("instr"), QString());
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

// The windows as such. ---------------------------------------------------------------------------

void tst_FindWindows::keys_escapeAnywhere_closes_data()
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

void tst_FindWindows::keys_escapeAnywhere_closes()
{
    QFETCH(SearchKind, kind);
    QFETCH(QString, name);
    ProjectWindow project(QStringLiteral("text"), QStringLiteral("text"));
    project.search->open(kind, ScoreCaller);
    const Opened search(project.window, kind);
    auto *control = search.control<QWidget>(qPrintable(name));
    control->setFocus();
    QVERIFY(control->hasFocus());
    QTest::keyClick(control, Qt::Key_Escape);
    QTRY_VERIFY(!search.window);
}

void tst_FindWindows::keys_tab_reachesEveryControl()
{
    ProjectWindow project(QStringLiteral("text"), QStringLiteral("text"));
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

void tst_FindWindows::exit_focus_asEachWindowHasIt()
{
    ProjectWindow project(QStringLiteral("text"), QStringLiteral("text"));
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

void tst_FindWindows::owner_closes_windowsAreGoneAtOnce()
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
void tst_FindWindows::owner_handOver_newWindowsServeTheNewEditors()
{
    CsdWindow csd("text of the old window");
    csd.trigger("menuModificaTrova");
    ProjectWindow project(QStringLiteral("the new text"), QString());
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

void tst_FindWindows::caller_changes_servesTheOtherEditor()
{
    ProjectWindow project(QStringLiteral("same"), QStringLiteral("same"));
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened search(project.window, SearchKind::Find);
    search.type(QStringLiteral("same"));
    project.config.FindCaller = ScoreCaller;
    search.click("Command1");
    QCOMPARE(project.first->SelText(), QString());
    QCOMPARE(project.second->SelText(), QStringLiteral("same"));
    project.config.FindCaller = CsdCaller; // an editor that this owner does not have
    search.click("Command1");
    search.click("Command4");
    QTRY_VERIFY(!search.window);
}

// Find. ------------------------------------------------------------------------------------------

void tst_FindWindows::find_emptyText_doesNothing()
{
    ProjectWindow project(QStringLiteral("text"), QString());
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
    ProjectWindow project(QStringLiteral("sig a\r\nsig b\r\nSIG c"), QString());
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
    ProjectWindow project(QStringLiteral("x\r\nx\r\nx\r\nx\r\nx"), QString());
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

void tst_FindWindows::find_insideALongerWord_isNoMatchAsDefault()
{
    ProjectWindow project(QStringLiteral("instrument my_instr instr2"), QString());
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

void tst_FindWindows::find_miss_changesNothing()
{
    ProjectWindow project(QStringLiteral("one two three"), QString());
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
    ProjectWindow project(QStringLiteral("x\r\nx\r\nx\r\n"), QString());
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
    ProjectWindow project("abc 1 n aa ab x HALL\r\n" + text, QString());
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened search(project.window, SearchKind::Find);
    search.type(text);
    search.click("Command1");
    QCOMPARE(selection(*project.first), QStringLiteral("2:0-2:%1").arg(text.size()));
}

void tst_FindWindows::find_pastedLineEnds_match()
{
    ProjectWindow project(QStringLiteral("a\r\nb\r\nc"), QString());
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
    ProjectWindow project(huge + "z\r\n" + huge + "y", QString());
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
    ProjectWindow project(lines, QString());
    project.first->SelectAll();
    project.search->open(SearchKind::Find, OrchestraCaller);
    const Opened search(project.window, SearchKind::Find);
    QCOMPARE(search.text()->text(), lines.left(LongestFieldText));
}

// Replace. ---------------------------------------------------------------------------------------

void tst_FindWindows::replace_find_goesRoundTheText()
{
    ProjectWindow project(QStringLiteral("x 1\r\nx 2"), QString());
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

void tst_FindWindows::replace_nothingSelected_doesNothing()
{
    ProjectWindow project(QStringLiteral("x"), QString());
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("x"));
    search.type(QStringLiteral("y"), "Text2");
    search.click("Command2");
    QCOMPARE(project.first->Text(), QStringLiteral("x"));
    QVERIFY(!project.first->GetState(2));
    QCOMPARE(project.dialogs.verify(), QString());
    QCOMPARE(project.beeps, 0);
}

void tst_FindWindows::replace_selection_isOverwrittenWhateverTheText()
{
    ProjectWindow project(QStringLiteral("one two three"), QString());
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("three"));
    search.type(QStringLiteral("2"), "Text2");
    select(*project.first, 1, 4, 1, 7);
    search.click("Command2");
    QCOMPARE(project.first->Text(), QStringLiteral("one 2 three"));
    QCOMPARE(selection(*project.first), QStringLiteral("1:5-1:5")); // and no search
    QVERIFY(project.first->GetState(2));
    search.click("Command2");
    QCOMPARE(project.first->Text(), QStringLiteral("one 2 three"));
    search.type(QString()); // nor is that tested
    select(*project.first, 1, 0, 1, 3);
    search.click("Command2");
    QCOMPARE(project.first->Text(), QStringLiteral("2 2 three"));
    project.first->Undo();
    QCOMPARE(project.first->Text(), QStringLiteral("one 2 three"));
}

void tst_FindWindows::replace_emptyText_buttons()
{
    ProjectWindow project(QStringLiteral("text"), QString());
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

void tst_FindWindows::replaceAll_everyMatch_isOneStep()
{
    ProjectWindow project(QStringLiteral("x X\r\nxx x"), QString());
    goTo(*project.first, 2, 2);
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("x"));
    search.type(QStringLiteral("xy x"), "Text2");
    search.click("Command3");
    QCOMPARE(project.first->Text(), QStringLiteral("xy x xy x\r\nxx xy x"));
    QCOMPARE(focusName(), QStringLiteral("Text1"));
    QVERIFY(project.first->GetState(2));
    project.first->Undo();
    QCOMPARE(project.first->Text(), QStringLiteral("x X\r\nxx x"));
    QCOMPARE(project.beeps, 0);
    QCOMPARE(project.dialogs.verify(), QString());
}

void tst_FindWindows::replaceAll_miss_saysSo()
{
    ProjectWindow project(QStringLiteral("xx"), QString());
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("x"));
    project.dialogs.expect(NoMatches);
    search.click("Command3");
    QCOMPARE(project.first->Text(), QStringLiteral("xx"));
    QCOMPARE(focusName(), QStringLiteral("Text1"));
    QCOMPARE(project.dialogs.verify(), QString());
}

void tst_FindWindows::replaceFromCaret_onlyBehindTheCaret()
{
    ProjectWindow project(QStringLiteral("x x x\r\nx"), QString());
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

void tst_FindWindows::replaceFromCaret_noMatch_beepsOnce()
{
    ProjectWindow project(QStringLiteral("x\r\ny"), QString());
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
void tst_FindWindows::replaceFromCaret_linesOfTheSelection_stay()
{
    ProjectWindow project(QStringLiteral("x x\r\nx x\r\nx x"), QString());
    select(*project.first, 1, 1, 2, 3);
    project.search->open(SearchKind::Replace, OrchestraCaller);
    const Opened search(project.window, SearchKind::Replace);
    search.type(QStringLiteral("x"));
    search.type(QStringLiteral("y"), "Text2");
    search.click("Command1");
    QCOMPARE(project.first->Text(), QStringLiteral("x x\r\nx y\r\ny y"));
}

void tst_FindWindows::replaceFromCaret_undo_takesOneBack()
{
    ProjectWindow project(QStringLiteral("x x x"), QString());
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

void tst_FindWindows::replace_emptyReplacement_deletes()
{
    for (const char *button : {"Command2", "Command3", "Command1"}) {
        ProjectWindow project(QStringLiteral("ax"), QString());
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

void tst_FindWindows::replace_everyPairOfTexts_ends_data()
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

void tst_FindWindows::replace_everyPairOfTexts_ends()
{
    QFETCH(QString, text);
    QFETCH(QString, find);
    QFETCH(QString, replacement);
    for (const char *button : {"Command3", "Command1"}) {
        ProjectWindow project(text, QString());
        project.search->open(SearchKind::Replace, OrchestraCaller);
        const Opened search(project.window, SearchKind::Replace);
        search.choose("Check1");
        search.text()->setText(find);
        search.text("Text2")->setText(replacement);
        search.click(button);
        QTEST(project.first->Text(), "result");
    }
}

void tst_FindWindows::replace_wholeWordOff_findsInside()
{
    for (const char *button : {"Command3", "Command1"}) {
        ProjectWindow project(QStringLiteral("xx"), QString());
        project.search->open(SearchKind::Replace, OrchestraCaller);
        const Opened search(project.window, SearchKind::Replace);
        search.type(QStringLiteral("x"));
        search.type(QStringLiteral("y"), "Text2");
        search.choose("Check1");
        search.click(button);
        QCOMPARE(project.first->Text(), QStringLiteral("yy"));
    }
}

void tst_FindWindows::replace_accessKeys_pressButtons()
{
    ProjectWindow project(QStringLiteral("x x x"), QString());
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

void tst_FindWindows::replace_splitView_isCopied()
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

// Line numbers. ----------------------------------------------------------------------------------

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
    ProjectWindow project(lines.join("\r\n"), lines.join("\r\n"));
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
    ProjectWindow project(QStringLiteral("a\r\nb"), QString());
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

QTEST_MAIN(tst_FindWindows)
#include "tst_FindWindows.moc"
