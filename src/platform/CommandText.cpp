#include "platform/CommandText.h"

#include <optional>
#include <utility>

namespace ardiphon {

namespace {

bool separates(QChar c) { return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n'; }

} // namespace

QString quoted(const QString &text)
{
    return u'"' + QString(text).replace(u'"', QLatin1String("\"\"")) + u'"';
}

QStringList splitCommandText(const QString &commandText)
{
    QStringList arguments;
    std::optional<QString> argument; // empty between arguments: "" is an argument too
    bool inQuotes = false;
    for (qsizetype i = 0; i < commandText.size(); ++i) {
        const QChar c = commandText[i];
        if (!inQuotes && separates(c)) {
            if (argument)
                arguments.append(*std::exchange(argument, std::nullopt));
            continue;
        }
        if (!argument)
            argument.emplace();
        if (c != u'"') {
            argument->append(c);
        } else if (inQuotes && i + 1 < commandText.size() && commandText[i + 1] == u'"') {
            argument->append(c);
            ++i;
        } else {
            inQuotes = !inQuotes;
        }
    }
    if (argument)
        arguments.append(*argument);
    return arguments;
}

ProgramCommand commandOf(const QString &executable, const QString &parameters,
                         const QString &directory)
{
    return {executable, splitCommandText(parameters), directory};
}

} // namespace ardiphon
