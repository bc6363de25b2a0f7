#include "documents/ui/HalvesFeature.h"

#include "app/ConfigurationBlock.h"
#include "documents/ScreenHalves.h"
#include "documents/ui/FramePlacer.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"

#include <QMainWindow>
#include <QScreen>

namespace ardiphon {

void HalvesFeature::install(FeatureHost &host)
{
    auto *const placer = new FramePlacer(host.owner());
    const auto bind = [&host, placer](const char *name, ScreenHalf half) {
        host.commands().bind(name, placer, [&host, placer, half] {
            host.config().WorkArea = host.owner().screen()->availableGeometry();
            placer->place(halfOf(host.config().WorkArea, half));
        });
    };
    bind("menuWindowUp", ScreenHalf::Upper);
    bind("menuWindowDown", ScreenHalf::Lower);
    bind("menuWindowLeft", ScreenHalf::Left);
    bind("menuWindowRight", ScreenHalf::Right);
}

} // namespace ardiphon
