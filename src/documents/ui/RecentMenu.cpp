#include "documents/ui/RecentMenu.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/RecentFiles.h"
#include "platform/Dialogs.h"

#include <QAction>
#include <QFileInfo>

namespace ardiphon {

namespace {

const QString EmptyEntry = QStringLiteral("...");

/// A menu takes "&" for the mark of an access key; a file name means the character itself.
QString caption(const QString &text) { return QString(text).replace(u'&', QLatin1String("&&")); }

} // namespace

RecentMenu::RecentMenu(ProgramContext &program, QObject *parent)
    : QObject(parent), m_program(program)
{
    for (int i = 0; i < RecentFileCount; ++i) {
        auto *entry = new QAction(EmptyEntry, this);
        entry->setObjectName(QStringLiteral("menuLastFile(%1)").arg(i));
        connect(entry, &QAction::triggered, this, [this, i] { choose(i); });
        m_entries.append(entry);
    }
    ReadRecentFiles(program.config, program.settings);
    refresh();
}

void RecentMenu::refresh()
{
    for (int i = 0; i < RecentFileCount; ++i) {
        const QString text = recentFileText(m_program.config.RecentFiles[std::size_t(i) + 1]);
        if (!text.isEmpty())
            m_entries[i]->setText(caption(text));
    }
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
