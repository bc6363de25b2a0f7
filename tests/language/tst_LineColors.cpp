// Lines that are coloured as a whole, in place of their tokens.

#include "language/LineSource.h"
#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/TestMain.h"

#include <QScreen>

using namespace ardiphon;
using namespace EditorInput;

class tst_LineColors : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_editor.reset(); }

    void lines_areReadFromTheFirstInViewDownwards();
    void ranges_areDrawn();
    void ranges_badOnes_harmNothing();
    void reader_null_leavesTheTokens();
    void reader_mayReadTheText();
    void edit_above_readsAllInView();
    void bookmark_coversTheRanges();
    void longLine_isReadInPart();
    void longLine_far_isDrawnOnce();

private:
    /// The colour behind a character, as the screen shows it.
    QColor back(int line, int column);
    /// Draws each "x" on red and each "c" as a comment.
    ColoredRanges lettersOf(QByteArrayView text) const;

    std::unique_ptr<LEditOCX> m_editor;
    QList<int> m_first; ///< each line that reading has begun with
    QList<int> m_lines; ///< each that was read
    qsizetype m_longest = 0;
};

void tst_LineColors::init()
{
    m_first.clear();
    m_lines.clear();
    m_longest = 0;
    m_editor = std::make_unique<LEditOCX>();
    m_editor->SetFontSize(16);
    m_editor->SetForeColor(Color::rgb(0, 160, 0));
    m_editor->SetGetTokenColors([](TokenKind, const QString &) {
        return TokenColors{Color::rgb(200, 200, 255), Color::rgb(0, 0, 0)};
    });
    m_editor->SetLineColors([this](int first) -> LineReader {
        m_first.append(first);
        return [this](int line, QByteArrayView text) {
            m_lines.append(line);
            m_longest = std::max(m_longest, text.size());
            return lettersOf(text);
        };
    });
    m_editor->resize(600, 300);
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
}

ColoredRanges tst_LineColors::lettersOf(QByteArrayView text) const
{
    ColoredRanges ranges;
    for (int at = 0; at < text.size(); ++at) {
        if (text[at] == 'x')
            ranges.append({at, 1, TokenColors{Color::rgb(250, 100, 100), Color::rgb(0, 0, 0)}});
        else if (text[at] == 'c')
            ranges.append({at, 1, std::nullopt});
    }
    return ranges;
}

QColor tst_LineColors::back(int line, int column)
{
    QCoreApplication::processEvents();
    const QImage picture = m_editor->screen()->grabWindow(m_editor->winId()).toImage();
    return picture.pixelColor(m_editor->PositionToPixels(line, column) + QPoint(1, 1));
}

namespace {

const QColor RangeRed(250, 100, 100);
const QColor RangeWhite(255, 255, 255);
const QColor RangeToken(200, 200, 255);

} // namespace

void tst_LineColors::lines_areReadFromTheFirstInViewDownwards()
{
    m_editor->SetText(QStringLiteral("x\r\n").repeated(1000));
    m_editor->SetTopLine(500);
    QCoreApplication::processEvents();
    m_first.clear();
    m_lines.clear();
    m_editor->Redraw();
    QTRY_VERIFY(!m_lines.isEmpty());
    QCOMPARE(m_first, QList<int>{500});
    QCOMPARE(m_lines.constFirst(), 500);
    for (int i = 1; i < m_lines.size(); ++i)
        QCOMPARE(m_lines[i], m_lines[i - 1] + 1);
    QVERIFY(m_lines.size() < 30);
}

void tst_LineColors::ranges_areDrawn()
{
    m_editor->SetText(QStringLiteral("\r\n\u00e9x word ; x /* c\r\nword c"));
    QCOMPARE(back(2, 1), RangeRed);
    QCOMPARE(back(2, 0), RangeWhite);
    QCOMPARE(back(2, 3), RangeWhite); // no token's colour
    QCOMPARE(back(2, 10), RangeRed);
    const QPoint at = m_editor->PositionToPixels(3, 5);
    const QImage picture = m_editor->grab().toImage();
    bool isGreen = false;
    for (int x = at.x(); x < at.x() + 10; ++x)
        for (int y = at.y(); y < at.y() + m_editor->LineHeight(); ++y)
            isGreen |= picture.pixelColor(x, y).green() > picture.pixelColor(x, y).red() + 100;
    QVERIFY(isGreen);
}

void tst_LineColors::ranges_badOnes_harmNothing()
{
    m_editor->SetText("\r\nxx\r\n\r\nxx");
    m_editor->SetLineColors([](int) -> LineReader {
        return [](int, QByteArrayView) {
            const TokenColors red{Color::rgb(250, 100, 100), {}};
            return ColoredRanges{{1, 100'000, red}, {5000, 3, red}, {0, 0, red}};
        };
    });
    QCOMPARE(back(2, 1), RangeRed);
    QCOMPARE(back(2, 0), RangeWhite);
    QCOMPARE(back(4, 1), RangeRed);
}

void tst_LineColors::reader_null_leavesTheTokens()
{
    m_editor->SetText("\r\nx word");
    QCOMPARE(back(2, 0), RangeRed);
    m_editor->SetLineColors([](int) { return LineReader(); });
    QCOMPARE(back(2, 0), RangeToken);
    QCOMPARE(back(2, 3), RangeToken);
    m_editor->SetLineColors(nullptr);
    QCOMPARE(back(2, 0), RangeToken);
}

void tst_LineColors::reader_mayReadTheText()
{
    m_editor->SetText(QStringLiteral("a x\r\n").repeated(200));
    goTo(*m_editor, 100, 0); // the document has its gap where it was changed last
    type(*m_editor, QStringLiteral("x"));
    m_editor->SetLineColors([this](int) -> LineReader {
        return [this](int line, QByteArrayView text) {
            const LineSource &lines = m_editor->Lines();
            qsizetype size = 0;
            for (int each = 1; each <= lines.lineCount(); ++each)
                size += lines.line(each).size();
            return size > 0 && text == lines.line(line) ? lettersOf(text) : ColoredRanges();
        };
    });
    QCOMPARE(back(100, 0), RangeRed);
    QCOMPARE(back(100, 3), RangeRed);
}

void tst_LineColors::edit_above_readsAllInView()
{
    m_editor->SetText(QStringLiteral("x\r\n").repeated(100));
    goTo(*m_editor, 2, 0);
    QCoreApplication::processEvents();
    m_lines.clear();
    type(*m_editor, QStringLiteral("y"));
    QTRY_VERIFY(m_lines.contains(2));
    QVERIFY(m_lines.contains(9)); // it may be drawn otherwise now
}

void tst_LineColors::bookmark_coversTheRanges()
{
    m_editor->SetText("\r\nx c\r\nx");
    m_editor->SetBookmarkLine(1, 2);
    m_editor->SetBookmarkBackColor(1, Color::rgb(240, 0, 0));
    m_editor->SetBookmarkForeColor(1, Color::rgb(255, 255, 255));
    QCOMPARE(back(2, 0), QColor(240, 0, 0));
    QCOMPARE(back(2, 2), QColor(240, 0, 0));
    QCOMPARE(back(3, 0), RangeRed);
}

void tst_LineColors::longLine_isReadInPart()
{
    m_editor->SetText(QStringLiteral("\r\n") + QStringLiteral("x ").repeated(1'000'000));
    QCOMPARE(back(2, 0), RangeRed);
    QCOMPARE(m_longest, 65'536);
}

void tst_LineColors::longLine_far_isDrawnOnce()
{
    m_editor->SetText(QStringLiteral("\r\n") + QStringLiteral("x ").repeated(50'000));
    goTo(*m_editor, 2, 20'008);
    QCOMPARE(back(2, 20'000), RangeRed);
    QCOMPARE(back(2, 20'001), RangeWhite);
    QCoreApplication::processEvents();
    m_lines.clear();
    for (int i = 0; i < 20; ++i) // a colour that was set anew would be drawn again and again
        QCoreApplication::processEvents();
    QVERIFY2(m_lines.size() < 10, "painted without need"); // the caret may blink
    goTo(*m_editor, 2, 80'008);
    QCOMPARE(back(2, 80'000), RangeWhite); // nothing reads so far
    m_editor->SetLineColors(nullptr);
    QCOMPARE(back(2, 80'000), RangeToken);
}

ARDIPHON_TEST(tst_LineColors, QApplication)
#include "tst_LineColors.moc"
