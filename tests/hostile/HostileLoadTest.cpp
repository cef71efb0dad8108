// The measurement detects a process that exceeds its bounds.

#include "HostileLoad.h"

#include <QTest>

class HostileLoadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void processThatRunsAwayIsStopped_data();
    void processThatRunsAwayIsStopped();
    void costAboveABoundIsNamed_data();
    void costAboveABoundIsNamed();
    void boundsGrowWithTheFile();
};

void HostileLoadTest::processThatRunsAwayIsStopped_data()
{
    QTest::addColumn<QString>("commands");
    QTest::newRow("crashes") << "kill -SEGV $$";
    QTest::newRow("gives up") << "exit 3";
    QTest::newRow("says nothing") << ":";
#ifndef TOBRIX_TEST_SANITIZED
    QTest::newRow("computes for ever") << "while :; do :; done";
    QTest::newRow("takes memory for ever") << "exec tail /dev/zero";
#endif
}

void HostileLoadTest::processThatRunsAwayIsStopped()
{
    QFETCH(QString, commands);
    LimitedProcess process(boundsForSize(0));
    process.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), commands});
    const HostileLoad load = process.takeLoad();
    QVERIFY2(load.failure.startsWith(QLatin1String("died: ")), qPrintable(load.failure));
}

void HostileLoadTest::costAboveABoundIsNamed_data()
{
    QTest::addColumn<double>("memory");
    QTest::addColumn<double>("cpu");
    QTest::addColumn<QString>("excess");
    QTest::newRow("within both") << 64.0 << 1.0 << "";
    QTest::newRow("memory") << 64.5 << 0.5 << "takes 64.5 MiB, may take 64";
    QTest::newRow("time") << 10.0 << 1.5 << "takes 1.5 s, may take 1";
}

void HostileLoadTest::costAboveABoundIsNamed()
{
#ifdef TOBRIX_TEST_SANITIZED
    QSKIP("the sanitizers cost more than all bounds");
#endif
    QFETCH(double, memory);
    QFETCH(double, cpu);
    QFETCH(QString, excess);
    HostileLoad load;
    load.memory = memory;
    load.cpu = cpu;
    QCOMPARE(excessOf(load, boundsForSize(0)), excess);
}

void HostileLoadTest::boundsGrowWithTheFile()
{
    const LoadBounds bounds = boundsForSize(10'000'000);
    QCOMPARE(bounds.memory, 64 + 128 * 10'000'000 / 1048576.0);
    QCOMPARE(bounds.cpu, 11.0);
}

QTEST_GUILESS_MAIN(HostileLoadTest)
#include "HostileLoadTest.moc"
