#include "support/TestMain.h"

#include "typing/LineEdits.h"

#include <QTest>

using namespace ardiphon;

/// What the commands for lines change in a text.
class tst_LineEdits : public QObject
{
    Q_OBJECT

private slots:
    void comment_data();
    void comment();
    void comment_twiceIsNothing_data();
    void comment_twiceIsNothing();
    void duplicate_data();
    void duplicate();
    void move_data();
    void move();
    void deleteToLineEnd_data();
    void deleteToLineEnd();
    void join_data();
    void join();
    void letters_data();
    void letters();
    void emptyText_isFine();
};

namespace {

/// Carries out \a edits on lines with "|" between them.
QString edited(const QString &text, const std::vector<EditorEdit> &edits)
{
    QStringList lines = text.split(u'|');
    const auto offset = [&](int line, int column) {
        qsizetype at = column;
        for (int i = 0; i < line - 1; ++i)
            at += lines[i].size() + 1;
        return at;
    };
    QString result;
    qsizetype behind = 0;
    for (const EditorEdit &edit : edits) {
        const qsizetype start = offset(edit.line, edit.column);
        const qsizetype end =
            edit.lines > 0 ? offset(edit.line + edit.lines, edit.length) : start + edit.length;
        if (start < behind || end < start || start > text.size())
            return QStringLiteral("edits in no order");
        result += text.mid(behind, start - behind) + edit.text;
        behind = end;
    }
    result += text.mid(behind);
    return result.replace(u'\n', u'|');
}

LineBlock blockIn(const QString &text, int first, int last)
{
    const QStringList lines = text.split(u'|');
    return {first, lines.mid(first - 1, last - first + 1), last == lines.size()};
}

LineBlock allOf(const QString &text) { return blockIn(text, 1, int(text.count(u'|')) + 1); }

} // namespace

void tst_LineEdits::comment_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");

    QTest::newRow("one line") << "asig"
                              << ";asig";
    QTest::newRow("a comment") << ";asig"
                               << "asig";
    QTest::newRow("indented") << "  asig"
                              << "  ;asig";
    QTest::newRow("margin") << "    a|  b|\t\tc"
                            << "  ;  a|  ;b|\t\t;c";
    QTest::newRow("empty lines") << "a|| \t|b"
                                 << ";a|| \t|;b";
    QTest::newRow("some are comments") << ";a|b"
                                       << ";;a|;b";
    QTest::newRow("all are comments") << ";a||  ; b"
                                      << "a||   b";
    QTest::newRow("of two semicolons the first") << ";;a"
                                                 << ";a";
    QTest::newRow("nothing but blanks") << "|  "
                                        << "|  ";
    QTest::newRow("not behind code") << "a ;b"
                                     << ";a ;b";
}

void tst_LineEdits::comment()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    QCOMPARE(edited(before, toggledComment(allOf(before))), after);
}

void tst_LineEdits::comment_twiceIsNothing_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"a", "  a|b", "\ta|  b||c", ";a|b", " ;a|  ;;b|c", ";|a", "a|;"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void tst_LineEdits::comment_twiceIsNothing()
{
    QFETCH(QString, text);
    const QString once = edited(text, toggledComment(allOf(text)));
    QVERIFY(once != text);
    QCOMPARE(edited(once, toggledComment(allOf(once))), text);
}

void tst_LineEdits::duplicate_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<QString>("after");

    QTest::newRow("first") << 1 << 1 << "a|a|b|c";
    QTest::newRow("two") << 1 << 2 << "a|b|a|b|c";
    QTest::newRow("last") << 3 << 3 << "a|b|c|c";
    QTest::newRow("all") << 1 << 3 << "a|b|c|a|b|c";
}

void tst_LineEdits::duplicate()
{
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(QString, after);
    const QString text = QStringLiteral("a|b|c");
    QCOMPARE(edited(text, duplicatedLines(blockIn(text, first, last))), after);
}

void tst_LineEdits::move_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("middle"); // the last line of the upper block
    QTest::addColumn<int>("last");
    QTest::addColumn<QString>("after");

    QTest::newRow("top") << 1 << 1 << 2 << "b|a|c|";
    QTest::newRow("two over one") << 1 << 2 << 3 << "c|a|b|";
    QTest::newRow("one over two") << 2 << 2 << 4 << "a|c||b";
    QTest::newRow("at the end") << 3 << 3 << 4 << "a|b||c";
}

/// Up and down are the same text; only where the caret stays differs.
void tst_LineEdits::move()
{
    QFETCH(int, first);
    QFETCH(int, middle);
    QFETCH(int, last);
    QFETCH(QString, after);
    const QString text = QStringLiteral("a|b|c|");
    const LineBlock upper = blockIn(text, first, middle);
    const LineBlock lower = blockIn(text, middle + 1, last);
    QCOMPARE(edited(text, linesMovedUp(upper, lower)), after);
    QCOMPARE(edited(text, linesMovedDown(upper, lower)), after);
}

void tst_LineEdits::deleteToLineEnd_data()
{
    QTest::addColumn<QList<int>>("span");
    QTest::addColumn<QString>("after");

    QTest::newRow("within") << QList<int>{1, 2, 1, 2} << "ab|efgh";
    QTest::newRow("from the beginning") << QList<int>{1, 0, 1, 0} << "|efgh";
    QTest::newRow("at the end") << QList<int>{1, 4, 1, 4} << "abcd|efgh";
    QTest::newRow("a selection") << QList<int>{1, 1, 1, 2} << "a|efgh";
    QTest::newRow("over lines") << QList<int>{1, 1, 2, 2} << "a";
}

void tst_LineEdits::deleteToLineEnd()
{
    QFETCH(QList<int>, span);
    QFETCH(QString, after);
    const LineSpan selected{span[0], span[1], span[2], span[3]};
    QCOMPARE(edited(QStringLiteral("abcd|efgh"), ardiphon::deletedToLineEnd(selected, 4)), after);
}

void tst_LineEdits::join_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");

    QTest::newRow("two") << "a|b"
                         << "a b";
    QTest::newRow("blanks where they meet") << "  a \t|\t  b  "
                                            << "  a b  ";
    QTest::newRow("an empty one below") << "a|"
                                        << "a";
    QTest::newRow("an empty one above") << "|  b"
                                        << "b";
    QTest::newRow("blanks above") << "  |  b"
                                  << "  b";
    QTest::newRow("empty ones between") << "a||  |b|"
                                        << "a b";
    QTest::newRow("three") << "a|  b|c"
                           << "a b c";
    QTest::newRow("one") << "a"
                         << "a";
}

void tst_LineEdits::join()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    QCOMPARE(edited(before, joinedLines(allOf(before))), after);
}

void tst_LineEdits::letters_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QList<int>>("span");
    QTest::addColumn<QString>("upper");
    QTest::addColumn<QString>("lower");

    const QList<int> none{1, 0, 1, 0};
    QTest::newRow("a line") << "ab Cd 1" << none << "AB CD 1"
                            << "ab cd 1";
    QTest::newRow("a part") << "abCd" << QList<int>{1, 1, 1, 3} << "aBCd"
                            << "abcd";
    QTest::newRow("over lines") << "aB|cD|eF" << QList<int>{1, 1, 3, 1} << "aB|CD|EF"
                                << "ab|cd|eF";
    QTest::newRow("not ASCII") << QString::fromUtf8("äÖß") << none << QString::fromUtf8("ÄÖß")
                               << QString::fromUtf8("äöß");
    QTest::newRow("two QChars") << QString::fromUtf8("𐐨𐐀a") << none << QString::fromUtf8("𐐀𐐀A")
                                << QString::fromUtf8("𐐨𐐨a");
    QTest::newRow("no letters") << "1 + 2" << none << "1 + 2"
                                << "1 + 2";
}

void tst_LineEdits::letters()
{
    QFETCH(QString, before);
    QFETCH(QList<int>, span);
    QFETCH(QString, upper);
    QFETCH(QString, lower);
    const LineSpan selected{span[0], span[1], span[2], span[3]};
    const LineBlock block = allOf(before);
    QCOMPARE(edited(before, lettersInCase(block, selected, LetterCase::Upper)), upper);
    QCOMPARE(edited(before, lettersInCase(block, selected, LetterCase::Lower)), lower);
}

void tst_LineEdits::emptyText_isFine()
{
    const LineBlock block{1, {QString()}, true};
    QVERIFY(toggledComment(block).empty());
    QCOMPARE(edited(QString(), duplicatedLines(block)), QStringLiteral("|"));
    QVERIFY(joinedLines(block).empty());
    QVERIFY(lettersInCase(block, {}, LetterCase::Upper).empty());
    QVERIFY(ardiphon::deletedToLineEnd({}, 0).empty());
}

ARDIPHON_TEST(tst_LineEdits, QCoreApplication)
#include "tst_LineEdits.moc"
