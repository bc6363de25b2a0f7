#pragma once

#include <functional>

namespace ardiphon {

/// The main windows of the program. A window opens the document that the configuration names.
enum class StartWindow { Chooser, FormCSD, FormORCSCO };

/// How other windows open an editor window, which they do not know.
struct EditorWindows
{
    std::function<void()> showFormCSD;
    std::function<void()> showFormORCSCO;

    /// Shows an editor window; nothing for the chooser.
    void show(StartWindow window) const;
};

} // namespace ardiphon
