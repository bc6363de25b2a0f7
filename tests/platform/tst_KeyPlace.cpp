#include "platform/KeyPlace.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

class tst_KeyPlace : public QObject
{
    Q_OBJECT

private slots:
    void key_ofALayout_means_data();
    void key_ofALayout_means();
};

void tst_KeyPlace::key_ofALayout_means_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<quint32>("code");
    QTest::addColumn<int>("meant");
    const auto row = [](const char *name, int key, quint32 code, int meant) {
        QTest::newRow(name) << key << code << meant;
    };
    row("C", Qt::Key_C, 54, Qt::Key_C);
    row("1", Qt::Key_1, 10, Qt::Key_1);
    row("French 1", Qt::Key_Ampersand, 10, Qt::Key_1);
    row("French 2", Qt::Key_Eacute, 11, Qt::Key_2);
    row("French 4", Qt::Key_Apostrophe, 13, Qt::Key_4);
    row("French A, where Q is", Qt::Key_A, 24, Qt::Key_A);
    row("Russian C", 0x421, 54, Qt::Key_C);
    row("Russian O", 0x429, 32, Qt::Key_O);
    row("Russian B", 0x418, 56, Qt::Key_B);
    row("Dvorak C, where I is", Qt::Key_C, 31, Qt::Key_C);
    row("Dvorak J, where C is", Qt::Key_J, 54, Qt::Key_J);
    row("none of the rows", Qt::Key_Minus, 20, Qt::Key_Minus);
    row("behind a row", 0x425, 34, 0x425);
    row("before the rows", Qt::Key_Ampersand, 9, Qt::Key_Ampersand);
    row("1 of the number pad", Qt::Key_1, 87, Qt::Key_1);
    row("Escape", Qt::Key_Escape, 9, Qt::Key_Escape);
    row("Space", Qt::Key_Space, 65, Qt::Key_Space);
    row("of no keyboard", 0x421, 0, 0x421);
}

void tst_KeyPlace::key_ofALayout_means()
{
    QFETCH(int, key);
    QFETCH(quint32, code);
    QTEST(keyMeant(key, code), "meant");
}

ARDIPHON_TEST(tst_KeyPlace, QCoreApplication)
#include "tst_KeyPlace.moc"
