#pragma once

#include "audio/Peaks.h"

#include <QWidget>

#include <memory>

namespace ardiphon {

class OutlineReader;

/// Draws the outline of a sound file, a lane for each channel, with the play position as a line.
class WaveOutline : public QWidget
{
    Q_OBJECT

public:
    explicit WaveOutline(QWidget *parent);
    ~WaveOutline() override;

    /// Starts to read the outline of that file, in the background.
    void read(const QString &path);
    /// Clears the outline and closes the file.
    void clear();
    /// Closes the file and shows \a words instead of an outline.
    void say(const QString &words);
    /// Moves the line to \a position of a file of \a length; both in the same unit.
    void setPosition(int position, int length);

    const Peaks &peaks() const { return m_peaks; }
    /// The words shown instead of an outline; "" for none.
    const QString &words() const { return m_words; }
    bool isReading() const;
    /// Where the line is drawn, in pixels.
    double linePlace() const { return m_place * width(); }

    QSize sizeHint() const override { return {420, 72}; }

signals:
    /// The left button was pressed at \a place, from 0 at the beginning to 1 at the end.
    void pressed(double place);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void takePeaks();
    void updateLine();
    void drawLane(QPainter &painter, const QRectF &lane, int channel, const QRect &part) const;

    std::unique_ptr<OutlineReader> m_reader;
    Peaks m_peaks;
    QString m_words;
    double m_place = 0;
};

} // namespace ardiphon
