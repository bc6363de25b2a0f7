#pragma once

#include <QByteArrayView>

namespace ardiphon {

/// The lines of a text, for a reader that takes a few at a time.
class LineSource
{
public:
    virtual ~LineSource() = default;

    /// At least 1: an empty text is one empty line.
    virtual int lineCount() const = 0;
    /// The UTF-8 bytes of \a line, 1 to lineCount(), without its end. Valid until the next call or
    /// until the text changes.
    virtual QByteArrayView line(int line) const = 0;
};

} // namespace ardiphon
