#include "app/Numbers.h"
#include "support/TestMain.h"

#include <QTest>

#include <limits>

using namespace ardiphon;

class tst_Numbers : public QObject
{
    Q_OBJECT

private slots:
    void leadingNumber_data();
    void leadingNumber();
    void isNumber_text_data();
    void isNumber_text();
    void roundedWithin_data();
    void roundedWithin();
};

void tst_Numbers::leadingNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");

    QTest::newRow("empty") << "" << 0.0;
    QTest::newRow("word") << "abc" << 0.0;
    QTest::newRow("whole") << "12" << 12.0;
    QTest::newRow("blanks around") << "  12 " << 12.0;
    QTest::newRow("then letters") << "12px" << 12.0;
    QTest::newRow("then a comma") << "1,5" << 1.0;
    QTest::newRow("minus") << "-3" << -3.0;
    QTest::newRow("plus") << "+3" << 3.0;
    QTest::newRow("sign alone") << "-" << 0.0;
    QTest::newRow("two signs") << "--3" << 0.0;
    QTest::newRow("fraction") << "1.25" << 1.25;
    QTest::newRow("point first") << ".5" << 0.5;
    QTest::newRow("point last") << "5." << 5.0;
    QTest::newRow("point alone") << "." << 0.0;
    QTest::newRow("second point ends it") << "1.5.2" << 1.5;
    QTest::newRow("exponent") << "2e3" << 2000.0;
    QTest::newRow("too large") << "-1e999" << -std::numeric_limits<double>::infinity();
    QTest::newRow("exponent with sign") << "2E-1" << 0.2;
    QTest::newRow("exponent without digits") << "2e" << 2.0;
    QTest::newRow("exponent with a sign alone") << "2e+" << 2.0;
    QTest::newRow("hexadecimal is not read") << "0x10" << 0.0;
    QTest::newRow("not a number by name") << "nan" << 0.0;
    QTest::newRow("infinity by name") << "inf" << 0.0;
}

void tst_Numbers::leadingNumber()
{
    QFETCH(QString, text);
    QFETCH(double, number);
    QCOMPARE(ardiphon::leadingNumber(text), number);
}

void tst_Numbers::isNumber_text_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("number");
    for (const char *text : {"1", "12", " 12 ", "-5", "+5", "12.6", ".5", "5.", "1e3", "1E-3",
                             "99999999999", "\t7\t", "1e999"})
        QTest::addRow("'%s'", text) << text << true;
    for (const char *text : {"", " ", "a", "12a", "a12", "1 2", "1.2.3", "-", "+-1", ".", "e3",
                             "1e", "1e+", "--1", "0x10", "1,5", "kamp"})
        QTest::addRow("no number: '%s'", text) << text << false;
    QTest::newRow("two lines") << "1\n2" << false;
}

void tst_Numbers::isNumber_text()
{
    QFETCH(QString, text);
    QTEST(isNumber(text), "number");
}

void tst_Numbers::roundedWithin_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<int>("rounded");

    QTest::newRow("whole") << 3.0 << 3;
    QTest::newRow("down") << 3.4 << 3;
    QTest::newRow("up") << 3.6 << 4;
    QTest::newRow("half to the even below") << 2.5 << 2;
    QTest::newRow("half to the even above") << 3.5 << 4;
    QTest::newRow("lowest") << 1.0 << 1;
    QTest::newRow("below") << -7.0 << 1;
    QTest::newRow("highest") << 6.0 << 6;
    QTest::newRow("above") << 1e300 << 6;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 6;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 1;
}

void tst_Numbers::roundedWithin()
{
    QFETCH(double, number);
    QFETCH(int, rounded);
    QCOMPARE(ardiphon::roundedWithin(number, 1, 6), rounded);
}

ARDIPHON_TEST(tst_Numbers, QCoreApplication)
#include "tst_Numbers.moc"
