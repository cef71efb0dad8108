// Readers of their own on several threads, beside a host that is busy on others.

#include "robustness/TemplateDocuments.h"

#include "tools/json/FileJson.h"
#include "tools/loading/LoadLog.h"

#include "host/CCatalogTemplateRegistry.h"
#include "host/CLogger.h"
#include "host/CTableDescriptors.h"
#include "host/CTemplateDescriptor.h"
#include "host/CoreApplication.h"

#include <QtTest>

#include <atomic>
#include <thread>
#include <vector>

using namespace Tobrix;

namespace {

constexpr int loadingThreads = 8;

#if defined(__SANITIZE_ADDRESS__)
constexpr int defaultRounds = 6;
#else
constexpr int defaultRounds = 20;
#endif

int rounds()
{
    bool isNumber = false;
    const int wanted = qEnvironmentVariableIntValue("TOBRIX_THREAD_ROUNDS", &isNumber);
    return isNumber ? wanted : defaultRounds;
}

/// A document with all that can be observed of it.
struct Loaded
{
    QString path;
    QJsonObject catalogTemplate;
    QJsonObject record;
};

Loaded load(const QString &path)
{
    return {path, Tools::describeTemplate(path), Tools::describeRawData(path)};
}

/// Loads all documents again and again, and counts those that come out differently. Every thread starts with
/// another document.
int countDifferences(const std::vector<Loaded> &expected, std::size_t start)
{
    int differences = 0;
    const int lastRound = rounds();
    for (int round = 0; round < lastRound; ++round) {
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const Loaded &document = expected[(start + i) % expected.size()];
            const Loaded loaded = load(document.path);
            const bool isSame =
                loaded.catalogTemplate == document.catalogTemplate && loaded.record == document.record;
            differences += isSame ? 0 : 1;
        }
    }
    return differences;
}

/// Does something again and again until it is told to stop.
class BusyThread
{
public:
    explicit BusyThread(void (*work)())
        : m_thread([this, work] {
            while (!m_isStopped) {
                work();
                ++m_timesDone;
            }
        })
    {
    }
    ~BusyThread() { stop(); }

    /// @return how often it was done
    int stop()
    {
        m_isStopped = true;
        if (m_thread.joinable()) {
            m_thread.join();
        }
        return m_timesDone;
    }

private:
    Q_DISABLE_COPY(BusyThread)

    std::atomic<bool> m_isStopped{false};
    std::atomic<int> m_timesDone{0};
    std::thread m_thread;
};

void log()
{
    Logging::CLogger::logMessage(static_cast<Logging::LogLevel>(3), QStringLiteral("ThreadsTest"),
                                 QStringLiteral("a line of somebody else's"));
}

void lookUp()
{
    const auto *registry = AppLogic::CoreApplication::instance()->catalogTemplateRegistry();
    const auto *descriptor =
        registry->templateByUniqueId(QStringLiteral("{8f0c1d1e-52a7-4be6-9c35-3d7e60a4b1f2}"));
    if (!descriptor || descriptor->type() != QLatin1String("SEWER")) {
        qFatal("the registry forgot a template");
    }
    Database::CTableDescriptors::tableTypeFromTableName(QStringLiteral("SECTION"));
}

} // namespace

class ThreadsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyThreadGetsWhatOneThreadGets();
};

void ThreadsTest::everyThreadGetsWhatOneThreadGets()
{
    // Keeps the lines of all threads off standard error.
    const Tools::LoadLog logOfThisTest;
    std::vector<Loaded> expected;
    for (const auto &path : sampleDocuments() + corpusDocuments()) {
        expected.push_back(load(path));
    }

    BusyThread logging(log);
    BusyThread lookingUp(lookUp);
    std::atomic<int> differences{0};
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < loadingThreads; ++i) {
        const std::size_t start = i * expected.size() / loadingThreads;
        threads.emplace_back([&, start] { differences += countDifferences(expected, start); });
    }
    for (auto &thread : threads) {
        thread.join();
    }

    QVERIFY(logging.stop() > 0);
    QVERIFY(lookingUp.stop() > 0);
    QCOMPARE(differences.load(), 0);
}

QTEST_APPLESS_MAIN(ThreadsTest)
#include "ThreadsTest.moc"
