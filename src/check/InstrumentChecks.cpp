#include "check/ChecksOfPiece.h"
#include "check/CompilerProblems.h"
#include "piece/PieceFields.h"
#include "piece/PieceWordReader.h"

#include <algorithm>

namespace ardiphon {

namespace {

bool isNumber(const QByteArray &name)
{
    return !name.isEmpty() &&
           std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// As instrument 3, or instrument "bell".
QString inWords(const QByteArray &name)
{
    return isNumber(name) ? QStringLiteral("instrument ") + QString::fromUtf8(name)
                          : QStringLiteral("instrument \"%1\"").arg(QString::fromUtf8(name));
}

/// An instrument whose name differs in nothing but its capitals; "" for none.
QByteArray otherCapitals(const PieceFacts &facts, const QByteArray &name)
{
    for (const CheckedBody &body : facts.orchestra.bodies) {
        for (const InstrumentHead &head : body.heads) {
            if (head.name.compare(name, Qt::CaseInsensitive) == 0)
                return head.name;
        }
    }
    return {};
}

/// Whether something of the piece plays an instrument that only the performance tells.
class HiddenPlays
{
public:
    explicit HiddenPlays(const PieceFacts &facts) : m_facts(facts) {}

    bool any() const
    {
        const OrchestraFacts &orchestra = m_facts.orchestra;
        return orchestra.hasInclude || orchestra.hasHiddenHead || m_facts.hasForeignPart ||
               !m_facts.score.isWhole || !m_facts.score.hasStatements ||
               m_facts.score.hasHiddenNote || usesMidi() || macroPlays() ||
               std::any_of(orchestra.calls.begin(), orchestra.calls.end(), isHidden);
    }

private:
    static constexpr std::initializer_list<const char *> Players = {
        "schedule", "schedulek", "schedwhen", "schedkwhen",   "schedkwhennamed",
        "event",    "event_i",   "turnon",    "alwayson",     "subinstr",
        "nstance",  "massign",   "pgmassign", "subinstrinit", "scoreline"};

    bool macroPlays() const
    {
        return std::any_of(Players.begin(), Players.end(), [this](const char *name) {
            return m_facts.orchestra.macroText.contains(name);
        });
    }

    bool usesMidi() const
    {
        if (m_facts.hasMidiFile)
            return true;
        for (const QByteArray &word : m_facts.options.simplified().split(' ')) {
            if (word.startsWith("-M") || word.startsWith("-F") || word.startsWith("-L") ||
                word.startsWith("--midi") || word.startsWith("-+rtmidi"))
                return true;
        }
        const auto &called = m_facts.orchestra.called;
        return std::any_of(called.begin(), called.end(), [](const QByteArray &name) {
            return name.contains("midi") || name.startsWith("FL") || name == "massign" ||
                   name == "pgmassign" || name == "notnum" || name == "veloc" ||
                   name.startsWith("compile") || name == "evalstr" || name == "readscore";
        });
    }

    /// Whether a call plays an instrument by a value that is no literal.
    static bool isHidden(const OpcodeCall &call)
    {
        const auto plays = [&](std::initializer_list<const char *> names) {
            return std::find(names.begin(), names.end(), call.name) != names.end();
        };
        int argument = -1;
        if (plays({"schedule", "schedulek", "turnon", "alwayson", "subinstr", "subinstrinit",
                   "nstance", "scoreline", "scoreline_i"}))
            argument = 0;
        else if (plays({"schedwhen", "event", "event_i"}))
            argument = 1;
        else if (plays({"schedkwhen", "schedkwhennamed"}))
            argument = call.name == "schedkwhen" ? 3 : 3;
        if (argument < 0)
            return false;
        if (call.name.startsWith("event") && !call.arguments.isEmpty() &&
            call.arguments[0].form != CalledArgument::Form::Text)
            return true;
        if (argument >= call.arguments.size())
            return false;
        const CalledArgument &played = call.arguments[argument];
        return !played.isLiteral() && !played.text.startsWith("{{");
    }

    const PieceFacts &m_facts;
};

/// Those that notes and opcodes play by literals.
QSet<QByteArray> playedByName(const PieceFacts &facts)
{
    QSet<QByteArray> played = facts.orchestra.texts;
    for (const CheckedNote &note : facts.score.notes)
        played.insert(note.instrument);
    for (const OpcodeCall &call : facts.orchestra.calls)
        played.insert(call.name); // an instrument with a name can be called as an opcode
    for (const VariableUse &use : facts.orchestra.names)
        played.insert(use.name);
    const PieceText &text = *facts.piece.orchestra();
    PieceWordReader reader(text, {true, false});
    while (!reader.atEnd()) {
        for (const PieceWord &word : reader.readLine()) {
            if (word.use == WordUse::Instrument && !word.defines)
                played.insert(plainNumber(word.name));
        }
    }
    return played;
}

bool playsByNumber(const PieceFacts &facts, const QSet<QByteArray> &played)
{
    return facts.orchestra.numbersOfNamed.intersects(played);
}

} // namespace

QList<Problem> missingInstruments(const CheckedFacts &of)
{
    const PieceFacts &facts = of.facts;
    if (!facts.orchestra.hasCode || facts.orchestra.hasMore() || facts.orchestra.hasHiddenHead)
        return {};
    QList<Problem> problems;
    QHash<QByteArray, bool> known;
    for (const CheckedNote &note : facts.score.notes) {
        if (note.instrument.isEmpty() || note.instrument == "0")
            continue;
        if (!known.contains(note.instrument))
            known.insert(note.instrument, facts.hasInstrument(note.instrument));
        if (known.value(note.instrument))
            continue;
        Problem problem{Severity::Warning,
                        note.place,
                        QStringLiteral("There is no %1.").arg(inWords(note.instrument)),
                        {}};
        if (const QByteArray other = otherCapitals(facts, note.instrument); !other.isEmpty()) {
            const QString name = QString::fromUtf8(other);
            problem.fixes.append(
                {QStringLiteral("Insert %1").arg(name), note.place, u'"' + name + u'"'});
        }
        problems.append(problem);
    }
    return problems;
}

QList<Problem> unplayedInstruments(const CheckedFacts &of)
{
    const PieceFacts &facts = of.facts;
    if (HiddenPlays(facts).any())
        return {};
    const QSet<QByteArray> played = playedByName(facts);
    const bool hidesNamed = playsByNumber(facts, played);
    QList<Problem> problems;
    for (const CheckedBody &body : facts.orchestra.bodies) {
        for (const InstrumentHead &head : body.heads) {
            const bool isPlayed = played.contains(head.name) || head.name == "0" ||
                                  (hidesNamed && !isNumber(head.name));
            if (!isPlayed)
                problems.append({Severity::Hint,
                                 head.place,
                                 QStringLiteral("Nothing plays %1.").arg(inWords(head.name)),
                                 {}});
        }
    }
    return problems;
}

namespace {

/// The p-fields that instruments read, each found once.
class ReadFields
{
public:
    struct Fields
    {
        int last = 3; ///< the last that is read; the first three are always there
        bool isKnown = false;
        bool isAll = false; ///< no more can be read
        bool canMiss = false;
    };

    explicit ReadFields(const PieceFacts &facts) : m_facts(facts)
    {
        for (const CheckedBody &body : facts.orchestra.bodies)
            m_opcodesRead |= body.kind == LandmarkKind::Opcode && readIn(body).readsAny;
    }

    Fields of(const QByteArray &instrument)
    {
        const auto found = m_fields.constFind(instrument);
        return found != m_fields.constEnd() ? *found
                                            : *m_fields.insert(instrument, find(instrument));
    }

private:
    Fields find(const QByteArray &instrument) const
    {
        const QList<int> bodies = m_facts.orchestra.instruments.value(instrument);
        return bodies.size() == 1 ? fieldsIn(m_facts.orchestra.bodies[bodies[0]]) : Fields();
    }

    PieceFields readIn(const CheckedBody &body) const
    {
        PieceBodyLines lines;
        lines.lines = body.lines;
        lines.headingLine = body.lines.first;
        return fieldsOf(*m_facts.piece.orchestra(), lines);
    }

    Fields fieldsIn(const CheckedBody &body) const
    {
        const PieceFields read = readIn(body);
        Fields fields;
        fields.isKnown = !read.readsAny && !body.hasBranches;
        fields.isAll = !body.usesMacro && !m_opcodesRead;
        fields.canMiss = m_facts.orchestra.called.contains("pset");
        if (!read.fields.isEmpty())
            fields.last = std::max(3, read.fields.last().number);
        return fields;
    }

    const PieceFacts &m_facts;
    QHash<QByteArray, Fields> m_fields;
    bool m_opcodesRead = false; ///< opcodes of the piece read fields of whoever calls them
};

PiecePlace placeOfNote(const CheckedNote &note)
{
    PiecePlace place = note.place;
    if (note.more.length > 0)
        place.length = note.more.column + note.more.length - place.column;
    return place;
}

} // namespace

QList<Problem> wrongFieldCounts(const CheckedFacts &of)
{
    const PieceFacts &facts = of.facts;
    QList<Problem> problems;
    if (facts.orchestra.hasInclude || !facts.orchestra.hasCode)
        return problems;
    ReadFields fields(facts);
    QHash<QByteArray, int> carried; ///< how many fields a note of a section leaves to the next
    int section = 0;
    bool isCarriedUnknown = false;
    for (const CheckedNote &note : facts.score.notes) {
        if (note.section != section) {
            carried.clear();
            isCarriedUnknown = false;
            section = note.section;
        }
        if (note.instrument.isEmpty()) {
            isCarriedUnknown = true;
            continue;
        }
        const int before = carried.value(note.instrument);
        carried.insert(note.instrument, note.isSure ? std::max(before, note.fields) : 1'000'000);
        const ReadFields::Fields read = fields.of(note.instrument);
        if (!note.isSure || !read.isKnown)
            continue;
        if (note.fields > read.last && read.isAll) {
            const QString what = read.last == 3 ? QStringLiteral("none behind p3")
                                                : QStringLiteral("none behind p%1").arg(read.last);
            problems.append({Severity::Hint,
                             placeOfNote(note),
                             QStringLiteral("The note has %1 p-fields, but %2 reads %3.")
                                 .arg(note.fields)
                                 .arg(inWords(note.instrument), what),
                             {}});
        } else if (std::max(before, note.fields) < read.last && !isCarriedUnknown &&
                   !read.canMiss) {
            problems.append({Severity::Warning,
                             placeOfNote(note),
                             QStringLiteral("The note has %1 p-fields, but %2 reads p%3.")
                                 .arg(std::max(before, note.fields))
                                 .arg(inWords(note.instrument))
                                 .arg(read.last),
                             {}});
        }
    }
    return problems;
}

QList<Problem> heldNotes(const CheckedFacts &of)
{
    const PieceFacts &facts = of.facts;
    QList<Problem> problems;
    if (facts.orchestra.hasMore() || facts.score.hasHiddenNote || !facts.score.isWhole ||
        facts.orchestra.callsAny({"turnoff", "turnoff2", "turnoff2_i", "turnoff3", "event",
                                  "event_i", "schedule", "schedulek", "schedwhen", "schedkwhen",
                                  "schedkwhennamed", "exitnow", "mute"}))
        return problems;
    // What ends a note: the last start of a note of its voice, and how many there are of it.
    struct Voice
    {
        double lastStart = -1;
        int notes = 0;
        bool isUnknown = false;
    };
    QHash<std::pair<int, QByteArray>, Voice> voices;
    for (const CheckedNote &note : facts.score.notes) {
        Voice &voice = voices[{note.section, note.voice}];
        ++voice.notes;
        voice.isUnknown |= !note.start || !note.isSure;
        voice.lastStart = std::max(voice.lastStart, note.start.value_or(0));
    }
    QSet<int> unknownSections; ///< with notes that carry the instrument
    for (const CheckedNote &note : facts.score.notes) {
        if (note.isCarried)
            unknownSections.insert(note.section);
    }
    for (const CheckedNote &note : facts.score.notes) {
        if (!note.isSure || note.isCarried || !note.duration || *note.duration >= 0 ||
            note.instrument.isEmpty() || unknownSections.contains(note.section))
            continue;
        const Voice voice = voices.value({note.section, note.voice});
        const bool isEnded =
            voice.notes > 1 && (voice.isUnknown || voice.lastStart > note.start.value_or(0));
        if (!isEnded)
            problems.append({Severity::Hint,
                             placeOfNote(note),
                             QStringLiteral("The note is held, and no later one of instrument %1 "
                                            "in this section ends or continues it.")
                                 .arg(QString::fromUtf8(note.voice)),
                             {}});
    }
    return problems;
}

} // namespace ardiphon
