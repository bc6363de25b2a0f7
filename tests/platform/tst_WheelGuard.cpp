#include "platform/ui/WheelGuard.h"
#include "support/TestMain.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

using namespace ardiphon;

namespace {

void turnWheel(QWidget &over)
{
    const QPointF at = over.rect().center();
    QWheelEvent event(at, over.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event); // else it would not go on to a parent
    qApp->notify(&over, &event);
}

} // namespace

/// The wheel over controls that have a value. What gives them the focus is tried in the real
/// program.
class tst_WheelGuard : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { qApp->removeEventFilter(&m_guard); }
    void wheel_withoutFocus_changesNothingAndScrolls();
    void wheel_withFocus_changesTheValue();
    void wheel_overAnOpenList_scrollsIt();
    void noControl_takesTheFocusByWheel();

private:
    QList<int> values() const
    {
        return {m_combo->currentIndex(), m_editable->currentIndex(), m_spin->value(),
                m_slider->value()};
    }
    QList<QWidget *> controls() const { return {m_combo, m_editable, m_spin, m_slider}; }

    WheelGuard m_guard;
    std::unique_ptr<QScrollArea> m_area;
    QComboBox *m_combo = nullptr;
    QComboBox *m_editable = nullptr;
    QSpinBox *m_spin = nullptr;
    QSlider *m_slider = nullptr;
};

void tst_WheelGuard::init()
{
    qApp->installEventFilter(&m_guard);
    m_area = std::make_unique<QScrollArea>();
    auto *const inside = new QWidget;
    auto *const layout = new QVBoxLayout(inside);
    m_combo = new QComboBox;
    m_editable = new QComboBox;
    m_editable->setEditable(true);
    for (QComboBox *const box : {m_combo, m_editable})
        for (int i = 0; i < 60; ++i)
            box->addItem(QString::number(i));
    m_combo->setCurrentIndex(5);
    m_editable->setCurrentIndex(5);
    m_spin = new QSpinBox;
    m_spin->setValue(50);
    m_slider = new QSlider(Qt::Horizontal);
    m_slider->setValue(50);
    for (QWidget *const each : controls())
        layout->addWidget(each);
    layout->addSpacing(2000);
    m_area->setWidget(inside);
    m_area->resize(300, 300);
    m_area->show();
    QVERIFY(QTest::qWaitForWindowActive(m_area.get()));
}

void tst_WheelGuard::wheel_withoutFocus_changesNothingAndScrolls()
{
    m_area->setFocus();
    const QList<int> before = values();
    for (QWidget *const each : controls()) {
        m_area->verticalScrollBar()->setValue(0);
        turnWheel(*each);
        QCOMPARE(values(), before);
        QVERIFY(!each->hasFocus());
        QVERIFY2(m_area->verticalScrollBar()->value() > 0, each->metaObject()->className());
    }
}

void tst_WheelGuard::wheel_withFocus_changesTheValue()
{
    for (QWidget *const each : controls()) {
        each->setFocus();
        const QList<int> before = values();
        turnWheel(*each);
        QVERIFY(values() != before);
        QCOMPARE(m_area->verticalScrollBar()->value(), 0);
    }
}

void tst_WheelGuard::wheel_overAnOpenList_scrollsIt()
{
    m_combo->showPopup();
    QScrollBar *const bar = m_combo->view()->verticalScrollBar();
    const int before = bar->value();
    turnWheel(*m_combo->view()->viewport());
    QVERIFY(bar->value() > before);
    m_combo->hidePopup();
    QCOMPARE(m_combo->currentIndex(), 5);
}

void tst_WheelGuard::noControl_takesTheFocusByWheel()
{
    for (const QWidget *const each : controls()) {
        QVERIFY(each->focusPolicy() != Qt::WheelFocus);
        QVERIFY(each->focusPolicy() & Qt::TabFocus);
        QVERIFY(each->focusPolicy() & Qt::ClickFocus);
    }
}

ARDIPHON_TEST(tst_WheelGuard, QApplication)
#include "tst_WheelGuard.moc"
