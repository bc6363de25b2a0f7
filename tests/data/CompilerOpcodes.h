#pragma once

#include "data/ParameterLine.h"

#include <QMap>
#include <QProcess>

/// The opcodes of the installed compiler, each with its ways to be called. Names with a dot or a
/// double hash are the compiler's own business.
inline QMap<QString, QList<Signature>> compilerOpcodes()
{
    QProcess compiler;
    compiler.start(QStringLiteral("csound"), {QStringLiteral("-z1")});
    QMap<QString, QList<Signature>> opcodes;
    if (!compiler.waitForFinished())
        return opcodes;
    const QString list = QString::fromLatin1(compiler.readAllStandardError());
    for (const QString &line : list.split(u'\n')) {
        const QStringList words = line.simplified().split(u' ');
        if (words.size() != 3 || words[0].contains(u'.') || words[0].contains(QLatin1String("##")))
            continue;
        opcodes[words[0]].append(
            {argumentsOfTypes(words[1], true), argumentsOfTypes(words[2], false), false});
    }
    return opcodes;
}
