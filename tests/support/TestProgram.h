#pragma once

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/modRegistry.h"
#include "language/WordTables.h"
#include "support/ScriptedDialogs.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// A program of a test's own: its folder, settings, dialogs and configuration, as the start would
/// have them with an empty settings store and the built word tables.
struct TestProgram
{
    TestProgram()
    {
        ardiphon::LoadConfiguration(config, settings);
        config.Words = std::make_shared<ardiphon::WordTables>();
        config.Words->LoadWordTables(QStringLiteral(PROGRAM_DIR));
        config.WindowMaximized = false;
        config.WindowWidth = 1000 * 15;
        config.WindowHeight = 800 * 15;
        config.RootPath = folder.path() + u'/';
        config.ProgramFolder = folder.path();
    }

    QString path(const QString &name) const { return folder.filePath(name); }

    QString write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(name));
        return path(name);
    }

    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Without the usual dash: one name in fifty would hold "-o", which flags may not.
    QTemporaryDir folder{QDir::tempPath() + QStringLiteral("/test_XXXXXX")};
    ardiphon::ConfigurationBlock config;
    ardiphon::SettingsStore settings{folder.filePath(QStringLiteral("settings.ini"))};
    ScriptedDialogs dialogs;
    ardiphon::ProgramContext context{config, settings, dialogs, {}};
};
