#include "language/EditorKeyRules.h"
#include "language/GutterNumbers.h"
#include "language/WheelNotches.h"
#include "support/TestMain.h"

#include <QTest>

#include <climits>

using namespace ardiphon;

/// The rules of the keys that a view handles itself, and of the line numbers beside it.
class tst_EditingAids : public QObject
{
    Q_OBJECT

private slots:
    void searchKeys_everyShiftState_data();
    void searchKeys_everyShiftState();
    void altKeys_areSwallowedButF4();
    void redo_needsCtrlAndAltAlone();
    void functionKeys_anyShiftStateButAlt_data();
    void functionKeys_anyShiftStateButAlt();
    void focusKeys_leadToTheOtherView();
    void projectKeys_haveNoInstruments();
    void handledKeys_reachTheControlUnlessTheyAreCommands();

    void gutter_lines_runToTheBottom_data();
    void gutter_lines_runToTheBottom();
    void gutter_press_isOnALine_data();
    void gutter_press_isOnALine();
    void gutter_noLineHeight_showsNothing();
    void gutter_digits_sixAndWhatANumberNeeds();

    void wheel_smallTurns_addUpToANotch();
    void wheel_turnedBack_beginsAgain();
};

namespace {

constexpr ViewPosition BothViews[] = {ViewPosition::First, ViewPosition::Second};
constexpr int Alt = 4;
constexpr int ShiftStates = 8;

} // namespace

void tst_EditingAids::searchKeys_everyShiftState_data()
{
    QTest::addColumn<int>("shift");
    QTest::addColumn<bool>("opens");
    QTest::newRow("none") << 0 << false;
    QTest::newRow("Shift") << 1 << false;
    QTest::newRow("Ctrl") << 2 << true;
    QTest::newRow("Ctrl Shift") << 3 << true;
    QTest::newRow("Alt Shift") << 5 << true;
    QTest::newRow("Alt Ctrl") << 6 << true;
    QTest::newRow("Alt Ctrl Shift") << 7 << true;
}

void tst_EditingAids::searchKeys_everyShiftState()
{
    QFETCH(int, shift);
    QFETCH(bool, opens);
    const std::pair<Qt::Key, ViewKey> keys[] = {
        {Qt::Key_F, ViewKey::Find}, {Qt::Key_H, ViewKey::Replace}, {Qt::Key_G, ViewKey::FindLine}};
    for (const ViewPosition view : BothViews) {
        for (const auto &[key, search] : keys) {
            QCOMPARE(csdViewKey(key, shift, view), opens ? search : ViewKey::PassOn);
            QCOMPARE(projectViewKey(key, shift, view), opens ? search : ViewKey::PassOn);
        }
        QCOMPARE(csdViewKey(Qt::Key_J, shift, view), ViewKey::PassOn);
    }
}

void tst_EditingAids::altKeys_areSwallowedButF4()
{
    QCOMPARE(csdViewKey(Qt::Key_F4, Alt, ViewPosition::First), ViewKey::CloseWindow);
    for (const Qt::Key key : {Qt::Key_F, Qt::Key_H, Qt::Key_G, Qt::Key_Z, Qt::Key_F1, Qt::Key_F5,
                              Qt::Key_F12, Qt::Key_Left, Qt::Key_Backspace})
        QCOMPARE(csdViewKey(key, Alt, ViewPosition::First), ViewKey::Swallow);
    for (int shift = 0; shift < ShiftStates; ++shift)
        if (shift != Alt)
            QCOMPARE(csdViewKey(Qt::Key_F4, shift, ViewPosition::First), ViewKey::PassOn);
}

void tst_EditingAids::redo_needsCtrlAndAltAlone()
{
    constexpr int ctrlAlt = 6;
    for (int shift = 0; shift < ShiftStates; ++shift)
        if (shift != Alt)
            QCOMPARE(csdViewKey(Qt::Key_Z, shift, ViewPosition::Second),
                     shift == ctrlAlt ? ViewKey::Redo : ViewKey::PassOn);
}

void tst_EditingAids::functionKeys_anyShiftStateButAlt_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<ViewKey>("meaning");
    QTest::newRow("F1") << Qt::Key_F1 << ViewKey::KeywordHelp;
    QTest::newRow("F2") << Qt::Key_F2 << ViewKey::HelpIndex;
    QTest::newRow("F3") << Qt::Key_F3 << ViewKey::PassOn;
    QTest::newRow("F5") << Qt::Key_F5 << ViewKey::FirstInstrument;
    QTest::newRow("F6") << Qt::Key_F6 << ViewKey::PreviousInstrument;
    QTest::newRow("F7") << Qt::Key_F7 << ViewKey::NextInstrument;
    QTest::newRow("F8") << Qt::Key_F8 << ViewKey::LastInstrument;
    QTest::newRow("F9") << Qt::Key_F9 << ViewKey::PassOn;
}

void tst_EditingAids::functionKeys_anyShiftStateButAlt()
{
    QFETCH(Qt::Key, key);
    QFETCH(ViewKey, meaning);
    for (const ViewPosition view : BothViews)
        for (int shift = 0; shift < ShiftStates; ++shift)
            if (shift != Alt)
                QCOMPARE(csdViewKey(key, shift, view), meaning);
}

void tst_EditingAids::focusKeys_leadToTheOtherView()
{
    QCOMPARE(csdViewKey(Qt::Key_F12, 0, ViewPosition::First), ViewKey::FocusSecondView);
    QCOMPARE(csdViewKey(Qt::Key_F12, 0, ViewPosition::Second), ViewKey::PassOn);
    QCOMPARE(csdViewKey(Qt::Key_F11, 0, ViewPosition::Second), ViewKey::FocusFirstView);
    QCOMPARE(csdViewKey(Qt::Key_F11, 0, ViewPosition::First), ViewKey::PassOn);
}

void tst_EditingAids::projectKeys_haveNoInstruments()
{
    for (const ViewPosition view : BothViews)
        for (const Qt::Key key : {Qt::Key_F5, Qt::Key_F6, Qt::Key_F7, Qt::Key_F8})
            QCOMPARE(projectViewKey(key, 0, view), ViewKey::PassOn);
    for (const Qt::Key key : {Qt::Key_F1, Qt::Key_F2, Qt::Key_F12})
        QCOMPARE(projectViewKey(key, 0, ViewPosition::First),
                 csdViewKey(key, 0, ViewPosition::First));
}

void tst_EditingAids::handledKeys_reachTheControlUnlessTheyAreCommands()
{
    for (const ViewKey key :
         {ViewKey::Swallow, ViewKey::Find, ViewKey::Replace, ViewKey::FindLine, ViewKey::Redo})
        QVERIFY(!reachesControl(key));
    for (const ViewKey key : {ViewKey::PassOn, ViewKey::KeywordHelp, ViewKey::HelpIndex,
                              ViewKey::FirstInstrument, ViewKey::FocusSecondView})
        QVERIFY(reachesControl(key));
}

// The gutter. -------------------------------------------------------------------------------------

void tst_EditingAids::gutter_lines_runToTheBottom_data()
{
    QTest::addColumn<int>("topLine");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("last");
    QTest::newRow("whole lines") << 1 << 320 << 20;
    QTest::newRow("further down") << 101 << 320 << 120;
    QTest::newRow("less than half a line more") << 1 << 327 << 20;
    QTest::newRow("half a line more, the number even") << 1 << 328 << 20;
    QTest::newRow("half a line more, the number odd") << 1 << 344 << 22;
    QTest::newRow("more than half a line more") << 1 << 329 << 21;
    QTest::newRow("no height") << 7 << 0 << 6;
}

void tst_EditingAids::gutter_lines_runToTheBottom()
{
    QFETCH(int, topLine);
    QFETCH(int, height);
    const GutterNumbers numbers = gutterNumbers(topLine, height, 16);
    QCOMPARE(numbers.first, topLine);
    QTEST(numbers.last, "last");
}

void tst_EditingAids::gutter_press_isOnALine_data()
{
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("line");
    QTest::newRow("top") << 0 << 5;
    QTest::newRow("last pixel of the first line") << 15 << 5;
    QTest::newRow("first pixel of the second") << 16 << 6;
    QTest::newRow("below") << 165 << 15;
}

void tst_EditingAids::gutter_press_isOnALine()
{
    QFETCH(int, y);
    QTEST(gutterLineAt(5, y, 16), "line");
}

void tst_EditingAids::gutter_noLineHeight_showsNothing()
{
    QVERIFY(gutterNumbers(3, 100, 0).last < 3);
    QCOMPARE(gutterLineAt(3, 50, 0), 3);
}

void tst_EditingAids::gutter_digits_sixAndWhatANumberNeeds()
{
    for (const int lines : {0, 1, 99'999, 100'000, 999'998})
        QCOMPARE(gutterDigits(lines), 6);
    // One number behind the last line may be seen too.
    for (const int lines : {999'999, 1'000'000, 9'999'998})
        QCOMPARE(gutterDigits(lines), 7);
    QCOMPARE(gutterDigits(9'999'999), 8);
    QCOMPARE(gutterDigits(INT_MAX), 10);
}

void tst_EditingAids::wheel_smallTurns_addUpToANotch()
{
    WheelNotches wheel;
    QCOMPARE(wheel.turn(120), 1);
    QCOMPARE(wheel.turn(-120), -1);
    QCOMPARE(wheel.turn(240), 2); // two notches reported at once
    for (int notch = 0; notch < 3; ++notch) {
        for (int part = 1; part < 8; ++part)
            QCOMPARE(wheel.turn(-15), 0);
        QCOMPARE(wheel.turn(-15), -1);
    }
    QCOMPARE(wheel.turn(-119), 0);
    QCOMPARE(wheel.turn(-2), -1); // what is over counts for the next notch
    QCOMPARE(wheel.turn(-118), 0);
    QCOMPARE(wheel.turn(-1), -1);
    QCOMPARE(wheel.turn(0), 0);
}

void tst_EditingAids::wheel_turnedBack_beginsAgain()
{
    WheelNotches wheel;
    QCOMPARE(wheel.turn(119), 0);
    QCOMPARE(wheel.turn(-1), 0);
    QCOMPARE(wheel.turn(-119), -1);
    QCOMPARE(wheel.turn(-60), 0);
    QCOMPARE(wheel.turn(119), 0);
    QCOMPARE(wheel.turn(1), 1);
}

ARDIPHON_TEST(tst_EditingAids, NoApplication)
#include "tst_EditingAids.moc"
