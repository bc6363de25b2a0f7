#include "platform/DesktopTools.h"

#include "platform/StartDetached.h"
#include "platform/Terminal.h"

#include <algorithm>
#include <iterator>

namespace ardiphon {

namespace {

constexpr const char *Calculators[] = {
    "gnome-calculator", "kcalc",        "galculator",  "mate-calc",
    "qalculate-gtk",    "qalculate-qt", "speedcrunch", "xcalc",
};

} // namespace

bool StartCommandPrompt() { return startTerminal(QStringLiteral("/")); }

bool StartCalculator()
{
    return std::any_of(std::begin(Calculators), std::end(Calculators), [](const char *program) {
        return StartDetached(QLatin1String(program), {}, QString());
    });
}

} // namespace ardiphon
