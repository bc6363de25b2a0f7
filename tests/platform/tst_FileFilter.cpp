#include "platform/FileFilter.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

class tst_FileFilter : public QObject
{
    Q_OBJECT

private slots:
    void nameFilters_data();
    void nameFilters();
    void programFilters_areThoseOfTheOtherSystemsEnding();
};

void tst_FileFilter::nameFilters_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("filters");

    QTest::newRow("empty") << "" << QStringList();
    QTest::newRow("one pattern") << "Text Files (*.txt)|*.txt"
                                 << QStringList({"Text Files (*.txt) (*.txt)"});
    QTest::newRow("patterns") << "Csound Files (*.csd;*.orc;*.sco)|*.csd;*.orc;*.sco"
                              << QStringList(
                                     {"Csound Files (*.csd;*.orc;*.sco) (*.csd *.orc *.sco)"});
    QTest::newRow("every file") << "All Files (*.*)|*.*" << QStringList({"All Files (*.*) (*)"});
    QTest::newRow("in their order") << "A|*.b|C|*.a" << QStringList({"A (*.b)", "C (*.a)"});
    QTest::newRow("blanks around patterns") << "A| *.b ; *.c " << QStringList({"A (*.b *.c)"});
    QTest::newRow("description without patterns") << "A|*.b|C" << QStringList({"A (*.b)"});
    QTest::newRow("empty patterns") << "A||C|*.c" << QStringList({"C (*.c)"});
    QTest::newRow("closing bar") << "A|*.b|" << QStringList({"A (*.b)"});
    QTest::newRow("programs") << "Csound.exe |*.exe|All files |*.*"
                              << QStringList({"Csound.exe  (*)", "All files  (*)"});
    QTest::newRow("manuals") << "Csound Help (*.hlp)|*.hlp|All files |*.*"
                             << QStringList(
                                    {"Csound Help (*.hlp) (*.hlp *.html *.htm)", "All files  (*)"});
    QTest::newRow("pages") << "Html |*.htm|Html |*.html"
                           << QStringList({"Html  (*.htm *.html)", "Html  (*.html)"});
}

void tst_FileFilter::nameFilters()
{
    QFETCH(QString, filter);
    QTEST(ardiphon::nameFilters(filter), "filters");
}

void tst_FileFilter::programFilters_areThoseOfTheOtherSystemsEnding()
{
    QCOMPARE(ardiphon::programFilters(QStringLiteral("Csound.exe |*.exe|All files |*.*")),
             QStringList({"Csound.exe  (*)"}));
    QCOMPARE(ardiphon::programFilters(QStringLiteral("A|*.com; *.exe")),
             QStringList({"A (*.com *)"}));
    QCOMPARE(ardiphon::programFilters(QStringLiteral("Csound Help (*.hlp)|*.hlp|All files |*.*")),
             QStringList());
}

ARDIPHON_TEST(tst_FileFilter, QCoreApplication)
#include "tst_FileFilter.moc"
