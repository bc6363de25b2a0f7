// Random edits, moves, folds, unfolds and steps of the history, after each of which every hidden
// line can be shown again and the text is the one that the control told. The seed may be given in
// ARDIPHON_TEST_SEED.

#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/RandomSeed.h"
#include "support/ShadowText.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

#include <memory>

using namespace ardiphon;
using namespace EditorInput;

class tst_FoldingRandom : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void anySteps_leaveNothingHiddenForGood();

private:
    int below(int limit) { return int(m_random.bounded(limit)); }
    int anyLine() { return below(m_editor->LineCount() + 3); }
    QString anyText();
    void step();
    void fold();
    void unfold();
    void pressAnyKey();
    void callAny();
    void useMouse();
    QString faults();

    QRandomGenerator m_random{randomSeed(20)};
    std::unique_ptr<LEditOCX> m_editor;
    std::unique_ptr<ShadowText> m_shadow;
    QString m_done; ///< what the last step was
};

void tst_FoldingRandom::initTestCase()
{
    m_editor = std::make_unique<LEditOCX>();
    m_editor->resize(400, 250);
    m_editor->SetAutoIndent(true);
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
    m_shadow = std::make_unique<ShadowText>(*m_editor);
}

QString tst_FoldingRandom::anyText()
{
    static const char *const pieces[] = {"\r\n", "\n", "\r", "\r\n\r\n", "instr 1",  "  ",
                                         "a",    "/*", "*/", "x y\r\n",  "\xC3\xA9", ";"};
    QString text;
    for (int count = below(12); count > 0; --count)
        text += QString::fromUtf8(pieces[below(int(std::size(pieces)))]);
    return below(20) == 0 ? text.repeated(20) : text;
}

void tst_FoldingRandom::fold()
{
    QList<LineRun> runs;
    for (int count = 1 + below(4); count > 0; --count) {
        const int first = anyLine();
        runs.append({first, first + below(12) - 1});
    }
    for (const LineRun &run : runs)
        m_done += QStringLiteral(" %1-%2").arg(run.first).arg(run.last);
    const bool hid = m_editor->FoldLines(runs);
    for (const auto &[first, last] : runs) {
        const int hidden = std::max(first, 2);
        if (hidden <= std::min(last, m_editor->LineCount()) && !(hid && m_editor->IsHidden(hidden)))
            m_done += QStringLiteral(" (line %1 is not hidden)").arg(hidden);
    }
}

void tst_FoldingRandom::unfold()
{
    if (below(8) == 0) {
        m_editor->UnfoldAll();
        return;
    }
    const int line = anyLine();
    m_editor->UnfoldAt(line);
    if (m_editor->IsHidden(line) || m_editor->IsFolded(line))
        m_done += QStringLiteral(" (line %1 is still folded)").arg(line);
}

void tst_FoldingRandom::pressAnyKey()
{
    static constexpr Qt::Key keys[] = {
        Qt::Key_Return,   Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Tab,  Qt::Key_Y,
        Qt::Key_X,        Qt::Key_C,         Qt::Key_V,      Qt::Key_Left, Qt::Key_Right,
        Qt::Key_Up,       Qt::Key_Down,      Qt::Key_Home,   Qt::Key_End,  Qt::Key_PageUp,
        Qt::Key_PageDown, Qt::Key_A,         Qt::Key_U,      Qt::Key_D,    Qt::Key_Insert};
    static constexpr Qt::KeyboardModifiers held[] = {Qt::NoModifier, Qt::ShiftModifier,
                                                     Qt::ControlModifier,
                                                     Qt::ControlModifier | Qt::ShiftModifier};
    const Qt::Key key = keys[below(int(std::size(keys)))];
    const Qt::KeyboardModifiers with = held[below(int(std::size(held)))];
    m_done += QStringLiteral(" %1 %2").arg(int(with), 0, 16).arg(int(key), 0, 16);
    press(*m_editor, key, with);
}

void tst_FoldingRandom::callAny()
{
    switch (below(8)) {
    case 0:
        m_editor->SetText(below(3) ? m_editor->Text() + anyText() : anyText());
        break;
    case 1: {
        QString text = m_editor->Text();
        m_editor->SetText(text.insert(below(int(text.size()) + 1), anyText()));
        break;
    }
    case 2:
        m_editor->SetFindText(anyText().left(2));
        m_editor->SetReplaceText(anyText().left(4));
        m_editor->ReplaceAll();
        break;
    case 3:
        m_editor->SetFindText(QStringLiteral("instr"));
        m_editor->SetFindDirection(below(3));
        m_editor->FindFirst();
        break;
    case 4:
        m_editor->SetTopLine(anyLine());
        break;
    case 5:
        m_editor->ScrollRows(below(20) - 10);
        break;
    case 6:
        m_editor->SetMarks(MarkKind::Occurrence, {{anyLine(), below(5), below(5)}});
        break;
    default:
        if (below(5) == 0)
            m_editor->ClearDocument();
        else
            m_editor->Paste();
    }
}

void tst_FoldingRandom::useMouse()
{
    QWidget *const viewport = m_editor->childAt(20, 20);
    const QPoint at(below(200), below(viewport->height()));
    switch (below(4)) {
    case 0:
        QTest::mouseDClick(viewport, Qt::LeftButton, {}, at);
        break;
    case 1:
        QTest::mousePress(viewport, Qt::LeftButton, {}, at);
        QTest::mouseMove(viewport, QPoint(below(200), below(viewport->height())));
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, QPoint(below(200), at.y()));
        break;
    default:
        QTest::mouseClick(viewport, Qt::LeftButton, below(2) ? Qt::ShiftModifier : Qt::NoModifier,
                          at);
    }
}

void tst_FoldingRandom::step()
{
    const int kind = below(16);
    m_done = QString::number(kind);
    if (kind < 4)
        fold();
    else if (kind < 5)
        unfold();
    else if (kind < 7)
        select(*m_editor, anyLine(), below(6), anyLine(), below(6));
    else if (kind < 8)
        m_editor->SetSelText(anyText());
    else if (kind < 9)
        type(*m_editor, QStringLiteral("xy"));
    else if (kind < 10)
        m_editor->Undo();
    else if (kind < 11)
        m_editor->Redo();
    else if (kind < 12)
        useMouse();
    else if (kind < 13)
        callAny();
    else
        pressAnyKey();
    if (below(4) == 0)
        m_editor->grab();
}

QString tst_FoldingRandom::faults()
{
    QString all = m_shadow->faults();
    const int lines = m_editor->LineCount();
    const int top = m_editor->TopLine();
    m_editor->SetTopLine(1);
    int row = 0;
    for (int line = 1; line <= lines; ++line) {
        if (m_editor->IsHidden(line)) {
            if (line == 1)
                all += QStringLiteral("line 1 is hidden; ");
            continue;
        }
        // Each visible line is in the next row, and what is hidden before it is under the last one.
        const LineRun under = m_editor->HiddenUnder(line);
        const int next = under.isEmpty() ? line + 1 : under.last + 1;
        if (m_editor->LineInRow(row) != line || m_editor->IsFolded(line) == under.isEmpty())
            all += QStringLiteral("row %1 is not line %2; ").arg(row).arg(line);
        if (next <= lines && m_editor->IsHidden(next))
            all += QStringLiteral("line %1 is under no header; ").arg(next);
        ++row;
    }
    if (m_editor->LineInRow(row) != lines + 1)
        all += QStringLiteral("there are more rows than %1; ").arg(row);
    m_editor->SetTopLine(top);
    if (m_editor->IsHidden(m_editor->CaretLine()))
        all += QStringLiteral("the caret is hidden; ");
    if (m_editor->TopLine() != top && !m_editor->IsHidden(top))
        all += QStringLiteral("the view moved; ");
    return m_done.contains(u'(') ? all + m_done : all;
}

void tst_FoldingRandom::anySteps_leaveNothingHiddenForGood()
{
    constexpr int steps = 3000;
    m_editor->SetText(QStringLiteral("instr 1\r\n  a\r\nendin\r\n").repeated(30));
    int withFolds = 0;
    for (int i = 0; i < steps; ++i) {
        if (m_editor->LineCount() < 10 || m_editor->LineCount() > 1000)
            m_editor->SetText(QStringLiteral("instr 1\r\n  a\r\nendin\r\n").repeated(20));
        step();
        withFolds += m_editor->HasFolds();
        const QString wrong = faults();
        QVERIFY2(wrong.isEmpty(),
                 qPrintable(QStringLiteral("step %1, %2: %3").arg(i).arg(m_done, wrong)));
    }
    QVERIFY2(withFolds > steps / 4, qPrintable(QString::number(withFolds)));
}

ARDIPHON_TEST(tst_FoldingRandom, QApplication)
#include "tst_FoldingRandom.moc"
