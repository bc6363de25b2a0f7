#pragma once

#include "workbench/ui/WindowFeature.h"

namespace ardiphon {

/// The forms of the analysis utilities, and the window that offers all of them.
class AnalysisFeature : public WindowFeature
{
public:
    void install(FeatureHost &host) override;
};

} // namespace ardiphon
