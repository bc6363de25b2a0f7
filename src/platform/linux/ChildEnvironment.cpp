#include "platform/ChildEnvironment.h"

#include <QFile>

#include <algorithm>
#include <unistd.h>

namespace ardiphon {

QProcessEnvironment changedEnvironment(const QList<EnvironmentChange> &changes)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const EnvironmentChange &change : changes) {
        if (change.value)
            environment.insert(change.name, *change.value);
        else
            environment.remove(change.name);
    }
    return environment;
}

QByteArrayList changedVariables(const QList<EnvironmentChange> &changes)
{
    QByteArrayList variables;
    for (char **variable = environ; variable && *variable; ++variable) {
        const QByteArray text(*variable);
        const QByteArray name = text.left(text.indexOf('='));
        if (std::none_of(changes.begin(), changes.end(),
                         [&name](const auto &change) { return change.name.toUtf8() == name; }))
            variables.append(text);
    }
    for (const EnvironmentChange &change : changes)
        if (change.value)
            variables.append(change.name.toUtf8() + '=' + QFile::encodeName(*change.value));
    return variables;
}

} // namespace ardiphon
