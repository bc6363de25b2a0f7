#pragma once

class QString;

namespace ardiphon {

class FeatureHost;
struct PiecePlace;

/// Puts the caret at \a place, in view and with nothing selected, and gives its editor the focus.
/// An editor that is hidden is shown. Does nothing where the window has no text of that role.
void goToPlace(FeatureHost &host, const PiecePlace &place);

/// The same for \a place in the included file \a file, which opens in a window of its own with the
/// caret in that line; "" is the piece itself. A failure is told to the user.
void goToPlace(FeatureHost &host, const PiecePlace &place, const QString &file);

} // namespace ardiphon
