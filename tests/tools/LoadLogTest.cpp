#include "tools/loading/LoadLog.h"
#include "support/RecordedLog.h"

#include "host/CLogger.h"

#include <QTest>

#include <atomic>
#include <thread>
#include <vector>

using namespace Tobrix::Tools;

namespace {

void writeLine(const QString &message)
{
    Tobrix::Logging::CLogger::logMessage(static_cast<Tobrix::Logging::LogLevel>(2), QStringLiteral("Test"),
                                         message);
}

} // namespace

class LoadLogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesAreKeptInOrder();
    void everyThreadHasItsOwnLines();
};

void LoadLogTest::linesAreKeptInOrder()
{
    const LoadLog log;
    writeLine(QStringLiteral("one"));
    writeLine(QStringLiteral("two"));
    QCOMPARE(log.lines().size(), 2);
    QCOMPARE(log.lines().at(0).level, 2);
    QCOMPARE(log.lines().at(0).category, QStringLiteral("Test"));
    QCOMPARE(log.lines().at(0).message, QStringLiteral("one"));
    QCOMPARE(log.lines().at(1).message, QStringLiteral("two"));
}

void LoadLogTest::everyThreadHasItsOwnLines()
{
    constexpr int threadCount = 8;
    constexpr int rounds = 200;
    std::atomic<int> faults{0};
    std::vector<std::thread> threads;
    for (int number = 0; number < threadCount; ++number) {
        threads.emplace_back([&faults, number] {
            for (int round = 0; round < rounds; ++round) {
                const LoadLog log;
                const QString message = QString::number(number * rounds + round);
                writeLine(message);
                if (log.lines().size() != 1 || log.lines().first().message != message) {
                    ++faults;
                }
            }
        });
    }
    for (auto &thread : threads) {
        thread.join();
    }
    QCOMPARE(faults.load(), 0);
}

QTEST_GUILESS_MAIN(LoadLogTest)
#include "LoadLogTest.moc"
