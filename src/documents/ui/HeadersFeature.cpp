#include "documents/ui/HeadersFeature.h"

#include "documents/Headers.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"

#include <QMainWindow>

namespace ardiphon {

void HeadersFeature::install(FeatureHost &host)
{
    CommandSet &commands = host.commands();
    QList<QAction *> actions;
    for (const Header &header : headers()) {
        commands.add({header.name, header.caption});
        commands.bind(header.name, &host.owner(),
                      [&host, &header] { host.insertText(headerText(header)); });
        actions.append(commands.action(header.name));
    }
    commands.addGroup("menuHeaders", actions);
    if (commands.has("menuTemplateCSD"))
        commands.bind("menuTemplateCSD", &host.owner(),
                      [&host] { host.insertText(csdTemplate()); });
}

} // namespace ardiphon
