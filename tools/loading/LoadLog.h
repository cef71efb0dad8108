#pragma once

#include <QList>
#include <QString>

namespace Tobrix::Tools {

/// One line that the library wrote to the host's log.
struct LogLine
{
    int level = 0;
    QString category;
    QString message;
};

/// Collects what the library logs on this thread while it exists, and keeps it off standard error. Every
/// thread may have one at a time.
class LoadLog
{
public:
    LoadLog();
    ~LoadLog();

    /// The lines so far, in the order in which they were written.
    const QList<LogLine> &lines() const { return m_lines; }

private:
    Q_DISABLE_COPY(LoadLog)

    static void append(int level, const QString &category, const QString &message);

    QList<LogLine> m_lines;
};

} // namespace Tobrix::Tools
