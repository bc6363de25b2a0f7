// Drives the program with random menus, keys, clicks, drops and closes, and watches what it holds:
//
//   soak [--seed N] [--sessions N] [--steps N] [--minutes N] [--trace]
//
// Each session has the seed after the one before; `--seed N --sessions 1` repeats one. Without
// --seed the first one is that of ARDIPHON_TEST_SEED in the environment, or 1.

#include "hardening/ProcessWatch.h"
#include "hardening/Session.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QMap>

#include <algorithm>
#include <iostream>

namespace {

QMap<QString, int> warnings; ///< what the toolkit complained of, and how often

void noteWarning(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    ++warnings[text];
    if (type == QtFatalMsg)
        std::cerr << text.toStdString() << std::endl;
}

/// What would go to a browser ends here.
class Outside : public QObject
{
    Q_OBJECT

public slots:
    void open(const QUrl &) {}
};

/// What the process holds between two sessions.
class Holdings
{
public:
    /// "" or what has grown. The first sessions fill caches, so they only set the measure.
    QString check()
    {
        const qint64 bytes = ProcessWatch::liveBytes();
        const int handles = ProcessWatch::openHandles();
        m_bytes.append(bytes);
        m_mostHandles = m_bytes.size() <= WarmUp ? std::max(m_mostHandles, handles) : m_mostHandles;
        if (handles > m_mostHandles + SpareHandles)
            return QStringLiteral("handles grew from %1 to %2").arg(m_mostHandles).arg(handles);
        if (growth() > MostGrowth)
            return QStringLiteral("memory grows by %1 bytes a session").arg(growth());
        return {};
    }

    /// In bytes a session: from the middle of the sessions behind the first ones to the last.
    qint64 growth() const
    {
        const qsizetype counted = m_bytes.size() - WarmUp;
        if (counted < Comparable)
            return 0;
        const auto least = [this](qsizetype from, qsizetype to) {
            return *std::min_element(m_bytes.begin() + from, m_bytes.begin() + to);
        };
        const qsizetype middle = WarmUp + counted / 2;
        return (least(middle, m_bytes.size()) - least(WarmUp, middle)) / (counted / 2);
    }
    qint64 bytes() const { return m_bytes.last(); }

private:
    static constexpr qsizetype WarmUp = 20;
    static constexpr qsizetype Comparable = 100;
    static constexpr int SpareHandles = 4;
    // The toolkit alone keeps 10,000: glyphs, and the keys of pixmaps that it has dropped, one for
    // each length of a scroll bar.
    static constexpr qint64 MostGrowth = 20'000;

    QList<qint64> m_bytes;
    int m_mostHandles = 0;
};

int runSessions(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser options;
    options.addOptions({{"seed", "of the first session", "N"},
                        {"sessions", "to be run at most", "N", "1000000"},
                        {"steps", "of a session", "N", "300"},
                        {"minutes", "after which no session begins", "N", "1"},
                        {"trace", "tell every step"}});
    options.addHelpOption();
    options.process(application);
    const unsigned first = options.isSet("seed") ? options.value("seed").toUInt() : randomSeed(1);
    qInstallMessageHandler(noteWarning);
    Outside outside;
    for (const char *scheme : {"file", "http", "https"})
        QDesktopServices::setUrlHandler(QLatin1String(scheme), &outside, "open");

    const unsigned most = options.value("sessions").toUInt();
    const qint64 limit = options.value("minutes").toLongLong() * 60'000;
    QElapsedTimer clock;
    clock.start();
    Holdings holdings;
    QMap<QString, int> windowsMet;
    unsigned count = 0;
    QString failure;
    for (; failure.isEmpty() && count < most && clock.elapsed() < limit; ++count) {
        std::cout << "seed " << first + count << std::flush;
        {
            Session session(first + count, options.value("steps").toInt(), options.isSet("trace"));
            failure = session.run();
            for (const auto &[window, times] : session.windowsMet().asKeyValueRange())
                windowsMet[window] += times;
        }
        const QString grown = holdings.check();
        failure += grown;
        std::cout << "  " << holdings.bytes() / 1024 << " KiB, " << ProcessWatch::openHandles()
                  << " handles" << std::endl;
    }
    for (const auto &[text, times] : warnings.asKeyValueRange())
        std::cout << "warning, " << times << " times: " << text.toStdString() << '\n';
    for (const auto &[window, times] : windowsMet.asKeyValueRange())
        std::cout << times << " steps in " << window.toStdString() << '\n';
    std::cout << count << " sessions in " << clock.elapsed() / 1000 << " s, memory grew by "
              << holdings.growth() << " bytes a session\n";
    if (!failure.isEmpty())
        std::cout << "FAILED at seed " << first + count - 1 << ": " << failure.toStdString()
                  << '\n';
    return failure.isEmpty() ? 0 : 1;
}

} // namespace

ARDIPHON_TEST_RUN_BY(soak, runSessions)
#include "soak.moc"
