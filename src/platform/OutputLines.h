#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace ardiphon {

/// Where a program prints.
enum class OutputChannel { Standard, Errors };

/// What becomes of what a program without a window prints.
enum class OutputUse {
    Discarded,
    Lines,      ///< it is told by line, of each channel by itself
    MergedLines ///< both channels are one, the standard one, in the order of printing
};

/// A line that a program has printed.
struct OutputLine
{
    OutputChannel channel = OutputChannel::Standard;
    QByteArray bytes; ///< without its line end, a LF or CR LF; else as printed, NUL bytes too
    /// Whether the line ends here: not where it goes on in the next one, as it is longer than is
    /// told at once, nor where the output ends without a line end.
    bool isComplete = true;

    bool operator==(const OutputLine &) const = default;
};

/// How many bytes of a line are told at once where nobody says otherwise.
constexpr qsizetype LongestLine = qsizetype{1} << 20;

/// Makes lines of bytes that come in blocks. Of what was added it keeps the line that has no end
/// yet, which is never longer than the limit and one block.
class LineSplitter
{
public:
    /// What is longer than \a longestLine bytes comes in pieces of that length.
    explicit LineSplitter(OutputChannel channel = OutputChannel::Standard,
                          qsizetype longestLine = LongestLine);

    void add(QByteArrayView block);
    /// The next line or piece of one; nothing when what there is has no end yet.
    std::optional<OutputLine> next();
    /// The same when nothing more will be added: what is left when next() has nothing more, until
    /// there is nothing.
    std::optional<OutputLine> rest();

private:
    OutputLine take(qsizetype length, qsizetype lineEnd);

    OutputChannel m_channel;
    qsizetype m_longest;
    QByteArray m_bytes;
    qsizetype m_start = 0;    ///< of what has not been given yet
    qsizetype m_searched = 0; ///< no LF stands before it
};

} // namespace ardiphon
