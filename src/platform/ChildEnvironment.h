#pragma once

#include <QByteArrayList>
#include <QList>
#include <QProcessEnvironment>
#include <QString>

#include <optional>

namespace ardiphon {

/// A variable that has another value for a child than for this process; without a value the child
/// does not have it.
struct EnvironmentChange
{
    QString name;
    std::optional<QString> value;

    bool operator==(const EnvironmentChange &) const = default;
};

/// The environment of this process with \a changes.
QProcessEnvironment changedEnvironment(const QList<EnvironmentChange> &changes);
/// The same, each variable as "NAME=value", byte for byte.
QByteArrayList changedVariables(const QList<EnvironmentChange> &changes);

} // namespace ardiphon
