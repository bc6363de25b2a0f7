#include "piece/PieceRename.h"

#include "piece/NewNameRules.h"

namespace ardiphon {

namespace {

constexpr int LinesAtOnce = 128; ///< between two looks at the clock

bool isLocalSymbol(const PieceSymbol &symbol)
{
    return symbol.scope == SymbolScope::Body || symbol.scope == SymbolScope::BetweenBodies;
}

bool needsDefinition(SymbolKind kind)
{
    return kind == SymbolKind::Instrument || kind == SymbolKind::UserOpcode ||
           kind == SymbolKind::Macro || kind == SymbolKind::Label;
}

bool isOpcodeOrVariable(const PieceWord &word)
{
    return word.use == WordUse::Name || word.use == WordUse::Call ||
           word.use == WordUse::OpcodeName;
}

} // namespace

QString renameObstacle(const std::optional<PieceSymbol> &symbol)
{
    if (!symbol)
        return QStringLiteral("There is no name at the caret.");
    const QString name = QString::fromUtf8(symbol->name);
    switch (symbol->kind) {
    case SymbolKind::LanguageOpcode:
        return QStringLiteral("\"%1\" is an opcode of the language.").arg(name);
    case SymbolKind::LanguageWord:
        return QStringLiteral("\"%1\" is a word of the language.").arg(name);
    case SymbolKind::PField:
        return QStringLiteral("\"%1\" is a field of the score.").arg(name);
    case SymbolKind::MacroArgument:
        return QStringLiteral("\"%1\" is an argument of a macro.").arg(name);
    case SymbolKind::Unknown:
        return QStringLiteral("\"%1\" is not defined in this piece.").arg(name);
    default:
        break;
    }
    if (symbol->scope == SymbolScope::Word)
        return QStringLiteral("\"%1\" stands in the text of a macro, so it can mean more than one.")
            .arg(name);
    return QString();
}

PieceRename::PieceRename(const Piece &piece, PieceSymbol symbol)
    : m_piece(piece), m_symbol(std::move(symbol))
{
    const bool inScore =
        m_symbol.scope == SymbolScope::Score || m_symbol.scope == SymbolScope::Piece;
    const bool inOrchestra = m_symbol.scope != SymbolScope::Score;
    if (piece.orchestra() == piece.score()) {
        addSource(piece.orchestra(), {inOrchestra, inScore});
        return;
    }
    if (inOrchestra)
        addSource(piece.orchestra(), {true, false});
    if (inScore)
        addSource(piece.score(), {false, true});
}

void PieceRename::addSource(const PieceText *text, WordSections sections)
{
    if (!text)
        return;
    m_sources.push_back({text, PieceWordReader(*text, sections)});
    m_linesInAll += text->lineCount();
}

// Reading.
// ------------------------------------------------------------------------------------------

bool PieceRename::readOn(QDeadlineTimer deadline)
{
    while (!m_sources.empty()) {
        Source &source = m_sources.front();
        for (int lines = 0; lines < LinesAtOnce && !source.reader.atEnd(); ++lines)
            readWords(source);
        if (source.reader.atEnd())
            m_sources.pop_front();
        if (deadline.hasExpired())
            break;
    }
    return isRead();
}

void PieceRename::readWords(Source &source)
{
    for (const PieceWord &word : source.reader.readLine())
        readWord(word, source);
    ++m_linesRead;
}

void PieceRename::readWord(const PieceWord &word, const Source &source)
{
    const Line line{source.text->role(), source.reader.nextLine() - 1};
    if (word.use == WordUse::HiddenInstrument)
        m_hiddenNotes += m_symbol.kind == SymbolKind::Instrument ? 1 : 0;
    else if (isWordOf(m_symbol, word, line.role, line.line))
        addPlace(word, source);
    else if (takesName(word, line)) {
        const QByteArray name = QByteArray::fromRawData(word.name.data(), word.name.size());
        if (!m_taken.contains(name))
            m_taken.insert(word.name.toByteArray(), line);
        if (word.isInMacro && isLocalSymbol(m_symbol) && name == m_symbol.name &&
            m_firstLines.ofMacro.line == 0)
            m_firstLines.ofMacro = line;
    }
}

void PieceRename::addPlace(const PieceWord &word, const Source &source)
{
    const QByteArrayView bytes = source.reader.line();
    const Line line{source.text->role(), source.reader.nextLine() - 1};
    const auto range = [&](int start, int length) {
        const int column = charactersOf(bytes, start);
        return PiecePlace{line.role, line.line, column,
                          charactersOf(bytes, start + length) - column};
    };
    Place place;
    place.name = range(word.start, word.length);
    place.literal = word.literalLength == word.length
                        ? place.name
                        : range(word.literalStart, word.literalLength);
    place.form = word.form;
    m_places.push_back(place);
    m_definitions += word.defines ? 1 : 0;
    if (word.use == WordUse::Instrument)
        noteForm(word, bytes.sliced(word.literalStart, word.literalLength), line);
}

void PieceRename::noteForm(const PieceWord &word, QByteArrayView literal, Line line)
{
    const auto note = [line](bool isSo, Line &first) {
        if (isSo && first.line == 0)
            first = line;
    };
    const bool isBare = word.form == WordForm::Number || word.form == WordForm::EscapedNumber;
    note(word.isNameOnly, m_firstLines.ofName);
    note(word.isNumberOnly, m_firstLines.ofNumber);
    note(isBare && literal.contains('.'), m_firstLines.ofFraction);
    note(isBare && literal.size() > 0 && (literal[0] == '-' || literal[0] == '+') &&
             word.section != PieceSection::Score,
         m_firstLines.ofSign);
}

/// Whether the new name cannot be that of \a word, which is another one.
bool PieceRename::takesName(const PieceWord &word, Line line) const
{
    const bool isHere = isInScopeOf(m_symbol, word, line.role, line.line) ||
                        (word.isInMacro && word.section == PieceSection::Orchestra);
    if (!isHere)
        return false;
    switch (m_symbol.kind) {
    case SymbolKind::Instrument:
        return word.use == WordUse::Instrument;
    case SymbolKind::UserOpcode:
        return isOpcodeOrVariable(word);
    case SymbolKind::Variable:
        return isOpcodeOrVariable(word) || word.use == WordUse::Label;
    case SymbolKind::Label:
        return word.use == WordUse::Label || (isLocalSymbol(m_symbol) && isOpcodeOrVariable(word));
    case SymbolKind::Macro:
        return word.use == WordUse::Macro || word.use == WordUse::MacroArgument;
    case SymbolKind::Channel:
        return word.use == WordUse::Channel;
    default:
        return false;
    }
}

// Answering.
// ----------------------------------------------------------------------------------------

QString PieceRename::sentenceOf(Line line, const QString &sentence)
{
    const QString where = line.role == DocumentRole::Csd     ? QString()
                          : line.role == DocumentRole::Score ? QStringLiteral(" of the score")
                                                             : QStringLiteral(" of the orchestra");
    return QStringLiteral("Line %1%2: %3").arg(line.line).arg(where, sentence);
}

QString PieceRename::obstacle() const
{
    const QString name = QString::fromUtf8(m_symbol.name);
    if (needsDefinition(m_symbol.kind) && m_definitions == 0)
        return QStringLiteral("\"%1\" is not defined in this piece.").arg(name);
    if (m_firstLines.ofMacro.line > 0)
        return sentenceOf(
            m_firstLines.ofMacro,
            QStringLiteral("a macro has \"%1\" too, which may be this one.").arg(name));
    return QString();
}

QString PieceRename::refusal(const QString &name) const
{
    if (const QString reason = obstacle(); !reason.isEmpty())
        return reason;
    if (const QString reason = nameRefusal(m_piece, m_symbol, name); !reason.isEmpty())
        return reason;
    const QByteArray bytes = comparableName(m_symbol, name);
    if (bytes == m_symbol.name)
        return QStringLiteral("That is its name now.");
    if (const auto taken = m_taken.constFind(bytes); taken != m_taken.constEnd())
        return sentenceOf(*taken, QStringLiteral("\"%1\" is taken already.").arg(name));
    return m_symbol.kind == SymbolKind::Instrument ? formReason(bytes) : QString();
}

/// A number cannot be everywhere where a name can, and the other way round.
QString PieceRename::formReason(const QByteArray &name) const
{
    const FirstLines &first = m_firstLines;
    if (isNumberName(name))
        return first.ofName.line > 0
                   ? sentenceOf(first.ofName, QStringLiteral("there has to be a name."))
                   : QString();
    if (first.ofNumber.line > 0)
        return sentenceOf(first.ofNumber, QStringLiteral("there has to be a number."));
    if (first.ofFraction.line > 0)
        return sentenceOf(first.ofFraction,
                          QStringLiteral("a number with a fraction cannot become a name."));
    return first.ofSign.line > 0
               ? sentenceOf(first.ofSign,
                            QStringLiteral("a number with a sign cannot become a name."))
               : QString();
}

QList<RenameEdit> PieceRename::editsFor(const QString &name) const
{
    const QString text = QString::fromUtf8(comparableName(m_symbol, name));
    const bool changesForm = m_symbol.kind == SymbolKind::Instrument &&
                             isNumberName(m_symbol.name) != isNumberName(text.toUtf8());
    QList<RenameEdit> edits;
    edits.reserve(count());
    for (const Place &place : m_places)
        edits.append(editFor(place, text, changesForm));
    return edits;
}

/// The whole literal where its quotes come or go; else the name alone.
RenameEdit PieceRename::editFor(const Place &place, const QString &name, bool changesForm) const
{
    if (!changesForm || (place.form == WordForm::Plain && place.literal == place.name))
        return {place.name, name};
    if (place.form == WordForm::Plain)
        return {place.literal, name}; // a number has no + in front
    const PieceText &text = *m_piece.text(place.name.role);
    QString literal = QString::fromUtf8(text.line(place.name.line))
                          .mid(place.literal.column, place.literal.length);
    literal.replace(place.name.column - place.literal.column, place.name.length, name);
    const bool isEscaped =
        place.form == WordForm::EscapedQuoted || place.form == WordForm::EscapedNumber;
    const QString quote = isEscaped ? QStringLiteral("\\\"") : QStringLiteral("\"");
    if (place.form == WordForm::Number || place.form == WordForm::EscapedNumber)
        return {place.literal, quote + literal + quote};
    const qsizetype around = quote.size();
    return {place.literal, literal.sliced(around, literal.size() - 2 * around)};
}

} // namespace ardiphon
