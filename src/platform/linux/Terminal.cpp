#include "platform/Terminal.h"

#include "platform/StartDetached.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <iterator>

namespace ardiphon {

namespace {

/// A terminal and its option that precedes a program with its arguments; none where it takes them
/// only as one text, which a shell would have to read.
struct Terminal
{
    const char *name;
    const char *option;
};

// The user's own choice comes first, then what desktops include, then what every X has.
constexpr Terminal terminals[] = {
    {"x-terminal-emulator", "-e"},
    {"gnome-terminal", "--"},
    {"kgx", "--"},
    {"konsole", "-e"},
    {"xfce4-terminal", "-x"},
    {"mate-terminal", "-x"},
    {"lxterminal", nullptr},
    {"qterminal", nullptr},
    {"tilix", nullptr},
    {"terminator", "-x"},
    {"kitty", "--"},
    {"alacritty", "-e"},
    {"foot", "--"},
    {"xterm", "-e"},
};

/// What ArdiphonConsole is given, the program with its own arguments at the end.
QStringList consoleArguments(const ProgramCommand &command, const QString &reportTo)
{
    QStringList arguments;
    if (!reportTo.isEmpty())
        arguments << QStringLiteral("--report") << reportTo;
    for (const EnvironmentChange &change : command.environment) {
        if (change.value)
            arguments << QStringLiteral("--set") << change.name + u'=' + *change.value;
        else
            arguments << QStringLiteral("--unset") << change.name;
    }
    return arguments << command.directory << command.executable << command.arguments;
}

} // namespace

bool startTerminal(const QString &directory)
{
    return std::any_of(std::begin(terminals), std::end(terminals),
                       [&directory](const Terminal &terminal) {
                           return StartDetached(QLatin1String(terminal.name), {}, directory);
                       });
}

bool startConsole(const ProgramCommand &command, const QString &programFolder,
                  const QString &reportTo)
{
    const QString console = programFolder + QStringLiteral("/ArdiphonConsole");
    if (programFolder.isEmpty() || !QFileInfo(console).isExecutable())
        return false;
    // Some terminals open their windows from a process that was there before and is elsewhere, so
    // directory and environment are passed to the console, which also says when there is no such
    // directory.
    const QStringList line = QStringList(console) + consoleArguments(command, reportTo);
    return std::any_of(std::begin(terminals), std::end(terminals), [&](const Terminal &terminal) {
        const QString path = QStandardPaths::findExecutable(QLatin1String(terminal.name));
        return terminal.option && !path.isEmpty() &&
               StartDetached(path, QStringList(QLatin1String(terminal.option)) + line, QString());
    });
}

bool startInTerminal(const ProgramCommand &command, const QString &programFolder)
{
    return startConsole(command, programFolder) ||
           StartDetached(command.executable, command.arguments, command.directory,
                         command.environment);
}

} // namespace ardiphon
