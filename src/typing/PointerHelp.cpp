#include "typing/PointerHelp.h"

#include "piece/PieceBodies.h"
#include "piece/PieceNames.h"
#include "piece/PieceNotes.h"
#include "piece/PieceSymbol.h"
#include "typing/ArgumentHint.h"
#include "typing/CallAtCaret.h"
#include "typing/Signature.h"
#include "typing/UserSignature.h"

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int LongestShown = 160; ///< characters of a line of the piece
constexpr int MostMacroLines = 6;

constexpr LandmarkKinds Assignments =
    kindsOf(LandmarkKind::Variable, LandmarkKind::Array, LandmarkKind::Table);

QString lineText(const PieceText &text, int line)
{
    const QByteArrayView bytes = text.line(line);
    QString shown = QString::fromUtf8(bytes.first(std::min(bytes.size(), PieceText::LongestLine)));
    shown.replace(u'\t', QLatin1String("  "));
    return shown.size() > LongestShown ? shown.left(LongestShown) + QStringLiteral(" ...") : shown;
}

QString placedLine(const PieceText &text, int line)
{
    return QStringLiteral("line %1:  %2").arg(line).arg(lineText(text, line).trimmed());
}

bool isTableArgument(const QString &name)
{
    return name.contains(QLatin1String("fn")) || name.contains(QLatin1String("tab")) ||
           name.contains(QLatin1String("func"), Qt::CaseInsensitive);
}

class HelpReader
{
public:
    HelpReader(const Piece &piece, const PieceText &text, int line, int column,
               const OpcodeLookup &lookup)
        : m_piece(piece), m_text(text), m_line(line), m_column(column), m_lookup(lookup)
    {
    }

    std::optional<PointerHelp> read()
    {
        const auto symbol = symbolAt(m_piece, m_text, m_line, m_column);
        const int sign = symbol && symbol->kind == SymbolKind::Macro ? 1 : 0;
        if (symbol && m_column >= symbol->place.column - sign &&
            m_column < symbol->place.column + symbol->place.length) {
            m_help.place = symbol->place;
            readSymbol(*symbol);
        }
        if (m_help.code.isEmpty())
            readScoreField();
        if (m_help.code.isEmpty())
            readTableNumber();
        return m_help.code.isEmpty() ? std::nullopt : std::optional(m_help);
    }

private:
    void readSymbol(const PieceSymbol &symbol)
    {
        switch (symbol.kind) {
        case SymbolKind::LanguageOpcode:
        case SymbolKind::LanguageWord:
            readOpcode(symbol);
            break;
        case SymbolKind::UserOpcode:
            readUserOpcode(symbol);
            break;
        case SymbolKind::Variable:
            readVariable(symbol);
            break;
        case SymbolKind::Macro:
            readMacro(symbol);
            break;
        case SymbolKind::Instrument:
            readInstrument(symbol.name);
            break;
        case SymbolKind::PField:
            readPField(symbol);
            break;
        case SymbolKind::MacroArgument:
        case SymbolKind::Label:
        case SymbolKind::Channel:
        case SymbolKind::Unknown:
            break;
        }
    }

    void readOpcode(const PieceSymbol &symbol)
    {
        const KnownOpcode known = m_lookup(symbol.name);
        for (const Signature &way : known.signatures)
            m_help.code.append(way.text);
        if (m_help.code.isEmpty() && !known.sentence.isEmpty())
            m_help.code.append(QString::fromUtf8(symbol.name));
        m_help.sentence = known.sentence;
    }

    void readUserOpcode(const PieceSymbol &symbol)
    {
        for (const UserSignature &own : userSignaturesOf(m_piece, symbol.name)) {
            m_help.code.append(own.signature.text);
            if (m_help.sentence.isEmpty())
                m_help.sentence = own.comment;
        }
    }

    /// A local within its body, a global wherever it has its first value.
    void readVariable(const PieceSymbol &symbol)
    {
        const PieceText *const orchestra = m_piece.orchestra();
        if (!orchestra)
            return;
        const bool isLocal = symbol.scope == SymbolScope::Body;
        const int first = isLocal ? symbol.body.first : 1;
        const int last = isLocal ? symbol.body.last : orchestra->lineCount();
        orchestra->visit(first, last, Assignments, [&](PlacedLandmark found) {
            if (m_piece.nameOf(*found.mark) != symbol.name)
                return true;
            m_help.code.append(placedLine(*orchestra, found.line));
            return false;
        });
    }

    void readMacro(const PieceSymbol &symbol)
    {
        const bool isOfScore = symbol.scope == SymbolScope::Score;
        const PieceText *const text = isOfScore ? m_piece.score() : m_piece.orchestra();
        if (!text)
            return;
        text->visitKind(LandmarkKind::Macro, [&](PlacedLandmark found) {
            if (m_piece.nameOf(*found.mark) != symbol.name ||
                (text->stateAt(found.line).section == PieceSection::Score) != isOfScore)
                return true;
            m_help.code = macroLines(*text, found.line);
            return false;
        });
    }
    static QStringList macroLines(const PieceText &text, int line)
    {
        QStringList lines = {lineText(text, line).trimmed()};
        while (line < text.lineCount() && text.stateAt(line + 1).code == CodeState::Macro) {
            if (lines.size() == MostMacroLines) {
                lines.append(QStringLiteral("..."));
                break;
            }
            lines.append(lineText(text, ++line));
        }
        return lines;
    }

    void readInstrument(const QByteArray &name)
    {
        const PieceText *const orchestra = m_piece.orchestra();
        const auto place = instrumentNamed(m_piece, name);
        if (!place || !orchestra)
            return;
        m_help.code.append(placedLine(*orchestra, place->line));
        const QString comment = commentOf(*orchestra, place->line);
        if (!m_help.code.first().contains(comment))
            m_help.sentence = comment;
    }

    void readPField(const PieceSymbol &symbol)
    {
        const auto body = bodyAt(m_piece, m_text, m_line);
        if (!body || body->kind != LandmarkKind::Instrument || body->names.isEmpty())
            return;
        const int number = symbol.name.sliced(1).toInt();
        const QString said = scoreFieldText(m_piece, body->names.first().toUtf8(), number);
        if (said.contains(u' ')) // more than its number
            m_help.code.append(said);
    }

    void readScoreField()
    {
        const auto field = scoreFieldAtCaret(m_text, m_line, m_column);
        const QByteArrayView bytes = m_text.line(m_line);
        const int at = byteOfCharacter(bytes, m_column);
        if (!field || at < field->start || at >= field->start + field->length)
            return;
        const int start = charactersOf(bytes, field->start);
        m_help.place = {m_text.role(), m_line, start,
                        charactersOf(bytes, field->start + field->length) - start};
        const QByteArray instrument = instrumentPlayed(m_text, m_line);
        if (field->number == 1) {
            readInstrument(instrument);
            return;
        }
        const QString said = scoreFieldText(m_piece, instrument, field->number);
        if (!said.isEmpty())
            m_help.code.append(said +
                               QStringLiteral("  of instr %1").arg(QString::fromUtf8(instrument)));
    }

    /// A number where an opcode wants that of a table.
    void readTableNumber()
    {
        const auto call = callAtCaret(m_piece, m_text, m_line, m_column);
        if (!call || call->argument >= call->arguments.size())
            return;
        const QString &number = call->arguments[call->argument];
        const QByteArrayView bytes = m_text.line(m_line);
        const int at = byteOfCharacter(bytes, m_column);
        const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
        if (number.isEmpty() || !std::all_of(number.begin(), number.end(), isDigit) ||
            at >= bytes.size() || !isDigit(QLatin1Char(bytes[at])) || !wantsTable(*call))
            return;
        const int before = int(std::find_if_not(std::make_reverse_iterator(bytes.begin() + at),
                                                std::make_reverse_iterator(bytes.begin()),
                                                [&](char c) { return isDigit(QLatin1Char(c)); }) -
                               std::make_reverse_iterator(bytes.begin() + at));
        m_help.place = {m_text.role(), m_line, m_column - before, int(number.size())};
        readTable(number.toUtf8());
    }
    bool wantsTable(const CallAtCaret &call) const
    {
        const QList<Signature> ways = m_lookup(call.name).signatures;
        return std::any_of(ways.begin(), ways.end(), [&](const Signature &way) {
            const int input = argumentAt(way.inputs, call.argument);
            return input >= 0 && isTableArgument(way.inputs[input].name);
        });
    }
    void readTable(const QByteArray &number)
    {
        for (const PieceText &text : m_piece.texts()) {
            text.visitKind(LandmarkKind::Table, [&](PlacedLandmark found) {
                if (m_help.code.isEmpty() && m_piece.nameOf(*found.mark) == number)
                    m_help.code.append(placedLine(text, found.line));
                return m_help.code.isEmpty();
            });
        }
    }

    const Piece &m_piece;
    const PieceText &m_text;
    const int m_line;
    const int m_column;
    const OpcodeLookup &m_lookup;
    PointerHelp m_help;
};

} // namespace

std::optional<PointerHelp> pointerHelp(const Piece &piece, const PieceText &text, int line,
                                       int column, const OpcodeLookup &lookup)
{
    if (line < 1 || line > text.lineCount() || column < 0)
        return std::nullopt;
    return HelpReader(piece, text, line, column, lookup).read();
}

} // namespace ardiphon
