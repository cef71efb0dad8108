// A host that has not started, has no registry, or has one: this program is the host itself.

#include "host/CCatalogDescriptor.h"
#include "host/CCatalogTemplateRegistry.h"
#include "host/CLogger.h"
#include "host/CTableDescriptors.h"
#include "host/CTemplateDescriptor.h"
#include "host/CoreApplication.h"

#include "loading/CTemplateReader.h"
#include "model/CCatalogTemplate.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Tobrix;
using namespace Tobrix::Templates;

namespace {

/// The state of the host, and the requests to it.
struct Host
{
    bool hasApplication = false;
    bool hasRegistry = false;
    bool knowsTemplates = false;
    int registryRequests = 0;
    QStringList requestedTemplates;
    int typeRequests = 0;
};

Host host;

} // namespace

namespace Tobrix {

void Logging::CLogger::logMessage(LogLevel, const QString &, const QString &)
{
}

AppLogic::CoreApplication *AppLogic::CoreApplication::instance()
{
    static CoreApplication application;
    return host.hasApplication ? &application : nullptr;
}

CATManagement::CCatalogTemplateRegistry *AppLogic::CoreApplication::catalogTemplateRegistry() const
{
    static CATManagement::CCatalogTemplateRegistry registry;
    ++host.registryRequests;
    return host.hasRegistry ? &registry : nullptr;
}

CATManagement::CTemplateDescriptor *
CATManagement::CCatalogTemplateRegistry::templateByUniqueId(const QString &uniqueId) const
{
    static CTemplateDescriptor descriptor;
    host.requestedTemplates.append(uniqueId);
    return host.knowsTemplates ? &descriptor : nullptr;
}

QString CATManagement::CTemplateDescriptor::type() const
{
    ++host.typeRequests;
    return QStringLiteral("WATER");
}

Database::DBTableType Database::CTableDescriptors::tableTypeFromTableName(const QString &)
{
    return DBTableType();
}

CATManagement::CCatalogDescriptor::CCatalogDescriptor() = default;

QString CATManagement::CCatalogDescriptor::id() const
{
    return m_id;
}

void CATManagement::CCatalogDescriptor::setId(const QString &id)
{
    m_id = id;
}

QString CATManagement::CCatalogDescriptor::countryCode() const
{
    return m_countryCode;
}

void CATManagement::CCatalogDescriptor::setCountryCode(const QString &countryCode)
{
    m_countryCode = countryCode;
}

QString CATManagement::CCatalogDescriptor::languageCode() const
{
    return m_languageCode;
}

void CATManagement::CCatalogDescriptor::setLanguageCode(const QString &languageCode)
{
    m_languageCode = languageCode;
}

} // namespace Tobrix

class HostWithoutRegistryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void typeStaysAsReadWithoutApplicationOrRegistry_data();
    void typeStaysAsReadWithoutApplicationOrRegistry();
    void registryIsAskedForTheTemplateOfAnyType_data();
    void registryIsAskedForTheTemplateOfAnyType();
    void registryIsFetchedEvenWhenNothingWasBuilt();
    void registryIsLeftAloneWhenNothingWasRead();

private:
    /// Reads a legacy document; null when it fails.
    std::unique_ptr<CCatalogTemplate> read(const QByteArray &sections, int flags = 0);

    QTemporaryDir m_directory;
};

void HostWithoutRegistryTest::init()
{
    host = Host();
}

std::unique_ptr<CCatalogTemplate> HostWithoutRegistryTest::read(const QByteArray &sections, int flags)
{
    QFile file(m_directory.filePath(QStringLiteral("template.xml")));
    if (!file.open(QIODevice::WriteOnly) || file.write("<TXSYS>" + sections + "</TXSYS>") < 0) {
        qFatal("Cannot write %s", qPrintable(file.fileName()));
    }
    file.close();
    CCatalogTemplate *catalogTemplate = nullptr;
    CTemplateReader::readFile(file.fileName(), static_cast<CTemplateReader::ReaderFlags>(flags),
                              catalogTemplate);
    return std::unique_ptr<CCatalogTemplate>(catalogTemplate);
}

void HostWithoutRegistryTest::typeStaysAsReadWithoutApplicationOrRegistry_data()
{
    QTest::addColumn<bool>("hasApplication");
    QTest::addColumn<bool>("hasRegistry");
    QTest::addColumn<bool>("knowsTemplates");
    QTest::newRow("no application") << false << true << true;
    QTest::newRow("no registry") << true << false << true;
    QTest::newRow("an empty registry") << true << true << false;
}

void HostWithoutRegistryTest::typeStaysAsReadWithoutApplicationOrRegistry()
{
    QFETCH(bool, hasApplication);
    QFETCH(bool, hasRegistry);
    QFETCH(bool, knowsTemplates);
    host.hasApplication = hasApplication;
    host.hasRegistry = hasRegistry;
    host.knowsTemplates = knowsTemplates;

    const auto untyped = read("<SYSTPL><TPL_PK>{id}</TPL_PK></SYSTPL>");
    QVERIFY(untyped);
    QCOMPARE(untyped->type(), QString());
    const auto typed = read("<SYSTPL><TPL_PK>{id}</TPL_PK><TPL_Type>SEWER</TPL_Type></SYSTPL>");
    QVERIFY(typed);
    QCOMPARE(typed->type(), QStringLiteral("SEWER"));
    QCOMPARE(host.typeRequests, 0);
}

void HostWithoutRegistryTest::registryIsAskedForTheTemplateOfAnyType_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QString>("completed");
    QTest::newRow("no type") << QByteArray() << QStringLiteral("WATER");
    QTest::newRow("a type") << QByteArray("<TPL_Type>SEWER</TPL_Type>") << QStringLiteral("SEWER");
}

void HostWithoutRegistryTest::registryIsAskedForTheTemplateOfAnyType()
{
    QFETCH(QByteArray, type);
    host.hasApplication = host.hasRegistry = host.knowsTemplates = true;
    const auto catalogTemplate = read("<SYSTPL><TPL_PK>{id}</TPL_PK>" + type + "</SYSTPL>");
    QVERIFY(catalogTemplate);
    QTEST(catalogTemplate->type(), "completed");
    QCOMPARE(host.registryRequests, 1);
    QCOMPARE(host.requestedTemplates, QStringList{QStringLiteral("{id}")});
}

void HostWithoutRegistryTest::registryIsFetchedEvenWhenNothingWasBuilt()
{
    host.hasApplication = host.hasRegistry = host.knowsTemplates = true;
    QVERIFY(!read("<SYSCOL><COL_DataType>TXT</COL_DataType></SYSCOL>"));
    QCOMPARE(host.registryRequests, 1);
    QCOMPARE(host.requestedTemplates, QStringList());
}

void HostWithoutRegistryTest::registryIsLeftAloneWhenNothingWasRead()
{
    host.hasApplication = host.hasRegistry = host.knowsTemplates = true;
    QVERIFY(!read("<SYSTPL/>", 1));
    QVERIFY(!read("<SYSLIST/>"));
    QCOMPARE(host.registryRequests, 0);
}

QTEST_APPLESS_MAIN(HostWithoutRegistryTest)

#include "HostWithoutRegistryTest.moc"
