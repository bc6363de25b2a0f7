#pragma once

#include "documents/FileChooser.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/ViewKeys.h"

#include <QMainWindow>

#include <memory>
#include <vector>

namespace ardiphon {

class DeferredClose;
class EditorArea;
class EditorPopup;
class RecentMenu;
class SearchWindows;
class ToolToggles;
class WindowFeature;

/// The base of both editor windows: an area of controls around one or two editors, commands from
/// tables, and features that are added to them. It knows neither of the two windows.
class EditorWindow : public QMainWindow, public FeatureHost
{
    Q_OBJECT

public:
    ~EditorWindow() override;

    /// Adds \a feature to the window, which owns it. Every editor window installs the program's
    /// features before it fills its menus; a feature that is added later has no entries there.
    void install(std::unique_ptr<WindowFeature> feature);

    QMainWindow &owner() override { return *this; }
    ProgramContext &program() const override { return m_program; }
    CommandSet &commands() override { return m_commands; }
    ViewKeys &keys() override { return m_keys; }
    QList<EditorView> views() const override;
    void beforePopup(std::function<void(const EditorView &)> prepare) override;
    PieceFollower &piece() override;
    void insertText(const QString &text) override;
    void arrange() override;
    QDockWidget *addDock(const Dock &dock, QWidget *content) override;

    /// Null: the docks are shown by their commands only.
    QMenu *createPopupMenu() override { return nullptr; }

protected:
    /// \a commands and \a shortcuts: those that the other window does not have. \a keyRule: what
    /// keys mean in the views.
    EditorWindow(ProgramContext &program, std::span<const Command> commands,
                 std::span<const Shortcut> shortcuts, ViewKeys::Rule keyRule);

    using FeatureHost::config;
    FileChooser &files() { return m_files; }
    RecentMenu &recent() const { return *m_recent; }
    SearchWindows &search() const { return *m_search; }

    /// Makes \a area the centre and adds the program's features to its views. After this the
    /// commands of the window can be bound, and its menus filled.
    void setArea(EditorArea *area);
    /// Fills the menu bar with \a menus, and gives the views their popup menu.
    void fillMenus(std::span<const Menu> menus);
    /// Connects the menu Window with the tools of \a toggles.
    void bindTools(ToolToggles &toggles);

    /// Closes this window and shows the other editor window in its place.
    void handOver(const std::function<void()> &showOther);
    /// The last steps of every closing, also of one that was cancelled; then \a leaves is false.
    void endClosing(QCloseEvent &event, bool leaves);

    /// Opens the first file of a drop; \a path is absolute.
    virtual void openDroppedFile(const QString &path) = 0;

private:
    void bindOwn();

    ProgramContext &m_program;
    CommandSet m_commands;
    ViewKeys m_keys;
    FileChooser m_files;
    RecentMenu *m_recent;
    DeferredClose *m_closing;
    bool m_isLeaving = false; ///< the user has asked to end the program, even if then cancelled
    EditorArea *m_centre = nullptr;
    PieceFollower *m_piece = nullptr;
    SearchWindows *m_search = nullptr;
    std::vector<std::function<void(const EditorView &)>> m_popupPreparations;
    std::vector<std::unique_ptr<WindowFeature>> m_features;
};

} // namespace ardiphon
