#include "documents/ui/EditorWindow.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/WindowMirror.h"
#include "compile/CompileRules.h"
#include "documents/Commands.h"
#include "documents/ui/DeferredClose.h"
#include "documents/ui/EditorArea.h"
#include "documents/ui/Features.h"
#include "documents/ui/FileDrop.h"
#include "documents/ui/FocusedWheel.h"
#include "documents/ui/MenuBarKeys.h"
#include "documents/ui/RecentMenu.h"
#include "documents/ui/ToolToggles.h"
#include "documents/ui/WindowPlacement.h"
#include "language/WordTables.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/EditorPopup.h"
#include "navigation/ui/SearchFeature.h"
#include "workbench/ui/PieceFollower.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QFile>
#include <QMenu>
#include <QMenuBar>

namespace ardiphon {

namespace {

constexpr QSize SmallestWindow(480, 360);

} // namespace

EditorWindow::EditorWindow(ProgramContext &program, std::span<const Command> commands,
                           std::span<const Shortcut> shortcuts, ViewKeys::Rule keyRule)
    : m_program(program),
      m_commands(this),
      m_keys(keyRule, this),
      m_files(program),
      m_recent(new RecentMenu(program, this)),
      m_closing(new DeferredClose(*this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumSize(SmallestWindow);
    new MenuBarKeys(*this);
    new FocusedWheel(*this);
    connect(new FileDrop(*this, program.dialogs), &FileDrop::dropped, this,
            &EditorWindow::openDroppedFile);
    m_commands.add(editorCommands(), editorShortcuts());
    m_commands.add(studioCommands(), studioShortcuts());
    m_commands.add(commands, shortcuts);
    m_commands.addGroup("menuLastFile", m_recent->entries());
}

EditorWindow::~EditorWindow() = default;

// Building. --------------------------------------------------------------------------------------

void EditorWindow::setArea(EditorArea *area)
{
    m_centre = area;
    setCentralWidget(area);
    m_piece = new PieceFollower(*this, this);
    auto search = std::make_unique<SearchFeature>();
    const SearchFeature &searching = *search;
    install(std::move(search));
    m_search = &searching.windows();
    for (std::unique_ptr<WindowFeature> &feature : programFeatures())
        install(std::move(feature));
    bindOwn();
}

void EditorWindow::install(std::unique_ptr<WindowFeature> feature)
{
    feature->install(*this);
    m_features.push_back(std::move(feature));
}

void EditorWindow::bindOwn()
{
    m_commands.bind("menuFileEsci", this, [this] {
        m_isLeaving = true;
        mirrorLeaving(config());
        close();
    });
    m_commands.bind("buttonDefaultDir", this, [this] { m_files.returnToWorkingDirectory(); });
    m_keys.bind(ViewKey::CloseWindow, [this](const EditorView &) { close(); });
    m_keys.bind(ViewKey::Redo, [](const EditorView &view) { view.editor->Redo(); });
    for (const EditorView &view : views()) {
        m_keys.follow(view);
        const bool isFirst = view.position == ViewPosition::First;
        m_keys.bind(isFirst ? ViewKey::FocusFirstView : ViewKey::FocusSecondView,
                    [editor = view.editor](const EditorView &) { editor->setFocus(); });
    }
}

void EditorWindow::fillMenus(std::span<const Menu> menus)
{
    m_commands.bindTo(editorAliases());
    m_commands.fill(*menuBar(), menus, editorSubmenus());
    auto *const popup = new QMenu(this);
    m_commands.fill(*popup, editorPopup());
    for (const EditorView &view : views())
        new EditorPopup(*view.editor, *popup, [this, view] {
            for (const auto &prepare : m_popupPreparations)
                prepare(view);
        });
}

void EditorWindow::bindTools(ToolToggles &toggles)
{
    toggles.bindTo(m_commands, *findChild<QMenu *>(QStringLiteral("menuWindow")));
    connect(&toggles, &ToolToggles::toolsChanged, m_centre, &EditorArea::arrange);
}

// What features are offered. ---------------------------------------------------------------------

QList<EditorView> EditorWindow::views() const
{
    return m_centre ? m_centre->views() : QList<EditorView>();
}

void EditorWindow::beforePopup(std::function<void(const EditorView &)> prepare)
{
    m_popupPreparations.push_back(std::move(prepare));
}

PieceFollower &EditorWindow::piece() { return *m_piece; }

void EditorWindow::insertText(const QString &text)
{
    LEditOCX &editor = *views().constFirst().editor;
    if (editor.SelectionLength() > 0)
        editor.SetSelText(QString());
    editor.SetSelText(text);
    editor.setFocus();
}

void EditorWindow::arrange() { m_centre->arrange(); }

QDockWidget *EditorWindow::addDock(const Dock &row, QWidget *content)
{
    auto *const dock = new QDockWidget(QLatin1String(row.title), this);
    dock->setObjectName(QLatin1String(row.name));
    dock->setWidget(content);
    addDockWidget(row.area, dock);
    dock->hide();
    return dock;
}

// Leaving. ---------------------------------------------------------------------------------------

void EditorWindow::handOver(const std::function<void()> &showOther)
{
    TrovaPosForm(*this, config());
    showOther();
    close();
}

void EditorWindow::endClosing(QCloseEvent &event, bool leaves)
{
    if (m_closing->takeByUser(event) || m_isLeaving)
        config().Words->CloseOpcodeFile();
    QFile::remove(CompileLogFile(config().RootPath));
    event.setAccepted(leaves);
}

} // namespace ardiphon
