#pragma once

#include <QString>
#include <QWidget>

namespace ardiphon {

class LEditOCX;
struct ConfigurationBlock;

/// The line numbers beside an editor. A press on a number selects its line.
class Gutter : public QWidget
{
    Q_OBJECT

public:
    /// It shows numbers while \a config has them visible.
    Gutter(LEditOCX &editor, const ConfigurationBlock &config, QWidget *parent);

    /// Takes the name and size of the editor's font.
    void takeFont();
    /// The width of the text "000000" in the gutter's font, in pixels; from a million lines on, of
    /// as many zeros as a number has digits.
    int textWidth() const;

signals:
    /// The number of digits has changed, and with it textWidth().
    void textWidthChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void followView();
    void selectLine(int line);

    LEditOCX &m_editor;
    const ConfigurationBlock &m_config;
    // As they were when the view last changed.
    QString m_fontName;
    double m_fontSize = 0;
    int m_topLine = 1;
    int m_lineHeight = 0;
    int m_digits = 0;
};

} // namespace ardiphon
