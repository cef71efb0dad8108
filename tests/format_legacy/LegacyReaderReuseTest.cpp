// One reader for several files, and several readers at the same time.

#include "support/LegacyReading.h"
#include "support/OpenFiles.h"
#include "support/QtWarnings.h"

#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"

#include <QTest>
#include <QThread>

#include <memory>

using namespace Tobrix::Templates;

namespace {

QByteArray documentOf(const QByteArray &key)
{
    return legacyDocument("<SYSTPL><TPL_Key>" + key + "</TPL_Key></SYSTPL><PROGVIEW><PV_PK>" + key +
                          "</PV_PK></PROGVIEW><SYSLIST><LIST_Name>" + key + "</LIST_Name></SYSLIST>" +
                          "<SYSCOL><COL_DataType>TXT</COL_DataType><COL_ProgView_FK>" + key +
                          "</COL_ProgView_FK></SYSCOL>");
}

/// The keys in a record of the documents above.
QStringList keysIn(const CTemplateRawData &rawData)
{
    QStringList keys = {rawData.key};
    keys += rawData.programViews.keys() + rawData.listItems.keys() + rawData.columns.keys();
    return keys;
}

QStringList fourTimes(const QString &key)
{
    return {key, key, key, key};
}

} // namespace

class LegacyReaderReuseTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameFileIsReadTwiceWithoutWarning();
    void anotherFileIsReadIntoTheSameRecord();
    void anotherRecordIsFilledWithoutTouchingTheFirst();
    void readerGoesOnAfterAFailure_data();
    void readerGoesOnAfterAFailure();
    void fileStaysOpenUntilTheReaderIsDeleted();
    void nextFileClosesTheOneBefore();
    void newReaderHasNoFile();
    void readersWorkOnSeveralThreads();
};

void LegacyReaderReuseTest::sameFileIsReadTwiceWithoutWarning()
{
    const TemporaryTemplate file(QStringLiteral("templates"), documentOf("a"));
    const QtWarnings warnings;
    CTemplateRawData rawData;
    CTemplateXMLReader reader;
    for (int i = 0; i < 3; ++i) {
        QVERIFY(reader.readFile(file.path(), rawData));
        QCOMPARE(keysIn(rawData), fourTimes(QStringLiteral("a")));
    }
    QCOMPARE(warnings.messages(), QStringList());
}

void LegacyReaderReuseTest::anotherFileIsReadIntoTheSameRecord()
{
    const TemporaryTemplate first(QStringLiteral("templates"), documentOf("a"));
    const TemporaryTemplate second(QStringLiteral("templates"), documentOf("b"));
    const QtWarnings warnings;
    CTemplateRawData rawData;
    CTemplateXMLReader reader;
    QVERIFY(reader.readFile(first.path(), rawData));
    QVERIFY(reader.readFile(second.path(), rawData));
    QCOMPARE(keysIn(rawData), fourTimes(QStringLiteral("b")));
    QCOMPARE(warnings.messages(), QStringList());
}

void LegacyReaderReuseTest::anotherRecordIsFilledWithoutTouchingTheFirst()
{
    const TemporaryTemplate first(QStringLiteral("templates"), documentOf("a"));
    const TemporaryTemplate second(QStringLiteral("templates"), documentOf("b"));
    CTemplateRawData firstData;
    CTemplateXMLReader reader;
    QVERIFY(reader.readFile(first.path(), firstData));
    CTemplateRawData secondData;
    QVERIFY(reader.readFile(second.path(), secondData));
    QCOMPARE(keysIn(firstData), fourTimes(QStringLiteral("a")));
    QCOMPARE(keysIn(secondData), fourTimes(QStringLiteral("b")));
}

void LegacyReaderReuseTest::readerGoesOnAfterAFailure_data()
{
    QTest::addColumn<QByteArray>("failing");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("not well-formed") << QByteArray("<TXSYS></TobrixTemplate>");
    QTest::newRow("ends within a section") << QByteArray("<TXSYS><SYSCOL><COL_PK>a");
    QTest::newRow("list item without a list") << legacyDocument("<SYSLIST/>" + documentOf("x"));
}

void LegacyReaderReuseTest::readerGoesOnAfterAFailure()
{
    QFETCH(QByteArray, failing);
    const TemporaryTemplate bad(QStringLiteral("templates"), failing);
    const TemporaryTemplate good(QStringLiteral("templates"), documentOf("a"));
    const QtWarnings warnings;
    CTemplateRawData rawData;
    CTemplateXMLReader reader;
    QVERIFY(!reader.readFile(bad.path(), rawData));
    QVERIFY(reader.readFile(good.path(), rawData));
    QCOMPARE(keysIn(rawData), fourTimes(QStringLiteral("a")));
    QVERIFY(!reader.readFile(bad.path() + QStringLiteral(".missing"), rawData));
    QVERIFY(rawData.programViews.isEmpty());
    QVERIFY(!reader.readFile(bad.path(), rawData));
    QVERIFY(reader.readFile(good.path(), rawData));
    QCOMPARE(keysIn(rawData), fourTimes(QStringLiteral("a")));
    QCOMPARE(warnings.messages(), QStringList());
}

void LegacyReaderReuseTest::fileStaysOpenUntilTheReaderIsDeleted()
{
    const TemporaryTemplate good(QStringLiteral("templates"), documentOf("a"));
    const TemporaryTemplate bad(QStringLiteral("templates"), "<TXSYS>");
    for (const auto &path : {good.path(), bad.path()}) {
        CTemplateRawData rawData;
        auto reader = std::make_unique<CTemplateXMLReader>();
        reader->readFile(path, rawData);
        QCOMPARE(openDescriptorsOf(path), 1);
        reader.reset();
        QCOMPARE(openDescriptorsOf(path), 0);
    }
}

void LegacyReaderReuseTest::nextFileClosesTheOneBefore()
{
    const TemporaryTemplate first(QStringLiteral("templates"), documentOf("a"));
    const TemporaryTemplate second(QStringLiteral("templates"), documentOf("b"));
    CTemplateRawData rawData;
    CTemplateXMLReader reader;
    reader.readFile(first.path(), rawData);
    reader.readFile(second.path(), rawData);
    QCOMPARE(openDescriptorsOf(first.path()), 0);
    QCOMPARE(openDescriptorsOf(second.path()), 1);
    reader.readFile(second.path(), rawData);
    QCOMPARE(openDescriptorsOf(second.path()), 1);
}

void LegacyReaderReuseTest::newReaderHasNoFile()
{
    const QtWarnings warnings;
    {
        const CTemplateXMLReader reader;
    }
    QCOMPARE(warnings.messages(), QStringList());
}

void LegacyReaderReuseTest::readersWorkOnSeveralThreads()
{
    const TemporaryTemplate file(QStringLiteral("templates"), documentOf("a"));
    const QString path = file.path();
    std::vector<std::unique_ptr<QThread>> threads;
    std::atomic<int> good = 0;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back(QThread::create([&good, path] {
            for (int round = 0; round < 50; ++round) {
                CTemplateRawData rawData;
                CTemplateXMLReader reader;
                good += reader.readFile(path, rawData) && keysIn(rawData) == fourTimes(QStringLiteral("a"));
            }
        }));
        threads.back()->start();
    }
    for (const auto &thread : threads) {
        thread->wait();
    }
    QCOMPARE(good.load(), 200);
}

QTEST_APPLESS_MAIN(LegacyReaderReuseTest)

#include "LegacyReaderReuseTest.moc"
