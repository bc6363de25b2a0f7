#pragma once

#include "workbench/ui/WindowFeature.h"

#include <memory>
#include <vector>

namespace ardiphon {

/// New objects of the features that every editor window has, in the order in which they are
/// installed. A new feature is one more line in the source of this function.
std::vector<std::unique_ptr<WindowFeature>> programFeatures();

} // namespace ardiphon
