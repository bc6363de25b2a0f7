#include "platform/Terminal.h"

#include "platform/CommandText.h"
#include "platform/StartDetached.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <iterator>

namespace ardiphon {

namespace {

/// A terminal and its option in front of a program with its arguments; none where it takes them
/// in one text only, which a shell would have to read.
struct Terminal
{
    const char *name;
    const char *option;
};

// The user's own choice comes first, then what desktops bring along, then what every X has.
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

} // namespace

bool startTerminal(const QString &directory)
{
    return std::any_of(std::begin(terminals), std::end(terminals),
                       [&directory](const Terminal &terminal) {
                           return StartDetached(QLatin1String(terminal.name), QString(), directory);
                       });
}

bool startInTerminal(const QString &file, const QString &parameters, const QString &directory,
                     const QString &programFolder)
{
    const QString console = programFolder + QStringLiteral("/ArdiphonConsole");
    if (QFileInfo(console).isExecutable()) {
        // Some terminals open their windows from a process that was there before and is elsewhere,
        // so the directory goes to the console, which also tells when there is none.
        const QString line =
            QStringList{quoted(console), quoted(directory), quoted(file), parameters}.join(u' ');
        for (const Terminal &terminal : terminals) {
            const QString path = QStandardPaths::findExecutable(QLatin1String(terminal.name));
            if (terminal.option && !path.isEmpty() &&
                StartDetached(path, QLatin1String(terminal.option) + u' ' + line, QString()))
                return true;
        }
    }
    return StartDetached(file, parameters, directory);
}

} // namespace ardiphon
