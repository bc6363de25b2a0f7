#include "language/TextChange.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

using namespace ardiphon;

class tst_TextChange : public QObject
{
    Q_OBJECT

private slots:
    void join_coversBothChanges_data();
    void join_coversBothChanges();
    void join_randomChanges_giveTheSameLines();
};

void tst_TextChange::join_coversBothChanges_data()
{
    QTest::addColumn<QList<int>>("first");
    QTest::addColumn<QList<int>>("next");
    QTest::addColumn<QList<int>>("both");
    QTest::newRow("same line") << QList{3, 1, 1} << QList{3, 1, 1} << QList{3, 1, 1};
    QTest::newRow("apart, the later behind") << QList{3, 1, 2} << QList{9, 2, 1} << QList{3, 7, 7};
    QTest::newRow("apart, the later before") << QList{9, 2, 1} << QList{3, 1, 2} << QList{3, 8, 8};
    QTest::newRow("inside what was added") << QList{2, 1, 9} << QList{4, 2, 0} << QList{2, 1, 7};
    QTest::newRow("around what was added") << QList{4, 1, 2} << QList{2, 9, 1} << QList{2, 8, 1};
    QTest::newRow("lines gone, lines there") << QList{5, 2, 0} << QList{5, 0, 3} << QList{5, 2, 3};
    QTest::newRow("another text") << QList{1, 90, 1} << QList{1, 1, 40} << QList{1, 90, 40};
}

void tst_TextChange::join_coversBothChanges()
{
    const auto changeOf = [](const QList<int> &values) {
        return TextChange{values[0], values[1], values[2]};
    };
    QFETCH(QList<int>, first);
    QFETCH(QList<int>, next);
    QFETCH(QList<int>, both);
    TextChange change = changeOf(first);
    change.join(changeOf(next));
    QCOMPARE((QList{change.line, change.linesRemoved, change.linesAdded}), both);
}

/// Many changes of a list of numbers, and a copy of it to which all of them are done as one.
void tst_TextChange::join_randomChanges_giveTheSameLines()
{
    QRandomGenerator random(randomSeed(20261122));
    const auto below = [&](qsizetype limit) { return int(random.bounded(int(limit))); };
    int newest = 0;
    for (int round = 0; round < 2000; ++round) {
        QList<int> lines;
        for (int i = below(12); i >= 0; --i)
            lines.append(++newest);
        const QList<int> before = lines;
        std::optional<TextChange> all;
        for (int i = below(5); i >= 0; --i) {
            const int at = below(lines.size() + 1);
            const TextChange change{at + 1, below(lines.size() - at + 1), below(4)};
            lines.remove(at, change.linesRemoved);
            for (int added = 0; added < change.linesAdded; ++added)
                lines.insert(at, ++newest);
            if (all)
                all->join(change);
            else
                all = change;
        }
        QList<int> copy = before;
        copy.remove(all->line - 1, all->linesRemoved);
        for (int i = 0; i < all->linesAdded; ++i)
            copy.insert(all->line - 1 + i, lines[all->line - 1 + i]);
        QCOMPARE(copy, lines);
    }
}

ARDIPHON_TEST(tst_TextChange, NoApplication)
#include "tst_TextChange.moc"
