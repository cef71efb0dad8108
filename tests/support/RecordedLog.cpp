#include "support/RecordedLog.h"

#include "standalone_host/StandaloneHost.h"

#include <QMutexLocker>
#include <QTest>

char *toString(const LogLine &line)
{
    return QTest::toString(QStringLiteral("%1 %2: %3").arg(line.level).arg(line.category, line.message));
}

RecordedLog::RecordedLog()
{
    Tobrix::Standalone::StandaloneHost::instance().setLogSink(
        [this](int level, const QString &category, const QString &message) {
            const QMutexLocker locker(&m_mutex);
            m_lines.append({level, category, message});
        });
}

RecordedLog::~RecordedLog()
{
    Tobrix::Standalone::StandaloneHost::instance().setLogSink({});
}

QList<LogLine> RecordedLog::lines() const
{
    const QMutexLocker locker(&m_mutex);
    return m_lines;
}

void RecordedLog::clear()
{
    const QMutexLocker locker(&m_mutex);
    m_lines.clear();
}
