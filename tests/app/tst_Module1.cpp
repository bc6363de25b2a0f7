#include "app/Module1.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

class tst_Module1 : public QObject
{
    Q_OBJECT

private slots:
    void isNumericText_data();
    void isNumericText();
};

void tst_Module1::isNumericText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("numeric");

    QTest::newRow("empty") << "" << true;
    QTest::newRow("whole") << "0123456789" << true;
    QTest::newRow("point") << "1.5" << true;
    QTest::newRow("two points") << "1.5.2" << false;
    QTest::newRow("point alone") << "." << true;
    QTest::newRow("exponent") << "1e3" << false;
    QTest::newRow("sign") << "-1" << true;
    QTest::newRow("signs and slash anywhere") << "1-2/3" << true;
    QTest::newRow("plus") << "+1" << false;
    QTest::newRow("comma, the code below") << "1,5" << false;
    QTest::newRow("colon, the code above") << "1:5" << false;
    QTest::newRow("blank") << "1 5" << false;
    QTest::newRow("letter first") << "a1" << false;
    QTest::newRow("letter last") << "1a" << false;
    QTest::newRow("digit of another script") << QStringLiteral(u"\u0663") << false;
}

void tst_Module1::isNumericText()
{
    QFETCH(QString, text);
    QFETCH(bool, numeric);
    QCOMPARE(IsNumericText(text), numeric);
}

ARDIPHON_TEST(tst_Module1, QCoreApplication)
#include "tst_Module1.moc"
