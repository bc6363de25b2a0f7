#pragma once

#include "documents/ProjectLayout.h"
#include "documents/ui/EditorWindow.h"
#include "documents/ui/RefreshTimer.h"

namespace ardiphon {

class Bookmarks;
class HalfDocument;
class ProjectArea;
class ProjectDocument;
struct ProjectHalf;

/// The window of a project: the orchestra and the score in one of four arrangements, and around
/// them the tools that the user wants to see.
class FormORCSCO : public EditorWindow
{
    Q_OBJECT

public:
    /// Opens the orchestra, or else the score, that the configuration names, with its partner; two
    /// empty documents when it names neither.
    explicit FormORCSCO(ProgramContext &program);

    const Document *document(DocumentRole role) const override;

protected:
    void openDroppedFile(const QString &path) override;
    void closeEvent(QCloseEvent *event) override;

private:
    // Building, in the order of the load.
    void buildDocuments();
    void fillBars();
    void buildTools();

    void bindProject();
    void bindHalves();
    void bindEditing();
    void bindPanels();
    void bindArrangements();
    void checkArrangement(Arrangement chosen);

    ProjectArea *m_area;
    HalfDocument *m_orchestra = nullptr;
    HalfDocument *m_score = nullptr;
    ProjectDocument *m_project = nullptr;
    ToolToggles *m_tools = nullptr;
    RefreshTimer Timer1{[] { return false; }, this}; ///< one tick updates the marks of both halves
};

} // namespace ardiphon
