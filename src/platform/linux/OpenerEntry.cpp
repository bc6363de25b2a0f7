#include "platform/linux/OpenerEntry.h"

namespace ardiphon {

namespace {

const QString TypesKey = QStringLiteral("MimeType=");
const QString MadeKey = QStringLiteral("X-Ardiphon-Made=");

/// A text as a value of a desktop entry.
QString asValue(QString text)
{
    text.replace(u'\\', QStringLiteral("\\\\"));
    text.replace(u'\n', QStringLiteral("\\n"));
    text.replace(u'\r', QStringLiteral("\\r"));
    return text.replace(u'\t', QStringLiteral("\\t"));
}

/// A path as one word of a command line in a desktop entry, before it is made a value.
QString asWord(QString path)
{
    path.replace(u'%', QStringLiteral("%%"));
    bool plain = true;
    QString quoted;
    for (const QChar c : path) {
        plain = plain && !QStringLiteral(" \t\n\r\"'\\><~|&;$*?#()`").contains(c);
        if (QStringLiteral("\"`$\\").contains(c))
            quoted += u'\\';
        quoted += c;
    }
    return plain ? path : u'"' + quoted + u'"';
}

QString listValue(const QStringList &items)
{
    return items.isEmpty() ? QString() : items.join(u';') + u';';
}

} // namespace

QString OpenerEntry::openCommand() const
{
    return program + u' ' + (arguments.isEmpty() ? QStringLiteral("%1") : arguments.trimmed());
}

QString OpenerEntry::execLine() const
{
    return asWord(program) + u' ' +
           (arguments.isEmpty() ? QStringLiteral("%f") : arguments.trimmed());
}

QByteArray OpenerEntry::text() const
{
    const QStringList lines{
        QStringLiteral("[Desktop Entry]"),
        QStringLiteral("Type=Application"),
        QStringLiteral("Version=1.0"),
        QStringLiteral("Name=ArdiphonPro"),
        QStringLiteral("Comment=Edit and compile Csound pieces"),
        QStringLiteral("Exec=") + asValue(execLine()),
        QStringLiteral("Icon=") + asValue(icon),
        QStringLiteral("Terminal=false"),
        QStringLiteral("NoDisplay=true"), // it opens documents and is not a menu entry
        QString::fromUtf8(typesLine(types)),
        QStringLiteral("X-Ardiphon-Command=") + asValue(openCommand()),
        MadeKey + listValue(made),
    };
    return lines.join(u'\n').toUtf8() + '\n';
}

QByteArray OpenerEntry::typesLine(const QStringList &types)
{
    return (TypesKey + listValue(types)).toUtf8();
}

OpenerEntry OpenerEntry::fromText(const QByteArray &text)
{
    OpenerEntry entry;
    for (const QString &line : QString::fromUtf8(text).split(u'\n')) {
        if (line.startsWith(TypesKey))
            entry.types = line.mid(TypesKey.size()).split(u';', Qt::SkipEmptyParts);
        else if (line.startsWith(MadeKey))
            entry.made = line.mid(MadeKey.size()).split(u';', Qt::SkipEmptyParts);
    }
    return entry;
}

} // namespace ardiphon
