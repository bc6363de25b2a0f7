// Several edits at once, as one step of history.

#include "language/editor/LEditOCX.h"
#include "support/ShadowText.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

class tst_LEditOCXRanges : public QObject
{
    Q_OBJECT

private slots:
    void edits_areOneStep();
    void edits_reportOneChange();
    void edits_behindLettersOfSeveralBytes();
    void edits_thatCannotBe_areLeftOut();
    void hiddenLines_stayHidden();
    void caretAndSelection_stayAtTheirLetters_data();
    void caretAndSelection_stayAtTheirLetters();
};

namespace {

const QString ThreeLines = QStringLiteral("ab cd ab\r\nab\r\nef ab");

/// The selection as "line column line column", the anchor first.
QString selectionOf(LEditOCX &editor)
{
    editor.GetSelection();
    return QStringLiteral("%1 %2 %3 %4")
        .arg(editor.SelStartLine)
        .arg(editor.SelStartColumn)
        .arg(editor.SelEndLine)
        .arg(editor.SelEndColumn);
}

void selectIn(LEditOCX &editor, int line, int column, int endLine, int endColumn)
{
    editor.SelStartLine = line;
    editor.SelStartColumn = column;
    editor.SelEndLine = endLine;
    editor.SelEndColumn = endColumn;
    editor.SetSelection();
}

} // namespace

void tst_LEditOCXRanges::edits_areOneStep()
{
    LEditOCX editor;
    editor.SetText(ThreeLines);
    editor.ResetUndo();
    editor.ReplaceRanges({{1, 0, 2, QStringLiteral("xyz")},
                          {1, 6, 2, QStringLiteral("xyz")},
                          {2, 0, 2, QString()},
                          {3, 3, 2, QStringLiteral("x")}});
    const QString changed = QStringLiteral("xyz cd xyz\r\n\r\nef x");
    QCOMPARE(editor.Text(), changed);
    editor.Undo();
    QCOMPARE(editor.Text(), ThreeLines);
    editor.Redo();
    QCOMPARE(editor.Text(), changed);
}

void tst_LEditOCXRanges::edits_reportOneChange()
{
    LEditOCX editor;
    editor.SetText(ThreeLines);
    const quint64 before = editor.TextRevision();
    ShadowText shadow(editor);
    editor.ReplaceRanges({{1, 0, 2, QStringLiteral("x")}, {3, 3, 2, QStringLiteral("x")}});
    QCOMPARE(editor.TextRevision(), before + 1);
    QCOMPARE(shadow.changes().size(), 1);
    QCOMPARE(shadow.changes()[0], (TextChange{1, 3, 3}));
    editor.ReplaceRanges({});
    QCOMPARE(editor.TextRevision(), before + 1);
}

void tst_LEditOCXRanges::edits_behindLettersOfSeveralBytes()
{
    LEditOCX editor;
    editor.SetText(QString::fromUtf8("\xc3\xa4\xf0\x9f\x8e\xb5 ab \xc3\xa4 ab"));
    editor.ReplaceRanges(
        {{1, 4, 2, QString::fromUtf8("\xc3\xb6")}, {1, 9, 2, QStringLiteral("x")}});
    QCOMPARE(editor.Text(), QString::fromUtf8("\xc3\xa4\xf0\x9f\x8e\xb5 \xc3\xb6 \xc3\xa4 x"));
}

void tst_LEditOCXRanges::edits_thatCannotBe_areLeftOut()
{
    LEditOCX editor;
    editor.SetText(ThreeLines);
    editor.ReplaceRanges({{0, 0, 1, QStringLiteral("x")},
                          {1, 0, 5, QStringLiteral("x")},
                          {1, 3, 5, QStringLiteral("y")},
                          {1, -1, 5, QStringLiteral("y")},
                          {2, 1, 100, QStringLiteral("z")},
                          {4, 0, 1, QStringLiteral("x")}});
    QCOMPARE(editor.Text(), QStringLiteral("x ab\r\naz\r\nef ab"));
}

void tst_LEditOCXRanges::hiddenLines_stayHidden()
{
    LEditOCX editor;
    editor.SetText(QStringLiteral("a\r\na\r\na\r\na\r\na\r\na\r\na"));
    editor.FoldLines({{2, 3}, {5, 6}});
    std::vector<EditorEdit> edits;
    for (const int line : {1, 2, 3, 5, 7})
        edits.push_back({line, 0, 1, QStringLiteral("bc")});
    editor.ReplaceRanges(edits);
    QCOMPARE(editor.Text(), QStringLiteral("bc\r\nbc\r\nbc\r\na\r\nbc\r\na\r\nbc"));
    QCOMPARE(editor.HiddenUnder(1), (LineRun{2, 3}));
    QCOMPARE(editor.HiddenUnder(4), (LineRun{5, 6}));
}

void tst_LEditOCXRanges::caretAndSelection_stayAtTheirLetters_data()
{
    QTest::addColumn<QList<int>>("before");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *name, const QList<int> &before, const char *after) {
        QTest::newRow(name) << before << QString::fromLatin1(after);
    };
    row("before", {1, 0, 1, 0}, "1 0 1 0");
    row("within", {1, 1, 1, 1}, "1 1 1 1");
    row("behind", {1, 2, 1, 2}, "1 4 1 4");
    row("between two", {1, 4, 1, 4}, "1 6 1 6");
    row("behind two", {1, 8, 1, 8}, "1 12 1 12");
    row("on another line", {2, 2, 2, 2}, "2 4 2 4");
    row("the last line", {3, 1, 3, 1}, "3 1 3 1");
    row("a selection", {1, 3, 3, 4}, "1 5 3 4");
}

void tst_LEditOCXRanges::caretAndSelection_stayAtTheirLetters()
{
    QFETCH(QList<int>, before);
    LEditOCX editor;
    editor.SetText(ThreeLines);
    selectIn(editor, before[0], before[1], before[2], before[3]);
    const QString name = QStringLiteral("abcd");
    editor.ReplaceRanges({{1, 0, 2, name}, {1, 6, 2, name}, {2, 0, 2, name}, {3, 3, 2, name}});
    QTEST(selectionOf(editor), "after");
}

ARDIPHON_TEST(tst_LEditOCXRanges, QApplication)
#include "tst_LEditOCXRanges.moc"
