#include "support/TestMain.h"
#include "workbench/ui/CommandSet.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QToolBar>

using namespace ardiphon;

/// The actions of a window, where a table names a command that there is not.
class tst_CommandSet : public QObject
{
    Q_OBJECT

private slots:
    void action_unknownName_doesNothing();
    void action_emptyGroup_doesNothing();
    void fill_unknownName_leavesTheRest();
};

void tst_CommandSet::action_unknownName_doesNothing()
{
    QWidget window;
    CommandSet set(&window);
    set.add({"known", "&Known"});
    QTest::ignoreMessage(QtCriticalMsg, "There is no command \"unknown\".");
    QAction *const unknown = set.action("unknown");
    QVERIFY(unknown);
    QVERIFY(!unknown->isEnabled());
    QVERIFY(!window.actions().contains(unknown)); // no shortcut leads to it
    QVERIFY(!set.has("unknown"));

    int calls = 0;
    QTest::ignoreMessage(QtCriticalMsg, "There is no command \"unknown\".");
    set.bind("unknown", this, [&calls] { ++calls; });
    QTest::ignoreMessage(QtCriticalMsg, "There is no command \"unknown\".");
    set.bindTo("known", "unknown");
    set.action("known")->trigger();
    QCOMPARE(calls, 0);
}

void tst_CommandSet::action_emptyGroup_doesNothing()
{
    QWidget window;
    CommandSet set(&window);
    set.addGroup("none", {});
    QTest::ignoreMessage(QtCriticalMsg, "There is no command \"none\".");
    QVERIFY(!set.action("none")->isEnabled());
}

void tst_CommandSet::fill_unknownName_leavesTheRest()
{
    QMainWindow window;
    CommandSet set(&window);
    set.add({"known", "&Known"});
    QToolBar bar;
    const ToolButton buttons[] = {{"buttonUnknown", "unknown", "analysis", "Unknown"},
                                  {"buttonKnown", "known", "analysis", "Known"}};
    QTest::ignoreMessage(QtCriticalMsg, "There is no command \"unknown\".");
    set.fill(bar, buttons);
    QCOMPARE(bar.actions().size(), 2);
    QVERIFY(!bar.actions().first()->isEnabled());
    QVERIFY(bar.actions().last()->isEnabled());
    QCOMPARE(bar.actions().last()->toolTip(), "Known");
}

ARDIPHON_TEST(tst_CommandSet, QApplication)
#include "tst_CommandSet.moc"
