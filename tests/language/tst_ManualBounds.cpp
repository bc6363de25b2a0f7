#include "language/ManualBounds.h"
#include "support/TestMain.h"

#include <QDir>
#include <QTest>

using namespace ardiphon;

namespace {

const ManualBounds Small{2, 3, 5, 4, 40, 60, 10};

QString bounded(const char *html) { return boundedManualPage(QString::fromUtf8(html), Small).html; }

} // namespace

/// What of a page is handed on to be laid out.
class tst_ManualBounds : public QObject
{
    Q_OBJECT

private slots:
    void page_withinItsBounds_staysAsItIs_data();
    void page_withinItsBounds_staysAsItIs();
    void page_tooDeep_losesTags_data();
    void page_tooDeep_losesTags();
    void word_tooLong_canBeBroken();
    void page_tooLong_ends_data();
    void page_tooLong_ends();
    void span_tooWide_goes();
    void installedManual_staysAsItIs();
};

void tst_ManualBounds::page_withinItsBounds_staysAsItIs_data()
{
    QTest::addColumn<QByteArray>("html");
    for (const char *html :
         {"", "text", "<p>a<p>b", "a < b > c & d &amp; e", "<!-- <table><table><table> --><p>x",
          "<!DOCTYPE html><html><body>x</body></html>", "<table><tr><td><table><tr><td>x",
          "<b>1</b><b>2</b><b>3</b><b>4</b>", "<br><br/><hr><img src='a'><p>x", "</b></b></table>x",
          "<a name=1></a><a name=2></a><a name=3></a><a name=4></a>x",
          "<ul><li>a<li>b<li>c<li>d</ul>", "<td colspan=2 rowspan=\"12\">x", "a<", "<", "<b",
          "<!-- x", "123456789 123456789"})
        QTest::newRow(html) << QByteArray(html);
}

void tst_ManualBounds::page_withinItsBounds_staysAsItIs()
{
    QFETCH(QByteArray, html);
    const BoundedPage page = boundedManualPage(QString::fromUtf8(html), Small);
    QCOMPARE(page.html.toUtf8(), html);
    QVERIFY(page.whole);
}

void tst_ManualBounds::page_tooDeep_losesTags_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<QByteArray>("shown");
    const auto row = [](const char *name, const char *html, const char *shown) {
        QTest::newRow(name) << QByteArray(html) << QByteArray(shown);
    };
    row("elements", "<b><i><u><s>x</s></u></i></b><s>y</s>", "<b><i><u> x </u></i></b><s>y</s>");
    row("case", "<B><I><U><S>x</S></U></I></B>", "<B><I><U> x </U></I></B>");
    row("tables", "<table><table><table><tr><td>x</td></table><tr>y", "<table><table>   x  <tr>y");
    row("anchors", "<a name=1>a<a href=2>b</a><a>c", "<a name=1>a</a><a href=2>b</a><a>c");
    row("lists", "<ul><li><ul><li><ul><li><ul><li>x</ul></ul></ul></ul>",
        "<ul><li><ul><li><ul><li> <li>x </ul></ul></ul>");
}

void tst_ManualBounds::page_tooDeep_losesTags()
{
    QFETCH(QByteArray, html);
    const BoundedPage page = boundedManualPage(QString::fromUtf8(html), Small);
    QTEST(page.html.toUtf8(), "shown");
    QVERIFY(page.whole);
}

void tst_ManualBounds::word_tooLong_canBeBroken()
{
    QCOMPARE(bounded("12345678901234"), QStringLiteral("1234567890\u200b1234"));
    QCOMPARE(bounded("12345<b>67890</b>1234"), QStringLiteral("12345<b>67890\u200b</b>1234"));
    QCOMPARE(bounded("12345<p>67890<p>1234"), QStringLiteral("12345<p>67890<p>1234"));
    QCOMPARE(bounded("12345678&amp;x"),
             QStringLiteral("12345678&amp;\u200bx")); // not within "&amp;"
}

void tst_ManualBounds::page_tooLong_ends_data()
{
    QTest::addColumn<QString>("html");
    QTest::newRow("tags") << QStringLiteral("<p>").repeated(50);
    QTest::newRow("cells") << QStringLiteral("<tr><td>").repeated(5);
    QTest::newRow("items") << QStringLiteral("<ul>") + QStringLiteral("<li>").repeated(7);
    QTest::newRow("text") << QStringLiteral("a ").repeated(50);
    QTest::newRow("comments") << QStringLiteral("<!-- -->").repeated(50);
}

void tst_ManualBounds::page_tooLong_ends()
{
    QFETCH(QString, html);
    const BoundedPage page = boundedManualPage(html, Small);
    QVERIFY(!page.whole);
    QVERIFY(page.html.size() < html.size());
    QVERIFY(html.startsWith(page.html));
}

void tst_ManualBounds::span_tooWide_goes()
{
    for (const char *cell : {"<td colspan=100>", "<TD ROWSPAN = \"20000\" class=x>"})
        QCOMPARE(bounded(cell), QStringLiteral("<td>"));
    QCOMPARE(bounded("<th colspan='999'>"), QStringLiteral("<th>"));
}

void tst_ManualBounds::installedManual_staysAsItIs()
{
    const QDir manual(QStringLiteral("/usr/share/doc/csound-doc/html"));
    const QStringList pages = manual.entryList({QStringLiteral("*.html")});
    if (pages.isEmpty())
        QSKIP("no manual is installed");
    for (const QString &name : pages) {
        QFile file(manual.filePath(name));
        if (file.size() < 50'000)
            continue; // small ones have little of anything
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString html = QString::fromUtf8(file.readAll());
        const BoundedPage page = boundedManualPage(html);
        QVERIFY2(page.whole && page.html == html, qPrintable(name));
    }
}

ARDIPHON_TEST(tst_ManualBounds, QCoreApplication)
#include "tst_ManualBounds.moc"
