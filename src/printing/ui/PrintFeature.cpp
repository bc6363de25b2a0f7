#include "printing/ui/PrintFeature.h"

#include "printing/ui/FormImpostaMargini.h"
#include "printing/ui/PrintEntries.h"
#include "workbench/Document.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"

#include <QMainWindow>

namespace ardiphon {

namespace {

PrintEntries entriesOf(const FeatureHost &host)
{
    return {host.config(), host.dialogs(), *host.views().constFirst().editor};
}

PrintSource sourceOf(const FeatureHost &host, DocumentRole role)
{
    return {*host.editor(role), host.document(role)->name()};
}

void bindDocument(FeatureHost &host, const char *name, DocumentRole role)
{
    host.commands().bind(name, &host.owner(),
                         [&host, role] { entriesOf(host).printDocument(sourceOf(host, role)); });
}

} // namespace

void PrintFeature::install(FeatureHost &host)
{
    host.commands().bind("menuFileMargineStampa", &host.owner(), [&host] {
        FormImpostaMargini(host.config(), host.dialogs(), &host.owner()).exec();
    });
    if (host.editor(DocumentRole::Csd))
        return bindDocument(host, "menuFileStampaOrchestra", DocumentRole::Csd);
    bindDocument(host, "menuFileStampaOrchestra", DocumentRole::Orchestra);
    bindDocument(host, "menuFileStampaScore", DocumentRole::Score);
    host.commands().bind("menuFileStampaProgetto", &host.owner(), [&host] {
        entriesOf(host).printProject(sourceOf(host, DocumentRole::Orchestra),
                                     sourceOf(host, DocumentRole::Score));
    });
}

} // namespace ardiphon
