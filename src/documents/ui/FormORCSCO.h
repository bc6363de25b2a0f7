#pragma once

#include "documents/ProjectLayout.h"
#include "documents/ui/EditorWindow.h"

#include <QTimer>

class QMenu;

namespace ardiphon {

class Bookmarks;
class BookmarksPanel;
class FloatingPanel;
class Gutter;
class HalfDocument;
class HalfView;
class HelpPanels;
class InstrumentPanel;
class ProjectDocument;
class SplitLine;
class SplitterGrip;
class ToolToggles;
struct EditorKey;
struct ProjectHalf;

/// The window of a project: the orchestra and the score in one of four arrangements, with a grip
/// between them where both are shown, and around them the tools that the user wants to see.
class FormORCSCO : public EditorWindow
{
    Q_OBJECT

public:
    /// Opens the orchestra, or else the score, that the configuration names, with its partner; two
    /// empty documents when it names neither.
    explicit FormORCSCO(ProgramContext &program);

protected:
    void openDroppedFile(const QString &path) override;
    LEditOCX *focusedEditor() const override;
    void insertText(const QString &text) override;
    void applyFontSize() override;
    void arrangeWindow() override;
    void closeEvent(QCloseEvent *event) override;

private:
    // Building, in the order of the load.
    void buildControls();
    void buildGrips();
    void buildHalves();
    HalfView *newHalf(const ProjectHalf &half, LEditOCX &editor, Bookmarks &bookmarks,
                      QString &fileName, const QString &number);
    void buildMenus();
    void groupTools();

    // Binding.
    void bindProject();
    void bindPrinting();
    void bindEditing();
    void bindNavigation();
    void bindPanels();
    void bindCompilers();
    void bindArrangements();
    void bindView(LEditOCX *view, ViewLanguage language, ViewPosition position);

    void handleViewKey(LEditOCX &view, ViewLanguage language, ViewPosition position,
                       EditorKey &key);
    /// The half whose editor has the focus, or none.
    HalfView *focusedHalf() const;
    static void toggle(FloatingPanel &panel, QPoint topLeft);
    void toggleBookmarksPanel();
    void toggleInstrumentPanel();

    void arrange(Arrangement chosen);
    void checkArrangement(Arrangement chosen);
    Arrangement arrangement() const;
    ProjectWindowState windowState() const;
    void place(const ProjectLayout &layout);
    void dragged(const std::optional<ProjectLayout> &layout);

    LEditOCX *LEDIT1 = nullptr;
    LEditOCX *LEDIT2 = nullptr;
    QToolBar *Toolbar1 = nullptr;
    SplitterGrip *SplitterH = nullptr;
    SplitterGrip *SplitterV = nullptr;
    SplitLine *m_splitLine = nullptr;
    BookmarksPanel *PictureBookmarks = nullptr;
    InstrumentPanel *PictureInstrument = nullptr;
    QMenu *menuPopup = nullptr;

    HelpPanels *m_panels = nullptr;
    HalfView *m_orchestra = nullptr;
    HalfView *m_score = nullptr;
    ProjectDocument *m_project = nullptr;
    ToolToggles *m_tools = nullptr;
    FloatingPanel *m_bookmarksPanel = nullptr;
    FloatingPanel *m_instrumentPanel = nullptr;
    ProjectLayout m_layout;
    QTimer Timer1{this};
};

} // namespace ardiphon
