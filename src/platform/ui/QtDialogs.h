#pragma once

#include "platform/Dialogs.h"

namespace ardiphon {

/// The dialogs of the toolkit, each over the active window.
class QtDialogs : public Dialogs
{
public:
    Answer message(const Message &message) override;
    std::optional<QString> openFile(const FileQuestion &question) override;
    std::optional<QString> saveFile(const FileQuestion &question) override;
    std::optional<Color> color(Color first) override;
    std::optional<PrintChoice> choosePrinter(const PrintQuestion &question) override;

private:
    /// Returns \a path, or nothing, with a message, where its name is not a text, as the desktop's
    /// own dialogs may give one.
    std::optional<QString> namable(std::optional<QString> path);
};

} // namespace ardiphon
