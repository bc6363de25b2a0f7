#pragma once

#include <QByteArrayList>
#include <QList>
#include <QProcessEnvironment>
#include <QString>

#include <optional>

namespace ardiphon {

/// A variable that a child sees otherwise than this process; without a value it sees none.
struct EnvironmentChange
{
    QString name;
    std::optional<QString> value;

    bool operator==(const EnvironmentChange &) const = default;
};

/// The environment of this process with \a changes.
QProcessEnvironment changedEnvironment(const QList<EnvironmentChange> &changes);
/// The same, each variable as "NAME=value", to the byte.
QByteArrayList changedVariables(const QList<EnvironmentChange> &changes);

} // namespace ardiphon
