#include "documents/DocumentMirror.h"

#include "app/ConfigurationBlock.h"
#include "workbench/Document.h"

namespace ardiphon {

namespace {

struct Fields
{
    QString ConfigurationBlock::*name;
    bool ConfigurationBlock::*bookmarksChanged;
};

Fields fieldsOf(DocumentRole role)
{
    switch (role) {
    case DocumentRole::Orchestra:
        return {&ConfigurationBlock::OrchestraFileName, &ConfigurationBlock::OrchestraModified};
    case DocumentRole::Score:
        return {&ConfigurationBlock::ScoreFileName, &ConfigurationBlock::ScoreModified};
    case DocumentRole::Csd:
        break;
    }
    return {&ConfigurationBlock::CSDFileName, &ConfigurationBlock::CSDModified};
}

} // namespace

void mirrorDocument(ConfigurationBlock &config, const Document &document)
{
    config.*fieldsOf(document.role()).name = document.name();
}

void mirrorBookmarks(ConfigurationBlock &config, DocumentRole role, bool changed)
{
    config.*fieldsOf(role).bookmarksChanged = changed;
}

} // namespace ardiphon
