#include "typing/TakenText.h"

#include "typing/PlaceFit.h"

#include <algorithm>
#include <utility>

namespace ardiphon {

namespace {

/// Writes a signature with its places.
class ArgumentWriter
{
public:
    TakenText write(const QString &name, const Signature &signature, bool isValue, bool hasLeft)
    {
        if (!isValue && !hasLeft && !signature.outputs.isEmpty()) {
            writeArguments(signature.outputs);
            m_taken.text += u' ';
        }
        const bool hasBrackets = isValue || signature.form == SignatureForm::Function;
        m_taken.text += name;
        m_taken.text += hasBrackets ? QStringLiteral("(") : QStringLiteral(" ");
        const qsizetype before = m_taken.places.size();
        writeArguments(signature.inputs);
        const bool hasInputs = m_taken.places.size() > before;
        if (!hasInputs && hasBrackets)
            m_taken.places.append({int(m_taken.text.size()), 0, ++m_number});
        if (!hasInputs && !hasBrackets)
            m_taken.text.chop(1);
        if (hasBrackets)
            m_taken.text += u')';
        if (!m_taken.places.isEmpty())
            m_taken.places.append({int(m_taken.text.size()), 0, 0});
        return std::move(m_taken);
    }

private:
    void writeArguments(const QList<SignatureArgument> &arguments)
    {
        bool isFirst = true;
        for (const SignatureArgument &argument : arguments) {
            if (argument.isOptional || argument.isLastOfMany)
                continue;
            if (!isFirst)
                m_taken.text += QStringLiteral(", ");
            isFirst = false;
            writeArgument(argument.name);
        }
    }

    /// Of a text the part within the quotes.
    void writeArgument(const QString &name)
    {
        const bool isQuoted = name.size() > 2 && name.startsWith(u'"') && name.endsWith(u'"');
        const int quote = isQuoted ? 1 : 0;
        m_taken.places.append(
            {int(m_taken.text.size()) + quote, int(name.size()) - 2 * quote, ++m_number});
        m_taken.text += name;
    }

    TakenText m_taken;
    int m_number = 0;
};

/// The signature that suits the place best; null where none can be written out.
const Signature *signatureFor(const QList<Signature> &signatures, const PlaceFit &fit)
{
    const Signature *best = nullptr;
    int bestFit = PlaceFit::None;
    for (const Signature &signature : signatures) {
        const bool isWritten =
            signature.form == SignatureForm::Statement || signature.form == SignatureForm::Function;
        const int here = isWritten ? fit.ofOpcode({signature}) : PlaceFit::None;
        if (here > bestFit) {
            best = &signature;
            bestFit = here;
        }
    }
    return best;
}

} // namespace

TakenText withArguments(const QString &name, const QList<Signature> &signatures,
                        const CompletionPlace &place)
{
    const PlaceFit fit(place, {});
    const Signature *const signature = signatureFor(signatures, fit);
    if (signature == nullptr)
        return {name, {}};
    return ArgumentWriter().write(name, *signature, fit.isValue(), place.kind == PlaceKind::Opcode);
}

TakenText textOf(const Snippet &snippet)
{
    TakenText taken{snippet.text, {}};
    bool hasEnd = false;
    for (const SnippetPlace &place : snippet.places) {
        taken.places.append({place.offset, place.length, place.number});
        hasEnd = hasEnd || place.number == 0;
    }
    if (!hasEnd && !taken.places.isEmpty())
        taken.places.append({int(taken.text.size()), 0, 0});
    return taken;
}

TakenText indented(const TakenText &taken, const QString &indent)
{
    TakenText result;
    qsizetype next = 0;
    QList<int> added(taken.places.size());
    for (qsizetype at = 0; at <= taken.text.size(); ++at) {
        for (qsizetype i = 0; i < taken.places.size(); ++i) {
            if (taken.places[i].offset == at)
                added[i] = int(result.text.size() - at);
        }
        if (at == taken.text.size())
            break;
        result.text += taken.text[at];
        if (taken.text[at] == u'\n')
            result.text += indent;
    }
    for (TakenPlace place : taken.places) {
        place.offset += added[next++];
        result.places.append(place);
    }
    return result;
}

} // namespace ardiphon
