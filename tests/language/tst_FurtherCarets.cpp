// Several carets at once: of further occurrences, and of a rectangle.

#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/Require.h"
#include "support/ShadowText.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QClipboard>

using namespace ardiphon;
using namespace EditorInput;

class tst_FurtherCarets : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_editor.reset(); }

    void nextOccurrence_selectsTheWordFirst();
    void nextOccurrence_goesRoundAndEnds();
    void nextOccurrence_ofAPartOfAWord_findsParts();
    void nextOccurrence_showsHiddenLines();
    void nextOccurrence_withoutAWord_doesNothing();
    void typing_isAtEachCaret_andOneStep();
    void keyPress_isToldOnce();
    void swallowedKey_changesNothing();
    void lettersOfSeveralBytes_areTyped();
    void enter_keepsTheIndentOfEach();
    void backspaceAndDelete_areAtEachCaret();
    void paste_isAtEachCaret();
    void overwriting_isAtEachCaret();
    void arrows_moveAllCarets();
    void escape_leavesOneCaret();
    void whatSetsTheSelection_leavesOneCaret_data();
    void whatSetsTheSelection_leavesOneCaret();
    void rectangle_isTypedInto();
    void rectangle_isDeletedAndPasted();
    void rectangle_upwardsAndToTheLeft();
    void rectangle_overShortLines();
    void rectangle_endsWithAClick();
    void otherModifiers_selectNoRectangle_data();
    void otherModifiers_selectNoRectangle();
    void contract_knowsOneSelection();
    void bookmarks_follow();
    void furtherSelections_haveTheColours();

private:
    void setText(const char *text)
    {
        m_editor->SetText(QString::fromUtf8(text).replace(u'|', QLatin1String("\r\n")));
        m_editor->ResetUndo();
        goTo(*m_editor, 1, 0);
    }
    QString text() const { return m_editor->Text().replace(QLatin1String("\r\n"), "|"); }
    /// Selects all places of the word that is there.
    void selectAllAt(int line, int column)
    {
        goTo(*m_editor, line, column);
        while (m_editor->SelectNextOccurrence())
            continue;
    }
    /// Drags with the left button from one character to another.
    void drag(int line, int column, int endLine, int endColumn, Qt::KeyboardModifiers modifiers)
    {
        const auto at = [&](int l, int c) {
            return m_editor->PositionToPixels(l, c) + QPoint(1, m_editor->LineHeight() / 2);
        };
        QWidget *const viewport = m_editor->childAt(at(line, column));
        const auto send = [&](QEvent::Type type, QPoint point, Qt::MouseButton button,
                              Qt::MouseButtons buttons) {
            const QPoint local = viewport->mapFrom(m_editor.get(), point);
            QMouseEvent event(type, local, viewport->mapToGlobal(local), button, buttons,
                              modifiers);
            QApplication::sendEvent(viewport, &event);
        };
        send(QEvent::MouseButtonPress, at(line, column), Qt::LeftButton, Qt::LeftButton);
        send(QEvent::MouseMove, (at(line, column) + at(endLine, endColumn)) / 2, Qt::NoButton,
             Qt::LeftButton);
        send(QEvent::MouseMove, at(endLine, endColumn), Qt::NoButton, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, at(endLine, endColumn), Qt::LeftButton, Qt::NoButton);
    }
    void dragRectangle(int line, int column, int endLine, int endColumn)
    {
        drag(line, column, endLine, endColumn, Qt::ShiftModifier | Qt::AltModifier);
    }

    std::unique_ptr<LEditOCX> m_editor;
};

void tst_FurtherCarets::init()
{
    m_editor = std::make_unique<LEditOCX>();
    m_editor->resize(600, 400);
    m_editor->show();
    require(QTest::qWaitForWindowExposed(m_editor.get()), "the control does not show");
    m_editor->setFocus();
}

void tst_FurtherCarets::nextOccurrence_selectsTheWordFirst()
{
    setText("out kamp, kamps|kamp");
    goTo(*m_editor, 1, 6);
    QVERIFY(m_editor->SelectNextOccurrence());
    QCOMPARE(selection(*m_editor), QStringLiteral("1:4-1:8"));
    QVERIFY(!m_editor->HasFurtherCarets());
    QVERIFY(m_editor->SelectNextOccurrence());
    QCOMPARE(selection(*m_editor), QStringLiteral("2:0-2:4"));
    QVERIFY(m_editor->HasFurtherCarets());
}

void tst_FurtherCarets::nextOccurrence_goesRoundAndEnds()
{
    setText("ab|ab|Ab|ab");
    goTo(*m_editor, 2, 0);
    QStringList selections;
    while (m_editor->SelectNextOccurrence())
        selections.append(selection(*m_editor));
    QCOMPARE(selections.join(u' '), QStringLiteral("2:0-2:2 4:0-4:2 1:0-1:2"));
    QVERIFY(!m_editor->SelectNextOccurrence());
    type(*m_editor, QStringLiteral("x"));
    QCOMPARE(text(), QStringLiteral("x|x|Ab|x"));
}

void tst_FurtherCarets::nextOccurrence_ofAPartOfAWord_findsParts()
{
    setText("oscil oscili oscil3");
    select(*m_editor, 1, 1, 1, 5);
    QVERIFY(m_editor->SelectNextOccurrence());
    QVERIFY(m_editor->SelectNextOccurrence());
    QVERIFY(!m_editor->SelectNextOccurrence());
    type(*m_editor, QStringLiteral("x"));
    QCOMPARE(text(), QStringLiteral("ox oxi ox3"));
}

void tst_FurtherCarets::nextOccurrence_showsHiddenLines()
{
    setText("ab|1|ab|2|3");
    m_editor->FoldLines({{2, 4}});
    selectAllAt(1, 0);
    QVERIFY(!m_editor->HasFolds());
    QCOMPARE(selection(*m_editor), QStringLiteral("3:0-3:2"));
}

void tst_FurtherCarets::nextOccurrence_withoutAWord_doesNothing()
{
    setText("a  b");
    goTo(*m_editor, 1, 2);
    QVERIFY(!m_editor->SelectNextOccurrence());
    setText("");
    QVERIFY(!m_editor->SelectNextOccurrence());
    QVERIFY(!m_editor->HasFurtherCarets());
}

void tst_FurtherCarets::typing_isAtEachCaret_andOneStep()
{
    setText("ab 1|ab 2|ab 3");
    selectAllAt(1, 0);
    ShadowText shadow(*m_editor);
    type(*m_editor, QStringLiteral("xyz"));
    QCOMPARE(text(), QStringLiteral("xyz 1|xyz 2|xyz 3"));
    QCOMPARE(shadow.faults(), QString());
    QCOMPARE(shadow.changes().size(), 3);
    QVERIFY(m_editor->HasFurtherCarets());
    for (const char *before : {"xy 1|xy 2|xy 3", "x 1|x 2|x 3", "ab 1|ab 2|ab 3"}) {
        press(*m_editor, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(text(), QString::fromLatin1(before));
        QVERIFY(!m_editor->HasFurtherCarets());
    }
    QCOMPARE(shadow.faults(), QString());
}

void tst_FurtherCarets::keyPress_isToldOnce()
{
    setText("ab|ab");
    selectAllAt(1, 0);
    QList<int> told;
    connect(m_editor.get(), &LEditOCX::KeyPress, this, [&](int &c) { told.append(c); });
    int keys = 0;
    connect(m_editor.get(), &LEditOCX::KeyDown, this, [&] { ++keys; });
    type(*m_editor, QStringLiteral("x"));
    press(*m_editor, Qt::Key_Return);
    press(*m_editor, Qt::Key_Backspace);
    QCOMPARE(told, (QList<int>{'x', 13, 8}));
    QCOMPARE(keys, 3);
}

void tst_FurtherCarets::swallowedKey_changesNothing()
{
    setText("ab|ab");
    selectAllAt(1, 0);
    const auto swallow =
        connect(m_editor.get(), &LEditOCX::KeyPress, this, [](int &character) { character = 0; });
    type(*m_editor, QStringLiteral("x"));
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(text(), QStringLiteral("ab|ab"));
    QVERIFY(m_editor->HasFurtherCarets());
    disconnect(swallow);
    connect(m_editor.get(), &LEditOCX::KeyPress, this, [](int &character) { character = 'y'; });
    type(*m_editor, QStringLiteral("x"));
    QCOMPARE(text(), QStringLiteral("y|y"));
}

void tst_FurtherCarets::lettersOfSeveralBytes_areTyped()
{
    setText("ab|ab");
    selectAllAt(1, 0);
    QInputMethodEvent letters;
    letters.setCommitString(QString::fromUtf8("ä🎵b"));
    QApplication::sendEvent(m_editor->focusProxy(), &letters);
    QCOMPARE(text(), QString::fromUtf8("ä🎵b|ä🎵b"));
    QVERIFY(m_editor->HasFurtherCarets());
}

void tst_FurtherCarets::enter_keepsTheIndentOfEach()
{
    setText("  ab|ab|\tab c");
    m_editor->SetAutoIndent(true);
    selectAllAt(1, 2);
    ShadowText shadow(*m_editor);
    press(*m_editor, Qt::Key_End);
    press(*m_editor, Qt::Key_Return);
    type(*m_editor, QStringLiteral("x"));
    QCOMPARE(text(), QStringLiteral("  ab|  x|ab|x|\tab c|\tx"));
    QCOMPARE(shadow.changes().size(), 2);
    QCOMPARE(shadow.faults(), QString());
    m_editor->Undo();
    m_editor->Undo();
    QCOMPARE(text(), QStringLiteral("  ab|ab|\tab c"));
}

void tst_FurtherCarets::backspaceAndDelete_areAtEachCaret()
{
    setText("abc|abc|d");
    selectAllAt(1, 0);
    press(*m_editor, Qt::Key_Right);
    press(*m_editor, Qt::Key_Backspace);
    QCOMPARE(text(), QStringLiteral("ab|ab|d"));
    press(*m_editor, Qt::Key_Left);
    press(*m_editor, Qt::Key_Delete);
    QCOMPARE(text(), QStringLiteral("a|a|d"));
    m_editor->Undo();
    QCOMPARE(text(), QStringLiteral("ab|ab|d"));
    m_editor->Undo();
    QCOMPARE(text(), QStringLiteral("abc|abc|d"));
}

void tst_FurtherCarets::paste_isAtEachCaret()
{
    setText("ab|ab");
    selectAllAt(1, 0);
    ShadowText shadow(*m_editor);
    QApplication::clipboard()->setText(QStringLiteral("xy"));
    press(*m_editor, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(text(), QStringLiteral("xy|xy"));
    QCOMPARE(shadow.changes().size(), 1);
    m_editor->Undo();
    QCOMPARE(text(), QStringLiteral("ab|ab"));
    // With one caret it is once again.
    goTo(*m_editor, 1, 0);
    press(*m_editor, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(text(), QStringLiteral("xyab|ab"));
}

void tst_FurtherCarets::overwriting_isAtEachCaret()
{
    setText("ab cd|ab cd");
    selectAllAt(1, 0);
    press(*m_editor, Qt::Key_Insert);
    press(*m_editor, Qt::Key_Right);
    type(*m_editor, QStringLiteral("xy"));
    QCOMPARE(text(), QStringLiteral("abxyd|abxyd"));
    press(*m_editor, Qt::Key_Insert);
}

void tst_FurtherCarets::arrows_moveAllCarets()
{
    setText("ab|ab");
    selectAllAt(1, 0);
    press(*m_editor, Qt::Key_Home);
    type(*m_editor, QStringLiteral("x"));
    press(*m_editor, Qt::Key_Right);
    type(*m_editor, QStringLiteral("y"));
    QCOMPARE(text(), QStringLiteral("xayb|xayb"));
}

void tst_FurtherCarets::escape_leavesOneCaret()
{
    setText("ab|ab|cd");
    selectAllAt(1, 0);
    int keys = 0;
    connect(m_editor.get(), &LEditOCX::KeyDown, this, [&] { ++keys; });
    press(*m_editor, Qt::Key_Escape);
    QVERIFY(!m_editor->HasFurtherCarets());
    QCOMPARE(keys, 1);
    QCOMPARE(selection(*m_editor), QStringLiteral("2:0-2:2"));
    type(*m_editor, QStringLiteral("x"));
    QCOMPARE(text(), QStringLiteral("ab|x|cd"));
    setText("abcd|abcd|cd");
    dragRectangle(1, 1, 2, 3);
    press(*m_editor, Qt::Key_Escape);
    QVERIFY(!m_editor->HasFurtherCarets());
    QCOMPARE(selection(*m_editor), QStringLiteral("2:1-2:3"));
    type(*m_editor, QStringLiteral("x"));
    QCOMPARE(text(), QStringLiteral("abcd|axd|cd"));
    // A handler that takes the key keeps them.
    setText("ab|ab");
    selectAllAt(1, 0);
    connect(m_editor.get(), &LEditOCX::KeyDown, this, [](EditorKey &key) { key.KeyCode = 0; });
    press(*m_editor, Qt::Key_Escape);
    QVERIFY(m_editor->HasFurtherCarets());
}

void tst_FurtherCarets::whatSetsTheSelection_leavesOneCaret_data()
{
    using Call = std::function<void(LEditOCX &)>;
    QTest::addColumn<Call>("call");
    const auto row = [](const char *name, const Call &call) { QTest::newRow(name) << call; };
    row("SetSelection", [](LEditOCX &e) { goTo(e, 3, 1); });
    row("SelectAll", [](LEditOCX &e) { e.SelectAll(); });
    row("SetSelText", [](LEditOCX &e) { e.SetSelText(QStringLiteral("x")); });
    row("FindFirst", [](LEditOCX &e) {
        e.SetFindText(QStringLiteral("cd"));
        e.SetFindDirection(2);
        e.FindFirst();
    });
    row("ReplaceRanges", [](LEditOCX &e) { e.ReplaceRanges({{3, 0, 1, QStringLiteral("x")}}); });
    row("ClearDocument", [](LEditOCX &e) { e.ClearDocument(); });
    row("click", [](LEditOCX &e) { click(e, 3, 1); });
    row("Ctrl+A", [](LEditOCX &e) { press(e, Qt::Key_A, Qt::ControlModifier); });
    row("Ctrl+Home", [](LEditOCX &e) { press(e, Qt::Key_Home, Qt::ControlModifier); });
}

/// However they came, by occurrences or by a rectangle.
void tst_FurtherCarets::whatSetsTheSelection_leavesOneCaret()
{
    QFETCH(std::function<void(LEditOCX &)>, call);
    for (const bool isRectangle : {false, true}) {
        setText("ab|ab|cd");
        if (isRectangle)
            dragRectangle(1, 0, 2, 1);
        else
            selectAllAt(1, 0);
        QVERIFY(m_editor->HasFurtherCarets());
        call(*m_editor);
        QVERIFY(!m_editor->HasFurtherCarets());
        goTo(*m_editor, 1, 0);
        const QString before = m_editor->Text();
        type(*m_editor, QStringLiteral("q"));
        QCOMPARE(m_editor->Text(), u'q' + before);
    }
}

void tst_FurtherCarets::rectangle_isTypedInto()
{
    setText("abcd|efgh|ijkl|mnop");
    ShadowText shadow(*m_editor);
    dragRectangle(1, 1, 3, 3);
    QVERIFY(m_editor->HasFurtherCarets());
    QCOMPARE(selection(*m_editor), QStringLiteral("3:1-3:3"));
    type(*m_editor, QStringLiteral("x"));
    QCOMPARE(text(), QStringLiteral("axd|exh|ixl|mnop"));
    QCOMPARE(shadow.changes().size(), 1);
    type(*m_editor, QStringLiteral("y"));
    QCOMPARE(text(), QStringLiteral("axyd|exyh|ixyl|mnop"));
    QCOMPARE(shadow.faults(), QString());
    m_editor->Undo();
    m_editor->Undo();
    QCOMPARE(text(), QStringLiteral("abcd|efgh|ijkl|mnop"));
    QVERIFY(!m_editor->HasFurtherCarets());
}

void tst_FurtherCarets::rectangle_isDeletedAndPasted()
{
    setText("abcd|efgh|ijkl");
    dragRectangle(1, 1, 2, 3);
    press(*m_editor, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(text(), QStringLiteral("ad|eh|ijkl"));
    m_editor->Undo();
    QCOMPARE(text(), QStringLiteral("abcd|efgh|ijkl"));
    m_editor->Redo();
    goTo(*m_editor, 1, 0);
    press(*m_editor, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(text(), QStringLiteral("bcad|fgeh|ijkl"));
    dragRectangle(1, 0, 2, 2);
    press(*m_editor, Qt::Key_Delete);
    QCOMPARE(text(), QStringLiteral("ad|eh|ijkl"));
    QApplication::clipboard()->setText(QStringLiteral("1"));
    dragRectangle(1, 0, 3, 1);
    press(*m_editor, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(text(), QStringLiteral("1d|1h|1jkl"));
}

void tst_FurtherCarets::rectangle_upwardsAndToTheLeft()
{
    setText("abcd|efgh|ijkl");
    dragRectangle(3, 3, 2, 1);
    type(*m_editor, QStringLiteral("x"));
    QCOMPARE(text(), QStringLiteral("abcd|exh|ixl"));
}

void tst_FurtherCarets::rectangle_overShortLines()
{
    setText("abcdef|a||abcdef");
    dragRectangle(1, 3, 4, 5);
    type(*m_editor, QStringLiteral("x"));
    QCOMPARE(text(), QStringLiteral("abcxf|a  x|   x|abcxf"));
    // Nothing is filled up where nothing is typed.
    setText("abcdef|a||abcdef");
    dragRectangle(1, 3, 4, 5);
    press(*m_editor, Qt::Key_Delete);
    QCOMPARE(text(), QStringLiteral("abcf|a||abcf"));
    // The rectangle may end below a line that is shorter.
    setText("abcdef|a|abcdef|");
    dragRectangle(3, 1, 1, 4);
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(text(), QStringLiteral("a|ef|a||a|ef|"));
}

void tst_FurtherCarets::rectangle_endsWithAClick()
{
    setText("abcd|efgh");
    dragRectangle(1, 1, 2, 3);
    click(*m_editor, 1, 1);
    QVERIFY(!m_editor->HasFurtherCarets());
    QCOMPARE(selection(*m_editor), QStringLiteral("1:1-1:1"));
    // Shift and a click selects a stream, not a rectangle, from there.
    click(*m_editor, 2, 2, Qt::LeftButton, Qt::ShiftModifier);
    QCOMPARE(selection(*m_editor), QStringLiteral("1:1-2:2"));
    QVERIFY(!m_editor->HasFurtherCarets());
}

void tst_FurtherCarets::otherModifiers_selectNoRectangle_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("none") << Qt::KeyboardModifiers(Qt::NoModifier);
    QTest::newRow("Alt") << Qt::KeyboardModifiers(Qt::AltModifier);
    QTest::newRow("Ctrl") << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("Ctrl+Alt") << (Qt::ControlModifier | Qt::AltModifier);
    QTest::newRow("Ctrl+Shift+Alt") << (Qt::ControlModifier | Qt::ShiftModifier | Qt::AltModifier);
}

void tst_FurtherCarets::otherModifiers_selectNoRectangle()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    setText("abcd|efgh|ijkl");
    goTo(*m_editor, 1, 1);
    drag(1, 1, 3, 3, modifiers);
    QVERIFY(!m_editor->HasFurtherCarets());
    QCOMPARE(selection(*m_editor), QStringLiteral("1:1-3:3"));
}

void tst_FurtherCarets::contract_knowsOneSelection()
{
    setText("ab cd|ab ef");
    selectAllAt(1, 0);
    QCOMPARE(m_editor->SelText(), QStringLiteral("ab"));
    QCOMPARE(m_editor->SelectionLength(), 2);
    QCOMPARE(m_editor->CaretLine(), 2);
    QCOMPARE(m_editor->CaretColumn(), 2);
    m_editor->SetSelText(QStringLiteral("xyz"));
    QCOMPARE(text(), QStringLiteral("ab cd|xyz ef"));
    QCOMPARE(selection(*m_editor), QStringLiteral("2:3-2:3"));
}

void tst_FurtherCarets::bookmarks_follow()
{
    setText("ab|ab|c");
    m_editor->SetBookmarkLine(0, 2);
    m_editor->SetBookmarkLine(1, 3);
    selectAllAt(1, 0);
    press(*m_editor, Qt::Key_Home);
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(text(), QStringLiteral("|ab||ab|c"));
    QCOMPARE(m_editor->GetBookmarkLine(1), 5);
    m_editor->Undo();
    QCOMPARE(m_editor->GetBookmarkLine(0), 2);
    QCOMPARE(m_editor->GetBookmarkLine(1), 3);
}

/// Those that the selection has.
void tst_FurtherCarets::furtherSelections_haveTheColours()
{
    m_editor->SetSelectionBackColor(Color{0x0000FF});
    m_editor->SetSelectionForeColor(Color{0x00FF00});
    setText("MMMM|MMMM|MMMM");
    dragRectangle(1, 0, 3, 4);
    const QImage image = m_editor->grab().toImage();
    const auto at = [&](int line) {
        const QPoint top = m_editor->PositionToPixels(line, 1);
        int red = 0, green = 0;
        for (int x = 0; x < 16; ++x) {
            for (int y = 0; y < m_editor->LineHeight(); ++y) {
                const QRgb pixel = image.pixel((top + QPoint(x, y)) * image.devicePixelRatio());
                red += pixel == qRgb(255, 0, 0);
                green += qGreen(pixel) > 128 && qRed(pixel) < 128;
            }
        }
        return red > 40 && green > 5;
    };
    QVERIFY(at(1));
    QVERIFY(at(2));
    QVERIFY(at(3));
}

ARDIPHON_TEST(tst_FurtherCarets, QApplication)
#include "tst_FurtherCarets.moc"
