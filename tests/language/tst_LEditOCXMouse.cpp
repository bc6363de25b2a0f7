// The mouse, drops and assistive tools at the editor control.

#include "language/editor/LEditOCX.h"
#include "support/EditorInput.h"
#include "support/TestMain.h"

#include <QAccessible>
#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>

using namespace ardiphon;
using namespace EditorInput;

namespace {

// A window that notes the files dropped on it.
class Window : public QWidget
{
public:
    Window() { setAcceptDrops(true); }
    QList<QUrl> dropped;

protected:
    void dragEnterEvent(QDragEnterEvent *event) override { event->acceptProposedAction(); }
    void dropEvent(QDropEvent *event) override { dropped = event->mimeData()->urls(); }
};

} // namespace

class tst_LEditOCXMouse : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void mouse_buttons_areReported();
    void mouse_click_comesAfterTheCaretMoved();
    void mouse_rightButton_leavesCaretAndSelection();
    void mouse_doubleAndTripleClick_selectWordAndLine();
    void mouse_drag_selects();
    void mouse_wheel_isLeftToTheWindow();
    void mouse_wheel_takesNoFocus();
    void menuKey_isTheRightButtonAtTheCaret();
    void menuKey_caretOutOfSight_bringsItBack();
    void drop_file_reachesTheWindow();
    void drop_text_goesIntoTheDocument();
    void accessible_activeTool_getsTheText();

private:
    QWidget *viewport() const { return m_editor->childAt(20, 20); }
    void drop(const QMimeData &data, const QPoint &at);

    std::unique_ptr<Window> m_window;
    LEditOCX *m_editor = nullptr;
};

void tst_LEditOCXMouse::init()
{
    m_window = std::make_unique<Window>();
    m_window->resize(640, 400);
    m_editor = new LEditOCX(m_window.get());
    m_editor->setGeometry(20, 30, 600, 300);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_editor->setFocus();
}

void tst_LEditOCXMouse::mouse_buttons_areReported()
{
    m_editor->SetText("one\r\ntwo");
    QStringList told;
    connect(m_editor, &LEditOCX::MouseButton, this, [&](EditorMouseButton &button) {
        told.append(QString("%1 %2 %3 %4")
                        .arg(button.Button)
                        .arg(button.Shift)
                        .arg(button.X)
                        .arg(button.Y));
    });
    const QPoint at = m_editor->PositionToPixels(2, 1) + QPoint(1, m_editor->LineHeight() / 2);
    const QString place = QString("%1 %2").arg(at.x() * 15).arg(at.y() * 15);
    click(*m_editor, 2, 1);
    click(*m_editor, 2, 1, Qt::RightButton, Qt::ControlModifier);
    QCOMPARE(told, QStringList({"1 0 " + place, "2 2 " + place}));
    told.clear();
    QGuiApplication::clipboard()->setText("", QClipboard::Selection);
    click(*m_editor, 2, 1, Qt::MiddleButton);
    QCOMPARE(told, QStringList("4 0 " + place));
}

void tst_LEditOCXMouse::mouse_click_comesAfterTheCaretMoved()
{
    m_editor->SetText("one two");
    QString atClick;
    connect(m_editor, &LEditOCX::Click, this, [&] {
        m_editor->UpdateCurrentWord();
        atClick += m_editor->CurrentWord();
    });
    click(*m_editor, 1, 5);
    QCOMPARE(atClick, "two");
    click(*m_editor, 1, 1, Qt::RightButton);
    QCOMPARE(atClick, "two");
}

void tst_LEditOCXMouse::mouse_rightButton_leavesCaretAndSelection()
{
    m_editor->SetText("one two");
    select(*m_editor, 1, 0, 1, 3);
    click(*m_editor, 1, 5, Qt::RightButton);
    QCOMPARE(selection(*m_editor), "1:0-1:3");
}

void tst_LEditOCXMouse::mouse_doubleAndTripleClick_selectWordAndLine()
{
    m_editor->SetText("one two_2 three\r\nfour");
    const QPoint at = m_editor->PositionToPixels(1, 5) + QPoint(1, 5);
    QTest::mouseClick(viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(viewport(), Qt::LeftButton, {}, at);
    QCOMPARE(m_editor->SelText(), "two_2");
    QTest::mouseClick(viewport(), Qt::LeftButton, {}, at);
    QCOMPARE(m_editor->SelText(), "one two_2 three\r\n");
}

void tst_LEditOCXMouse::mouse_drag_selects()
{
    m_editor->SetText("one two\r\nthree");
    const auto at = [&](int line, int column) {
        return m_editor->PositionToPixels(line, column) + QPoint(1, 5);
    };
    QTest::mousePress(viewport(), Qt::LeftButton, {}, at(1, 4));
    QTest::mouseMove(viewport(), at(1, 6));
    QTest::mouseMove(viewport(), at(2, 2));
    QTest::mouseRelease(viewport(), Qt::LeftButton, {}, at(2, 2));
    QCOMPARE(selection(*m_editor), "1:4-2:2");
    // Never a rectangle, whatever is held.
    for (const auto held :
         {Qt::KeyboardModifiers(Qt::AltModifier), Qt::AltModifier | Qt::ControlModifier}) {
        goTo(*m_editor, 1, 0);
        QTest::mouseClick(viewport(), Qt::LeftButton, {}, at(2, 4));
        QTest::mousePress(viewport(), Qt::LeftButton, held, at(1, 1));
        QTest::mouseMove(viewport(), at(2, 3));
        QTest::mouseRelease(viewport(), Qt::LeftButton, held, at(2, 3));
        QCOMPARE(m_editor->SelText(), "ne two\r\nthr");
    }
}

void tst_LEditOCXMouse::mouse_wheel_isLeftToTheWindow()
{
    m_editor->SetText(QString("x\r\n").repeated(100));
    m_editor->SetTopLine(10);
    QWheelEvent wheel({50, 50}, m_editor->mapToGlobal(QPointF(50, 50)), {}, {0, -120}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(viewport(), &wheel);
    QVERIFY(!wheel.isAccepted());
    QCOMPARE(m_editor->TopLine(), 10);
}

void tst_LEditOCXMouse::mouse_wheel_takesNoFocus()
{
    QCOMPARE(m_editor->focusProxy()->focusPolicy(), Qt::StrongFocus);
}

void tst_LEditOCXMouse::menuKey_isTheRightButtonAtTheCaret()
{
    m_editor->SetText("one\r\ntwo");
    goTo(*m_editor, 2, 2);
    QList<EditorMouseButton> told;
    connect(m_editor, &LEditOCX::MouseButton, this,
            [&](EditorMouseButton &button) { told.append(button); });
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(m_editor->focusProxy(), &menu);
    QTest::keyClick(m_editor->focusProxy(), Qt::Key_F10, Qt::ShiftModifier);
    QCOMPARE(told.size(), 2);
    for (const EditorMouseButton &button : told) {
        QCOMPARE(button.Button, 2);
        QCOMPARE(QPoint(button.X, button.Y), m_editor->PositionToPixels(2, 2) * 15);
    }
    QTest::keyClick(m_editor->focusProxy(), Qt::Key_F10);
    QTest::keyClick(m_editor->focusProxy(), Qt::Key_F10, Qt::ShiftModifier | Qt::ControlModifier);
    QCOMPARE(told.size(), 2);
}

void tst_LEditOCXMouse::menuKey_caretOutOfSight_bringsItBack()
{
    m_editor->SetText(QString("x\r\n").repeated(500));
    goTo(*m_editor, 400, 1);
    m_editor->SetTopLine(1);
    QList<bool> isInside;
    connect(m_editor, &LEditOCX::MouseButton, this, [&](EditorMouseButton &button) {
        isInside.append(m_editor->rect().contains(button.X / 15, button.Y / 15));
    });
    QTest::keyClick(m_editor->focusProxy(), Qt::Key_F10, Qt::ShiftModifier);
    QCOMPARE(isInside, QList<bool>{true});
    QVERIFY(m_editor->TopLine() > 300);
    QCOMPARE(selection(*m_editor), "400:1-400:1");
}

void tst_LEditOCXMouse::drop(const QMimeData &data, const QPoint &at)
{
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(viewport(), &enter);
    QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(viewport(), &event);
}

void tst_LEditOCXMouse::drop_file_reachesTheWindow()
{
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile("/tmp/piece.csd")});
    file.setText("/tmp/piece.csd");
    drop(file, {50, 50});
    QCOMPARE(m_window->dropped, file.urls());
    QCOMPARE(m_editor->Text(), "");
}

void tst_LEditOCXMouse::drop_text_goesIntoTheDocument()
{
    m_editor->SetText("one two");
    QList<int> told;
    connect(m_editor, &LEditOCX::KeyPress, this, [&](int &character) { told.append(character); });
    QMimeData text;
    text.setText("new ");
    drop(text, m_editor->PositionToPixels(1, 4) + QPoint(1, 5));
    QCOMPARE(m_editor->Text(), "one new two");
    QCOMPARE(told, QList<int>{22});
    QVERIFY(m_window->dropped.isEmpty());
}

void tst_LEditOCXMouse::accessible_activeTool_getsTheText()
{
    m_editor->SetText("one two");
    QAccessible::setActive(true);
    QAccessibleInterface *full = QAccessible::queryAccessibleInterface(m_editor->focusProxy());
    QVERIFY(full && full->textInterface());
    QCOMPARE(full->textInterface()->text(0, 7), "one two");
    type(*m_editor, "x");
    QAccessible::setActive(false);
    QAccessibleInterface *plain = QAccessible::queryAccessibleInterface(m_editor->focusProxy());
    QVERIFY(plain && !plain->textInterface());
    QCOMPARE(plain->role(), QAccessible::EditableText);
}

ARDIPHON_TEST(tst_LEditOCXMouse, QApplication)
#include "tst_LEditOCXMouse.moc"
