#pragma once

#include "workbench/ui/WindowFeature.h"

namespace ardiphon {

/// Programs of the system: a command line and a calculator.
class ProgramsFeature : public WindowFeature
{
public:
    void install(FeatureHost &host) override;
};

} // namespace ardiphon
