#pragma once

#include <QList>
#include <QString>

namespace ardiphon {

/// What a message of the compiler is about.
enum class MessageKind {
    Syntax,        ///< a token that cannot stand where it stands
    UnexpectedEnd, ///< the orchestra ends within something
    NoMatch,       ///< no form of an opcode takes and gives what is written
    UndefinedName, ///< a variable or a label that nothing defines before
    UndefinedMacro,
    MissingFile,      ///< of an #include
    UnterminatedText, ///< a quote that is not closed on its line
    Score,            ///< a statement of the score
    Other             ///< what else it calls an error
};

/// A message of the compiler as it says it: what it is about and what it quotes. Its line may be
/// far from the place that is meant.
struct CompilerMessage
{
    MessageKind kind = MessageKind::Other;
    bool isError = true;        ///< false where the compiler goes on
    QString token;              ///< the word or sign, the opcode, the name, the macro or the file
    QString quoted;             ///< the part of the text that it quotes, as far as it does
    bool quotesToToken = false; ///< what it quotes ends with the token
    QStringList expected;       ///< signs that could stand in place of the token
    QString given;              ///< of an opcode: the types on its left, as "a" or ""
    QString taken;              ///< of an opcode: the types on its right, as "ccS"
    QString file;               ///< "" or the one that it names
    int line = 0;               ///< 0 where it names none
    QString text;               ///< the first line of the message

    friend bool operator==(const CompilerMessage &, const CompilerMessage &) = default;
};

/// The messages in what a compiler has printed, in their order; at most \a most. Escape sequences
/// and NUL bytes are left out, and so are messages that only follow from the one before.
QList<CompilerMessage> readCompilerMessages(QByteArrayView printed, int most = 100);

} // namespace ardiphon
