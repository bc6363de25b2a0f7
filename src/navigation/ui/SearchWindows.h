#pragma once

#include <QApplication>
#include <QPointer>

#include <array>
#include <functional>

namespace ardiphon {

struct ConfigurationBlock;
class Dialogs;
class LEditOCX;
class SearchWindow;

/// The three search windows, in the order of the menu.
enum class SearchKind { Find, Replace, FindLine };

/// An editor that search windows serve, and the caller word by which they know it.
struct ServedEditor
{
    QString caller;
    LEditOCX *editor;
};

/// Opens the search windows of one editor window: at most one of each kind, a new one each time,
/// and none is visible longer than its owner. None of them covers what one of them finds.
class SearchWindows : public QObject
{
    Q_OBJECT

public:
    /// \a owner: the editor window, which holds the \a editors and owns this object.
    SearchWindows(ConfigurationBlock &config, Dialogs &dialogs, QList<ServedEditor> editors,
                  QWidget &owner, std::function<void()> beep = &QApplication::beep);

    /// Opens the window of that kind on the editor of \a caller. With no text there it says so,
    /// gives that editor the focus and opens nothing.
    void open(SearchKind kind, const QString &caller);
    /// The same, but \a lookedAt is the editor that must have text, and \a focusedWithoutText the
    /// one that gets the focus after the message.
    void open(SearchKind kind, const QString &caller, const LEditOCX &lookedAt,
              LEditOCX &focusedWithoutText);
    /// Opens it on the editor that has the focus; does nothing when none has it.
    void openForFocus(SearchKind kind);

    /// The editor of that caller word, or null.
    LEditOCX *editorOf(const QString &caller) const;

signals:
    /// A window may have changed the text of that editor.
    void replaced(ardiphon::LEditOCX *editor);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Writes the caller word into the configuration, which mirrors it.
    void mirrorCaller(SearchKind kind, const QString &caller);
    SearchWindow *newWindow(SearchKind kind, const QString &caller);
    void makeRoom(LEditOCX &editor) const;
    void closeAll();

    ConfigurationBlock &m_config;
    Dialogs &m_dialogs;
    const QList<ServedEditor> m_editors;
    QWidget &m_owner;
    const std::function<void()> m_beep;
    std::array<QPointer<SearchWindow>, 3> m_windows;
};

} // namespace ardiphon
