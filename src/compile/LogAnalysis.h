#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace ardiphon {

/// The document of a line for which a compiler reports an error.
enum class ErrorTarget { None, Orchestra, Score };

struct ErrorPlace
{
    ErrorTarget target = ErrorTarget::None;
    int line = 0; ///< as in the log; the document need not have such a line

    bool operator==(const ErrorPlace &) const = default;
};

/// What a log says of its first error.
struct LogFinding
{
    /// The words to select in the log, as a part of its text: from the word that was found to the
    /// end of its line. A start of -1: none was found.
    qsizetype start = -1;
    qsizetype length = 0;
    std::optional<ErrorPlace> place; ///< where the error is, if those words say it

    bool operator==(const LogFinding &) const = default;
};

/// Searches \a text, whose line ends are CR LF, for the first error. The kinds of errors are tried
/// in a fixed order, and the first that occurs decides, whether or not it names a line.
LogFinding findLogError(const QString &text);

/// The place that line \a index of a log names: a number after the word "line", together with the
/// file name of \a orchestra or \a score. The compiler writes the two on one line, or the file on
/// the line below, in words that begin with "from file"; both lines name the place then. \a lines
/// need not be the whole log: LinesAround on either side are enough.
std::optional<ErrorPlace> placeNamedAt(const QStringList &lines, qsizetype index,
                                       const QString &orchestra, const QString &score);

inline constexpr int LinesAround = 3;

} // namespace ardiphon
