#include "piece/PieceSymbol.h"

#include "piece/OrchestraWords.h"
#include "piece/PieceBodies.h"
#include "piece/PieceWordReader.h"

#include <algorithm>
#include <array>

namespace ardiphon {

namespace {

constexpr std::array<QByteArrayView, 27> LanguageWords = {
    "instr", "endin",  "opcode", "endop",   "struct", "if",    "then",  "ithen", "kthen",
    "else",  "elseif", "endif",  "fi",      "while",  "until", "do",    "od",    "enduntil",
    "for",   "switch", "case",   "default", "endsw",  "goto",  "igoto", "kgoto", "declare",
};

/// Finds out what one word means.
class SymbolReader
{
public:
    SymbolReader(const Piece &piece, const PieceText &text, const PieceWordReader &reader,
                 const PieceWord &word)
        : m_piece(piece), m_text(text), m_line(reader.nextLine() - 1), m_word(word)
    {
        const int column = charactersOf(reader.line(), word.start);
        m_symbol.name = word.name.toByteArray();
        m_symbol.place = {text.role(), m_line, column,
                          charactersOf(reader.line(), word.end()) - column};
    }

    PieceSymbol read()
    {
        const QByteArrayView line = m_text.line(m_line);
        const int column = charactersOf(line, m_word.start);
        m_symbol.name = m_word.name.toByteArray();
        m_symbol.place = {m_text.role(), m_line, column, charactersOf(line, m_word.end()) - column};
        readUse();
        return m_symbol;
    }

private:
    void set(SymbolKind kind, SymbolScope scope)
    {
        m_symbol.kind = kind;
        m_symbol.scope = scope;
    }

    void readUse()
    {
        const bool isScore = m_word.section == PieceSection::Score;
        switch (m_word.use) {
        case WordUse::Instrument:
            set(SymbolKind::Instrument, SymbolScope::Piece);
            break;
        case WordUse::OpcodeName:
            set(SymbolKind::UserOpcode, SymbolScope::Orchestra);
            break;
        case WordUse::Macro:
            set(SymbolKind::Macro, isScore ? SymbolScope::Score : SymbolScope::Orchestra);
            break;
        case WordUse::MacroArgument:
            set(SymbolKind::MacroArgument, SymbolScope::Word);
            break;
        case WordUse::Channel:
            set(SymbolKind::Channel, SymbolScope::Orchestra);
            break;
        case WordUse::Label:
            if (isScore)
                set(SymbolKind::Label, SymbolScope::Score);
            else
                setLocal(SymbolKind::Label);
            break;
        case WordUse::PField:
            setLocal(SymbolKind::PField);
            break;
        case WordUse::Name:
        case WordUse::Call:
            readName();
            break;
        case WordUse::HiddenInstrument:
            break;
        }
    }

    /// Within a macro's text nobody can tell which body a name is of.
    void setLocal(SymbolKind kind)
    {
        const auto body =
            m_word.body == PieceBody::None ? std::nullopt : bodyAt(m_piece, m_text, m_line);
        if (body)
            m_symbol.body = body->lines;
        set(kind, m_word.isInMacro ? SymbolScope::Word
                  : body           ? SymbolScope::Body
                                   : SymbolScope::BetweenBodies);
    }

    void readName()
    {
        if (definesOpcode(m_piece, m_symbol.name))
            set(SymbolKind::UserOpcode, SymbolScope::Orchestra);
        else if (isLanguageWord(m_symbol.name))
            set(SymbolKind::LanguageWord, SymbolScope::Orchestra);
        else if (m_piece.isOpcode(m_symbol.name))
            set(SymbolKind::LanguageOpcode, SymbolScope::Orchestra);
        else if (m_word.use == WordUse::Name)
            readVariable();
    }

    void readVariable()
    {
        setLocal(SymbolKind::Variable);
        const bool hasType = variableType(m_symbol.name) != 0;
        const bool isTyped = !m_word.isInMacro && isDeclaredWithType();
        if (isGlobalName(m_symbol.name) && !isTyped)
            m_symbol.scope = SymbolScope::Orchestra;
        else if (!hasType && !isTyped)
            set(SymbolKind::Unknown, SymbolScope::Word);
    }

    /// Whether the body has it as x:k.
    bool isDeclaredWithType() const
    {
        if (m_symbol.scope != SymbolScope::Body)
            return false;
        bool isTyped = false;
        m_text.visit(m_symbol.body.first, m_symbol.body.last, [&](PlacedLandmark found) {
            const Landmark &mark = *found.mark;
            if ((mark.kind != LandmarkKind::Variable && mark.kind != LandmarkKind::Array) ||
                m_piece.nameOf(mark) != m_symbol.name)
                return true;
            const QByteArrayView line = m_text.line(found.line);
            const qsizetype behind = qsizetype(mark.column) + mark.length;
            isTyped = behind < line.size() && line[behind] == ':';
            return !isTyped;
        });
        return isTyped;
    }

    const Piece &m_piece;
    const PieceText &m_text;
    const int m_line;
    const PieceWord m_word;
    PieceSymbol m_symbol;
};

bool hasUseOf(SymbolKind kind, WordUse use)
{
    switch (kind) {
    case SymbolKind::Instrument:
        return use == WordUse::Instrument;
    case SymbolKind::UserOpcode:
        return use == WordUse::OpcodeName || use == WordUse::Name || use == WordUse::Call;
    case SymbolKind::LanguageOpcode:
    case SymbolKind::LanguageWord:
        return use == WordUse::Name || use == WordUse::Call;
    case SymbolKind::Variable:
        return use == WordUse::Name;
    case SymbolKind::Macro:
        return use == WordUse::Macro;
    case SymbolKind::Label:
        return use == WordUse::Label;
    case SymbolKind::Channel:
        return use == WordUse::Channel;
    case SymbolKind::PField:
        return use == WordUse::PField;
    case SymbolKind::MacroArgument:
    case SymbolKind::Unknown:
        break;
    }
    return false;
}

} // namespace

std::optional<PieceSymbol> symbolAt(const Piece &piece, const PieceText &text, int line, int column)
{
    if (line < 1 || line > text.lineCount())
        return std::nullopt;
    PieceWordReader reader(text);
    reader.goTo(line);
    const PieceWords &words = reader.readLine();
    const int at = byteOfCharacter(reader.line(), column);
    const PieceWord *found = nullptr;
    for (const PieceWord &word : words) {
        if (word.use == WordUse::HiddenInstrument)
            continue;
        const bool hasSign = word.start > 0 && reader.line()[word.start - 1] == '$';
        if (at >= word.start - (hasSign ? 1 : 0) && at <= word.end())
            found = &word;
    }
    if (!found)
        return std::nullopt;
    return SymbolReader(piece, text, reader, *found).read();
}

bool isWordOf(const PieceSymbol &symbol, const PieceWord &word, DocumentRole role, int line)
{
    return word.name == symbol.name && hasUseOf(symbol.kind, word.use) &&
           isInScopeOf(symbol, word, role, line);
}

bool isInScopeOf(const PieceSymbol &symbol, const PieceWord &word, DocumentRole role, int line)
{
    switch (symbol.scope) {
    case SymbolScope::Piece:
        return true;
    case SymbolScope::Orchestra:
        return word.section == PieceSection::Orchestra;
    case SymbolScope::Score:
        return word.section == PieceSection::Score;
    case SymbolScope::Body:
        return role == symbol.place.role && symbol.body.contains(line) &&
               word.body != PieceBody::None && !word.isInMacro;
    case SymbolScope::BetweenBodies:
        return word.section == PieceSection::Orchestra && word.body == PieceBody::None &&
               !word.isInMacro;
    case SymbolScope::Word:
        break;
    }
    return false;
}

bool isGlobalName(QByteArrayView name)
{
    return name.size() > 1 && name[0] == 'g' && variableType(name) != 0;
}

bool isLanguageWord(QByteArrayView name)
{
    return isHeaderName(name) ||
           std::find(LanguageWords.begin(), LanguageWords.end(), name) != LanguageWords.end();
}

bool definesOpcode(const Piece &piece, QByteArrayView name)
{
    bool isDefined = false;
    if (const PieceText *const orchestra = piece.orchestra()) {
        orchestra->visitKind(LandmarkKind::Opcode, [&](PlacedLandmark found) {
            isDefined = piece.nameOf(*found.mark) == name;
            return !isDefined;
        });
    }
    return isDefined;
}

int byteOfCharacter(QByteArrayView line, int column)
{
    int characters = 0;
    qsizetype at = 0;
    while (at < line.size() && characters < column) {
        const auto first = static_cast<unsigned char>(line[at]);
        const int bytes = first < 0x80 ? 1 : first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
        characters += bytes == 4 ? 2 : 1;
        at += bytes;
    }
    return int(std::min<qsizetype>(at, line.size()));
}

} // namespace ardiphon
