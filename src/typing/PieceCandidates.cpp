#include "typing/PieceCandidates.h"

#include "piece/OrchestraWords.h"
#include "piece/PieceFields.h"
#include "piece/PieceSymbol.h"

#include <QHash>

#include <algorithm>
#include <utility>
#include <vector>

namespace ardiphon {

namespace {

constexpr int MostScoreLines = 4000; ///< above the caret's that are looked at
constexpr LandmarkKinds Variables =
    kindsOf(LandmarkKind::Variable, LandmarkKind::Array, LandmarkKind::Header);

const QString &headerSentence()
{
    static const QString sentence = QStringLiteral("Holds for the whole orchestra.");
    return sentence;
}

QString rateText(char letter)
{
    switch (letter) {
    case 'a':
        return QStringLiteral("audio rate");
    case 'k':
        return QStringLiteral("control rate");
    case 'i':
        return QStringLiteral("the note's start");
    case 'S':
        return QStringLiteral("text");
    case 'f':
    case 'w':
        return QStringLiteral("a spectrum");
    case 'b':
        return QStringLiteral("a truth value");
    default:
        return QString();
    }
}

/// Each of them is made once.
const QString &variableSentence(ValueType type, bool isGlobal)
{
    static QHash<int, QString> sentences;
    QString &sentence = sentences[type.letter + (type.isArray ? 256 : 0) + (isGlobal ? 512 : 0)];
    if (sentence.isEmpty()) {
        const QString rate = rateText(type.letter);
        sentence = isGlobal ? QStringLiteral("A variable that all instruments know")
                            : QStringLiteral("A variable of this instrument");
        if (type.isArray)
            sentence += QStringLiteral(", an array");
        if (!rate.isEmpty())
            sentence += QStringLiteral(", ") + rate;
        sentence += u'.';
    }
    return sentence;
}

/// The variable that takes the number of a table, where a line has one.
QString tableName(const QString &number, const QString &line)
{
    const QString first = line.section(u' ', 0, 0).section(u'=', 0, 0);
    return variableType(first.toUtf8()) == 'i' ? first : number;
}

} // namespace

PieceCandidates::PieceCandidates(const Piece &piece, const CompletionPlace &place,
                                 const PlaceFit &fit, CandidateList &found)
    : m_piece(piece), m_place(place), m_fit(fit), m_found(found)
{
    if (place.section == PieceSection::Orchestra) {
        m_bodyLines = bodyAt(piece, *placeText(), place.line);
        if (m_bodyLines)
            m_body = m_bodyLines->lines;
    }
}

/// The landmarks of some kinds in all texts, each name once, as long as they are in the texts.
void PieceCandidates::visitAll(LandmarkKinds kinds, const Visitor &visit) const
{
    std::vector<bool> seen;
    for (const PieceText &text : m_piece.texts()) {
        text.visit(1, text.lineCount(), kinds, [&](PlacedLandmark found) {
            const size_t id = found.mark->name;
            if (id >= seen.size())
                seen.resize(id + 1024);
            if (!seen[id]) {
                seen[id] = true;
                visit(text, found, m_piece.nameOf(*found.mark));
            }
            return true;
        });
    }
}

/// A name that is being typed is none yet.
bool PieceCandidates::isAtCaret(const PieceText &text, PlacedLandmark found) const
{
    if (text.role() != m_place.role || found.line != m_place.line)
        return false;
    const int column = m_piece.placeOf(text, found).column;
    return column >= m_place.start && column <= m_place.end;
}

// Values. -----------------------------------------------------------------------------------------

void PieceCandidates::addVariables()
{
    const PieceText &text = *placeText();
    if (!m_body.isEmpty()) {
        text.visit(m_body.first, m_body.last, Variables, [&](PlacedLandmark found) {
            addVariable(text, found);
            return true;
        });
    }
    for (const PieceText &other : m_piece.texts())
        addGlobals(other);
}

/// Those that are known everywhere; between two bodies, those of no body too.
void PieceCandidates::addGlobals(const PieceText &text)
{
    constexpr LandmarkKinds begins = kindsOf(LandmarkKind::Instrument, LandmarkKind::Opcode);
    constexpr LandmarkKinds ends =
        kindsOf(LandmarkKind::InstrumentEnd, LandmarkKind::OpcodeEnd, LandmarkKind::SectionBegin);
    enum class Seen : quint8 { Not, Local, Done };
    std::vector<Seen> names;
    bool isInBody = false;
    const LandmarkKinds bodies = m_body.isEmpty() ? begins | ends : LandmarkKinds(0);
    text.visit(1, text.lineCount(), Variables | bodies, [&](PlacedLandmark found) {
        const LandmarkKinds kind = kindsOf(found.mark->kind);
        if ((kind & (begins | ends)) != 0) {
            isInBody = (kind & begins) != 0;
            return true;
        }
        const size_t id = found.mark->name;
        if (id >= names.size())
            names.resize(id + 1024);
        const bool isInScope = m_body.isEmpty() && !isInBody;
        if (names[id] == Seen::Not)
            names[id] = isHeaderName(found) || isGlobalName(m_piece.nameOf(*found.mark))
                            ? Seen::Done
                            : Seen::Local;
        else if (names[id] == Seen::Done || !isInScope)
            return true;
        if (names[id] == Seen::Done || isInScope) {
            names[id] = Seen::Done;
            addVariable(text, found);
        }
        return true;
    });
}

bool PieceCandidates::isHeaderName(PlacedLandmark found)
{
    return found.mark->kind == LandmarkKind::Header;
}

/// There may be thousands; what is shown of one is read when it is shown.
void PieceCandidates::addVariable(const PieceText &text, PlacedLandmark found)
{
    const bool isHeader = isHeaderName(found);
    Completion candidate;
    candidate.kind = CompletionKind::Variable;
    candidate.name = m_piece.nameText(*found.mark);
    const bool isGlobal = candidate.name.startsWith(u'g');
    candidate.prefix = isHeader || found.mark->detail == 0 ? 0 : isGlobal ? 2 : 1;
    const auto match = m_found.match(candidate);
    if (!match || isAtCaret(text, found))
        return;
    const ValueType type{isHeader ? 'i' : char(found.mark->detail),
                         found.mark->kind == LandmarkKind::Array};
    candidate.where = &text;
    candidate.line = found.line;
    candidate.sentence = isHeader ? headerSentence() : variableSentence(type, isGlobal);
    candidate.fit = m_fit.ofVariable(type);
    m_found.add(std::move(candidate), *match);
}

void PieceCandidates::addPFields()
{
    static const char *const names[] = {"the instrument", "the start", "the duration"};
    if (!m_bodyLines || m_bodyLines->kind != LandmarkKind::Instrument)
        return;
    for (int field = 1; field <= 3; ++field)
        addPField(field, QLatin1String(names[field - 1]), QStringLiteral("A field of every note."));
    const PieceText &text = *placeText();
    for (const PieceField &field : fieldsOf(text, *m_bodyLines).fields) {
        const bool isAtCaret = field.place.line == m_place.line &&
                               field.place.column >= m_place.start &&
                               field.place.column <= m_place.end;
        if (!isAtCaret)
            addPField(field.number, field.name, formOfLine(text, field.place.line));
    }
}

void PieceCandidates::addPField(int number, const QString &name, const QString &sentence)
{
    Completion candidate;
    candidate.kind = CompletionKind::PField;
    candidate.name = QStringLiteral("p%1").arg(number);
    candidate.form = name;
    candidate.sentence = sentence;
    candidate.fit = m_fit.ofVariable({'i', false});
    m_found.add(std::move(candidate));
}

void PieceCandidates::addTables()
{
    visitAll(kindsOf(LandmarkKind::Table),
             [&](const PieceText &text, PlacedLandmark found, const QByteArray &name) {
                 if (isAtCaret(text, found) || name.isEmpty())
                     return;
                 Completion candidate;
                 candidate.kind = CompletionKind::Table;
                 candidate.form = formOfLine(text, found.line);
                 candidate.name = tableName(QString::fromUtf8(name), candidate.form);
                 candidate.sentence = QStringLiteral("A function table.");
                 candidate.fit = PlaceFit::Best;
                 m_found.add(std::move(candidate));
             });
}

// Opcodes, macros, labels. ------------------------------------------------------------------------

void PieceCandidates::addOpcodes()
{
    visitAll(kindsOf(LandmarkKind::Opcode), [&](const PieceText &text, PlacedLandmark found,
                                                const QByteArray &name) {
        const KnownOpcode known =
            found.line <= text.lineCount() ? userOpcode(text.line(found.line)) : KnownOpcode();
        Completion candidate;
        candidate.kind = CompletionKind::UserOpcode;
        candidate.name = QString::fromUtf8(name);
        candidate.form = known.parameters;
        candidate.sentence = QStringLiteral("An opcode of this piece.");
        candidate.fit = m_fit.ofOpcode(known.signatures);
        if (candidate.fit != PlaceFit::None && !isAtCaret(text, found))
            m_found.add(std::move(candidate));
    });
}

/// Those of the section that the caret is in.
void PieceCandidates::addMacros()
{
    const bool hasSign = m_place.typed.startsWith(u'$') || m_place.kind != PlaceKind::Macro;
    visitAll(kindsOf(LandmarkKind::Macro), [&](const PieceText &text, PlacedLandmark found,
                                               const QByteArray &name) {
        if (isAtCaret(text, found) || text.stateAt(found.line).section != m_place.section)
            return;
        Completion candidate;
        candidate.kind = CompletionKind::Macro;
        candidate.name = (hasSign ? QStringLiteral("$") : QString()) + QString::fromUtf8(name);
        candidate.form = formOfLine(text, found.line);
        candidate.sentence = QStringLiteral("A macro of this piece.");
        candidate.fit = m_place.kind == PlaceKind::Macro ? PlaceFit::Best : 2;
        m_found.add(std::move(candidate));
    });
}

void PieceCandidates::addLabels()
{
    const PieceText &text = *placeText();
    text.visit(m_body.first, m_body.last, kindsOf(LandmarkKind::Label), [&](PlacedLandmark found) {
        if (!isAtCaret(text, found))
            addLabel(m_piece.nameText(*found.mark), text, found.line);
        return true;
    });
}

void PieceCandidates::addLabel(const QString &name, const PieceText &text, int line)
{
    Completion candidate;
    candidate.kind = CompletionKind::Label;
    candidate.name = name;
    candidate.form = formOfLine(text, line);
    candidate.sentence = QStringLiteral("A place to go to, in line %1.").arg(line);
    candidate.fit = PlaceFit::Best;
    m_found.add(std::move(candidate));
}

/// The marks in the lines above, which are no landmarks.
void PieceCandidates::addScoreMarks()
{
    const PieceText &text = *placeText();
    for (int line = std::max(1, m_place.line - MostScoreLines); line < m_place.line; ++line) {
        const QByteArrayView bytes = text.line(line).trimmed();
        if (!bytes.startsWith('m'))
            continue;
        const QString name = QString::fromUtf8(bytes.sliced(1)).simplified().section(u' ', 0, 0);
        if (!name.isEmpty())
            addLabel(name, text, line);
    }
}

// What has a name in quotes. ----------------------------------------------------------------------

void PieceCandidates::addInstruments()
{
    visitAll(kindsOf(LandmarkKind::Instrument),
             [&](const PieceText &text, PlacedLandmark found, const QByteArray &) {
                 addInstrument(text, found);
             });
}

void PieceCandidates::addInstrument(const PieceText &text, PlacedLandmark found)
{
    const QString name = m_piece.nameText(*found.mark);
    const bool isNumber = !name.isEmpty() && name[0].isDigit();
    if (name.isEmpty() || (isNumber && m_place.isQuoted))
        return;
    Completion candidate;
    candidate.kind = CompletionKind::Instrument;
    candidate.name = name;
    if (!isNumber && !m_place.isQuoted)
        candidate.text = QStringLiteral("\"%1\"").arg(name);
    candidate.form = formOfLine(text, found.line);
    const QString above = found.line > 1 ? formOfLine(text, found.line - 1) : QString();
    candidate.sentence =
        above.startsWith(u';') ? above : QStringLiteral("An instrument of this piece.");
    candidate.fit = PlaceFit::Best;
    m_found.add(std::move(candidate));
}

void PieceCandidates::addChannels()
{
    visitAll(kindsOf(LandmarkKind::Channel),
             [&](const PieceText &text, PlacedLandmark found, const QByteArray &name) {
                 if (isAtCaret(text, found) || name.isEmpty())
                     return;
                 Completion candidate;
                 candidate.kind = CompletionKind::Channel;
                 candidate.name = QString::fromUtf8(name);
                 if (!m_place.isQuoted)
                     candidate.text = QStringLiteral("\"%1\"").arg(candidate.name);
                 candidate.form = formOfLine(text, found.line);
                 candidate.sentence = QStringLiteral("A channel that this piece uses.");
                 candidate.fit = PlaceFit::Best;
                 m_found.add(std::move(candidate));
             });
}

} // namespace ardiphon
