#include "printing/ui/PageFormatter.h"

#include "language/LineEnds.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QTextLayout>

namespace ardiphon {

namespace {

// How much of a very long line is laid out at once.
constexpr qsizetype PieceLength = 1 << 13;

qsizetype lineEnd(const QString &text, qsizetype from, qsizetype limit)
{
    while (from < limit && !isLineEnd(text[from]))
        ++from;
    return from;
}

/// Converts pixels of the device to pixels of the screen, in which layouts take their tab stops.
double screenPixels(double pixels, const QPaintDevice &device)
{
    const int screen = qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchY());
    return pixels * screen / device.logicalDpiY();
}

/// The place after the line end at \a at, or the end of the text.
qsizetype nextLine(const QString &text, qsizetype at)
{
    return qMin(at + (QStringView(text).mid(at).startsWith(QLatin1String("\r\n")) ? 2 : 1),
                text.size());
}

} // namespace

PageFormatter::PageFormatter(const PrintText &box, QPaintDevice *device)
    : m_box(box), m_font(box.font, device), m_device(device)
{
    m_option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    const double blank = QFontMetricsF(m_font, device).horizontalAdvance(u' ');
    m_option.setTabStopDistance(screenPixels(box.tabSize * blank, *device));
}

qsizetype PageFormatter::render(QPainter &painter, const QRectF &area, qsizetype first) const
{
    const QString &text = m_box.text;
    Room room{area, area.top()};
    qsizetype at = first;
    while (at < text.size()) {
        const qsizetype end = lineEnd(text, at, qMin(at + PieceLength, text.size()));
        const bool goesOn = end < text.size() && !isLineEnd(text[end]);
        const Rendered rendered = renderPiece(painter, room, text.mid(at, end - at), goesOn);
        at += rendered.length;
        if (rendered.pageIsFull)
            break;
        if (!goesOn)
            at = nextLine(text, at);
    }
    return at;
}

PageFormatter::Rendered PageFormatter::renderPiece(QPainter &painter, Room &room,
                                                   const QString &piece, bool goesOn) const
{
    QTextLayout layout(piece, m_font, m_device);
    layout.setTextOption(m_option);
    layout.setCacheEnabled(true); // it is drawn after it is laid out
    Rendered rendered{0, false};
    int lines = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(room.area.width());
        const qsizetype end = line.textStart() + line.textLength();
        if (goesOn && end == piece.size() && line.textStart() > 0)
            break;
        rendered.pageIsFull = !room.holds(line.height());
        if (rendered.pageIsFull)
            break;
        line.setPosition({room.area.left(), room.top});
        room.top += line.height();
        rendered.length = end;
        ++lines;
    }
    layout.endLayout();
    for (int i = 0; i < lines; ++i)
        layout.lineAt(i).draw(&painter, {});
    return rendered;
}

} // namespace ardiphon
