#include "documents/ui/HalvesFeature.h"

#include "app/WindowMirror.h"
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
            const QRect workArea = host.owner().screen()->availableGeometry();
            mirrorWorkArea(host.config(), workArea);
            placer->place(halfOf(workArea, half));
        });
    };
    bind("menuWindowUp", ScreenHalf::Upper);
    bind("menuWindowDown", ScreenHalf::Lower);
    bind("menuWindowLeft", ScreenHalf::Left);
    bind("menuWindowRight", ScreenHalf::Right);
}

} // namespace ardiphon
