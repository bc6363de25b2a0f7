// Runs the benchmark that it is told, or tells their names:  build/release/benchmarks/benchmarks
// [NAME]

#include "Measure.h"

#include <QByteArray>
#include <QMap>

namespace {

using Benchmarks = QMap<QByteArray, measure::Benchmark::Run>;

Benchmarks &benchmarks()
{
    static Benchmarks all;
    return all;
}

} // namespace

measure::Benchmark::Benchmark(const char *name, Run run) { benchmarks().insert(name, run); }

int main(int argc, char **argv)
{
    if (argc > 1)
        if (const measure::Benchmark::Run run = benchmarks().value(argv[1]))
            return run(argc - 1, argv + 1);
    for (const QByteArray &name : benchmarks().keys())
        std::puts(name.constData());
    return argc > 1 ? 2 : 0;
}
