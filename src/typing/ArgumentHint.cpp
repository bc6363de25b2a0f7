#include "typing/ArgumentHint.h"

#include "piece/PieceFields.h"
#include "piece/PieceNames.h"
#include "piece/PieceNotes.h"
#include "typing/CallAtCaret.h"
#include "typing/UserSignature.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int MostHintLines = 6;
constexpr int FieldsAround = 5; ///< of a line of the score, on each side of the caret's

bool fitsForm(const CallAtCaret &call, const Signature &signature)
{
    return call.form == CallAtCaret::Form::Function ? signature.form != SignatureForm::Words
                                                    : signature.form == SignatureForm::Statement;
}

bool fitsOutputs(const CallAtCaret &call, const Signature &signature)
{
    if (!call.knowsOutputs || signature.form == SignatureForm::Function)
        return true;
    for (int i = 0; i < call.outputs.size(); ++i) {
        const int output = argumentAt(signature.outputs, i);
        if (output < 0 || !givesValue(typeOfArgument(signature.outputs[output].name),
                                      typeOfValue(call.outputs[i])))
            return false;
    }
    return true;
}

bool fitsInputs(const CallAtCaret &call, const Signature &signature)
{
    for (int i = 0; i < call.arguments.size(); ++i) {
        const bool isPresent = i == call.argument;
        if (call.arguments[i].isEmpty() && (!isPresent || i == 0))
            continue;
        const int input = argumentAt(signature.inputs, i);
        if (input < 0)
            return false;
        // The present one is being written.
        if (!isPresent && !takesValue(typeOfArgument(signature.inputs[input].name),
                                      typeOfValue(call.arguments[i])))
            return false;
    }
    return true;
}

HintLine hintLine(const Signature &signature, int argument)
{
    HintLine line{signature.text, 0, 0};
    if (const int input = argumentAt(signature.inputs, argument); input >= 0) {
        line.boldStart = signature.inputs[input].start;
        line.boldLength = int(signature.inputs[input].name.size());
    }
    return line;
}

/// Those that fit what is written; where none does, those of its form.
QList<Signature> fitting(const QList<Signature> &signatures, const CallAtCaret &call)
{
    const auto those = [&](auto fits) {
        QList<Signature> found;
        std::copy_if(signatures.begin(), signatures.end(), std::back_inserter(found), fits);
        return found;
    };
    QList<Signature> found = those([&](const Signature &signature) {
        return fitsForm(call, signature) && fitsOutputs(call, signature) &&
               fitsInputs(call, signature);
    });
    if (found.isEmpty())
        found = those([&](const Signature &signature) { return fitsForm(call, signature); });
    return found;
}

std::optional<ArgumentHint> callHint(const Piece &piece, const CallAtCaret &call,
                                     const OpcodeLookup &lookup)
{
    ArgumentHint hint{call.place, {}};
    QList<Signature> signatures;
    for (const UserSignature &own : userSignaturesOf(piece, call.name))
        signatures.append(own.signature);
    if (signatures.isEmpty())
        signatures = fitting(lookup(call.name).signatures, call);
    for (const Signature &signature : std::as_const(signatures)) {
        if (hint.lines.size() < MostHintLines)
            hint.lines.append(hintLine(signature, call.argument));
    }
    return hint.lines.isEmpty() ? std::nullopt : std::optional(hint);
}

/// The p-fields that \a instrument reads; nothing where the piece has none of that name.
std::optional<PieceFields> fieldsOfInstrument(const Piece &piece, const QByteArray &instrument)
{
    const auto place = instrumentNamed(piece, instrument);
    const PieceText *const text = piece.orchestra();
    const auto body = place ? bodyAt(piece, *text, place->line) : std::nullopt;
    return body ? std::optional(fieldsOf(*text, *body)) : std::nullopt;
}

QString fieldText(const PieceFields &fields, int number)
{
    QString name = fields.nameOf(number);
    if (name.isEmpty() && number <= 3)
        name = number == 1   ? QStringLiteral("instrument")
               : number == 2 ? QStringLiteral("start")
                             : QStringLiteral("duration");
    return QStringLiteral("p%1 %2").arg(number).arg(name).trimmed();
}

std::optional<ArgumentHint> scoreHint(const Piece &piece, const PieceText &text, int line,
                                      const ScoreFieldAtCaret &at)
{
    const QByteArray instrument = instrumentPlayed(text, line);
    const std::optional<PieceFields> fields = fieldsOfInstrument(piece, instrument);
    if (!fields)
        return std::nullopt;
    int last = std::max(3, at.number);
    for (const PieceField &field : fields->fields)
        last = std::max(last, field.number);
    HintLine hint;
    hint.text = QStringLiteral("instr %1:").arg(QString::fromUtf8(instrument));
    const int first = std::max(1, at.number - FieldsAround);
    if (first > 1)
        hint.text += QStringLiteral("  ...");
    for (int number = first; number <= std::min(last, at.number + FieldsAround); ++number) {
        hint.text += QStringLiteral("  ");
        const QString field = fieldText(*fields, number);
        if (number == at.number) {
            hint.boldStart = int(hint.text.size());
            hint.boldLength = int(field.size());
        }
        hint.text += field;
    }
    if (last > at.number + FieldsAround)
        hint.text += QStringLiteral("  ...");
    return ArgumentHint{{text.role(), line, 0, 0}, {hint}};
}

} // namespace

std::optional<ArgumentHint> argumentHint(const Piece &piece, const PieceText &text, int line,
                                         int column, const OpcodeLookup &lookup)
{
    if (const auto field = scoreFieldAtCaret(text, line, column))
        return scoreHint(piece, text, line, *field);
    const auto call = callAtCaret(piece, text, line, column);
    return call ? callHint(piece, *call, lookup) : std::nullopt;
}

QString scoreFieldText(const Piece &piece, const QByteArray &instrument, int number)
{
    const std::optional<PieceFields> fields = fieldsOfInstrument(piece, instrument);
    return fields ? fieldText(*fields, number) : QString();
}

} // namespace ardiphon
