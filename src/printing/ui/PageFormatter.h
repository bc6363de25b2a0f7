#pragma once

#include <QFont>
#include <QRectF>
#include <QString>
#include <QTextOption>

class QPainter;
class QPaintDevice;

namespace ardiphon {

/// A plain text as it is printed: in one font, with tab stops every \a tabSize characters.
struct PrintText
{
    QString text;
    QFont font;
    int tabSize = 8;
};

/// Breaks a text into pages. Lines that are too long break between words, or anywhere where a word
/// is too long itself. The time for a page depends on what is on it, not on the length of the text
/// before and after it.
class PageFormatter
{
public:
    /// \a box and \a device must outlive the formatter; \a device has the resolution.
    PageFormatter(const PrintText &box, QPaintDevice *device);

    /// Draws the text from character \a first on into \a area, in pixels of the device. Returns the
    /// first character that did not fit; it is always after \a first, as at least one line is
    /// drawn.
    qsizetype render(QPainter &painter, const QRectF &area, qsizetype first) const;

private:
    /// The part of a page that is still free.
    struct Room
    {
        QRectF area;
        double top = 0;
        bool holds(double height) const
        {
            return top <= area.top() || top + height <= area.bottom();
        }
    };

    struct Rendered
    {
        qsizetype length; ///< how many characters are finished
        bool pageIsFull;
    };

    /// Draws a piece of a line of the text. When the text \a goesOn after the piece, the piece's
    /// last line is left, to be laid out with what follows.
    Rendered renderPiece(QPainter &painter, Room &room, const QString &piece, bool goesOn) const;

    const PrintText &m_box;
    const QFont m_font;
    QPaintDevice *const m_device;
    QTextOption m_option;
};

} // namespace ardiphon
