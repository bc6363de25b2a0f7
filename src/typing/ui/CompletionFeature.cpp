#include "typing/ui/CompletionFeature.h"

#include "app/ConfigurationBlock.h"
#include "language/LineSource.h"
#include "language/WordTables.h"
#include "language/editor/LEditOCX.h"
#include "piece/PieceSymbol.h"
#include "typing/TakenText.h"
#include "typing/ui/CompletionPopup.h"
#include "workbench/Document.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/PieceFollower.h"

#include <QFileInfo>
#include <QInputMethodEvent>
#include <QMainWindow>

#include <algorithm>
#include <utility>

namespace ardiphon {

namespace {

constexpr int LeastLetters = 2;
constexpr int Backspace = 8;
constexpr int Delete = 127;

bool isOfName(int character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '_';
}

bool opens(int character) { return character == '(' || character == '[' || character == '"'; }

QString textBefore(const LEditOCX &editor, int column)
{
    return editor.LineText(editor.CaretLine()).left(column);
}

/// The blanks at its beginning.
QString indentOf(const QString &line)
{
    const auto isBlank = [](QChar c) { return c == u' ' || c == u'\t'; };
    return line.left(std::find_if_not(line.begin(), line.end(), isBlank) - line.begin());
}

} // namespace

CompletionFeature::CompletionFeature() = default;
CompletionFeature::~CompletionFeature() { delete m_popup; }

void CompletionFeature::install(FeatureHost &host)
{
    m_host = &host;
    host.commands().bind("menuStudioComplete", this, [this] { ask(); });
    host.owner().installEventFilter(this);
    for (const EditorView &view : host.views())
        follow(view);
}

void CompletionFeature::follow(const EditorView &view)
{
    LEditOCX *const editor = view.editor;
    editor->focusProxy()->installEventFilter(this);
    connect(editor, &LEditOCX::KeyDown, this, [this, view](EditorKey &key) { keyDown(view, key); });
    connect(editor, &LEditOCX::KeyPress, this, [this, editor](const int &character) {
        m_typing = {editor, character, editor->TextRevision() + 1};
    });
    connect(editor, &LEditOCX::textChanged, this,
            [this, view](const TextChange &change, quint64 revision) {
                textChanged(view, change, revision);
            });
    connect(editor, &LEditOCX::caretMoved, this, [this, view] { caretMoved(view); });
    connect(editor, &LEditOCX::Repaint, this, [this, view] { viewMoved(view); });
    connect(editor, &LEditOCX::MouseButton, this, [this] { close(); });
    connect(editor, &LEditOCX::Click, this, [this, view] {
        if (!m_places.contains(view.editor->CaretLine(), view.editor->CaretColumn()))
            m_places.end();
    });
}

/// The window and the views: what takes the list away, and whether text is being composed.
bool CompletionFeature::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::FocusOut:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Hide:
    case QEvent::WindowDeactivate:
    case QEvent::WindowStateChange:
        close();
        break;
    case QEvent::InputMethod:
        m_isComposing = !static_cast<QInputMethodEvent *>(event)->preeditString().isEmpty();
        if (m_isComposing)
            close();
        break;
    default:
        break;
    }
    return false;
}

// Keys. -------------------------------------------------------------------------------------------

void CompletionFeature::keyDown(const EditorView &view, EditorKey &key)
{
    m_typing = {};
    const bool isTaken = m_view && m_view->editor == view.editor &&
                         ((isOpen() && listKey(view, key)) || placesKey(view, key));
    if (isTaken)
        key.KeyCode = 0;
}

/// Whether the list has a use for the key.
bool CompletionFeature::listKey(const EditorView &view, const EditorKey &key)
{
    const bool isTab = key.KeyCode == Qt::Key_Tab || key.KeyCode == Qt::Key_Backtab;
    if (isTab && key.Shift <= 1) {
        const bool wantsArguments = key.Shift == 1 || key.KeyCode == Qt::Key_Backtab;
        // A word that is there already is no suggestion: Tab is a Tab.
        if (m_popup->list()->isTyped(m_popup->row()) && !wantsArguments) {
            close();
            return false;
        }
        take(wantsArguments);
        return true;
    }
    if (key.Shift != 0)
        return false;
    if (key.KeyCode == Qt::Key_Escape) {
        m_dismissed = dismissed(view, m_popup->list()->place());
        close();
        return true;
    }
    if (m_popup->list()->size() < 2) // nothing to choose from
        return false;
    switch (key.KeyCode) {
    case Qt::Key_Up:
        m_popup->moveRow(-1);
        return true;
    case Qt::Key_Down:
        m_popup->moveRow(1);
        return true;
    case Qt::Key_PageUp:
        m_popup->moveRow(-m_popup->pageRows());
        return true;
    case Qt::Key_PageDown:
        m_popup->moveRow(m_popup->pageRows());
        return true;
    default:
        return false;
    }
}

/// Whether the places of what was taken have a use for the key.
bool CompletionFeature::placesKey(const EditorView &view, const EditorKey &key)
{
    if (!m_places.isAlive() || key.Shift > 1)
        return false;
    if (key.KeyCode == Qt::Key_Escape) {
        m_places.end();
        return true;
    }
    const bool isBack = key.KeyCode == Qt::Key_Backtab || key.Shift == 1;
    if (key.KeyCode != Qt::Key_Tab && key.KeyCode != Qt::Key_Backtab)
        return false;
    if (!m_places.contains(view.editor->CaretLine(), view.editor->CaretColumn())) {
        m_places.end();
        return false;
    }
    fillPartners(view);
    const auto span = isBack ? m_places.goBack() : m_places.goNext();
    if (span)
        goTo(view, *span);
    return span || isBack;
}

// The text. ---------------------------------------------------------------------------------------

void CompletionFeature::textChanged(const EditorView &view, const TextChange &change,
                                    quint64 revision)
{
    const bool isOfView = m_view && m_view->editor == view.editor;
    if (isOfView && m_places.isAlive())
        m_places.follow(change, [&view](int line) { return view.editor->LineText(line); });
    if (m_isTaking)
        return;
    const bool isTyped = m_typing.editor == view.editor && m_typing.revision == revision;
    if (isTyped)
        typed(view, std::exchange(m_typing, {}).character);
    else if (isOfView)
        close();
}

void CompletionFeature::typed(const EditorView &view, int character)
{
    if (!isOfName(character) && character != Backspace)
        m_dismissed = {};
    if (!isOfName(character))
        m_unmatched = {};
    const bool isListOfView = isOpen() && m_view->editor == view.editor;
    if (isListOfView && isOfName(character) &&
        view.editor->CaretColumn() !=
            m_popup->list()->place().start + m_popup->list()->typed().size() + 1) {
        close(); // the word has moved with its line's blanks
        open(view, m_reason);
    } else if (isListOfView && character != Delete)
        goOn(view);
    else
        close();
    if (isOpen() || m_isComposing || !m_host->config().CompletionWhileTyping)
        return;
    if (opens(character))
        open(view, CompletionReason::Opening);
    else if (begins(view, character) && !isUnmatched(view))
        open(view, CompletionReason::Letters);
}

/// Whether letters were typed behind those that nothing matched.
bool CompletionFeature::isUnmatched(const EditorView &view) const
{
    const LEditOCX &editor = *view.editor;
    return m_unmatched.line == editor.CaretLine() &&
           textBefore(editor, editor.CaretColumn()).startsWith(m_unmatched.text);
}

void CompletionFeature::noteUnmatched(const EditorView &view)
{
    const LEditOCX &editor = *view.editor;
    m_unmatched = {editor.CaretLine(), textBefore(editor, editor.CaretColumn())};
}

/// Whether the character makes a word long enough to be guessed; in quotes any text is a word.
bool CompletionFeature::begins(const EditorView &view, int character) const
{
    if (!isOfName(character))
        return false;
    const LEditOCX &editor = *view.editor;
    const QByteArrayView line = editor.Lines().line(editor.CaretLine());
    const int caret = byteOfCharacter(line, editor.CaretColumn());
    int start = caret;
    while (start > 0 && caret - start < 64 && isOfName(static_cast<unsigned char>(line[start - 1])))
        --start;
    const bool isNumber = start < caret && line[start] >= '0' && line[start] <= '9';
    return caret - start >= LeastLetters && !isNumber;
}

/// The list goes on as long as the caret stays in its word.
void CompletionFeature::goOn(const EditorView &view)
{
    const LEditOCX &editor = *view.editor;
    const CompletionPlace place = m_popup->list()->place();
    const int caret = editor.CaretColumn();
    if (editor.CaretLine() != place.line || caret < place.start) {
        close();
        return;
    }
    const QString typed = textBefore(editor, caret).mid(place.start);
    const bool isWord = std::all_of(typed.begin(), typed.end(),
                                    [&](QChar c) { return isOfCompletedWord(place, c); });
    const bool isOut = !isWord || typed.isEmpty();
    if (!isOut && typed.startsWith(place.typed) && !place.typed.isEmpty()) {
        if (!m_popup->narrow(typed)) {
            close();
            noteUnmatched(view);
        }
        return;
    }
    const bool wasForNames = m_reason != CompletionReason::Opening || place.isQuoted;
    close();
    // Other letters than those that it was opened with.
    if (!isOut && wasForNames)
        open(view, CompletionReason::Letters);
}

void CompletionFeature::caretMoved(const EditorView &view)
{
    if (view.editor->CaretLine() != m_dismissed.line)
        m_dismissed = {};
    if (!isOpen() || m_view->editor != view.editor)
        return;
    const CompletionPlace &place = m_popup->list()->place();
    const int column = view.editor->CaretColumn();
    if (view.editor->CaretLine() != place.line || column < place.start ||
        column != place.start + m_popup->list()->typed().size() ||
        view.editor->SelectionLength() > 0)
        close();
}

/// A list whose word has been scrolled away goes; one that moved sideways stays with it.
void CompletionFeature::viewMoved(const EditorView &view)
{
    if (!isOpen() || m_view->editor != view.editor)
        return;
    if (view.editor->TopLine() != m_topLine)
        close();
    else
        m_popup->moveTo(wordOnScreen(view, m_popup->list()->place()));
}

// The list. ---------------------------------------------------------------------------------------

bool CompletionFeature::isOpen() const { return m_popup != nullptr && m_popup->isOpen(); }

void CompletionFeature::ask()
{
    const LEditOCX *const focused = m_host->focusedEditor();
    for (const EditorView &view : m_host->views()) {
        if (view.editor != focused || m_isComposing)
            continue;
        close();
        m_dismissed = {};
        open(view, CompletionReason::Asked);
        return;
    }
}

CompletionFeature::Dismissed CompletionFeature::dismissed(const EditorView &view,
                                                          const CompletionPlace &place)
{
    const QString before = view.editor->LineText(place.line).left(place.start);
    return {place.line, int(before.size() - indentOf(before).size())};
}

bool CompletionFeature::isDismissed(const EditorView &view, const CompletionPlace &place) const
{
    if (place.line != m_dismissed.line)
        return false;
    return dismissed(view, place).start == m_dismissed.start;
}

void CompletionFeature::open(const EditorView &view, CompletionReason reason)
{
    const LEditOCX &editor = *view.editor;
    const Piece &piece = m_host->piece().piece();
    const PieceText *const text = piece.text(view.role);
    const int line = editor.CaretLine();
    if (text == nullptr || text->lineCount() != editor.LineCount() || editor.SelectionLength() > 0)
        return;
    const CompletionPlace place = completionPlace(piece, *text, line, editor.CaretColumn());
    const bool isTyped = reason != CompletionReason::Asked;
    if (!place.isSomething() || (isTyped && isDismissed(view, place)) ||
        (reason == CompletionReason::Opening && place.open.isEmpty()))
        return;
    if (!m_opcodes)
        m_opcodes = std::make_unique<OpcodeSignatures>(*m_host->config().Words);
    const CompletionSources sources{piece, *m_host->config().Words, *m_opcodes,
                                    [this, &view] { return filesOf(view.role); }, snippets()};
    auto list = std::make_unique<CompletionList>(sources, place, reason,
                                                 editor.LineText(line).mid(editor.CaretColumn()));
    if (list->isEmpty() || (list->size() == 1 && list->isTyped(0) && isTyped &&
                            list->at(0).kind != CompletionKind::Opcode)) {
        if (reason == CompletionReason::Letters)
            noteUnmatched(view);
        return;
    }
    if (m_popup == nullptr) {
        m_popup = new CompletionPopup(*m_opcodes, &m_host->owner());
        connect(m_popup, &CompletionPopup::clicked, this, [this] { take(false); });
    }
    if (m_places.isAlive() && m_view && m_view->editor != view.editor)
        m_places.end();
    m_view = view;
    m_reason = reason;
    m_topLine = editor.TopLine();
    m_popup->open(std::move(list), wordOnScreen(view, place));
}

void CompletionFeature::close()
{
    if (isOpen())
        m_popup->close();
}

/// The rectangle of the line's height at the beginning of the word.
QRect CompletionFeature::wordOnScreen(const EditorView &view, const CompletionPlace &place) const
{
    const QPoint at = view.editor->PositionToPixels(place.line, place.start);
    return {view.editor->mapToGlobal(at), QSize(1, view.editor->LineHeight())};
}

const QList<Snippet> &CompletionFeature::snippets()
{
    return m_snippets.of(snippetFiles(m_host->config().ProgramFolder));
}

/// The files beside the document; without one, those of the working folder.
QStringList CompletionFeature::filesOf(DocumentRole role) const
{
    const Document *const document = m_host->document(role);
    return fileNamesIn(document && document->hasFile() ? QFileInfo(document->name()).absolutePath()
                                                       : m_host->config().WorkingDirectory);
}

// Taking. -----------------------------------------------------------------------------------------

void CompletionFeature::take(bool withArgumentsToo)
{
    if (!isOpen() || m_popup->row() < 0)
        return;
    const EditorView view = *m_view;
    const CompletionPlace place = m_popup->list()->place();
    const Completion chosen = m_popup->list()->at(m_popup->row());
    const QString typed = m_popup->list()->typed();
    const int caret = place.start + int(typed.size());
    close();
    const QString behind = view.editor->LineText(place.line).mid(caret);
    if (chosen.isAppended) {
        put(view, {place.line, caret, 0}, {chosen.taken(), {}});
        // Between a bracket and its end there is something to be typed.
        if (place.typed.isEmpty() && caret > 0 &&
            opens(view.editor->LineText(place.line)[caret - 1].unicode()))
            goTo(view, {place.line, caret, 0});
        return;
    }
    // The rest of the word goes too where the whole word may be meant for the name.
    const int more = restOfWord(place, behind);
    const bool hasAll = place.isQuoted || place.kind == PlaceKind::Tag ||
                        matchName(typed + behind.left(more), chosen.name);
    put(view, {place.line, place.start, int(typed.size()) + (hasAll ? more : 0)},
        withArgumentsToo || chosen.kind == CompletionKind::Snippet ? argumentsOf(chosen, place)
                                                                   : TakenText{chosen.taken(), {}});
}

TakenText CompletionFeature::argumentsOf(const Completion &chosen,
                                         const CompletionPlace &place) const
{
    switch (chosen.kind) {
    case CompletionKind::Opcode:
        return withArguments(chosen.name, m_opcodes->of(chosen.record).signatures, place);
    case CompletionKind::UserOpcode:
        return withArguments(chosen.name, signaturesOf(chosen.form, chosen.name), place);
    case CompletionKind::Snippet:
        return textOf(m_snippets.known()[chosen.snippet]);
    default:
        return {chosen.taken(), {}};
    }
}

/// Puts the text in the place of \a where, in all views that show it.
void CompletionFeature::put(const EditorView &view, const PlaceSpan &where, const TakenText &taken)
{
    const QString line = view.editor->LineText(where.line);
    const TakenText text = indented(taken, indentOf(line));
    const QString lines = QString(text.text).replace(u'\n', QLatin1String("\r\n"));
    m_isTaking = true;
    goTo(view, where);
    view.editor->TypeSelText(lines);
    copyTaken(view, where, line, lines);
    m_isTaking = false;
    m_view = view;
    if (text.places.isEmpty())
        return;
    // The blanks of a line may have changed with its word.
    const qsizetype moved = lines.contains(u'\n') ? 0
                                                  : view.editor->LineText(where.line).size() -
                                                        (line.size() - where.length + lines.size());
    m_places.begin(text, where.line, where.column + int(moved),
                   [&view](int at) { return view.editor->LineText(at); });
    if (const auto first = m_places.current())
        goTo(view, *first);
}

/// Puts the text into the other view of a split, where \a line is as it was; its line gets the
/// blanks that it has now.
void CompletionFeature::copyTaken(const EditorView &view, const PlaceSpan &where,
                                  const QString &line, const QString &text) const
{
    const QString now = indentOf(view.editor->LineText(where.line));
    for (const EditorView &other : m_host->views()) {
        LEditOCX &editor = *other.editor;
        if (other.editor == view.editor || other.role != view.role || editor.isHidden() ||
            editor.LineText(where.line) != line)
            continue;
        const int top = editor.TopLine();
        goTo(other, where);
        editor.SetSelText(text);
        if (const QString blanks = indentOf(editor.LineText(where.line)); blanks != now)
            editor.ReplaceRanges({{where.line, 0, int(blanks.size()), now}});
        editor.SetTopLine(top);
    }
}

void CompletionFeature::goTo(const EditorView &view, const PlaceSpan &span) const
{
    LEditOCX &editor = *view.editor;
    editor.SelStartLine = editor.SelEndLine = span.line;
    editor.SelStartColumn = span.column;
    editor.SelEndColumn = span.column + span.length;
    editor.SetSelection();
}

/// The places that share the present one's number get its text.
void CompletionFeature::fillPartners(const EditorView &view)
{
    const auto current = m_places.current();
    const QList<PlaceSpan> partners = m_places.partners();
    if (!current || partners.isEmpty())
        return;
    const QString text = view.editor->LineText(current->line).mid(current->column, current->length);
    std::vector<EditorEdit> edits;
    for (const PlaceSpan &span : partners) {
        if (view.editor->LineText(span.line).mid(span.column, span.length) != text)
            edits.push_back({span.line, span.column, span.length, text});
    }
    std::sort(edits.begin(), edits.end(), [](const EditorEdit &a, const EditorEdit &b) {
        return std::pair(a.line, a.column) < std::pair(b.line, b.column);
    });
    m_isTaking = true;
    for (const EditorView &other : m_host->views()) {
        if (other.editor == view.editor || (other.role == view.role && !other.editor->isHidden() &&
                                            other.editor->LineCount() == view.editor->LineCount()))
            other.editor->ReplaceRanges(edits);
    }
    m_isTaking = false;
}

} // namespace ardiphon
