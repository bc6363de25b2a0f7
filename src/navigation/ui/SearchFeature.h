#pragma once

#include "workbench/ui/WindowFeature.h"

namespace ardiphon {

class Definitions;
class SearchWindows;

/// The search windows by menu, button and key, and the way from a name to its definition in the
/// first editor.
class SearchFeature : public WindowFeature
{
public:
    void install(FeatureHost &host) override;

    /// To be called after install() only.
    SearchWindows &windows() const { return *m_windows; }

private:
    void bindMenu(FeatureHost &host);
    void bindButtons(FeatureHost &host);
    void bindKeys(FeatureHost &host);
    void bindDefinitions(FeatureHost &host);

    SearchWindows *m_windows = nullptr;
    Definitions *m_definitions = nullptr;
};

} // namespace ardiphon
