#pragma once

#include <QString>

#include <optional>

namespace ardiphon {

/// A part of the text and the text that takes its place. A part that has line ends in it begins on
/// \a line at \a column, and ends \a lines below at the column \a length.
struct EditorEdit
{
    int line = 1;
    int column = 0;
    int length = 0;    ///< in characters
    QString text = {}; ///< line ends of any kind become those of the document
    int lines = 0;     ///< how many line ends are in the part
    /// Whether a caret that is where the part begins ends behind the text; else it stays before it.
    bool movesCaret = false;

    friend bool operator==(const EditorEdit &, const EditorEdit &) = default;
};

/// The blanks that Enter puts at the beginning of lines.
struct NewLineBlanks
{
    std::optional<QString> line; ///< those of the line that it ends, where they are to change
    QString next;                ///< those of the new line
};

} // namespace ardiphon
