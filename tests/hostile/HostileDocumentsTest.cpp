#include "Attacks.h"
#include "HostileFile.h"
#include "HostileLoad.h"

#include <QFileInfo>
#include <QTest>

namespace {

/// How the result of a document differs from the expected one; empty when it does not.
QString brokenPromise(const HostileLoad &load, const Attack &attack)
{
    const bool isLegacy = attack.format == Format::Legacy;
    const bool isReadAnyway = !isLegacy || attack.outcome == Outcome::Read;
    if (attack.outcome == Outcome::Bounded) {
        return QString();
    }
    if (load.isRead != isReadAnyway || load.hasTemplate != isReadAnyway) {
        return load.isRead ? QStringLiteral("is read") : QStringLiteral("is not read");
    }
    if (load.isRead && load.isEmpty != (attack.outcome == Outcome::Refused)) {
        return load.isEmpty ? QStringLiteral("leaves nothing") : QStringLiteral("leaves something");
    }
    return QString();
}

/// The same for the message of the tool.
QString brokenPromiseOfTool(const HostileLoad &load, const Attack &attack)
{
    if (attack.outcome != Outcome::Bounded && load.isRead != (attack.outcome == Outcome::Read)) {
        return QStringLiteral("the tool says: ") + QString::fromUtf8(load.complaint);
    }
    return QString();
}

struct Step
{
    Way way;
    const char *name;
};

/// The ways in which a document is loaded. The reader of the other format gets it too, since the path alone
/// decides.
std::vector<Step> waysOf(const Attack &attack)
{
#ifdef TOBRIX_TEST_SANITIZED
    // These run after the library has loaded the file, and are slow.
    Q_UNUSED(attack)
    return {{Way::Entry, "the library"}};
#else
    const bool isLegacy = attack.format == Format::Legacy;
    return {{Way::Entry, "the library"},
            {isLegacy ? Way::CurrentReader : Way::LegacyReader, "the reader of the other format"},
            {Way::Show, "the tool"}};
#endif
}

} // namespace

class HostileDocumentsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documentStaysWithinItsBounds_data();
    void documentStaysWithinItsBounds();
    void cleanupTestCase();

private:
    /// The largest share of a bound that an attack has reached.
    struct Share
    {
        double share = 0;
        QByteArray attack;
    };

    void noteCost(const HostileLoad &load, const LoadBounds &bounds);

    Share m_mostMemory;
    Share m_mostTime;
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
        QTest::newRow(attack.name.constData()) << index++;
    }
}

void HostileDocumentsTest::documentStaysWithinItsBounds()
{
    QFETCH(int, index);
    const Attack &attack = m_attacks[static_cast<std::size_t>(index)];
    const QString path = m_folder.write(attack.format, attack.document());
    const LoadBounds bounds = boundsForSize(QFileInfo(path).size());
    for (const auto &step : waysOf(attack)) {
        const HostileLoad load = loadInChild(path, bounds, step.way);
        QString broken = load.failure.isEmpty() ? excessOf(load, bounds) : load.failure;
        if (broken.isEmpty() && step.way == Way::Entry) {
            broken = brokenPromise(load, attack);
        } else if (broken.isEmpty() && step.way == Way::Show) {
            broken = brokenPromiseOfTool(load, attack);
        }
        QVERIFY2(broken.isEmpty(),
                 qPrintable(QString::fromLatin1(step.name) + QStringLiteral(": ") + broken));
        noteCost(load, bounds);
    }
}

void HostileDocumentsTest::noteCost(const HostileLoad &load, const LoadBounds &bounds)
{
    const auto note = [](Share &most, double share) {
        if (share > most.share) {
            most = {share, QTest::currentDataTag()};
        }
    };
    note(m_mostMemory, load.memory / bounds.memory);
    note(m_mostTime, load.cpu / bounds.cpu);
}

void HostileDocumentsTest::cleanupTestCase()
{
    const auto report = [](const char *what, const Share &most) {
        qInfo("%s: at most %.0f %% of the bound, by %s", what, most.share * 100, most.attack.constData());
    };
    report("memory", m_mostMemory);
    report("time", m_mostTime);
}

QTEST_GUILESS_MAIN(HostileDocumentsTest)
#include "HostileDocumentsTest.moc"
