#include "check/ChecksOfPiece.h"
#include "check/CompilerProblems.h"
#include "piece/PieceSymbol.h"
#include "typing/Signature.h"

#include <algorithm>

namespace ardiphon {

namespace {

QString inQuotes(const QByteArray &name) { return u'"' + QString::fromUtf8(name) + u'"'; }

// Tables.

/// Whether an argument of that name is the number of a table that has to be there.
bool wantsTable(const QString &argument)
{
    static const QStringList names = {
        QStringLiteral("ifn"),  QStringLiteral("kfn"),  QStringLiteral("xfn"),
        QStringLiteral("ifn1"), QStringLiteral("ifn2"), QStringLiteral("ifn3"),
        QStringLiteral("ifn4"), QStringLiteral("ifna"), QStringLiteral("ifnb"),
        QStringLiteral("ift"),  QStringLiteral("kft"),  QStringLiteral("iwfn"),
    };
    return names.contains(argument);
}

bool makesTables(const QByteArray &opcode)
{
    return opcode.startsWith("ftgen") || opcode == "vftgen" || opcode.startsWith("ftload") ||
           opcode == "vco2init";
}

class TableCheck
{
public:
    explicit TableCheck(const CheckedFacts &of) : m_of(of), m_facts(of.facts) {}

    QList<Problem> problems()
    {
        QList<Problem> problems;
        if (!readTables())
            return problems;
        for (const OpcodeCall &call : m_facts.orchestra.calls) {
            if (makesTables(call.name) || call.name == "ftexists" || call.name == "ftfree" ||
                m_facts.piece.definesOpcode(call.name))
                continue;
            for (int i = 0; i < call.arguments.size(); ++i) {
                const CalledArgument &argument = call.arguments[i];
                if (isMissing(argument) && isTable(call, i))
                    problems.append(
                        {Severity::Warning,
                         argument.place,
                         QStringLiteral("Nothing makes table %1.").arg(argument.text.toInt()),
                         {}});
            }
        }
        return problems;
    }

private:
    /// The tables that are made; false where nobody can tell them.
    bool readTables()
    {
        if (m_facts.orchestra.hasMore() || m_facts.hasForeignPart || !m_facts.score.isWhole ||
            !m_facts.score.hasStatements || m_facts.score.hasHiddenTable ||
            m_facts.orchestra.callsAny({"vco2init", "ftload", "ftloadk", "vftgen"}) ||
            m_facts.orchestra.macroText.contains("ftgen"))
            return false;
        m_tables = m_facts.score.tables;
        for (const OpcodeCall &call : m_facts.orchestra.calls) {
            const bool isEvent = call.name == "event" || call.name == "event_i";
            if (isEvent && (call.arguments.isEmpty() || call.arguments[0].text != "i"))
                return false;
            if (makesTables(call.name) && !takeMade(call))
                return false;
        }
        return true;
    }

    bool takeMade(const OpcodeCall &call)
    {
        if (call.arguments.isEmpty() || call.arguments[0].form != CalledArgument::Form::Number)
            return false;
        const int made = std::abs(int(call.arguments[0].text.toDouble()));
        m_hasOwnNumbers |= made == 0;
        m_tables.insert(QByteArray::number(made));
        const CalledArgument routine = call.arguments.value(3);
        if (routine.form != CalledArgument::Form::Number || routine.text.endsWith("15"))
            m_tables.insert(QByteArray::number(made + 1)); // that routine makes two
        return true;
    }

    bool isMissing(const CalledArgument &argument) const
    {
        bool isWhole = false;
        const int number = argument.text.toInt(&isWhole);
        return argument.form == CalledArgument::Form::Number && isWhole && number > 0 &&
               !(m_hasOwnNumbers && number > 100) && !m_tables.contains(QByteArray::number(number));
    }

    /// Whether that argument is a table in all forms of the opcode that have it.
    bool isTable(const OpcodeCall &call, int argument)
    {
        if (!m_forms.contains(call.name)) {
            const QString name = QString::fromUtf8(call.name);
            m_forms.insert(call.name, signaturesOf(m_of.words.parameters(name), name));
        }
        bool isOne = false;
        for (const Signature &form : m_forms.value(call.name)) {
            const int at = argumentAt(form.inputs, argument);
            if (at < 0)
                continue;
            if (!wantsTable(form.inputs[at].name) || at != argument)
                return false;
            isOne = true;
        }
        return isOne;
    }

    const CheckedFacts &m_of;
    const PieceFacts &m_facts;
    QSet<QByteArray> m_tables;
    bool m_hasOwnNumbers = false; ///< of tables that get the next one that is free, above 100
    QHash<QByteArray, QList<Signature>> m_forms;
};

// Channels.

bool isChannelReader(const QByteArray &opcode) { return opcode.startsWith("chnget"); }

/// The argument that names the channel which an opcode writes or declares; -1 for none.
int writtenChannel(const QByteArray &opcode)
{
    if (opcode.startsWith("chnset") || opcode == "chnmix")
        return 1;
    const bool writes = opcode.startsWith("chn_") || opcode == "chnexport" ||
                        opcode == "chnparams" || opcode == "outvalue" || opcode == "chnclear";
    return writes ? 0 : -1;
}

// Values.

/// Whether a value of that name is one of init time: a number or a text.
bool isInitName(QByteArrayView name)
{
    return name.startsWith('i') || name.startsWith('S') || name.startsWith("gi") ||
           name.startsWith("gS");
}

/// The header reads a value that instruments write: it runs before any of them.
QList<Problem> valuesOfInstruments(const PieceFacts &facts)
{
    QSet<QByteArray> written;   ///< by the header so far
    QSet<QByteArray> elsewhere; ///< by bodies so far
    QList<Problem> problems;
    int statement = -1;
    QSet<QByteArray> next; ///< by the statement that is read
    for (const VariableUse &use : facts.orchestra.names) {
        if (!isGlobalName(use.name) || !isInitName(use.name))
            continue;
        if (use.statement != statement) {
            written.unite(next);
            next.clear();
            statement = use.statement;
        }
        if (use.body >= 0) {
            if (use.isWritten)
                elsewhere.insert(use.name);
        } else if (use.isWritten) {
            next.insert(use.name);
        } else if (!written.contains(use.name) && elsewhere.contains(use.name)) {
            written.insert(use.name); // says it once
            problems.append({Severity::Warning,
                             use.place,
                             QStringLiteral("%1 has no value yet: only instruments write it, and "
                                            "the header runs before them.")
                                 .arg(inQuotes(use.name)),
                             {}});
        }
    }
    return problems;
}

/// Statements that a jump passes over at init time, to its label.
struct PassedOver
{
    int body = -1;
    int first = 0;
    int last = 0;
    QByteArray label;
};

QList<PassedOver> passedOver(const OrchestraFacts &orchestra)
{
    QList<PassedOver> passed;
    const auto &jumps = orchestra.jumps;
    for (qsizetype i = 0; i + 1 < jumps.size(); ++i) {
        const JumpFact &jump = jumps[i];
        if (!jump.isCertain || jump.body < 0)
            continue;
        qsizetype next = i + 1; // the first label behind it
        while (next < jumps.size() && jumps[next].body == jump.body && !jumps[next].isLabel)
            ++next;
        if (next < jumps.size() && jumps[next].body == jump.body && jumps[next].label == jump.label)
            passed.append({jump.body, jump.statement + 1, jumps[next].statement - 1, jump.label});
    }
    return passed;
}

QList<Problem> valuesPassedOver(const PieceFacts &facts)
{
    QList<Problem> problems;
    const QList<PassedOver> all = passedOver(facts.orchestra);
    if (all.isEmpty())
        return problems;
    for (const PassedOver &passed : all) {
        QSet<QByteArray> skipped;
        QSet<QByteArray> written;
        const auto &names = facts.orchestra.names;
        for (qsizetype i = facts.orchestra.bodies[passed.body].firstName;
             i < names.size() && names[i].body == passed.body; ++i) {
            const VariableUse &use = names[i];
            if (!isInitName(use.name) || isGlobalName(use.name))
                continue;
            const bool isSkipped = use.statement >= passed.first && use.statement <= passed.last;
            if (use.isWritten) {
                (isSkipped ? skipped : written).insert(use.name);
            } else if (!isSkipped && use.statement > passed.last && skipped.contains(use.name) &&
                       !written.contains(use.name)) {
                written.insert(use.name);
                problems.append({Severity::Warning,
                                 use.place,
                                 QStringLiteral("%1 has no value here: the jump to %2 passes over "
                                                "where it is written.")
                                     .arg(inQuotes(use.name), inQuotes(passed.label)),
                                 {}});
            }
        }
    }
    return problems;
}

// Capitals.

class CapitalsCheck
{
public:
    explicit CapitalsCheck(const CheckedFacts &of) : m_of(of), m_facts(of.facts) {}

    QList<Problem> problems()
    {
        checkOpcodes();
        if (!m_facts.orchestra.hasInclude)
            checkVariables();
        return m_problems;
    }

private:
    void checkOpcodes()
    {
        QSet<QByteArray> unknown;
        for (const QByteArray &name : m_facts.orchestra.called) {
            if (!m_facts.isOpcode(name) && !isWrittenName(name))
                unknown.insert(name);
        }
        if (unknown.isEmpty())
            return;
        QHash<QByteArray, QByteArray> bySmall;
        for (const QString &name : m_of.words.names)
            bySmall.insert(name.toUtf8().toLower(), name.toUtf8());
        for (const OpcodeCall &call : m_facts.orchestra.calls) {
            if (!unknown.contains(call.name))
                continue;
            const QByteArray meant = bySmall.value(call.name.toLower());
            if (!meant.isEmpty() && meant != call.name)
                add(call.place, call.name, meant,
                    QStringLiteral("%1 is no opcode, but %2 is.")
                        .arg(inQuotes(call.name), inQuotes(meant)));
        }
    }

    bool isWrittenName(const QByteArray &name)
    {
        if (m_written.isEmpty()) {
            for (const VariableUse &use : m_facts.orchestra.names) {
                if (use.isWritten)
                    m_written.insert(use.name);
            }
        }
        return m_written.contains(name);
    }

    struct Scope
    {
        QSet<QByteArray> written;
        QHash<QByteArray, QByteArrayList> bySmall; ///< those that are written
    };

    static int scopeOf(const VariableUse &use) { return isGlobalName(use.name) ? -2 : use.body; }

    void checkVariables()
    {
        QHash<int, Scope> scopes;
        for (const VariableUse &use : m_facts.orchestra.names) {
            Scope &scope = scopes[scopeOf(use)];
            if (!use.isWritten || scope.written.contains(use.name))
                continue;
            scope.written.insert(use.name);
            scope.bySmall[use.name.toLower()].append(use.name);
        }
        for (const VariableUse &use : m_facts.orchestra.names) {
            const auto scope = scopes.constFind(scopeOf(use));
            const bool isUnsure = use.body >= 0 && (m_facts.orchestra.bodies[use.body].usesMacro ||
                                                    isOpcodeBody(use.body));
            if (use.isWritten || isUnsure || scope->written.contains(use.name))
                continue;
            const QByteArrayList meant = scope->bySmall.value(use.name.toLower());
            if (meant.size() == 1)
                add(use.place, use.name, meant[0],
                    QStringLiteral("%1 is not written, but %2 is.")
                        .arg(inQuotes(use.name), inQuotes(meant[0])));
        }
    }

    /// Whose inputs have names that no statement need write.
    bool isOpcodeBody(int body) const
    {
        return m_facts.orchestra.bodies[body].kind == LandmarkKind::Opcode;
    }

    void add(const PiecePlace &place, const QByteArray &, const QByteArray &meant,
             const QString &sentence)
    {
        const QString name = QString::fromUtf8(meant);
        Problem problem{Severity::Warning, place, sentence, {}};
        problem.fixes.append({QStringLiteral("Insert %1").arg(name), place, name});
        m_problems.append(problem);
    }

    const CheckedFacts &m_of;
    const PieceFacts &m_facts;
    QSet<QByteArray> m_written;
    QList<Problem> m_problems;
};

} // namespace

QList<Problem> missingTables(const CheckedFacts &of) { return TableCheck(of).problems(); }

QList<Problem> unwrittenValues(const CheckedFacts &of)
{
    if (of.facts.orchestra.hasInclude)
        return {};
    return valuesOfInstruments(of.facts) + valuesPassedOver(of.facts);
}

QList<Problem> opcodesUnknownHere(const CheckedFacts &of)
{
    QList<Problem> problems;
    if (of.compilerOpcodes.isEmpty() || of.facts.orchestra.hasInclude)
        return problems;
    QSet<QByteArray> unknown;
    for (const QByteArray &name : of.facts.orchestra.called) {
        if (of.facts.piece.isOpcode(name) && !of.facts.piece.definesOpcode(name) &&
            !of.compilerOpcodes.contains(name) && !isLanguageWord(name))
            unknown.insert(name);
    }
    for (const OpcodeCall &call : of.facts.orchestra.calls) {
        if (unknown.contains(call.name))
            problems.append({Severity::Warning,
                             call.place,
                             QStringLiteral("The compiler of this computer has no opcode %1.")
                                 .arg(inQuotes(call.name)),
                             {}});
    }
    return problems;
}

QList<Problem> unwrittenChannels(const CheckedFacts &of)
{
    const OrchestraFacts &orchestra = of.facts.orchestra;
    QList<Problem> problems;
    if (orchestra.hasMore() || of.facts.hasForeignPart || orchestra.macroText.contains("chn") ||
        orchestra.macroText.contains("outvalue"))
        return problems;
    QSet<QByteArray> written;
    for (const OpcodeCall &call : orchestra.calls) {
        const int first = writtenChannel(call.name);
        const qsizetype last = call.name == "chnclear" ? call.arguments.size() - 1 : first;
        for (int i = std::max(0, first); first >= 0 && i <= last; ++i) {
            if (i >= call.arguments.size() || call.arguments[i].form != CalledArgument::Form::Text)
                return problems;
            written.insert(call.arguments[i].text);
        }
    }
    for (const OpcodeCall &call : orchestra.calls) {
        if (!isChannelReader(call.name) || call.arguments.isEmpty() ||
            call.arguments[0].form != CalledArgument::Form::Text ||
            written.contains(call.arguments[0].text))
            continue;
        problems.append({Severity::Hint,
                         call.arguments[0].place,
                         QStringLiteral("Nothing in the piece writes the channel %1.")
                             .arg(inQuotes(call.arguments[0].text)),
                         {}});
    }
    return problems;
}

QList<Problem> wrongCapitals(const CheckedFacts &of) { return CapitalsCheck(of).problems(); }

} // namespace ardiphon
