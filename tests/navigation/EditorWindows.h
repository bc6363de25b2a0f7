#pragma once

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/modRegistry.h"
#include "documents/ui/FormCSD.h"
#include "language/WordTables.h"
#include "language/editor/LEditOCX.h"
#include "navigation/SearchRules.h"
#include "navigation/ui/SearchWindows.h"
#include "support/Controls.h"
#include "support/EditorInput.h"
#include "support/ScriptedDialogs.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QFile>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>

/// Waits until that very window is in front, not one that it owns or is owned by.
inline void bringToFront(QWidget *window)
{
    window->activateWindow();
    if (!QTest::qWaitFor([window] { return QApplication::activeWindow() == window; }))
        qFatal("the window does not come to the front");
}

/// The CSD window over a document of a test's own.
struct CsdWindow
{
    explicit CsdWindow(const QByteArray &text)
    {
        ardiphon::LoadConfiguration(config, settings);
        config.Words = std::make_shared<ardiphon::WordTables>();
        config.Words->LoadWordTables(QStringLiteral(PROGRAM_DIR));
        config.WindowMaximized = false;
        config.WindowWidth = 1000 * 15;
        config.WindowHeight = 800 * 15;
        config.RootPath = folder.path() + u'/';
        config.CSDFileName = folder.filePath(QStringLiteral("piece.csd"));
        QFile file(config.CSDFileName);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("cannot write the piece");
        file.close();
        form = new ardiphon::FormCSD(context);
        form->show();
        bringToFront(form);
        first = form->findChild<ardiphon::LEditOCX *>(QStringLiteral("LEDIT1"));
        second = form->findChild<ardiphon::LEditOCX *>(QStringLiteral("LEDIT2"));
        first->setFocus();
    }
    ~CsdWindow() { delete form; }
    Q_DISABLE_COPY_MOVE(CsdWindow)

    template <typename Control>
    Control *control(const char *name) const
    {
        return controlIn<Control>(*form, QLatin1String(name));
    }
    void trigger(const char *name) const { control<QAction>(name)->trigger(); }

    QTemporaryDir folder;
    ardiphon::ConfigurationBlock config;
    ardiphon::SettingsStore settings{folder.filePath(QStringLiteral("settings.ini"))};
    ScriptedDialogs dialogs;
    ardiphon::ProgramContext context{config, settings, dialogs, {}};
    QPointer<ardiphon::FormCSD> form;
    ardiphon::LEditOCX *first = nullptr;
    ardiphon::LEditOCX *second = nullptr;
};

/// A window of two editors, an orchestra above a score, and a control that is neither.
struct EditorPair
{
    EditorPair(const QString &orchestra, const QString &score)
    {
        auto *column = new QVBoxLayout(window);
        for (ardiphon::LEditOCX *editor : {first, second})
            column->addWidget(editor);
        column->addWidget(elsewhere);
        first->SetText(orchestra);
        second->SetText(score);
        for (ardiphon::LEditOCX *editor : {first, second}) {
            editor->ClearState(ardiphon::TextState);
            editor->ResetUndo();
        }
        window->resize(700, 600);
        window->show();
        bringToFront(window);
        first->setFocus();
    }
    ~EditorPair() { delete window; }
    Q_DISABLE_COPY_MOVE(EditorPair)

    QPointer<QWidget> window = new QWidget;
    ardiphon::LEditOCX *first = new ardiphon::LEditOCX(window);
    ardiphon::LEditOCX *second = new ardiphon::LEditOCX(window);
    QPushButton *elsewhere = new QPushButton(window);
    ardiphon::ConfigurationBlock config;
    ScriptedDialogs dialogs;
    int beeps = 0;
    ardiphon::SearchWindows *search = new ardiphon::SearchWindows(
        config, dialogs, {{ardiphon::OrchestraCaller, first}, {ardiphon::ScoreCaller, second}},
        *window, [this] { ++beeps; });
};
