#include "typing/LineEdits.h"

#include <algorithm>
#include <limits>

namespace ardiphon {

namespace {

bool isBlank(QChar c) { return c == u' ' || c == u'\t'; }

int leadingBlanks(const QString &line)
{
    const auto end = std::find_if_not(line.begin(), line.end(), isBlank);
    return int(end - line.begin());
}

bool isBlankLine(const QString &line) { return leadingBlanks(line) == line.size(); }

bool isCommentLine(const QString &line)
{
    const int start = leadingBlanks(line);
    return start < line.size() && line[start] == u';';
}

/// Takes lines that follow each other away, with the line ends that part them from the others.
EditorEdit withoutLines(const LineBlock &block)
{
    return {.line = block.first, .lines = int(block.lines.size())};
}

/// The text of whole lines, to be put in where a line begins.
QString wholeLines(const LineBlock &block) { return block.lines.join(u'\n') + u'\n'; }

/// An edit below \a block, where the caret is not moved.
EditorEdit insertedBelow(const LineBlock &block, const LineBlock &inserted)
{
    if (!block.endsText)
        return {.line = block.last() + 1, .text = wholeLines(inserted)};
    return {.line = block.last(),
            .column = int(block.lines.constLast().size()),
            .text = u'\n' + inserted.lines.join(u'\n')};
}

/// \a text in that case, QChar by QChar.
QString inCase(QStringView text, LetterCase letters)
{
    QString changed;
    for (const char32_t code : text.toUcs4()) {
        const char32_t other =
            letters == LetterCase::Upper ? QChar::toUpper(code) : QChar::toLower(code);
        changed += QString::fromUcs4(&other, 1);
    }
    return changed;
}

/// An edit of what differs between \a before, at a column of a line, and \a after, which is as
/// long; none where nothing does.
void addDifference(std::vector<EditorEdit> &edits, int line, int column, QStringView before,
                   const QString &after)
{
    const auto [start, _] = std::mismatch(before.begin(), before.end(), after.begin());
    if (start == before.end())
        return;
    const auto [end, __] = std::mismatch(before.rbegin(), before.rend(), after.rbegin());
    const int first = int(start - before.begin());
    const int length = int(before.rend() - end) - first;
    edits.push_back({line, column + first, length, after.mid(first, length)});
}

} // namespace

std::vector<EditorEdit> toggledComment(const LineBlock &block)
{
    int margin = std::numeric_limits<int>::max();
    bool areComments = true;
    for (const QString &line : block.lines) {
        if (isBlankLine(line))
            continue;
        margin = std::min(margin, leadingBlanks(line));
        areComments = areComments && isCommentLine(line);
    }
    std::vector<EditorEdit> edits;
    for (int i = 0; i < block.lines.size(); ++i) {
        const QString &line = block.lines[i];
        if (isBlankLine(line))
            continue;
        if (areComments)
            edits.push_back({block.first + i, leadingBlanks(line), 1, QString()});
        else
            edits.push_back({block.first + i, margin, 0, QStringLiteral(";")});
    }
    return edits;
}

std::vector<EditorEdit> duplicatedLines(const LineBlock &block)
{
    return {insertedBelow(block, block)};
}

std::vector<EditorEdit> linesMovedUp(const LineBlock &above, const LineBlock &block)
{
    return {withoutLines(above), insertedBelow(block, above)};
}

std::vector<EditorEdit> linesMovedDown(const LineBlock &block, const LineBlock &below)
{
    EditorEdit removed = withoutLines(below);
    if (below.endsText) { // then it is the line end above it that goes
        removed.line = block.last();
        removed.column = int(block.lines.constLast().size());
        removed.length = int(below.lines.constLast().size());
    }
    return {{.line = block.first, .text = wholeLines(below), .movesCaret = true}, removed};
}

std::vector<EditorEdit> deletedToLineEnd(const LineSpan &span, int length)
{
    if (span.startLine == span.endLine && span.startColumn >= length)
        return {};
    const int lines = span.endLine - span.startLine;
    return {{.line = span.startLine,
             .column = span.startColumn,
             .length = lines > 0 ? length : length - span.startColumn,
             .lines = lines}};
}

std::vector<EditorEdit> joinedLines(const LineBlock &block)
{
    std::vector<EditorEdit> edits;
    bool isEmpty = isBlankLine(block.lines.constFirst());
    for (int i = 0; i + 1 < block.lines.size(); ++i) {
        const QString &line = block.lines[i];
        const QString &next = block.lines[i + 1];
        qsizetype end = line.size();
        while (end > leadingBlanks(line) && isBlank(line[end - 1]))
            --end;
        const bool hasBlank = !isEmpty && !isBlankLine(next);
        edits.push_back({.line = block.first + i,
                         .column = int(end),
                         .length = leadingBlanks(next),
                         .text = hasBlank ? QStringLiteral(" ") : QString(),
                         .lines = 1});
        isEmpty = isEmpty && isBlankLine(next);
    }
    return edits;
}

std::vector<EditorEdit> lettersInCase(const LineBlock &block, const LineSpan &span,
                                      LetterCase letters)
{
    std::vector<EditorEdit> edits;
    for (int i = 0; i < block.lines.size(); ++i) {
        const QString &line = block.lines[i];
        const int number = block.first + i;
        const bool isWhole = span.isEmpty();
        const int start = !isWhole && number == span.startLine ? span.startColumn : 0;
        const int end = !isWhole && number == span.endLine ? span.endColumn : int(line.size());
        const QStringView before = QStringView(line).sliced(start, end - start);
        const QString after = inCase(before, letters);
        if (after.size() == before.size())
            addDifference(edits, number, start, before, after);
    }
    return edits;
}

} // namespace ardiphon
