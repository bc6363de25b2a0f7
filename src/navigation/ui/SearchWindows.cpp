#include "navigation/ui/SearchWindows.h"

#include "app/ConfigurationBlock.h"
#include "language/editor/LEditOCX.h"
#include "navigation/ui/EditorSearch.h"
#include "navigation/ui/FormSostituisci.h"
#include "navigation/ui/FormTrovaRiga.h"
#include "navigation/ui/formTrova.h"
#include "platform/Dialogs.h"

#include <QEvent>

namespace ardiphon {

SearchWindows::SearchWindows(ConfigurationBlock &config, Dialogs &dialogs,
                             QList<ServedEditor> editors, QWidget &owner,
                             std::function<void()> beep)
    : QObject(&owner),
      m_config(config),
      m_dialogs(dialogs),
      m_editors(std::move(editors)),
      m_owner(owner),
      m_beep(std::move(beep))
{
    m_owner.installEventFilter(this);
}

LEditOCX *SearchWindows::editorOf(const QString &caller) const
{
    for (const ServedEditor &served : m_editors)
        if (served.caller == caller)
            return served.editor;
    return nullptr;
}

void SearchWindows::mirrorCaller(SearchKind kind, const QString &caller)
{
    if (kind == SearchKind::Find)
        m_config.FindCaller = caller;
    else if (kind == SearchKind::Replace)
        m_config.ReplaceCaller = caller;
    else
        m_config.FindLineCaller = caller;
}

SearchWindow *SearchWindows::newWindow(SearchKind kind, const QString &caller)
{
    const SearchContext context{caller, [this](const QString &word) { return editorOf(word); },
                                m_dialogs, &m_owner};
    if (kind == SearchKind::Find)
        return new formTrova(context);
    if (kind == SearchKind::FindLine)
        return new FormTrovaRiga(context);
    auto *const window = new FormSostituisci(context, m_beep);
    connect(window, &FormSostituisci::replaced, this, &SearchWindows::replaced);
    return window;
}

void SearchWindows::open(SearchKind kind, const QString &caller)
{
    if (LEditOCX *const editor = editorOf(caller))
        open(kind, caller, *editor, *editor);
}

void SearchWindows::open(SearchKind kind, const QString &caller, const LEditOCX &lookedAt,
                         LEditOCX &focusedWithoutText)
{
    if (isEmptyText(lookedAt)) {
        m_dialogs.message(
            {QStringLiteral("No Document loaded!"), ProgramTitle, MessageIcon::Information});
        focusedWithoutText.setFocus();
        return;
    }
    QPointer<SearchWindow> &window = m_windows[std::size_t(kind)];
    if (window)
        window->close();
    mirrorCaller(kind, caller);
    window = newWindow(kind, caller);
    connect(window, &SearchWindow::matchShown, this,
            [this](LEditOCX *editor) { makeRoom(*editor); });
    window->show();
}

void SearchWindows::makeRoom(LEditOCX &editor) const
{
    const QRect match = selectionOnScreen(editor);
    for (const QPointer<SearchWindow> &window : m_windows)
        if (window && window->isVisible())
            window->makeRoomFor(match);
}

void SearchWindows::openForFocus(SearchKind kind)
{
    for (const ServedEditor &served : m_editors)
        if (served.editor->hasFocus())
            return open(kind, served.caller);
}

/// A closed owner exists until its events are done, and its search windows would still be visible.
bool SearchWindows::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide && !event->spontaneous())
        closeAll();
    return QObject::eventFilter(watched, event);
}

void SearchWindows::closeAll()
{
    for (const QPointer<SearchWindow> &window : m_windows)
        if (window)
            window->close();
}

} // namespace ardiphon
