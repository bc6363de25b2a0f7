#include "platform/ui/Printer.h"
#include "printing/ui/PageFormatter.h"
#include "printing/ui/PrintModule.h"
#include "support/FailingPrinter.h"
#include "support/PrintedPdf.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QPrinter>
#include <QRandomGenerator>
#include <QTest>

#include <memory>

using namespace ardiphon;

/// The pages that a text becomes, printed into a PDF and read back.
class tst_PrintModule : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_pdf = std::make_unique<PrintedPdf>(); }

    void pages_holdEveryLineOnce_data();
    void pages_holdEveryLineOnce();
    void pages_fillTheRectangle_data();
    void pages_fillTheRectangle();
    void page_thatIsJustFull_isFollowedByNone_data();
    void page_thatIsJustFull_isFollowedByNone();
    void randomText_isPrintedWhole();
    void lineWithoutEnd_isPrintedWhole_data();
    void lineWithoutEnd_isPrintedWhole();
    void emptyLines_takeTheirRoom();
    void longLine_breaksBetweenWords();
    void longWord_breaksAnywhere();
    void tabs_arePlacedAsInTheEditor_data();
    void tabs_arePlacedAsInTheEditor();
    void otherScripts_arePrinted();
    void strangeCharacters_printSomehow();

    void header_isInTheSecondLineAtTheLeftMargin();
    void header_hasTheFontOfTheText();
    void rule_crossesThePageAtTheTopMargin();
    void edgesOutOfReach_moveTheHeaderOnly();
    void jobsIntoOneFile_followEachOther();

    void marginsWithoutRoom_printNothing();
    void lineTallerThanThePage_isPrintedAllTheSame();
    void printerThatFails_endsSilently();
    void printerThatFailsInMidJob_isAskedForNothingMore_data();
    void printerThatFailsInMidJob_isAskedForNothingMore();

private:
    void print(const QString &text, QPageSize::PageSizeId paper = QPageSize::A4,
               int resolution = 300)
    {
        PrintRichText(*m_pdf->printer(paper, resolution), box(text), Margins,
                      QStringLiteral("/home/a/piece.csd"));
    }
    static PrintText box(const QString &text)
    {
        QFont font(QStringLiteral("DejaVu Sans Mono"));
        font.setPointSizeF(10);
        return {text, font, 8};
    }
    static QString lines(int count);
    /// How many lines the first page of a long text takes.
    int linesOfAPage(QPageSize::PageSizeId paper, int resolution);

    static constexpr PrintMargins Margins{570, 570, 570, 570};
    std::unique_ptr<PrintedPdf> m_pdf;
};

QString tst_PrintModule::lines(int count)
{
    QString text;
    for (int i = 1; i <= count; ++i)
        text += QStringLiteral("line-%1\r\n").arg(i);
    return text;
}

int tst_PrintModule::linesOfAPage(QPageSize::PageSizeId paper, int resolution)
{
    print(lines(200), paper, resolution);
    return int(m_pdf->pages().constFirst().size()) - 1;
}

void addPapers()
{
    QTest::addColumn<QPageSize::PageSizeId>("paper");
    QTest::addColumn<int>("resolution");
    QTest::newRow("A4, 300 dpi") << QPageSize::A4 << 300;
    QTest::newRow("A4, 1200 dpi") << QPageSize::A4 << 1200;
    QTest::newRow("Letter, 300 dpi") << QPageSize::Letter << 300;
    QTest::newRow("Letter, 1200 dpi") << QPageSize::Letter << 1200;
}

// The text. ---------------------------------------------------------------------------------------

void tst_PrintModule::pages_holdEveryLineOnce_data() { addPapers(); }

void tst_PrintModule::pages_holdEveryLineOnce()
{
    QFETCH(QPageSize::PageSizeId, paper);
    QFETCH(int, resolution);
    const QString text = lines(500);
    print(text, paper, resolution);
    QCOMPARE(m_pdf->bodyLines(), text.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts));
    const QStringList headers = m_pdf->headers();
    QCOMPARE(headers.size(), m_pdf->pageCount());
    QVERIFY(headers.size() > 6);
    for (qsizetype i = 0; i < headers.size(); ++i)
        QCOMPARE(headers[i], QStringLiteral("piece.csd - Page %1").arg(i + 1));
}

void tst_PrintModule::pages_fillTheRectangle_data() { addPapers(); }

void tst_PrintModule::pages_fillTheRectangle()
{
    QFETCH(QPageSize::PageSizeId, paper);
    QFETCH(int, resolution);
    const int count = linesOfAPage(paper, resolution);
    const int height = paper == QPageSize::A4 ? 16838 : 15840; // 297 mm, 11 inches
    const double first = m_pdf->word(QStringLiteral("line-1")).box.top();
    const double pitch = m_pdf->word(QStringLiteral("line-2")).box.top() - first;
    const double area = height - 570 - 570 - HeaderRoom;
    QVERIFY2(qAbs(first - (570 + HeaderRoom)) < pitch / 2, qPrintable(QString::number(first)));
    QCOMPARE(count, int(area / pitch));
    QCOMPARE(m_pdf->word(QStringLiteral("line-%1").arg(count)).page, 1);
    const PrintedPdf::Word next = m_pdf->word(QStringLiteral("line-%1").arg(count + 1));
    QCOMPARE(next.page, 2);
    QVERIFY(qAbs(next.box.top() - first) < 2);
    QVERIFY(qAbs(next.box.left() - 570) < 20);
}

void tst_PrintModule::page_thatIsJustFull_isFollowedByNone_data() { addPapers(); }

void tst_PrintModule::page_thatIsJustFull_isFollowedByNone()
{
    QFETCH(QPageSize::PageSizeId, paper);
    QFETCH(int, resolution);
    const int count = linesOfAPage(paper, resolution);
    const auto pagesOf = [&](const QString &text) {
        print(text, paper, resolution);
        return m_pdf->pageCount();
    };
    QCOMPARE(pagesOf(lines(count)), 1); // with a line end behind the last line
    QCOMPARE(pagesOf(lines(count).chopped(2)), 1);
    QCOMPARE(pagesOf(lines(count) + QStringLiteral("\r\n")), 2); // an empty line on the next page
    QCOMPARE(pagesOf(lines(count + 1)), 2);
    QCOMPARE(pagesOf(lines(2 * count)), 2);
    QCOMPARE(pagesOf(lines(2 * count) + u'x'), 3);
}

/// Without blanks, which a page does not show.
QString ink(const QString &text)
{
    QString without;
    for (const QChar character : text)
        if (!character.isSpace())
            without += character;
    return without;
}

void tst_PrintModule::randomText_isPrintedWhole()
{
    QRandomGenerator random(randomSeed(7));
    for (int round = 0; round < 12; ++round) {
        QString text;
        const int words = random.bounded(1, 1500);
        for (int i = 0; i < words; ++i) {
            text += QString(random.bounded(1, round % 3 ? 12 : 300), QChar(u'a' + i % 26));
            text += QStringLiteral("%1").arg(i);
            const QString ends[] = {QStringLiteral(" "), QStringLiteral("\t"),
                                    QStringLiteral("\r\n"), QStringLiteral("\r\n\r\n")};
            text += ends[random.bounded(4)];
        }
        print(text, round % 2 ? QPageSize::A5 : QPageSize::A4, round % 2 ? 300 : 1200);
        QCOMPARE(ink(m_pdf->bodyLines().join(QString())), ink(text));
    }
}

void tst_PrintModule::lineWithoutEnd_isPrintedWhole_data()
{
    QTest::addColumn<double>("points");
    QTest::newRow("laid out once a page") << 10.0;
    QTest::newRow("laid out several times a page") << 4.0;
}

void tst_PrintModule::lineWithoutEnd_isPrintedWhole()
{
    QFETCH(double, points);
    QString numbers;
    for (int i = 0; numbers.size() < 100'000; ++i)
        numbers += QStringLiteral("%1 ").arg(i);
    PrintText text = box(numbers);
    text.font.setPointSizeF(points);
    PrintRichText(*m_pdf->printer(), text, Margins, QStringLiteral("piece.csd"));
    QCOMPARE(m_pdf->bodyLines().join(u' ').simplified(), numbers.simplified());
    text.text = ink(numbers);
    PrintRichText(*m_pdf->printer(), text, Margins, QStringLiteral("piece.csd"));
    const QStringList shown = m_pdf->bodyLines();
    QCOMPARE(shown.join(QString()), text.text);
    for (const QString &line : shown.mid(0, shown.size() - 1))
        QCOMPARE(line.size(), shown.constFirst().size()); // each line is full
}

void tst_PrintModule::emptyLines_takeTheirRoom()
{
    print(QStringLiteral("one\r\ntwo\r\n\r\n\r\nfive\rsix\nseven"));
    const double one = m_pdf->word(QStringLiteral("one")).box.top();
    const double pitch = m_pdf->word(QStringLiteral("two")).box.top() - one;
    const auto lineOf = [&](const char *word) {
        return qRound((m_pdf->word(QLatin1String(word)).box.top() - one) / pitch) + 1;
    };
    QCOMPARE(lineOf("five"), 5);
    QCOMPARE(lineOf("six"), 6);
    QCOMPARE(lineOf("seven"), 7);
}

void tst_PrintModule::longLine_breaksBetweenWords()
{
    const QString text = QStringLiteral("seven77 ").repeated(60);
    print(text);
    const QStringList shown = m_pdf->bodyLines();
    QVERIFY(shown.size() > 3);
    for (const QString &line : shown)
        for (const QString &word : line.split(u' '))
            QCOMPARE(word, QStringLiteral("seven77"));
    for (const PrintedPdf::Word &word : m_pdf->words())
        QVERIFY(word.box.left() > 550 && word.box.right() < 11904 - 550);
}

void tst_PrintModule::longWord_breaksAnywhere()
{
    const QString text = QStringLiteral("x").repeated(400);
    print(text);
    QVERIFY(m_pdf->bodyLines().size() > 3);
    QCOMPARE(m_pdf->bodyLines().join(QString()), text);
    for (const PrintedPdf::Word &word : m_pdf->words())
        QVERIFY(word.box.right() < 11904 - 550);
}

void tst_PrintModule::tabs_arePlacedAsInTheEditor_data()
{
    QTest::addColumn<int>("tabSize");
    QTest::newRow("2") << 2;
    QTest::newRow("4") << 4;
    QTest::newRow("8") << 8;
    QTest::newRow("30") << 30;
}

void tst_PrintModule::tabs_arePlacedAsInTheEditor()
{
    QFETCH(int, tabSize);
    const QString blanks(tabSize, u' ');
    PrintText text = box(
        QStringLiteral("\tfirst\r\n%1wanted\r\na\tsecond\r\n\t\tthird\r\n%1%1twice").arg(blanks));
    text.tabSize = tabSize;
    PrintRichText(*m_pdf->printer(), text, Margins, QStringLiteral("piece.csd"));
    const auto leftOf = [&](const char *word) {
        return m_pdf->word(QLatin1String(word)).box.left();
    };
    QVERIFY(qAbs(leftOf("first") - leftOf("wanted")) < 10);
    QVERIFY(qAbs(leftOf("second") - leftOf("wanted")) < 10);
    QVERIFY(qAbs(leftOf("third") - leftOf("twice")) < 10);
    QVERIFY(leftOf("wanted") - 570 > tabSize * 100);
}

void tst_PrintModule::otherScripts_arePrinted()
{
    const QStringList words{QStringLiteral("perché"), QStringLiteral("Größe"),
                            QStringLiteral("Ωμέγα"),  QStringLiteral("звук"),
                            QStringLiteral("€"),      QStringLiteral("ŝanĝo")};
    print(words.join(QStringLiteral("\r\n")));
    QCOMPARE(m_pdf->bodyLines(), words);
}

void tst_PrintModule::strangeCharacters_printSomehow()
{
    QString text = QStringLiteral("before\r\n");
    for (const char16_t strange : u"\u0001\u0008\u000b\u000c\u001b\u007f\u00ad\u200f\u2028\u2029"
                                  u"\ufeff\ufffc\ufffe\uffff\0")
        text += QChar(strange) + QStringLiteral("x\r\n");
    for (const int half : {0xd800, 0xdc00}) // a character that is not whole
        text += QChar(half) + QStringLiteral("x\r\n");
    print(text + QStringLiteral("after"));
    QCOMPARE(m_pdf->bodyLines().constFirst(), QStringLiteral("before"));
    QCOMPARE(m_pdf->bodyLines().constLast(), QStringLiteral("after"));
    QCOMPARE(m_pdf->pageCount(), 1);
}

// The page around it. -----------------------------------------------------------------------------

void tst_PrintModule::header_isInTheSecondLineAtTheLeftMargin()
{
    PrintRichText(*m_pdf->printer(), box(QStringLiteral("one\r\ntwo")), {2000, 3000, 570, 570},
                  QStringLiteral("piece.csd"));
    const PrintedPdf::Word header = m_pdf->word(QStringLiteral("piece.csd"));
    const double pitch =
        m_pdf->word(QStringLiteral("two")).box.top() - m_pdf->word(QStringLiteral("one")).box.top();
    QVERIFY(qAbs(header.box.left() - 2000) < 20);
    QVERIFY(header.box.top() > 0.8 * pitch && header.box.bottom() < 2.3 * pitch);
    QVERIFY(qAbs(m_pdf->word(QStringLiteral("one")).box.top() - 3570) < pitch / 2);
}

void tst_PrintModule::header_hasTheFontOfTheText()
{
    PrintText text = box(QStringLiteral("piece.orc"));
    text.font.setPointSizeF(18);
    PrintRichText(*m_pdf->printer(), text, Margins, QStringLiteral("piece.csd"));
    const QRectF header = m_pdf->word(QStringLiteral("piece.csd")).box;
    const QRectF body = m_pdf->word(QStringLiteral("piece.orc")).box;
    QVERIFY(qAbs(header.width() - body.width()) < 2);
    QVERIFY(qAbs(header.height() - body.height()) < 2);
}

void tst_PrintModule::rule_crossesThePageAtTheTopMargin()
{
    PrintRichText(*m_pdf->printer(), box(lines(100)), {2000, 3000, 2000, 570},
                  QStringLiteral("piece.csd"));
    for (int page = 1; page <= 2; ++page) {
        const QImage picture = m_pdf->picture(page);
        QCOMPARE(picture.width(), 595);
        const auto darkRow = [&](int y) {
            for (int x = 0; x < picture.width() - 1; ++x)
                if (qGray(picture.pixel(x, y)) > 200)
                    return false;
            return true;
        };
        QVERIFY(darkRow(3000 / 20));
        QVERIFY(!darkRow(3000 / 20 - 2) && !darkRow(3000 / 20 + 2));
    }
}

/// Text keeps its margins from the paper's edges; header and rule begin where the printer does.
void tst_PrintModule::edgesOutOfReach_moveTheHeaderOnly()
{
    PrintRichText(*m_pdf->printer(QPageSize::A4, 300, 10), box(QStringLiteral("one")),
                  {1000, 1000, 1000, 1000}, QStringLiteral("piece.csd"));
    const double edge = 10 / 25.4 * 1440;
    QVERIFY(qAbs(m_pdf->word(QStringLiteral("one")).box.left() - 1000) < 30);
    QVERIFY(qAbs(m_pdf->word(QStringLiteral("one")).box.top() - 1570) < 60);
    QVERIFY(qAbs(m_pdf->word(QStringLiteral("piece.csd")).box.left() - (1000 + edge)) < 30);
    const QImage picture = m_pdf->picture(1);
    const int rule = int(1000 + edge) / 20;
    QVERIFY(qGray(picture.pixel(10, rule)) > 250); // in the edge
    QVERIFY(qGray(picture.pixel(300, rule)) < 200);
}

void tst_PrintModule::jobsIntoOneFile_followEachOther()
{
    {
        const auto printer = m_pdf->printer();
        PrintRichText(*printer, box(lines(100)), Margins, QStringLiteral("a.orc"));
        PrintRichText(*printer, box(QStringLiteral("i1 0 1")), Margins, QStringLiteral("a.sco"));
    }
    QCOMPARE(m_pdf->headers(),
             (QStringList{QStringLiteral("a.orc - Page 1"), QStringLiteral("a.orc - Page 2"),
                          QStringLiteral("a.sco - Page 1")}));
    QCOMPARE(m_pdf->bodyLines().constLast(), QStringLiteral("i1 0 1"));
}

// Failures. ---------------------------------------------------------------------------------------

void tst_PrintModule::marginsWithoutRoom_printNothing()
{
    PrintRichText(*m_pdf->printer(QPageSize::A5), box(lines(3)), {5700, 570, 5700, 570},
                  QStringLiteral("piece.csd"));
    QVERIFY(!m_pdf->exists());
}

void tst_PrintModule::lineTallerThanThePage_isPrintedAllTheSame()
{
    PrintText text = box(QStringLiteral("a\r\nb\r\nc"));
    text.font.setPointSizeF(100);
    PrintRichText(*m_pdf->printer(), text, {0, 15000, 0, 1200}, QStringLiteral("piece.csd"));
    QCOMPARE(m_pdf->pageCount(), 3);
}

void tst_PrintModule::printerThatFails_endsSilently()
{
    auto broken = std::make_unique<QPrinter>();
    broken->setOutputFileName(QStringLiteral("/nowhere/printed.pdf"));
    Printer printer(std::move(broken));
    QTest::ignoreMessage(QtWarningMsg, "QPainter::begin(): Returned false");
    PrintRichText(printer, box(lines(200)), Margins, QStringLiteral("piece.csd"));
}

void tst_PrintModule::printerThatFailsInMidJob_isAskedForNothingMore_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("asked");
    // One that reports its trouble is not even asked for the page.
    QTest::newRow("error") << int(QPrinter::Error) << 1;
    QTest::newRow("aborted") << int(QPrinter::Aborted) << 1;
    QTest::newRow("page refused") << int(QPrinter::Active) << 2;
}

void tst_PrintModule::printerThatFailsInMidJob_isAskedForNothingMore()
{
    QFETCH(int, state);
    int asked = 0;
    {
        Printer printer(std::make_unique<FailingPrinter>(m_pdf->path(), 2,
                                                         QPrinter::PrinterState(state), asked));
        PrintRichText(printer, box(lines(1000)), Margins, QStringLiteral("piece.csd"));
        QVERIFY(printer.hasFailed());
        QTEST(asked, "asked");
    }
    QCOMPARE(m_pdf->headers(),
             QStringList({QStringLiteral("piece.csd - Page 1"), "piece.csd - Page 2"}));
}

ARDIPHON_TEST(tst_PrintModule, QApplication)
#include "tst_PrintModule.moc"
