#include "printing/ui/PrintEntries.h"

#include "app/ConfigurationBlock.h"
#include "language/editor/FontFamily.h"
#include "language/editor/LEditOCX.h"
#include "navigation/ui/EditorSearch.h"
#include "platform/Dialogs.h"
#include "platform/ui/Printer.h"
#include "printing/ui/PageFormatter.h"
#include "printing/ui/PrintModule.h"

namespace ardiphon {

PrintEntries::PrintEntries(const ConfigurationBlock &config, Dialogs &dialogs,
                           const LEditOCX &first)
    : m_config(config), m_dialogs(dialogs), m_first(first)
{
}

void PrintEntries::printDocument(const PrintSource &document) const
{
    if (isEmptyText(document.editor)) {
        m_dialogs.message({QStringLiteral("No Document to print!")});
        return;
    }
    const bool hasSelection = document.editor.SelectionLength() > 0;
    if (const auto choice = askForPrinter(document, hasSelection))
        print(*choice, document);
}

void PrintEntries::printProject(const PrintSource &orchestra, const PrintSource &score) const
{
    if (isEmptyText(orchestra.editor) || isEmptyText(score.editor)) {
        m_dialogs.message({QStringLiteral("No complete Project to print!")});
        return;
    }
    if (const auto choice = askForPrinter(orchestra, false)) {
        print(*choice, orchestra);
        if (!choice->printer->hasFailed())
            print(*choice, score);
    }
}

/// Whether there is room is checked after the choice, as only that gives the paper.
std::optional<PrintChoice> PrintEntries::askForPrinter(const PrintSource &first,
                                                       bool hasSelection) const
{
    auto choice = m_dialogs.choosePrinter({printedName(first.path), hasSelection});
    if (choice && textRectangle(choice->printer->page(), printMargins(m_config)).isEmpty()) {
        m_dialogs.message({QStringLiteral("The print margins leave no room for the text!")});
        return std::nullopt;
    }
    return choice;
}

void PrintEntries::print(const PrintChoice &choice, const PrintSource &source) const
{
    PrintRichText(*choice.printer, textToPrint(source.editor, choice.selectionOnly),
                  printMargins(m_config), source.path);
}

PrintText PrintEntries::textToPrint(const LEditOCX &editor, bool selectionOnly) const
{
    PrintText box;
    box.text = selectionOnly ? editor.SelText() : editor.Text();
    box.font.setFamilies({familyToDraw(m_first.FontName())});
    box.font.setPointSizeF(m_first.FontSize());
    box.tabSize = editor.TabSize();
    return box;
}

} // namespace ardiphon
