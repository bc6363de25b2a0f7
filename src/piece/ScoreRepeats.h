#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>

#include <optional>
#include <vector>

namespace ardiphon {

/// The marked parts of a score (m), and those that are being repeated (n). Lines are kept from the
/// first mark on.
class ScoreRepeats
{
public:
    struct Line
    {
        QByteArrayView text; ///< valid until the next change
        int number = 1;      ///< in the source
    };

    /// The lines that come now are those behind the mark \a name, unless there is one of that name.
    void mark(const QByteArray &name);
    /// Keeps a line for the repeats to come.
    void record(QByteArrayView text, int number);

    /// Begins to repeat what is behind the mark \a name, if there is one.
    void begin(const QByteArray &name);
    bool isRepeating() const { return !m_repeats.empty(); }
    /// The next line of the innermost repeat; nothing where no more are kept.
    std::optional<Line> next();
    /// Leaves the innermost repeat.
    void end() { m_repeats.pop_back(); }

    /// Whether there are more lines, marks or repeats than are kept.
    bool isTruncated() const { return m_isTruncated; }
    qsizetype bytes() const;

private:
    struct Mark
    {
        qsizetype at = 0;   ///< in m_text
        qsizetype line = 0; ///< in m_numbers
    };

    QHash<QByteArray, Mark> m_marks;
    QByteArray m_text;
    std::vector<int> m_numbers;
    std::vector<Mark> m_repeats; ///< where they are
    qint64 m_count = 0;          ///< of the characters that were repeated
    bool m_isTruncated = false;
};

} // namespace ardiphon
