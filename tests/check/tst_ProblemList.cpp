#include "check/NearNames.h"
#include "check/ProblemList.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

/// Problems that stay at their places while the text changes.
class tst_ProblemList : public QObject
{
    Q_OBJECT

private slots:
    void set_putsThemInOrder();
    void line_changed_placeMovesWithItsLetters_data();
    void line_changed_placeMovesWithItsLetters();
    void lines_addedAndRemoved_moveWhatIsBelow();
    void lines_removed_takeTheirProblemsAlong();
    void change_ofAnotherText_movesNothing();
    void next_goesRound();
    void spans_areOfOneSeverityAndTheseLines();
    void worst_isTheErrorOfTheLine();
    void nearNames_data();
    void nearNames();

private:
    ProblemList listOf(const QList<Problem> &problems)
    {
        ProblemList list;
        list.set(problems, [this](DocumentRole, int line) { return m_lines.value(line - 1); });
        return list;
    }
    void change(ProblemList &list, const TextChange &change, DocumentRole role = DocumentRole::Csd)
    {
        list.change(role, change,
                    [this](DocumentRole, int line) { return m_lines.value(line - 1); });
    }

    QStringList m_lines;
};

namespace {

Problem problemAt(int line, int column, int length, Severity severity = Severity::Error,
                  DocumentRole role = DocumentRole::Csd)
{
    return {severity, {role, line, column, length}, QString(), CompilerSource, {}};
}

QStringList placesOf(const ProblemList &list)
{
    QStringList places;
    for (const Problem &problem : list.problems())
        places.append(QStringLiteral("%1:%2+%3")
                          .arg(problem.place.line)
                          .arg(problem.place.column)
                          .arg(problem.place.length));
    return places;
}

} // namespace

void tst_ProblemList::set_putsThemInOrder()
{
    const ProblemList list = listOf({problemAt(1, 0, 1, Severity::Error, DocumentRole::Score),
                                     problemAt(7, 0, 1, Severity::Error, DocumentRole::Orchestra),
                                     problemAt(3, 5, 1, Severity::Error, DocumentRole::Orchestra),
                                     problemAt(3, 2, 1, Severity::Error, DocumentRole::Orchestra)});
    QCOMPARE(placesOf(list), QStringList({"3:2+1", "3:5+1", "7:0+1", "1:0+1"}));
}

void tst_ProblemList::line_changed_placeMovesWithItsLetters_data()
{
    QTest::addColumn<QString>("now");
    QTest::addColumn<QString>("place");

    QTest::newRow("the same") << "  a1 oscilli 1, 2"
                              << "1:5+7";
    QTest::newRow("typed behind") << "  a1 oscilli 1, 244"
                                  << "1:5+7";
    QTest::newRow("typed before") << "  ab1 oscilli 1, 2"
                                  << "1:6+7";
    QTest::newRow("removed before") << "a1 oscilli 1, 2"
                                    << "1:3+7";
    QTest::newRow("typed within") << "  a1 oscixlli 1, 2"
                                  << "1:5+8";
    QTest::newRow("removed within") << "  a1 oscili 1, 2"
                                    << "1:5+6";
    QTest::newRow("replaced over its start") << "  a1bscilli 1, 2"
                                             << "1:4+7";
    QTest::newRow("emptied") << ""
                             << "1:0+0";
}

void tst_ProblemList::line_changed_placeMovesWithItsLetters()
{
    QFETCH(QString, now);
    m_lines = {QStringLiteral("  a1 oscilli 1, 2")};
    Problem problem = problemAt(1, 5, 7);
    problem.fixes = {{QStringLiteral("Insert oscili"), problem.place, QStringLiteral("oscili")}};
    ProblemList list = listOf({problem});
    m_lines = {now};
    change(list, {1, 1, 1});
    QTEST(placesOf(list).value(0), "place");
    QVERIFY(list.problems()[0].fixes[0].place == list.problems()[0].place);
}

void tst_ProblemList::lines_addedAndRemoved_moveWhatIsBelow()
{
    ProblemList list = listOf({problemAt(2, 0, 1), problemAt(9, 3, 4)});
    change(list, {5, 1, 4});
    QCOMPARE(placesOf(list), QStringList({"2:0+1", "12:3+4"}));
    change(list, {3, 3, 1});
    QCOMPARE(placesOf(list), QStringList({"2:0+1", "10:3+4"}));
}

void tst_ProblemList::lines_removed_takeTheirProblemsAlong()
{
    ProblemList list = listOf({problemAt(2, 0, 1), problemAt(4, 3, 4), problemAt(6, 0, 2)});
    change(list, {3, 2, 1});
    QCOMPARE(placesOf(list), QStringList({"2:0+1", "5:0+2"}));
}

void tst_ProblemList::change_ofAnotherText_movesNothing()
{
    ProblemList list = listOf({problemAt(4, 3, 4, Severity::Error, DocumentRole::Score)});
    change(list, {1, 1, 5}, DocumentRole::Orchestra);
    QCOMPARE(placesOf(list), QStringList({"4:3+4"}));
}

void tst_ProblemList::next_goesRound()
{
    const ProblemList list = listOf({problemAt(2, 1, 1), problemAt(2, 6, 1), problemAt(8, 0, 1)});
    QCOMPARE(list.next(DocumentRole::Csd, 1, 0), 0);
    QCOMPARE(list.next(DocumentRole::Csd, 2, 1), 1);
    QCOMPARE(list.next(DocumentRole::Csd, 2, 6), 2);
    QCOMPARE(list.next(DocumentRole::Csd, 8, 0), 0);
    QCOMPARE(list.previous(DocumentRole::Csd, 8, 0), 1);
    QCOMPARE(list.previous(DocumentRole::Csd, 2, 1), 2);
    QCOMPARE(ProblemList().next(DocumentRole::Csd, 1, 0), -1);
    QCOMPARE(ProblemList().previous(DocumentRole::Csd, 1, 0), -1);
}

void tst_ProblemList::spans_areOfOneSeverityAndTheseLines()
{
    const ProblemList list =
        listOf({problemAt(2, 1, 3), problemAt(3, 6, 1, Severity::Hint), problemAt(8, 0, 1)});
    QCOMPARE(list.spans(DocumentRole::Csd, {1, 5}, Severity::Error), (QList<TextSpan>{{2, 1, 3}}));
    QCOMPARE(list.spans(DocumentRole::Csd, {1, 5}, Severity::Hint), (QList<TextSpan>{{3, 6, 1}}));
    QVERIFY(list.spans(DocumentRole::Score, {1, 9}, Severity::Error).isEmpty());
}

void tst_ProblemList::worst_isTheErrorOfTheLine()
{
    const ProblemList list = listOf({problemAt(2, 1, 3, Severity::Hint), problemAt(2, 6, 1)});
    QVERIFY(list.worstIn(DocumentRole::Csd, 2) == Severity::Error);
    QVERIFY(!list.worstIn(DocumentRole::Csd, 3));
}

void tst_ProblemList::nearNames_data()
{
    QTest::addColumn<QString>("written");
    QTest::addColumn<QStringList>("near");

    QTest::newRow("a letter too many") << "oscilli" << QStringList({"oscili", "oscil1i", "oscil"});
    QTest::newRow("two exchanged") << "vco2l" << QStringList({"vco2"});
    QTest::newRow("neighbours") << "buttrelp" << QStringList({"butterlp"});
    QTest::newRow("capitals") << "OSCILI" << QStringList({"oscili", "oscil", "oscil1i"});
    QTest::newRow("nothing like it") << "xylophone" << QStringList();
    QTest::newRow("empty") << "" << QStringList();
}

void tst_ProblemList::nearNames()
{
    QFETCH(QString, written);
    const QStringList names = {"butterlp", "oscil", "oscil1i", "oscili", "vco2", ""};
    QTEST(ardiphon::nearNames(written, names, 3), "near");
}

ARDIPHON_TEST(tst_ProblemList, NoApplication)
#include "tst_ProblemList.moc"
