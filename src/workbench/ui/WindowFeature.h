#pragma once

namespace ardiphon {

class FeatureHost;

/// Something that an editor window can do: commands with their handlers, a dock, keys, entries of
/// the popup menu. It is written once for both editor windows and knows neither of them.
class WindowFeature
{
public:
    WindowFeature() = default;
    WindowFeature(const WindowFeature &) = delete;
    WindowFeature &operator=(const WindowFeature &) = delete;
    virtual ~WindowFeature() = default;

    /// Adds the feature to the window of \a host, which outlives it. Called once, after the editors
    /// and the actions of the tables are made and before the menus are filled.
    virtual void install(FeatureHost &host) = 0;
};

} // namespace ardiphon
