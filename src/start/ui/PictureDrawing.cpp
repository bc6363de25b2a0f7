#include "start/ui/PictureDrawing.h"

#include "start/ui/ChooserColors.h"

#include <QPainter>
#include <QPainterPath>

#include <array>

namespace ardiphon {

namespace {

/// One line of writing on a page: where it begins, its length and its colour.
struct Stroke
{
    int left;
    int length;
    int ink;
};
using Writing = std::array<Stroke, 7>;

constexpr int TagInk = 0;
constexpr int CodeInk = 1;
constexpr int TextInk = 2;
constexpr int NoteInk = 3;

constexpr Writing CsdWriting{{{0, 18, TagInk},
                              {4, 26, CodeInk},
                              {4, 32, TextInk},
                              {4, 20, CodeInk},
                              {0, 22, TagInk},
                              {4, 30, NoteInk},
                              {0, 14, TagInk}}};
constexpr Writing OrchestraWriting{{{0, 14, CodeInk},
                                    {3, 19, TextInk},
                                    {3, 22, CodeInk},
                                    {3, 15, TextInk},
                                    {3, 20, CodeInk},
                                    {3, 12, TextInk},
                                    {0, 10, CodeInk}}};
constexpr Writing ScoreWriting{{{0, 20, NoteInk},
                                {0, 22, NoteInk},
                                {0, 16, TextInk},
                                {0, 22, NoteInk},
                                {0, 18, NoteInk},
                                {0, 22, TextInk},
                                {0, 8, NoteInk}}};

QColor inkColor(int ink, PictureState state)
{
    static const std::array<QColor, 4> colors{QColor(220, 0, 110), QColor(30, 70, 210),
                                              QColor(90, 100, 115), QColor(0, 140, 60)};
    const QColor color = colors[std::size_t(ink)];
    if (state != PictureState::Gray)
        return color;
    const int gray = 120 + qGray(color.rgb()) / 2;
    return QColor(gray, gray, gray);
}

void drawBack(QPainter &painter, const QRect &area, PictureState state)
{
    static const std::array<QColor, 3> fills{QColor(234, 237, 241), QColor(255, 255, 255),
                                             QColor(206, 219, 235)};
    static const std::array<QColor, 3> edges{QColor(208, 213, 220), QColor(84, 132, 190),
                                             QColor(47, 74, 109)};
    painter.setBrush(fills[std::size_t(state)]);
    painter.setPen(edges[std::size_t(state)]);
    painter.drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
}

/// A sheet with one corner folded and seven lines of writing.
void drawPage(QPainter &painter, const QRect &page, const Writing &writing, PictureState state)
{
    constexpr int fold = 10;
    const QRectF sheet = QRectF(page).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath outline(sheet.topLeft());
    outline.lineTo(sheet.right() - fold, sheet.top());
    outline.lineTo(sheet.right(), sheet.top() + fold);
    outline.lineTo(sheet.bottomRight());
    outline.lineTo(sheet.bottomLeft());
    outline.closeSubpath();
    painter.setPen(state == PictureState::Gray ? QColor(150, 155, 162) : QColor(70, 90, 115));
    painter.setBrush(state == PictureState::Gray ? QColor(248, 248, 248) : QColor(255, 254, 248));
    painter.drawPath(outline);
    painter.drawPolyline(QPolygonF{{sheet.right() - fold, sheet.top()},
                                   {sheet.right() - fold, sheet.top() + fold},
                                   {sheet.right(), sheet.top() + fold}});
    int top = page.top() + fold + 5;
    for (const Stroke &stroke : writing) {
        painter.fillRect(page.left() + 6 + stroke.left, top, stroke.length, 3,
                         inkColor(stroke.ink, state));
        top += 7;
    }
}

void drawCaption(QPainter &painter, const QRect &area, const QString &caption, PictureState state)
{
    QFont font = painter.font();
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(state == PictureState::Gray ? chooser::QuietText : chooser::Strip);
    painter.drawText(area, Qt::AlignCenter, caption);
}

void drawDocuments(QPainter &painter, const QRect &area, Picture picture, PictureState state)
{
    drawBack(painter, area, state);
    constexpr int captionHeight = 34;
    const int sunk = state == PictureState::Press ? 1 : 0;
    const QRect face = area.translated(sunk, sunk);
    const int top = face.top() + 18;
    const int middle = face.left() + face.width() / 2;
    if (picture == Picture::Csd) {
        drawPage(painter, QRect(middle - 26, top, 52, 70), CsdWriting, state);
    } else {
        drawPage(painter, QRect(middle - 42, top, 40, 70), OrchestraWriting, state);
        drawPage(painter, QRect(middle + 2, top, 40, 70), ScoreWriting, state);
    }
    drawCaption(painter,
                QRect(face.left(), area.bottom() - captionHeight, face.width(), captionHeight),
                picture == Picture::Csd ? QStringLiteral("CSD") : QStringLiteral("ORC/SCO"), state);
}

/// Draws the background of a small picture on the title strip; returns the colour of its sign.
QColor drawSmallBack(QPainter &painter, const QRect &area, const QColor &lit, PictureState state)
{
    if (state == PictureState::Gray)
        return QColor(178, 190, 205);
    painter.setPen(Qt::NoPen);
    painter.setBrush(state == PictureState::Press ? lit.darker(150) : lit);
    painter.drawRoundedRect(area, 4, 4);
    return Qt::white;
}

void drawClose(QPainter &painter, const QRect &area, PictureState state)
{
    const QColor sign = drawSmallBack(painter, area, QColor(214, 64, 60), state);
    painter.setPen(QPen(sign, 2, Qt::SolidLine, Qt::RoundCap));
    const QRectF cross = QRectF(area).adjusted(7, 7, -7, -7);
    painter.drawLine(cross.topLeft(), cross.bottomRight());
    painter.drawLine(cross.topRight(), cross.bottomLeft());
}

void drawInfo(QPainter &painter, const QRect &area, PictureState state)
{
    const QColor sign = drawSmallBack(painter, area, QColor(52, 128, 214), state);
    const QRectF ring = QRectF(area).adjusted(4, 4, -4, -4);
    painter.setPen(QPen(sign, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(ring);
    painter.fillRect(QRectF(ring.center().x() - 1, ring.top() + 3, 2, 2), sign);
    painter.fillRect(QRectF(ring.center().x() - 1, ring.top() + 6, 2, 5), sign);
}

} // namespace

QSize pictureSize(Picture picture)
{
    const bool large = picture == Picture::Csd || picture == Picture::OrcSco;
    return large ? QSize(116, 136) : QSize(22, 22);
}

void drawPicture(QPainter &painter, const QRect &area, Picture picture, PictureState state)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    switch (picture) {
    case Picture::Csd:
    case Picture::OrcSco:
        drawDocuments(painter, area, picture, state);
        break;
    case Picture::Close:
        drawClose(painter, area, state);
        break;
    case Picture::Info:
        drawInfo(painter, area, state);
        break;
    }
    painter.restore();
}

} // namespace ardiphon
