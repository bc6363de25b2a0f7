#pragma once

#include <span>

namespace ardiphon {

/// When an option is written, if it has no switch or its switch is on. Texts count as the numbers
/// with which they begin.
enum class Rule { Always, Above0, Not0, Not10000, NotEmpty };

enum class Switch {
    None,
    CheckBox,
    RadioButton ///< one of its group; the first one is on at first
};

/// An item of a combo box.
struct Choice
{
    const char *caption = nullptr;
    const char *flag = "";    ///< instead of the row's flag, where the item has its own
    const char *initial = ""; ///< the text that choosing it writes into the row's field
};

inline constexpr int NoHint = -1;

/// One option of a tool, and the line of the form in which it is set. The lines of the form are in
/// the order of the options in the command line.
struct ToolRow
{
    const char *label = "";     ///< of the line, or of its check box or radio button
    const char *flag = "";      ///< before the value, with no blank between
    const char *text = "";      ///< the name of its field; its text is the value
    const char *initial = "";   ///< of the field: at first, after a revert and when left empty
    Rule rule = Rule::Always;   ///< decides by the value
    bool trimmed = false;       ///< blanks at the ends of the value are left out
    bool number = true;         ///< the field accepts only what may be a number
    const char *proposed = "";  ///< the input's path with this extension goes into the field
    Switch kind = Switch::None; ///< of the switch; a check box enables the field too
    const char *name = "";      ///< of the switch
    std::span<const Choice> choices = {}; ///< of `Combo1`; without a field the caption is the value
    const char *note = "";                ///< after the field, in `Label3`
    int hint = NoHint;                    ///< the index of its help mark
};

/// A number that is always written.
constexpr ToolRow always(const char *label, const char *flag, const char *text, const char *initial,
                         int hint)
{
    return {.label = label,
            .flag = flag,
            .text = text,
            .initial = initial,
            .trimmed = true,
            .hint = hint};
}

/// A number that is written when \a rule holds.
constexpr ToolRow when(Rule rule, const char *label, const char *flag, const char *text,
                       const char *initial, int hint)
{
    return {
        .label = label, .flag = flag, .text = text, .initial = initial, .rule = rule, .hint = hint};
}

/// A flag without a value, written when its check box is on.
constexpr ToolRow check(const char *name, const char *label, const char *flag, int hint = NoHint)
{
    return {.label = label, .flag = flag, .kind = Switch::CheckBox, .name = name, .hint = hint};
}

struct ToolGroup
{
    const char *title; ///< of its frame; "" for none
    std::span<const ToolRow> rows;
};

/// The text of a help mark. CR LF separates lines.
struct Hint
{
    const char *title;
    const char *text;
};

/// A choice of the output's suffix, as a radio button.
struct OutputFormat
{
    const char *name = nullptr;
    const char *caption = nullptr;
    const char *suffix = nullptr;
};

/// An analysis utility and its form.
struct AnalysisTool
{
    const char *form = nullptr;    ///< the name of its window
    const char *caption = nullptr; ///< of its window
    const char *keyword = "";
    std::span<const OutputFormat> formats = {}; ///< a single one is not shown; none: no output file
    std::span<const ToolGroup> groups;
    std::span<const Hint> hints;
    const char *inputLabel = "Input File:";
    const char *noiseLabel = ""; ///< "" for a tool that reads one file
    const char *outputLabel = "Output File:";
    const char *inputFilter = "All Files |*.*";
    bool moreFlags = true;     ///< has `CheckMoreFlags` and `TextMoreFlags`
    bool checksFiles = true;   ///< does not start without the names of its files
    bool restoresEmpty = true; ///< an empty number field gets its default
};

extern const AnalysisTool Hetro, LPAnal, PVAnal, PVLook, CVAnal, DNoise;

} // namespace ardiphon
