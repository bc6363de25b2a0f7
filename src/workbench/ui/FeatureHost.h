#pragma once

#include "piece/PiecePlace.h"
#include "workbench/ui/EditorView.h"

#include <QList>

#include <functional>

class QDockWidget;
class QMainWindow;
class QString;
class QWidget;

namespace ardiphon {

class CommandSet;
class Dialogs;
class Document;
class PieceFollower;
class ViewKeys;
struct ConfigurationBlock;
struct ProgramContext;

/// A window beside the text, hidden until the user asks for it.
struct Dock
{
    const char *name;  ///< its fixed name
    const char *title; ///< also the caption of the command that shows it
    Qt::DockWidgetArea area = Qt::RightDockWidgetArea;
};

/// What a feature has to say of a part of the text, shown where the pointer rests on it.
struct TextNote
{
    PiecePlace place;
    QString text;
};

/// Gives the notes of a feature for a character of the text of that role.
using TextNotes = std::function<QList<TextNote>(DocumentRole role, int line, int column)>;

/// What an editor window offers to its features. It knows none of them.
class FeatureHost
{
public:
    FeatureHost() = default;
    FeatureHost(const FeatureHost &) = delete;
    FeatureHost &operator=(const FeatureHost &) = delete;
    virtual ~FeatureHost() = default;

    /// The window: the owner of the feature's dialogs and the context of its connections.
    virtual QMainWindow &owner() = 0;
    virtual ProgramContext &program() const = 0;
    ConfigurationBlock &config() const;
    Dialogs &dialogs() const;

    /// The commands of the window. A feature binds its own; whether the window has a command that
    /// only some windows have, CommandSet::has() says.
    virtual CommandSet &commands() = 0;
    /// The keys of the views.
    virtual ViewKeys &keys() = 0;
    /// Has \a prepare called before the popup menu of a view is shown, with the caret where it was
    /// clicked.
    virtual void beforePopup(std::function<void(const EditorView &)> prepare) = 0;

    /// All views, the first one first. They live as long as the window.
    virtual QList<EditorView> views() const = 0;
    /// The view that has the focus and is shown, or null.
    LEditOCX *focusedEditor() const;
    /// The editor that holds the text of that role; null where the window has no such text. The
    /// second view of a split shows a copy and does not count.
    LEditOCX *editor(DocumentRole role) const;
    /// The editors of all roles that the window has.
    QList<LEditOCX *> editors() const;
    /// The record of the document of that role, valid until it changes; null where the window has
    /// none.
    virtual const Document *document(DocumentRole role) const = 0;

    /// What is read of the texts of all roles together.
    virtual PieceFollower &piece() = 0;
    /// Has the notes of a feature shown where the pointer rests.
    void addNotes(TextNotes notes) { m_notes.append(std::move(notes)); }
    QList<TextNote> notesAt(DocumentRole role, int line, int column) const;
    /// Has \a read called with the log of each compile of the window's documents.
    void onLog(std::function<void(const QString &log)> read) { m_logs.append(std::move(read)); }
    /// A compile has ended, and its log is shown.
    void reportLog(const QString &log) const;
    /// Replaces the selection of the first editor by \a text; that editor gets the focus.
    virtual void insertText(const QString &text) = 0;
    /// Places every control around the text again, after one of their sizes has changed.
    virtual void arrange() = 0;
    /// Adds a dock to the window, hidden at first; \a content becomes its child.
    virtual QDockWidget *addDock(const Dock &dock, QWidget *content) = 0;

private:
    QList<TextNotes> m_notes;
    QList<std::function<void(const QString &log)>> m_logs;
};

} // namespace ardiphon
