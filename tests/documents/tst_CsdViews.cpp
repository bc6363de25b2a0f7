#include "documents/CsdFixture.h"
#include "support/RandomSeed.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QListWidget>
#include <QMenu>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTimer>
#include <QWheelEvent>

using namespace ardiphon;

/// The two views of the CSD window: how they stay equal, their settings, gutter, wheel and keys.
class tst_CsdViews : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    // Split view.
    void split_letterInEitherView_showsInTheOtherAtOnce();
    void split_enter_isCopiedAndKeepsTheScrollPosition();
    void split_keyWithCtrl_isCopied();
    void split_begins_withoutAHistory();
    void split_blankLines_moveTheirOwnBookmarks_data();
    void split_blankLines_moveTheirOwnBookmarks();
    void split_undoInTheSecondView_bringsTheBookmarksBack();
    void split_off_copiesNothing();
    void split_randomEdits_endEqual();
    void split_keys_moveTheFocus();
    void split_off_givesTheFocusOfTheSecondToTheFirst();
    void split_line_isSeenBetweenTheViews();

    // Aids.
    void settings_reachBothViews();
    void settings_autoIndent_isOnAtExactlyOne_data();
    void settings_autoIndent_isOnAtExactlyOne();
    void gutter_press_selectsTheLine();
    void gutter_font_isThatOfItsView();
    void wheel_scrollsTheFocusedView();
    void fontSize_steps_stayBetween6And20();
    void fontSize_defaultBeyondTheMenu_isStillThatOfTheText();
    void popup_rightClick_movesTheCaretUnlessInTheSelection();
    void altKey_isSwallowed();
    void altF4_closesTheWindow();
    void ctrlAltZ_redoesInItsView();

private:
    void scroll(int delta);
};

// Split view. -------------------------------------------------------------------------------------

void tst_CsdViews::split_letterInEitherView_showsInTheOtherAtOnce()
{
    show("one\ntwo\n");
    trigger("buttonSplit");
    QCOMPARE(second()->Text(), first()->Text());
    caret(second(), 2, 1);
    QTest::keyClicks(second()->focusProxy(), QStringLiteral("x"));
    QCOMPARE(first()->Text(), QStringLiteral("one\r\ntxwo\r\n"));
    QCOMPARE(second()->Text(), first()->Text());
    caret(first(), 1, 3);
    QTest::keyClicks(first()->focusProxy(), QStringLiteral("y"));
    QCOMPARE(second()->Text(), QStringLiteral("oney\r\ntxwo\r\n"));
    QTest::keyClicks(first()->focusProxy(), QStringLiteral(" ~")); // the first and the last of them
    QCOMPARE(second()->Text(), QStringLiteral("oney ~\r\ntxwo\r\n"));
    QVERIFY(first()->GetState(TextState));
}

void tst_CsdViews::split_enter_isCopiedAndKeepsTheScrollPosition()
{
    show(QByteArray("line\n").repeated(500));
    trigger("buttonSplit");
    second()->SetTopLine(200);
    caret(first(), 3, 2);
    QTest::keyClick(first()->focusProxy(), Qt::Key_Return);
    QTRY_COMPARE(second()->Text(), first()->Text());
    QCOMPARE(second()->LineCount(), 502);
    QCOMPARE(second()->TopLine(), 200);
}

void tst_CsdViews::split_keyWithCtrl_isCopied()
{
    show("one");
    trigger("buttonSplit");
    first()->SelectAll();
    QTest::keyClick(first()->focusProxy(), Qt::Key_X, Qt::ControlModifier);
    QTRY_COMPARE(second()->Text(), QString());
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(second()->focusProxy(), Qt::Key_V, Qt::ControlModifier);
    QTRY_COMPARE(first()->Text(), QStringLiteral("oneone"));
}

void tst_CsdViews::split_begins_withoutAHistory()
{
    show("one");
    trigger("buttonSplit");
    second()->Undo();
    QCOMPARE(second()->Text(), QStringLiteral("one"));
}

void tst_CsdViews::split_blankLines_moveTheirOwnBookmarks_data()
{
    QTest::addColumn<int>("line"); ///< at whose beginning the key is pressed in the second view
    QTest::addColumn<int>("key");
    QTest::addColumn<QList<int>>("lines"); ///< of the bookmarks, which were on 2, 4, 6
    QTest::newRow("Enter on line 1") << 1 << int(Qt::Key_Return) << QList<int>{3, 5, 7};
    QTest::newRow("Enter on line 2") << 2 << int(Qt::Key_Return) << QList<int>{3, 5, 7};
    QTest::newRow("Enter on line 3") << 3 << int(Qt::Key_Return) << QList<int>{2, 5, 7};
    QTest::newRow("Enter on line 4") << 4 << int(Qt::Key_Return) << QList<int>{2, 5, 7};
    QTest::newRow("Enter on line 5") << 5 << int(Qt::Key_Return) << QList<int>{2, 4, 7};
    QTest::newRow("Enter on line 7") << 7 << int(Qt::Key_Return) << QList<int>{2, 4, 6};
    QTest::newRow("Delete on line 2") << 2 << int(Qt::Key_Delete) << QList<int>{2, 3, 5};
    QTest::newRow("Delete on line 5") << 5 << int(Qt::Key_Delete) << QList<int>{2, 4, 5};
    QTest::newRow("Backspace on line 4") << 4 << int(Qt::Key_Backspace) << QList<int>{2, 3, 5};
    QTest::newRow("Backspace on line 6") << 6 << int(Qt::Key_Backspace) << QList<int>{2, 4, 5};
}

void tst_CsdViews::split_blankLines_moveTheirOwnBookmarks()
{
    QFETCH(int, line);
    QFETCH(int, key);
    QFETCH(QList<int>, lines);
    show("a\n\n\n\n\n\nb\n");
    for (int slot = 1; slot <= 3; ++slot) {
        caret(first(), 2 * slot, 0);
        trigger("menuToolsBookmark");
    }
    trigger("buttonSplit");
    caret(second(), line, 0);
    QTest::keyClick(second()->focusProxy(), Qt::Key(key));
    QTRY_COMPARE(first()->Text(), second()->Text());
    for (int slot = 1; slot <= 3; ++slot)
        QCOMPARE(first()->GetBookmarkLine(slot), lines[slot - 1]);
    QTest::keyClick(second()->focusProxy(), Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(first()->Text(), second()->Text());
    for (int slot = 1; slot <= 3; ++slot)
        QCOMPARE(first()->GetBookmarkLine(slot), 2 * slot);
}

void tst_CsdViews::split_undoInTheSecondView_bringsTheBookmarksBack()
{
    show("a\n\n\nb\n\nc\n");
    for (int line = 2; line <= 4; ++line) {
        caret(first(), line, 0);
        trigger("menuToolsBookmark");
    }
    trigger("buttonSplit");
    const auto press = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(second()->focusProxy(), key, modifiers);
    };
    const auto lines = [this] {
        return QList<int>{first()->GetBookmarkLine(1), first()->GetBookmarkLine(2),
                          first()->GetBookmarkLine(3)};
    };
    const QString text = first()->Text();
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    QTRY_COMPARE(first()->Text(), QString());
    press(Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(first()->Text(), text);
    QCOMPARE(lines(), (QList<int>{2, 3, 4}));
    caret(second(), 3, 0); // and lines one by one
    for (const char *left : {"a\r\n\r\nb\r\n\r\nc\r\n", "a\r\n\r\n\r\nc\r\n"}) {
        press(Qt::Key_Y, Qt::ControlModifier);
        QTRY_COMPARE(first()->Text(), QLatin1String(left));
    }
    press(Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(first()->Text(), QStringLiteral("a\r\n\r\nb\r\n\r\nc\r\n"));
    press(Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(first()->Text(), text);
    QCOMPARE(lines(), (QList<int>{2, 3, 4}));
}

void tst_CsdViews::split_off_copiesNothing()
{
    show("one");
    QTest::keyClick(first()->focusProxy(), Qt::Key_Return);
    QVERIFY(!control<QTimer>("TimerAggiorna")->isActive());
    QCOMPARE(second()->Text(), QString());
    trigger("buttonSplit");
    trigger("buttonSplit");
    QVERIFY(second()->isHidden());
    QCOMPARE(second()->Text(), QString());
}

void tst_CsdViews::split_randomEdits_endEqual()
{
    show(QByteArray("instr 1\nasig oscil 1, 440\nendin\n").repeated(20));
    trigger("buttonSplit");
    auto *timer = control<QTimer>("TimerAggiorna");
    QRandomGenerator random(randomSeed(20261120));
    const Qt::Key keys[] = {Qt::Key_A,      Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Down,
                            Qt::Key_Delete, Qt::Key_Tab,    Qt::Key_End,       Qt::Key_Up};
    for (int i = 0; i < 300; ++i) {
        LEditOCX *view = random.bounded(2) ? first() : second();
        const Qt::Key key = keys[random.bounded(8)];
        const bool shift = random.bounded(5) == 0;
        QTest::keyClick(view->focusProxy(), key, shift ? Qt::ShiftModifier : Qt::NoModifier);
        if (timer->isActive())
            QVERIFY(QSignalSpy(timer, &QTimer::timeout).wait());
        if (first()->Text() != second()->Text())
            QFAIL(qPrintable(QStringLiteral("after step %1, key %2").arg(i).arg(key)));
    }
}

void tst_CsdViews::split_keys_moveTheFocus()
{
    show("one");
    QTest::keyClick(first()->focusProxy(), Qt::Key_F12);
    QVERIFY(first()->hasFocus()); // the second view is hidden
    trigger("buttonSplit");
    QTest::keyClick(first()->focusProxy(), Qt::Key_F12);
    QVERIFY(second()->hasFocus());
    QTest::keyClick(second()->focusProxy(), Qt::Key_F12);
    QVERIFY(second()->hasFocus());
    QTest::keyClick(second()->focusProxy(), Qt::Key_F11);
    QVERIFY(first()->hasFocus());
}

void tst_CsdViews::split_off_givesTheFocusOfTheSecondToTheFirst()
{
    show("one");
    trigger("buttonSplit");
    second()->setFocus();
    trigger("buttonSplit");
    QVERIFY(first()->hasFocus());
    trigger("buttonSplit");
    control<QListWidget>("List1")->setFocus();
    trigger("buttonSplit");
    QVERIFY(control<QListWidget>("List1")->hasFocus());
    // Also while another window is in front.
    trigger("buttonSplit");
    second()->setFocus();
    QWidget front;
    front.show();
    front.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&front));
    trigger("buttonSplit");
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    QVERIFY(first()->hasFocus());
}

/// One row of pixels over the foot of the first view and its gutter, neither of which gives way.
void tst_CsdViews::split_line_isSeenBetweenTheViews()
{
    show();
    const auto colors = [this](int y) {
        const QImage image = m_window->centralWidget()->grab().toImage();
        QSet<QRgb> all;
        for (int x = control<QWidget>("PicNumeri")->x(); x <= first()->geometry().right(); ++x)
            all.insert(image.pixel(x, y));
        return all;
    };
    trigger("buttonSplit");
    const int foot = first()->geometry().bottom();
    QCOMPARE(second()->y(), foot + 1);
    QCOMPARE(colors(foot), QSet<QRgb>{QColor(Qt::darkGray).rgb()});
    QVERIFY(!colors(foot - 1).contains(QColor(Qt::darkGray).rgb()));
    QVERIFY(!colors(foot + 1).contains(QColor(Qt::darkGray).rgb()));
    QWidget *atFoot = m_window->centralWidget()->childAt(first()->x() + 40, foot);
    QVERIFY(first()->isAncestorOf(atFoot)); // the mouse does not meet it
    m_program->config.ColorBackground = Color::rgb(0, 0, 0);
    QCOMPARE(colors(foot), QSet<QRgb>{QColor(Qt::lightGray).rgb()});
    trigger("buttonSplit");
    QVERIFY(!colors(foot).contains(QColor(Qt::lightGray).rgb()));
}

// Aids. -------------------------------------------------------------------------------------------

void tst_CsdViews::settings_reachBothViews()
{
    ConfigurationBlock &config = m_program->config;
    config.TabSize = QStringLiteral("4.5"); // half a character goes to the even neighbour
    config.FontSize = 14;
    config.DefaultFontName = QStringLiteral("DejaVu Sans Mono");
    config.ColorBackground = Color::rgb(10, 20, 30);
    show("x\n");
    trigger("buttonSplit");
    for (LEditOCX *view : {first(), second()}) {
        QCOMPARE(view->TabSize(), 4);
        QCOMPARE(view->FontSize(), 14.0);
        QCOMPARE(view->FontName(), QStringLiteral("DejaVu Sans Mono"));
        const QImage look = view->grab().toImage();
        QCOMPARE(look.pixelColor(look.width() / 2, look.height() / 2), QColor(10, 20, 30));
    }
}

void tst_CsdViews::settings_autoIndent_isOnAtExactlyOne_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("text");
    QTest::newRow("1") << "1"
                       << "\tx\r\n\t";
    QTest::newRow("1.0") << "1.0"
                         << "\tx\r\n\t";
    QTest::newRow("half") << "0.5"
                          << "\tx\r\n";
    QTest::newRow("0") << "0"
                       << "\tx\r\n";
}

void tst_CsdViews::settings_autoIndent_isOnAtExactlyOne()
{
    QFETCH(QString, setting);
    m_program->config.AutoIndent = setting;
    show("\tx");
    caret(first(), 1, 2);
    QTest::keyClick(first()->focusProxy(), Qt::Key_Return);
    QTEST(first()->Text(), "text");
}

void tst_CsdViews::gutter_press_selectsTheLine()
{
    show("one\ntwo\nthree\n");
    auto *gutter = control<QWidget>("PicNumeri");
    const int height = first()->LineHeight();
    QTest::mousePress(gutter, Qt::LeftButton, {}, QPoint(5, height + height / 2));
    QCOMPARE(first()->SelText(), QStringLiteral("two"));
    QVERIFY(first()->hasFocus());
    QTest::mousePress(gutter, Qt::LeftButton, {}, QPoint(5, height * 15)); // below the text
    first()->GetSelection();
    QCOMPARE(first()->SelStartLine, first()->LineCount());
}

void tst_CsdViews::gutter_font_isThatOfItsView()
{
    show();
    first()->SetFontName(QStringLiteral("DejaVu Sans Mono"));
    first()->SetFontSize(17);
    const QFont font = control<QWidget>("PicNumeri")->font();
    QCOMPARE(font.family(), QStringLiteral("DejaVu Sans Mono"));
    QCOMPARE(font.pointSizeF(), 17.0);
}

/// Turns the wheel over the view that has the focus, and over its scroll bars: they leave it to the
/// window.
void tst_CsdViews::scroll(int delta)
{
    const LEditOCX *editor = second()->hasFocus() ? second() : first();
    QWidget *view = editor->childAt(20, 20);
    const auto *area = qobject_cast<QAbstractScrollArea *>(editor->focusProxy());
    for (QWidget *receiver : std::initializer_list<QWidget *>{
             view, area->verticalScrollBar(), area->horizontalScrollBar(), m_window}) {
        QWheelEvent wheel(QPointF(20, 20), view->mapToGlobal(QPointF(20, 20)), {}, QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(receiver, &wheel);
        require(wheel.isAccepted() == (receiver == m_window),
                "the wheel does not go to the window");
    }
}

void tst_CsdViews::wheel_scrollsTheFocusedView()
{
    m_program->config.WheelLinesCount = 6;
    show(QByteArray("line\n").repeated(500));
    trigger("buttonSplit");
    scroll(-120);
    QCOMPARE(first()->TopLine(), 7);
    QCOMPARE(second()->TopLine(), 1);
    for (int turned = 0; turned < 7; ++turned) {
        scroll(-15); // as a touchpad reports it
        QCOMPARE(first()->TopLine(), 7);
    }
    scroll(-15);
    QCOMPARE(first()->TopLine(), 13);
    scroll(120);
    QCOMPARE(first()->TopLine(), 7);
    second()->setFocus();
    scroll(-120);
    QCOMPARE(second()->TopLine(), 7);
    QCOMPARE(first()->TopLine(), 7);

    control<QListWidget>("List1")->setFocus();
    QWheelEvent wheel(QPointF(20, 20), QPointF(20, 20), {}, QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(m_window, &wheel);
    QCOMPARE(second()->TopLine(), 7);
    QCOMPARE(first()->TopLine(), 7);
}

void tst_CsdViews::fontSize_steps_stayBetween6And20()
{
    show();
    QVERIFY(action("menuFontSize(4)")->isChecked()); // 10 by default
    trigger("menuFontSize(13)");
    QCOMPARE(first()->FontSize(), 19.0);
    trigger("buttonCaratterePiu");
    trigger("buttonCaratterePiu");
    QCOMPARE(first()->FontSize(), 20.0);
    QVERIFY(action("menuFontSize(14)")->isChecked());
    QVERIFY(!action("menuFontSize(13)")->isChecked());
    trigger("menuFontSize(0)");
    trigger("buttonCarattereMeno");
    QCOMPARE(first()->FontSize(), 6.0);
    QVERIFY(action("menuFontSize(0)")->isChecked());
    trigger("buttonSplit");
    QCOMPARE(second()->FontSize(), 6.0);
}

/// A step that would leave the range only changes the number.
void tst_CsdViews::fontSize_defaultBeyondTheMenu_isStillThatOfTheText()
{
    m_program->config.DefaultFontSize = QStringLiteral("30");
    m_program->config.FontSize = 30;
    show();
    QCOMPARE(first()->FontSize(), 30.0);
    for (int i = 0; i < 15; ++i)
        QVERIFY(!action(qPrintable(QStringLiteral("menuFontSize(%1)").arg(i)))->isChecked());
    trigger("buttonCaratterePiu");
    QCOMPARE(m_program->config.FontSize, std::int16_t(20));
    QCOMPARE(first()->FontSize(), 30.0);
    trigger("buttonCarattereMeno");
    QCOMPARE(first()->FontSize(), 19.0);
}

void tst_CsdViews::popup_rightClick_movesTheCaretUnlessInTheSelection()
{
    show("instr one\nendin\n");
    auto *popup = control<QMenu>("menuPopup");
    QWidget *view = first()->childAt(20, 20);
    const auto rightClick = [&](int line, int column) {
        const QPoint at =
            first()->PositionToPixels(line, column) + QPoint(2, first()->LineHeight() / 2);
        QTest::mouseClick(view, Qt::RightButton, {}, view->mapFrom(first(), at));
        require(QTest::qWaitFor([popup] { return popup->isVisible(); }), "no popup");
        popup->close();
    };
    caret(first(), 1, 2, 2, 3);
    rightClick(2, 1); // inside
    QCOMPARE(first()->SelectionLength(), 12);
    rightClick(2, 4); // behind its end
    QCOMPARE(first()->SelectionLength(), 0);
    first()->GetSelection();
    QCOMPARE(first()->SelStartLine, 2);
    QCOMPARE(first()->SelStartColumn, 4);
    caret(first(), 1, 2, 2, 3);
    rightClick(1, 0); // before its start
    QCOMPARE(first()->SelectionLength(), 0);
}

void tst_CsdViews::altKey_isSwallowed()
{
    show();
    for (const Qt::Key key : {Qt::Key_F, Qt::Key_J}) {
        QTest::keyClick(first()->focusProxy(), key, Qt::AltModifier);
        QCOMPARE(first()->Text(), QString());
        QVERIFY(!QApplication::activePopupWidget()); // no menu opens
    }
    QTest::keyClick(m_window->windowHandle(), Qt::Key_F, Qt::AltModifier);
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_CsdViews::altF4_closesTheWindow()
{
    show("text");
    trigger("buttonSplit");
    QTest::keyClick(second()->focusProxy(), Qt::Key_F4, Qt::AltModifier);
    QTRY_VERIFY(!m_window);
}

void tst_CsdViews::ctrlAltZ_redoesInItsView()
{
    show();
    QTest::keyClicks(first()->focusProxy(), QStringLiteral("x"));
    QTest::keyClick(first()->focusProxy(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(first()->Text(), QString());
    QTest::keyClick(first()->focusProxy(), Qt::Key_Z, Qt::ControlModifier | Qt::AltModifier);
    QCOMPARE(first()->Text(), QStringLiteral("x"));
}

ARDIPHON_TEST(tst_CsdViews, QApplication)
#include "tst_CsdViews.moc"
