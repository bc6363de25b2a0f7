#pragma once

#include "workbench/ui/WindowFeature.h"

#include <memory>

namespace ardiphon {

class KeywordHelp;

/// The manual at a word, by key, menu and popup; the program's own help, and its About window.
class HelpFeature : public WindowFeature
{
public:
    HelpFeature();
    ~HelpFeature() override;

    void install(FeatureHost &host) override;

private:
    void bindManual(FeatureHost &host);
    void bindViews(FeatureHost &host);

    std::unique_ptr<KeywordHelp> m_help;
};

} // namespace ardiphon
