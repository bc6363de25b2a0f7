#include "language/TextDifference.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QTest>

#include <array>

using namespace ardiphon;

class tst_TextDifference : public QObject
{
    Q_OBJECT

private slots:
    void texts_differ_inTheseStretches_data();
    void texts_differ_inTheseStretches();
    void repetition_differs_whereTheChangeEnds_data();
    void repetition_differs_whereTheChangeEnds();
    void randomTexts_replaced_becomeAlike();
    void randomEdits_endOfTheChange_isTheEdit();
    void longTexts_withOtherLineEnds_differInTheChangeAlone();
};

void tst_TextDifference::texts_differ_inTheseStretches_data()
{
    QTest::addColumn<QByteArray>("present");
    QTest::addColumn<QByteArray>("wanted");
    QTest::addColumn<QByteArray>("old");  ///< what of the first is replaced
    QTest::addColumn<QByteArray>("text"); ///< by what of the second
    const auto row = [](const char *name, const char *present, const char *wanted, const char *old,
                        const char *text) {
        QTest::newRow(name) << QByteArray(present) << QByteArray(wanted) << QByteArray(old)
                            << QByteArray(text);
    };
    row("alike", "abc", "abc", "", "");
    row("both empty", "", "", "", "");
    row("a letter more", "ac", "abc", "", "b");
    row("a letter less", "abc", "ac", "b", "");
    row("another letter", "abc", "axc", "b", "x");
    row("all else", "abc", "xyz", "abc", "xyz");
    row("line ends of three kinds", "a\nb\rc\r\n", "a\r\nb\r\nc\r\n", "", "");
    row("a line more", "a\nc\n", "a\r\nb\r\nc\r\n", "", "b\r\n");
    row("repetition", "aa", "aaa", "", "a");
    row("a repeated line", "a\na\n", "a\r\na\r\na\r\n", "", "a\r\n");
    row("half a character alike", "x\xC3\xA9y", "x\xC3\xA8y", "\xC3\xA9", "\xC3\xA8");
    row("tail of a character alike", "x\xC3\xA9y", "x\xC4\xA9y", "\xC3\xA9", "\xC4\xA9");
    row("a line end more", "a\nb", "a\r\n\r\nb", "", "\r\n");
}

void tst_TextDifference::texts_differ_inTheseStretches()
{
    QFETCH(QByteArray, present);
    QFETCH(QByteArray, wanted);
    QFETCH(QByteArray, old);
    QFETCH(QByteArray, text);
    const TextDifference difference = differenceOf(present, wanted);
    const auto stretch = [](const QByteArray &of, TextRange range) {
        return of.mid(range.start, range.end - range.start);
    };
    QCOMPARE(stretch(present, difference.present), old);
    QCOMPARE(stretch(wanted, difference.wanted), text);
    QCOMPARE(difference.isNone(), old.isEmpty() && text.isEmpty());
}

void tst_TextDifference::repetition_differs_whereTheChangeEnds_data()
{
    QTest::addColumn<QByteArray>("present");
    QTest::addColumn<QByteArray>("wanted");
    QTest::addColumn<int>("end"); ///< of the change in the second
    QTest::addColumn<int>("oldStart");
    QTest::addColumn<int>("oldEnd");
    QTest::addColumn<int>("newStart");
    QTest::addColumn<int>("newEnd");
    const auto row = [](const char *name, const char *present, const char *wanted, int end,
                        std::array<int, 4> stretches) {
        const auto [oldStart, oldEnd, newStart, newEnd] = stretches;
        QTest::newRow(name) << QByteArray(present) << QByteArray(wanted) << end << oldStart
                            << oldEnd << newStart << newEnd;
    };
    row("first of the blank lines", "a\n\n\nb", "a\n\n\n\nb", 2, {1, 1, 1, 2});
    row("second of the blank lines", "a\n\n\nb", "a\n\n\n\nb", 3, {2, 2, 2, 3});
    row("last of the blank lines", "a\n\n\nb", "a\n\n\n\nb", 4, {3, 3, 3, 4});
    row("behind the blank lines", "a\n\n\nb", "a\n\n\n\nb", 5, {4, 4, 4, 5});
    row("ahead of the blank lines", "a\n\n\nb", "a\n\n\n\nb", 0, {1, 1, 1, 2});
    row("a blank line less", "a\n\n\n\nb", "a\n\n\nb", 2, {2, 3, 2, 2});
    row("the last blank line less", "a\n\n\n\nb", "a\n\n\nb", 4, {4, 5, 4, 4});
    row("other line ends", "a\n\r\r\nb", "a\r\n\r\n\r\n\r\nb", 5, {2, 2, 3, 5});
    row("two lines more", "x\nx\nx\n", "x\nx\nx\nx\nx\n", 6, {2, 2, 2, 6});
    row("a letter more", "aaaa", "aaaaa", 2, {1, 1, 1, 2});
    row("a character more", "\u00e9\u00e9", "\u00e9\u00e9\u00e9", 4, {2, 2, 2, 4});
    row("inside a character", "\u00e9\u00e9", "\u00e9\u00e9\u00e9", 3, {2, 2, 2, 4});
    row("inside a line end", "\r\n\r\n", "\r\n\r\n\r\n", 3, {0, 0, 0, 2});
    row("a change elsewhere", "abcdef", "aBcdef", 5, {1, 2, 1, 2});
    row("a change far ahead of it", "aXcdefghijklmnop", "acdefghijklmnop", 12, {1, 2, 1, 1});
    row("beyond the text", "aa", "aaa", 99, {2, 2, 2, 3});
    row("before the text", "aa", "aaa", -1, {2, 2, 2, 3});
    row("alike", "aa", "aa", 1, {1, 1, 1, 1});
}

void tst_TextDifference::repetition_differs_whereTheChangeEnds()
{
    QFETCH(QByteArray, present);
    QFETCH(QByteArray, wanted);
    QFETCH(int, end);
    const TextDifference difference = differenceOf(present, wanted, end);
    QTEST(int(difference.present.start), "oldStart");
    QTEST(int(difference.present.end), "oldEnd");
    QTEST(int(difference.wanted.start), "newStart");
    QTEST(int(difference.wanted.end), "newEnd");
}

/// What is typed, pasted or deleted in a text that repeats itself is found where it happened.
void tst_TextDifference::randomEdits_endOfTheChange_isTheEdit()
{
    QRandomGenerator random(randomSeed(5));
    const auto make = [&](int most) {
        QByteArray text;
        for (int i = random.bounded(most); i > 0; --i)
            text += "a\n\n\n"[random.bounded(4)];
        return text;
    };
    for (int i = 0; i < 20000; ++i) {
        const QByteArray text = make(40);
        const QByteArray change = make(4) + '\n';
        const qsizetype at = random.bounded(int(text.size()) + 1);
        const QByteArray longer = text.left(at) + change + text.mid(at);
        const TextRange there{at, at + change.size()};
        const TextDifference more = differenceOf(text, longer, there.end);
        QCOMPARE(more.present, (TextRange{at, at}));
        QCOMPARE(more.wanted, there);
        const TextDifference less = differenceOf(longer, text, at);
        QCOMPARE(less.present, there);
        QCOMPARE(less.wanted, (TextRange{at, at}));
    }
}

void tst_TextDifference::randomTexts_replaced_becomeAlike()
{
    QRandomGenerator random(randomSeed(42));
    const QByteArray pieces[] = {"a", "b", "\n", "\r\n", "\r", "\xC3\xA9", "\xE2\x82\xAC"};
    const auto make = [&] {
        QByteArray text;
        for (int i = random.bounded(12); i > 0; --i)
            text += pieces[random.bounded(7)];
        return text;
    };
    const auto alike = [](QByteArray text) {
        return text.replace("\r\n", "\n").replace('\r', '\n');
    };
    for (int i = 0; i < 20000; ++i) {
        const QByteArray present = make();
        const QByteArray wanted = make();
        const TextDifference difference =
            i % 2 ? differenceOf(present, wanted)
                  : differenceOf(present, wanted, random.bounded(-1, int(wanted.size()) + 2));
        QByteArray result = alike(present.left(difference.present.start));
        result += alike(
            wanted.mid(difference.wanted.start, difference.wanted.end - difference.wanted.start));
        result += alike(present.mid(difference.present.end));
        QCOMPARE(result, alike(wanted));
    }
}

void tst_TextDifference::longTexts_withOtherLineEnds_differInTheChangeAlone()
{
    QRandomGenerator random(randomSeed(7));
    const QByteArray lineEnds[] = {"\n", "\r\n", "\r"};
    const auto joined = [&](const QByteArrayList &lines) {
        QByteArray text;
        for (const QByteArray &line : lines)
            text += line + lineEnds[line.isEmpty() ? 0 : random.bounded(3)]; // no CR meets an LF
        return text;
    };
    for (int i = 0; i < 5000; ++i) {
        QByteArrayList lines;
        for (int line = random.bounded(8); line >= 0; --line)
            lines += QByteArray(1 + random.bounded(24), char('a' + random.bounded(26)));
        const QByteArray present = joined(lines);
        lines.insert(random.bounded(lines.size() + 1), "0");
        const QByteArray wanted = joined(lines);
        const TextDifference difference = differenceOf(present, wanted);
        QCOMPARE(difference.present.end, difference.present.start);
        const qsizetype length = difference.wanted.end - difference.wanted.start;
        const QByteArray inserted = wanted.mid(difference.wanted.start, length);
        QCOMPARE(inserted.trimmed(), "0");
        QVERIFY(length == 2 || inserted.startsWith("0\r\n") || inserted.startsWith("\r\n"));
    }
}

ARDIPHON_TEST(tst_TextDifference, NoApplication)
#include "tst_TextDifference.moc"
