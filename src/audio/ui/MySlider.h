#pragma once

#include <QWidget>

namespace ardiphon {

/// A horizontal slider that jumps to where its track is pressed. Its height is fixed.
class MySlider : public QWidget
{
    Q_OBJECT

public:
    explicit MySlider(QWidget *parent = nullptr);

    /// The thumb's width in pixels: its left edge goes from 0 to the control's width minus this.
    static constexpr int ThumbWidth = 16;

    int Value() const { return m_value; }
    int Max() const { return m_max; }
    int Min() const { return m_min; }
    /// Sets the value to \a value, limited to 0 to Max, and moves the thumb; with a Max of 0 the
    /// thumb stays. Emits nothing.
    void SetValue(int value);
    /// Only stores it: the thumb follows with the next value.
    void SetMax(int max) { m_max = max; }
    /// Only stores it: the lower bound is always 0.
    void SetMin(int min) { m_min = min; }

    /// The thumb's left edge, in pixels.
    double thumbLeft() const { return m_thumbLeft; }

    QSize sizeHint() const override;

signals:
    /// The thumb was dragged; Value() is the new value already.
    void Scroll();
    /// The track was pressed outside the thumb, or a key moved the thumb; Value() is the new value.
    void Click();
    /// A mouse button was pressed on the thumb, or released after such a press.
    void MouseDown();
    void MouseUp();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    int thumbSpan() const;
    bool isOnThumb(double x) const;
    void moveThumb(double left);
    bool keyStep(int key, qint64 &value) const;

    int GrabOffset = 0; ///< at the press, the cursor's x minus the thumb's left edge
    int m_value = 0;
    int m_max = 0;
    int m_min = 0;
    int TrackPixels = 0;
    double m_thumbLeft = 0;
    bool m_grabbed = false;
};

} // namespace ardiphon
