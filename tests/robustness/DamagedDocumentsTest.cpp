// What happens to a file on its way: its end is lost, or something in it is changed.

#include "robustness/BothReaders.h"
#include "robustness/Mutation.h"
#include "robustness/TemplateDocuments.h"

#include <QtTest>

#include <algorithm>

namespace {

constexpr int allMutations = 10'000;
constexpr int mutationsOfRow = 100;

// When not everything is wanted: a minute's worth of it, spread evenly.
constexpr int fewPrefixes = 300;
constexpr int fewMutationsOfRow = 60;

/// Every fourth mutation is one of a sample: they are few, but all of a template is in them.
QString mutatedDocument(int seed)
{
    static const QStringList samples = sampleDocuments();
    static const QStringList corpus = corpusDocuments();
    return seed % 4 == 0 ? samples.at(seed / 4 % samples.size()) : corpus.at(seed % corpus.size());
}

/// The document that pieces are taken over from.
QString otherDocument(int seed)
{
    static const QStringList corpus = corpusDocuments();
    return corpus.at(seed * 7 % corpus.size());
}

} // namespace

class DamagedDocumentsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wholeDocumentsKeepThePromises_data() { addDocuments(); }
    void wholeDocumentsKeepThePromises();
    void cutOffDocumentHarmsNoReader_data() { addDocuments(); }
    void cutOffDocumentHarmsNoReader();
    void changedDocumentHarmsNoReader_data();
    void changedDocumentHarmsNoReader();

private:
    void addDocuments();

    MemoryFile m_file;
};

void DamagedDocumentsTest::addDocuments()
{
    QTest::addColumn<QString>("path");
    for (const auto &path : sampleDocuments() + corpusDocuments()) {
        QTest::newRow(qPrintable(shortName(path))) << path;
    }
}

void DamagedDocumentsTest::wholeDocumentsKeepThePromises()
{
    QFETCH(QString, path);
    QCOMPARE(brokenPromiseOn(contentOf(path), m_file), QString());
}

void DamagedDocumentsTest::cutOffDocumentHarmsNoReader()
{
    QFETCH(QString, path);
    const QByteArray document = contentOf(path);
    const int prefixes = isEverythingWanted() ? document.size() : std::min(document.size(), fewPrefixes);
    for (int i = 0; i < prefixes; ++i) {
        const int size = static_cast<int>(qint64(document.size()) * i / prefixes);
        const QString broken = brokenPromiseOn(document.left(size), m_file);
        QVERIFY2(broken.isEmpty(), qPrintable(QStringLiteral("%1 bytes: %2").arg(size).arg(broken)));
    }
}

void DamagedDocumentsTest::changedDocumentHarmsNoReader_data()
{
    QTest::addColumn<int>("firstSeed");
    for (int seed = 0; seed < allMutations; seed += mutationsOfRow) {
        QTest::addRow("seeds from %d", seed) << seed;
    }
}

void DamagedDocumentsTest::changedDocumentHarmsNoReader()
{
    QFETCH(int, firstSeed);
    const int mutations = isEverythingWanted() ? mutationsOfRow : fewMutationsOfRow;
    for (int i = 0; i < mutations; ++i) {
        const int seed = firstSeed + i;
        const QString path = mutatedDocument(seed);
        const Mutation mutation(static_cast<quint32>(seed), contentOf(path), contentOf(otherDocument(seed)));
        const QString broken = brokenPromiseOn(mutation.bytes(), m_file);
        QVERIFY2(broken.isEmpty(),
                 qPrintable(QStringLiteral("seed %1, %2: %3").arg(seed).arg(shortName(path), broken)));
    }
}

QTEST_APPLESS_MAIN(DamagedDocumentsTest)
#include "DamagedDocumentsTest.moc"
