#pragma once

namespace ardiphon {

/// Whether the sound server of this session can be talked to. True too where that cannot be told
/// without asking it, as for a server elsewhere in the network.
bool isSoundServerThere();

} // namespace ardiphon
