#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace ardiphon {

/// The standard stream that a program prints to.
enum class OutputChannel { Standard, Errors };

/// What is done with the output of a program without a window.
enum class OutputUse {
    Discarded,
    Lines,      ///< it is given line by line, each channel separately
    MergedLines ///< both channels are one, the standard one, in the order of printing
};

/// A line that a program has printed.
struct OutputLine
{
    OutputChannel channel = OutputChannel::Standard;
    QByteArray bytes; ///< without its line end, a LF or CR LF; else as printed, NUL bytes too
    /// Whether the line ends here: false where it is too long and goes on in the next piece, and
    /// where the output ends without a line end.
    bool isComplete = true;

    bool operator==(const OutputLine &) const = default;
};

/// How many bytes of a line are given at once where nothing else is asked for.
constexpr qsizetype LongestLine = qsizetype{1} << 20;

/// Makes lines from bytes that come in blocks. It keeps only the line that has no end yet, which is
/// never longer than the limit and one block.
class LineSplitter
{
public:
    /// A line longer than \a longestLine bytes is given in pieces of that length.
    explicit LineSplitter(OutputChannel channel = OutputChannel::Standard,
                          qsizetype longestLine = LongestLine);

    void add(QByteArrayView block);
    /// The next line or piece of one; nothing when the bytes so far contain no further line end.
    std::optional<OutputLine> next();
    /// The same when nothing more will be added, after next() has returned nothing: the last line
    /// without its end, then nothing.
    std::optional<OutputLine> rest();

private:
    OutputLine take(qsizetype length, qsizetype lineEnd);

    OutputChannel m_channel;
    qsizetype m_longest;
    QByteArray m_bytes;
    qsizetype m_start = 0;    ///< where the bytes not returned yet begin
    qsizetype m_searched = 0; ///< there is no LF before it
};

} // namespace ardiphon
