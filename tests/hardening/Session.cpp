#include "hardening/Session.h"

#include "hardening/ProcessWatch.h"

#include "associations/ui/FormAssociate.h"
#include "documents/ui/FormCSD.h"
#include "documents/ui/FormORCSCO.h"
#include "help/ui/FormAbout.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QPixmapCache>
#include <QScopeGuard>
#include <QTest>
#include <QTimer>

#include <iostream>

using namespace ardiphon;

namespace {

constexpr unsigned LongestStep = 60; ///< in seconds; what is longer is a hang
constexpr int MostClosingSteps = 400;

} // namespace

ProgramRun::ProgramRun(SettingsStore &settings, Dialogs &dialogs, const QString &temporary)
    : folder(temporary), context{config, settings, dialogs, {}}
{
    config.Words = std::make_shared<WordTables>();
    context.windows.showFormCSD = [this] { (new FormCSD(context))->show(); };
    context.windows.showFormORCSCO = [this] { (new FormORCSCO(context))->show(); };
    start = std::make_unique<Form1>(config, settings, dialogs, context.windows);
    start->loadWords = [this](const QString &path) { config.Words->LoadWordTables(path); };
    start->closeWords = [this] { config.Words->CloseOpcodeFile(); };
    start->showAbout = [this](QWidget *owner) {
        FormAbout(config.Words->OpcodeHelpVersion, owner).exec();
    };
    start->showAssociate = [this](QWidget *owner) {
        FormAssociate(context.settings, context.dialogs, owner).exec();
    };
}

Session::Session(unsigned seed, int steps, bool trace)
    : m_dice(seed), m_steps(steps), m_trace(trace)
{
    fillSettings();
    // The search path holds nothing but stand-ins, and what is written goes to this folder, even
    // under a name that has no folder.
    QDir::setCurrent(m_playground.path(QStringLiteral("sub")));
    qputenv("PATH", m_playground.path(QStringLiteral("bin")).toUtf8());
    for (const char *name : {"HOME", "TMPDIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                             "XDG_RUNTIME_DIR"})
        qputenv(name, m_playground.path(QStringLiteral("sub")).toUtf8());
    qputenv("PULSE_SERVER", "unix:/nowhere/native");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/bus");
}

void Session::fillSettings()
{
    for (const char *name : {"FileCSound", "FileWinsound", "FileDirectCSound", "WaveEditor"})
        WriteRegistryString(m_settings, registry::SettingsKey, QLatin1String(name),
                            m_playground.standIn());
    for (const char *name : {"FileGuida", "FileGuidaHtml"})
        WriteRegistryString(m_settings, registry::SettingsKey, QLatin1String(name),
                            m_playground.manual());
    // As an installation leaves it: the first start asks whether files are to be associated.
    WriteRegistryString(m_settings, registry::InstallPathKey, QStringLiteral("First"),
                        QStringLiteral("1"));
}

QString Session::run()
{
    scheduleStep();
    m_loop.exec();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ProcessWatch::expectLifeWithin(LongestStep);
    m_run.reset();
    QApplication::clipboard()->clear();
    QPixmapCache::clear(); // it may grow to ten megabytes, and that is no leak
    if (!QTest::qWaitFor([] { return ProcessWatch::children().isEmpty(); }, 30'000))
        m_failure += QStringLiteral("children left: ") + ProcessWatch::children().join(u' ');
    for (const QWidget *each : QApplication::topLevelWidgets())
        m_failure += QStringLiteral("window left: %1 %2\n")
                         .arg(QLatin1String(each->metaObject()->className()), each->objectName());
    const QStringList litter = m_playground.litter();
    if (!litter.isEmpty())
        m_failure += QStringLiteral("files left: ") + litter.join(u' ');
    ProcessWatch::expectLifeWithin(0);
    return m_failure;
}

/// The windows of the run before are gone, at the latest with their events.
void Session::startProgram()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_run.reset();
    m_run = std::make_unique<ProgramRun>(m_settings, m_dialogs,
                                         m_playground.path(QStringLiteral("sub")));
    m_run->start->Load(m_dice.chance(80) ? m_playground.openable() : QString(),
                       m_playground.programFolder(), m_run->folder.path());
}

/// Each step makes the next one before it begins: it may not return until a modal window closes.
void Session::scheduleStep()
{
    const int pause = m_dice.chance(5) ? 120 : 0;
    QTimer::singleShot(pause, this, &Session::step);
}

void Session::step()
{
    ProcessWatch::expectLifeWithin(LongestStep);
    if (m_steps <= 0)
        return endStep();
    --m_steps;
    scheduleStep();
    ++m_depth;
    const auto back = qScopeGuard([this] { --m_depth; });
    const int number = m_steps;
    if (m_trace)
        std::cout << "  step " << number << " depth " << m_depth << std::endl;
    QString told = m_monkey.act();
    if (told == QLatin1String("no window") && m_depth == 1)
        startProgram();
    if (m_trace)
        std::cout << "  done " << number << ' ' << told.toStdString() << std::endl;
}

void Session::endStep()
{
    m_dialogs.answerToEnd();
    if (!m_monkey.closeSomething() && m_depth == 0)
        return m_loop.quit();
    if (++m_closingSteps > MostClosingSteps) {
        m_failure = QStringLiteral("a window cannot be closed\n");
        return m_loop.quit();
    }
    QTimer::singleShot(10, this, &Session::step);
}

#include "language/WordTables.h"
#include "moc_Session.cpp"
