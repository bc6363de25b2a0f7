#include "typing/ClosingCandidates.h"

#include "piece/PieceBodies.h"

#include <QList>

namespace ardiphon {

namespace {

QString endOf(BlockFamily family)
{
    switch (family) {
    case BlockFamily::Condition:
        return QStringLiteral("endif");
    case BlockFamily::Loop:
        return QStringLiteral("od");
    case BlockFamily::Switch:
        return QStringLiteral("endsw");
    case BlockFamily::Comment:
    case BlockFamily::Braces:
        break;
    }
    return QString();
}

/// The innermost block above \a line that has no end within \a lines.
std::optional<ClosingPlace> openBlock(const PieceText &text, LineRun lines, int line)
{
    QList<PlacedLandmark> open;
    text.visit(lines.first, lines.last, kindsOf(LandmarkKind::BlockBegin, LandmarkKind::BlockEnd),
               [&](PlacedLandmark found) {
                   const auto family = BlockFamily(found.mark->detail);
                   if (endOf(family).isEmpty())
                       return true;
                   if (found.mark->kind == LandmarkKind::BlockBegin)
                       open.append(found);
                   else if (!open.isEmpty() && open.constLast().mark->detail == found.mark->detail)
                       open.removeLast();
                   return true;
               });
    while (!open.isEmpty() && open.constLast().line >= line)
        open.removeLast();
    if (open.isEmpty())
        return std::nullopt;
    return ClosingPlace{endOf(BlockFamily(open.constLast().mark->detail)),
                        QStringLiteral("ends the block of line %1").arg(open.constLast().line)};
}

} // namespace

std::optional<ClosingPlace> missingBracket(const CompletionPlace &place, QStringView behind)
{
    const QStringView rest = behind.trimmed();
    const bool isLineEnd = rest.isEmpty() || rest.startsWith(u';') || rest.startsWith(u"//");
    if (place.open.isEmpty() || !isLineEnd)
        return std::nullopt;
    switch (place.open.back()) {
    case '(':
        return ClosingPlace{QStringLiteral(")"), QStringLiteral("closes the bracket")};
    case '[':
        return ClosingPlace{QStringLiteral("]"), QStringLiteral("closes the bracket")};
    default:
        return ClosingPlace{QStringLiteral("\""), QStringLiteral("closes the quotes")};
    }
}

std::optional<ClosingPlace> missingEnd(const Piece &piece, const PieceText &text, int line)
{
    const auto body = bodyAt(piece, text, line);
    if (!body)
        return std::nullopt;
    if (const auto block = openBlock(text, body->lines, line))
        return block;
    bool isEnded = false;
    text.visit(body->lines.first, body->lines.last,
               kindsOf(LandmarkKind::InstrumentEnd, LandmarkKind::OpcodeEnd), [&](PlacedLandmark) {
                   isEnded = true;
                   return false;
               });
    if (isEnded)
        return std::nullopt;
    const bool isOpcode = body->kind == LandmarkKind::Opcode;
    return ClosingPlace{isOpcode ? QStringLiteral("endop") : QStringLiteral("endin"),
                        QStringLiteral("ends %1 %2")
                            .arg(isOpcode ? QStringLiteral("opcode") : QStringLiteral("instr"),
                                 body->names.join(QStringLiteral(", ")))};
}

} // namespace ardiphon
