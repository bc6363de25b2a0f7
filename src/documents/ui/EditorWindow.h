#pragma once

#include "documents/FileChooser.h"
#include "documents/ScreenHalves.h"
#include "documents/ui/CommandSet.h"
#include "language/EditorKeyRules.h"
#include "language/TokenColors.h"
#include "language/WheelNotches.h"
#include "navigation/ui/SearchWindows.h"
#include "preferences/ui/EditorViews.h"

#include <QMainWindow>

#include <memory>

class QLabel;
class QTreeWidget;

namespace ardiphon {

struct ConfigurationBlock;
struct ProgramContext;
class Definitions;
struct CompileContext;
class FontSizeMenu;
class FramePlacer;
class KeywordHelp;
class LEditOCX;
class RecentMenu;
class ToolToggles;

/// What both editor windows are: commands made from tables, controls around one or two editors, a
/// placement that goes from one window to the next, help, the wheel, and drops of files. It knows
/// neither of them.
class EditorWindow : public QMainWindow
{
    Q_OBJECT

public:
    ~EditorWindow() override;

protected:
    explicit EditorWindow(ProgramContext &program);

    ProgramContext &program() const { return m_program; }
    ConfigurationBlock &config() const;
    CommandSet &commands() { return m_commands; }
    FileChooser &files() { return m_files; }
    RecentMenu &recent() const { return *m_recent; }
    SearchWindows &search() const { return *m_search; }

    // Building. The controls stand on the central widget and bear \a name.
    LEditOCX *newEditor(const QString &name, ViewLanguage language);
    /// On a light ground, as its nodes are blue. \a parent: the central widget when it is null.
    QTreeWidget *newTree(const QString &name, QWidget *parent = nullptr);
    QLabel *newLabel(const QString &name, const QString &caption);
    QToolBar *newToolbar(const QString &name, int iconSize);
    /// Makes the actions of \a rows, and those that every editor window has, with the headers, the
    /// recent list and the font sizes.
    void addCommands(std::span<const Command> rows);

    // Binding.
    /// Binds what does the same in both windows: exit, headers, fonts, help, halves of the screen,
    /// and the popup entries that stand for entries of the menus.
    void bindCommon();
    void bindTools(ToolToggles &toggles);
    /// What the compile dialogs are given.
    CompileContext compileContext();
    /// Makes the search windows for \a editors, and the way to definitions in the first of them.
    /// \a open: what the three entries of the menu do.
    void bindSearch(const QList<ServedEditor> &editors, std::function<void(SearchKind)> open);
    /// Binds the settings and the fonts to \a views. \a settingsCaller tells the settings which
    /// window this is.
    void bindPreferences(const QString &settingsCaller, const EditorViews &views);
    /// Names the word that was clicked in the popup's entries.
    void preparePopup(LEditOCX &view, ViewLanguage language);
    /// The search that a key of a view asks for, if it does.
    static std::optional<SearchKind> searchKindOf(ViewKey key);
    /// Does what a key means in every view; nothing for one that only some windows know.
    void followKey(LEditOCX &view, ViewLanguage language, ViewKey key);

    /// Keeps the placement for the editor window that is shown next.
    void TrovaPosForm();
    /// Maximises the window, or gives it the placement that was kept.
    void takePlacement();
    /// Shows the other editor window in this one's place, and closes this one.
    void handOver(const std::function<void()> &showOther);
    /// The last steps of every closing, also of one that is refused.
    void endClosing(QCloseEvent &event, bool leaves);

    /// Puts \a text in the place of the selection of \a editor, which gets the focus.
    static void insertInto(LEditOCX &editor, const QString &text);

    /// Opens the first file of a drop, by its absolute path.
    virtual void openDroppedFile(const QString &path) = 0;
    /// The view that the wheel scrolls: the one that has the focus, or none.
    virtual LEditOCX *focusedEditor() const = 0;
    /// Inserts a header at the caret.
    virtual void insertText(const QString &text) = 0;
    /// Takes over the size that `FontSize` has.
    virtual void applyFontSize() = 0;
    /// Gives every control its place.
    virtual void arrangeWindow() = 0;

    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    /// Puts a closing off while a dialog of this window has not returned yet.
    void closeLater(bool byUser);
    void addHeaders();
    void bindPopup();
    void bindHelp();
    void bindSound();
    void bindAnalysis();
    void bindPrograms();
    void bindHalves();
    void chooseFont(const QList<LEditOCX *> &editors);
    void resetFont(const QList<LEditOCX *> &editors);
    void bindMargins();
    /// Moves the window to one half of the screen's work area, whatever its state.
    void moveToHalf(ScreenHalf half);

    ProgramContext &m_program;
    CommandSet m_commands;
    FileChooser m_files;
    RecentMenu *m_recent;
    FontSizeMenu *m_fontSizes;
    FramePlacer *m_placer;
    std::unique_ptr<KeywordHelp> m_help;
    SearchWindows *m_search = nullptr;
    Definitions *m_definitions = nullptr;
    WheelNotches m_wheel;
    bool m_closedByUser = false; ///< as a closing that was put off would have told
};

} // namespace ardiphon
