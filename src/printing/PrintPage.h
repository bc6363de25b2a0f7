#pragma once

#include "platform/PrinterPage.h"

#include <QLine>
#include <QPoint>
#include <QRect>
#include <QString>

namespace ardiphon {

struct ConfigurationBlock;

/// Print margins in twips, measured from the edges of the paper.
struct PrintMargins
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// How many twips a millimetre of a print margin counts.
inline constexpr int TwipsPerMillimetre = 57;

/// The room between the top margin and the text, for the header.
inline constexpr int HeaderRoom = 570;

/// The margins of \a config, which has them in millimetres.
PrintMargins printMargins(const ConfigurationBlock &config);

/// Where the text of every page is, in twips from the corner of the printer's scale. Empty
/// when the margins leave no room.
QRect textRectangle(const PrinterPage &page, const PrintMargins &margins);

/// The rule across the whole width of the scale, at the top margin.
QLine headerRule(const PrinterPage &page, const PrintMargins &margins);

/// The part of \a path after its last "/"; the whole path when it has none.
QString printedName(const QString &path);

/// The line above the rule of page \a number.
QString headerLine(const QString &name, int number);

} // namespace ardiphon
