#pragma once

namespace ardiphon {

/// Counts the notches of a wheel. Touchpads and fine wheels report a notch as many small turns,
/// which are added up here; a turn the other way starts again from zero.
class WheelNotches
{
public:
    /// \a delta in the system's unit, 120 to a notch, positive away from the user. Gives how many
    /// notches are full with it, with its sign.
    int turn(int delta);

private:
    int m_rest = 0; ///< the part of a notch that is turned so far
};

} // namespace ardiphon
