#include "platform/ChildEnvironment.h"

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

} // namespace ardiphon
