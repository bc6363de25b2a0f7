#pragma once

#include "platform/ChildEnvironment.h"

#include <QString>
#include <QStringList>

namespace ardiphon {

/// A program to start, with its arguments and environment. No shell is involved.
struct ProgramCommand
{
    QString executable;    ///< a path, or a bare name that is looked for in the search path
    QStringList arguments; ///< each reaches the program as it is
    QString directory;     ///< where it starts; "" is the current directory
    QList<EnvironmentChange> environment = {};
};

} // namespace ardiphon
