#include "app/ui/Icons.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QTest>

using namespace ardiphon;

class tst_Icons : public QObject
{
    Q_OBJECT

private slots:
    void picture_isDrawnOnceForEachLook();
    void picture_followsTheTextColor();
    void unknownName_hasNoPicture();

private:
    static QPixmap drawn(const char *name, int size = 24, QIcon::Mode mode = QIcon::Normal)
    {
        return programIcon(QLatin1String(name)).pixmap(QSize(size, size), 1.0, mode);
    }
};

void tst_Icons::picture_isDrawnOnceForEachLook()
{
    const QPixmap first = drawn("play");
    QCOMPARE(first.size(), QSize(24, 24));
    QCOMPARE(drawn("play").cacheKey(), first.cacheKey());
    for (const QPixmap &other :
         {drawn("stop"), drawn("play", 25), drawn("play", 24, QIcon::Disabled)})
        QVERIFY(other.cacheKey() != first.cacheKey());
    QVERIFY(drawn("stop").toImage() != first.toImage());
    QVERIFY(drawn("play", 24, QIcon::Disabled).toImage() != first.toImage());
}

void tst_Icons::picture_followsTheTextColor()
{
    const QPalette before = QApplication::palette();
    const QImage dark = drawn("play").toImage();
    QPalette light = before;
    light.setColor(QPalette::Active, QPalette::ButtonText, Qt::white);
    QApplication::setPalette(light);
    QVERIFY(drawn("play").toImage() != dark);
    QApplication::setPalette(before);
    QCOMPARE(drawn("play").toImage(), dark);
}

void tst_Icons::unknownName_hasNoPicture() { QVERIFY(drawn("no such picture").isNull()); }

ARDIPHON_TEST(tst_Icons, QApplication)
#include "tst_Icons.moc"
