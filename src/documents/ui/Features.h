#pragma once

#include "workbench/ui/WindowFeature.h"

#include <memory>
#include <vector>

namespace ardiphon {

/// Those of the features that every editor window has, made anew for one window, in the order in
/// which they are installed. A new one is a line in the source of this.
std::vector<std::unique_ptr<WindowFeature>> programFeatures();

} // namespace ardiphon
