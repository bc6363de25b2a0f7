#pragma once

#include "compile/CompileRules.h"

#include <QString>

/// What a console shows after a run that took under half a second and logged \a log.
inline QString finishedText(const QString &log)
{
    return ardiphon::bannerText(0) + ardiphon::logHeading() + log;
}
