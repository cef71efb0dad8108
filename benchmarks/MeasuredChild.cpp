#include "MeasuredChild.h"

#include "Workload.h"

#include "standalone_host/StandaloneHost.h"

#include <QFile>

#include <cstring>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Tobrix::Benchmarks {

namespace {

constexpr const char *childMark = "--measured-child";

} // namespace

qint64 peakMemoryOf(ChildWork work, const QString &fileName, Format format)
{
    const QByteArray file = QFile::encodeName(fileName);
    const QByteArray workNumber = QByteArray::number(static_cast<int>(work));
    const QByteArray formatNumber = QByteArray::number(static_cast<int>(format));
    // vfork, and exec at once: a fork would count this process's memory into the child's peak.
    const pid_t child = ::vfork();
    if (child == 0) {
        ::execl("/proc/self/exe", "load-benchmark", childMark, workNumber.constData(),
                formatNumber.constData(), file.constData(), nullptr);
        ::_exit(127);
    }
    int status = 0;
    struct rusage usage = {};
    if (child < 0 || ::wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) ||
        WEXITSTATUS(status) != 0) {
        qFatal("A measured process failed on %s", qPrintable(fileName));
    }
    return qint64(usage.ru_maxrss) * 1024;
}

bool runAsChild(int argc, char **argv)
{
    if (argc != 5 || std::strcmp(argv[1], childMark) != 0) {
        return false;
    }
    Standalone::StandaloneHost::instance().setLogSink([](int, const QString &, const QString &) {});
    const auto work = static_cast<ChildWork>(QByteArray(argv[2]).toInt());
    const auto format = static_cast<Format>(QByteArray(argv[3]).toInt());
    const QString fileName = QFile::decodeName(argv[4]);
    if (work == ChildWork::BareParse) {
        parseBare(fileName, format);
    } else if (work == ChildWork::Load) {
        load(fileName);
    }
    return true;
}

} // namespace Tobrix::Benchmarks
