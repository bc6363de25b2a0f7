#pragma once

namespace ardiphon {

/// The kinds of token that the editor distinguishes.
enum class TokenKind : int {
    Other = 0,         ///< anything else, numbers among them
    Word = 1,          ///< a name, a macro or a tag
    Quoted = 0x6001,   ///< text in double quotes
    Operator = 0x8000, ///< one of = ( ) * + - , ^
};

} // namespace ardiphon
