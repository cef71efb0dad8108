#include "MeasuredChild.h"

#include "Workload.h"

#include "standalone_host/StandaloneHost.h"

#include <QFile>
#include <QProcess>

#include <cstdio>
#include <cstring>

namespace Tobrix::Benchmarks {

namespace {

constexpr const char *childMark = "--measured-child";

/// The peak memory of this process so far, in bytes. getrusage() of a child process includes the memory of
/// its parent at the time of the fork.
qint64 ownPeakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) {
        qFatal("Cannot read /proc/self/status");
    }
    const QByteArray text = status.readAll();
    const QByteArray name = "VmHWM:";
    const int start = text.indexOf(name) + name.size();
    return text.mid(start, text.indexOf("kB", start) - start).trimmed().toLongLong() * 1024;
}

} // namespace

qint64 peakMemoryOf(ChildWork work, const QString &fileName, Format format)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QStringLiteral("/proc/self/exe"),
                {QString::fromLatin1(childMark), QString::number(static_cast<int>(work)),
                 QString::number(static_cast<int>(format)), fileName});
    bool isNumber = false;
    child.waitForFinished(-1);
    const qint64 peak = child.readAllStandardOutput().trimmed().toLongLong(&isNumber);
    if (!isNumber || child.exitCode() != 0) {
        qFatal("A measured process failed on %s", qPrintable(fileName));
    }
    return peak;
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
    std::printf("%lld\n", ownPeakMemory());
    return true;
}

} // namespace Tobrix::Benchmarks
