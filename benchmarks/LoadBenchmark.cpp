// Compares the time to load a template with the time for a bare parse of its file by Qt's parser.
//
//   load-benchmark [FILTER]   runs the rows that match a regular expression, such as "current/.*/1000$", and
//                             prints them; the exit code is 1 when one of them is over a bound
//   load-benchmark --once load|parse current/short/1000
//                             runs one load or one bare parse, for a profiler

#include "GeneratedTemplate.h"
#include "HeapCounter.h"
#include "MeasuredChild.h"
#include "Workload.h"

#include "standalone_host/StandaloneHost.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>
#include <vector>

#include <malloc.h>
#include <pugixml.hpp>

namespace Tobrix::Benchmarks {
namespace {

constexpr double unbounded = std::numeric_limits<double>::infinity();
constexpr double mebibyte = 1024.0 * 1024.0;
constexpr int columnsOfBase = 1'000;

struct Case
{
    QString name;
    Format format;
    Shape shape;
    int columns;

    bool isLarge() const { return columns >= 10'000; }
    bool isLargest() const { return columns >= 100'000; }
};

struct Measurement
{
    double fileSize = 0;
    double parseTime = 0;
    double pugixmlTime = 0;
    double loadTime = 0;
    double growth = 0; ///< Time per column, relative to a template of columnsOfBase columns.
    double held = 0;   ///< Bytes in use by the template.
    double peak = 0;   ///< Peak memory of a process that loads once, less that of an idle process, in bytes.
    double allocations = 0;
};

/// The bounds of a measurement.
struct Bounds
{
    double loadPerParse;
    double growth;
    double heldPerColumn;
    double peak;
};

QList<Case> allCases()
{
    QList<Case> cases;
    for (const auto &[format, formatName] :
         {std::pair(Format::Current, "current"), std::pair(Format::Legacy, "legacy")}) {
        for (const auto &[shape, shapeName] :
             {std::pair(Shape::Short, "short"), std::pair(Shape::Guid, "guid"),
              std::pair(Shape::Varied, "varied"), std::pair(Shape::DocumentType, "doctype")}) {
            for (const int columns : {100, columnsOfBase, 10'000, 100'000}) {
                const QString name = QStringLiteral("%1/%2/%3")
                                         .arg(QLatin1String(formatName), QLatin1String(shapeName))
                                         .arg(columns);
                cases.append({name, format, shape, columns});
            }
        }
    }
    return cases;
}

Bounds boundsOf(const Case &measured, const Measurement &result)
{
    const bool isCurrent = measured.format == Format::Current;
    const double heldPerColumn = measured.shape == Shape::Guid ? 700 : 600;
    if (measured.shape == Shape::DocumentType) {
        return {1.6, unbounded, heldPerColumn, unbounded};
    }
    const double largest = isCurrent ? 0.30 : 0.55;
    const double smaller = isCurrent ? 0.25 : 0.40;
    return {measured.isLargest() ? largest : smaller, isCurrent ? 1.3 : 1.6, heldPerColumn,
            3 * result.fileSize + result.held + 8 * mebibyte};
}

void parseWithPugixml(const QString &fileName)
{
    pugi::xml_document document;
    if (!document.load_file(QFile::encodeName(fileName).constData())) {
        qFatal("pugixml cannot parse %s", qPrintable(fileName));
    }
}

template <typename Work>
double secondsOf(Work work)
{
    // Freeing a document leaves the heap in a state that would slow down the next run.
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

void measureTimes(const Case &measured, const QString &file, const QString &baseFile, Measurement &result)
{
    // Runs of the template that growth is relative to: enough for a warm instruction cache.
    constexpr int runsOfBase = 5;
    std::vector<double> parseTimes;
    std::vector<double> pugixmlTimes;
    std::vector<double> loadTimes;
    std::vector<double> baseTimes;
    for (int i = measured.isLarge() ? 15 : 101; i > 0; --i) {
        parseTimes.push_back(secondsOf([&] { parseBare(file, measured.format); }));
        pugixmlTimes.push_back(secondsOf([&] { parseWithPugixml(file); }));
        loadTimes.push_back(secondsOf([&] { load(file); }));
        for (int run = 0; measured.isLargest() && run < runsOfBase; ++run) {
            baseTimes.push_back(secondsOf([&] { load(baseFile); }));
        }
    }
    result.parseTime = medianOf(parseTimes);
    result.pugixmlTime = medianOf(pugixmlTimes);
    result.loadTime = medianOf(loadTimes);
    if (measured.isLargest()) {
        result.growth = result.loadTime / measured.columns / (medianOf(baseTimes) / columnsOfBase);
    }
}

void measureMemory(const Case &measured, const QString &file, Measurement &result)
{
    const auto peakOf = [&](ChildWork work) {
        return static_cast<double>(peakMemoryOf(work, file, measured.format));
    };
    result.fileSize = static_cast<double>(QFileInfo(file).size());
    result.peak = peakOf(ChildWork::Load) - peakOf(ChildWork::Nothing);
    const HeapCounter counter;
    const auto loaded = load(file);
    result.held = counter.count().bytesHeld;
    result.allocations = counter.count().allocations;
}

Measurement measure(const QString &folder, const Case &measured)
{
    const QString file = writeGeneratedTemplate(folder, measured.format, measured.shape, measured.columns);
    const QString baseFile = writeGeneratedTemplate(folder, measured.format, measured.shape, columnsOfBase);
    Measurement result;
    // Memory that the first load allocates once per process does not count.
    measureTimes(measured, file, baseFile, result);
    measureMemory(measured, file, result);
    return result;
}

/// Prints a value with its bound.
/// @return whether the value is within the bound
bool printBounded(double value, double bound, int width, int decimals)
{
    const bool isKept = value <= bound;
    if (bound == unbounded) {
        std::printf("  %*.*f    %*s", width, decimals, value, width, "");
    } else {
        std::printf("  %*.*f %s %-*.*f", width, decimals, value, isKept ? "<=" : "> ", width, decimals,
                    bound);
    }
    return isKept;
}

void printHead()
{
    std::printf(
        "parse     bare parse by Qt's parser of the format, ms\n"
        "pugixml   bare parse by pugixml, which checks less than a template's parser must: a lower bound, "
        "ms\n"
        "load      CTemplateReader::readFile and deletion of the template, ms\n"
        "growth    load time a column relative to that of %d columns\n"
        "held      bytes a column that the template holds\n"
        "peak      MiB of a process that loads once, beyond one that does nothing; bound: 3 x file + held "
        "+ 8 MiB\n"
        "allocs    allocations a column of one load\n\n",
        columnsOfBase);
    std::printf("%-22s %7s %9s %8s %8s  %-15s  %-13s  %-11s  %-17s  %6s  %s\n", "format/shape/columns",
                "file MB", "parse", "pugixml", "load", "load / parse", "growth", "held", "peak", "allocs",
                "all kept");
}

/// @return whether all values are within their bounds
bool printRow(const Case &measured, const Measurement &result)
{
    const Bounds bounds = boundsOf(measured, result);
    std::printf("%-22s %7.2f %9.2f %8.2f %8.2f", qPrintable(measured.name), result.fileSize / 1e6,
                result.parseTime * 1e3, result.pugixmlTime * 1e3, result.loadTime * 1e3);
    bool isKept = printBounded(result.loadTime / result.parseTime, bounds.loadPerParse, 6, 3);
    if (measured.isLargest()) {
        isKept &= printBounded(result.growth, bounds.growth, 5, 2);
    } else {
        std::printf("  %5s    %5s", "-", "");
    }
    isKept &= printBounded(result.held / measured.columns, bounds.heldPerColumn, 4, 0);
    isKept &= printBounded(result.peak / mebibyte, bounds.peak / mebibyte, 7, 2);
    std::printf("  %6.1f  %s\n", result.allocations / measured.columns, isKept ? "yes" : "NO");
    std::fflush(stdout);
    return isKept;
}

bool runBenchmarks(const QString &folder, const QRegularExpression &filter)
{
    printHead();
    bool isKept = true;
    for (const auto &benchmark : allCases()) {
        if (filter.match(benchmark.name).hasMatch()) {
            isKept &= printRow(benchmark, measure(folder, benchmark));
        }
    }
    return isKept;
}

/// @return whether there is a benchmark of that name
bool runOnce(const QString &folder, const QString &work, const QString &name)
{
    for (const auto &benchmark : allCases()) {
        if (benchmark.name == name) {
            const QString file =
                writeGeneratedTemplate(folder, benchmark.format, benchmark.shape, benchmark.columns);
            if (work == QLatin1String("load")) {
                load(file);
            } else {
                parseBare(file, benchmark.format);
            }
            return true;
        }
    }
    return false;
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
    for (int i = 1; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    if (arguments.size() == 3 && arguments.first() == QLatin1String("--once")) {
        return runOnce(folder.path(), arguments.at(1), arguments.at(2)) ? 0 : 2;
    }
    const QRegularExpression filter(arguments.value(0));
    if (arguments.size() > 1 || !filter.isValid()) {
        std::fprintf(stderr, "usage: load-benchmark [FILTER] | --once load|parse NAME\n");
        return 2;
    }
    return runBenchmarks(folder.path(), filter) ? 0 : 1;
}
