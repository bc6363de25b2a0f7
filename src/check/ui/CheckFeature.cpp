#include "check/ui/CheckFeature.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/modRegistry.h"
#include "check/CompilerProblems.h"
#include "check/PieceChecks.h"
#include "check/SectionProblems.h"
#include "check/ui/ProblemsModel.h"
#include "check/ui/ProblemsPanel.h"
#include "insight/ui/GoToPlace.h"
#include "language/WordTables.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/Gutter.h"
#include "workbench/Document.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/PieceFollower.h"

#include <QDockWidget>
#include <QFileInfo>
#include <QMainWindow>
#include <QTimer>

using namespace std::chrono_literals;

namespace ardiphon {

namespace {

constexpr auto TypingPause = 300ms;
/// Lines of a piece up to which our own checks take no longer than a user would feel.
constexpr int MostOwnLines = 2000;
/// Of a compile's log, which is read for its messages, in characters.
constexpr qsizetype LongestLog = 1 << 20;

QString statusText(const CheckResult &result)
{
    switch (result.outcome) {
    case CheckOutcome::GaveUp:
        return QStringLiteral("The check was given up after one second.");
    case CheckOutcome::NoCompiler:
        return QStringLiteral("The compiler cannot be started, so nothing is checked.");
    case CheckOutcome::NotWritten:
        return QStringLiteral("The files for the check cannot be written.");
    case CheckOutcome::Refused:
        if (result.messages.isEmpty() && !result.lastLine.isEmpty())
            return QStringLiteral("The compiler refuses the piece: ") + result.lastLine;
        break;
    case CheckOutcome::Accepted:
        break;
    }
    return {};
}

} // namespace

void CheckFeature::install(FeatureHost &host)
{
    m_host = &host;
    m_pause = new QTimer(this);
    m_pause->setSingleShot(true);
    m_pause->setInterval(TypingPause);
    connect(m_pause, &QTimer::timeout, this, &CheckFeature::check);
    buildDock();
    bindCommands();
    followText();
    host.addNotes([this](DocumentRole role, int line, int column) {
        QList<TextNote> notes;
        for (const Problem &problem : m_list.at(role, line, column))
            notes.append({problem.place, problem.sentence});
        return notes;
    });
    m_pause->start();
}

void CheckFeature::bindCommands()
{
    CommandSet &commands = m_host->commands();
    commands.action("menuStudioCheck")->setChecked(m_host->config().CheckWhileTyping);
    commands.bind("menuStudioCheck", this, [this](bool on) { turn(on); });
    commands.bind("menuStudioNextProblem", this, [this] { goToNext(false); });
    commands.bind("menuStudioPreviousProblem", this, [this] { goToNext(true); });
    QAction *const action = commands.action("menuStudioProblems");
    commands.bind("menuStudioProblems", this, [this](bool shown) {
        m_dock->setVisible(shown);
        if (shown)
            m_panel->takeFocus();
    });
    connect(m_dock, &QDockWidget::visibilityChanged, this,
            [this, action] { action->setChecked(!m_dock->isHidden()); });
    m_host->onLog([this](const QString &log) { readCompileLog(log); });
}

void CheckFeature::buildDock()
{
    m_panel = new ProblemsPanel;
    m_dock = m_host->addDock({"DockProblems", "Problems", Qt::BottomDockWidgetArea}, m_panel);
    connect(m_panel, &ProblemsPanel::chosen, this, &CheckFeature::goTo);
    connect(m_panel, &ProblemsPanel::fixWanted, this, &CheckFeature::mend);
    connect(m_panel, &ProblemsPanel::left, this,
            [this] { m_host->views().constFirst().editor->setFocus(); });
}

void CheckFeature::followText()
{
    for (const EditorView &view : m_host->views())
        followView(view);
    for (LEditOCX *const editor : m_host->editors()) {
        for (const EditorView &view : m_host->views()) {
            if (view.editor == editor)
                connect(editor, &LEditOCX::textChanged, this,
                        [this, role = view.role](const TextChange &change) {
                            takeChange(role, change);
                        });
        }
    }
}

void CheckFeature::followView(const EditorView &view)
{
    connect(view.editor, &LEditOCX::marksWanted, this,
            [this, view](const QList<LineRun> &lines) { mark(view, lines); });
    if (view.gutter)
        view.gutter->setLineMark([this, role = view.role](int line) {
            const auto worst = m_list.worstIn(role, line);
            return worst ? severityColor(*worst) : QColor();
        });
}

/// The newest text wins: what is checked is not that any more.
void CheckFeature::takeChange(DocumentRole role, const TextChange &change)
{
    m_run.reset();
    if (!m_list.problems().isEmpty()) {
        m_list.change(role, change,
                      [this](DocumentRole of, int line) { return lineText(of, line); });
        refresh();
    }
    m_pause->start();
}

void CheckFeature::turn(bool on)
{
    ConfigurationBlock &config = m_host->config();
    config.CheckWhileTyping = on;
    WriteRegistryString(m_host->program().settings, registry::StudioKey,
                        QStringLiteral("CheckWhileTyping"),
                        on ? QStringLiteral("1") : QStringLiteral("0"));
    m_run.reset();
    if (on)
        check();
    else
        show({}, {});
}

void CheckFeature::check()
{
    m_run.reset();
    if (!m_host->config().CheckWhileTyping)
        return;
    if (!m_host->piece().piece().isRead()) {
        m_pause->start();
        return;
    }
    const QString compiler = m_host->config().FileCSound;
    if (compiler.isEmpty()) {
        show({}, QStringLiteral("No compiler is chosen, so nothing is checked."));
        return;
    }
    const CheckInput input = checkInputOf(m_host->piece().piece());
    if (input.isTooLong) {
        show({}, QStringLiteral("The orchestra is too long to be checked while you type."));
        return;
    }
    if (input.orchestraText.trimmed().isEmpty()) {
        show(sectionProblems(m_host->piece().piece()), {});
        return;
    }
    m_run = std::make_unique<CheckRun>();
    connect(m_run.get(), &CheckRun::finished, this,
            [this, input](const CheckResult &result) { takeResult(input, result); });
    const DocumentRole role = m_host->piece().piece().orchestra()->role();
    const QString name = documentName(role);
    const QString folder =
        isUntitled(name) ? m_host->config().RootPath : QFileInfo(name).absolutePath();
    m_run->start(compiler, input, m_host->config().RootPath, folder);
}

void CheckFeature::takeResult(const CheckInput &input, const CheckResult &result)
{
    const CheckedPiece checked{m_host->piece().piece(), input.orchestra, input.score};
    QList<Problem> problems =
        sectionProblems(checked.piece) + problemsOf(result.messages, checked, opcodeWords());
    addOwn(problems);
    show(problems, statusText(result));
}

/// What the compiler does not say, in lines that have no error.
void CheckFeature::addOwn(QList<Problem> &problems) const
{
    const Piece &piece = m_host->piece().piece();
    int lines = 0;
    for (const PieceText &text : piece.texts())
        lines += text.lineCount();
    if (lines > MostOwnLines)
        return;
    const QList<Problem> errors = problems;
    for (const Problem &problem : pieceProblems(piece, opcodeWords(), {})) {
        const bool isKnown = std::any_of(errors.begin(), errors.end(), [&](const Problem &error) {
            return error.place.role == problem.place.role && error.place.line == problem.place.line;
        });
        if (!isKnown)
            problems.append(problem);
    }
}

/// What the compiler has said of the documents, which a compile reads as they were saved.
void CheckFeature::readCompileLog(const QString &log)
{
    const Piece &piece = m_host->piece().readPiece();
    if (!piece.isRead())
        return;
    const PieceText &orchestra = *piece.orchestra();
    const QString name = QFileInfo(documentName(orchestra.role())).fileName();
    const QString score = QFileInfo(documentName(piece.score()->role())).fileName();
    const CheckInput input = compiledLines(piece, name, score);
    const CheckedPiece checked{piece, input.orchestra, input.score};
    const QList<CompilerMessage> messages = readCompilerMessages(log.left(LongestLog).toUtf8());
    if (!messages.isEmpty())
        show(problemsOf(messages, checked, opcodeWords()), {});
}

void CheckFeature::show(const QList<Problem> &problems, const QString &status)
{
    m_list.set(problems, [this](DocumentRole role, int line) { return lineText(role, line); });
    m_panel->setStatus(status);
    refresh();
}

/// After the problems or their places have changed.
void CheckFeature::refresh()
{
    const qsizetype count = m_list.problems().size();
    m_panel->setProblems(m_list.problems());
    m_dock->setWindowTitle(count == 0 ? QStringLiteral("Problems")
                                      : QStringLiteral("Problems (%1)").arg(count));
    for (const EditorView &view : m_host->views()) {
        view.editor->AskForMarks();
        if (view.gutter)
            view.gutter->refreshMarks();
    }
}

void CheckFeature::mark(const EditorView &view, const QList<LineRun> &lines) const
{
    constexpr std::pair<Severity, MarkKind> kinds[] = {{Severity::Error, MarkKind::Error},
                                                       {Severity::Warning, MarkKind::Warning},
                                                       {Severity::Hint, MarkKind::Hint}};
    for (const auto &[severity, kind] : kinds) {
        QList<TextSpan> spans;
        for (const LineRun &run : lines)
            spans += m_list.spans(view.role, run, severity);
        view.editor->SetMarks(kind, spans);
    }
}

void CheckFeature::goTo(int index)
{
    if (index >= 0 && index < m_list.problems().size())
        goToPlace(*m_host, PiecePlace(m_list.problems()[index].place));
}

void CheckFeature::goToNext(bool back)
{
    const LEditOCX *const focused = m_host->focusedEditor();
    DocumentRole role = m_host->views().constFirst().role;
    for (const EditorView &view : m_host->views()) {
        if (view.editor == focused)
            role = view.role;
    }
    const int line = focused ? focused->CaretLine() : 1;
    const int column = focused ? focused->CaretColumn() : -1;
    goTo(back ? m_list.previous(role, line, column) : m_list.next(role, line, column));
}

void CheckFeature::mend(const ProblemFix &fix)
{
    if (LEditOCX *const editor = m_host->editor(fix.place.role)) {
        editor->ReplaceRanges({{fix.place.line, fix.place.column, fix.place.length, fix.text}});
        goToPlace(*m_host, fix.place);
    }
}

QString CheckFeature::documentName(DocumentRole role) const
{
    const Document *const document = m_host->document(role);
    return document ? document->name() : QString();
}

QString CheckFeature::lineText(DocumentRole role, int line) const
{
    const LEditOCX *const editor = m_host->editor(role);
    return editor ? editor->LineText(line) : QString();
}

OpcodeWords CheckFeature::opcodeWords() const
{
    ConfigurationBlock &config = m_host->config();
    return {config.Words->OpcodeNames, [words = config.Words](const QString &name) {
                const int record = words->FindInTable(name);
                return record > 0 && words->ReadOpcodeRecord(record)
                           ? words->OpcodeRecord.Parameters.trimmed()
                           : QString();
            }};
}

} // namespace ardiphon
