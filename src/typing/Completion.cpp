#include "typing/Completion.h"

#include <algorithm>
#include <tuple>

namespace ardiphon {

QString completionKindText(CompletionKind kind)
{
    switch (kind) {
    case CompletionKind::Opcode:
        return QStringLiteral("opcode");
    case CompletionKind::UserOpcode:
        return QStringLiteral("own opcode");
    case CompletionKind::Word:
        return QStringLiteral("word");
    case CompletionKind::Variable:
        return QStringLiteral("variable");
    case CompletionKind::PField:
        return QStringLiteral("p-field");
    case CompletionKind::Macro:
        return QStringLiteral("macro");
    case CompletionKind::Label:
        return QStringLiteral("label");
    case CompletionKind::Instrument:
        return QStringLiteral("instrument");
    case CompletionKind::Table:
        return QStringLiteral("table");
    case CompletionKind::Channel:
        return QStringLiteral("channel");
    case CompletionKind::Gen:
        return QStringLiteral("GEN");
    case CompletionKind::Statement:
        return QStringLiteral("statement");
    case CompletionKind::Tag:
        return QStringLiteral("tag");
    case CompletionKind::Option:
        return QStringLiteral("option");
    case CompletionKind::File:
        return QStringLiteral("file");
    case CompletionKind::Snippet:
        return QStringLiteral("snippet");
    case CompletionKind::Closing:
        return QStringLiteral("closing");
    }
    return QString();
}

QString formOfLine(const PieceText &text, int line)
{
    constexpr qsizetype longest = 120;
    if (line < 1 || line > text.lineCount())
        return QString();
    const QByteArrayView bytes = text.line(line);
    return QString::fromUtf8(bytes.first(std::min(bytes.size(), longest))).simplified();
}

bool isBetter(const Completion &first, const Completion &second)
{
    const auto rank = [](const Completion &of) {
        return std::tuple(of.grade == MatchGrade::Exact, of.fit, of.grade >= MatchGrade::Starts,
                          of.uses, of.score);
    };
    const auto a = rank(first);
    const auto b = rank(second);
    if (a != b)
        return a > b;
    if (first.score == 0 && first.order != second.order)
        return first.order < second.order;
    return std::tuple(first.name.size(), first.name) < std::tuple(second.name.size(), second.name);
}

} // namespace ardiphon
