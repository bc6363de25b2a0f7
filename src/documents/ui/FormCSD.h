#pragma once

#include "documents/ui/EditorWindow.h"
#include "documents/ui/RefreshTimer.h"

namespace ardiphon {

class Bookmarks;
class CsdArea;
class CsdDocument;
class SplitMirror;
class TagPanel;

/// The window of a CSD document: the text in one view or two, and around it the tools that the user
/// wants to see.
class FormCSD : public EditorWindow
{
    Q_OBJECT

public:
    /// Opens the document that `CSDFileName` names, or an empty one when it names none.
    explicit FormCSD(ProgramContext &program);

    void insertText(const QString &text) override;
    const Document *document(DocumentRole role) const override;

protected:
    void openDroppedFile(const QString &path) override;
    void closeEvent(QCloseEvent *event) override;

private:
    // Building, in the order of the load.
    void buildDocument();
    void buildTools();
    void openNamedDocument();

    void bindDocument();
    void followDocument();
    void bindEditing();
    void bindNavigation();

    void setSplit(bool on);
    bool refresh();
    void writeTitle();
    void textReplaced();

    CsdArea *m_area;
    Bookmarks *m_bookmarks = nullptr;
    CsdDocument *m_document = nullptr;
    TagPanel *m_tags = nullptr;
    SplitMirror *m_mirror = nullptr;
    ToolToggles *m_tools = nullptr;
    RefreshTimer Timer1{[this] { return refresh(); }, this};
};

} // namespace ardiphon
