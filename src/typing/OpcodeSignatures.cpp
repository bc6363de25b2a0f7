#include "typing/OpcodeSignatures.h"

#include "language/WordTables.h"

#include <QRegularExpression>

#include <utility>

namespace ardiphon {

int OpcodeSignatures::recordOf(const QString &name) const
{
    const int record = m_words.FindInTable(name);
    return record <= recordCount() ? record : 0;
}

/// The last record of the table is its version.
int OpcodeSignatures::recordCount() const { return std::max(0, m_words.OpcodeCount - 1); }

const QString &OpcodeSignatures::nameOf(int record) const { return m_words.OpcodeNames[record]; }

const KnownOpcode &OpcodeSignatures::of(int record)
{
    const auto found = m_known.constFind(record);
    if (found != m_known.cend())
        return *found;
    // The record that was read last belongs to those who read it.
    const OpcodeEntry before = m_words.OpcodeRecord;
    KnownOpcode known;
    if (m_words.ReadOpcodeRecord(record)) {
        known.parameters = m_words.OpcodeRecord.Parameters.trimmed();
        known.sentence = m_words.OpcodeRecord.Description.trimmed();
        known.signatures = signaturesOf(known.parameters, nameOf(record));
    }
    m_words.OpcodeRecord = before;
    return *m_known.insert(record, known);
}

namespace {

/// The names of arguments whose types are \a letters, as "a1, k2".
QString argumentNames(const QString &letters)
{
    static const QString optional = QStringLiteral("opjOPVJ");
    static const QString atControlRate = QStringLiteral("OPVJK");
    QStringList names;
    for (qsizetype at = 0; at < letters.size(); ++at) {
        const QChar letter = letters[at];
        if (!letter.isLetter())
            continue;
        const bool isArray = letters.mid(at + 1, 2) == QLatin1String("[]");
        const QChar type = atControlRate.contains(letter)               ? u'k'
                           : optional.contains(letter)                  ? u'i'
                           : QStringLiteral("akiSfbw").contains(letter) ? letter
                                                                        : u'x';
        QString name =
            type + QString::number(names.size() + 1) + (isArray ? QStringLiteral("[]") : QString());
        if (optional.contains(letter))
            name = QStringLiteral("[%1]").arg(name);
        names.append(name);
    }
    return names.join(QStringLiteral(", ")).replace(QLatin1String(", ["), QLatin1String(" [, "));
}

/// As "x:a", or "a" alone: an argument of the newer notation with its type in front of its name.
QString typedArgument(const QString &written, int number)
{
    const QString name = written.section(u':', 0, 0).trimmed();
    const QString type = written.contains(u':') ? written.section(u':', 1).trimmed() : QString();
    const QString shown = name.isEmpty() ? QString::number(number) : name;
    return type.isEmpty() ? shown : type.left(1) + u'_' + shown;
}

QString typedArguments(const QString &list)
{
    QStringList names;
    for (const QString &written : list.split(u',')) {
        if (!written.trimmed().isEmpty())
            names.append(typedArgument(written, int(names.size()) + 1));
    }
    return names.join(QStringLiteral(", "));
}

QString typedOutputs(QString types)
{
    types.remove(u'(').remove(u')');
    QStringList names;
    for (const QString &type : types.split(u',')) {
        if (!type.trimmed().isEmpty() && type.trimmed() != QLatin1String("void"))
            names.append(type.trimmed().left(1) + QString::number(names.size() + 1));
    }
    return names.join(QStringLiteral(", "));
}

} // namespace

KnownOpcode userOpcode(QByteArrayView heading)
{
    static const QRegularExpression old(
        QStringLiteral(R"(^\s*opcode\s+(\w+)\s*,\s*([\w\[\]]+)\s*,\s*([\w\[\]]+))"));
    static const QRegularExpression typed(
        QStringLiteral(R"(^\s*opcode\s+(\w+)\s*\(([^)]*)\)\s*(?::\s*(\([^)]*\)|\w+))?)"));
    const QString line = QString::fromUtf8(heading);
    QString name, outputs, inputs;
    if (const auto match = old.match(line); match.hasMatch()) {
        name = match.captured(1);
        outputs = argumentNames(match.captured(2));
        inputs = argumentNames(match.captured(3));
    } else if (const auto newer = typed.match(line); newer.hasMatch()) {
        name = newer.captured(1);
        inputs = typedArguments(newer.captured(2));
        outputs = typedOutputs(newer.captured(3));
    } else {
        return {};
    }
    KnownOpcode known;
    known.parameters = QStringList({outputs, name, inputs}).join(u' ').trimmed();
    known.signatures = signaturesOf(known.parameters, name);
    return known;
}

} // namespace ardiphon
