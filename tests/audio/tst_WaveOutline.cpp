#include "audio/ui/OutlineReader.h"
#include "audio/ui/WaveOutline.h"
#include "support/TestMain.h"
#include "support/WaveBytes.h"

#include <QFile>
#include <QPaintEvent>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

using namespace ardiphon;

namespace {

/// Two channels that differ from column to column, so that nothing that is drawn at a wrong place
/// looks right.
QByteArray sound()
{
    QByteArray samples;
    for (int frame = 0; frame < 44100; ++frame)
        samples += WaveBytes::number<qint16>(qint16(15000 * std::sin(frame * frame / 1e6))) +
                   WaveBytes::number<qint16>(qint16((frame * 7919) % 30000 - 15000));
    return WaveBytes::wave(2, 44100, samples);
}

/// Collects what a widget is asked to paint.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget &widget) { widget.installEventFilter(this); }
    QRegion painted;
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            painted += static_cast<QPaintEvent *>(event)->region();
            ++count;
        }
        return false;
    }
};

} // namespace

/// What of the outline of a sound is painted, and when.
class tst_WaveOutline : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void line_moves_repaintsItsTwoPlacesAlone();
    void line_moves_leavesNothingBehind();
    void line_movesLessThanAPixel_repaintsNothing();
    void part_isPaintedAsInTheWhole_data();
    void part_isPaintedAsInTheWhole();
    void words_replaceTheOutline();
    void read_again_hasTheLineAtTheStart();
    void reader_beginsWhenItIsStarted();

private:
    /// What is on the screen, put together by all the repaints.
    QImage onScreen() const;
    QImage paintedAnew() const { return m_outline->grab().toImage().convertToFormat(Format); }
    QList<int> lineColumns(const QImage &picture) const;

    static constexpr QImage::Format Format = QImage::Format_RGB32;
    QTemporaryDir m_folder;
    std::unique_ptr<QWidget> m_window;
    WaveOutline *m_outline = nullptr;
};

void tst_WaveOutline::init()
{
    QFile file(m_folder.filePath(QStringLiteral("a.wav")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(sound());
    file.close();
    m_window = std::make_unique<QWidget>();
    m_window->resize(500, 120);
    m_outline = new WaveOutline(m_window.get());
    m_outline->setGeometry(10, 10, 480, 100);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_outline->read(file.fileName());
    QTRY_VERIFY_WITH_TIMEOUT(m_outline->peaks().columns() > 0 && !m_outline->isReading(), 60'000);
    QApplication::processEvents();
    QTRY_COMPARE(onScreen(), paintedAnew());
}

QImage tst_WaveOutline::onScreen() const
{
    QApplication::processEvents();
    const QRect place = m_outline->geometry();
    return m_window->screen()
        ->grabWindow(m_window->winId(), place.x(), place.y(), place.width(), place.height())
        .toImage()
        .convertToFormat(Format);
}

/// The columns that are of the colour of the line from top to bottom.
QList<int> tst_WaveOutline::lineColumns(const QImage &picture) const
{
    QList<int> columns;
    const QRgb color = m_outline->palette().text().color().rgb();
    for (int x = 1; x < picture.width() - 1; ++x) {
        int y = 1;
        while (y < picture.height() - 1 && picture.pixel(x, y) == color)
            ++y;
        if (y == picture.height() - 1)
            columns.append(x);
    }
    return columns;
}

void tst_WaveOutline::line_moves_repaintsItsTwoPlacesAlone()
{
    m_outline->setPosition(100, 1000);
    QApplication::processEvents();
    const PaintWatch watch(*m_outline);
    m_outline->setPosition(700, 1000);
    QTRY_COMPARE(watch.count, 1);
    QCOMPARE(watch.painted.boundingRect().height(), 100);
    int pixels = 0;
    for (const QRect &part : watch.painted)
        pixels += part.width();
    QVERIFY2(pixels <= 8, qPrintable(QString::number(pixels)));
    QVERIFY(watch.painted.contains(QPoint(48, 50)));
    QVERIFY(watch.painted.contains(QPoint(336, 50)));
}

void tst_WaveOutline::line_moves_leavesNothingBehind()
{
    for (const int position : {0, 1, 3, 100, 101, 500, 700, 999, 1000, 250, 0, 640}) {
        m_outline->setPosition(position, 1000);
        const QImage shown = onScreen();
        QCOMPARE(shown, paintedAnew());
        const int column = qRound(position * 0.48);
        if (column > 0 && column < 479)
            QCOMPARE(lineColumns(shown), QList<int>{column});
    }
}

void tst_WaveOutline::line_movesLessThanAPixel_repaintsNothing()
{
    m_outline->setPosition(100'000, 1'000'000);
    QApplication::processEvents();
    const PaintWatch watch(*m_outline);
    m_outline->setPosition(100'500, 1'000'000);
    QApplication::processEvents();
    QCOMPARE(watch.count, 0);
    m_outline->setPosition(102'000, 1'000'000); // the steps add up
    QTRY_COMPARE(watch.count, 1);
}

void tst_WaveOutline::part_isPaintedAsInTheWhole_data()
{
    QTest::addColumn<QRect>("part");
    QTest::newRow("all") << QRect(0, 0, 480, 100);
    QTest::newRow("left edge") << QRect(0, 0, 7, 100);
    QTest::newRow("right edge") << QRect(473, 0, 7, 100);
    QTest::newRow("one column") << QRect(201, 0, 1, 100);
    QTest::newRow("upper lane") << QRect(100, 0, 150, 40);
    QTest::newRow("lower lane") << QRect(33, 60, 77, 30);
    QTest::newRow("over the line") << QRect(230, 20, 21, 60);
    QTest::newRow("one pixel") << QRect(300, 50, 1, 1);
}

void tst_WaveOutline::part_isPaintedAsInTheWhole()
{
    QFETCH(QRect, part);
    m_outline->setPosition(500, 1000);
    const QImage whole = paintedAnew();
    QImage picture(m_outline->size(), Format);
    picture.fill(Qt::magenta);
    m_outline->render(&picture, part.topLeft(), QRegion(part));
    QCOMPARE(picture.copy(part), whole.copy(part));
    QImage rest = whole;
    rest.fill(Qt::magenta);
    QPainter painter(&rest);
    painter.drawImage(part.topLeft(), whole.copy(part));
    painter.end();
    QCOMPARE(picture, rest);
}

void tst_WaveOutline::words_replaceTheOutline()
{
    m_outline->clear();
    QTRY_COMPARE(onScreen(), paintedAnew());
    const QImage nothing = onScreen();
    m_outline->say(QStringLiteral("There is nothing to be seen."));
    QCOMPARE(m_outline->peaks().columns(), 0);
    QVERIFY(onScreen() != nothing);
    QCOMPARE(onScreen(), paintedAnew());
    QCOMPARE(m_outline->accessibleDescription(), QStringLiteral("There is nothing to be seen."));
    m_outline->clear();
    QCOMPARE(onScreen(), nothing);
    QCOMPARE(m_outline->accessibleDescription(), QString());
}

void tst_WaveOutline::read_again_hasTheLineAtTheStart()
{
    m_outline->setPosition(500, 1000);
    QCOMPARE(lineColumns(onScreen()), QList<int>{240});
    m_outline->read(m_folder.filePath(QStringLiteral("a.wav")));
    QTRY_VERIFY_WITH_TIMEOUT(m_outline->peaks().columns() > 0 && !m_outline->isReading(), 60'000);
    QTRY_COMPARE(onScreen(), paintedAnew());
    QCOMPARE(lineColumns(onScreen()), QList<int>());
}

/// A file may be read before the next line of whoever asks for it: the signal is connected first.
void tst_WaveOutline::reader_beginsWhenItIsStarted()
{
    OutlineReader reader(m_folder.filePath(QStringLiteral("a.wav")));
    QVERIFY(!reader.isRunning());
    QVERIFY(!reader.isFinished());
    const QSignalSpy progressed(&reader, &OutlineReader::progressed);
    reader.start();
    QVERIFY(reader.wait(60'000));
    QTRY_VERIFY(progressed.count() > 0);
    QVERIFY(reader.peaks().columns() > 0);
}

ARDIPHON_TEST(tst_WaveOutline, QApplication)
#include "tst_WaveOutline.moc"
