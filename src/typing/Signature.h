#pragma once

#include <QList>
#include <QString>

namespace ardiphon {

/// How an opcode is written.
enum class SignatureForm {
    Statement, ///< outputs, the name and inputs, as "ares oscili xamp, xcps"
    Function,  ///< a value within an expression, as "abs(x)"
    Setting,   ///< a name that is given a value, as "A4 = iarg"
    Words,     ///< none of these, as "while condition do ... od"
};

/// An output or an input of an opcode, as its signature names it.
struct SignatureArgument
{
    QString name;              ///< as "xamp", "kin[]" or "\"callable\""
    int start = 0;             ///< in the signature's text
    bool isOptional = false;   ///< it may be left out, as may all behind it
    bool isRepeated = false;   ///< one of those that may come again and again
    bool isLastOfMany = false; ///< names the end of repeated ones, as pn in "p4, ..., pn"

    bool operator==(const SignatureArgument &) const = default;
};

/// One of the ways in which an opcode is written.
struct Signature
{
    QString text; ///< as it is shown, as "ares oscili xamp, xcps [, ifn, iphs]"
    QString name; ///< of the opcode
    SignatureForm form = SignatureForm::Words;
    QList<SignatureArgument> outputs;
    QList<SignatureArgument> inputs;
};

/// The ways in which the opcode \a name is written, by the text of its parameters in the word
/// tables, where " / " is between them. Never fails: of what is no signature the form is Words, and
/// it has no arguments.
QList<Signature> signaturesOf(const QString &parameters, const QString &name);

/// Which of \a arguments the one is that is written as number \a index from 0, where those that are
/// repeated come again; -1 where there are fewer.
int argumentAt(const QList<SignatureArgument> &arguments, int index);

/// How many of \a arguments have to be written.
int fewestArguments(const QList<SignatureArgument> &arguments);

/// The type that the name of an argument or of a variable tells.
struct ValueType
{
    char letter = 0;      ///< a, k, i, S, f, b or x for i, k or a; 0 for any or an unknown one
    bool isArray = false; ///< as kin[]

    bool operator==(const ValueType &) const = default;
};

/// That of an argument of a signature, as "xamp".
ValueType typeOfArgument(const QString &name);
/// That of a variable or a value as it is written: "gkamp", "p4", "440", "\"name\"", "kin[]". An
/// expression has none that is known.
ValueType typeOfValue(QStringView written);

/// Whether an input of type \a wanted takes a value of type \a given; true where one is unknown.
bool takesValue(ValueType wanted, ValueType given);
/// Whether an output of type \a offered can be given to a variable of type \a variable.
bool givesValue(ValueType offered, ValueType variable);

} // namespace ardiphon
