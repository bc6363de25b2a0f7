#pragma once

#include <QWidget>

namespace ardiphon {

class LEditOCX;

/// The line numbers beside an editor. A press on a number selects its line.
class Gutter : public QWidget
{
    Q_OBJECT

public:
    Gutter(LEditOCX &editor, QWidget *parent);

    /// Takes the name and size of the editor's font.
    void takeFont();
    /// The width of the text "000000" in the gutter's font, in pixels.
    int textWidth() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void selectLine(int line);

    LEditOCX &m_editor;
};

} // namespace ardiphon
