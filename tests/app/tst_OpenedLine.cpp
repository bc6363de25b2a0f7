#include "app/OpenedLine.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

/// The line that one run of the program tells another.
class tst_OpenedLine : public QObject
{
    Q_OBJECT

private slots:
    void line_isTakenOnce();
    void line_thatIsNone_data();
    void line_thatIsNone();
};

void tst_OpenedLine::line_isTakenOnce()
{
    qputenv(OpenedLineVariable, "17");
    QCOMPARE(takeOpenedLine(), 17);
    QVERIFY(!qEnvironmentVariableIsSet(OpenedLineVariable));
    QCOMPARE(takeOpenedLine(), 0);
}

void tst_OpenedLine::line_thatIsNone_data()
{
    QTest::addColumn<QByteArray>("value");
    for (const char *const value : {"", "0", "-3", "x", "1x", "99999999999"})
        QTest::newRow(value) << QByteArray(value);
}

void tst_OpenedLine::line_thatIsNone()
{
    QFETCH(const QByteArray, value);
    qputenv(OpenedLineVariable, value);
    QCOMPARE(takeOpenedLine(), 0);
}

ARDIPHON_TEST(tst_OpenedLine, NoApplication)
#include "tst_OpenedLine.moc"
