#include "audio/ui/WaveOutline.h"

#include "audio/ui/OutlineReader.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace ardiphon {

WaveOutline::WaveOutline(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumHeight(48);
}

WaveOutline::~WaveOutline() = default;

void WaveOutline::read(const QString &path)
{
    clear();
    m_reader = std::make_unique<OutlineReader>(path);
    connect(m_reader.get(), &OutlineReader::progressed, this, &WaveOutline::takePeaks);
    // Not at a lower priority: where other programs keep the processors busy, it would be
    // interrupted while it holds the lock that the window waits for.
    m_reader->start();
}

void WaveOutline::clear() { say({}); }

void WaveOutline::say(const QString &words)
{
    m_reader.reset();
    m_peaks = {};
    m_place = 0;
    m_words = words;
    setAccessibleDescription(words);
    update();
}

bool WaveOutline::isReading() const { return m_reader && m_reader->isRunning(); }

void WaveOutline::takePeaks()
{
    if (!m_reader) // the signal is from a file that was closed meanwhile
        return;
    m_peaks = m_reader->peaks();
    update();
}

void WaveOutline::setPosition(int position, int length)
{
    const double place = length > 0 ? std::clamp(double(position) / length, 0.0, 1.0) : 0.0;
    if (qRound(place * width()) == qRound(linePlace()))
        return; // called 20 times a second, but the line moves slowly in a long file
    updateLine();
    m_place = place;
    updateLine();
}

void WaveOutline::updateLine() { update(qRound(linePlace()) - 1, 0, 3, height()); }

void WaveOutline::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && width() > 0)
        emit pressed(std::clamp(event->position().x() / width(), 0.0, 1.0));
}

void WaveOutline::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().base());
    const int channels = m_peaks.columns() > 0 ? m_peaks.channels() : 0;
    for (int channel = 0; channel < channels; ++channel) {
        const double height = double(this->height()) / channels;
        drawLane(painter, QRectF(0, channel * height, width(), height), channel, event->rect());
    }
    if (channels > 0)
        painter.fillRect(QRectF(qRound(linePlace()), 0, 1, height()), palette().text());
    if (!m_words.isEmpty()) {
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(rect().adjusted(8, 2, -8, -2), Qt::AlignCenter | Qt::TextWordWrap,
                         m_words);
    }
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

/// One bar for each pixel of the screen within \a part, at least a line thick.
void WaveOutline::drawLane(QPainter &painter, const QRectF &lane, int channel,
                           const QRect &part) const
{
    const double pixel = 1 / devicePixelRatioF();
    const double middle = lane.center().y();
    const double half = lane.height() / 2 - 1;
    const int begin = std::max(0, part.x());
    const double end = std::min<double>(lane.width(), part.x() + part.width());
    const int bars = static_cast<int>(std::ceil((end - begin) / pixel));
    for (int bar = 0; bar < bars; ++bar) {
        const double x = begin + bar * pixel;
        const int first = static_cast<int>(x / lane.width() * m_peaks.columns());
        const int last = static_cast<int>((x + pixel) / lane.width() * m_peaks.columns());
        const Peak peak = m_peaks.over(std::min(first, m_peaks.columns() - 1),
                                       std::min(last, m_peaks.columns()), channel);
        const double top = middle - double(peak.high) * half;
        const double bottom = std::max(middle - double(peak.low) * half, top + pixel);
        painter.fillRect(QRectF(x, top, pixel, bottom - top), palette().highlight());
    }
}

} // namespace ardiphon
