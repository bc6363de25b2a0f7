#pragma once

#include <QString>

namespace ardiphon {

/// The number that \a text begins with: blanks, a sign, digits with one point and an exponent are
/// read as far as they go. 0 when the text begins with no number.
double leadingNumber(QStringView text);

/// Whether the whole of \a text is one number: perhaps a sign, digits with at most one point,
/// perhaps an exponent, blanks around it allowed.
bool isNumber(const QString &text);

/// \a number rounded to the nearest whole number, a half to the even neighbour, limited to
/// [\a lowest, \a highest].
int roundedWithin(double number, int lowest, int highest);

} // namespace ardiphon
