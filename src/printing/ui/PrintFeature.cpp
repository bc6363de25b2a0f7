#include "printing/ui/PrintFeature.h"

#include "printing/ui/FormImpostaMargini.h"
#include "printing/ui/PrintEntries.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"

#include <QMainWindow>

namespace ardiphon {

namespace {

PrintEntries entriesOf(const FeatureHost &host)
{
    return {host.config(), host.dialogs(), *host.views().constFirst().editor};
}

PrintSource sourceOf(const FeatureHost &host, ViewLanguage language)
{
    return {*host.editor(language), host.documentPath(language)};
}

void bindDocument(FeatureHost &host, const char *name, ViewLanguage language)
{
    host.commands().bind(name, &host.owner(), [&host, language] {
        entriesOf(host).printDocument(sourceOf(host, language));
    });
}

} // namespace

void PrintFeature::install(FeatureHost &host)
{
    host.commands().bind("menuFileMargineStampa", &host.owner(), [&host] {
        FormImpostaMargini(host.config(), host.dialogs(), &host.owner()).exec();
    });
    if (host.editor(ViewLanguage::Csd))
        return bindDocument(host, "menuFileStampaOrchestra", ViewLanguage::Csd);
    bindDocument(host, "menuFileStampaOrchestra", ViewLanguage::Orchestra);
    bindDocument(host, "menuFileStampaScore", ViewLanguage::Score);
    host.commands().bind("menuFileStampaProgetto", &host.owner(), [&host] {
        entriesOf(host).printProject(sourceOf(host, ViewLanguage::Orchestra),
                                     sourceOf(host, ViewLanguage::Score));
    });
}

} // namespace ardiphon
