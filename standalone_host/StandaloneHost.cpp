#include "standalone_host/StandaloneHost.h"

#include "standalone_host/HostData_p.h"

#include <QReadLocker>
#include <QWriteLocker>

#include <cstdio>

static void initializeResources()
{
    Q_INIT_RESOURCE(standalone_host);
}

namespace Tobrix::Standalone {

namespace {

void logToStandardError(int level, const QString &category, const QString &message)
{
    const QByteArray line = QStringLiteral("[%1] %2: %3\n").arg(level).arg(category, message).toLocal8Bit();
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
}

} // namespace

void StandaloneHostPrivate::add(const HostConfiguration &configuration)
{
    const QWriteLocker locker(&m_lock);
    for (auto it = configuration.templates.cbegin(); it != configuration.templates.cend(); ++it) {
        replaceTemplate(it.key(), it.value());
    }
    for (auto it = configuration.tables.cbegin(); it != configuration.tables.cend(); ++it) {
        m_tables.insert(it.key(), it.value());
    }
}

void StandaloneHostPrivate::registerTemplate(const QString &uniqueId, const QString &type)
{
    const QWriteLocker locker(&m_lock);
    replaceTemplate(uniqueId, type);
}

void StandaloneHostPrivate::replaceTemplate(const QString &uniqueId, const QString &type)
{
    const RegisteredTemplate *known = m_templates.value(uniqueId, nullptr);
    if (known && known->registeredType == type) {
        return;
    }
    m_descriptors.push_back(std::make_unique<RegisteredTemplate>(type));
    m_templates.insert(uniqueId, m_descriptors.back().get());
}

void StandaloneHostPrivate::registerTable(const QString &tableName, int tableType)
{
    const QWriteLocker locker(&m_lock);
    m_tables.insert(tableName, tableType);
}

void StandaloneHostPrivate::setLogSink(StandaloneHost::LogSink sink)
{
    const QWriteLocker locker(&m_lock);
    // The old sink goes when the argument does, behind the lock: its end may use the host.
    m_logSink.swap(sink);
}

void StandaloneHostPrivate::reset()
{
    setLogSink({});
    const QWriteLocker locker(&m_lock);
    m_templates.clear();
    m_tables.clear();
}

RegisteredTemplate *StandaloneHostPrivate::templateByUniqueId(const QString &uniqueId) const
{
    const QReadLocker locker(&m_lock);
    return m_templates.value(uniqueId, nullptr);
}

int StandaloneHostPrivate::tableType(const QString &tableName) const
{
    const QReadLocker locker(&m_lock);
    return m_tables.value(tableName, 0);
}

void StandaloneHostPrivate::log(int level, const QString &category, const QString &message) const
{
    StandaloneHost::LogSink sink;
    {
        const QReadLocker locker(&m_lock);
        sink = m_logSink;
    }
    // Called without the lock, so that a sink may use the host.
    if (sink) {
        sink(level, category, message);
    } else {
        logToStandardError(level, category, message);
    }
}

StandaloneHost::StandaloneHost() : d(std::make_unique<StandaloneHostPrivate>())
{
    initializeResources();
    HostConfiguration configuration;
    QString errorMessage;
    if (!readConfiguration(QStringLiteral(":/standalone_host/default_configuration.json"), configuration,
                           errorMessage)) {
        qFatal("%s", qPrintable(errorMessage));
    }
    d->add(configuration);
}

StandaloneHost::~StandaloneHost() = default;

StandaloneHost &StandaloneHost::instance()
{
    static StandaloneHost host;
    return host;
}

StandaloneHostPrivate &StandaloneHostPrivate::instance()
{
    return *StandaloneHost::instance().d;
}

void StandaloneHost::registerTemplate(const QString &uniqueId, const QString &type)
{
    d->registerTemplate(uniqueId, type);
}

void StandaloneHost::registerTable(const QString &tableName, int tableType)
{
    d->registerTable(tableName, tableType);
}

void StandaloneHost::setLogSink(LogSink sink)
{
    d->setLogSink(std::move(sink));
}

bool StandaloneHost::loadConfiguration(const QString &jsonFile, QString *errorMessage)
{
    HostConfiguration configuration;
    QString reason;
    if (!readConfiguration(jsonFile, configuration, reason)) {
        if (errorMessage) {
            *errorMessage = reason;
        }
        return false;
    }
    d->add(configuration);
    return true;
}

void StandaloneHost::reset()
{
    d->reset();
}

} // namespace Tobrix::Standalone
