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

    /// Joins the feature to the window of \a host, which outlives it. Runs once, when the editors
    /// and the actions of the tables are made and the menus are not filled yet.
    virtual void install(FeatureHost &host) = 0;
};

} // namespace ardiphon
