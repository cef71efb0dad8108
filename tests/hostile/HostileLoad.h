#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

/// What a file of some size may cost.
struct LoadBounds
{
    double memory = 0; ///< MiB
    double cpu = 0;    ///< seconds
};

LoadBounds boundsForSize(qint64 fileSize);

/// On which way a file goes through the library.
enum class Way {
    Entry,         ///< as hosts load it
    LegacyReader,  ///< through one reader alone
    CurrentReader, ///< through one reader alone
    Show           ///< through "tobrix-template show"
};

/// What came of loading a file in a process of its own.
struct HostileLoad
{
    QString failure; ///< what went wrong with the process, in words; empty when it told what came of the file
    bool isRead = false; ///< to the tool: whether nothing is wrong with the file
    bool hasTemplate = false;
    bool isEmpty = false;
    QByteArray complaint; ///< what the tool says of the file
    double memory = 0;    ///< MiB at most
    double cpu = 0;       ///< seconds
};

/// Loads a file in a process of its own, which is stopped where it goes far beyond the bounds.
HostileLoad loadInChild(const QString &path, const LoadBounds &bounds, Way way = Way::Entry);

/// What a load has cost too much, in words; empty when it kept within the bounds. Nothing is too much for the
/// sanitizers.
QString excessOf(const HostileLoad &load, const LoadBounds &bounds);

/// A process under limits, without the rights of root.
class LimitedProcess : public QProcess
{
public:
    explicit LimitedProcess(const LoadBounds &bounds) : m_bounds(bounds) {}

    /// What came of loading; waits for it.
    HostileLoad takeLoad();

protected:
    void setupChildProcess() override;

private:
    const LoadBounds m_bounds;
};
