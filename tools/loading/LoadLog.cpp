#include "tools/loading/LoadLog.h"

#include "standalone_host/StandaloneHost.h"

#include <QMutex>
#include <QMutexLocker>

namespace Tobrix::Tools {

namespace {

thread_local LoadLog *logOfThisThread = nullptr;

// The host has one sink for all threads: it stays installed until the last log is destroyed.
QMutex sinkMutex;
int logCount = 0;

} // namespace

LoadLog::LoadLog()
{
    logOfThisThread = this;
    const QMutexLocker locker(&sinkMutex);
    ++logCount;
    Standalone::StandaloneHost::instance().setLogSink(&LoadLog::append);
}

LoadLog::~LoadLog()
{
    logOfThisThread = nullptr;
    const QMutexLocker locker(&sinkMutex);
    if (--logCount == 0) {
        Standalone::StandaloneHost::instance().setLogSink({});
    }
}

void LoadLog::append(int level, const QString &category, const QString &message)
{
    if (logOfThisThread) {
        logOfThisThread->m_lines.append({level, category, message});
    }
}

} // namespace Tobrix::Tools
