#include "HostileLoad.h"

#include <QFile>
#include <QMap>

#include <cmath>

#include <grp.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

void limit(__rlimit_resource resource, double most)
{
    const auto value = static_cast<rlim_t>(std::ceil(most));
    const rlimit limits = {value, value};
    if (::setrlimit(resource, &limits) != 0) {
        ::_exit(98);
    }
}

/// Values by their names, as hostile_load prints them.
QMap<QByteArray, double> printedValues(const QByteArray &output)
{
    QMap<QByteArray, double> values;
    const auto lines = output.split('\n');
    for (const auto &line : lines) {
        const auto words = line.split(' ');
        if (words.size() == 2) {
            values.insert(words[0], words[1].toDouble());
        }
    }
    return values;
}

} // namespace

LoadBounds boundsForSize(qint64 fileSize)
{
    const auto size = static_cast<double>(fileSize);
    return {64 + 128 * size / (1024 * 1024), 1 + size / 1e6};
}

void LimitedProcess::setupChildProcess()
{
    constexpr uid_t nobody = 65534;
    if (::geteuid() == 0 &&
        (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0)) {
        ::_exit(99);
    }
    limit(RLIMIT_CORE, 0);
#ifndef TOBRIX_TEST_SANITIZED
    // Libraries, stacks and arenas use address space as well. Sanitizers reserve nearly all of it.
    constexpr double ownSpace = 1024;
    limit(RLIMIT_AS, (m_bounds.memory * 2 + ownSpace) * 1024 * 1024);
    limit(RLIMIT_CPU, m_bounds.cpu * 2 + 5);
#endif
}

HostileLoad LimitedProcess::takeLoad()
{
    HostileLoad load;
    constexpr int patience = 120'000;
    if (!waitForFinished(patience)) {
        kill();
        waitForFinished();
        load.failure = QStringLiteral("does not come to an end");
        return load;
    }
    const auto values = printedValues(readAllStandardOutput());
    if (exitStatus() != NormalExit || exitCode() != 0 || !values.contains("memory")) {
        load.failure =
            QStringLiteral("died: %1 %2, %3")
                .arg(exitStatus() == NormalExit ? QStringLiteral("exit status") : QStringLiteral("signal"))
                .arg(exitCode())
                .arg(QString::fromLocal8Bit(readAllStandardError().right(3000)));
        return load;
    }
    load.isRead = values.contains("exit") ? values["exit"] == 0 : values["read"] != 0;
    load.hasTemplate = values["template"] != 0;
    load.isEmpty = values["empty"] != 0;
    load.complaint = readAllStandardError();
    load.memory = values["memory"] / 1024;
    load.cpu = values["cpu"];
    return load;
}

HostileLoad loadInChild(const QString &path, const LoadBounds &bounds, Way way)
{
    const QString load = QStringLiteral(TOBRIX_HOSTILE_LOAD);
    const QMap<Way, QStringList> commands = {
        {Way::Entry, {load}},
        {Way::LegacyReader, {load, QStringLiteral("--legacy")}},
        {Way::CurrentReader, {load, QStringLiteral("--current")}},
        {Way::Show,
         {QStringLiteral(TOBRIX_MEASURED_RUN), QStringLiteral(TOBRIX_TEMPLATE_TOOL), QStringLiteral("show")}},
    };
    QStringList command = commands[way];
    const QString program = command.takeFirst();
    LimitedProcess process(bounds);
    process.start(program, command << path);
    process.closeWriteChannel();
    return process.takeLoad();
}

QString excessOf(const HostileLoad &load, const LoadBounds &bounds)
{
#ifdef TOBRIX_TEST_SANITIZED
    Q_UNUSED(load)
    Q_UNUSED(bounds)
#else
    if (load.memory > bounds.memory) {
        return QStringLiteral("takes %1 MiB, may take %2").arg(load.memory).arg(bounds.memory);
    }
    if (load.cpu > bounds.cpu) {
        return QStringLiteral("takes %1 s, may take %2").arg(load.cpu).arg(bounds.cpu);
    }
#endif
    return QString();
}
