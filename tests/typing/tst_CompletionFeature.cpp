#include "documents/CsdFixture.h"
#include "documents/ProjectWindow.h"
#include "support/EditorInput.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QClipboard>
#include <QFile>
#include <QInputMethodEvent>
#include <QLabel>
#include <QListView>
#include <QScreen>

#include <random>

using namespace ardiphon;
using namespace EditorInput;

/// The list of suggestions in a real window, with real keys.
class tst_CompletionFeature : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void twoLetters_openTheList();
    void letters_narrowIt();
    void backspace_widensIt();
    void tab_takesTheName();
    void tab_replacesTheWordAtTheCaret();
    void tab_keepsAWordThatIsAnother();
    void tab_withoutAList_isATab();
    void tab_onAWordThatIsThere_isATab();
    void shiftTab_takesTheArguments();
    void places_endWithEscAndAClick();
    void places_endWhereTheCaretLeaves();
    void snippet_isPutInWithItsPlaces();
    void click_takesARow();
    void keys_moveInTheList();
    void esc_sendsItAwayForThisWord();
    void otherKeys_goToTheText();
    void ctrlSpace_opensItWithoutALetter();
    void switchedOff_onlyCtrlSpaceOpensIt();
    void undo_closesItAndTakesItBackInOneStep();
    void whatChangesElsewhere_closesIt();
    void focusLost_closesIt();
    void windowMoved_closesIt();
    void scrolledAway_closesIt();
    void inputMethod_closesIt();
    void comments_haveNoList();
    void bracket_isProposed();
    void quotes_areProposed();
    void endin_isProposed();
    void files_areOfferedInQuotes();
    void score_offersInstrumentsAndGens();
    void split_hasTheSameTextInBothViews();
    void secondView_hasItsOwnList();
    void emptyText_hasItToo();
    void lowerRightCorner_keepsItOnTheScreen();
    void text_tellsOfTheSelectedRow();
    void garbageSnippets_harmNothing();
    void anyLetters_giveTheSameText();

private:
    /// Shows an instrument with \a line in it, the caret at the mark §.
    void showLine(const QString &line);
    QListView *list() const
    {
        return m_window->findChild<QListView *>(QStringLiteral("ListCompletion"));
    }
    bool isOpen() const { return list() && list()->isVisible(); }
    QString rowText(int row) const { return list()->model()->index(row, 0).data().toString(); }
    QString selected() const { return list()->currentIndex().data().toString(); }
    QStringList rowTexts() const;
    QString line(int number = 3) const { return first()->LineText(number); }
};

void tst_CompletionFeature::showLine(const QString &line)
{
    const QString text = QStringLiteral("<CsInstruments>\ninstr 1\n%1\nendin\n</CsInstruments>\n");
    show(text.arg(QString(line).remove(QChar(0xa7))).toUtf8());
    caret(first(), 3, int(line.indexOf(QChar(0xa7))));
}

QStringList tst_CompletionFeature::rowTexts() const
{
    QStringList all;
    for (int row = 0; row < list()->model()->rowCount(); ++row)
        all.append(rowText(row));
    return all;
}

void tst_CompletionFeature::twoLetters_openTheList()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("o"));
    QVERIFY(!isOpen());
    type(*first(), QStringLiteral("s"));
    QVERIFY(isOpen());
    QVERIFY(rowTexts().contains(QStringLiteral("oscili")));
    QCOMPARE(list()->currentIndex().row(), 0);
    QVERIFY(first()->hasFocus());
    QCOMPARE(line(), QStringLiteral("asig os"));
}

void tst_CompletionFeature::letters_narrowIt()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("osi"));
    QVERIFY(rowTexts().contains(QStringLiteral("oscili")));
    type(*first(), QStringLiteral("qq"));
    QVERIFY(!isOpen());
    type(*first(), QStringLiteral(" "));
    QCOMPARE(line(), QStringLiteral("asig osiqq "));
}

void tst_CompletionFeature::backspace_widensIt()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("osc"));
    const int rows = list()->model()->rowCount();
    press(*first(), Qt::Key_Backspace);
    QVERIFY(isOpen());
    QVERIFY(list()->model()->rowCount() > rows);
    press(*first(), Qt::Key_Backspace);
    QVERIFY(isOpen());
    press(*first(), Qt::Key_Backspace);
    QVERIFY(!isOpen());
    QCOMPARE(line(), QStringLiteral("asig "));
}

void tst_CompletionFeature::tab_takesTheName()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("oscil"));
    QVERIFY(isOpen());
    press(*first(), Qt::Key_Down);
    const QString name = selected();
    press(*first(), Qt::Key_Tab);
    QVERIFY(!isOpen());
    QCOMPARE(line(), QStringLiteral("asig ") + name);
    QCOMPARE(first()->CaretColumn(), int(line().size()));
}

void tst_CompletionFeature::tab_replacesTheWordAtTheCaret()
{
    showLine(QStringLiteral("asig o§cil 1, 2"));
    type(*first(), QStringLiteral("s"));
    QVERIFY(isOpen());
    const int row = int(rowTexts().indexOf(QStringLiteral("oscili")));
    for (int i = 0; i < row; ++i)
        press(*first(), Qt::Key_Down);
    press(*first(), Qt::Key_Tab);
    QCOMPARE(line(), QStringLiteral("asig oscili 1, 2"));
}

void tst_CompletionFeature::tab_keepsAWordThatIsAnother()
{
    showLine(QStringLiteral("k1 = amp§kval"));
    type(*first(), QStringLiteral("d"));
    QVERIFY(isOpen());
    QCOMPARE(selected(), QStringLiteral("ampdb"));
    press(*first(), Qt::Key_Tab);
    QCOMPARE(line(), QStringLiteral("k1 = ampdbkval"));
}

void tst_CompletionFeature::tab_withoutAList_isATab()
{
    showLine(QStringLiteral("asig §"));
    press(*first(), Qt::Key_Tab);
    QVERIFY(line().size() > 5);
    type(*first(), QStringLiteral("1"));
    QVERIFY(line().endsWith(u'1'));
}

void tst_CompletionFeature::tab_onAWordThatIsThere_isATab()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("oscili"));
    QVERIFY(isOpen());
    QCOMPARE(selected(), QStringLiteral("oscili"));
    press(*first(), Qt::Key_Tab);
    QVERIFY(!isOpen());
    QVERIFY(line().startsWith(QStringLiteral("asig oscili")));
    QVERIFY(line().size() > 11);
    QVERIFY(line().mid(11).trimmed().isEmpty());
}

void tst_CompletionFeature::shiftTab_takesTheArguments()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("oscili"));
    press(*first(), Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(line(), QStringLiteral("asig oscili xamp, xcps"));
    QCOMPARE(first()->SelText(), QStringLiteral("xamp"));
    type(*first(), QStringLiteral("0.5"));
    press(*first(), Qt::Key_Tab);
    QCOMPARE(first()->SelText(), QStringLiteral("xcps"));
    press(*first(), Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(first()->SelText(), QStringLiteral("0.5"));
    press(*first(), Qt::Key_Tab);
    type(*first(), QStringLiteral("440"));
    press(*first(), Qt::Key_Tab);
    QCOMPARE(line(), QStringLiteral("asig oscili 0.5, 440"));
    QCOMPARE(first()->CaretColumn(), 20);
    press(*first(), Qt::Key_Tab); // there are no places any more
    QVERIFY(line().size() > 20);
}

void tst_CompletionFeature::places_endWithEscAndAClick()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("oscili"));
    press(*first(), Qt::Key_Backtab, Qt::ShiftModifier);
    press(*first(), Qt::Key_Escape);
    type(*first(), QStringLiteral("1"));
    press(*first(), Qt::Key_Tab);
    QVERIFY(first()->SelText().isEmpty());
    caret(first(), 3, 0, 3, int(line().size()));
    type(*first(), QStringLiteral("asig oscili"));
    press(*first(), Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(line(), QStringLiteral("asig oscili xamp, xcps"));
    click(*first(), 2, 1);
    caret(first(), 3, 13);
    press(*first(), Qt::Key_Tab);
    QVERIFY(line() != QStringLiteral("asig oscili xamp, xcps"));
}

void tst_CompletionFeature::places_endWhereTheCaretLeaves()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("oscili"));
    press(*first(), Qt::Key_Backtab, Qt::ShiftModifier);
    press(*first(), Qt::Key_Home);
    press(*first(), Qt::Key_Tab);
    QVERIFY(line().trimmed() == QStringLiteral("asig oscili xamp, xcps"));
    QVERIFY(line() != line().trimmed());
}

void tst_CompletionFeature::snippet_isPutInWithItsPlaces()
{
    m_program->write(QStringLiteral("snippets.txt"),
                     "@snippet qxvoice orchestra A voice\n${1:k1} = 5\n  k2 = ${1} + ${2:3}\n");
    showLine(QStringLiteral("  §"));
    type(*first(), QStringLiteral("qx"));
    QVERIFY(isOpen());
    QCOMPARE(rowTexts(), QStringList(QStringLiteral("qxvoice")));
    press(*first(), Qt::Key_Tab);
    QCOMPARE(line(3), QStringLiteral("  k1 = 5"));
    QCOMPARE(line(4), QStringLiteral("    k2 = k1 + 3"));
    QCOMPARE(line(5), QStringLiteral("endin"));
    QCOMPARE(first()->SelText(), QStringLiteral("k1"));
    type(*first(), QStringLiteral("x9"));
    press(*first(), Qt::Key_Tab);
    QCOMPARE(line(4), QStringLiteral("    k2 = x9 + 3"));
    QCOMPARE(first()->SelText(), QStringLiteral("3"));
    press(*first(), Qt::Key_Tab);
    QCOMPARE(selection(*first()), QStringLiteral("4:15-4:15"));
}

void tst_CompletionFeature::click_takesARow()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("osci"));
    const QString name = rowText(1);
    const QRect row = list()->visualRect(list()->model()->index(1, 0));
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, row.center());
    QCOMPARE(line(), QStringLiteral("asig ") + name);
    QVERIFY(!isOpen());
    QVERIFY(first()->hasFocus());
}

void tst_CompletionFeature::keys_moveInTheList()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("os"));
    const int last = list()->model()->rowCount() - 1;
    press(*first(), Qt::Key_Down);
    press(*first(), Qt::Key_Down);
    QCOMPARE(list()->currentIndex().row(), 2);
    press(*first(), Qt::Key_Up);
    QCOMPARE(list()->currentIndex().row(), 1);
    press(*first(), Qt::Key_PageDown);
    QCOMPARE(list()->currentIndex().row(), 11);
    press(*first(), Qt::Key_PageUp);
    press(*first(), Qt::Key_PageUp);
    QCOMPARE(list()->currentIndex().row(), 0);
    press(*first(), Qt::Key_Up);
    QCOMPARE(list()->currentIndex().row(), 0);
    for (int i = 0; i <= last / 10; ++i)
        press(*first(), Qt::Key_PageDown);
    QCOMPARE(list()->currentIndex().row(), last);
    QCOMPARE(line(), QStringLiteral("asig os"));
    QCOMPARE(first()->CaretLine(), 3);
}

void tst_CompletionFeature::esc_sendsItAwayForThisWord()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("os"));
    press(*first(), Qt::Key_Escape);
    QVERIFY(!isOpen());
    type(*first(), QStringLiteral("ci"));
    QVERIFY(!isOpen());
    type(*first(), QStringLiteral(" kf"));
    QVERIFY(isOpen());
    press(*first(), Qt::Key_Escape);
    trigger("menuStudioComplete");
    QVERIFY(isOpen());
    QCOMPARE(line(), QStringLiteral("asig osci kf"));
}

void tst_CompletionFeature::otherKeys_goToTheText()
{
    showLine(QStringLiteral("asig §"));
    const auto opened = [this] {
        caret(first(), 3, 5, 3, int(line().size()));
        type(*first(), QStringLiteral("os"));
        return isOpen();
    };
    QVERIFY(opened());
    press(*first(), Qt::Key_Home);
    QTRY_VERIFY(!isOpen());
    QCOMPARE(first()->CaretColumn(), 0);
    QVERIFY(opened());
    press(*first(), Qt::Key_Left);
    QTRY_VERIFY(!isOpen());
    QVERIFY(opened());
    press(*first(), Qt::Key_Return);
    QVERIFY(!isOpen());
    QCOMPARE(first()->CaretLine(), 4);
    QCOMPARE(line(), QStringLiteral("asig os"));
    press(*first(), Qt::Key_Backspace);
    QVERIFY(opened());
    type(*first(), QStringLiteral(","));
    QVERIFY(!isOpen());
    QCOMPARE(line(), QStringLiteral("asig os,"));
}

void tst_CompletionFeature::ctrlSpace_opensItWithoutALetter()
{
    showLine(QStringLiteral("igoto §\nhere:\nthere:"));
    press(*first(), Qt::Key_Space, Qt::ControlModifier);
    QTRY_VERIFY(isOpen());
    QCOMPARE(rowTexts(), QStringList({QStringLiteral("here"), QStringLiteral("there")}));
    type(*first(), QStringLiteral("t"));
    QVERIFY(isOpen());
    QCOMPARE(selected(), QStringLiteral("there"));
    press(*first(), Qt::Key_Tab);
    QCOMPARE(line(), QStringLiteral("igoto there"));
}

void tst_CompletionFeature::switchedOff_onlyCtrlSpaceOpensIt()
{
    showLine(QStringLiteral("asig §"));
    m_program->config.CompletionWhileTyping = false;
    type(*first(), QStringLiteral("osci"));
    QVERIFY(!isOpen());
    trigger("menuStudioComplete");
    QVERIFY(isOpen());
    type(*first(), QStringLiteral("li(\""));
    QVERIFY(!isOpen());
    m_program->config.CompletionWhileTyping = true;
    caret(first(), 3, 5, 3, int(line().size()));
    type(*first(), QStringLiteral("os"));
    QVERIFY(isOpen());
}

void tst_CompletionFeature::undo_closesItAndTakesItBackInOneStep()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("os"));
    trigger("menuModificaUndo");
    QVERIFY(!isOpen());
    caret(first(), 3, 5, 3, int(line().size()));
    type(*first(), QStringLiteral("osci"));
    QVERIFY(isOpen());
    press(*first(), Qt::Key_Down);
    press(*first(), Qt::Key_Tab);
    QVERIFY(line() != QStringLiteral("asig osci"));
    first()->Undo();
    QCOMPARE(line(), QStringLiteral("asig osci"));
}

void tst_CompletionFeature::whatChangesElsewhere_closesIt()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("os"));
    QVERIFY(isOpen());
    first()->SetText(first()->Text() + QStringLiteral("more"));
    QVERIFY(!isOpen());
    type(*first(), QStringLiteral("c"));
    QVERIFY(isOpen());
    first()->ReplaceRanges({{1, 0, 0, QStringLiteral(" ")}});
    QVERIFY(!isOpen());
    type(*first(), QStringLiteral("i"));
    QVERIFY(isOpen());
    QGuiApplication::clipboard()->setText(QStringLiteral("li"));
    press(*first(), Qt::Key_V, Qt::ControlModifier);
    QVERIFY(!isOpen());
    QCOMPARE(line(), QStringLiteral("asig oscili"));
    first()->ClearDocument();
    QVERIFY(!isOpen());
}

void tst_CompletionFeature::focusLost_closesIt()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("os"));
    QVERIFY(isOpen());
    first()->clearFocus();
    first()->focusProxy()->clearFocus();
    QTRY_VERIFY(!isOpen());
}

void tst_CompletionFeature::windowMoved_closesIt()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("os"));
    QVERIFY(isOpen());
    m_window->move(m_window->pos() + QPoint(10, 10));
    QTRY_VERIFY(!isOpen());
    type(*first(), QStringLiteral("c"));
    QVERIFY(isOpen());
    m_window->resize(m_window->size() + QSize(10, 10));
    QTRY_VERIFY(!isOpen());
}

void tst_CompletionFeature::scrolledAway_closesIt()
{
    showLine(QStringLiteral("asig §") + QString(200, u'\n'));
    type(*first(), QStringLiteral("os"));
    QVERIFY(isOpen());
    first()->SetTopLine(3);
    QTRY_VERIFY(!isOpen());
}

void tst_CompletionFeature::inputMethod_closesIt()
{
    showLine(QStringLiteral("asig §"));
    const auto compose = [this](const QString &preedit, const QString &commit) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QApplication::sendEvent(first()->focusProxy(), &event);
    };
    type(*first(), QStringLiteral("os"));
    QVERIFY(isOpen());
    compose(QStringLiteral("c"), QString());
    QVERIFY(!isOpen());
    trigger("menuStudioComplete");
    QVERIFY(!isOpen());
    compose(QString(), QStringLiteral("ci"));
    QCOMPARE(line(), QStringLiteral("asig osci"));
    QVERIFY(isOpen());
}

void tst_CompletionFeature::comments_haveNoList()
{
    showLine(QStringLiteral("; §"));
    type(*first(), QStringLiteral("oscili"));
    QVERIFY(!isOpen());
    trigger("menuStudioComplete");
    QVERIFY(!isOpen());
    caret(first(), 3, 0, 3, int(line().size()));
    type(*first(), QStringLiteral("prints \"os"));
    QVERIFY(!isOpen() || rowTexts() == QStringList(QStringLiteral("\"")));
    type(*first(), QStringLiteral("ci"));
    QVERIFY(!isOpen());
}

void tst_CompletionFeature::bracket_isProposed()
{
    showLine(QStringLiteral("k1 = §"));
    type(*first(), QStringLiteral("ampdb("));
    QVERIFY(isOpen());
    QCOMPARE(rowTexts(), QStringList(QStringLiteral(")")));
    QCOMPARE(line(), QStringLiteral("k1 = ampdb("));
    press(*first(), Qt::Key_Tab);
    QCOMPARE(line(), QStringLiteral("k1 = ampdb()"));
    QCOMPARE(first()->CaretColumn(), 11);
    type(*first(), QStringLiteral("(2"));
    QVERIFY(!isOpen()); // something follows
    press(*first(), Qt::Key_End);
    type(*first(), QStringLiteral(" + (3"));
    press(*first(), Qt::Key_Space, Qt::ControlModifier);
    QTRY_VERIFY(isOpen());
    press(*first(), Qt::Key_Tab);
    QCOMPARE(line(), QStringLiteral("k1 = ampdb((2) + (3)"));
    QCOMPARE(first()->CaretColumn(), 20);
}

void tst_CompletionFeature::quotes_areProposed()
{
    showLine(QStringLiteral("prints §"));
    type(*first(), QStringLiteral("\""));
    QVERIFY(isOpen());
    QCOMPARE(rowTexts(), QStringList(QStringLiteral("\"")));
    press(*first(), Qt::Key_Tab);
    QCOMPARE(line(), QStringLiteral("prints \"\""));
    QCOMPARE(first()->CaretColumn(), 8);
    press(*first(), Qt::Key_Right);
    type(*first(), QStringLiteral(", \"a\""));
    QVERIFY(!isOpen());
}

void tst_CompletionFeature::endin_isProposed()
{
    show("<CsInstruments>\ninstr 1\nk1 = 1\n\n</CsInstruments>\n");
    caret(first(), 4, 0);
    type(*first(), QStringLiteral("en"));
    QVERIFY(isOpen());
    QCOMPARE(selected(), QStringLiteral("endin"));
    press(*first(), Qt::Key_Tab);
    QCOMPARE(line(4), QStringLiteral("endin"));
}

void tst_CompletionFeature::files_areOfferedInQuotes()
{
    m_program->write(QStringLiteral("drum loop.wav"), "x");
    showLine(QStringLiteral("asig diskin2 §"));
    type(*first(), QStringLiteral("\"dr"));
    QVERIFY(isOpen());
    QCOMPARE(rowTexts(), QStringList(QStringLiteral("drum loop.wav")));
    press(*first(), Qt::Key_Tab);
    QCOMPARE(line(), QStringLiteral("asig diskin2 \"drum loop.wav"));
}

void tst_CompletionFeature::score_offersInstrumentsAndGens()
{
    show("<CsInstruments>\ninstr Voice\nendin\n</CsInstruments>\n<CsScore>\n\n</CsScore>\n");
    caret(first(), 6, 0);
    type(*first(), QStringLiteral("i \"Vo"));
    QVERIFY(isOpen());
    press(*first(), Qt::Key_Tab);
    QCOMPARE(line(6), QStringLiteral("i \"Voice"));
    type(*first(), QStringLiteral("\" 0 1"));
    press(*first(), Qt::Key_Return);
    type(*first(), QStringLiteral("f 1 0 1024 "));
    trigger("menuStudioComplete");
    QVERIFY(isOpen());
    QCOMPARE(rowText(0), QStringLiteral("GEN01"));
}

void tst_CompletionFeature::split_hasTheSameTextInBothViews()
{
    showLine(QStringLiteral("asig §"));
    trigger("buttonSplit");
    QVERIFY(second()->isVisible());
    QTRY_COMPARE(second()->Text(), first()->Text());
    first()->setFocus();
    caret(first(), 3, 5);
    type(*first(), QStringLiteral("osci"));
    QVERIFY(isOpen());
    press(*first(), Qt::Key_Down);
    press(*first(), Qt::Key_Tab);
    QCOMPARE(second()->LineText(3), line());
    press(*first(), Qt::Key_Home, Qt::ShiftModifier);
    type(*first(), QStringLiteral("a1 oscili"));
    press(*first(), Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(line(), QStringLiteral("a1 oscili xamp, xcps"));
    QTRY_COMPARE(second()->Text(), first()->Text());
}

void tst_CompletionFeature::secondView_hasItsOwnList()
{
    showLine(QStringLiteral("asig §"));
    trigger("buttonSplit");
    QTRY_COMPARE(second()->Text(), first()->Text());
    second()->setFocus();
    caret(second(), 3, 5);
    type(*second(), QStringLiteral("osci"));
    QVERIFY(isOpen());
    press(*second(), Qt::Key_Down);
    press(*second(), Qt::Key_Tab);
    QCOMPARE(second()->LineText(3), line());
    QVERIFY(line().size() > 9);
    // What is typed in the other view takes the list away.
    caret(second(), 3, 5, 3, int(line().size()));
    type(*second(), QStringLiteral("os"));
    QVERIFY(isOpen());
    first()->SetText(first()->Text() + QStringLiteral("more"));
    QVERIFY(isOpen()); // it is in the other view, which has not got that yet
    second()->SetTextOf(*first());
    QVERIFY(!isOpen());
}

void tst_CompletionFeature::emptyText_hasItToo()
{
    show("");
    trigger("menuStudioComplete");
    QVERIFY(isOpen());
    type(*first(), QStringLiteral("<CsIn"));
    QVERIFY(isOpen());
    QCOMPARE(selected(), QStringLiteral("<CsInstruments>"));
    press(*first(), Qt::Key_Tab);
    QCOMPARE(first()->Text(), QStringLiteral("<CsInstruments>"));
    trigger("menuStudioComplete"); // at the very end
    press(*first(), Qt::Key_Return);
    trigger("menuStudioComplete");
    QVERIFY(isOpen());
}

void tst_CompletionFeature::lowerRightCorner_keepsItOnTheScreen()
{
    showLine(QStringLiteral("asig §"));
    const QRect room = m_window->screen()->availableGeometry();
    m_window->move(room.right() - 300, room.bottom() - 200);
    QCoreApplication::processEvents();
    for (const int lines : {0, 1, 2, 5, 8, 20}) {
        first()->SetText(QStringLiteral("<CsInstruments>\ninstr 1\n") + QString(lines, u'\n') +
                         QString(60, u' ') + QStringLiteral("asig "));
        caret(first(), first()->LineCount(), 65);
        type(*first(), QStringLiteral("os"));
        QVERIFY(isOpen());
        const QWidget *const frame = list()->window();
        QVERIFY2(room.contains(frame->frameGeometry()),
                 qPrintable(QStringLiteral("%1 %2").arg(frame->x()).arg(frame->y())));
        // The line itself stays in sight where it is on the screen.
        const QPoint top = first()->mapToGlobal(
            first()->PositionToPixels(first()->CaretLine(), first()->CaretColumn()));
        if (room.contains(top) && room.contains(top + QPoint(0, first()->LineHeight())))
            QVERIFY(!QRect(top, QSize(1, first()->LineHeight())).intersects(frame->geometry()));
        press(*first(), Qt::Key_Escape);
    }
}

void tst_CompletionFeature::text_tellsOfTheSelectedRow()
{
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("oscili"));
    const auto *const label = m_window->findChild<QLabel *>(QStringLiteral("LabelCompletion"));
    QVERIFY(label->text().startsWith(QStringLiteral("ares oscili xamp, xcps")));
    QVERIFY(label->text().endsWith(u'.'));
    const QString before = label->text();
    press(*first(), Qt::Key_Down);
    QVERIFY(label->text() != before);
}

void tst_CompletionFeature::garbageSnippets_harmNothing()
{
    QByteArray garbage = "@snippet\n@snippet x\n${\n@snippet qxbad orchestra bad\n${1:${2:\n";
    for (int i = 0; i < 5000; ++i)
        garbage.append(char(i * 37));
    m_program->write(QStringLiteral("snippets.txt"), garbage);
    showLine(QStringLiteral("asig §"));
    type(*first(), QStringLiteral("os"));
    QVERIFY(isOpen());
    press(*first(), Qt::Key_Escape);
    caret(first(), 3, 0, 3, int(line().size()));
    type(*first(), QStringLiteral("qx"));
    if (isOpen())
        press(*first(), Qt::Key_Tab);
    QVERIFY(first()->LineCount() > 3);
}

/// Whatever letters, digits, blanks and new lines are typed, with the list and without.
void tst_CompletionFeature::anyLetters_giveTheSameText()
{
    const QByteArray piece = "<CsInstruments>\ngiSine ftgen 1, 0, 1024, 10, 1\ninstr 1\nkfreq = 1\n"
                             "\nendin\n</CsInstruments>\n<CsScore>\n\n</CsScore>\n";
    const QString letters = QStringLiteral("aoskifpgenxzAO019  \n");
    show(piece);
    std::mt19937 dice(randomSeed(2718));
    QString typed;
    for (int i = 0; i < 300; ++i)
        typed += letters[std::uniform_int_distribution<qsizetype>(0, letters.size() - 1)(dice)];
    int opened = 0;
    QStringList texts;
    for (const bool on : {true, false}) {
        m_program->config.CompletionWhileTyping = on;
        first()->SetText(QString::fromUtf8(piece));
        for (const int line : {5, 1}) {
            caret(first(), first()->LineCount() - line, 0);
            for (const QChar c : typed) {
                if (c == u'\n')
                    press(*first(), Qt::Key_Return);
                else
                    type(*first(), c);
                opened += isOpen() ? 1 : 0;
            }
        }
        texts.append(first()->Text());
    }
    QCOMPARE(texts[0], texts[1]);
    QVERIFY(opened > 10);
}

ARDIPHON_TEST(tst_CompletionFeature, QApplication)
#include "tst_CompletionFeature.moc"
