#include "analysis/ToolCommand.h"

#include "app/Numbers.h"

#include <QStringList>

namespace ardiphon {

namespace {

constexpr qsizetype ExtensionLength = 3;

bool holds(Rule rule, const QString &value)
{
    switch (rule) {
    case Rule::Always:
        break;
    case Rule::Above0:
        return leadingNumber(value) > 0;
    case Rule::Not0:
        return leadingNumber(value) != 0;
    case Rule::Not10000:
        return leadingNumber(value) != 10000;
    case Rule::NotEmpty:
        return !value.isEmpty();
    }
    return true;
}

const Choice *chosen(const ToolRow &row, int item)
{
    const bool exists = item >= 0 && size_t(item) < row.choices.size();
    return exists ? &row.choices[size_t(item)] : nullptr;
}

std::optional<QString> option(const ToolRow &row, const ToolValues &values)
{
    if (row.kind != Switch::None && !values.isOn(row.name))
        return std::nullopt;
    const Choice *const choice = chosen(row, values.item);
    if (!row.choices.empty() && !choice)
        return std::nullopt;

    const bool hasFlag = choice && *choice->flag;
    const QString flag = QLatin1String(hasFlag ? choice->flag : row.flag);
    if (choice && !*row.text)
        return flag + QLatin1String(choice->caption);
    const QString value = values.text(row.text);
    if (!holds(row.rule, value))
        return std::nullopt;
    return flag + (row.trimmed ? value.trimmed() : value);
}

/// \a name in double quotes; nothing in it is escaped.
QString betweenQuotes(const QString &name) { return u'"' + name + u'"'; }

QString fileArguments(const AnalysisTool &tool, const ToolValues &values)
{
    const QString input = betweenQuotes(values.text("LabelInput"));
    const QString output = betweenQuotes(values.text("TextOutput"));
    if (!*tool.noiseLabel)
        return input + u' ' + output;
    return QStringLiteral("-i") + betweenQuotes(values.text("LabelNoise")) + QStringLiteral(" -o") +
           output + u' ' + input;
}

} // namespace

QString withSuffix(const QString &path, const char *suffix)
{
    return path.chopped(qMin(path.size(), ExtensionLength)) + QLatin1String(suffix);
}

std::optional<Message> startObstacle(const AnalysisTool &tool, const QString &fileCSound,
                                     const ToolValues &values)
{
    const auto missing = [](const char *text) {
        return Message{.text = QLatin1String(text), .icon = MessageIcon::Information};
    };
    if (fileCSound.isEmpty())
        return Message{.text = QStringLiteral("Cannot find CSound.exe!\r\n"
                                              "Select File->Settings->Csound.exe!")};
    if (tool.checksFiles && values.text("LabelInput").isEmpty())
        return missing("No Input File!");
    if (tool.checksFiles && !tool.formats.empty() && values.text("TextOutput").isEmpty())
        return missing("No Output File!");
    return std::nullopt;
}

QString flagString(const AnalysisTool &tool, const ToolValues &values)
{
    QStringList options;
    for (const ToolGroup &group : tool.groups)
        for (const ToolRow &row : group.rows)
            if (const auto written = option(row, values))
                options.append(*written);
    const QString more = values.text("TextMoreFlags");
    if (values.isOn("CheckMoreFlags") && !more.isEmpty())
        options.append(more);
    return options.join(u' ');
}

QString toolParameters(const AnalysisTool &tool, const ToolValues &values)
{
    return QStringLiteral("-U ") + QLatin1String(tool.keyword) + u' ' + flagString(tool, values) +
           u' ' + fileArguments(tool, values);
}

} // namespace ardiphon
