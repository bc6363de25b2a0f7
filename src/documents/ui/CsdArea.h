#pragma once

#include "documents/ui/EditorArea.h"

class QLabel;
class QListWidget;
class QToolBar;
class QTreeWidget;

namespace ardiphon {

class Gutter;
class HelpPanels;
class InstrumentPanel;
class Instruments;
class SplitLine;
class ToolToggles;
struct CsdWindowState;

/// The text of a CSD in one view or two, and around it the tools of its window.
class CsdArea : public EditorArea
{
    Q_OBJECT

public:
    explicit CsdArea(ConfigurationBlock &config);

    QList<EditorView> views() const override;
    void arrange() override;

    /// Adds the controls of each tool to \a tools.
    void groupTools(ToolToggles &tools);

    bool isSplit() const;
    /// Shows or hides the second view with its gutter. If it had the focus, the focus goes to the
    /// first one.
    void setSplit(bool on);

    LEditOCX *LEDIT1;
    LEditOCX *LEDIT2;
    Instruments *instruments;
    HelpPanels *panels;
    QToolBar *Toolbar1;
    QTreeWidget *Tree;
    QTreeWidget *Tree2;
    QListWidget *List1;

private:
    void buildViews();
    void buildSidePanel();
    CsdWindowState windowState() const;

    Gutter *PicNumeri;
    Gutter *PicNumeri2;
    SplitLine *m_splitLine;
    QLabel *LabelBookmarks;
    QLabel *LabelOwnBook;
    QLabel *LabelTags;
    InstrumentPanel *Frame1;
};

} // namespace ardiphon
