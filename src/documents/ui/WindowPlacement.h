#pragma once

class QWidget;

namespace ardiphon {

struct ConfigurationBlock;

// The placement that one editor window passes to the next, in the configuration.

/// Keeps the placement of \a window for the one that is shown next.
void TrovaPosForm(const QWidget &window, ConfigurationBlock &config);

/// Maximises \a window, or gives it the placement that was kept.
void takePlacement(QWidget &window, const ConfigurationBlock &config);

} // namespace ardiphon
