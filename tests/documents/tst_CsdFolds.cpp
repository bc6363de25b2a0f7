// What the CSD window does around lines that are hidden: split view, wheel, popup and searches.

#include "documents/CsdFixture.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QMenu>
#include <QWheelEvent>

using namespace ardiphon;

class tst_CsdFolds : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void split_viewsFoldOnTheirOwn();
    void split_typingAboveAFold_keepsIt();
    void split_typingUnderAFoldOfTheOther_showsIt();
    void wheel_goesByWhatIsSeen();
    void popup_overAFold_keepsTheSelection();
    void otherDocument_isAllVisible();
};

void tst_CsdFolds::split_viewsFoldOnTheirOwn()
{
    show(QByteArray("line\n").repeated(100));
    first()->FoldLines({{10, 20}});
    trigger("buttonSplit");
    QVERIFY(!second()->HasFolds());
    second()->FoldLines({{15, 40}});
    QCOMPARE(first()->HiddenUnder(9), (LineRun{10, 20}));
    trigger("buttonSplit");
    QCOMPARE(first()->HiddenUnder(9), (LineRun{10, 20}));
}

void tst_CsdFolds::split_typingAboveAFold_keepsIt()
{
    show(QByteArray("line\n").repeated(100));
    trigger("buttonSplit");
    first()->FoldLines({{30, 40}});
    second()->FoldLines({{50, 60}});
    second()->SetTopLine(49);
    caret(first(), 3, 2);
    QTest::keyClicks(first()->focusProxy(), QStringLiteral("ab"));
    QTest::keyClick(first()->focusProxy(), Qt::Key_Return);
    QTRY_COMPARE(second()->Text(), first()->Text());
    QCOMPARE(first()->HiddenUnder(30), (LineRun{31, 41}));
    QCOMPARE(second()->HiddenUnder(50), (LineRun{51, 61}));
    QCOMPARE(second()->TopLine(), 49);
    QTest::keyClick(first()->focusProxy(), Qt::Key_Y, Qt::ControlModifier);
    QTest::keyClick(first()->focusProxy(), Qt::Key_Y, Qt::ControlModifier);
    QTRY_COMPARE(second()->Text(), first()->Text());
    QCOMPARE(second()->HiddenUnder(48), (LineRun{49, 59})); // though its top line is hidden now
    QCOMPARE(second()->TopLine(), 48);
}

void tst_CsdFolds::split_typingUnderAFoldOfTheOther_showsIt()
{
    show(QByteArray("line\n").repeated(100));
    trigger("buttonSplit");
    second()->FoldLines({{10, 20}, {50, 60}});
    caret(first(), 15, 2);
    QTest::keyClicks(first()->focusProxy(), QStringLiteral("x"));
    QCOMPARE(second()->LineText(15), QStringLiteral("lixne"));
    QVERIFY(!second()->IsFolded(9));
    QVERIFY(second()->IsFolded(49));
}

void tst_CsdFolds::wheel_goesByWhatIsSeen()
{
    m_program->config.WheelLinesCount = 3;
    show(QByteArray("line\n").repeated(500));
    first()->FoldLines({{3, 200}});
    const auto turn = [this](int delta) {
        QWheelEvent wheel({20, 20}, m_window->mapToGlobal(QPointF(20, 20)), {}, {0, delta},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_window, &wheel);
        return first()->TopLine();
    };
    first()->setFocus();
    QCOMPARE(turn(-120), 202);
    QCOMPARE(turn(-120), 205);
    QCOMPARE(turn(120), 202);
    QCOMPARE(turn(120), 1);
    QCOMPARE(turn(120), 1);
    QVERIFY(first()->IsFolded(2));
}

void tst_CsdFolds::popup_overAFold_keepsTheSelection()
{
    show(QByteArray("some line\n").repeated(100));
    first()->FoldLines({{3, 50}});
    auto *popup = control<QMenu>("menuPopup");
    QWidget *view = first()->childAt(20, 20);
    const auto rightClick = [&](int line, int column) {
        const QPoint at =
            first()->PositionToPixels(line, column) + QPoint(2, first()->LineHeight() / 2);
        QTest::mouseClick(view, Qt::RightButton, {}, view->mapFrom(first(), at));
        require(QTest::qWaitFor([popup] { return popup->isVisible(); }), "no popup");
        popup->close();
    };
    caret(first(), 2, 0, 52, 3);
    const int length = first()->SelectionLength();
    rightClick(51, 4);
    QCOMPARE(first()->SelectionLength(), length);
    rightClick(53, 4);
    QCOMPARE(first()->SelectionLength(), 0);
    QCOMPARE(first()->CaretLine(), 53);
    QVERIFY(first()->IsFolded(2));
}

void tst_CsdFolds::otherDocument_isAllVisible()
{
    show(QByteArray("line\n").repeated(100));
    first()->FoldLines({{10, 20}});
    show(QByteArray("line\n").repeated(30));
    QVERIFY(!first()->HasFolds());
}

ARDIPHON_TEST(tst_CsdFolds, QApplication)
#include "tst_CsdFolds.moc"
