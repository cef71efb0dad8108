#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

/// The bounds for loading a file of some size.
struct LoadBounds
{
    double memory = 0; ///< MiB
    double cpu = 0;    ///< seconds
};

LoadBounds boundsForSize(qint64 fileSize);

/// The way in which a file is loaded.
enum class Way {
    Entry,         ///< as in hosts
    LegacyReader,  ///< by one reader only
    CurrentReader, ///< by one reader only
    Show           ///< through "tobrix-template show"
};

/// The result of loading a file in a child process.
struct HostileLoad
{
    QString failure;     ///< what went wrong with the process; empty when it reported a result
    bool isRead = false; ///< for the tool: whether it reported no problem
    bool hasTemplate = false;
    bool isEmpty = false;
    QByteArray complaint; ///< the message of the tool
    double memory = 0;    ///< peak, in MiB
    double cpu = 0;       ///< seconds
};

/// Loads a file in a child process, which is killed far beyond the bounds.
HostileLoad loadInChild(const QString &path, const LoadBounds &bounds, Way way = Way::Entry);

/// The exceeded bounds of a load, in words; empty when there are none. Bounds do not apply with sanitizers.
QString excessOf(const HostileLoad &load, const LoadBounds &bounds);

/// A process under limits, without the rights of root.
class LimitedProcess : public QProcess
{
public:
    explicit LimitedProcess(const LoadBounds &bounds) : m_bounds(bounds) {}

    /// The result of loading; waits for it.
    HostileLoad takeLoad();

protected:
    void setupChildProcess() override;

private:
    const LoadBounds m_bounds;
};
