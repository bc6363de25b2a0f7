#include "documents/ui/RecentMenu.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/RecentFiles.h"
#include "app/ui/ToolTip.h"
#include "platform/Dialogs.h"

#include <QAction>
#include <QFileInfo>
#include <QHelpEvent>
#include <QMenu>
#include <QToolTip>

namespace ardiphon {

namespace {

const QString EmptyEntry = QStringLiteral("...");

/// A menu treats "&" as the mark of an access key; in a file name it is the character itself.
QString caption(const QString &text) { return QString(text).replace(u'&', QLatin1String("&&")); }

} // namespace

RecentMenu::RecentMenu(ProgramContext &program, QObject *parent)
    : QObject(parent), m_program(program)
{
    for (int i = 0; i < RecentFileCount; ++i) {
        auto *entry = new QAction(EmptyEntry, this);
        entry->setObjectName(QStringLiteral("menuLastFile(%1)").arg(i));
        connect(entry, &QAction::triggered, this, [this, i] { choose(i); });
        connect(entry, &QAction::hovered, this, [this, entry] { watchMenusOf(*entry); });
        m_entries.append(entry);
    }
    ReadRecentFiles(program.config, program.settings);
    refresh();
}

void RecentMenu::refresh()
{
    for (int i = 0; i < RecentFileCount; ++i) {
        const QString &path = m_program.config.RecentFiles[std::size_t(i) + 1];
        const QString text = recentFileText(path);
        if (text.isEmpty())
            continue;
        m_entries[i]->setText(caption(text));
        m_entries[i]->setToolTip(plainToolTip(path.trimmed()));
    }
}

void RecentMenu::watchMenusOf(const QAction &entry)
{
    for (QObject *object : entry.associatedObjects())
        if (qobject_cast<QMenu *>(object))
            object->installEventFilter(this);
}

bool RecentMenu::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return false;
    auto *const menu = static_cast<QMenu *>(watched);
    const auto *const help = static_cast<QHelpEvent *>(event);
    QAction *const entry = menu->actionAt(help->pos());
    if (!m_entries.contains(entry) || entry->text() == EmptyEntry)
        return false;
    QToolTip::showText(help->globalPos(), entry->toolTip(), menu, menu->actionGeometry(entry));
    return true;
}

void RecentMenu::choose(int index)
{
    if (m_entries[index]->text() == EmptyEntry)
        return;
    ReadRecentFiles(m_program.config, m_program.settings);
    const QString path = m_program.config.RecentFiles[std::size_t(index) + 1];
    if (QFileInfo::exists(path))
        emit chosen(path);
    else
        m_program.dialogs.message(
            {QStringLiteral("File not found!"), QStringLiteral("File Error")});
}

} // namespace ardiphon
