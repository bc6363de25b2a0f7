#include "documents/ProjectLayout.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

/// The rules of the project window's layout: the four arrangements for every combination of tools
/// at three sizes, and both grips at and beyond their limits.
class tst_ProjectLayout : public QObject
{
    Q_OBJECT

private slots:
    void arrangement_names_areThoseOfTheConfiguration();
    void horizontal_everyCombination_data() { sizesAndTools(); }
    void horizontal_everyCombination();
    void vertical_everyCombination_data() { sizesAndTools(); }
    void vertical_everyCombination();
    void alone_everyCombination_data() { sizesAndTools(); }
    void alone_everyCombination();
    void column_takesWhatItsButtonsNeed();
    void dragH_everyCombination_data() { sizesAndTools(); }
    void dragH_everyCombination();
    void dragV_everyCombination_data() { sizesAndTools(); }
    void dragV_everyCombination();
    void resize_afterADrag_isFromNothing();
    void tinyWindow_givesNoNegativeLength();

private:
    static void sizesAndTools();
    void fetch(Arrangement arrangement);
    void compareHorizontalFollowers(const ProjectLayout &at) const;
    void compareVerticalFollowers(const ProjectLayout &at) const;

    ProjectWindowState m_state;
    int m_top = 0;    // of what the common start leaves
    int m_gutter = 0; // the gutter's width, 0 when it is hidden
};

void tst_ProjectLayout::sizesAndTools()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("flags");
    for (const auto &[width, height] : {std::pair{12000, 9000}, {19155, 14235}, {38400, 21600}})
        for (int flags = 0; flags < 8; ++flags)
            QTest::addRow("%dx%d flags %d", width, height, flags) << width << height << flags;
}

void tst_ProjectLayout::fetch(Arrangement arrangement)
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(int, flags);
    m_state = {};
    m_state.innerWidth = width;
    m_state.innerHeight = height;
    m_state.gutterWidth = 735;
    m_state.toolbarHeight = 390;
    m_state.grabWidth = 300;
    m_state.LineNumbersVisible = flags & 1;
    m_state.OnLineHelpVisible = flags & 2;
    m_state.ToolbarVisible = flags & 4;
    m_state.arrangement = arrangement;
    const int tops[2][2] = {{220, 620}, {1000, 1400}}; // by help and toolbar
    m_top = tops[m_state.OnLineHelpVisible][m_state.ToolbarVisible];
    m_gutter = m_state.LineNumbersVisible ? 735 : 0;

    const ProjectLayout at = arrangeProject(m_state);
    const int helpTop = m_state.ToolbarVisible ? 400 : 0;
    QCOMPARE(at.TextOpcode, QRect(50, helpTop, width - 100, 340));
    QCOMPARE(at.TextParametri, QRect(50, helpTop + 300, width - 100, 330));
    QCOMPARE(at.Toolbar1, QRect(0, 0, width, 400));
}

void tst_ProjectLayout::arrangement_names_areThoseOfTheConfiguration()
{
    const std::pair<Arrangement, QString> names[] = {
        {Arrangement::Horizontal, QStringLiteral("orizzontale")},
        {Arrangement::Vertical, QStringLiteral("verticale")},
        {Arrangement::Orchestra, QStringLiteral("orchestra")},
        {Arrangement::Score, QStringLiteral("score")},
    };
    for (const auto &[arrangement, name] : names)
        QCOMPARE(arrangementName(arrangement), name);
}

/// The rules of what is around each editor, from the editor's own place.
void tst_ProjectLayout::compareHorizontalFollowers(const ProjectLayout &at) const
{
    for (const HalfLayout *half : {&at.orchestra, &at.score}) {
        const QRect &editor = half->editor;
        QCOMPARE(half->label, QRect(410, editor.y() - 220, m_state.innerWidth, 300));
        QCOMPARE(half->toolbar, QRect(0, editor.y() + 50, 360, 1000));
        QCOMPARE(half->toolbarRoom, 360);
        QCOMPARE(half->gutter, QRect(360, editor.y(), 735, editor.height()));
    }
}

void tst_ProjectLayout::compareVerticalFollowers(const ProjectLayout &at) const
{
    const QRect &left = at.orchestra.editor;
    const QRect &right = at.score.editor;
    const int middle = left.x() + left.width();
    const int half = m_state.innerWidth / 2;
    QCOMPARE(at.orchestra.label, QRect(50, left.y() - 650, half - 10, 300));
    QCOMPARE(at.score.label, QRect(middle, right.y() - 650, half - 10, 300));
    QCOMPARE(at.orchestra.toolbar, QRect(0, left.y() - 400, half, 390));
    QCOMPARE(at.score.toolbar, QRect(middle, right.y() - 400, half, 390));
    QCOMPARE(at.orchestra.toolbarRoom, std::min(half, middle));
    QCOMPARE(at.score.toolbarRoom, std::min(half, m_state.innerWidth - middle));
    QCOMPARE(at.splitLine, QRect(middle - 15, left.y(), 15, left.height()));
    QCOMPARE(at.orchestra.gutter, QRect(0, left.y(), 735, left.height()));
    QCOMPARE(at.score.gutter, QRect(middle, right.y(), 735, right.height()));
}

void tst_ProjectLayout::horizontal_everyCombination()
{
    CHECKED(fetch(Arrangement::Horizontal));
    const ProjectLayout at = arrangeProject(m_state);
    const int left = 360 + m_gutter;
    const int height = (m_state.innerHeight - m_top - 280) / 2;
    QCOMPARE(at.orchestra.editor, QRect(left, m_top, m_state.innerWidth - left, height));
    QCOMPARE(at.score.editor, QRect(left, m_top + height + 300, m_state.innerWidth - left, height));
    CHECKED(compareHorizontalFollowers(at));
    QCOMPARE(at.SplitterH, QPoint(m_state.innerWidth - 350, m_top + height + 80));
}

void tst_ProjectLayout::vertical_everyCombination()
{
    CHECKED(fetch(Arrangement::Vertical));
    const ProjectLayout at = arrangeProject(m_state);
    const int top = m_top + 450;
    const int width = (m_state.innerWidth - 2 * m_gutter) / 2;
    const int height = m_state.innerHeight - top;
    QCOMPARE(at.orchestra.editor, QRect(m_gutter, top, width, height));
    QCOMPARE(at.score.editor, QRect(2 * m_gutter + width, top, width, height));
    CHECKED(compareVerticalFollowers(at));
    QCOMPARE(at.SplitterV, QPoint(m_gutter + width - 250, top - 650));
}

void tst_ProjectLayout::alone_everyCombination()
{
    for (const Arrangement arrangement : {Arrangement::Orchestra, Arrangement::Score}) {
        CHECKED(fetch(arrangement));
        const ProjectLayout at = arrangeProject(m_state);
        const HalfLayout &half = arrangement == Arrangement::Score ? at.score : at.orchestra;
        const int width = m_state.innerWidth;
        const int top = m_top + 450;
        const int height = m_state.innerHeight - top;
        QCOMPARE(half.editor, QRect(m_gutter, top, width - m_gutter, height));
        QCOMPARE(half.label, QRect(50, top - 650, width, 300));
        QCOMPARE(half.toolbar, QRect(0, top - 400, width, 390));
        QCOMPARE(half.gutter, QRect(0, top, 735, height));
        QCOMPARE(showsOrchestra(arrangement), arrangement == Arrangement::Orchestra);
        QCOMPARE(showsScore(arrangement), arrangement == Arrangement::Score);
    }
}

void tst_ProjectLayout::column_takesWhatItsButtonsNeed()
{
    ProjectWindowState state;
    state.innerWidth = 12000;
    state.innerHeight = 9000;
    state.columnHeight = 3450;
    const ProjectLayout at = arrangeProject(state);
    QCOMPARE(at.score.toolbar, QRect(0, at.score.editor.y() + 50, 360, 3450));
    state.columnHeight = 8000; // more than there is
    QCOMPARE(arrangeProject(state).score.toolbar.height(), at.score.editor.height() - 50);
    state.innerHeight = 2000;
    QCOMPARE(arrangeProject(state).score.toolbar.height(), 1000);
}

void tst_ProjectLayout::dragH_everyCombination()
{
    CHECKED(fetch(Arrangement::Horizontal));
    const ProjectLayout start = arrangeProject(m_state);
    const int least = m_top + 800;
    const int most = m_state.innerHeight - 1000;
    for (const int top : {least, least + 777, most}) {
        const auto at = dragSplitterH(m_state, start, top);
        QVERIFY(at);
        QCOMPARE(at->SplitterH, QPoint(m_state.innerWidth - 350, top));
        const int left = 360 + m_gutter;
        const int width = m_state.innerWidth - left;
        QCOMPARE(at->orchestra.editor, QRect(left, m_top, width, top - m_top - 80));
        QCOMPARE(at->score.editor, QRect(left, top + 220, width, m_state.innerHeight - top - 220));
        CHECKED(compareHorizontalFollowers(*at));
    }
    QVERIFY(!dragSplitterH(m_state, start, least - 1));
    QVERIFY(!dragSplitterH(m_state, start, most + 1));
}

void tst_ProjectLayout::dragV_everyCombination()
{
    CHECKED(fetch(Arrangement::Vertical));
    const ProjectLayout start = arrangeProject(m_state);
    const int most = m_state.innerWidth - 1200;
    for (const int left : {800, 4321, most}) {
        const auto at = dragSplitterV(m_state, start, left);
        QVERIFY(at);
        QCOMPARE(at->SplitterV, QPoint(left, start.SplitterV.y()));
        const QRect &first = at->orchestra.editor;
        const int top = m_top + 450;
        QCOMPARE(first, QRect(m_gutter, top, left - m_gutter + 250, m_state.innerHeight - top));
        const int second = left + 250 + m_gutter;
        QCOMPARE(at->score.editor, QRect(second, top, m_state.innerWidth - second, first.height()));
        CHECKED(compareVerticalFollowers(*at));
    }
    QVERIFY(!dragSplitterV(m_state, start, 799));
    QVERIFY(!dragSplitterV(m_state, start, most + 1));
    QVERIFY(dragSplitterV(m_state, start, most - 200)); // the limits of the grips differ
}

void tst_ProjectLayout::resize_afterADrag_isFromNothing()
{
    m_state = {};
    m_state.innerWidth = 15000;
    m_state.innerHeight = 9000;
    m_state.arrangement = Arrangement::Vertical;
    const auto dragged = dragSplitterV(m_state, arrangeProject(m_state), 3000);
    QVERIFY(dragged && dragged->orchestra.editor.width() != dragged->score.editor.width());
    const ProjectLayout at = arrangeProject(m_state);
    QCOMPARE(at.orchestra.editor.width(), at.score.editor.width());
}

void tst_ProjectLayout::tinyWindow_givesNoNegativeLength()
{
    for (int flags = 0; flags < 32; ++flags) {
        ProjectWindowState state;
        state.innerWidth = 900;
        state.innerHeight = 600;
        state.gutterWidth = 1440;
        state.LineNumbersVisible = flags & 1;
        state.OnLineHelpVisible = flags & 2;
        state.ToolbarVisible = flags & 4;
        state.arrangement = Arrangement(flags >> 3);
        const ProjectLayout at = arrangeProject(state);
        for (const HalfLayout &half : {at.orchestra, at.score})
            for (const QRect &place : {half.editor, half.gutter, half.label, half.toolbar}) {
                QVERIFY(place.width() >= 0);
                QVERIFY(place.height() >= 0);
            }
    }
}

ARDIPHON_TEST(tst_ProjectLayout, NoApplication)
#include "tst_ProjectLayout.moc"
