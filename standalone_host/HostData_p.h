#pragma once

#include "host/CTemplateDescriptor.h"
#include "standalone_host/StandaloneHost.h"

#include <QHash>
#include <QReadWriteLock>
#include <QString>

#include <memory>
#include <vector>

namespace Tobrix::Standalone {

/// A registered template. The library sees it as the descriptor that it derives from.
class RegisteredTemplate : public CATManagement::CTemplateDescriptor
{
public:
    explicit RegisteredTemplate(const QString &templateType) : registeredType(templateType) {}

    const QString registeredType;
};

/// What a configuration file says.
struct HostConfiguration
{
    QHash<QString, QString> templates;
    QHash<QString, int> tables;
};

/// Reads a configuration file.
/// @param errorMessage receives file and reason when it cannot be used
bool readConfiguration(const QString &jsonFile, HostConfiguration &configuration, QString &errorMessage);

/// What the host knows, guarded for use from several threads.
class StandaloneHostPrivate
{
public:
    void add(const HostConfiguration &configuration);
    void registerTemplate(const QString &uniqueId, const QString &type);
    void registerTable(const QString &tableName, int tableType);
    void setLogSink(StandaloneHost::LogSink sink);
    void reset();

    RegisteredTemplate *templateByUniqueId(const QString &uniqueId) const;
    int tableType(const QString &tableName) const;
    void log(int level, const QString &category, const QString &message) const;

    /// The state of the one host, for the implementations of the host's interfaces.
    static StandaloneHostPrivate &instance();

private:
    void replaceTemplate(const QString &uniqueId, const QString &type);

    mutable QReadWriteLock m_lock;
    QHash<QString, RegisteredTemplate *> m_templates;
    // Descriptors are never deleted: whoever looked one up may still be using it on another thread.
    std::vector<std::unique_ptr<RegisteredTemplate>> m_descriptors;
    QHash<QString, int> m_tables;
    StandaloneHost::LogSink m_logSink;
};

} // namespace Tobrix::Standalone
