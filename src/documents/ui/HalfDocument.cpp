#include "documents/ui/HalfDocument.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "documents/DocumentRules.h"
#include "documents/FileChooser.h"
#include "language/editor/LEditOCX.h"
#include "navigation/ui/Bookmarks.h"

namespace ardiphon {

HalfDocument::HalfDocument(const ProjectHalf &half, LEditOCX &editor, Bookmarks &bookmarks,
                           LEditOCX &focusedOnCancel, ProgramContext &program, FileChooser &files,
                           QObject *parent)
    : EditedFile(half.role, editor, bookmarks,
                 {QStringLiteral("Save ") + half.name, half.saveTitle(), half.saveFilter(),
                  half.missingText},
                 program, files, parent),
      m_half(half),
      m_focusedOnCancel(focusedOnCancel)
{
}

void HalfDocument::New()
{
    if (!mayDropText(QStringLiteral("New ") + m_half.name))
        return;
    saveBookmarksIfChanged();
    beginEmpty(Untitled);
    editor().setFocus();
}

void HalfDocument::Open()
{
    if (!mayDropText(QStringLiteral("Open ") + m_half.name))
        return;
    saveBookmarksIfChanged();
    const auto path = files().open(m_half.openTitle(), m_half.openFilter());
    if (!path)
        return;
    load(*path);
    editor().SetFontSize(config().FontSize);
    noteOpened();
}

void HalfDocument::OpenRecent(const QString &path)
{
    if (!mayDropText(QStringLiteral("Save ") + m_half.name))
        return;
    saveBookmarksIfChanged();
    load(path);
    editor().setFocus();
}

/// Whether there is a side file or not, no bookmarks of the document before are to be saved any
/// more.
void HalfDocument::loadBookmarks(const QString &path)
{
    bookmarks().countAsUnchanged();
    EditedFile::loadBookmarks(path);
}

Answer HalfDocument::askToSave(const QString &title)
{
    return EditedFile::askToSave(title, m_half.changedLine(), m_focusedOnCancel);
}

bool HalfDocument::mayDropText(const QString &title) { return askToSave(title) != Answer::Cancel; }

} // namespace ardiphon
