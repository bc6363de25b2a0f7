#pragma once

// What the programs that measure editors share.

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/modRegistry.h"
#include "language/WordTables.h"
#include "language/editor/LEditOCX.h"
#include "platform/ui/QtDialogs.h"

#include <QApplication>
#include <QTemporaryDir>

namespace measure {

/// Until what is due is on the screen.
inline void paint(ardiphon::LEditOCX &editor)
{
    QApplication::processEvents();
    editor.repaint();
    QApplication::processEvents();
}

inline void goTo(ardiphon::LEditOCX &editor, int line, int column = 3)
{
    editor.SelStartLine = editor.SelEndLine = line;
    editor.SelStartColumn = editor.SelEndColumn = column;
    editor.SetSelection();
}

/// A program with settings of its own, for windows of 1200 by 900 pixels.
struct Program
{
    Program()
    {
        ardiphon::LoadConfiguration(config, settings);
        config.Words = std::make_shared<ardiphon::WordTables>();
        config.Words->LoadWordTables(QStringLiteral(PROGRAM_DIR));
        config.WindowMaximized = false;
        config.WindowWidth = 1200 * 15;
        config.WindowHeight = 900 * 15;
    }

    QTemporaryDir folder;
    ardiphon::ConfigurationBlock config;
    ardiphon::SettingsStore settings{folder.filePath(QStringLiteral("settings.ini"))};
    ardiphon::QtDialogs dialogs;
    ardiphon::ProgramContext context{config, settings, dialogs, {}};
};

} // namespace measure
