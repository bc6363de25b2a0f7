#pragma once

#include <QtGlobal>

namespace ardiphon {

/// What the lines above leave open at the beginning of a line, in the orchestra or in the score.
enum class CodeState : quint8 {
    Code,         ///< nothing
    BlockComment, ///< a /* without its */
    Braces,       ///< a {{ without its }}
    RawString,    ///< an R"( without its )"
    Macro,        ///< the text of a #define, before the # that ends it
};

} // namespace ardiphon
