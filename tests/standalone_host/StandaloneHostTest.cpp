#include "standalone_host/StandaloneHost.h"
#include "support/RecordedLog.h"

#include "host/CCatalogDescriptor.h"
#include "host/CCatalogTemplateRegistry.h"
#include "host/CLogger.h"
#include "host/CTableDescriptors.h"
#include "host/CTemplateDescriptor.h"
#include "host/CoreApplication.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <cstdio>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace Tobrix;
using Standalone::StandaloneHost;

namespace {

CATManagement::CTemplateDescriptor *descriptorOf(const QString &uniqueId)
{
    return AppLogic::CoreApplication::instance()->catalogTemplateRegistry()->templateByUniqueId(uniqueId);
}

/// The registered type of a template; a null text when it is not registered.
QString typeOf(const QString &uniqueId)
{
    const auto *descriptor = descriptorOf(uniqueId);
    return descriptor ? descriptor->type() : QString();
}

int tableTypeOf(const QString &tableName)
{
    return static_cast<int>(Database::CTableDescriptors::tableTypeFromTableName(tableName));
}

void writeLogLine(int level, const QString &category, const QString &message)
{
    Logging::CLogger::logMessage(static_cast<Logging::LogLevel>(level), category, message);
}

/// Collects what the process writes to standard error while it exists.
class CapturedStandardError
{
public:
    CapturedStandardError() : m_file(std::tmpfile()), m_original(::dup(STDERR_FILENO))
    {
        std::fflush(stderr);
        ::dup2(::fileno(m_file), STDERR_FILENO);
    }
    ~CapturedStandardError()
    {
        restore();
        std::fclose(m_file);
    }

    QByteArray text()
    {
        restore();
        std::rewind(m_file);
        QByteArray content(4096, '\0');
        const auto size = std::fread(content.data(), 1, static_cast<std::size_t>(content.size()), m_file);
        content.truncate(static_cast<int>(size));
        return content;
    }

private:
    Q_DISABLE_COPY(CapturedStandardError)

    void restore()
    {
        if (m_original >= 0) {
            std::fflush(stderr);
            ::dup2(m_original, STDERR_FILENO);
            ::close(m_original);
            m_original = -1;
        }
    }

    std::FILE *m_file;
    int m_original;
};

/// A configuration file that exists as long as the object.
class ConfigurationFile
{
public:
    explicit ConfigurationFile(const QByteArray &content)
        : m_path(m_directory.filePath(QStringLiteral("host.json")))
    {
        QFile file(m_path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("Cannot write %s", qPrintable(m_path));
        }
    }
    QString path() const { return m_path; }

private:
    QTemporaryDir m_directory;
    QString m_path;
};

} // namespace

class StandaloneHostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void samplesAreKnownFromTheStart_data();
    void samplesAreKnownFromTheStart();
    void registeredTemplateIsAnswered();
    void unknownTemplateIsNull();
    void templateMayBeRegisteredAnew();
    void emptyTypeIsStillRegistered();
    void unknownTableHasTypeZero();
    void registeredTableIsAnswered();
    void tableNameIsComparedExactly();
    void sinkReceivesLevelCategoryAndMessage();
    void sinkMayUseTheHost();
    void withoutSinkTheLogGoesToStandardError();
    void configurationAddsTemplatesAndTables();
    void configurationMayLeaveOutAPart_data();
    void configurationMayLeaveOutAPart();
    void unusableConfigurationTellsFileAndReason_data();
    void unusableConfigurationTellsFileAndReason();
    void unusableConfigurationChangesNothing();
    void missingConfigurationTellsFileAndReason();
    void pipeIsNotWaitedFor();
    void errorMessageMayBeOmitted();
    void resetForgetsEverything();
    void descriptorOutlivesReset();
    void hostIsUsableFromManyThreads();
    void catalogDescriptorKeepsItsTexts();
};

// Runs first: later tests forget what the host starts out with.
void StandaloneHostTest::samplesAreKnownFromTheStart_data()
{
    QTest::addColumn<QString>("tableName");
    QTest::addColumn<int>("tableType");
    QTest::newRow("section") << "SECTION" << 5;
    QTest::newRow("lateral") << "LATERAL" << 6;
    QTest::newRow("node") << "NODE" << 4;
}

void StandaloneHostTest::samplesAreKnownFromTheStart()
{
    QFETCH(QString, tableName);
    QTEST(tableTypeOf(tableName), "tableType");
    QCOMPARE(typeOf(QStringLiteral("STW-US")), QStringLiteral("STORMWATER"));
}

void StandaloneHostTest::registeredTemplateIsAnswered()
{
    StandaloneHost::instance().registerTemplate(QStringLiteral("id-1"), QStringLiteral("TYPE"));
    QCOMPARE(typeOf(QStringLiteral("id-1")), QStringLiteral("TYPE"));
}

void StandaloneHostTest::unknownTemplateIsNull()
{
    QVERIFY(!descriptorOf(QStringLiteral("nobody knows this one")));
    QVERIFY(!descriptorOf(QString()));
}

void StandaloneHostTest::templateMayBeRegisteredAnew()
{
    StandaloneHost::instance().registerTemplate(QStringLiteral("id-2"), QStringLiteral("OLD"));
    const auto *old = descriptorOf(QStringLiteral("id-2"));
    StandaloneHost::instance().registerTemplate(QStringLiteral("id-2"), QStringLiteral("NEW"));
    QCOMPARE(typeOf(QStringLiteral("id-2")), QStringLiteral("NEW"));
    // Whoever looked the template up before may still be using what was found.
    QCOMPARE(old->type(), QStringLiteral("OLD"));
}

void StandaloneHostTest::emptyTypeIsStillRegistered()
{
    StandaloneHost::instance().registerTemplate(QStringLiteral("id-3"), QString());
    QVERIFY(descriptorOf(QStringLiteral("id-3")));
    QVERIFY(typeOf(QStringLiteral("id-3")).isEmpty());
}

void StandaloneHostTest::unknownTableHasTypeZero()
{
    QCOMPARE(tableTypeOf(QStringLiteral("NO_SUCH_TABLE")), 0);
    QCOMPARE(tableTypeOf(QString()), 0);
}

void StandaloneHostTest::registeredTableIsAnswered()
{
    StandaloneHost::instance().registerTable(QStringLiteral("PIPES"), 42);
    QCOMPARE(tableTypeOf(QStringLiteral("PIPES")), 42);
    StandaloneHost::instance().registerTable(QStringLiteral("PIPES"), -7);
    QCOMPARE(tableTypeOf(QStringLiteral("PIPES")), -7);
}

void StandaloneHostTest::tableNameIsComparedExactly()
{
    StandaloneHost::instance().registerTable(QStringLiteral("VALVES"), 9);
    QCOMPARE(tableTypeOf(QStringLiteral("Valves")), 0);
    QCOMPARE(tableTypeOf(QStringLiteral("VALVES ")), 0);
}

void StandaloneHostTest::sinkReceivesLevelCategoryAndMessage()
{
    const RecordedLog log;
    writeLogLine(2, QStringLiteral("Category"), QStringLiteral("Message 100 %1"));
    QCOMPARE(log.lines(),
             (QList<LogLine>{{2, QStringLiteral("Category"), QStringLiteral("Message 100 %1")}}));
}

void StandaloneHostTest::sinkMayUseTheHost()
{
    auto &host = StandaloneHost::instance();
    host.setLogSink([&host](int level, const QString &category, const QString &message) {
        host.registerTable(category + message, level);
    });
    writeLogLine(3, QStringLiteral("FROM_"), QStringLiteral("SINK"));
    host.setLogSink({});
    QCOMPARE(tableTypeOf(QStringLiteral("FROM_SINK")), 3);
}

void StandaloneHostTest::withoutSinkTheLogGoesToStandardError()
{
    StandaloneHost::instance().setLogSink({});
    CapturedStandardError captured;
    writeLogLine(3, QStringLiteral("TemplateReader"), QStringLiteral("Größe"));
    QCOMPARE(captured.text(), QByteArray("[3] TemplateReader: Größe\n"));
}

void StandaloneHostTest::configurationAddsTemplatesAndTables()
{
    auto &host = StandaloneHost::instance();
    host.registerTemplate(QStringLiteral("stays"), QStringLiteral("HERE"));
    const ConfigurationFile file("{\"templates\": {\"ü-1\": \"A\", \"b\": \"B\"},"
                                 " \"tables\": {\"WELLS\": 3, \"TANKS\": -2147483648}}");
    QString errorMessage;
    QVERIFY2(host.loadConfiguration(file.path(), &errorMessage), qPrintable(errorMessage));
    QCOMPARE(errorMessage, QString());
    QCOMPARE(typeOf(QStringLiteral("ü-1")), QStringLiteral("A"));
    QCOMPARE(typeOf(QStringLiteral("b")), QStringLiteral("B"));
    QCOMPARE(tableTypeOf(QStringLiteral("WELLS")), 3);
    QCOMPARE(tableTypeOf(QStringLiteral("TANKS")), std::numeric_limits<int>::min());
    QCOMPARE(typeOf(QStringLiteral("stays")), QStringLiteral("HERE"));
}

void StandaloneHostTest::configurationMayLeaveOutAPart_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("nothing") << QByteArray("{}");
    QTest::newRow("templates only") << QByteArray("{\"templates\": {}}");
    QTest::newRow("tables only") << QByteArray("{\"tables\": {}}");
}

void StandaloneHostTest::configurationMayLeaveOutAPart()
{
    QFETCH(QByteArray, content);
    QVERIFY(StandaloneHost::instance().loadConfiguration(ConfigurationFile(content).path(), nullptr));
}

void StandaloneHostTest::unusableConfigurationTellsFileAndReason_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, const char *content, const char *reason) {
        QTest::newRow(name) << QByteArray(content) << QString::fromUtf8(reason);
    };
    row("empty", "", "not valid JSON, line 1, column 1: illegal value");
    row("not JSON", "{\n  \"tables\": nothing\n}", "not valid JSON, line 2, column ");
    row("array", "[]", "the document must be an object with \"templates\" and \"tables\"");
    row("unknown part", "{\"table\": {}}", "\"table\" is neither \"templates\" nor \"tables\"");
    row("templates no object", "{\"templates\": []}", "\"templates\" must be an object");
    row("tables no object", "{\"tables\": 5}", "\"tables\" must be an object");
    row("type of template no text", "{\"templates\": {\"id\": 5}}",
        "the type of template \"id\" must be a text");
    row("type of table no number", "{\"tables\": {\"NODE\": \"4\"}}",
        "the type of table \"NODE\" must be a whole number");
    row("type of table not whole", "{\"tables\": {\"NODE\": 4.5}}",
        "the type of table \"NODE\" must be a whole number");
    row("type of table too great", "{\"tables\": {\"NODE\": 2147483648}}",
        "the type of table \"NODE\" must be a whole number");
}

void StandaloneHostTest::unusableConfigurationTellsFileAndReason()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    const ConfigurationFile file(content);
    QString errorMessage;
    QVERIFY(!StandaloneHost::instance().loadConfiguration(file.path(), &errorMessage));
    QVERIFY2(errorMessage.startsWith(file.path() + QStringLiteral(": ") + reason), qPrintable(errorMessage));
}

void StandaloneHostTest::unusableConfigurationChangesNothing()
{
    const ConfigurationFile file(
        "{\"templates\": {\"half-way\": \"A\"}, \"tables\": {\"HALF_WAY\": 1, \"X\": null}}");
    QVERIFY(!StandaloneHost::instance().loadConfiguration(file.path(), nullptr));
    QVERIFY(!descriptorOf(QStringLiteral("half-way")));
    QCOMPARE(tableTypeOf(QStringLiteral("HALF_WAY")), 0);
}

void StandaloneHostTest::missingConfigurationTellsFileAndReason()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("missing.json"));
    QString errorMessage;
    QVERIFY(!StandaloneHost::instance().loadConfiguration(path, &errorMessage));
    QCOMPARE(errorMessage, path + QStringLiteral(": No such file or directory"));
}

void StandaloneHostTest::pipeIsNotWaitedFor()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("pipe.json"));
    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QString errorMessage;
    QVERIFY(!StandaloneHost::instance().loadConfiguration(path, &errorMessage));
    QCOMPARE(errorMessage, path + QStringLiteral(": is not a regular file"));
}

void StandaloneHostTest::errorMessageMayBeOmitted()
{
    QVERIFY(!StandaloneHost::instance().loadConfiguration(QStringLiteral("/no/such/file.json"), nullptr));
}

void StandaloneHostTest::resetForgetsEverything()
{
    auto &host = StandaloneHost::instance();
    host.registerTemplate(QStringLiteral("forgotten"), QStringLiteral("TYPE"));
    host.registerTable(QStringLiteral("FORGOTTEN"), 8);
    bool isSinkCalled = false;
    host.setLogSink([&](int, const QString &, const QString &) { isSinkCalled = true; });
    host.reset();
    QVERIFY(!descriptorOf(QStringLiteral("forgotten")));
    QVERIFY(!descriptorOf(QStringLiteral("STW-US")));
    QCOMPARE(tableTypeOf(QStringLiteral("FORGOTTEN")), 0);
    QCOMPARE(tableTypeOf(QStringLiteral("SECTION")), 0);
    CapturedStandardError captured;
    writeLogLine(2, QStringLiteral("A"), QStringLiteral("b"));
    QCOMPARE(captured.text(), QByteArray("[2] A: b\n"));
    QVERIFY(!isSinkCalled);
}

void StandaloneHostTest::descriptorOutlivesReset()
{
    StandaloneHost::instance().registerTemplate(QStringLiteral("kept"), QStringLiteral("TYPE"));
    const auto *descriptor = descriptorOf(QStringLiteral("kept"));
    StandaloneHost::instance().reset();
    QCOMPARE(descriptor->type(), QStringLiteral("TYPE"));
}

void StandaloneHostTest::hostIsUsableFromManyThreads()
{
    constexpr int threadCount = 8;
    constexpr int rounds = 500;
    auto &host = StandaloneHost::instance();
    const RecordedLog log;
    std::atomic<int> faults{0};
    std::vector<std::thread> threads;
    for (int number = 0; number < threadCount; ++number) {
        threads.emplace_back([&host, &faults, number] {
            const QString own = QStringLiteral("own-%1").arg(number);
            for (int round = 0; round < rounds; ++round) {
                host.registerTable(own, round + 1);
                host.registerTemplate(own, QString::number(round));
                host.registerTemplate(QStringLiteral("shared"), own);
                writeLogLine(number, own, QString());
                if (tableTypeOf(own) != round + 1 || typeOf(own) != QString::number(round) ||
                    !typeOf(QStringLiteral("shared")).startsWith(QLatin1String("own-"))) {
                    ++faults;
                }
            }
        });
    }
    for (auto &thread : threads) {
        thread.join();
    }
    QCOMPARE(faults.load(), 0);
    QCOMPARE(log.lines().size(), threadCount * rounds);
}

void StandaloneHostTest::catalogDescriptorKeepsItsTexts()
{
    CATManagement::CCatalogDescriptor descriptor;
    QVERIFY(descriptor.id().isNull());
    QVERIFY(descriptor.countryCode().isNull());
    QVERIFY(descriptor.languageCode().isNull());
    descriptor.setId(QStringLiteral("id"));
    descriptor.setCountryCode(QStringLiteral("DE"));
    descriptor.setLanguageCode(QStringLiteral("de"));
    const CATManagement::CCatalogDescriptor copy = descriptor;
    QCOMPARE(copy.id(), QStringLiteral("id"));
    QCOMPARE(copy.countryCode(), QStringLiteral("DE"));
    QCOMPARE(copy.languageCode(), QStringLiteral("de"));
}

int main(int argc, char *argv[])
{
    // The log is in the locale's encoding.
    qputenv("LC_ALL", "C.UTF-8");
    QCoreApplication application(argc, argv);
    StandaloneHostTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "StandaloneHostTest.moc"
