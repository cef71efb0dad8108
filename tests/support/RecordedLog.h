#pragma once

#include <QList>
#include <QMutex>
#include <QString>

/// One line of the host's log.
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

/// Prints a line in the message of a failed comparison.
char *toString(const LogLine &line);

/// Collects the lines of the standalone host's log during its lifetime.
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
