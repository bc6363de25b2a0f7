#pragma once

#include "workbench/ui/WindowFeature.h"

namespace ardiphon {

/// The three compilers, for the CSD or the project that the window holds.
class CompileFeature : public WindowFeature
{
public:
    void install(FeatureHost &host) override;
};

} // namespace ardiphon
