// Rows of the screen where lines are hidden: what counts, shows, and is drawn in them.

#include "language/FoldedEditor.h"
#include "support/EditorInput.h"
#include "support/TestMain.h"

#include <QMouseEvent>

using namespace ardiphon;
using namespace EditorInput;

class tst_FoldedRows : public FoldedEditor
{
    Q_OBJECT

private slots:
    void init() { makeEditor(); }
    void cleanup() { m_editor.reset(); }

    void rows_countWhatIsVisible();
    void scrolling_goesByRows();
    void pixels_ofHiddenLines_areThoseOfTheHeader();
    void mouse_goesToTheLineThatIsSeen();
    void visibleText_isThatOfTheRows();
    void coloring_asIfAllWereRead();
    void coloring_readsNothingHidden();
    void header_isMarked();

private:
    QImage rowOf(int line);
};

void tst_FoldedRows::rows_countWhatIsVisible()
{
    for (const int row : {0, 1, 19, 500})
        QCOMPARE(m_editor->LineInRow(row), row + 1);
    m_editor->FoldLines({{3, 5}, {8, 12}});
    const int lines[] = {1, 2, 6, 7, 13, 14};
    for (int row = 0; row < int(std::size(lines)); ++row) {
        QCOMPARE(m_editor->LineInRow(row), lines[row]);
        QCOMPARE(m_editor->LineAt(row * m_editor->LineHeight()), lines[row]);
        QCOMPARE(m_editor->LineAt((row + 1) * m_editor->LineHeight() - 1), lines[row]);
        QCOMPARE(m_editor->PositionToPixels(lines[row], 0).y(), row * m_editor->LineHeight());
    }
    QCOMPARE(m_editor->LineInRow(91), 100);
    QCOMPARE(m_editor->LineInRow(92), 101); // goes on below the text
    QCOMPARE(m_editor->LineInRow(100), 109);
    m_editor->SetTopLine(7);
    QCOMPARE(m_editor->TopLine(), 7);
    QCOMPARE(m_editor->LineInRow(1), 13);
    QCOMPARE(m_editor->LineInRow(-1), 6);
}

void tst_FoldedRows::scrolling_goesByRows()
{
    m_editor->FoldLines({{3, 50}});
    m_editor->ScrollRows(3);
    QCOMPARE(m_editor->TopLine(), 52);
    m_editor->ScrollRows(-1);
    QCOMPARE(m_editor->TopLine(), 51);
    m_editor->ScrollRows(-1);
    QCOMPARE(m_editor->TopLine(), 2);
    m_editor->ScrollRows(-10);
    QCOMPARE(m_editor->TopLine(), 1);
    m_editor->ScrollRows(1000);
    const int last = m_editor->TopLine();
    QVERIFY(last > 75 && isSeen(100));
    m_editor->SetTopLine(1000);
    QCOMPARE(m_editor->TopLine(), last);
    m_editor->SetTopLine(20); // is hidden, and stays so
    QCOMPARE(m_editor->TopLine(), 2);
    m_editor->SetTopLine(51);
    QCOMPARE(m_editor->TopLine(), 51);
    m_editor->SetTopLine(-5);
    QCOMPARE(m_editor->TopLine(), 1);
    QCOMPARE(folds(), QStringLiteral("3-50"));
}

void tst_FoldedRows::pixels_ofHiddenLines_areThoseOfTheHeader()
{
    m_editor->FoldLines({{3, 50}, {90, 100}});
    const QPoint end = m_editor->PositionToPixels(2, 4);
    for (const int line : {3, 20, 50}) {
        QCOMPARE(m_editor->PositionToPixels(line, 0), end);
        QCOMPARE(m_editor->PositionToPixels(line, 3), end);
    }
    QCOMPARE(m_editor->PositionToPixels(95, 1), m_editor->PositionToPixels(89, 5));
}

namespace {

/// As a user does it, which selects a line.
void clickThreeTimes(QWidget *view, QPoint at)
{
    for (const QEvent::Type press :
         {QEvent::MouseButtonPress, QEvent::MouseButtonDblClick, QEvent::MouseButtonPress}) {
        for (const QEvent::Type type : {press, QEvent::MouseButtonRelease}) {
            const auto held = type == press ? Qt::LeftButton : Qt::NoButton;
            QMouseEvent event(type, at, view->mapToGlobal(at), Qt::LeftButton, held, {});
            QCoreApplication::sendEvent(view, &event);
        }
    }
}

} // namespace

void tst_FoldedRows::mouse_goesToTheLineThatIsSeen()
{
    m_editor->FoldLines({{3, 50}, {60, 70}});
    click(*m_editor, 51, 2);
    QCOMPARE(selection(*m_editor), QStringLiteral("51:2-51:2"));
    click(*m_editor, 71, 1, Qt::LeftButton, Qt::ShiftModifier);
    QCOMPARE(selection(*m_editor), QStringLiteral("51:2-71:1"));
    click(*m_editor, 2, 4);
    QCOMPARE(selection(*m_editor), QStringLiteral("2:4-2:4"));
    QCOMPARE(folds(), QStringLiteral("3-50 60-70"));
    m_editor->FoldLines({{52, 100}}); // below the last visible line
    QWidget *const view = m_editor->childAt(20, 20);
    const QPoint below(20, m_editor->LineHeight() * 10);
    QTest::mouseClick(view, Qt::LeftButton, {}, below);
    QCOMPARE(selection(*m_editor), QStringLiteral("51:5-51:5"));
    QTest::mouseDClick(view, Qt::LeftButton, {}, below);
    QCOMPARE(folds(), QStringLiteral("3-50 52-100"));
    clickThreeTimes(view, m_editor->PositionToPixels(2, 1));
    QCOMPARE(m_editor->SelText(), QStringLiteral("L2 a"));
    QCOMPARE(folds(), QStringLiteral("3-50 52-100"));
}

void tst_FoldedRows::visibleText_isThatOfTheRows()
{
    m_editor->FoldLines({{3, 30}, {33, 60}});
    m_editor->SetTopLine(2);
    goTo(*m_editor, 61, 0);
    press(*m_editor, Qt::Key_U, Qt::ControlModifier);
    QCOMPARE(selection(*m_editor), QStringLiteral("2:0-2:0"));
    press(*m_editor, Qt::Key_D, Qt::ControlModifier);
    const QString end = selection(*m_editor);
    const int rows =
        m_editor->PositionToPixels(m_editor->CaretLine(), 0).y() / m_editor->LineHeight();
    QVERIFY2(rows >= 18 && m_editor->CaretLine() == m_editor->LineInRow(rows), qPrintable(end));
    QCOMPARE(folds(), QStringLiteral("3-30 33-60"));
}

QImage tst_FoldedRows::rowOf(int line)
{
    const int y = m_editor->PositionToPixels(line, 0).y();
    const QImage all = m_editor->grab().toImage(); // as a row may be drawn for what is above it
    return all.copy(0, y, 200, m_editor->LineHeight());
}

void tst_FoldedRows::coloring_asIfAllWereRead()
{
    goTo(*m_editor, 5, 0);
    m_editor->SetSelText(QStringLiteral("/*"));
    goTo(*m_editor, 9, 0);
    m_editor->SetSelText(QStringLiteral("*/"));
    m_editor->SetForeColor(Color::rgb(0, 160, 0));
    goTo(*m_editor, 1, 0);
    const QImage inside = rowOf(8);
    const QImage behind = rowOf(10);
    m_editor->FoldLines({{4, 7}}); // the comment begins there
    QCOMPARE(rowOf(8), inside);
    QCOMPARE(rowOf(10), behind);
    m_editor->UnfoldAll();
    m_editor->FoldLines({{9, 9}}); // it ends there
    QCOMPARE(rowOf(10), behind);
    m_editor->UnfoldAll();
    m_editor->FoldLines({{2, 9}});
    QCOMPARE(rowOf(10), behind);
    goTo(*m_editor, 1, 0);
    m_editor->SetSelText(QStringLiteral("/* */"));
    QCOMPARE(rowOf(10), behind);
    m_editor->UnfoldAll();
    QCOMPARE(rowOf(8), inside);
}

void tst_FoldedRows::coloring_readsNothingHidden()
{
    m_editor->FoldLines({{5, 95}});
    QStringList words;
    m_editor->SetGetTokenColors([&](TokenKind, const QString &text) {
        words.append(text);
        return TokenColors{Color::rgb(255, 255, 255), Color::rgb(0, 0, 0)};
    });
    m_editor->repaint();
    for (const int line : {1, 4, 96, 100})
        QVERIFY(words.contains(QStringLiteral("L%1").arg(line)));
    for (const int line : {5, 50, 95})
        QVERIFY(!words.contains(QStringLiteral("L%1").arg(line)));
}

void tst_FoldedRows::header_isMarked()
{
    goTo(*m_editor, 50, 0);
    m_editor->SetTopLine(1);
    const QImage plain = rowOf(2);
    const QImage other = rowOf(1);
    m_editor->FoldLines({{3, 4}});
    QVERIFY(rowOf(2) != plain);
    QCOMPARE(rowOf(1), other);
    m_editor->UnfoldAll();
    QCOMPARE(rowOf(2), plain);
    m_editor->SetBackColor(Color::rgb(0, 0, 0)); // and on a dark ground
    const QImage dark = rowOf(2);
    m_editor->FoldLines({{3, 4}});
    const QImage marked = rowOf(2);
    const int foot = marked.height() - 1;
    QVERIFY(marked.pixelColor(150, foot).lightness() > dark.pixelColor(150, foot).lightness() + 20);
}

ARDIPHON_TEST(tst_FoldedRows, QApplication)
#include "tst_FoldedRows.moc"
