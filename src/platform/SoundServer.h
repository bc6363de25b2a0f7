#pragma once

namespace ardiphon {

/// Whether the sound server of this session can be reached. Also true where that cannot be known
/// without asking it, as for a server elsewhere in the network.
bool isSoundServerThere();

} // namespace ardiphon
