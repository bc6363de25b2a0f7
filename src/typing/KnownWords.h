#pragma once

#include <span>

namespace ardiphon {

/// A word that is known without a word table.
struct KnownWord
{
    const char *name;
    const char *form; ///< how it is written, with what follows it
    const char *sentence;
};

/// The routines that fill function tables, as GEN10, or with the name that they have in place of a
/// number.
std::span<const KnownWord> genRoutines();
/// The statements of the score, each by its letter.
std::span<const KnownWord> scoreStatements();
/// The options of the compiler as they stand between CsOptions tags.
std::span<const KnownWord> compilerOptions();

} // namespace ardiphon
