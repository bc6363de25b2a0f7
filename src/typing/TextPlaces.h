#pragma once

#include "language/TextChange.h"
#include "typing/TakenText.h"

#include <QList>
#include <QStringList>

#include <functional>
#include <optional>

namespace ardiphon {

/// A part of a line.
struct PlaceSpan
{
    int line = 1;
    int column = 0;
    int length = 0;

    bool contains(int atLine, int atColumn) const
    {
        return atLine == line && atColumn >= column && atColumn <= column + length;
    }
    friend bool operator==(const PlaceSpan &, const PlaceSpan &) = default;
};

/// The places of a text that was put in, one after the other to be filled in. They follow the
/// edits: what is typed in the present one makes it longer, and others move. An edit that tears one
/// apart, or adds or removes a line among them, ends them all.
class TextPlaces
{
public:
    /// Gives the text of a line.
    using LineText = std::function<QString(int line)>;

    /// \a taken stands in the text from there on; the first place is the present one.
    void begin(const TakenText &taken, int line, int column, const LineText &lineText);
    void end() { m_places.clear(); }
    bool isAlive() const { return !m_places.isEmpty(); }

    /// The lines have changed, as the editors tell it.
    void follow(const TextChange &change, const LineText &lineText);

    std::optional<PlaceSpan> current() const;
    /// Goes to the next place, or the one before. Behind the last one, and in front of the first,
    /// there is none; with the last one they end.
    std::optional<PlaceSpan> goNext();
    std::optional<PlaceSpan> goBack();
    /// Whether that is in one of the places, or at its end.
    bool contains(int line, int column) const;
    /// The other places of the present one's number, in their order.
    QList<PlaceSpan> partners() const;

private:
    struct Place
    {
        PlaceSpan span;
        int number = 1;
    };
    struct Edit
    {
        int line = 1;
        int from = 0;
        int removedTo = 0; ///< in the line as it was
        int more = 0;      ///< how many characters longer the line is
    };

    void followLine(const Edit &edit);
    static bool follow(Place &place, bool isCurrent, const Edit &edit);

    QList<Place> m_places;
    int m_current = 0;
    int m_firstLine = 1;
    QStringList m_lines; ///< those that the places are in
};

} // namespace ardiphon
