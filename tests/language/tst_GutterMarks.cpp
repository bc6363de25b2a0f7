// The marks of blocks beside the line numbers.

#include "app/ConfigurationBlock.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/Gutter.h"
#include "support/EditorInput.h"
#include "support/TestMain.h"

#include <QSignalSpy>
#include <QWindow>

#include <map>
#include <memory>

using namespace ardiphon;
using namespace EditorInput;

class tst_GutterMarks : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void noBlocks_nothingIsDrawn();
    void blocks_areMarked_andNoNumberChanges();
    void blocks_ofOneLine_haveNoMark();
    void blocks_areAskedOfTheLinesInView();
    void marks_withThePointerAway_areFainter();
    void marks_besideNumbersThatNeedTheRoom_areBars();
    void marks_followTheText();
    void marks_thatAreTheSame_areNotDrawnAgain();
    void numbersHidden_noMarksAndNoFold();

    void click_onAMark_foldsAndUnfolds();
    void click_elsewhere_selectsTheLine();
    void click_onAFoldWithoutBlocks_unfolds();
    void clickTwice_foldsAndUnfolds();
    void fold_withoutBlocks_isMarked();

private:
    QImage picture();
    QImage rowAt(int row) { return picture().copy(0, row * height(), m_gutter->width(), height()); }
    int ink(int row);
    int height() const { return m_editor->LineHeight(); }
    void clickRow(int row, int x, Qt::MouseButton button = Qt::LeftButton);
    void clickMark(int row) { clickRow(row, 3); }

    std::unique_ptr<QWidget> m_window;
    LEditOCX *m_editor = nullptr;
    Gutter *m_gutter = nullptr;
    ConfigurationBlock m_config;
    std::map<int, int> m_blocks; ///< the last line of each by its first
    std::vector<int> m_asked;
};

void tst_GutterMarks::init()
{
    m_config.LineNumbersVisible = true;
    m_blocks = {{2, 5}, {8, 12}, {9, 10}, {50, 60}};
    m_window = std::make_unique<QWidget>();
    m_window->setPalette(QPalette(Qt::lightGray));
    m_editor = new LEditOCX(m_window.get());
    m_editor->SetFontName(QStringLiteral("DejaVu Sans Mono"));
    m_editor->SetFontSize(15);
    m_editor->SetText(QStringLiteral("line\r\n").repeated(100));
    m_gutter = new Gutter(*m_editor, m_config, m_window.get());
    m_window->resize(500, 20 * height());
    m_gutter->setGeometry(0, 0, m_gutter->textWidth(), 20 * height());
    m_editor->setGeometry(m_gutter->width(), 0, 300, 20 * height());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_gutter->setFoldEnd([this](int line) {
        m_asked.push_back(line);
        const auto block = m_blocks.find(line);
        return block == m_blocks.end() ? 0 : block->second;
    });
}

QImage tst_GutterMarks::picture()
{
    QCoreApplication::processEvents();
    return m_gutter->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// How dark the column of the marks is in a row, 0 without a mark.
int tst_GutterMarks::ink(int row)
{
    const QImage shown = rowAt(row);
    const int column = QFontMetrics(m_gutter->font()).horizontalAdvance(u'0');
    const int ground = qGray(shown.pixel(shown.width() / 2, 0));
    int all = 0;
    for (int y = 0; y < shown.height(); ++y)
        for (int x = 0; x < column; ++x)
            all += std::abs(ground - qGray(shown.pixel(x, y)));
    return all;
}

void tst_GutterMarks::clickRow(int row, int x, Qt::MouseButton button)
{
    QTest::mouseClick(m_gutter, button, {}, QPoint(x, row * height() + height() / 2));
}

void tst_GutterMarks::noBlocks_nothingIsDrawn()
{
    m_blocks.clear();
    m_gutter->refreshMarks();
    const QImage asked = picture();
    m_gutter->setFoldEnd({});
    QCOMPARE(picture(), asked);
    for (int row = 0; row < 20; ++row)
        QCOMPARE(ink(row), 0);
}

void tst_GutterMarks::blocks_areMarked_andNoNumberChanges()
{
    const QImage marked = picture();
    for (int row = 0; row < 20; ++row)
        QCOMPARE(ink(row) > 0, row == 1 || row == 7 || row == 8);
    const int open = ink(1);
    m_editor->FoldLines({{3, 5}});
    QVERIFY(ink(1) > open);
    QVERIFY(rowAt(1) != rowAt(4));
    m_editor->UnfoldAll();
    QCOMPARE(picture(), marked);
    m_gutter->setFoldEnd({});
    const int column = QFontMetrics(m_gutter->font()).horizontalAdvance(u'0');
    const QRect numbers(column, 0, marked.width() - column, marked.height());
    QCOMPARE(picture().copy(numbers), marked.copy(numbers));
}

void tst_GutterMarks::blocks_ofOneLine_haveNoMark()
{
    m_blocks = {{2, 2}, {4, 3}, {6, 0}, {8, -5}, {200, 300}};
    m_gutter->refreshMarks();
    for (int row = 0; row < 20; ++row)
        QCOMPARE(ink(row), 0);
}

void tst_GutterMarks::blocks_areAskedOfTheLinesInView()
{
    const auto asked = [this](int top) {
        m_asked.clear();
        m_editor->SetTopLine(top);
        picture();
        std::sort(m_asked.begin(), m_asked.end());
        m_asked.erase(std::unique(m_asked.begin(), m_asked.end()), m_asked.end());
        return m_asked;
    };
    std::vector<int> lines = asked(30);
    QCOMPARE(lines.front(), 30);
    QCOMPARE(lines.back(), 49);
    m_editor->FoldLines({{45, 80}});
    lines = asked(40);
    QCOMPARE(lines.front(), 40);
    QVERIFY(std::none_of(lines.begin(), lines.end(), [](int l) { return l > 44 && l < 81; }));
    QVERIFY(lines.back() <= 101 && lines.back() > 91);
}

void tst_GutterMarks::marks_withThePointerAway_areFainter()
{
    const auto pointAt = [this](int x) {
        QTest::mouseMove(m_window->windowHandle(), QPoint(x, 10));
        return QTest::qWaitFor([&] { return m_gutter->underMouse() == (x < 50); });
    };
    QVERIFY(pointAt(450) && pointAt(20));
    const int inside = ink(1);
    QVERIFY(pointAt(450));
    const int away = ink(1);
    QVERIFY(away > 0 && away < inside);
    m_editor->FoldLines({{3, 5}}); // is seen from anywhere
    QVERIFY(ink(1) > inside);
}

void tst_GutterMarks::marks_besideNumbersThatNeedTheRoom_areBars()
{
    m_editor->SetText(QStringLiteral("\r\n").repeated(200'000));
    m_blocks = {{150'001, 150'009}};
    m_editor->SetTopLine(150'000);
    const QImage open = rowAt(1);
    clickRow(1, 1);
    QCOMPARE(m_editor->HiddenUnder(150'001), (LineRun{150'002, 150'009}));
    const QImage folded = rowAt(1);
    QVERIFY(folded != open);
    const auto rest = [](const QImage &row) {
        return row.copy(2, 0, row.width() - 2, row.height());
    };
    QCOMPARE(rest(folded), rest(open)); // the number is whole
    clickRow(1, 1);
    QVERIFY(!m_editor->HasFolds());
    clickRow(1, QFontMetrics(m_gutter->font()).horizontalAdvance(u'0') - 1); // on the number
    QVERIFY(!m_editor->HasFolds());
    QCOMPARE(selection(*m_editor), QStringLiteral("150001:0-150001:0"));
}

void tst_GutterMarks::marks_followTheText()
{
    QVERIFY(ink(1) > 0);
    m_blocks = {{3, 6}};
    goTo(*m_editor, 1, 0);
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(ink(1), 0);
    QVERIFY(ink(2) > 0);
}

void tst_GutterMarks::marks_thatAreTheSame_areNotDrawnAgain()
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
    picture();
    m_gutter->installEventFilter(&paints);
    QCoreApplication::processEvents();
    paints.count = 0;
    QSignalSpy changed(m_editor, &LEditOCX::Repaint);
    type(*m_editor, QStringLiteral("abc"));
    QTRY_VERIFY(!changed.isEmpty());
    m_gutter->refreshMarks();
    QCoreApplication::processEvents();
    QCOMPARE(paints.count, 0);
    m_blocks.erase(8);
    m_gutter->refreshMarks();
    QTRY_VERIFY(paints.count > 0);
}

void tst_GutterMarks::numbersHidden_noMarksAndNoFold()
{
    m_config.LineNumbersVisible = false;
    QCOMPARE(ink(1), 0);
    clickMark(1);
    QVERIFY(!m_editor->HasFolds());
    m_config.LineNumbersVisible = true;
    QVERIFY(ink(1) > 0);
}

void tst_GutterMarks::click_onAMark_foldsAndUnfolds()
{
    goTo(*m_editor, 20, 2);
    clickMark(1);
    QCOMPARE(m_editor->HiddenUnder(2), (LineRun{3, 5}));
    QCOMPARE(selection(*m_editor), QStringLiteral("20:2-20:2"));
    QVERIFY(m_editor->focusProxy()->hasFocus());
    clickMark(4); // line 8 now
    QCOMPARE(m_editor->HiddenUnder(8), (LineRun{9, 12}));
    clickMark(4);
    QVERIFY(!m_editor->IsFolded(8));
    clickMark(1);
    QVERIFY(!m_editor->HasFolds());
    m_blocks = {{90, 1000}};
    m_editor->SetTopLine(85);
    const int row = 90 - m_editor->TopLine();
    clickMark(row);
    QCOMPARE(m_editor->HiddenUnder(90), (LineRun{91, 101}));
}

void tst_GutterMarks::click_elsewhere_selectsTheLine()
{
    clickRow(1, m_gutter->width() - 3);
    QCOMPARE(selection(*m_editor), QStringLiteral("2:0-2:4"));
    clickMark(2); // no block begins there
    QCOMPARE(selection(*m_editor), QStringLiteral("3:0-3:4"));
    clickRow(1, 3, Qt::RightButton);
    QCOMPARE(selection(*m_editor), QStringLiteral("2:0-2:4"));
    QVERIFY(!m_editor->HasFolds());
    m_editor->FoldLines({{3, 5}});
    clickRow(2, m_gutter->width() - 3);
    QCOMPARE(selection(*m_editor), QStringLiteral("6:0-6:4"));
    clickRow(1, m_gutter->width() - 3); // the header's number
    QCOMPARE(selection(*m_editor), QStringLiteral("2:0-2:4"));
    QVERIFY(m_editor->IsFolded(2));
}

void tst_GutterMarks::click_onAFoldWithoutBlocks_unfolds()
{
    m_gutter->setFoldEnd({});
    m_editor->FoldLines({{3, 5}});
    clickMark(1);
    QVERIFY(!m_editor->HasFolds());
    clickMark(1);
    QCOMPARE(selection(*m_editor), QStringLiteral("2:0-2:4"));
}

void tst_GutterMarks::clickTwice_foldsAndUnfolds()
{
    clickMark(1);
    QVERIFY(m_editor->HasFolds());
    clickMark(1);
    QVERIFY(!m_editor->HasFolds());
    const QPoint number(m_gutter->width() - 3, height() + 3);
    QTest::mouseDClick(m_gutter, Qt::LeftButton, {}, number);
    QCOMPARE(selection(*m_editor), QStringLiteral("2:0-2:4"));
}

void tst_GutterMarks::fold_withoutBlocks_isMarked()
{
    m_gutter->setFoldEnd({});
    QCOMPARE(ink(1), 0);
    m_editor->FoldLines({{3, 5}});
    QVERIFY(ink(1) > 0);
    m_editor->UnfoldAll();
    QCOMPARE(ink(1), 0);
}

ARDIPHON_TEST(tst_GutterMarks, QApplication)
#include "tst_GutterMarks.moc"
