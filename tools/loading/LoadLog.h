#pragma once

#include <QList>
#include <QString>

namespace Tobrix::Tools {

/// One line of the host's log.
struct LogLine
{
    int level = 0;
    QString category;
    QString message;
};

/// Collects the library's log lines on this thread during its lifetime, instead of printing them to standard
/// error. One at a time per thread.
class LoadLog
{
public:
    LoadLog();
    ~LoadLog();

    /// The lines so far, in the order written.
    const QList<LogLine> &lines() const { return m_lines; }

private:
    Q_DISABLE_COPY(LoadLog)

    static void append(int level, const QString &category, const QString &message);

    QList<LogLine> m_lines;
};

} // namespace Tobrix::Tools
