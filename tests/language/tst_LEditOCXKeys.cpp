// The keys, the input methods and the events of the editor control.

#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/TestMain.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QShortcut>
#include <QSignalSpy>

using namespace ardiphon;
using namespace EditorInput;

class tst_LEditOCXKeys : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void key_moves_data();
    void key_moves();
    void key_changesText_data();
    void key_changesText();
    void key_pageUpAndDown_movesByPages();
    void key_visibleText_staysOnScreen();
    void key_insert_overwrites();
    void key_tabOnLines_indentsThem();
    void key_enter_indentsAsTheLineAbove();
    void keyDown_reportsKeyAndShift_data();
    void keyDown_reportsKeyAndShift();
    void keyDown_zero_swallowsTheKey();
    void keyDown_handlerThatDeletesTheControl_isSafe();
    void keyPress_reportsCharacters_data();
    void keyPress_reportsCharacters();
    void keyPress_anotherCharacter_isTyped();
    void keyPress_handlerThatMirrors_keepsTwoViewsAlike();
    void shortcut_ofTheWindow_reachesIt();
    void shortcut_ofTheControl_staysWithIt();
    void shortcut_withAlt_isAKeyOfTheControl();
    void inputMethod_commitsText();
    void focus_isTheView();

private:
    std::unique_ptr<QWidget> m_window;
    LEditOCX *m_editor = nullptr;
};

void tst_LEditOCXKeys::init()
{
    m_window = std::make_unique<QWidget>();
    m_window->resize(640, 400);
    m_editor = new LEditOCX(m_window.get());
    m_editor->setGeometry(20, 30, 600, 300);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_editor->setFocus();
}

void tst_LEditOCXKeys::key_moves_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("from");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("result");
    const QString text("one two\r\n  three\r\n\r\nfour five\r\nsix");
    const auto row = [&](const char *name, QList<int> from, Qt::Key key, Qt::KeyboardModifiers held,
                         const char *result) {
        QTest::newRow(name) << text << from << int(key) << int(held) << QString(result);
    };
    const auto ctrl = Qt::ControlModifier;
    const auto shift = Qt::ShiftModifier;
    row("left over the line end", {2, 0}, Qt::Key_Left, {}, "1:7-1:7");
    row("right", {1, 0}, Qt::Key_Right, {}, "1:1-1:1");
    row("shift+right over the line end", {1, 7}, Qt::Key_Right, shift, "1:7-2:0");
    row("shift+left", {1, 2}, Qt::Key_Left, shift, "1:1-1:2");
    row("down keeps the column", {1, 5}, Qt::Key_Down, {}, "2:5-2:5");
    row("up", {2, 1}, Qt::Key_Up, {}, "1:1-1:1");
    row("shift+down", {1, 1}, Qt::Key_Down, shift, "1:1-2:1");
    row("ctrl+right", {1, 0}, Qt::Key_Right, ctrl, "1:4-1:4");
    row("ctrl+left", {1, 7}, Qt::Key_Left, ctrl, "1:4-1:4");
    row("ctrl+shift+right", {1, 0}, Qt::Key_Right, ctrl | shift, "1:0-1:4");
    row("ctrl+r", {1, 0}, Qt::Key_R, ctrl, "1:4-1:4");
    row("ctrl+l", {1, 7}, Qt::Key_L, ctrl, "1:4-1:4");
    row("ctrl+down to the end of the paragraph", {1, 3}, Qt::Key_Down, ctrl, "2:7-2:7");
    row("ctrl+down from there to the end of the next", {2, 7}, Qt::Key_Down, ctrl, "5:3-5:3");
    row("ctrl+down from a line's end", {1, 7}, Qt::Key_Down, ctrl, "2:7-2:7");
    row("ctrl+down between paragraphs", {3, 0}, Qt::Key_Down, ctrl, "5:3-5:3");
    row("ctrl+down at the end of the text", {5, 3}, Qt::Key_Down, ctrl, "5:3-5:3");
    row("ctrl+shift+down", {1, 3}, Qt::Key_Down, ctrl | shift, "1:3-2:7");
    row("ctrl+up from the middle", {2, 4}, Qt::Key_Up, ctrl, "1:0-1:0");
    row("ctrl+shift+up", {5, 2}, Qt::Key_Up, ctrl | shift, "4:0-5:2");
    row("ctrl+up", {5, 2}, Qt::Key_Up, ctrl, "4:0-4:0");
    row("ctrl+home", {3, 0}, Qt::Key_Home, ctrl, "1:0-1:0");
    row("ctrl+end", {3, 0}, Qt::Key_End, ctrl, "5:3-5:3");
    row("ctrl+shift+end", {4, 4}, Qt::Key_End, ctrl | shift, "4:4-5:3");
    row("home to the first non-blank", {2, 5}, Qt::Key_Home, {}, "2:2-2:2");
    row("home back to the start", {2, 2}, Qt::Key_Home, {}, "2:0-2:0");
    row("end", {2, 0}, Qt::Key_End, {}, "2:7-2:7");
    row("shift+end", {2, 2}, Qt::Key_End, shift, "2:2-2:7");
    row("ctrl+a", {2, 2}, Qt::Key_A, ctrl, "1:0-5:3");
    row("ctrl+pgup", {4, 4}, Qt::Key_PageUp, ctrl, "1:0-1:0");
    row("ctrl+pgdn", {2, 0}, Qt::Key_PageDown, ctrl, "5:3-5:3");
    row("ctrl+u", {4, 4}, Qt::Key_U, ctrl, "1:0-1:0");
    row("ctrl+d", {2, 0}, Qt::Key_D, ctrl, "5:3-5:3");
    row("ctrl+shift+pgup", {2, 1}, Qt::Key_PageUp, ctrl | shift, "1:0-2:1");
    row("escape", {2, 1}, Qt::Key_Escape, {}, "2:1-2:1");
}

void tst_LEditOCXKeys::key_moves()
{
    QFETCH(QString, text);
    QFETCH(QList<int>, from);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, result);
    m_editor->SetText(text);
    goTo(*m_editor, from[0], from[1]);
    press(*m_editor, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(selection(*m_editor), result);
    QCOMPARE(m_editor->Text(), text);
}

void tst_LEditOCXKeys::key_changesText_data()
{
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("result");
    const auto row = [&](const char *name, QList<int> selected, Qt::Key key,
                         Qt::KeyboardModifiers held, const char *result) {
        QTest::newRow(name) << selected << int(key) << int(held) << QString(result);
    };
    const auto ctrl = Qt::ControlModifier;
    const auto shift = Qt::ShiftModifier;
    row("delete", {1, 0, 1, 0}, Qt::Key_Delete, {}, "ne two\r\nthree");
    row("delete a line end", {1, 7, 1, 7}, Qt::Key_Delete, {}, "one twothree");
    row("delete a selection", {1, 0, 2, 1}, Qt::Key_Delete, {}, "hree");
    row("backspace", {1, 3, 1, 3}, Qt::Key_Backspace, {}, "on two\r\nthree");
    row("backspace a line end", {2, 0, 2, 0}, Qt::Key_Backspace, {}, "one twothree");
    row("shift+backspace", {1, 3, 1, 3}, Qt::Key_Backspace, shift, "on two\r\nthree");
    row("ctrl+backspace", {1, 7, 1, 7}, Qt::Key_Backspace, ctrl, "one \r\nthree");
    row("ctrl+delete", {1, 0, 1, 0}, Qt::Key_Delete, ctrl, "two\r\nthree");
    row("ctrl+y", {1, 3, 1, 3}, Qt::Key_Y, ctrl, "three");
    row("enter", {1, 3, 1, 4}, Qt::Key_Return, {}, "one\r\ntwo\r\nthree");
    row("keypad enter", {1, 3, 1, 4}, Qt::Key_Enter, Qt::KeypadModifier, "one\r\ntwo\r\nthree");
    row("shift+enter", {1, 3, 1, 4}, Qt::Key_Return, shift, "one\r\ntwo\r\nthree");
    row("tab", {1, 0, 1, 0}, Qt::Key_Tab, {}, "\tone two\r\nthree");
    row("letter", {1, 0, 1, 3}, Qt::Key_X, {}, "x two\r\nthree");
    row("ctrl+x", {1, 0, 1, 4}, Qt::Key_X, ctrl, "two\r\nthree");
    row("shift+delete", {1, 0, 1, 4}, Qt::Key_Delete, shift, "two\r\nthree");
    row("ctrl+c", {1, 0, 1, 3}, Qt::Key_C, ctrl, "one two\r\nthree");
    row("ctrl+insert", {1, 0, 1, 3}, Qt::Key_Insert, ctrl, "one two\r\nthree");
    row("ctrl+v", {1, 0, 1, 3}, Qt::Key_V, ctrl, "clip two\r\nthree");
    row("shift+insert", {1, 0, 1, 3}, Qt::Key_Insert, shift, "clip two\r\nthree");
    row("ctrl+z", {1, 0, 1, 0}, Qt::Key_Z, ctrl, "");
    row("alt+letter", {1, 0, 1, 0}, Qt::Key_X, Qt::AltModifier, "one two\r\nthree");
    row("ctrl+q", {1, 0, 1, 3}, Qt::Key_Q, ctrl, "one two\r\nthree");
    row("ctrl+t", {1, 0, 1, 3}, Qt::Key_T, ctrl, "one two\r\nthree");
}

void tst_LEditOCXKeys::key_changesText()
{
    QFETCH(QList<int>, selected);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, result);
    QGuiApplication::clipboard()->setText("clip");
    m_editor->SetText("one two\r\nthree");
    select(*m_editor, selected[0], selected[1], selected[2], selected[3]);
    press(*m_editor, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(m_editor->Text(), result);
    const bool copies =
        key == Qt::Key_C || (key == Qt::Key_Insert && modifiers == Qt::ControlModifier);
    if (copies)
        QCOMPARE(QGuiApplication::clipboard()->text(), "one");
    if (key == Qt::Key_Z) {
        press(*m_editor, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(m_editor->Text(), "one two\r\nthree");
    }
}

void tst_LEditOCXKeys::key_pageUpAndDown_movesByPages()
{
    m_editor->SetText(QString("x\r\n").repeated(300));
    goTo(*m_editor, 1, 0);
    press(*m_editor, Qt::Key_PageDown);
    m_editor->GetSelection();
    const int page = m_editor->SelStartLine - 1;
    QVERIFY(page > 5 && page <= m_editor->height() / m_editor->LineHeight());
    press(*m_editor, Qt::Key_PageUp);
    QCOMPARE(selection(*m_editor), "1:0-1:0");
    press(*m_editor, Qt::Key_PageDown, Qt::ShiftModifier);
    QCOMPARE(selection(*m_editor), QString("1:0-%1:0").arg(page + 1));
}

void tst_LEditOCXKeys::key_visibleText_staysOnScreen()
{
    m_editor->SetText(QString("x\r\n").repeated(300));
    goTo(*m_editor, 150, 0);
    m_editor->SetTopLine(145);
    press(*m_editor, Qt::Key_D, Qt::ControlModifier);
    m_editor->GetSelection();
    const int last = 145 + m_editor->height() / m_editor->LineHeight() - 1;
    QVERIFY(qAbs(m_editor->SelStartLine - last) <= 1); // the scroll bar below takes its room
    QCOMPARE(m_editor->SelStartColumn, 1);
    press(*m_editor, Qt::Key_U, Qt::ControlModifier);
    QCOMPARE(selection(*m_editor), "145:0-145:0");
    QCOMPARE(m_editor->TopLine(), 145);
}

void tst_LEditOCXKeys::key_insert_overwrites()
{
    m_editor->SetText("abc\r\nd");
    goTo(*m_editor, 1, 1);
    QStringList replaced;
    connect(m_editor, &LEditOCX::KeyPress, this, [&](int &character) {
        replaced.append(m_editor->SelText());
        if (character == '#')
            character = 0;
    });
    press(*m_editor, Qt::Key_Insert);
    type(*m_editor, "1#23");
    QCOMPARE(m_editor->Text(), "a123\r\nd");
    QCOMPARE(replaced, QStringList({"b", "c", "c", ""}));
    QCOMPARE(selection(*m_editor), "1:4-1:4");
    press(*m_editor, Qt::Key_Insert);
    goTo(*m_editor, 1, 0);
    type(*m_editor, "x");
    QCOMPARE(m_editor->Text(), "xa123\r\nd");
}

void tst_LEditOCXKeys::key_tabOnLines_indentsThem()
{
    m_editor->SetTabSize(4);
    m_editor->SetText("a\r\nb\r\nc");
    select(*m_editor, 1, 0, 2, 1);
    press(*m_editor, Qt::Key_Tab);
    QCOMPARE(m_editor->Text(), "\ta\r\n\tb\r\nc");
    press(*m_editor, Qt::Key_Tab, Qt::ShiftModifier);
    QCOMPARE(m_editor->Text(), "a\r\nb\r\nc");
    press(*m_editor, Qt::Key_Tab);
    press(*m_editor, Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(m_editor->Text(), "a\r\nb\r\nc");
    QVERIFY(m_editor->hasFocus());
}

void tst_LEditOCXKeys::key_enter_indentsAsTheLineAbove()
{
    m_editor->SetText(" \t one");
    goTo(*m_editor, 1, 6);
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(m_editor->Text(), " \t one\r\n");
    m_editor->Undo();
    m_editor->SetAutoIndent(true);
    press(*m_editor, Qt::Key_Return);
    type(*m_editor, "x");
    QCOMPARE(m_editor->Text(), " \t one\r\n \t x");
    goTo(*m_editor, 1, 1);
    press(*m_editor, Qt::Key_Return);
    QCOMPARE(m_editor->Text(), " \r\n \t one\r\n \t x");
    m_editor->Undo();
    QCOMPARE(m_editor->Text(), " \t one\r\n \t x");
}

void tst_LEditOCXKeys::keyDown_reportsKeyAndShift_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("shift");
    QTest::newRow("letter") << int(Qt::Key_A) << int(Qt::NoModifier) << 0;
    QTest::newRow("shift") << int(Qt::Key_A) << int(Qt::ShiftModifier) << 1;
    QTest::newRow("ctrl") << int(Qt::Key_F) << int(Qt::ControlModifier) << 2;
    QTest::newRow("alt") << int(Qt::Key_F4) << int(Qt::AltModifier) << 4;
    QTest::newRow("ctrl and alt") << int(Qt::Key_Z) << int(Qt::ControlModifier | Qt::AltModifier)
                                  << 6;
    QTest::newRow("all") << int(Qt::Key_G)
                         << int(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier) << 7;
    QTest::newRow("function key") << int(Qt::Key_F12) << int(Qt::NoModifier) << 0;
}

void tst_LEditOCXKeys::keyDown_reportsKeyAndShift()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(int, shift);
    QList<std::pair<int, int>> keys;
    connect(m_editor, &LEditOCX::KeyDown, this, [&](EditorKey &down) {
        keys.append({down.KeyCode, down.Shift});
    });
    press(*m_editor, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(keys.size(), 1);
    QCOMPARE(keys[0].first, key);
    QCOMPARE(keys[0].second, shift);
}

void tst_LEditOCXKeys::keyDown_zero_swallowsTheKey()
{
    m_editor->SetText("abc");
    goTo(*m_editor, 1, 0);
    bool typed = false;
    connect(m_editor, &LEditOCX::KeyPress, this, [&] { typed = true; });
    connect(m_editor, &LEditOCX::KeyDown, this, [](EditorKey &key) { key.KeyCode = 0; });
    type(*m_editor, "x");
    press(*m_editor, Qt::Key_Right);
    press(*m_editor, Qt::Key_Delete);
    press(*m_editor, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_editor->Text(), "abc");
    QCOMPARE(selection(*m_editor), "1:0-1:0");
    QVERIFY(!typed);
}

void tst_LEditOCXKeys::keyDown_handlerThatDeletesTheControl_isSafe()
{
    connect(m_editor, &LEditOCX::KeyDown, this, [&] { delete std::exchange(m_editor, nullptr); });
    QKeyEvent key(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, "x");
    QVERIFY(static_cast<QObject *>(m_editor->focusProxy())->event(&key));
    QVERIFY(!m_editor);
}

void tst_LEditOCXKeys::keyPress_reportsCharacters_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QList<int>>("codes");
    QTest::newRow("letter") << int(Qt::Key_A) << int(Qt::NoModifier) << QList<int>{'a'};
    QTest::newRow("blank") << int(Qt::Key_Space) << int(Qt::NoModifier) << QList<int>{' '};
    QTest::newRow("enter") << int(Qt::Key_Return) << int(Qt::NoModifier) << QList<int>{13};
    QTest::newRow("tab") << int(Qt::Key_Tab) << int(Qt::NoModifier) << QList<int>{9};
    QTest::newRow("backspace") << int(Qt::Key_Backspace) << int(Qt::NoModifier) << QList<int>{8};
    QTest::newRow("delete") << int(Qt::Key_Delete) << int(Qt::NoModifier) << QList<int>{127};
    QTest::newRow("arrow") << int(Qt::Key_Left) << int(Qt::NoModifier) << QList<int>{};
    QTest::newRow("ctrl") << int(Qt::Key_F) << int(Qt::ControlModifier) << QList<int>{};
    QTest::newRow("alt") << int(Qt::Key_F) << int(Qt::AltModifier) << QList<int>{};
}

void tst_LEditOCXKeys::keyPress_reportsCharacters()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QList<int>, codes);
    m_editor->SetText("one");
    QList<int> told;
    connect(m_editor, &LEditOCX::KeyPress, this, [&](int &character) {
        told.append(character);
        character = 0;
    });
    press(*m_editor, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(told, codes);
    QCOMPARE(m_editor->Text(), "one");
}

void tst_LEditOCXKeys::keyPress_anotherCharacter_isTyped()
{
    connect(m_editor, &LEditOCX::KeyPress, this, [](int &character) {
        if (character == 'a')
            character = 0x1D11E;
    });
    type(*m_editor, "ab");
    QCOMPARE(m_editor->Text(), QString::fromUcs4(U"\U0001D11Eb"));
}

void tst_LEditOCXKeys::keyPress_handlerThatMirrors_keepsTwoViewsAlike()
{
    LEditOCX other;
    connect(m_editor, &LEditOCX::KeyPress, &other, [&](int &character) {
        m_editor->GetSelection();
        select(other, m_editor->SelStartLine, m_editor->SelStartColumn, m_editor->SelEndLine,
               m_editor->SelEndColumn);
        other.SetSelText(QChar(character));
    });
    type(*m_editor, "hello");
    press(*m_editor, Qt::Key_Left, Qt::ShiftModifier);
    type(*m_editor, "p");
    press(*m_editor, Qt::Key_Home);
    press(*m_editor, Qt::Key_Insert);
    type(*m_editor, "J");
    QCOMPARE(m_editor->Text(), "Jellp");
    QCOMPARE(other.Text(), "Jellp");
}

void tst_LEditOCXKeys::shortcut_ofTheWindow_reachesIt()
{
    for (const QKeySequence &keys : {QKeySequence("Ctrl+S"), QKeySequence("F3"),
                                     QKeySequence("Ctrl+1"), QKeySequence("Ctrl+B")}) {
        QShortcut shortcut(keys, m_window.get());
        QSignalSpy activated(&shortcut, &QShortcut::activated);
        press(*m_editor, Qt::Key(keys[0].key()), keys[0].keyboardModifiers());
        QCOMPARE(activated.size(), 1);
    }
    QCOMPARE(m_editor->Text(), "");
}

void tst_LEditOCXKeys::shortcut_withAlt_isAKeyOfTheControl()
{
    QShortcut menu(QKeySequence("Alt+F"), m_window.get());
    QSignalSpy activated(&menu, &QShortcut::activated);
    QSignalSpy keys(m_editor, &LEditOCX::KeyDown);
    press(*m_editor, Qt::Key_F, Qt::AltModifier);
    QCOMPARE(activated.size(), 0);
    QCOMPARE(keys.size(), 1);
}

void tst_LEditOCXKeys::shortcut_ofTheControl_staysWithIt()
{
    m_editor->SetText("one two");
    QShortcut copy(QKeySequence("Ctrl+A"), m_window.get());
    QShortcut letter(QKeySequence("x"), m_window.get());
    QSignalSpy activated(&copy, &QShortcut::activated);
    QSignalSpy typed(&letter, &QShortcut::activated);
    press(*m_editor, Qt::Key_A, Qt::ControlModifier);
    type(*m_editor, "x");
    QVERIFY(activated.isEmpty() && typed.isEmpty());
    QCOMPARE(m_editor->Text(), "x");
}

void tst_LEditOCXKeys::inputMethod_commitsText()
{
    QList<int> told;
    connect(m_editor, &LEditOCX::KeyPress, this, [&](int &character) {
        told.append(character);
        if (character == '!')
            character = 0;
    });
    QInputMethodEvent composing(QString::fromUtf8("に"), {});
    QApplication::sendEvent(m_editor->focusProxy(), &composing);
    QInputMethodEvent commit;
    commit.setCommitString(QString::fromUtf8("日!本"));
    QApplication::sendEvent(m_editor->focusProxy(), &commit);
    QCOMPARE(m_editor->Text(), QString::fromUtf8("日本"));
    QCOMPARE(told, QList<int>({0x65E5, '!', 0x672C}));
    m_editor->Undo();
    m_editor->Undo();
    QCOMPARE(m_editor->Text(), "");
}

void tst_LEditOCXKeys::focus_isTheView()
{
    QVERIFY(m_editor->hasFocus());
    QVERIFY(m_editor->focusProxy()->hasFocus());
    m_window->setFocus();
    QVERIFY(!m_editor->hasFocus());
    m_editor->SetText("one");
    click(*m_editor, 1, 1);
    QVERIFY(m_editor->hasFocus());
}

ARDIPHON_TEST(tst_LEditOCXKeys, QApplication)
#include "tst_LEditOCXKeys.moc"
