#include "platform/DesktopTools.h"

#include "platform/StartDetached.h"

#include <algorithm>
#include <span>

namespace ardiphon {

namespace {

// The user's own choice comes first, then what desktops bring along, then what every X has.
constexpr const char *Terminals[] = {
    "x-terminal-emulator",
    "gnome-terminal",
    "kgx",
    "konsole",
    "xfce4-terminal",
    "mate-terminal",
    "lxterminal",
    "qterminal",
    "tilix",
    "terminator",
    "kitty",
    "alacritty",
    "foot",
    "xterm",
};

constexpr const char *Calculators[] = {
    "gnome-calculator", "kcalc",        "galculator",  "mate-calc",
    "qalculate-gtk",    "qalculate-qt", "speedcrunch", "xcalc",
};

bool startFirst(std::span<const char *const> programs, const QString &directory)
{
    return std::any_of(programs.begin(), programs.end(), [&directory](const char *program) {
        return StartDetached(QLatin1String(program), QString(), directory);
    });
}

} // namespace

bool StartCommandPrompt() { return startFirst(Terminals, QStringLiteral("/")); }

bool StartCalculator() { return startFirst(Calculators, QString()); }

} // namespace ardiphon
