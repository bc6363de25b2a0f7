#include "app/OpenedLine.h"

#include <QtGlobal>

#include <algorithm>

namespace ardiphon {

int takeOpenedLine()
{
    const int line = qEnvironmentVariableIntValue(OpenedLineVariable);
    qunsetenv(OpenedLineVariable);
    return std::max(line, 0);
}

} // namespace ardiphon
