#include "typing/PlaceFit.h"

#include "piece/OrchestraWords.h"

#include <QStringList>

#include <algorithm>

namespace ardiphon {

namespace {

// Of the beginning of a statement.
constexpr int Stands = 3;
constexpr int WantsMoreOnItsLeft = 2;

// Of an opcode with names on its left.
constexpr int Gives = 7; // more than others even where letters are scattered
constexpr int GivesOther = 1;
constexpr int GivesNothing = 0;

// Of a value.
constexpr int SameRate = 6;
constexpr int Taken = 5;
constexpr int OpcodeOfThatRate = 4;
constexpr int OpcodeOfAnyRate = 3;
constexpr int Constant = 2;
constexpr int OtherRate = 1;

bool namesTable(const QString &argument)
{
    return argument.size() > 2 && (argument[0] == u'i' || argument[0] == u'k') &&
           (argument.mid(1, 2) == QLatin1String("fn") ||
            argument.mid(1, 3) == QLatin1String("tab"));
}

bool namesFile(const QString &argument)
{
    static const QStringList names = {QStringLiteral("ifilcod"),   QStringLiteral("ifilname"),
                                      QStringLiteral("ifilename"), QStringLiteral("ifile"),
                                      QStringLiteral("iatsfile"),  QStringLiteral("sfile"),
                                      QStringLiteral("sfname"),    QStringLiteral("sfilename"),
                                      QStringLiteral("sfilcod"),   QStringLiteral("sfiles")};
    return names.contains(argument.toLower()) ||
           (argument.startsWith(u'"') && argument.contains(QLatin1String("file")));
}

bool hasOutputs(const Signature &signature)
{
    return signature.form == SignatureForm::Statement && !signature.outputs.isEmpty();
}

} // namespace

PlaceFit::PlaceFit(const CompletionPlace &place, const QList<Signature> &signatures)
    : m_place(place)
{
    for (const Signature &signature : signatures) {
        const int at = argumentAt(signature.inputs, place.argument - 1);
        if (at < 0)
            continue;
        const QString &name = signature.inputs[at].name;
        m_wanted.append(typeOfArgument(name));
        m_wantsTable = m_wantsTable || namesTable(name);
        m_wantsFile = m_wantsFile || namesFile(name);
    }
    if (place.kind == PlaceKind::Value)
        m_wanted = place.left;
}

bool PlaceFit::isValue() const
{
    switch (m_place.kind) {
    case PlaceKind::Argument:
    case PlaceKind::Value:
    case PlaceKind::Instrument:
    case PlaceKind::Channel:
    case PlaceKind::GenNumber:
        return !m_place.isQuoted;
    default:
        return false;
    }
}

int PlaceFit::ofVariable(ValueType type) const
{
    if (!isValue())
        return Stands;
    if (m_wanted.isEmpty())
        return Taken;
    int best = OtherRate;
    for (const ValueType &wanted : m_wanted) {
        if (wanted == type || (wanted.letter == 'x' && takesValue(wanted, type)))
            best = SameRate;
        else if (takesValue(wanted, type) ||
                 (m_place.kind == PlaceKind::Value && takesValue({'x', false}, type) &&
                  wanted.letter == 'a'))
            best = std::max(best, Taken);
    }
    return best;
}

int PlaceFit::ofOpcode(const QList<Signature> &signatures) const
{
    if (m_place.kind == PlaceKind::Opcode)
        return ofOutputs(signatures);
    if (isValue())
        return ofValue(signatures);
    const bool stands = std::any_of(signatures.begin(), signatures.end(), [](const auto &one) {
        return one.form == SignatureForm::Statement && one.outputs.isEmpty();
    });
    return stands ? Stands : WantsMoreOnItsLeft;
}

int PlaceFit::ofOutputs(const QList<Signature> &signatures) const
{
    int best = GivesNothing;
    for (const Signature &signature : signatures) {
        if (!hasOutputs(signature))
            continue;
        bool gives = argumentAt(signature.outputs, int(m_place.left.size()) - 1) >= 0;
        for (int i = 0; gives && i < m_place.left.size(); ++i) {
            const int output = argumentAt(signature.outputs, i);
            gives = givesValue(typeOfArgument(signature.outputs[output].name), m_place.left[i]);
        }
        best = std::max(best, gives ? Gives : GivesOther);
    }
    return best;
}

int PlaceFit::ofValue(const QList<Signature> &signatures) const
{
    int best = None;
    for (const Signature &signature : signatures) {
        if (signature.form == SignatureForm::Setting)
            best = std::max(best, Constant);
        if (signature.form == SignatureForm::Function)
            best = std::max(best, OpcodeOfAnyRate);
        if (!hasOutputs(signature))
            continue;
        const ValueType type = typeOfArgument(signature.outputs[0].name);
        const bool isWanted =
            std::any_of(m_wanted.begin(), m_wanted.end(),
                        [type](ValueType wanted) { return takesValue(wanted, type); });
        best = std::max(best, m_wanted.isEmpty() ? OpcodeOfAnyRate
                              : isWanted         ? OpcodeOfThatRate
                                                 : OtherRate);
    }
    return best;
}

int PlaceFit::ofWord(const QString &name) const
{
    static const QStringList behindCondition = {QStringLiteral("then"),  QStringLiteral("ithen"),
                                                QStringLiteral("kthen"), QStringLiteral("do"),
                                                QStringLiteral("goto"),  QStringLiteral("igoto"),
                                                QStringLiteral("kgoto")};
    if (m_place.kind == PlaceKind::Statement)
        return Stands;
    if (!isValue())
        return None;
    if (isHeaderName(name.toUtf8()))
        return Constant;
    return m_place.kind == PlaceKind::Value && m_place.left.isEmpty() &&
                   behindCondition.contains(name)
               ? Constant
               : None;
}

} // namespace ardiphon
