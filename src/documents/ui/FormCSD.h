#pragma once

#include "documents/ui/EditorWindow.h"
#include "language/EditorKeyRules.h"

#include <QTimer>

#include <memory>

class QLabel;
class QListWidget;
class QMenu;
class QToolBar;
class QTreeWidget;

namespace ardiphon {

class Bookmarks;
class CsdDocument;
class Definitions;
class FontSizeMenu;
class Gutter;
class HelpPanels;
class KeywordHelp;
class InstrumentPanel;
class Instruments;
class LEditOCX;
class RecentMenu;
class SearchWindows;
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
    ~FormCSD() override;

protected:
    void openDroppedFile(const QString &path) override;
    LEditOCX *focusedEditor() const override;
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    // Building, in the order of the load.
    void buildControls();
    LEditOCX *newEditor(const QString &name);
    QTreeWidget *newTree(const QString &name);
    QLabel *newLabel(const QString &name, const QString &caption);
    void buildFeatures();
    void buildMenus();
    void addHeaders();
    void groupTools();
    void openNamedDocument();

    // Binding.
    void bindDocument();
    void bindEditing();
    void bindNavigation();
    void bindTools();
    void bindWindow();
    void bindHelp();
    void bindViewKeys(LEditOCX *view, ViewPosition position);

    void preparePopup(LEditOCX &view);
    void handleViewKey(LEditOCX *view, ViewPosition position, EditorKey &key);
    void navigateByKey(LEditOCX *view, ViewKey key);
    void insertText(const QString &text);
    void setSplit(bool on);
    bool isSplit() const;
    void applyFontSize();
    void arrangeWindow();
    void refresh();
    void writeTitle();
    void textReplaced();
    void handOverToProject();

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
    SearchWindows *m_search = nullptr;
    Definitions *m_definitions = nullptr;
    CsdDocument *m_document = nullptr;
    HelpPanels *m_panels = nullptr;
    std::unique_ptr<KeywordHelp> m_help;
    TagPanel *m_tags = nullptr;
    SplitMirror *m_mirror = nullptr;
    ToolToggles *m_tools = nullptr;
    FontSizeMenu *m_fontSizes = nullptr;
    RecentMenu *m_recent = nullptr;
    QTimer Timer1{this};
};

} // namespace ardiphon
