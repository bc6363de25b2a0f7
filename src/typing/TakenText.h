#pragma once

#include "typing/CompletionPlace.h"
#include "typing/Signature.h"
#include "typing/Snippets.h"

#include <QList>
#include <QString>

namespace ardiphon {

/// A part of a text that the user fills in.
struct TakenPlace
{
    int offset = 0; ///< in characters
    int length = 0;
    int number = 1; ///< of its turn, from 1; several may share one. 0: where one goes on

    friend bool operator==(const TakenPlace &, const TakenPlace &) = default;
};

/// What a suggestion puts into the text.
struct TakenText
{
    QString text; ///< lines with "\n" between them
    QList<TakenPlace> places;

    friend bool operator==(const TakenText &, const TakenText &) = default;
};

/// An opcode with the arguments that it has to have, written as \a place wants it: as a statement,
/// with names on its left where it has none yet, or as a value with brackets. Without a signature,
/// or with nothing to fill in, it is the name alone.
TakenText withArguments(const QString &name, const QList<Signature> &signatures,
                        const CompletionPlace &place);

TakenText textOf(const Snippet &snippet);

/// The same text with \a indent in front of its lines but the first.
TakenText indented(const TakenText &taken, const QString &indent);

} // namespace ardiphon
