#include "documents/CsdFixture.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QStandardPaths>
#include <QTreeView>

using namespace ardiphon;

/// The check of the text as it stands, by the real compiler.
class tst_CheckFeature : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        start();
        m_program->config.FileCSound = QStandardPaths::findExecutable(QStringLiteral("csound"));
    }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void typing_marksAndUnmarks();
    void problem_isListed_enterGoesThere();
    void problem_click_goesThere();
    void keys_goFromOneToTheNext();
    void fix_isOneUndoStep();
    void off_showsNothing_andIsKept();
    void noCompiler_isSaid();
    void wrongCompiler_isSaid();
    void emptyOrchestra_isQuiet();

private:
    QTreeView *tree() const { return control<QTreeView>("TreeProblems"); }
    QDockWidget *dock() const { return control<QDockWidget>("DockProblems"); }
    QString cell(int row, int column) const
    {
        return tree()->model()->index(row, column).data().toString();
    }
    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(first()->focusProxy(), Qt::Key(key), modifiers);
    }
    static QByteArray pieceWith(const QByteArray &lines)
    {
        return "<CsoundSynthesizer>\n<CsInstruments>\nksmps = 32\ninstr 1\n" + lines +
               "\nendin\n</CsInstruments>\n<CsScore>\ni1 0 1\n</CsScore>\n</CsoundSynthesizer>\n";
    }
};

void tst_CheckFeature::typing_marksAndUnmarks()
{
    show(pieceWith("a1 oscili .5, 440\nout a1"));
    QCOMPARE(dock()->windowTitle(), "Problems");
    caret(first(), 5, 9);
    QTest::keyClick(first()->focusProxy(), Qt::Key_Q);
    QTRY_COMPARE(dock()->windowTitle(), "Problems (1)");
    QCOMPARE(cell(0, 0), "Line 5");
    QCOMPARE(cell(0, 1), "There is no opcode \"osciliq\".");
    QCOMPARE(cell(0, 2), "compiler");
    key(Qt::Key_Backspace);
    QTRY_COMPARE(dock()->windowTitle(), "Problems");
    QCOMPARE(tree()->model()->rowCount(), 0);
}

void tst_CheckFeature::problem_isListed_enterGoesThere()
{
    show(pieceWith("a1 oscili .5, 440\nout a1 + nothing"));
    QTRY_COMPARE(dock()->windowTitle(), "Problems (1)");
    QVERIFY(dock()->isHidden());
    key(Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(dock()->isVisible());
    QVERIFY(action("menuStudioProblems")->isChecked());
    QCOMPARE(QApplication::focusWidget(), tree());
    QTest::keyClick(tree(), Qt::Key_Return);
    QVERIFY(first()->hasFocus());
    QCOMPARE(first()->CaretLine(), 6);
    QCOMPARE(first()->CaretColumn(), 9);
}

void tst_CheckFeature::problem_click_goesThere()
{
    show(pieceWith("a1 oscily .5, 440\nout a1"));
    QTRY_COMPARE(dock()->windowTitle(), "Problems (1)");
    trigger("menuStudioProblems");
    QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {},
                      tree()->visualRect(tree()->model()->index(0, 1)).center());
    QVERIFY(first()->hasFocus());
    QCOMPARE(first()->CaretLine(), 5);
    QCOMPARE(first()->CaretColumn(), 3);
}

void tst_CheckFeature::keys_goFromOneToTheNext()
{
    show(pieceWith("k1 = 1 + + * 2\nk2 = 2\nk3 = )"));
    QTRY_COMPARE(dock()->windowTitle(), "Problems (2)");
    key(Qt::Key_Period, Qt::ControlModifier);
    QCOMPARE(first()->CaretLine(), 5);
    key(Qt::Key_Period, Qt::ControlModifier);
    QCOMPARE(first()->CaretLine(), 7);
    key(Qt::Key_Period, Qt::ControlModifier);
    QCOMPARE(first()->CaretLine(), 5);
    key(Qt::Key_Comma, Qt::ControlModifier);
    QCOMPARE(first()->CaretLine(), 7);
}

void tst_CheckFeature::fix_isOneUndoStep()
{
    show(pieceWith("a1 oscilli .5, 440\nout a1"));
    QTRY_COMPARE(dock()->windowTitle(), "Problems (1)");
    trigger("menuStudioProblems");
    emit tree()->customContextMenuRequested(
        tree()->visualRect(tree()->model()->index(0, 1)).center());
    QAction *insert = nullptr;
    for (QMenu *each : dock()->findChildren<QMenu *>()) {
        if (!each->actions().isEmpty())
            insert = each->actions().constFirst();
    }
    QVERIFY(insert != nullptr);
    QCOMPARE(insert->text(), "Insert oscili");
    insert->trigger();
    QCOMPARE(first()->LineText(5), "a1 oscili .5, 440");
    first()->Undo();
    QCOMPARE(first()->LineText(5), "a1 oscilli .5, 440");
}

void tst_CheckFeature::off_showsNothing_andIsKept()
{
    show(pieceWith("a1 oscilli .5, 440\nout a1"));
    QVERIFY(action("menuStudioCheck")->isChecked());
    QTRY_COMPARE(dock()->windowTitle(), "Problems (1)");
    trigger("menuStudioCheck");
    QCOMPARE(dock()->windowTitle(), "Problems");
    QVERIFY(!m_program->config.CheckWhileTyping);
    SettingsStore fresh(m_program->path("settings.ini"));
    ConfigurationBlock next;
    LoadConfiguration(next, fresh);
    QVERIFY(!next.CheckWhileTyping);
    trigger("menuStudioCheck");
    QTRY_COMPARE(dock()->windowTitle(), "Problems (1)");
}

void tst_CheckFeature::noCompiler_isSaid()
{
    m_program->config.FileCSound = QString();
    show(pieceWith("a1 oscilli .5, 440"));
    trigger("menuStudioProblems");
    QTRY_COMPARE(control<QLabel>("LabelProblems")->text(),
                 "No compiler is chosen, so nothing is checked.");
    QVERIFY(control<QLabel>("LabelProblems")->isVisible());
    QCOMPARE(dock()->windowTitle(), "Problems");
}

void tst_CheckFeature::wrongCompiler_isSaid()
{
    m_program->config.FileCSound = m_program->path("nothing");
    show(pieceWith("a1 oscilli .5, 440"));
    QTRY_COMPARE(control<QLabel>("LabelProblems")->text(),
                 "The compiler cannot be started, so nothing is checked.");
    trigger("menuStudioCheck");
    QCOMPARE(control<QLabel>("LabelProblems")->text(), "");
    m_program->config.FileCSound = m_program->path("");
    trigger("menuStudioCheck"); // a folder
    QTRY_COMPARE(control<QLabel>("LabelProblems")->text(),
                 "The compiler cannot be started, so nothing is checked.");
}

void tst_CheckFeature::emptyOrchestra_isQuiet()
{
    show("<CsoundSynthesizer>\n</CsoundSynthesizer>\n");
    trigger("menuStudioProblems");
    trigger("menuStudioCheck");
    trigger("menuStudioCheck");
    QCOMPARE(control<QLabel>("LabelProblems")->text(), "");
    QCOMPARE(dock()->windowTitle(), "Problems");
}

ARDIPHON_TEST(tst_CheckFeature, QApplication)
#include "tst_CheckFeature.moc"
