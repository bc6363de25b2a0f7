#include "typing/ui/IndentFeature.h"

#include "app/ConfigurationBlock.h"
#include "language/LineSource.h"
#include "language/TextChange.h"
#include "language/editor/LEditOCX.h"
#include "piece/OrchestraWords.h"
#include "typing/BlockIndent.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/PieceFollower.h"

#include <algorithm>
#include <utility>

namespace ardiphon {

void IndentFeature::install(FeatureHost &host)
{
    m_host = &host;
    for (const EditorView &view : host.views())
        follow(view);
    host.commands().bind("menuStudioReindent", this, [this] { reindent(); });
}

void IndentFeature::follow(const EditorView &view)
{
    LEditOCX &editor = *view.editor;
    editor.SetNewLineRule([this, view](int line, int column) -> std::optional<NewLineBlanks> {
        if (!m_host->config().IndentByBlocks)
            return std::nullopt;
        const PieceText *const text = textOf(view, line);
        auto blanks =
            text ? blanksForNewLine(*text, line, column, view.editor->TabSize()) : std::nullopt;
        if (blanks && isClosed(view, line))
            blanks->line.reset();
        return blanks;
    });
    editor.SetBlanksRule([this, view](int line, int column, int length,
                                      const QString &typed) -> std::optional<QString> {
        if (!m_host->config().IndentByBlocks)
            return std::nullopt;
        const auto word = typedWord(view.editor->Lines().line(line), column, length, typed);
        return word ? blanksWith(view, line, *word) : std::nullopt;
    });
    connect(&editor, &LEditOCX::textChanged, this,
            [this, view](const TextChange &change) { textChanged(view, change); });
}

bool IndentFeature::isClosed(const EditorView &view, int line) const
{
    return m_closed.editor == view.editor && m_closed.line == line;
}

/// The blanks with which the word is to stand there, where they are to change.
std::optional<QString> IndentFeature::blanksWith(const EditorView &view, int line,
                                                 const TypedWord &typed)
{
    const QString present = QString::fromLatin1(typed.blanks);
    const bool hasMoved =
        isClosed(view, line) && m_closed.before != m_closed.after && m_closed.after == present;
    if (!isClosingWord(typed.word)) {
        m_movesBlanks = hasMoved && !beginsClosingWord(typed.word);
        return m_movesBlanks ? std::optional(m_closed.before) : std::nullopt;
    }
    if (hasMoved)
        return std::nullopt;
    // In a split the piece may have the letter already.
    const PieceText *const text = m_host->piece().readPiece().text(view.role);
    const auto blanks = text && text->lineCount() == view.editor->LineCount()
                            ? blanksForClosingWord(*text, line, typed, view.editor->TabSize())
                            : std::nullopt;
    m_closed = {view.editor, line, present, blanks.value_or(present)};
    m_movesBlanks = blanks.has_value();
    return blanks;
}

void IndentFeature::textChanged(const EditorView &view, const TextChange &change)
{
    if (m_closed.editor != view.editor)
        return;
    const int line = m_closed.line;
    const bool isOfLine = change.line == line && change.linesRemoved == 1 && change.linesAdded == 1;
    if (std::exchange(m_movesBlanks, false))
        copyBlanks(view, line);
    if (!isOfLine)
        m_closed = {};
}

/// To the other view of a split, which has got the letter alone.
void IndentFeature::copyBlanks(const EditorView &view, int line) const
{
    const auto blanksOf = [](const QString &text) {
        const auto isBlank = [](QChar c) { return c == u' ' || c == u'\t'; };
        return int(std::find_if_not(text.begin(), text.end(), isBlank) - text.begin());
    };
    const QString own = view.editor->LineText(line);
    const int end = blanksOf(own);
    for (const EditorView &other : m_host->views()) {
        if (other.editor == view.editor || other.role != view.role || other.editor->isHidden())
            continue;
        const QString text = other.editor->LineText(line);
        const int length = blanksOf(text);
        if (text != own && QStringView(text).sliced(length) == QStringView(own).sliced(end))
            other.editor->ReplaceRanges({{line, 0, length, own.left(end)}});
    }
}

const PieceText *IndentFeature::textOf(const EditorView &view, int line) const
{
    const PieceText *const text = m_host->piece().readPiece().text(view.role);
    const LineSource &lines = view.editor->Lines();
    const bool isSame = text && text->lineCount() == lines.lineCount() &&
                        text->line(line).toByteArray() == lines.line(line);
    return isSame ? text : nullptr;
}

/// In both views of a split, as each keeps its own caret.
void IndentFeature::reindent()
{
    const QList<EditorView> views = m_host->views();
    EditorView at = views.constFirst();
    for (const EditorView &each : views) {
        if (each.editor == m_host->focusedEditor())
            at = each;
    }
    LEditOCX &editor = *at.editor;
    const PieceText *const text = textOf(at, 1);
    if (!text)
        return;
    editor.GetSelection();
    int first = 1;
    int last = editor.LineCount();
    if (editor.SelectionLength() > 0) {
        first = editor.SelStartLine;
        last = editor.SelEndLine - (editor.SelEndColumn == 0 ? 1 : 0);
    }
    const std::vector<EditorEdit> edits = reindentedLines(*text, first, last, editor.TabSize());
    for (const EditorView &each : views) {
        if (each.role == at.role &&
            (each.editor == at.editor ||
             (!each.editor->isHidden() && each.editor->LineCount() == text->lineCount())))
            each.editor->ReplaceRanges(edits);
    }
}

} // namespace ardiphon
