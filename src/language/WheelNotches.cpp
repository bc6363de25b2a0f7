#include "language/WheelNotches.h"

namespace ardiphon {

int WheelNotches::turn(int delta)
{
    constexpr int notch = 120;
    const bool turnedBack = (delta > 0 && m_rest < 0) || (delta < 0 && m_rest > 0);
    const int sum = turnedBack ? delta : m_rest + delta;
    m_rest = sum % notch;
    return sum / notch;
}

} // namespace ardiphon
