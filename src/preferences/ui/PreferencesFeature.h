#pragma once

#include "workbench/ui/WindowFeature.h"

namespace ardiphon {

/// The settings, and the font and its size in the editors of the window.
class PreferencesFeature : public WindowFeature
{
public:
    void install(FeatureHost &host) override;
};

} // namespace ardiphon
