#pragma once

#include <QString>

#include <optional>

namespace ardiphon {

class Dialogs;
class LEditOCX;
struct ConfigurationBlock;
struct PrintChoice;
struct PrintText;

/// A text of an editor window, and the path for the header of its pages.
struct PrintSource
{
    const LEditOCX &editor;
    const QString &path;
};

/// The print entries of an editor window. Each says when there is nothing to print, else asks for
/// a printer and prints; Cancel and a printer that fails end it without a message. It also says
/// when the margins leave no room for a text on the chosen paper.
class PrintEntries
{
public:
    /// Everything is printed in the font of \a first, the window's first editor. All arguments must
    /// outlive the entries.
    PrintEntries(const ConfigurationBlock &config, Dialogs &dialogs, const LEditOCX &first);

    /// Prints the selection, where the user leaves it chosen, or the whole text.
    void printDocument(const PrintSource &document) const;
    /// Prints both whole texts, each as a job of its own; none when one of them is empty, and not
    /// the score when the printer failed at the orchestra.
    void printProject(const PrintSource &orchestra, const PrintSource &score) const;

private:
    std::optional<PrintChoice> askForPrinter(const PrintSource &first, bool hasSelection) const;
    void print(const PrintChoice &choice, const PrintSource &source) const;
    PrintText textToPrint(const LEditOCX &editor, bool selectionOnly) const;

    const ConfigurationBlock &m_config;
    Dialogs &m_dialogs;
    const LEditOCX &m_first;
};

} // namespace ardiphon
