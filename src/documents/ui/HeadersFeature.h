#pragma once

#include "workbench/ui/WindowFeature.h"

namespace ardiphon {

/// The ready-made headers, and the empty CSD where the window holds one, inserted at the caret.
class HeadersFeature : public WindowFeature
{
public:
    void install(FeatureHost &host) override;
};

} // namespace ardiphon
