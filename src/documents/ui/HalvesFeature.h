#pragma once

#include "workbench/ui/WindowFeature.h"

namespace ardiphon {

/// Moves the window to one half of the screen's work area, whatever its state.
class HalvesFeature : public WindowFeature
{
public:
    void install(FeatureHost &host) override;
};

} // namespace ardiphon
