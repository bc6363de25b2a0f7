#include "check/ArgumentFixes.h"

#include "check/CodeLines.h"

#include <algorithm>

namespace ardiphon {

namespace {

/// A statement taken apart, its parts as they are written.
struct Statement
{
    QStringList outputs;
    QStringList inputs;
    int start = 0; ///< in characters, with the outputs
    int end = 0;
    bool isFunction = false;
};

/// The parts of the code from \a first to before \a last that commas separate outside of brackets.
QStringList separated(const CodeLine &code, int first, int last)
{
    QStringList parts;
    int depth = 0;
    int start = -1;
    const auto take = [&](int end) {
        if (start >= 0)
            parts.append(QString::fromUtf8(code.bytes().sliced(start, end - start)).trimmed());
        start = -1;
    };
    for (int i = first; i < last; ++i) {
        const CodeToken &token = code.tokens()[i];
        const QByteArrayView text = token.in(code.bytes());
        if (text == "," && depth == 0) {
            take(token.start);
            continue;
        }
        depth += (text == "(" || text == "[") - (text == ")" || text == "]");
        if (start < 0)
            start = token.start;
    }
    if (last > first)
        take(code.tokens()[last - 1].end());
    return parts;
}

std::optional<Statement> statementAt(const CodeLine &code, const PiecePlace &opcode)
{
    const CodeTokens &tokens = code.tokens();
    const auto name = std::find_if(tokens.begin(), tokens.end(), [&](const CodeToken &token) {
        return charactersOf(code.bytes(), token.start) == opcode.column;
    });
    if (name == tokens.end())
        return std::nullopt;
    const int index = int(name - tokens.begin());
    const int count = int(tokens.size());
    const bool hasBracket = index + 1 < count && tokens[index + 1].start == name->end() &&
                            tokens[index + 1].in(code.bytes()) == "(";
    return Statement{separated(code, 0, index), separated(code, index + 1, count),
                     charactersOf(code.bytes(), tokens.first().start),
                     charactersOf(code.bytes(), tokens.last().end()), hasBracket};
}

/// \a written, with as many as \a wanted has.
QStringList asMany(const QStringList &written, const QList<SignatureArgument> &wanted)
{
    const bool isEndless = std::any_of(wanted.begin(), wanted.end(),
                                       [](const auto &argument) { return argument.isRepeated; });
    QStringList result =
        isEndless ? written : written.first(std::min(written.size(), wanted.size()));
    const int fewest = fewestArguments(wanted);
    while (result.size() < fewest)
        result.append(wanted[result.size()].name);
    return result;
}

} // namespace

QList<ProblemFix> argumentFixes(QByteArrayView line, const PiecePlace &opcode,
                                const QList<Signature> &forms, int most)
{
    CodeState state = CodeState::Code;
    const CodeLine code(line, state);
    const std::optional<Statement> statement = statementAt(code, opcode);
    QList<ProblemFix> fixes;
    if (!statement || statement->isFunction)
        return fixes;
    for (const Signature &form : forms) {
        const QStringList outputs = asMany(statement->outputs, form.outputs);
        const QStringList inputs = asMany(statement->inputs, form.inputs);
        const bool isSame = outputs == statement->outputs && inputs == statement->inputs;
        if (form.form != SignatureForm::Statement || isSame || fixes.size() >= most)
            continue;
        const QString text = (outputs.join(QStringLiteral(", ")) + u' ' + form.name + u' ' +
                              inputs.join(QStringLiteral(", ")))
                                 .trimmed();
        const ProblemFix fix{
            QStringLiteral("Insert ") + text,
            {opcode.role, opcode.line, statement->start, statement->end - statement->start},
            text};
        if (!fixes.contains(fix))
            fixes.append(fix);
    }
    return fixes;
}

} // namespace ardiphon
