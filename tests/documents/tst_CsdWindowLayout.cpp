#include "documents/CsdWindowLayout.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

/// The rules of the CSD window's layout, for every combination of tools, split or not, at three
/// sizes.
class tst_CsdWindowLayout : public QObject
{
    Q_OBJECT

private slots:
    void everyCombination_followsTheRules_data();
    void everyCombination_followsTheRules();
    void tinyWindow_givesNoNegativeLength();
};

void tst_CsdWindowLayout::everyCombination_followsTheRules_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("flags");
    for (const auto &[width, height] : {std::pair{12000, 9000}, {19155, 14235}, {38400, 21600}})
        for (int flags = 0; flags < 32; ++flags)
            QTest::addRow("%dx%d flags %d", width, height, flags) << width << height << flags;
}

void tst_CsdWindowLayout::everyCombination_followsTheRules()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(int, flags);
    CsdWindowState state{width, height, 735};
    state.LineNumbersVisible = flags & 1;
    state.BookBarVisible = flags & 2;
    state.OnLineHelpVisible = flags & 4;
    state.ToolbarVisible = flags & 8;
    state.split = flags & 16;
    const CsdWindowLayout at = ArrangeWindow(state);

    // The top band, by its two tools.
    const int bands[2][2] = {{0, 430}, {720, 1150}};
    const int top = bands[state.OnLineHelpVisible][state.ToolbarVisible];
    const int helpTop = state.ToolbarVisible ? 440 : 0;
    QCOMPARE(at.TextOpcode, QRect(50, helpTop, width - 100, 340));
    QCOMPARE(at.TextParametri, QRect(50, helpTop + 300, width - 100, 340));

    // The views and their gutters.
    const int areaLeft = state.BookBarVisible ? 2200 : 30;
    const int left = areaLeft + (state.LineNumbersVisible ? 735 : 0);
    const int areaHeight = height - top - 10;
    const int viewHeight = state.split ? areaHeight / 2 : areaHeight;
    QCOMPARE(at.LEDIT1, QRect(left, top, width - left - 50, viewHeight));
    QCOMPARE(at.PicNumeri, QRect(areaLeft, top, 735, viewHeight));
    if (state.split) {
        QCOMPARE(at.LEDIT2, QRect(left, top + viewHeight, width - left - 50, viewHeight));
        QCOMPARE(at.PicNumeri2, QRect(areaLeft, top + viewHeight, 735, viewHeight));
        QCOMPARE(at.splitLine, QRect(areaLeft, top + viewHeight - 15, width - areaLeft - 50, 15));
    }

    // The side panel.
    const int available = areaHeight - 1100;
    const int third = int(0.35 * available);
    QCOMPARE(at.Tree, QRect(30, top + 260, 2150, third - 260));
    const int treeEnd = top + third;
    QCOMPARE(at.Tree2, QRect(30, treeEnd + 300, 2150, third - 300));
    const int tree2End = treeEnd + third;
    QCOMPARE(at.List1, QRect(30, tree2End + 300, 2150, int(0.28 * available) - 300));
    QCOMPARE(at.LabelBookmarks.topLeft(), QPoint(60, at.Tree.y() - 250));
    QCOMPARE(at.LabelOwnBook.topLeft(), QPoint(60, at.Tree2.y() - 250));
    QCOMPARE(at.LabelTags.topLeft(), QPoint(60, at.List1.y() - 255));
    QCOMPARE(at.Frame1, QRect(30, height - 1210, 2150, 1200));
}

void tst_CsdWindowLayout::tinyWindow_givesNoNegativeLength()
{
    for (int flags = 0; flags < 32; ++flags) {
        const CsdWindowState state{300,
                                   200,
                                   735,
                                   bool(flags & 1),
                                   bool(flags & 2),
                                   bool(flags & 4),
                                   bool(flags & 8),
                                   bool(flags & 16)};
        const CsdWindowLayout at = ArrangeWindow(state);
        for (const QRect &rect :
             {at.LEDIT1, at.LEDIT2, at.Tree, at.Tree2, at.List1, at.TextOpcode, at.PicNumeri}) {
            QVERIFY(rect.width() >= 0);
            QVERIFY(rect.height() >= 0);
        }
    }
}

ARDIPHON_TEST(tst_CsdWindowLayout, NoApplication)
#include "tst_CsdWindowLayout.moc"
