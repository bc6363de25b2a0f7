#pragma once

#include <QDialog>

#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace ardiphon {

class Dialogs;
class LEditOCX;

/// What a search window needs when it is opened.
struct SearchContext
{
    QString caller; ///< the caller word that the window is opened for
    /// The editor that a caller word names, or null for a word that names none.
    std::function<LEditOCX *(const QString &caller)> editorOf;
    Dialogs &dialogs;
    QWidget *owner;
};

/// What the three non-modal search windows have in common. Each serves the editor that its caller
/// word names at the moment, is closed by Esc, and is deleted when it is closed.
class SearchWindow : public QDialog
{
    Q_OBJECT

public:
    /// Esc, the button "E&xit" and the window's frame all call this.
    void reject() override;

    /// Moves the window, as little as possible, if it covers that part of the screen.
    void makeRoomFor(const QRect &match);

signals:
    /// A match, or a line, is selected and shown in that editor.
    void matchShown(ardiphon::LEditOCX *editor);

protected:
    /// \a title: the caption, to which the caller's part is added.
    SearchWindow(SearchContext context, const QString &name, const QString &title);

    LEditOCX *editor() const { return m_context.editorOf(m_context.caller); }
    Dialogs &dialogs() const { return m_context.dialogs; }

    QLineEdit *newField(const QString &name);
    /// A label that names \a field.
    QLabel *newLabel(const QString &name, const QString &caption, QWidget *field);
    QCheckBox *newWholeWordBox();
    QPushButton *newButton(const QString &name, const QString &caption);

    /// Puts the editor's selection into the field, if there is one.
    void takeSelection(QLineEdit &field) const;
    /// Shows "No matches found!".
    void sayNotFound() const;

    /// Runs before the window closes; gives the focus to the editor.
    virtual void leave();

private:
    const SearchContext m_context;
};

} // namespace ardiphon
