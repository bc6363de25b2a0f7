#pragma once

// What the benchmarks share: clocks, medians, and the form of the rows they print, which
// benchmarks/run gathers into one table.

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <utility>
#include <vector>

namespace measure {

/// A benchmark, which the program runs as if it were a program of its own (main.cpp).
class Benchmark
{
public:
    using Run = int (*)(int argc, char **argv);
    Benchmark(const char *name, Run run);
};

/// BENCHMARK(subject) { ... }: the benchmark of that name, with the arguments and the result of a
/// main(). It stands in the namespace measure::subject with all that belongs to it.
#define BENCHMARK(name)                                                                            \
    int run(int argc, char **argv);                                                                \
    const Benchmark registered(#name, run);                                                        \
    int run(int argc, char **argv)

/// The sizes of the documents, in lines.
inline constexpr int Sizes[] = {1'000, 10'000, 100'000, 1'000'000};

/// A row that holds for no size in particular.
inline constexpr int NoSize = 0;

/// Prints one row: what was measured, at how many lines, the value, its unit and what it should
/// stay under (0 for no limit).
inline void row(const char *what, int lines, double value, const char *unit, double limit = 0)
{
    std::printf("%-44s\t%8d\t%10.3f\t%-10s\t%8g%s\n", what, lines, value, unit, limit,
                limit > 0 && value > limit ? "\tOVER" : "");
    std::fflush(stdout);
}

/// The processor time of this process so far, whatever else the machine does.
inline double processMilliseconds()
{
    timespec now;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

/// The processor milliseconds that \a step takes.
template <typename Step>
double processTime(Step step)
{
    const double before = processMilliseconds();
    step();
    return processMilliseconds() - before;
}

/// The milliseconds that \a step takes on the wall's clock.
template <typename Step>
double wallTime(Step step)
{
    QElapsedTimer timer;
    timer.start();
    step();
    return double(timer.nsecsElapsed()) / 1e6;
}

inline double median(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// The median of what \a measurement gives in \a runs runs.
template <typename Measurement>
double medianOf(int runs, Measurement measurement)
{
    std::vector<double> values;
    for (int i = 0; i < runs; ++i)
        values.push_back(measurement());
    return median(std::move(values));
}

/// Lets events come for so many milliseconds, as an idle program does.
inline void idle(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// The share of a processor, in percent, that an idle program takes.
inline double idleShare(int milliseconds)
{
    return 100 * processTime([=] { idle(milliseconds); }) / milliseconds;
}

/// Memory that is this process's own, in megabytes.
inline double ownMegabytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n'))
        if (line.startsWith("RssAnon:"))
            return line.mid(8).simplified().split(' ').constFirst().toDouble() / 1024;
    return 0;
}

/// Writes a file into \a folder and gives its path.
inline QString write(const QTemporaryDir &folder, const char *name, const QByteArray &bytes)
{
    const QString path = folder.filePath(QLatin1String(name));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", name);
    return path;
}

/// A score of so many lines, 28 bytes each.
inline QByteArray score(int lines)
{
    QByteArray text;
    text.reserve(qsizetype(lines) * 28);
    for (int i = 0; i < lines; ++i)
        text += "i1 " + QByteArray::number(i * 0.25, 'f', 2).rightJustified(9) + " .5 440 1200\r\n";
    return text;
}

} // namespace measure
