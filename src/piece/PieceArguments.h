#pragma once

#include <QByteArrayView>
#include <QVarLengthArray>

#include <optional>

namespace ardiphon {

/// What a literal argument of an opcode names.
enum class ArgumentMeaning : quint8 {
    Instrument, ///< by number or in quotes
    Event,      ///< the same, where the first argument says that it is a note
    Label,
    Channel,
    ScoreText, ///< lines of a score
};

/// The arguments of an opcode that name something of the piece.
struct ArgumentRule
{
    QByteArrayView opcode;
    ArgumentMeaning meaning;
    quint32 arguments;       ///< a bit for each, the lowest for the first
    bool takesName = true;   ///< of an instrument
    bool takesNumber = true; ///< of an instrument

    bool isFor(int argument) const { return (arguments >> qMin(argument - 1, 31) & 1) != 0; }
};

/// Null for an opcode none of whose arguments does.
const ArgumentRule *argumentRule(QByteArrayView opcode);

/// The calls and brackets of a statement that have not ended yet, as its tokens go by.
class OpenCalls
{
public:
    void clear() { m_calls.clear(); }

    /// An opcode whose arguments follow, in brackets or not.
    void begin(const ArgumentRule &rule) { m_calls.append({&rule}); }
    /// \a isRound where it can be the one around the arguments of the opcode just before it.
    void openBracket(bool isRound);
    void closeBracket();
    void nextArgument();
    /// A token of the present argument.
    void addToken();
    /// The argument that begins here says that an event is a note, if it is the first.
    void setNote();

    /// What the argument is for that begins here, or \a tokens tokens before; Event never, but
    /// Instrument where the event is a note. None within an argument.
    std::optional<ArgumentMeaning> meaning(int tokens = 0) const;
    /// Of the opcode whose argument this is; null where it has none.
    const ArgumentRule *rule() const { return m_calls.isEmpty() ? nullptr : m_calls.last().rule; }

private:
    struct Call
    {
        const ArgumentRule *rule = nullptr; ///< null for a bracket
        int argument = 1;
        int tokens = 0; ///< of the argument so far
        bool hasBracket = false;
        bool isNote = false;
    };
    QVarLengthArray<Call, 8> m_calls;
};

} // namespace ardiphon
