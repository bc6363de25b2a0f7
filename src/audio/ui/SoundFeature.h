#pragma once

#include "workbench/ui/WindowFeature.h"

namespace ardiphon {

/// The wave player and the window that tells what is in a sound file.
class SoundFeature : public WindowFeature
{
public:
    void install(FeatureHost &host) override;
};

} // namespace ardiphon
