#pragma once

#include <functional>

namespace ardiphon {

/// The windows in which the program can live. A window opens the document that the configuration
/// names.
enum class StartWindow { Chooser, FormCSD, FormORCSCO };

/// How a lower window opens an editor window.
struct EditorWindows
{
    std::function<void()> showFormCSD;
    std::function<void()> showFormORCSCO;

    /// Shows an editor window; nothing for the chooser.
    void show(StartWindow window) const;
};

} // namespace ardiphon
