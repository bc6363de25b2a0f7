#pragma once

#include "documents/ui/EditorWindow.h"

#include <QTimer>

class QLabel;
class QListWidget;
class QMenu;
class QToolBar;
class QTreeWidget;

namespace ardiphon {

class Bookmarks;
class CsdDocument;
class Gutter;
class HelpPanels;
class InstrumentPanel;
class Instruments;
class LEditOCX;
class SplitLine;
class SplitMirror;
class TagPanel;
class ToolToggles;
struct EditorKey;

/// The window of a CSD document: the text in one view or two, and around it the tools that the user
/// wants to see.
class FormCSD : public EditorWindow
{
    Q_OBJECT

public:
    /// Opens the document that `CSDFileName` names, or an empty one when it names none.
    explicit FormCSD(ProgramContext &program);

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
    void buildFeatures();
    void buildMenus();
    void groupTools();
    void openNamedDocument();

    // Binding.
    void bindDocument();
    void bindEditing();
    void bindNavigation();
    void bindTools();
    void bindViewKeys(LEditOCX *view, ViewPosition position);

    void handleViewKey(LEditOCX *view, ViewPosition position, EditorKey &key);
    void navigateByKey(LEditOCX *view, ViewKey key);
    void setSplit(bool on);
    bool isSplit() const;
    void refresh();
    void writeTitle();
    void textReplaced();

    LEditOCX *LEDIT1 = nullptr;
    LEditOCX *LEDIT2 = nullptr;
    Gutter *PicNumeri = nullptr;
    Gutter *PicNumeri2 = nullptr;
    QToolBar *Toolbar1 = nullptr;
    QTreeWidget *Tree = nullptr;
    QTreeWidget *Tree2 = nullptr;
    QListWidget *List1 = nullptr;
    QLabel *LabelBookmarks = nullptr;
    QLabel *LabelOwnBook = nullptr;
    QLabel *LabelTags = nullptr;
    InstrumentPanel *Frame1 = nullptr;
    QMenu *menuPopup = nullptr;

    Bookmarks *m_bookmarks = nullptr;
    Instruments *m_instruments = nullptr;
    CsdDocument *m_document = nullptr;
    HelpPanels *m_panels = nullptr;
    TagPanel *m_tags = nullptr;
    SplitMirror *m_mirror = nullptr;
    SplitLine *m_splitLine = nullptr;
    ToolToggles *m_tools = nullptr;
    QTimer Timer1{this};
};

} // namespace ardiphon
