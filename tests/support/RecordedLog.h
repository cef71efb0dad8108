#pragma once

#include <QList>
#include <QMutex>
#include <QString>

/// One line that went to the host's log.
struct LogLine
{
    int level = 0;
    QString category;
    QString message;

    bool operator==(const LogLine &other) const
    {
        return level == other.level && category == other.category && message == other.message;
    }
};

/// Shows a line in the message of a failed comparison.
char *toString(const LogLine &line);

/// Collects what goes to the standalone host's log while it exists.
class RecordedLog
{
public:
    RecordedLog();
    ~RecordedLog();

    QList<LogLine> lines() const;
    void clear();

private:
    Q_DISABLE_COPY(RecordedLog)

    mutable QMutex m_mutex;
    QList<LogLine> m_lines;
};
