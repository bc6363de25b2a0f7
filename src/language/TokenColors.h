#pragma once

#include "app/DocumentRole.h"
#include "language/Token.h"
#include "platform/Color.h"

#include <QString>

namespace ardiphon {

struct ConfigurationBlock;

/// How one token is drawn.
struct TokenColors
{
    Color back;
    Color fore;
    int style = 3;

    friend bool operator==(const TokenColors &, const TokenColors &) = default;
};

/// The colours of a token in a view of \a role. Of the tests on a word the last one that matches
/// decides. Sets the look-up range of the opcode table.
TokenColors GetTokenColors(ConfigurationBlock &config, DocumentRole role, TokenKind kind,
                           const QString &text);

} // namespace ardiphon
