// How much loading a template costs beside the bare parse of its file.
//
// Every iteration runs the bare parse and the whole load in turn and times each. The counters:
//   ratio      median load time / median time of the bare parse
//   allocs     allocations of one load, per column, and of the bare parse (floorAllocs)
//   peak       peak memory of a process that loads, beyond that of one that does nothing (MiB), and of one
//              that only parses (floorPeak)
//   held       bytes that the finished template holds, per column
//
// For a profiler, one load or one bare parse of a generated template:
//   load-benchmark --once load|parse current|legacy COLUMNS

#include "GeneratedTemplate.h"
#include "HeapCounter.h"
#include "MeasuredChild.h"
#include "Workload.h"

#include "standalone_host/StandaloneHost.h"

#include <QStringList>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <vector>

#include <malloc.h>

namespace Tobrix::Benchmarks {
namespace {

template <typename Work>
double secondsOf(Work work)
{
    // Freeing a document leaves the heap in a state that the next run would pay for.
    malloc_trim(0);
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double medianOf(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

template <typename Work>
double allocationsOf(Work work)
{
    const HeapCounter counter;
    work();
    return counter.count().allocations;
}

double bytesHeldBy(const QString &fileName)
{
    const HeapCounter counter;
    const auto loaded = load(fileName);
    return counter.count().bytesHeld;
}

double mebibytes(qint64 bytes)
{
    return static_cast<double>(bytes) / (1024.0 * 1024.0);
}

void benchmarkLoad(benchmark::State &state, const QString &fileName, Format format, int columns)
{
    std::vector<double> floorTimes;
    std::vector<double> loadTimes;
    for ([[maybe_unused]] auto _ : state) {
        floorTimes.push_back(secondsOf([&] { parseBare(fileName, format); }));
        loadTimes.push_back(secondsOf([&] { load(fileName); }));
        state.SetIterationTime(loadTimes.back());
    }
    const qint64 idlePeak = peakMemoryOf(ChildWork::Nothing, fileName, format);
    auto &counters = state.counters;
    counters["floor_ms"] = medianOf(floorTimes) * 1e3;
    counters["load_ms"] = medianOf(loadTimes) * 1e3;
    counters["ratio"] = medianOf(loadTimes) / medianOf(floorTimes);
    counters["allocs"] = allocationsOf([&] { load(fileName); }) / columns;
    counters["floorAllocs"] = allocationsOf([&] { parseBare(fileName, format); }) / columns;
    counters["peak"] = mebibytes(peakMemoryOf(ChildWork::Load, fileName, format) - idlePeak);
    counters["floorPeak"] = mebibytes(peakMemoryOf(ChildWork::BareParse, fileName, format) - idlePeak);
    counters["held"] = bytesHeldBy(fileName) / columns;
}

void registerBenchmarks(const QString &folder)
{
    for (const Format format : {Format::Current, Format::Legacy}) {
        for (const Ids ids : {Ids::Short, Ids::Guid}) {
            for (const int columns : {100, 1'000, 10'000, 100'000}) {
                const QString name =
                    QStringLiteral("%1/%2/%3")
                        .arg(format == Format::Current ? QStringLiteral("current") : QStringLiteral("legacy"),
                             ids == Ids::Short ? QStringLiteral("short") : QStringLiteral("guid"))
                        .arg(columns);
                benchmark::RegisterBenchmark(qPrintable(name),
                                             [=](benchmark::State &state) {
                                                 const QString file =
                                                     writeGeneratedTemplate(folder, format, ids, columns);
                                                 benchmarkLoad(state, file, format, columns);
                                             })
                    ->UseManualTime()
                    ->Unit(benchmark::kMillisecond)
                    ->Iterations(columns >= 10'000 ? 15 : 101);
            }
        }
    }
}

/// Runs one load or one bare parse when the arguments ask for that.
bool runOnce(const QString &folder, const QStringList &arguments)
{
    if (arguments.size() != 5 || arguments.at(1) != QLatin1String("--once")) {
        return false;
    }
    const Format format = arguments.at(3) == QLatin1String("current") ? Format::Current : Format::Legacy;
    const QString file = writeGeneratedTemplate(folder, format, Ids::Short, arguments.at(4).toInt());
    if (arguments.at(2) == QLatin1String("load")) {
        load(file);
    } else {
        parseBare(file, format);
    }
    return true;
}

} // namespace
} // namespace Tobrix::Benchmarks

int main(int argc, char **argv)
{
    using namespace Tobrix::Benchmarks;
    if (runAsChild(argc, argv)) {
        return 0;
    }
    Tobrix::Standalone::StandaloneHost::instance().setLogSink([](int, const QString &, const QString &) {});
    const QTemporaryDir folder;
    QStringList arguments;
    std::transform(argv, argv + argc, std::back_inserter(arguments),
                   [](const char *argument) { return QString::fromLocal8Bit(argument); });
    if (runOnce(folder.path(), arguments)) {
        return 0;
    }
    registerBenchmarks(folder.path());
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
