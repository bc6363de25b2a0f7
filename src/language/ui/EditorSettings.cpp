#include "language/ui/EditorSettings.h"

#include "app/ConfigurationBlock.h"
#include "app/Numbers.h"
#include "language/editor/LEditOCX.h"

namespace ardiphon {

void applyTabSize(LEditOCX &editor, const ConfigurationBlock &config)
{
    editor.SetTabSize(roundedWithin(leadingNumber(config.TabSize), 2, 30));
}

void applySettings(LEditOCX &editor, const ConfigurationBlock &config)
{
    applyTabSize(editor, config);
    editor.SetBackColor(config.ColorBackground);
    editor.SetForeColor(config.ColorReminders);
    editor.SetSelectionBackColor(config.ColorSelectionBack);
    editor.SetSelectionForeColor(config.ColorSelectionFore);
    editor.SetFontName(config.DefaultFontName);
    editor.SetFontSize(config.FontSize);
    editor.SetAutoIndent(leadingNumber(config.AutoIndent) == 1);
}

} // namespace ardiphon
