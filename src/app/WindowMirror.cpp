#include "app/WindowMirror.h"

#include "app/ConfigurationBlock.h"

namespace ardiphon {

void mirrorWorkArea(ConfigurationBlock &config, const QRect &area) { config.WorkArea = area; }

void mirrorArrangement(ConfigurationBlock &config, const QString &name)
{
    config.Arrangement = name;
}

void mirrorLeaving(ConfigurationBlock &config) { config.FormCSDClosing = true; }

} // namespace ardiphon
