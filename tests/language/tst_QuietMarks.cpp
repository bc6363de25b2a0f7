// Boxes behind parts of the text that is in view.

#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/TestMain.h"

#include <QSignalSpy>

#include <memory>

using namespace ardiphon;
using namespace EditorInput;

class tst_QuietMarks : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_editor.reset(); }

    void marks_areDrawnWhereTheyAreSet();
    void marks_ofBothKinds_standTogether();
    void marks_setAgain_replaceThoseOfTheirKind();
    void marks_thatDoNotExist_areLeftOut();
    void marks_moveWithEdits();
    void marks_leaveTheSelection();
    void marks_leaveTheLetters();
    void marks_changeNothingElse();
    void marks_onADarkGround_areLighter();
    void marks_unchanged_areNotPaintedAgain();
    void wanted_onceForEachChange();
    void wanted_tellsTheLinesInView();
    void wanted_longLines_areLeftOut();

private:
    QColor ground(int line, int column);
    QString marked(int line);
    void paint();

    std::unique_ptr<LEditOCX> m_editor;
    const Color m_back = Color::rgb(255, 255, 255);
};

namespace {

const QColor SelectedGround(0, 0, 200);

} // namespace

void tst_QuietMarks::init()
{
    m_editor = std::make_unique<LEditOCX>();
    m_editor->SetFontName(QStringLiteral("DejaVu Sans Mono"));
    m_editor->SetBackColor(m_back);
    m_editor->SetSelectionBackColor(Color::rgb(0, 0, 200));
    m_editor->SetSelectionForeColor(Color::rgb(255, 255, 0));
    m_editor->resize(500, 20 * m_editor->LineHeight());
    m_editor->SetText(QStringLiteral("one two one two\r\nthree (one)\r\n").repeated(50));
    m_editor->ClearState(TextState);
    m_editor->ResetUndo();
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
    m_editor->setFocus();
    goTo(*m_editor, 3, 0);
    paint();
}

void tst_QuietMarks::paint()
{
    QCoreApplication::processEvents();
    m_editor->repaint();
    QCoreApplication::processEvents();
}

/// The background behind a character, at the foot of its cell, where none of these letters is.
QColor tst_QuietMarks::ground(int line, int column)
{
    const QPoint left = m_editor->PositionToPixels(line, column);
    const QPoint right = m_editor->PositionToPixels(line, column + 1);
    const QPoint at((left.x() + right.x()) / 2, left.y() + m_editor->LineHeight() - 2);
    return m_editor->grab().toImage().pixelColor(at * m_editor->devicePixelRatio());
}

/// A line with "#" for each character with a mark, "=" for a selected one and "." for any other.
QString tst_QuietMarks::marked(int line)
{
    QString signs;
    for (int column = 0; column < m_editor->LineLength(line); ++column) {
        const QColor color = ground(line, column);
        signs += color == QColor(Qt::white) ? u'.' : color == SelectedGround ? u'=' : u'#';
    }
    return signs;
}

void tst_QuietMarks::marks_areDrawnWhereTheyAreSet()
{
    const QImage before = m_editor->grab().toImage();
    m_editor->SetMarks(MarkKind::Occurrence, {{1, 0, 3}, {1, 8, 3}, {2, 7, 3}});
    QCOMPARE(marked(1), QStringLiteral("###.....###...."));
    QCOMPARE(marked(2), QStringLiteral(".......###."));
    QCOMPARE(marked(3), QStringLiteral("..............."));
    m_editor->SetMarks(MarkKind::Occurrence, {});
    QCOMPARE(m_editor->grab().toImage(), before);
}

void tst_QuietMarks::marks_ofBothKinds_standTogether()
{
    m_editor->SetMarks(MarkKind::Occurrence, {{2, 7, 3}});
    const QColor occurrence = ground(2, 8);
    m_editor->SetMarks(MarkKind::Bracket, {{2, 6, 1}, {2, 10, 1}});
    QCOMPARE(marked(2), QStringLiteral("......#####"));
    QCOMPARE(ground(2, 8), occurrence);
    m_editor->SetMarks(MarkKind::Occurrence, {});
    QCOMPARE(marked(2), QStringLiteral("......#...#"));
    m_editor->SetMarks(MarkKind::Bracket, {});
    QCOMPARE(marked(2), QStringLiteral("..........."));
}

void tst_QuietMarks::marks_setAgain_replaceThoseOfTheirKind()
{
    m_editor->SetMarks(MarkKind::Occurrence, {{1, 0, 3}, {1, 8, 3}});
    m_editor->SetMarks(MarkKind::Occurrence, {{1, 4, 3}, {1, 8, 3}});
    QCOMPARE(marked(1), QStringLiteral("....###.###...."));
    m_editor->SetMarks(MarkKind::Occurrence, {{1, 9, 4}, {1, 2, 3}}); // in any order
    QCOMPARE(marked(1), QStringLiteral("..###....####.."));
}

void tst_QuietMarks::marks_thatDoNotExist_areLeftOut()
{
    m_editor->SetMarks(MarkKind::Occurrence, {{0, 0, 3},
                                              {-1, 0, 3},
                                              {102, 0, 3},
                                              {INT_MAX, INT_MAX, INT_MAX},
                                              {1, -1, 3},
                                              {1, 0, 0},
                                              {1, 0, -3},
                                              {1, 15, 1},
                                              {1, INT_MAX, INT_MAX},
                                              {2, 7, INT_MAX}});
    QCOMPARE(marked(1), QStringLiteral("..............."));
    QCOMPARE(marked(2), QStringLiteral(".......####"));
    QCOMPARE(marked(3), QStringLiteral("..............."));
}

void tst_QuietMarks::marks_moveWithEdits()
{
    m_editor->SetMarks(MarkKind::Occurrence, {{1, 8, 3}, {2, 7, 3}});
    goTo(*m_editor, 1, 0);
    type(*m_editor, QStringLiteral("xx"));
    QCOMPARE(marked(1), QStringLiteral("..........###...."));
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(marked(2), QStringLiteral("........###...."));
    QCOMPARE(marked(3), QStringLiteral(".......###."));
    for (int i = 0; i < 3; ++i)
        m_editor->Undo();
    QCOMPARE(marked(1), QStringLiteral("........###...."));
}

void tst_QuietMarks::marks_leaveTheSelection()
{
    m_editor->SetMarks(MarkKind::Occurrence, {{1, 0, 3}, {1, 8, 3}});
    select(*m_editor, 1, 0, 1, 3);
    QCOMPARE(marked(1), QStringLiteral("===.....###...."));
    select(*m_editor, 1, 9, 1, 13);
    QCOMPARE(marked(1), QStringLiteral("###.....#====.."));
    goTo(*m_editor, 1, 9);
    QCOMPARE(marked(1), QStringLiteral("###.....###...."));
}

/// What is darkest, the letters, is the same with a mark.
void tst_QuietMarks::marks_leaveTheLetters()
{
    m_editor->SetGetTokenColors([](TokenKind, const QString &) {
        return TokenColors{Color::rgb(255, 255, 255), Color::rgb(180, 0, 0)};
    });
    const auto letters = [this] {
        const QImage picture = m_editor->grab().toImage();
        int count = 0;
        for (int y = 0; y < m_editor->LineHeight(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                count += picture.pixelColor(x, y) == QColor(180, 0, 0);
        return count;
    };
    const int before = letters();
    QVERIFY(before > 10);
    m_editor->SetMarks(MarkKind::Occurrence, {{1, 0, 3}, {1, 8, 3}});
    m_editor->SetMarks(MarkKind::Bracket, {{1, 4, 3}});
    QCOMPARE(letters(), before);
}

void tst_QuietMarks::marks_changeNothingElse()
{
    QSignalSpy text(m_editor.get(), &LEditOCX::textChanged);
    const QString before = m_editor->Text();
    const quint64 revision = m_editor->TextRevision();
    m_editor->SetMarks(MarkKind::Occurrence, {{1, 0, 3}, {1, 8, 3}});
    paint();
    QVERIFY(text.isEmpty());
    QVERIFY(!m_editor->GetState(TextState));
    m_editor->Undo();
    QCOMPARE(m_editor->Text(), before);
    QCOMPARE(m_editor->TextRevision(), revision);
    QCOMPARE(selection(*m_editor), QStringLiteral("3:0-3:0"));
}

void tst_QuietMarks::marks_onADarkGround_areLighter()
{
    m_editor->SetMarks(MarkKind::Occurrence, {{1, 0, 3}});
    m_editor->SetMarks(MarkKind::Bracket, {{1, 8, 1}});
    QVERIFY(ground(1, 1).lightness() < 250);
    QVERIFY(ground(1, 1).lightness() > 200); // quiet
    QVERIFY(ground(1, 8).lightness() < 250);
    m_editor->SetBackColor(Color::rgb(20, 20, 60));
    const QColor back(20, 20, 60);
    QCOMPARE(ground(1, 5), back);
    QVERIFY(ground(1, 1).lightness() > back.lightness() + 5);
    QVERIFY(ground(1, 8).lightness() > back.lightness() + 5);
}

namespace {

/// Counts what a widget paints.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget *widget) { widget->installEventFilter(this); }
    int count = 0;

private:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
};

} // namespace

void tst_QuietMarks::marks_unchanged_areNotPaintedAgain()
{
    const QList<TextSpan> spans{{1, 0, 3}, {1, 8, 3}};
    connect(m_editor.get(), &LEditOCX::marksWanted, this,
            [&] { m_editor->SetMarks(MarkKind::Occurrence, spans); });
    goTo(*m_editor, 2, 0);
    paint();
    QCOMPARE(marked(1), QStringLiteral("###.....###...."));
    paint();
    PaintCount paints(m_editor->childAt(10, 10));
    for (int i = 0; i < 5; ++i)
        m_editor->SetMarks(MarkKind::Occurrence, spans);
    QCoreApplication::processEvents();
    QCOMPARE(paints.count, 0);
    m_editor->SetMarks(MarkKind::Occurrence, {{1, 0, 3}});
    QTRY_VERIFY(paints.count > 0);
}

void tst_QuietMarks::wanted_onceForEachChange()
{
    QSignalSpy wanted(m_editor.get(), &LEditOCX::marksWanted);
    paint();
    QCOMPARE(wanted.size(), 0);
    const auto count = [&] {
        paint();
        paint();
        const int times = int(wanted.size());
        wanted.clear();
        return times;
    };
    press(*m_editor, Qt::Key_Right);
    QCOMPARE(count(), 1);
    press(*m_editor, Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(count(), 1);
    type(*m_editor, QStringLiteral("x"));
    QCOMPARE(count(), 1);
    m_editor->SetTopLine(5);
    QCOMPARE(count(), 1);
    m_editor->FoldLines({{10, 12}});
    QCOMPARE(count(), 1);
    m_editor->resize(500, 10 * m_editor->LineHeight());
    QCOMPARE(count(), 1);
    m_editor->Redraw();
    QCOMPARE(count(), 1);
    m_editor->update();
    QCOMPARE(count(), 0);
}

void tst_QuietMarks::wanted_tellsTheLinesInView()
{
    QList<LineRun> lines;
    connect(m_editor.get(), &LEditOCX::marksWanted, this,
            [&](const QList<LineRun> &inView) { lines = inView; });
    m_editor->SetTopLine(41);
    paint();
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines[0].first, 41);
    const int rows = lines[0].last - 40;
    QVERIFY(rows >= 19 && rows <= 21);
    m_editor->FoldLines({{44, 73}});
    paint();
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines[0], (LineRun{41, 43}));
    QCOMPARE(lines[1], (LineRun{74, 70 + rows}));
    m_editor->SetText(QStringLiteral("a\r\nb"));
    paint();
    QCOMPARE(lines, (QList<LineRun>{{1, 2}}));
}

void tst_QuietMarks::wanted_longLines_areLeftOut()
{
    QList<LineRun> lines;
    connect(m_editor.get(), &LEditOCX::marksWanted, this,
            [&](const QList<LineRun> &inView) { lines = inView; });
    const QString longest = QStringLiteral("one ").repeated(4096);
    m_editor->SetText(QStringLiteral("a\r\n%1\r\n%1b\r\nc").arg(longest));
    paint();
    QCOMPARE(lines, (QList<LineRun>{{1, 2}, {4, 4}}));
    m_editor->SetMarks(MarkKind::Occurrence, {{2, 0, 3}, {3, 0, 3}});
    QCOMPARE(ground(2, 1) == QColor(Qt::white), false);
    QCOMPARE(ground(3, 1), QColor(Qt::white));
}

ARDIPHON_TEST(tst_QuietMarks, QApplication)
#include "tst_QuietMarks.moc"
