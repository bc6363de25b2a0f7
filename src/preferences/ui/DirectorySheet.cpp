#include "preferences/ui/DirectorySheet.h"

#include "app/ConfigurationBlock.h"
#include "app/ui/PathField.h"
#include "platform/Dialogs.h"
#include "preferences/ui/FormDirectory.h"

#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace ardiphon {

struct DirectorySheet::PathRow
{
    const char *edit;
    const char *label;
    const char *button;
    QString ConfigurationBlock::*field;
    const char *title; ///< of the file dialog; null for the one row that names a folder
    const char *filter;
};

const DirectorySheet::PathRow DirectorySheet::rows[] = {
    {"Text2", "CSound Console:", "CercaExe", &ConfigurationBlock::FileCSound, "File CSound (*.EXE)",
     "Csound.exe |*.exe|All files |*.*"},
    {"Text7", "Winsound:", "Command8", &ConfigurationBlock::FileWinsound,
     "File Winsound (Csound_Win_xxx.EXE)", "Winsound.exe |*.exe|All files |*.*"},
    {"Text3", "CSoundAV:", "CercaDirect", &ConfigurationBlock::FileDirectCSound,
     "File CSoundAV/DirectCSound (*.EXE)", "CSoundAV |*.exe|All files |*.*"},
    {"Text1", "CSound Help:", "Command3", &ConfigurationBlock::FileGuida,
     "CSound Help File (*.HLP)", "Csound Help (*.hlp)|*.hlp|All files |*.*"},
    {"Text6", "CSoundAV Html Help:", "Command7", &ConfigurationBlock::FileGuidaHtml,
     "File CSoundAV Html Help (*.EXE)", "Html |*.htm|Html |*.html|All Files |*.*"},
    {"Text4", "Wave Editor:", "CercaWaveEditor", &ConfigurationBlock::WaveEditor,
     "Wave Editor (*.EXE)", "Wave Editor |*.exe|All files |*.*"},
    {"Text5", "Working Dir:", "Command2", &ConfigurationBlock::WorkingDirectory, nullptr, nullptr},
};

DirectorySheet::DirectorySheet(ConfigurationBlock &config, Dialogs &dialogs, QWidget *parent)
    : QGroupBox(QStringLiteral("Directory"), parent), m_config(config), m_dialogs(dialogs)
{
    setObjectName(QStringLiteral("FrameDirectory"));
    auto *const grid = new QGridLayout(this);
    int line = 0;
    for (const PathRow &row : rows) {
        QLineEdit *const edit = addRow(*grid, line++, row.label, row.edit, row.button);
        edit->setText(m_config.*row.field);
        edit->setCursorPosition(0);
        connect(findChild<QPushButton *>(QLatin1String(row.button)), &QPushButton::clicked, this,
                [this, &row, edit] { browse(row, *edit); });
    }
    grid->setRowStretch(line, 1);
}

QLineEdit *DirectorySheet::addRow(QGridLayout &grid, int line, const char *label, const char *edit,
                                  const char *button)
{
    auto *const path = new PathField(this);
    path->setObjectName(QLatin1String(edit));
    path->setReadOnly(true);
    path->setAccessibleName(QLatin1String(label));
    auto *const browse = new QPushButton(QStringLiteral("Browse"), this);
    browse->setObjectName(QLatin1String(button));
    grid.addWidget(new QLabel(QLatin1String(label), this), line, 0);
    grid.addWidget(path, line, 1);
    grid.addWidget(browse, line, 2);
    return path;
}

void DirectorySheet::browse(const PathRow &row, QLineEdit &edit)
{
    QString &path = m_config.*row.field;
    if (!row.title) {
        FormDirectory(m_config, window()).exec();
    } else if (const auto chosen = m_dialogs.openFile(
                   {QLatin1String(row.title), QLatin1String(row.filter), QDir::currentPath()})) {
        path = *chosen;
    } else {
        return;
    }
    edit.setText(path);
    edit.setCursorPosition(0);
}

} // namespace ardiphon
