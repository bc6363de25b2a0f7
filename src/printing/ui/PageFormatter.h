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
/// is too long itself. A page costs what is on it, however long the text before and behind is.
class PageFormatter
{
public:
    /// \a box and \a device must outlive the formatter; \a device has the resolution.
    PageFormatter(const PrintText &box, QPaintDevice *device);

    /// Draws the text from character \a first on into \a area, in pixels of the device. Gives the
    /// first character that did not fit: always one behind \a first, as one line at least is drawn.
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
        qsizetype length; ///< so many characters are done with
        bool pageIsFull;
    };

    /// Draws a piece of a line of the text. When the piece \a goesOn behind its end, its last line
    /// is left, to be laid out with what follows.
    Rendered renderPiece(QPainter &painter, Room &room, const QString &piece, bool goesOn) const;

    const PrintText &m_box;
    const QFont m_font;
    QPaintDevice *const m_device;
    QTextOption m_option;
};

} // namespace ardiphon
