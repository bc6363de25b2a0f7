#pragma once

namespace ardiphon {

class FeatureHost;
struct PiecePlace;

/// Puts the caret at \a place, in view and with nothing selected, and gives its editor the focus.
/// An editor that is hidden is shown. Does nothing where the window has no text of that role.
void goToPlace(FeatureHost &host, const PiecePlace &place);

} // namespace ardiphon
