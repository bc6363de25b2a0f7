#include "printing/PrintPage.h"

#include "app/ConfigurationBlock.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

/// Where things are on a printed page.
class tst_PrintPage : public QObject
{
    Q_OBJECT

private slots:
    void margins_areTakenAs57TwipsAMillimetre();
    void textRectangle_liesWithinTheMarginsBelowTheHeader();
    void textRectangle_withoutRoom_isEmpty_data();
    void textRectangle_withoutRoom_isEmpty();
    void headerRule_crossesTheScaleAtTheTopMargin();
    void printedName_isWhatFollowsTheLastSeparator_data();
    void printedName_isWhatFollowsTheLastSeparator();
    void headerLine_namesThePage();

private:
    /// A4, of which the printer cannot reach 200 twips at the left and 300 at the top.
    static constexpr PrinterPage page{11904, 16838, 11504, 16238, 200, 300};
};

void tst_PrintPage::margins_areTakenAs57TwipsAMillimetre()
{
    ConfigurationBlock config;
    config.MarginLeft = 0;
    config.MarginTop = 1;
    config.MarginRight = 100;
    const PrintMargins margins = printMargins(config);
    QCOMPARE(margins.left, 0);
    QCOMPARE(margins.top, 57);
    QCOMPARE(margins.right, 5700);
    QCOMPARE(margins.bottom, 570); // 10 at the program's start
}

void tst_PrintPage::textRectangle_liesWithinTheMarginsBelowTheHeader()
{
    const QRect area = textRectangle(page, {1000, 2000, 3000, 4000});
    QCOMPARE(area.x(), 800);                     // left - 200
    QCOMPARE(area.y(), 2270);                    // top - 300 + 570
    QCOMPARE(area.x() + area.width(), 8704);     // 11904 - 3000 - 200
    QCOMPARE(area.y() + area.height(), 12538);   // 16838 - 4000 - 300
    QCOMPARE(textRectangle(page, {}).x(), -200); // out of the printer's reach, as asked
    QCOMPARE(textRectangle(page, {}).y(), 270);
}

void tst_PrintPage::textRectangle_withoutRoom_isEmpty_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<bool>("empty");
    QTest::newRow("room") << 2001 << 2571 << false;
    QTest::newRow("no width") << 2000 << 5000 << true;
    QTest::newRow("less than no width") << 1500 << 5000 << true;
    QTest::newRow("no height") << 5000 << 2570 << true;
    QTest::newRow("less than no height") << 5000 << 100 << true;
}

void tst_PrintPage::textRectangle_withoutRoom_isEmpty()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QTEST(textRectangle({width, height, width, height, 0, 0}, {1000, 1000, 1000, 1000}).isEmpty(),
          "empty");
}

void tst_PrintPage::headerRule_crossesTheScaleAtTheTopMargin()
{
    QCOMPARE(headerRule(page, {1000, 2000, 3000, 4000}), QLine(0, 2000, 11504, 2000));
}

void tst_PrintPage::printedName_isWhatFollowsTheLastSeparator_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    QTest::newRow("path") << "/home/a/my piece.csd"
                          << "my piece.csd";
    QTest::newRow("name alone") << "piece.csd"
                                << "piece.csd";
    QTest::newRow("placeholder") << "[Untitled]"
                                 << "[Untitled]";
    QTest::newRow("separator last") << "/home/"
                                    << "";
    QTest::newRow("backslash is a letter") << "/home/a\\b.csd"
                                           << "a\\b.csd";
}

void tst_PrintPage::printedName_isWhatFollowsTheLastSeparator()
{
    QFETCH(QString, path);
    QTEST(printedName(path), "name");
}

void tst_PrintPage::headerLine_namesThePage()
{
    QCOMPARE(headerLine(QStringLiteral("piece.csd"), 12), QStringLiteral("piece.csd - Page 12"));
}

ARDIPHON_TEST(tst_PrintPage, QCoreApplication)
#include "tst_PrintPage.moc"
