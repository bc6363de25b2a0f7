#pragma once

#include <QString>

namespace ardiphon {

/// How much of a page can be laid out while the user waits. Time grows with the depth of nested
/// elements (it doubles with each level of tables), with the cells of tables and the items of a
/// list, and with the length of a word.
struct ManualBounds
{
    int tables = 4;           ///< in each other
    int elements = 48;        ///< in each other
    int items = 2'000;        ///< of one list
    int cells = 6'000;        ///< and rows, of all tables
    int tags = 40'000;        ///< of the page
    int characters = 600'000; ///< of the page's text
    int word = 1'000;         ///< characters without a blank
};

/// A page within its bounds.
struct BoundedPage
{
    QString html;
    bool whole = true; ///< else it ends before the page does
};

/// \a html within \a bounds: what is nested too deep loses its tags but no text, a longer word may
/// be broken anywhere, and the page ends where one of the other bounds is reached. A page that
/// keeps them all is given back as it is.
BoundedPage boundedManualPage(const QString &html, const ManualBounds &bounds = {});

} // namespace ardiphon
