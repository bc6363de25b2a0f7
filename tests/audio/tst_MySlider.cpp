#include "audio/ui/MySlider.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

/// The seek control, driven with mouse and keys.
class tst_MySlider : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void height_isFixed();
    void value_isKeptWithinBounds_data();
    void value_isKeptWithinBounds();
    void value_movesTheThumbByFractions();
    void value_byCode_emitsNothing();
    void maxZero_leavesTheThumb();
    void maxAndMin_onlyStore();
    void resize_leavesTheThumbUntilTheNextValue();
    void thumb_pressAndRelease_emitBoth_data();
    void thumb_pressAndRelease_emitBoth();
    void thumb_drag_keepsTheGrabbedPlace();
    void thumb_drag_stopsAtTheEnds();
    void thumb_drag_ignoresTheHeight();
    void thumb_dragWithRightButton_movesNothing();
    void thumb_rounding_goesToEven();
    void thumb_maxOneDraggedToTheMiddle_isZeroOrOne();
    void track_press_bringsTheLeftEdge_data();
    void track_press_bringsTheLeftEdge();
    void track_pressNearTheEnd_stopsThere();
    void track_pressThenMove_movesNothing();
    void narrow_keepsTheValue();
    void keys_moveTheThumb_data();
    void keys_moveTheThumb();
    void keys_others_areLeft();

private:
    void press(int x, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(m_slider.get(), button, {}, QPoint(x, 7));
    }
    void release(int x, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseRelease(m_slider.get(), button, {}, QPoint(x, 7));
    }
    /// With the button that is down: QTest's own move has none.
    void move(int x, int y = 7, Qt::MouseButton button = Qt::LeftButton)
    {
        const QPointF at(x, y);
        QMouseEvent event(QEvent::MouseMove, at, m_slider->mapToGlobal(at), Qt::NoButton, button,
                          {});
        QApplication::sendEvent(m_slider.get(), &event);
    }
    QString taken() { return std::exchange(m_events, {}).join(u' '); }

    std::unique_ptr<MySlider> m_slider;
    QStringList m_events;
};

void tst_MySlider::init()
{
    m_slider = std::make_unique<MySlider>();
    m_slider->resize(216, 50);
    m_slider->SetMax(1000);
    m_slider->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_slider.get()));
    const auto note = [this](const char *name) {
        return [this, name] {
            m_events.append(
                QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(m_slider->Value()));
        };
    };
    connect(m_slider.get(), &MySlider::Scroll, this, note("Scroll"));
    connect(m_slider.get(), &MySlider::Click, this, note("Click"));
    connect(m_slider.get(), &MySlider::MouseDown, this, note("MouseDown"));
    connect(m_slider.get(), &MySlider::MouseUp, this, note("MouseUp"));
}

void tst_MySlider::cleanup()
{
    m_slider.reset();
    QCOMPARE(taken(), QString());
}

void tst_MySlider::height_isFixed()
{
    QCOMPARE(m_slider->size(), QSize(216, 14)); // 215 twips
}

void tst_MySlider::value_isKeptWithinBounds_data()
{
    QTest::addColumn<int>("min");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("kept");
    QTest::addColumn<double>("left");
    QTest::newRow("lowest") << 0 << 0 << 0 << 0.0;
    QTest::newRow("highest") << 0 << 1000 << 1000 << 200.0;
    QTest::newRow("above") << 0 << 1001 << 1000 << 200.0;
    QTest::newRow("far above") << 0 << INT_MAX << 1000 << 200.0;
    QTest::newRow("below") << 0 << -5 << 0 << 0.0;
    QTest::newRow("below, with a higher Min") << 10 << -5 << 0 << 0.0;
    QTest::newRow("below Min") << 10 << 5 << 5 << 1.0;
}

void tst_MySlider::value_isKeptWithinBounds()
{
    QFETCH(int, min);
    QFETCH(int, value);
    QFETCH(double, left);
    m_slider->SetMin(min);
    m_slider->SetValue(value);
    QTEST(m_slider->Value(), "kept");
    QCOMPARE(m_slider->thumbLeft(), left);
}

void tst_MySlider::value_movesTheThumbByFractions()
{
    m_slider->SetMax(3);
    m_slider->SetValue(1);
    QCOMPARE(m_slider->thumbLeft(), 200.0 / 3);
    m_slider->SetMax(INT_MAX); // no overflow on the way
    m_slider->SetValue(INT_MAX);
    QCOMPARE(m_slider->thumbLeft(), 200.0);
}

void tst_MySlider::value_byCode_emitsNothing()
{
    m_slider->SetValue(500);
    QCOMPARE(taken(), QString());
}

void tst_MySlider::maxZero_leavesTheThumb()
{
    m_slider->SetValue(500);
    m_slider->SetMax(0);
    m_slider->SetValue(7);
    QCOMPARE(m_slider->Value(), 0);
    QCOMPARE(m_slider->thumbLeft(), 100.0);
}

void tst_MySlider::maxAndMin_onlyStore()
{
    m_slider->SetValue(500);
    m_slider->SetMax(400);
    m_slider->SetMin(600);
    QCOMPARE(m_slider->Max(), 400);
    QCOMPARE(m_slider->Min(), 600);
    QCOMPARE(m_slider->Value(), 500);
    QCOMPARE(m_slider->thumbLeft(), 100.0);
}

void tst_MySlider::resize_leavesTheThumbUntilTheNextValue()
{
    m_slider->SetValue(500);
    m_slider->resize(416, 14);
    QCOMPARE(m_slider->thumbLeft(), 100.0);
    m_slider->SetValue(500);
    QCOMPARE(m_slider->thumbLeft(), 200.0);
}

void tst_MySlider::thumb_pressAndRelease_emitBoth_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left edge") << 100 << Qt::LeftButton;
    QTest::newRow("right edge") << 115 << Qt::LeftButton;
    QTest::newRow("right button") << 108 << Qt::RightButton;
    QTest::newRow("middle button") << 108 << Qt::MiddleButton;
}

void tst_MySlider::thumb_pressAndRelease_emitBoth()
{
    QFETCH(int, x);
    QFETCH(Qt::MouseButton, button);
    m_slider->SetValue(500);
    press(x, button);
    release(x, button);
    QCOMPARE(taken(), QStringLiteral("MouseDown(500) MouseUp(500)"));
}

void tst_MySlider::thumb_drag_keepsTheGrabbedPlace()
{
    m_slider->SetValue(500);
    press(110);
    move(120);
    move(60);
    QCOMPARE(m_slider->thumbLeft(), 50.0);
    release(60);
    QCOMPARE(taken(), QStringLiteral("MouseDown(500) Scroll(550) Scroll(250) MouseUp(250)"));
    move(90); // released: nothing follows
}

void tst_MySlider::thumb_drag_stopsAtTheEnds()
{
    m_slider->SetValue(500);
    press(108);
    move(-400);
    QCOMPARE(m_slider->thumbLeft(), 0.0);
    move(4000);
    QCOMPARE(m_slider->thumbLeft(), 200.0);
    release(4000);
    QCOMPARE(taken(), QStringLiteral("MouseDown(500) Scroll(0) Scroll(1000) MouseUp(1000)"));
}

void tst_MySlider::thumb_drag_ignoresTheHeight()
{
    press(8);
    move(18, 300);
    QCOMPARE(taken(), QStringLiteral("MouseDown(0) Scroll(50)"));
    release(18);
    taken();
}

void tst_MySlider::thumb_dragWithRightButton_movesNothing()
{
    press(8, Qt::RightButton);
    move(50, 7, Qt::RightButton);
    release(50, Qt::RightButton);
    QCOMPARE(taken(), QStringLiteral("MouseDown(0) MouseUp(0)"));
}

void tst_MySlider::thumb_rounding_goesToEven()
{
    m_slider->SetMax(100); // a pixel is half a step
    press(0);
    move(1);
    move(3);
    move(5);
    release(5);
    QCOMPARE(taken(), QStringLiteral("MouseDown(0) Scroll(0) Scroll(2) Scroll(2) MouseUp(2)"));
}

void tst_MySlider::thumb_maxOneDraggedToTheMiddle_isZeroOrOne()
{
    m_slider->SetMax(1);
    press(0);
    move(100);
    move(101);
    release(101);
    QCOMPARE(taken(), QStringLiteral("MouseDown(0) Scroll(0) Scroll(1) MouseUp(1)"));
}

void tst_MySlider::track_press_bringsTheLeftEdge_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("right") << Qt::RightButton;
}

void tst_MySlider::track_press_bringsTheLeftEdge()
{
    QFETCH(Qt::MouseButton, button);
    press(50, button);
    QCOMPARE(m_slider->thumbLeft(), 50.0);
    release(50, button);
    QCOMPARE(taken(), QStringLiteral("Click(250)"));
}

void tst_MySlider::track_pressNearTheEnd_stopsThere()
{
    press(214);
    release(214);
    QCOMPARE(m_slider->thumbLeft(), 200.0);
    QCOMPARE(taken(), QStringLiteral("Click(1000)"));
}

void tst_MySlider::track_pressThenMove_movesNothing()
{
    press(50);
    move(90);
    release(90);
    QCOMPARE(taken(), QStringLiteral("Click(250)"));
}

void tst_MySlider::narrow_keepsTheValue()
{
    m_slider->SetValue(500);
    m_slider->setMinimumWidth(0);
    m_slider->resize(10, 14);
    m_slider->SetValue(500);
    QCOMPARE(m_slider->thumbLeft(), 0.0);
    press(3);
    move(5);
    release(5);
    QCOMPARE(taken(), QStringLiteral("MouseDown(500) Scroll(500) MouseUp(500)"));
}

void tst_MySlider::keys_moveTheThumb_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("value");
    QTest::newRow("left") << 500 << Qt::Key_Left << 490;
    QTest::newRow("down") << 500 << Qt::Key_Down << 490;
    QTest::newRow("right") << 500 << Qt::Key_Right << 510;
    QTest::newRow("up") << 500 << Qt::Key_Up << 510;
    QTest::newRow("page down") << 500 << Qt::Key_PageDown << 400;
    QTest::newRow("page up") << 500 << Qt::Key_PageUp << 600;
    QTest::newRow("home") << 500 << Qt::Key_Home << 0;
    QTest::newRow("end") << 500 << Qt::Key_End << 1000;
    QTest::newRow("left at the start") << 5 << Qt::Key_Left << 0;
    QTest::newRow("right at the end") << 995 << Qt::Key_Right << 1000;
}

void tst_MySlider::keys_moveTheThumb()
{
    QFETCH(int, from);
    QFETCH(Qt::Key, key);
    QFETCH(int, value);
    m_slider->SetValue(from);
    m_slider->setFocus();
    QTest::keyClick(m_slider.get(), key);
    QCOMPARE(taken(), QStringLiteral("Click(%1)").arg(value));
    QCOMPARE(m_slider->thumbLeft(), value / 5.0);
}

void tst_MySlider::keys_others_areLeft()
{
    m_slider->SetValue(500);
    QTest::keyClick(m_slider.get(), Qt::Key_A);
    QTest::keyClick(m_slider.get(), Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(m_slider->Value(), 500);
}

ARDIPHON_TEST(tst_MySlider, QApplication)
#include "tst_MySlider.moc"
