#pragma once

#include "workbench/ui/WindowFeature.h"

namespace ardiphon {

/// The wave player and the window that shows the header of a wave file.
class SoundFeature : public WindowFeature
{
public:
    void install(FeatureHost &host) override;
};

} // namespace ardiphon
