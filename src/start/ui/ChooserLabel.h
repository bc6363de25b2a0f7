#pragma once

#include <QLabel>

namespace ardiphon {

/// A line of text in a chooser, drawn on one line: a text that is too long is shown without its
/// middle, while text() stays whole. With an access key, "&" underlines the letter after it.
class ChooserLabel : public QLabel
{
    Q_OBJECT

public:
    /// \a width: the least width, in logical pixels.
    ChooserLabel(const QString &text, int width, QWidget *parent);

    void showAccessKey() { m_accessKey = true; }

    /// Whether the background is opaque, as when the mouse is over the label.
    bool isLit() const { return m_lit; }
    void setLit(bool lit);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// The mouse moves over the label.
    void mouseMoved();
    void clicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    int m_width;
    bool m_accessKey = false;
    bool m_lit = false;
};

} // namespace ardiphon
