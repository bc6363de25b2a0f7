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
}

void tst_FileFilter::nameFilters()
{
    QFETCH(QString, filter);
    QTEST(ardiphon::nameFilters(filter), "filters");
}

ARDIPHON_TEST(tst_FileFilter, QCoreApplication)
#include "tst_FileFilter.moc"
