#include "compile/PrintedLog.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

class tst_PrintedLog : public QObject
{
    Q_OBJECT

private slots:
    void text_withinTheBounds_isAll();
    void text_beyondTheBounds_isBeginningAndEnd_data();
    void text_beyondTheBounds_isBeginningAndEnd();
    void text_isCleanedOverLines();
};

void tst_PrintedLog::text_withinTheBounds_isAll()
{
    PrintedLog log({100, 3});
    QCOMPARE(log.text(), QString());
    for (const char *line : {"one", "two", "", "four"})
        log.add({OutputChannel::Standard, line});
    log.add({OutputChannel::Errors, "five"});
    log.add({OutputChannel::Errors, "no end", false});
    QCOMPARE(log.text(), QStringLiteral("one\r\ntwo\r\n\r\nfour\r\nfive\r\nno end"));
}

void tst_PrintedLog::text_beyondTheBounds_isBeginningAndEnd_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<int>("lines");
    QTest::addColumn<QString>("text");
    const QString gap =
        QStringLiteral("\r\n[... %1 bytes of the log are not shown here ...]\r\n\r\n");
    QTest::newRow("lines") << 100 << 2 << "1\r\n2\r\n" + gap.arg(10) + "8\r\n9\r\n";
    QTest::newRow("bytes") << 7 << 100 << "1\r\n2\r\n3\r\n" + gap.arg(6) + "7\r\n8\r\n9\r\n";
    QTest::newRow("no room") << 0 << 0 << gap.arg(16) + "9\r\n";
    QTest::newRow("just enough") << 100 << 5 << "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n";
}

void tst_PrintedLog::text_beyondTheBounds_isBeginningAndEnd()
{
    QFETCH(int, bytes);
    QFETCH(int, lines);
    PrintedLog log({bytes, lines});
    for (int i = 1; i <= 9; ++i)
        log.add({OutputChannel::Standard, QByteArray::number(i)});
    QTEST(log.text(), "text");
}

void tst_PrintedLog::text_isCleanedOverLines()
{
    PrintedLog log({8, 10});
    log.add({OutputChannel::Standard, QByteArray("a\0\x1b[31mb", 8)}); // is longer than the head
    log.add({OutputChannel::Standard, "\xe8"});
    QCOMPARE(log.text(),
             QStringLiteral("\r\n[... 9 bytes of the log are not shown here ...]\r\n\r\n") +
                 QChar(0xe8) + QStringLiteral("\r\n"));
    PrintedLog larger({100, 10});
    larger.add({OutputChannel::Standard, QByteArray("a\0\x1b[31mb", 8)});
    QCOMPARE(larger.text(), QStringLiteral("ab\r\n"));
}

ARDIPHON_TEST(tst_PrintedLog, NoApplication)
#include "tst_PrintedLog.moc"
