#pragma once

#include "workbench/ui/WindowFeature.h"

namespace ardiphon {

/// The print entries for the texts of the window, and the margins of the page.
class PrintFeature : public WindowFeature
{
public:
    void install(FeatureHost &host) override;
};

} // namespace ardiphon
