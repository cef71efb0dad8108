// Both readers go through James Clark's collection of XML documents, which has one for nearly every way in
// which a document can be well-formed or not. It is fetched by scripts/fetch-xmltest and not part of the
// project.

#include "robustness/BothReaders.h"

#include <QtTest>

namespace {

constexpr int fewestDocuments = 300;

/// The documents of the collection, as paths within it.
QStringList documentsIn(const QDir &collection)
{
    QStringList documents;
    QDirIterator files(collection.path(), {QStringLiteral("*.xml")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        documents.append(collection.relativeFilePath(files.next()));
    }
    documents.sort();
    return documents;
}

} // namespace

class XmlCollectionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void collectionIsComplete();
    void documentHarmsNoReader_data();
    void documentHarmsNoReader();

private:
    const QDir m_collection{QStringLiteral(TOBRIX_SOURCE_DIR "/build/xmltest/xmltest")};
    QStringList m_documents;
};

void XmlCollectionTest::initTestCase()
{
    m_documents = documentsIn(m_collection);
    if (m_documents.isEmpty()) {
        QSKIP("went without the XML test collection: scripts/fetch-xmltest has not fetched it");
    }
}

void XmlCollectionTest::collectionIsComplete()
{
    QVERIFY2(m_documents.size() >= fewestDocuments, QByteArray::number(m_documents.size()).constData());
}

void XmlCollectionTest::documentHarmsNoReader_data()
{
    QTest::addColumn<QString>("document");
    for (const auto &document : qAsConst(m_documents)) {
        QTest::newRow(qPrintable(document)) << document;
    }
}

void XmlCollectionTest::documentHarmsNoReader()
{
    QFETCH(QString, document);
    QCOMPARE(brokenPromise(verdictsOn(m_collection.filePath(document))), QString());
}

QTEST_APPLESS_MAIN(XmlCollectionTest)
#include "XmlCollectionTest.moc"
