#pragma once

#include <QRect>
#include <QString>

#include <optional>

namespace ardiphon {

/// The values that the editor's `FindDirection` takes.
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

/// As many characters of a text to find are taken as a field still shows without delay.
inline constexpr int LongestFieldText = 250'000;

/// What a search window takes over from a selection: the text without the blanks around it, cut
/// behind `LongestFieldText` characters. Tabs and line ends belong to what is searched for.
QString fieldTextFromSelection(const QString &selection);

/// The line that a user asks for by \a text: its number rounded to the nearest whole one, a half to
/// the even neighbour, kept within an int. Empty when the text is no number. Whether the document
/// has such a line is not looked at.
std::optional<int> lineNumberFrom(const QString &text);

/// Where a window is to stand that must not cover \a match: where it stands if it does not, else at
/// the nearest place above, below or beside the match, with a little room between and within
/// \a screen. Where no such place is left it stays.
QPoint placeBesideMatch(const QRect &window, const QRect &match, const QRect &screen);

} // namespace ardiphon
