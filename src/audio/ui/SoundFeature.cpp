#include "audio/ui/SoundFeature.h"

#include "audio/ui/FormPlayer.h"
#include "audio/ui/FormSNDInfo.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"

#include <QMainWindow>

namespace ardiphon {

void SoundFeature::install(FeatureHost &host)
{
    host.commands().bind("menuSndInfo", &host.owner(),
                         [&host] { FormSNDInfo(host.dialogs(), &host.owner()).exec(); });
    host.commands().bind("menuPlayer", &host.owner(), [&host] {
        FormPlayer(host.config(), host.dialogs(), &host.owner()).exec();
    });
}

} // namespace ardiphon
