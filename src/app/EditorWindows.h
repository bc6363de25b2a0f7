#pragma once

#include <QString>

#include <functional>

namespace ardiphon {

/// The main windows of the program. A window opens the document that the configuration names.
enum class StartWindow { Chooser, FormCSD, FormORCSCO };

/// How other windows open an editor window, which they do not know.
struct EditorWindows
{
    std::function<void()> showFormCSD;
    std::function<void()> showFormORCSCO;
    /// Opens the file at a path in an editor window of its own, which outlives this program, with
    /// the caret in that line. False where that fails.
    std::function<bool(const QString &path, int line)> openFile = {};

    /// Shows an editor window; nothing for the chooser.
    void show(StartWindow window) const;
};

} // namespace ardiphon
