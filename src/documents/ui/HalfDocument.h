#pragma once

#include "documents/ProjectRules.h"
#include "documents/ui/EditedFile.h"

namespace ardiphon {

/// One of the two documents of a project, on its own: no partner is looked for here.
class HalfDocument : public EditedFile
{
    Q_OBJECT

public:
    /// \a focusedOnCancel: the editor that gets the focus after Cancel at the save question.
    HalfDocument(const ProjectHalf &half, LEditOCX &editor, Bookmarks &bookmarks,
                 LEditOCX &focusedOnCancel, ProgramContext &program, FileChooser &files,
                 QObject *parent);

    const ProjectHalf &half() const { return m_half; }

    void New();
    void Open();
    /// Opens a file of the recent list.
    void OpenRecent(const QString &path);

    /// Asks whether to save, under that title. Cancel gives the focus to focusedOnCancel.
    Answer askToSave(const QString &title);

protected:
    void loadBookmarks(const QString &path) override;

private:
    bool mayDropText(const QString &title);

    const ProjectHalf &m_half;
    LEditOCX &m_focusedOnCancel;
};

} // namespace ardiphon
