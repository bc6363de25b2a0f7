#include "documents/CsdFixture.h"
#include "documents/ProjectWindow.h"
#include "language/LineRun.h"
#include "language/ui/Gutter.h"
#include "support/FileBytes.h"
#include "support/TestMain.h"

#include <QMenu>

using namespace ardiphon;

/// Folding by the marks in the gutter, by keys and by the menu, in both windows.
class tst_FoldFeature : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void atFirst_nothingIsFolded();
    void mark_foldsAndUnfolds();
    void mark_besideALineThatBeginsNothing_doesNothing();
    void mark_ofABlockThatWasTyped_isThere();
    void key_foldsWhatIsAroundTheCaret();
    void key_onAHeaderOfAFold_unfolds();
    void key_insideABlockInABlock_foldsTheInner();
    void key_outsideOfAllBlocks_foldsTheWholeFile();
    void key_withoutBlocks_doesNothing();
    void all_foldsBodiesAndNoSections();
    void all_keepsTheCaretInSight();
    void unfoldAll_showsEverything();
    void fold_changesNothingOfTheText();
    void split_keysFoldTheViewOfTheCaret();
    void project_eachHalfFoldsItsOwn();
    void project_menuFoldsTheHalfOfTheCaret();

private:
    static constexpr auto Keys = Qt::ControlModifier | Qt::ShiftModifier;

    static void pressFold(LEditOCX *editor)
    {
        editor->setFocus();
        QTest::keyClick(editor->focusProxy(), Qt::Key_K, Keys);
    }
    void fold(int line, int column = 0)
    {
        caret(first(), line, column);
        pressFold(first());
    }
    static void clickMark(Gutter *gutter, const LEditOCX *editor, int row)
    {
        const int height = editor->LineHeight();
        QTest::mouseClick(gutter, Qt::LeftButton, {}, QPoint(3, (row - 1) * height + height / 2));
    }
    void clickMark(int row) { clickMark(control<Gutter>("PicNumeri"), first(), row); }

    /// What is hidden, as "4-6 8-10".
    static QString hiddenIn(const LEditOCX *editor)
    {
        QStringList runs;
        for (int line = 1; line <= editor->LineCount(); ++line) {
            if (const LineRun run = editor->HiddenUnder(line); !run.isEmpty())
                runs.append(QStringLiteral("%1-%2").arg(run.first).arg(run.last));
        }
        return runs.join(u' ');
    }
    QString hidden() const { return hiddenIn(first()); }
};

namespace {

const QByteArray FoldedPiece = "<CsoundSynthesizer>\n" // 1
                               "<CsInstruments>\n"
                               "; how loud\n" // 3
                               "; and how long\n"
                               "instr 1\n" // 5
                               "if p4 > 1 then\n"
                               "kamp = p4\n" // 7
                               "endif\n"
                               "endin\n" // 9
                               "opcode two, i, i\n"
                               "xout 2\n" // 11
                               "endop\n"
                               "</CsInstruments>\n" // 13
                               "<CsScore>\n"
                               "i 1 0 1\n" // 15
                               "s\n"
                               "i 1 0 1\n" // 17
                               "</CsScore>\n"
                               "</CsoundSynthesizer>\n"; // 19

} // namespace

void tst_FoldFeature::atFirst_nothingIsFolded()
{
    show(FoldedPiece);
    QCOMPARE(hidden(), QString());
    QVERIFY(!first()->HasFolds());
}

void tst_FoldFeature::mark_foldsAndUnfolds()
{
    show(FoldedPiece);
    clickMark(5);
    QTRY_COMPARE(hidden(), QStringLiteral("6-9"));
    clickMark(6); // the opcode has moved up
    QCOMPARE(hidden(), QStringLiteral("6-9 11-12"));
    clickMark(5);
    QCOMPARE(hidden(), QStringLiteral("11-12"));
    clickMark(10);
    QCOMPARE(hidden(), QString());
    clickMark(2);
    QCOMPARE(hidden(), QStringLiteral("3-13"));
    clickMark(2);
    clickMark(1);
    QCOMPARE(hidden(), QStringLiteral("2-19"));
}

void tst_FoldFeature::mark_besideALineThatBeginsNothing_doesNothing()
{
    show(FoldedPiece);
    for (const int line : {4, 7, 8, 9, 11, 12, 13, 16, 17, 18, 19})
        clickMark(line);
    QCOMPARE(hidden(), QString());
}

void tst_FoldFeature::mark_ofABlockThatWasTyped_isThere()
{
    show("<CsInstruments>\n\n</CsInstruments>\n");
    caret(first(), 2, 0);
    QTest::keyClicks(first()->focusProxy(), QStringLiteral("instr 7"));
    QTest::keyClick(first()->focusProxy(), Qt::Key_Return);
    QTest::keyClicks(first()->focusProxy(), QStringLiteral("endin"));
    const auto folds = [this] {
        clickMark(2);
        return hidden() == QStringLiteral("3-3");
    };
    QTRY_VERIFY(folds());
}

void tst_FoldFeature::key_foldsWhatIsAroundTheCaret()
{
    show(FoldedPiece);
    fold(9, 3);
    QCOMPARE(hidden(), QStringLiteral("6-9"));
    QCOMPARE(first()->CaretLine(), 5);
    QCOMPARE(first()->CaretColumn(), 7);
    fold(11);
    QCOMPARE(hidden(), QStringLiteral("6-9 11-12"));
    fold(4);
    QCOMPARE(hidden(), QStringLiteral("4-4 6-9 11-12"));
    fold(15);
    QCOMPARE(hidden(), QStringLiteral("4-4 6-9 11-12 16-16"));
    fold(17);
    QCOMPARE(hidden(), QStringLiteral("4-4 6-9 11-12 15-18"));
}

void tst_FoldFeature::key_onAHeaderOfAFold_unfolds()
{
    show(FoldedPiece);
    fold(5);
    QCOMPARE(hidden(), QStringLiteral("6-9"));
    pressFold(first());
    QCOMPARE(hidden(), QString());
    QCOMPARE(first()->CaretLine(), 5);
}

void tst_FoldFeature::key_insideABlockInABlock_foldsTheInner()
{
    show(FoldedPiece);
    fold(7);
    QCOMPARE(hidden(), QStringLiteral("7-8"));
    QCOMPARE(first()->CaretLine(), 6);
}

void tst_FoldFeature::key_outsideOfAllBlocks_foldsTheWholeFile()
{
    show(FoldedPiece);
    fold(19);
    QCOMPARE(hidden(), QStringLiteral("2-19"));
    QCOMPARE(first()->CaretLine(), 1);
}

void tst_FoldFeature::key_withoutBlocks_doesNothing()
{
    show("one\ntwo\n");
    fold(1);
    fold(2);
    trigger("menuStudioFoldAll");
    trigger("menuStudioUnfoldAll");
    QCOMPARE(hidden(), QString());
}

void tst_FoldFeature::all_foldsBodiesAndNoSections()
{
    show(FoldedPiece);
    trigger("menuStudioFoldAll");
    QCOMPARE(hidden(), QStringLiteral("4-4 6-9 11-12 16-16"));
}

void tst_FoldFeature::all_keepsTheCaretInSight()
{
    show(FoldedPiece);
    caret(first(), 7, 2);
    trigger("menuStudioFoldAll");
    QCOMPARE(first()->CaretLine(), 5);
    QCOMPARE(first()->CaretColumn(), 7);
}

void tst_FoldFeature::unfoldAll_showsEverything()
{
    show(FoldedPiece);
    trigger("menuStudioFoldAll");
    clickMark(2);
    trigger("menuStudioUnfoldAll");
    QCOMPARE(hidden(), QString());
    QVERIFY(!first()->HasFolds());
}

void tst_FoldFeature::fold_changesNothingOfTheText()
{
    show(FoldedPiece);
    const QString before = first()->Text();
    const QString title = m_window->windowTitle();
    trigger("menuStudioFoldAll");
    clickMark(2);
    QCOMPARE(first()->Text(), before);
    QCOMPARE(m_window->windowTitle(), title); // without a *
    trigger("menuFileSalvaOrchestra");
    QCOMPARE(bytesOf(m_program->config.CSDFileName), FoldedPiece);
}

void tst_FoldFeature::split_keysFoldTheViewOfTheCaret()
{
    show(FoldedPiece);
    trigger("buttonSplit");
    second()->setFocus();
    caret(second(), 7, 0);
    pressFold(second());
    QCOMPARE(hiddenIn(second()), QStringLiteral("7-8"));
    QCOMPARE(hidden(), QString());
    fold(11);
    QCOMPARE(hidden(), QStringLiteral("11-12"));
    clickMark(control<Gutter>("PicNumeri2"), second(), 5);
    QCOMPARE(hiddenIn(second()), QStringLiteral("6-9"));
    second()->setFocus();
    trigger("menuStudioUnfoldAll");
    QCOMPARE(hiddenIn(second()), QString());
    QCOMPARE(hidden(), QStringLiteral("11-12"));
}

void tst_FoldFeature::project_eachHalfFoldsItsOwn()
{
    ProjectWindow project;
    project.showPair("instr 1\na = 1\nendin\n", "{ 2 N\ni 1 0 1\n}\ns\ni 1 0 1\ns\n");
    caret(project.orchestra, 2, 0);
    pressFold(project.orchestra);
    QCOMPARE(hiddenIn(project.orchestra), QStringLiteral("2-3"));
    QCOMPARE(hiddenIn(project.score), QString());
    caret(project.score, 2, 0);
    pressFold(project.score);
    QCOMPARE(hiddenIn(project.score), QStringLiteral("2-4"));
    clickMark(project.control<Gutter>("PicNumeri1"), project.orchestra, 1);
    QCOMPARE(hiddenIn(project.orchestra), QString());
    clickMark(project.control<Gutter>("PicNumeri2"), project.score, 2); // line 5
    QCOMPARE(hiddenIn(project.score), QStringLiteral("2-4 6-6"));
}

void tst_FoldFeature::project_menuFoldsTheHalfOfTheCaret()
{
    ProjectWindow project;
    project.showPair("instr 1\na = 1\nendin\n", "i 1 0 1\ns\ni 1 0 1\ns\n");
    project.score->setFocus();
    project.trigger("menuStudioFoldAll");
    QCOMPARE(hiddenIn(project.score), QStringLiteral("2-2 4-4"));
    QCOMPARE(hiddenIn(project.orchestra), QString());
    project.orchestra->setFocus();
    project.trigger("menuStudioFoldAll");
    QCOMPARE(hiddenIn(project.orchestra), QStringLiteral("2-3"));
    project.trigger("menuStudioUnfoldAll");
    QCOMPARE(hiddenIn(project.orchestra), QString());
    QCOMPARE(hiddenIn(project.score), QStringLiteral("2-2 4-4"));
}

ARDIPHON_TEST(tst_FoldFeature, QApplication)
#include "tst_FoldFeature.moc"
