// Compares the time to check templates with the time to load them, on as many cores.
//
//   check-benchmark [FILES [KILOBYTES]]   writes so many files of that size in each format, and prints the
//                                         median times over some rounds, and their ratio

#include "GeneratedTemplate.h"
#include "Workload.h"

#include "standalone_host/StandaloneHost.h"
#include "tools/check/CheckRun.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThreadPool>
#include <QtConcurrent>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace Tobrix::Benchmarks {
namespace {

constexpr int rounds = 5;

/// The number of columns for a file size.
int columnsOfSize(Format format, int bytes)
{
    constexpr int some = 400;
    const int bytesOfSome = generateTemplate(format, Shape::Guid, some).size();
    return static_cast<int>(static_cast<qint64>(some) * bytes / bytesOfSome);
}

QStringList writeFiles(const QString &folder, Format format, int columns, int count)
{
    const QString first = writeGeneratedTemplate(folder, format, Shape::Guid, columns);
    QStringList files{first};
    for (int i = 1; i < count; ++i) {
        const QString file = QStringLiteral("%1/%2.xml").arg(QFileInfo(first).path()).arg(i);
        if (!QFile::copy(first, file)) {
            qFatal("Cannot write %s", qPrintable(file));
        }
        files.append(file);
    }
    return files;
}

template <typename Work>
double secondsOf(Work work)
{
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

void compare(const char *name, Format format, int count, int bytes)
{
    const QTemporaryDir folder;
    const QStringList files = writeFiles(folder.path(), format, columnsOfSize(format, bytes), count);
    std::vector<double> loadTimes;
    std::vector<double> checkTimes;
    std::size_t findings = 0;
    for (int round = 0; round < rounds; ++round) {
        loadTimes.push_back(secondsOf([&files] {
            QStringList names = files;
            QtConcurrent::blockingMap(names, [](const QString &file) { load(file); });
        }));
        checkTimes.push_back(secondsOf([&] {
            findings = 0;
            for (const auto &report : Tools::checkFiles(files, {}, {}, [](int, int) {})) {
                findings += report.findings.size();
            }
        }));
    }
    std::printf(
        "%-8s %6d files of %4lld KB on %d cores   load %7.3f s   check %7.3f s   ratio %.2f   %zu findings\n",
        name, count, QFileInfo(files.first()).size() / 1000, QThreadPool::globalInstance()->maxThreadCount(),
        medianOf(loadTimes), medianOf(checkTimes), medianOf(checkTimes) / medianOf(loadTimes), findings);
}

} // namespace
} // namespace Tobrix::Benchmarks

int main(int argc, char **argv)
{
    using namespace Tobrix::Benchmarks;
    const int count = argc > 1 ? std::max(1, std::atoi(argv[1])) : 1000;
    const int kilobytes = argc > 2 ? std::max(1, std::atoi(argv[2])) : 300;
    Tobrix::Standalone::StandaloneHost::instance().setLogSink([](int, const QString &, const QString &) {});
    compare("current", Format::Current, count, kilobytes * 1000);
    compare("legacy", Format::Legacy, count, kilobytes * 1000);
    return 0;
}
