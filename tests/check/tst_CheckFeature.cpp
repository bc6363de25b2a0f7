#include "documents/CsdFixture.h"
#include "language/ui/Gutter.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTimer>
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
    void longOrchestra_isNotChecked();
    void emptyOrchestra_isQuiet();
    void section_withoutEnd_isSaid();
    void compile_itsErrorsStay();
    void score_playsWhatIsNotThere_isSaid();
    void score_hasItsProblems();
    void mark_isDrawnInTextAndGutter();
    void changedAllTheTime_noProcessIsLeft();

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

void tst_CheckFeature::longOrchestra_isNotChecked()
{
    show(pieceWith(QByteArray("a1 oscilli .5, 440\n").repeated(50'001)));
    trigger("menuStudioProblems");
    QTRY_COMPARE(control<QLabel>("LabelProblems")->text(),
                 "The orchestra is too long to be checked while you type.");
    QCOMPARE(dock()->windowTitle(), "Problems");
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

void tst_CheckFeature::section_withoutEnd_isSaid()
{
    QByteArray piece = pieceWith("a1 oscili .5, 440\nout a1");
    piece.replace("</CsScore>\n", "");
    show(piece);
    QTRY_COMPARE(dock()->windowTitle(), "Problems (1)");
    QCOMPARE(cell(0, 1), "The section <CsScore> of line 9 does not end with </CsScore>.");
    QCOMPARE(cell(0, 2), "sections");
}

/// With the check switched off there is only what the compile has found.
void tst_CheckFeature::compile_itsErrorsStay()
{
    m_program->config.CheckWhileTyping = false;
    show(pieceWith("a1 oscilli .5, 440\nout a1"));
    QTimer closer;
    connect(&closer, &QTimer::timeout, m_window, [&closer] {
        QWidget *const dialog = QApplication::activeModalWidget();
        if (!dialog)
            return;
        auto *const compile = controlIn<QPushButton>(*dialog, QStringLiteral("Command2"));
        const auto *const stop = controlIn<QPushButton>(*dialog, QStringLiteral("btnStop"));
        if (!dialog->property("compiled").toBool()) {
            dialog->setProperty("compiled", true);
            compile->click(); // returns at the compiler's end
            require(!stop->isEnabled(), "the compiler has not ended");
            closer.stop();
            dialog->close();
        }
    });
    closer.start(20);
    key(Qt::Key_F3);
    QCOMPARE(dock()->windowTitle(), "Problems (1)");
    QCOMPARE(cell(0, 0), "Line 5");
    QCOMPARE(cell(0, 1), "There is no opcode \"oscilli\".");
    first()->SetSelText(QStringLiteral(" "));
    QCOMPARE(dock()->windowTitle(), "Problems (1)");
}

/// Not by the compiler, which says it when it plays, if at all.
void tst_CheckFeature::score_playsWhatIsNotThere_isSaid()
{
    QByteArray piece = pieceWith("a1 oscili .5, 440\nout a1");
    piece.replace("i1 0 1\n", "i1 0 1\ni7 1 1\n");
    show(piece);
    QTRY_COMPARE(dock()->windowTitle(), "Problems (1)");
    QCOMPARE(cell(0, 0), "Line 11");
    QCOMPARE(cell(0, 2), "no-instrument");
}

void tst_CheckFeature::score_hasItsProblems()
{
    QByteArray piece = pieceWith("a1 oscili .5, 440\nout a1");
    piece.replace("i1 0 1\n", "i1 0 1\ni1 1 np3\n");
    show(piece);
    QTRY_COMPARE(dock()->windowTitle(), "Problems (1)");
    QCOMPARE(cell(0, 0), "Line 11");
    QCOMPARE(cell(0, 1), "The compiler cannot read \"np3\" as a number and takes 0.");
}

/// The colours of an error: under the word, and at the gutter's left edge beside its line.
void tst_CheckFeature::mark_isDrawnInTextAndGutter()
{
    show(pieceWith("a1 oscilli .5, 440\nout a1"));
    QTRY_COMPARE(dock()->windowTitle(), "Problems (1)");
    const auto hasRed = [](const QImage &image, const QRect &part) {
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                if (image.rect().contains(x, y) && image.pixelColor(x, y) == QColor(208, 0, 0))
                    return true;
            }
        }
        return false;
    };
    const auto rowOf = [this](int line, int from, int to) {
        const QPoint start = first()->PositionToPixels(line, from);
        const QPoint end = first()->PositionToPixels(line, to);
        return QRect(start.x(), start.y(), end.x() - start.x(), first()->LineHeight());
    };
    QTRY_VERIFY(hasRed(first()->grab().toImage(), rowOf(5, 3, 10)));
    QVERIFY(!hasRed(first()->grab().toImage(), rowOf(6, 0, 6)));
    QVERIFY(!hasRed(first()->grab().toImage(), rowOf(5, 11, 18)));
    const auto gutters = m_window->findChildren<Gutter *>();
    QVERIFY(!gutters.isEmpty());
    const int y = first()->PositionToPixels(5, 0).y();
    QVERIFY(hasRed(gutters[0]->grab().toImage(), QRect(0, y + 2, 3, 4)));
    QVERIFY(!hasRed(gutters[0]->grab().toImage(), QRect(0, y + first()->LineHeight() + 2, 3, 4)));
}

/// Ten changes a second: each kills the check of the one before.
void tst_CheckFeature::changedAllTheTime_noProcessIsLeft()
{
    show(pieceWith("a1 oscili .5, 440\nout a1"));
    caret(first(), 5, 18);
    for (int i = 0; i < 30; ++i) {
        key(i % 2 == 0 ? Qt::Key_Q : Qt::Key_Backspace);
        QTest::qWait(i % 3 == 0 ? 330 : 20);
    }
    QTRY_COMPARE(dock()->windowTitle(), "Problems");
    delete m_window;
    QProcess list;
    list.start(QStringLiteral("pgrep"),
               {QStringLiteral("-f"), m_program->config.RootPath + QStringLiteral("check-")});
    list.waitForFinished();
    QCOMPARE(list.readAll(), QByteArray());
}

ARDIPHON_TEST(tst_CheckFeature, QApplication)
#include "tst_CheckFeature.moc"
