#pragma once

namespace ardiphon {

/// Counts the notches of a wheel. Touchpads and fine wheels tell a notch in many small turns, which
/// add up here; a turn the other way begins anew.
class WheelNotches
{
public:
    /// \a delta in the system's unit, 120 to a notch, positive away from the user. Gives how many
    /// notches are full with it, with its sign.
    int turn(int delta);

private:
    int m_rest = 0; ///< what no notch was given for yet
};

} // namespace ardiphon
