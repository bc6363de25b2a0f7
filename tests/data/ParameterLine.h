#pragma once

#include <QList>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <algorithm>

/// How many arguments are allowed in a place.
struct ArgumentCount
{
    int least = 0;
    int most = 0;
    bool openEnded = false; ///< any number above `least`

    bool operator==(const ArgumentCount &) const = default;
};

/// One way to call an opcode.
struct Signature
{
    ArgumentCount outputs;
    ArgumentCount inputs;
    bool function = false; ///< written as name(x): the outputs are not shown
};

/// The arguments in a piece of a parameters line: names between commas, those in brackets optional.
inline ArgumentCount argumentsIn(QString text)
{
    static const QRegularExpression quoted(QStringLiteral("\"[^\"]*\""));
    static const QRegularExpression macroText(QStringLiteral("\\[\\]"));
    text.replace(quoted, QStringLiteral("text"));
    text.remove(macroText); // an array's own brackets
    ArgumentCount count;
    int depth = 0;
    QString name;
    const auto endName = [&](int nameDepth) {
        name = name.trimmed();
        if (name.contains(QLatin1String("..")))
            count.openEnded = true;
        else if (!name.isEmpty()) {
            ++count.most;
            count.least += nameDepth == 0 ? 1 : 0;
        }
        name.clear();
    };
    for (const QChar c : text) {
        if (c == u',' || c == u'[' || c == u']') {
            endName(depth);
            depth += c == u'[' ? 1 : c == u']' ? -1 : 0;
        } else {
            name += c;
        }
    }
    endName(depth);
    return count;
}

/// The ways to call \a name that a parameters line describes, separated by " / ". A part that does
/// not hold the name is a remark.
inline QList<Signature> signaturesIn(const QString &line, const QString &name)
{
    QList<Signature> signatures;
    const QRegularExpression call(
        QStringLiteral("(^|\\s)%1($|[\\s(])").arg(QRegularExpression::escape(name)));
    for (const QString &way : line.split(QStringLiteral(" / "))) {
        const QRegularExpressionMatch match = call.match(way);
        if (!match.hasMatch())
            continue;
        QString inputs = way.mid(match.capturedEnd());
        const bool function = match.captured(2) == u'(';
        if (function)
            inputs = inputs.left(inputs.lastIndexOf(u')'));
        signatures.append(
            {argumentsIn(way.left(match.capturedStart())), argumentsIn(inputs), function});
    }
    return signatures;
}

/// The arguments that the compiler's letters mean: one a letter, "[]" behind an array's, ":"
/// to
/// ";" around a type's name, "(null)" for none.
inline ArgumentCount argumentsOfTypes(QString types, bool outputs)
{
    static const QRegularExpression brackets(QStringLiteral("\\[\\]|\\(null\\)"));
    static const QRegularExpression named(QStringLiteral(":[A-Za-z]+;"));
    static const QString optional = QStringLiteral("opqvjhOJVP");
    const QString lists = outputs ? QStringLiteral("mzIXNF*") : QStringLiteral("mMNnWyzZ*");
    types.replace(named, QStringLiteral("?"));
    types.remove(brackets);
    ArgumentCount count;
    for (const QChar type : types) {
        if (lists.contains(type)) {
            count.openEnded = true;
        } else {
            ++count.most;
            count.least += outputs || !optional.contains(type) ? 1 : 0;
        }
    }
    return count;
}

/// Whether \a count arguments may be given where \a real is asked for.
inline bool takes(const ArgumentCount &real, int count)
{
    return count >= real.least && (real.openEnded || count <= real.most);
}

inline bool outputsAgree(const Signature &told, const Signature &real)
{
    if (told.function)
        return true;
    if (told.outputs.openEnded || real.outputs.openEnded)
        return real.outputs.openEnded || told.outputs.most <= real.outputs.most;
    return told.outputs.most == real.outputs.most && told.outputs.least == told.outputs.most;
}

/// A line with dots shows a beginning and sometimes the end: more may come between.
inline bool shortenedAgrees(const ArgumentCount &told, const ArgumentCount &real)
{
    return real.openEnded ? told.most >= real.least : told.most <= real.most;
}

/// Whether the compiler has ways to call an opcode, \a real, with every number of arguments that
/// \a told offers, and whether none of these takes fewer or more than are told.
inline bool agrees(const Signature &told, const QList<Signature> &real)
{
    const ArgumentCount &inputs = told.inputs;
    if (inputs.openEnded)
        return std::any_of(real.begin(), real.end(), [&](const Signature &way) {
            return outputsAgree(told, way) && shortenedAgrees(inputs, way.inputs);
        });
    for (int count = inputs.least; count <= inputs.most; ++count) {
        bool taken = false;
        for (const Signature &way : real) {
            if (!outputsAgree(told, way) || !takes(way.inputs, count))
                continue;
            const bool tooFew = !way.inputs.openEnded && way.inputs.least < inputs.least;
            const bool tooMany = !way.inputs.openEnded && way.inputs.most > inputs.most;
            taken = taken || (!tooFew && !tooMany);
        }
        if (!taken)
            return false;
    }
    return true;
}
