#pragma once

#include "hardening/AnsweringDialogs.h"
#include "hardening/Monkey.h"
#include "hardening/Playground.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/modRegistry.h"
#include "platform/RunFolder.h"
#include "start/ui/Form1.h"

#include <QEventLoop>
#include <QObject>

#include <memory>

/// What main() makes, from the start of the program to its end.
struct ProgramRun
{
    ProgramRun(ardiphon::SettingsStore &settings, ardiphon::Dialogs &dialogs,
               const QString &temporary);

    ardiphon::RunFolder folder;
    ardiphon::ConfigurationBlock config;
    ardiphon::ProgramContext context;
    std::unique_ptr<ardiphon::Form1> start;
};

/// The program's life under a monkey, from its start to its end, as one seed has it.
class Session : public QObject
{
    Q_OBJECT

public:
    /// \a trace: whether each step is told on the standard output.
    Session(unsigned seed, int steps, bool trace);

    /// Runs to the end. "" or what was wrong.
    QString run();
    const QMap<QString, int> &windowsMet() const { return m_monkey.windowsMet(); }

private:
    void fillSettings();
    void startProgram();
    void scheduleStep();
    void step();
    void endStep();

    Dice m_dice;
    Playground m_playground{m_dice};
    AnsweringDialogs m_dialogs{m_dice, m_playground};
    Monkey m_monkey{m_dice, m_playground};
    ardiphon::SettingsStore m_settings{m_playground.settingsFile()};
    std::unique_ptr<ProgramRun> m_run;
    QEventLoop m_loop;
    QString m_failure;
    int m_steps;
    int m_closingSteps = 0;
    int m_depth = 0; ///< steps that have not returned yet, as each may be in a modal window
    bool m_trace;
};
