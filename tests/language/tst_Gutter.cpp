// The line numbers beside a view, as they are drawn.

#include "app/ConfigurationBlock.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/Gutter.h"
#include "support/EditorInput.h"
#include "support/TestMain.h"

#include <QHash>
#include <QPainter>
#include <QScreen>
#include <QSignalSpy>

#include <array>
#include <cmath>
#include <memory>
#include <vector>

using namespace ardiphon;
using namespace EditorInput;

class tst_Gutter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void numbers_shortText_runToTheBottom();
    void numbers_scrolled_areThoseOfTheLines();
    void numbers_textChanges_followTheView();
    void numbers_overFolds_areThoseOfTheLines();
    void numbers_otherFont_keepBesideTheirLines();
    void numbers_sixDigits_areWhole();
    void numbers_endAtTheRightEdge();
    void numbers_notVisible_areNotDrawn();
    void width_isThatOfSixZeros();
    void width_fromAMillionLinesOn_holdsEachNumber();
    void repaint_onlyWhenTheNumbersAreOthers();
    void repaint_ofAPart_keepsEveryNumber();

private:
    QString number(int row);
    QStringList numbers(int count);
    QImage picture();
    void fit(int rows);

    std::unique_ptr<QWidget> m_window;
    LEditOCX *m_editor = nullptr;
    Gutter *m_gutter = nullptr;
    ConfigurationBlock m_config;
};

namespace {

// How dark each pixel is against the ground, from 0 to 1 where the darkest is 1.
std::vector<double> inkOf(const QImage &picture, const QRect &place)
{
    std::vector<double> ink;
    const int ground = qGray(picture.pixel(place.left(), place.top()));
    double most = 0;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            ink.push_back(std::abs(ground - qGray(picture.pixel(x, y))));
            most = std::max(most, ink.back());
        }
    }
    if (most < 20)
        return {};
    for (double &each : ink)
        each /= most;
    return ink;
}

double differenceOf(const std::vector<double> &one, const std::vector<double> &other)
{
    double difference = 0;
    double all = 0;
    for (std::size_t i = 0; i < one.size(); ++i) {
        difference += std::abs(one[i] - other[i]);
        all += other[i];
    }
    return difference / all;
}

// How the font draws each digit at the right edge of a place of that size.
const std::vector<std::vector<double>> &inkOfDigits(const QSize &size, const QFont &font)
{
    static QHash<QString, std::vector<std::vector<double>>> known;
    std::vector<std::vector<double>> &digits =
        known[QStringLiteral("%1 %2 %3").arg(size.width()).arg(size.height()).arg(font.key())];
    for (char digit = '0'; digits.size() < 10; ++digit) {
        QImage drawn(size, QImage::Format_RGB32);
        drawn.fill(Qt::white);
        QPainter painter(&drawn);
        painter.setFont(font);
        painter.drawText(drawn.rect(), Qt::AlignRight | Qt::AlignVCenter,
                         QString(QLatin1Char(digit)));
        painter.end();
        digits.push_back(inkOf(drawn, drawn.rect()));
    }
    return digits;
}

// The digit that a place of a picture shows, as the font draws it there; '?' for another sign.
char digitAt(const QImage &picture, const QRect &place, const QFont &font)
{
    const std::vector<double> seen = inkOf(picture, place);
    if (seen.empty())
        return ' ';
    char best = '?';
    double least = 0.3;
    const std::vector<std::vector<double>> &digits = inkOfDigits(place.size(), font);
    for (std::size_t digit = 0; digit < digits.size(); ++digit) {
        const double difference = differenceOf(seen, digits[digit]);
        if (difference < least) {
            least = difference;
            best = char('0' + digit);
        }
    }
    return best;
}

} // namespace

void tst_Gutter::init()
{
    m_config.LineNumbersVisible = true;
    m_window = std::make_unique<QWidget>();
    m_window->setPalette(QPalette(Qt::lightGray));
    m_editor = new LEditOCX(m_window.get());
    m_editor->SetFontName(QStringLiteral("DejaVu Sans Mono"));
    m_editor->SetFontSize(15); // digits are a whole number of pixels wide
    m_gutter = new Gutter(*m_editor, m_config, m_window.get());
    m_window->resize(400, 600);
    fit(20);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

/// The view and the gutter get the height of so many lines, and the gutter the width that it asks
/// for.
void tst_Gutter::fit(int rows)
{
    const int width = m_gutter->textWidth();
    const int height = rows * m_editor->LineHeight();
    m_gutter->setGeometry(0, 0, width, height);
    m_editor->setGeometry(width, 0, 300, height);
}

/// What the screen shows of the gutter; nothing is drawn for it.
QImage tst_Gutter::picture()
{
    QCoreApplication::processEvents();
    const QPixmap screen = m_window->screen()->grabWindow(m_window->winId());
    return screen.copy(m_gutter->geometry()).toImage().convertToFormat(QImage::Format_RGB32);
}

/// The number in a row, read digit by digit from the right edge; "" for none.
QString tst_Gutter::number(int row)
{
    const QImage shown = picture();
    const int advance = QFontMetrics(m_gutter->font()).horizontalAdvance(u'0');
    const int height = m_editor->LineHeight();
    QString digits;
    for (int right = shown.width(); right >= advance; right -= advance) {
        const QRect place(right - advance, row * height, advance, height);
        const char digit = digitAt(shown, place, m_gutter->font());
        if (digit == ' ')
            break;
        digits.prepend(QLatin1Char(digit));
    }
    return digits;
}

QStringList tst_Gutter::numbers(int count)
{
    QStringList all;
    for (int row = 0; row < count; ++row)
        all.append(number(row));
    return all;
}

namespace {

QStringList numbersFrom(int first, int count)
{
    QStringList all;
    for (int line = first; line < first + count; ++line)
        all.append(QString::number(line));
    return all;
}

} // namespace

void tst_Gutter::numbers_shortText_runToTheBottom()
{
    m_editor->SetText(QStringLiteral("1\r\n2\r\n3"));
    QTRY_COMPARE(numbers(20), numbersFrom(1, 20));
}

void tst_Gutter::numbers_scrolled_areThoseOfTheLines()
{
    m_editor->SetText(QStringLiteral("x\r\n").repeated(5000));
    for (const int top : {1, 7, 96, 990, 4321}) {
        m_editor->SetTopLine(top);
        QTRY_COMPARE(number(0), QString::number(top));
        QTRY_COMPARE(numbers(20), numbersFrom(top, 20));
    }
}

void tst_Gutter::numbers_textChanges_followTheView()
{
    m_editor->SetText(QStringLiteral("x\r\n").repeated(100));
    QTRY_COMPARE(numbers(20), numbersFrom(1, 20));
    goTo(*m_editor, 100, 0); // scrolls
    const int top = m_editor->TopLine();
    QVERIFY(top > 1);
    QTRY_COMPARE(number(0), QString::number(top));
    select(*m_editor, 1, 0, 95, 0);
    press(*m_editor, Qt::Key_Delete);
    QTRY_COMPARE(number(0), QStringLiteral("1"));
}

void tst_Gutter::numbers_overFolds_areThoseOfTheLines()
{
    m_editor->SetText(QStringLiteral("x\r\n").repeated(100));
    m_editor->FoldLines({{3, 50}, {61, 90}});
    QTRY_COMPARE(numbers(3), (QStringList{"1", "2", "51"}));
    QCOMPARE(numbers(20).mid(10, 4), (QStringList{"59", "60", "91", "92"}));
    goTo(*m_editor, 1, 0);
    press(*m_editor, Qt::Key_Return); // moves the folds, and scrolls nothing
    QTRY_COMPARE(numbers(4), (QStringList{"1", "2", "3", "52"}));
    m_editor->UnfoldAll();
    QTRY_COMPARE(numbers(20), numbersFrom(1, 20));
}

void tst_Gutter::numbers_otherFont_keepBesideTheirLines()
{
    m_editor->SetText(QStringLiteral("x\r\n").repeated(100));
    const int width = m_gutter->textWidth();
    m_editor->SetFontSize(10);
    QCOMPARE(m_gutter->font().pointSizeF(), 10.0);
    QVERIFY(m_gutter->textWidth() < width);
    fit(30);
    QTRY_COMPARE(numbers(30), numbersFrom(1, 30));
}

void tst_Gutter::numbers_sixDigits_areWhole()
{
    m_editor->SetText(QStringLiteral("\r\n").repeated(950'000));
    fit(20);
    for (const int top : {99'990, 123'456, 400'789, 888'880}) {
        m_editor->SetTopLine(top);
        QTRY_COMPARE(number(0), QString::number(top));
        QTRY_COMPARE(numbers(20), numbersFrom(top, 20));
    }
}

void tst_Gutter::numbers_endAtTheRightEdge()
{
    m_editor->SetText(QStringLiteral("\r\n").repeated(200'000));
    fit(20);
    const auto emptyColumns = [this] {
        const QImage shown = picture();
        int x = shown.width() - 1;
        while (x >= 0 && inkOf(shown, QRect(x, 0, 1, shown.height())).empty())
            --x;
        return shown.width() - 1 - x;
    };
    const QRect ink = QFontMetrics(m_gutter->font()).tightBoundingRect(QStringLiteral("0"));
    const int advance = QFontMetrics(m_gutter->font()).horizontalAdvance(u'0');
    const int bearing = advance - ink.right();
    QVERIFY2(emptyColumns() <= bearing, qPrintable(QString::number(emptyColumns())));
    m_editor->SetTopLine(100'000);
    QTRY_COMPARE(number(0), QStringLiteral("100000"));
    QVERIFY(emptyColumns() <= bearing);
}

void tst_Gutter::numbers_notVisible_areNotDrawn()
{
    m_editor->SetText(QStringLiteral("1\r\n2"));
    QTRY_COMPARE(number(1), QStringLiteral("2"));
    m_config.LineNumbersVisible = false;
    m_gutter->update();
    const QImage shown = picture();
    QImage ground(shown.size(), QImage::Format_RGB32);
    ground.fill(shown.pixel(0, 0));
    QCOMPARE(shown, ground);
    m_config.LineNumbersVisible = true;
    m_gutter->update();
    QTRY_COMPARE(number(1), QStringLiteral("2"));
}

void tst_Gutter::width_isThatOfSixZeros()
{
    const auto widthOf = [this](const char *zeros) {
        return QFontMetrics(m_gutter->font()).horizontalAdvance(QLatin1String(zeros));
    };
    QCOMPARE(m_gutter->textWidth(), widthOf("000000"));
    m_editor->SetText(QStringLiteral("\r\n").repeated(500'000));
    QCOMPARE(m_gutter->textWidth(), widthOf("000000"));
    m_editor->SetText(QStringLiteral("\r\n").repeated(999'997));
    QCOMPARE(m_gutter->textWidth(), widthOf("000000"));
    m_editor->SetText(QStringLiteral("\r\n").repeated(999'999));
    QCOMPARE(m_gutter->textWidth(), widthOf("0000000"));
}

void tst_Gutter::width_fromAMillionLinesOn_holdsEachNumber()
{
    m_editor->SetText(QStringLiteral("\r\n").repeated(999'997));
    QCOMPARE(m_editor->LineCount(), 999'998);
    QSignalSpy changes(m_gutter, &Gutter::textWidthChanged);
    QCoreApplication::processEvents();
    QCOMPARE(changes.size(), 0);
    goTo(*m_editor, 999'998, 0);
    for (int line = 0; line < 10; ++line)
        press(*m_editor, Qt::Key_Return);
    QTRY_COMPARE(changes.size(), 1);
    fit(20);
    QTRY_COMPARE(number(18), QStringLiteral("1000007"));
    QTRY_COMPARE(number(11), QStringLiteral("1000000"));
    QTRY_COMPARE(number(10), QStringLiteral("999999"));
    for (int line = 0; line < 10; ++line)
        m_editor->Undo();
    QTRY_COMPARE(changes.size(), 2);
}

void tst_Gutter::repaint_onlyWhenTheNumbersAreOthers()
{
    struct Paints : QObject
    {
        int count = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            count += event->type() == QEvent::Paint;
            return false;
        }
    } paints;
    m_editor->SetText(QStringLiteral("x\r\n").repeated(100));
    m_gutter->installEventFilter(&paints);
    QCoreApplication::processEvents();
    paints.count = 0;
    QSignalSpy changed(m_editor, &LEditOCX::Repaint);
    type(*m_editor, QStringLiteral("abc"));
    QTRY_VERIFY(!changed.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(paints.count, 0);
    m_editor->SetTopLine(30);
    QTRY_VERIFY(paints.count > 0);
}

void tst_Gutter::repaint_ofAPart_keepsEveryNumber()
{
    m_editor->SetText(QStringLiteral("x\r\n").repeated(100));
    m_editor->SetTopLine(12);
    QTRY_COMPARE(numbers(20), numbersFrom(12, 20));
    const QImage whole = picture();
    for (int y = 0; y < m_gutter->height(); y += 7) {
        m_gutter->repaint(0, y, m_gutter->width(), 5);
        QCOMPARE(picture(), whole);
    }
}

ARDIPHON_TEST(tst_Gutter, QApplication)
#include "tst_Gutter.moc"
