#pragma once

#include <QRect>
#include <QString>

#include <optional>

namespace ardiphon {

/// The values of the editor's `FindDirection`.
namespace FindDirection {
inline constexpr int Up = 0;     ///< from the selection's start to the top
inline constexpr int Down = 1;   ///< from the selection's end to the bottom
inline constexpr int UpDown = 2; ///< as Down, and then from the top on
} // namespace FindDirection

/// The caller words, by which a search window knows the editor that it serves.
inline const QString CsdCaller = QStringLiteral("CSD");
inline const QString OrchestraCaller = QStringLiteral("ORCHESTRA");
inline const QString ScoreCaller = QStringLiteral("SCORE");

/// The caption of a search window: its title, and the editor where the window has two of them.
QString captionForCaller(const QString &title, const QString &caller);

/// How many characters of a text to find are used: as many as a field shows without delay.
inline constexpr int LongestFieldText = 250'000;

/// The text to find that a search window takes from a selection: without blanks at its ends, cut
/// after `LongestFieldText` characters. Tabs and line ends stay, as they are searched for.
QString fieldTextFromSelection(const QString &selection);

/// The line that a user asks for by \a text: the number rounded to the nearest whole one, a half to
/// the even neighbour, limited to an int. Empty when the text is not a number. Whether the document
/// has such a line is not checked.
std::optional<int> lineNumberFrom(const QString &text);

/// The place of a window that must not cover \a match: its present place if it does not, else the
/// nearest place within \a screen above, below or beside the match, with a little room between.
/// Where there is no such place it stays.
QPoint placeBesideMatch(const QRect &window, const QRect &match, const QRect &screen);

} // namespace ardiphon
