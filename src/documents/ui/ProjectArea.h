#pragma once

#include "documents/ProjectLayout.h"
#include "documents/ui/EditorArea.h"

#include <functional>
#include <optional>

class QToolBar;
class QTreeWidget;

namespace ardiphon {

class BookmarksPanel;
class FloatingPanel;
class HalfDocument;
class HalfView;
class HelpPanels;
class InstrumentPanel;
class SplitLine;
class SplitterGrip;
class ToolToggles;

/// The orchestra and the score in one of four arrangements, with a grip between them where both are
/// shown, and around them the tools of the project's window.
class ProjectArea : public EditorArea
{
    Q_OBJECT

public:
    explicit ProjectArea(ConfigurationBlock &config);

    /// Shows \a orchestra and \a score; their editors must be those of this area.
    void setDocuments(HalfDocument &orchestra, HalfDocument &score);
    /// Adds the controls of each tool to \a tools.
    void groupTools(ToolToggles &tools);

    QList<EditorView> views() const override;
    /// Places both halves as the present arrangement says, and its grip at its initial place.
    void arrange() override;
    void arrange(Arrangement chosen);

    /// The half whose editor has the focus, or null.
    HalfView *focusedHalf() const;

    LEditOCX *LEDIT1;
    LEditOCX *LEDIT2;
    HelpPanels *panels;
    QToolBar *Toolbar1;
    QTreeWidget *Tree1; ///< the bookmarks of the orchestra
    QTreeWidget *Tree2; ///< and of the score
    HalfView *orchestra = nullptr;
    HalfView *score = nullptr;

public slots:
    /// Each shows or hides a floating panel, and returns whether it is shown now.
    bool toggleBookmarksPanel();
    bool toggleInstrumentPanel();

signals:
    /// The halves are now in \a arrangement.
    void arranged(ardiphon::Arrangement arrangement);

private:
    void buildPanels();
    void buildGrips();
    HalfView *newHalf(HalfDocument &document, Gutter &gutter, const QString &toolbar);
    ProjectWindowState windowState() const;
    void place(const ProjectLayout &layout);
    void dragged(const std::optional<ProjectLayout> &layout);
    static bool toggle(FloatingPanel &panel, QPoint topLeft);

    Gutter *PicNumeri1;
    Gutter *PicNumeri2;
    BookmarksPanel *PictureBookmarks;
    InstrumentPanel *PictureInstrument;
    FloatingPanel *m_bookmarksPanel;
    FloatingPanel *m_instrumentPanel;
    SplitterGrip *SplitterH = nullptr;
    SplitterGrip *SplitterV = nullptr;
    SplitLine *m_splitLine = nullptr;
    Arrangement m_arrangement = Arrangement::Horizontal;
    ProjectLayout m_layout;
};

} // namespace ardiphon
