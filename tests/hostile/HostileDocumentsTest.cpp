#include "Attacks.h"
#include "HostileFile.h"
#include "HostileLoad.h"

#include <QFileInfo>
#include <QTest>

namespace {

void compareOutcome(const HostileLoad &load, const Attack &attack)
{
    const bool isLegacy = attack.format == Format::Legacy;
    switch (attack.outcome) {
    case Outcome::Read:
        QVERIFY2(load.isRead, "is not read");
        QVERIFY2(!load.isEmpty, "leaves nothing");
        break;
    case Outcome::Refused:
        QVERIFY2(load.isRead != isLegacy, isLegacy ? "is read" : "is not read");
        QVERIFY2(isLegacy || load.isEmpty, "leaves something");
        break;
    case Outcome::Broken:
        QVERIFY2(load.isRead != isLegacy, isLegacy ? "is read" : "is not read");
        QVERIFY2(isLegacy || !load.isEmpty, "leaves nothing");
        break;
    case Outcome::Bounded:
        break;
    }
    QCOMPARE(load.hasTemplate, load.isRead);
}

void compareCost(const HostileLoad &load, const LoadBounds &bounds)
{
#ifdef TOBRIX_TEST_SANITIZED
    Q_UNUSED(load)
    Q_UNUSED(bounds)
#else
    QVERIFY2(load.memory <= bounds.memory,
             qPrintable(QStringLiteral("takes %1 MiB, may take %2").arg(load.memory).arg(bounds.memory)));
    QVERIFY2(load.cpu <= bounds.cpu,
             qPrintable(QStringLiteral("takes %1 s, may take %2").arg(load.cpu).arg(bounds.cpu)));
#endif
}

} // namespace

class HostileDocumentsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documentStaysWithinItsBounds_data();
    void documentStaysWithinItsBounds();

private:
    Attacks m_attacks;
    const HostileFolder m_folder;
};

void HostileDocumentsTest::documentStaysWithinItsBounds_data()
{
    for (const auto makeAttacks : {nestingAttacks, documentTypeAttacks, attributeAttacks, volumeAttacks,
                                   multiplicationAttacks, encodingAttacks, collisionAttacks}) {
        const Attacks attacks = makeAttacks();
        m_attacks.insert(m_attacks.end(), attacks.cbegin(), attacks.cend());
    }
    QTest::addColumn<int>("index");
    int index = 0;
    for (const auto &attack : m_attacks) {
#ifdef TOBRIX_TEST_SANITIZED
        // Time is what these are about; their results are the same in small.
        if (attack.isBig) {
            ++index;
            continue;
        }
#endif
        QTest::newRow(attack.name.constData()) << index++;
    }
}

void HostileDocumentsTest::documentStaysWithinItsBounds()
{
    QFETCH(int, index);
    const Attack &attack = m_attacks[static_cast<std::size_t>(index)];
    const QString path = m_folder.write(attack.format, attack.document());
    const LoadBounds bounds = boundsForSize(QFileInfo(path).size());
    const HostileLoad load = loadInChild(path, bounds);
    QVERIFY2(load.failure.isEmpty(), qPrintable(load.failure));
    compareOutcome(load, attack);
    compareCost(load, bounds);
}

QTEST_GUILESS_MAIN(HostileDocumentsTest)
#include "HostileDocumentsTest.moc"
