// Files that the legacy reader fails on, and the content of the record after that.

#include "support/CountedColumn.h"
#include "support/LegacyReading.h"
#include "support/OpenFiles.h"
#include "support/RecordedLog.h"

#include "model/CListItem.h"
#include "model/CProgramView.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <sys/stat.h>
#include <unistd.h>

using namespace Tobrix::Templates;

namespace {

const QByteArray goodSections =
    "<SYSTPL><TPL_Key>K</TPL_Key></SYSTPL><PROGVIEW><PV_PK>V</PV_PK></PROGVIEW>"
    "<SYSCOL><COL_DataType>TXT</COL_DataType><COL_ProgView_FK>V</COL_ProgView_FK></SYSCOL>"
    "<SYSLIST><LIST_Name>L</LIST_Name></SYSLIST>"
    "<LegendOfClassification><class id=\"1\"/></LegendOfClassification>";

/// The number of objects in a record, as "views/columns/items/legend classes".
QString sizesOf(const CTemplateRawData &rawData)
{
    return QStringLiteral("%1/%2/%3/%4")
        .arg(rawData.programViews.size())
        .arg(rawData.columns.size())
        .arg(rawData.listItems.size())
        .arg(rawData.legendA.size() + rawData.legendB.size());
}

/// Fills a record with one of everything.
void fill(CTemplateRawData &rawData, int &deletions)
{
    rawData.uniqueId = rawData.key = rawData.listNamePrefix = QStringLiteral("old");
    rawData.defaultSecClassName = rawData.defaultSecColorField = QStringLiteral("kept");
    rawData.sortOrder = 7;
    rawData.isSystem = rawData.isEditable = rawData.isUpdatable = true;
    rawData.catalogs.append(Tobrix::CATManagement::CCatalogDescriptor());
    rawData.legendA.append(CTemplateLegendDataItem());
    rawData.legendB.append(CTemplateLegendDataItem());
    rawData.programViews.insert(QStringLiteral("v"), new CProgramView);
    rawData.listItems.insert(QStringLiteral("l"), new CListItem);
    rawData.columns.insert(QStringLiteral("v"), new CountedColumn(deletions));
}

} // namespace

class LegacyFailuresTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damagedDocumentFailsAndLeavesWhatWasRead_data();
    void damagedDocumentFailsAndLeavesWhatWasRead();
    void byteThatIsNoTextFails();
    void documentThatEndsAnywhereFails();
    void listItemWithoutListNameFailsTheFile_data();
    void listItemWithoutListNameFailsTheFile();
    void nothingIsReadBehindAFailedSection();
    void fileThatCannotBeOpenedFailsAndClearsTheRecord_data();
    void fileThatCannotBeOpenedFailsAndClearsTheRecord();
    void pipeIsNotWaitedFor();
    void readingClearsTheRecordButForThreeOfTheHeader();
    void nothingIsLogged();
};

void LegacyFailuresTest::damagedDocumentFailsAndLeavesWhatWasRead_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("sizes");
    const QByteArray good = "<TXSYS>" + goodSections;
    const auto add = [](const char *name, const QByteArray &document, const QString &sizes) {
        QTest::newRow(name) << document << sizes;
    };
    const auto nothing = QStringLiteral("0/0/0/0");
    const auto once = QStringLiteral("1/1/1/1");
    add("empty file", "", nothing);
    add("white space", " \n", nothing);
    add("declaration alone", "<?xml version=\"1.0\"?>", nothing);
    add("not XML", "key = value", nothing);
    add("not text", QByteArray("\0\1\2\xFF\xFE", 5), nothing);
    add("ends between sections", good, once);
    add("ends in a header", good + "<SYSTPL><TPL_Key>X</TPL_Key>", once);
    add("ends in a view", good + "<PROGVIEW><PV_PK>W</PV_PK>", once);
    add("ends in a column", good + "<SYSCOL><COL_DataType>TXT</COL_DataType>", once);
    add("ends in a list item", good + "<SYSLIST><LIST_Name>M</LIST_Name>", once);
    add("ends in a legend", good + "<LegendOfClassification><class id=\"2\"/>", QStringLiteral("1/1/1/2"));
    add("ends in an unknown element", good + "<Other><SYSTPL>", once);
    add("ends in a text", good + "<SYSTPL><TPL_Key>X", once);
    add("ends in a tag", good + "<PROGVIEW><PV_PK", once);
    add("tags that cross in a header", good + "<SYSTPL><TPL_Key>X</SYSTPL></TPL_Key></TXSYS>", once);
    add("tags that cross in a view", good + "<PROGVIEW><PV_PK>W</PROGVIEW></PV_PK></TXSYS>", once);
    add("tags that cross in a column", good + "<SYSCOL><COL_PK>W</SYSCOL></COL_PK></TXSYS>", once);
    add("tags that cross in a list item", good + "<SYSLIST><LIST_Name>M</SYSLIST></LIST_Name></TXSYS>", once);
    add("tags that cross in a legend",
        good + "<LegendOfClassification><class></LegendOfClassification></TXSYS>", QStringLiteral("1/1/1/2"));
    add("tags that cross in an unknown element", good + "<Other></TXSYS></Other>", once);
    add("unknown entity in a text", good + "<SYSTPL><TPL_Key>&unknown;</TPL_Key></SYSTPL></TXSYS>", once);
    add("attribute twice",
        good + "<LegendOfClassification><class id=\"2\" id=\"3\"/></LegendOfClassification></TXSYS>", once);
    add("prefix of no namespace", good + "<x:SYSTPL/></TXSYS>", once);
    add("second root", good + "</TXSYS><TXSYS/>", once);
    add("text after the root", good + "</TXSYS>text", once);
}

void LegacyFailuresTest::damagedDocumentFailsAndLeavesWhatWasRead()
{
    QFETCH(QByteArray, document);
    const LegacyReading reading(document);
    QVERIFY(!reading.isRead);
    QTEST(sizesOf(reading.rawData), "sizes");
}

void LegacyFailuresTest::byteThatIsNoTextFails()
{
    // How much is read before the fault depends on how far the XML reader decodes ahead.
    QVERIFY(!LegacyReading("<TXSYS><SYSTPL><TPL_Type>\xFF</TPL_Type></SYSTPL></TXSYS>").isRead);
    QVERIFY(!LegacyReading("<TXSYS><SYSTPL><TPL_Type>\x01</TPL_Type></SYSTPL></TXSYS>").isRead);
}

void LegacyFailuresTest::documentThatEndsAnywhereFails()
{
    const QByteArray document = legacyDocument(goodSections);
    for (int size = 0; size < document.size(); ++size) {
        QVERIFY2(!LegacyReading(document.left(size)).isRead, document.left(size).constData());
    }
    QVERIFY(LegacyReading(document).isRead);
}

void LegacyFailuresTest::listItemWithoutListNameFailsTheFile_data()
{
    QTest::addColumn<QByteArray>("item");
    QTest::newRow("empty section") << QByteArray("<SYSLIST/>");
    QTest::newRow("no list name") << QByteArray("<SYSLIST><LIST_Item>A</LIST_Item></SYSLIST>");
    QTest::newRow("empty list name") << QByteArray(
        "<SYSLIST><LIST_Item>A</LIST_Item><LIST_Name></LIST_Name></SYSLIST>");
    QTest::newRow("list name in other case") << QByteArray("<SYSLIST><List_Name>L</List_Name></SYSLIST>");
    QTest::newRow("list name of another section") << QByteArray("<SYSLIST><PV_Key>L</PV_Key></SYSLIST>");
}

void LegacyFailuresTest::listItemWithoutListNameFailsTheFile()
{
    QFETCH(QByteArray, item);
    const LegacyReading reading(
        legacyDocument(goodSections + item + "<PROGVIEW><PV_PK>W</PV_PK></PROGVIEW>"));
    QVERIFY(!reading.isRead);
    QCOMPARE(sizesOf(reading.rawData), QStringLiteral("1/1/1/1"));
    QCOMPARE(reading.rawData.listItems.keys(), QStringList{QStringLiteral("L")});
}

void LegacyFailuresTest::nothingIsReadBehindAFailedSection()
{
    const LegacyReading reading(legacyDocument("<SYSLIST/>" + goodSections));
    QVERIFY(!reading.isRead);
    QCOMPARE(sizesOf(reading.rawData), QStringLiteral("0/0/0/0"));
    QCOMPARE(reading.rawData.key, QString());
}

void LegacyFailuresTest::fileThatCannotBeOpenedFailsAndClearsTheRecord_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing file") << QStringLiteral("/nowhere/missing.xml");
    QTest::newRow("folder") << QStringLiteral("/tmp");
    QTest::newRow("empty name") << QString();
    QTest::newRow("below a file") << QStringLiteral("/proc/self/exe/template.xml");
}

void LegacyFailuresTest::fileThatCannotBeOpenedFailsAndClearsTheRecord()
{
    QFETCH(QString, path);
    int deletions = 0;
    CTemplateRawData rawData;
    fill(rawData, deletions);
    CTemplateXMLReader reader;
    QVERIFY(!reader.readFile(path, rawData));
    QCOMPARE(sizesOf(rawData), QStringLiteral("0/0/0/0"));
    QCOMPARE(deletions, 1);
    QCOMPARE(rawData.uniqueId, QString());
    QCOMPARE(rawData.key, QString());
    QCOMPARE(rawData.listNamePrefix, QString());
    QVERIFY(!rawData.isSystem && !rawData.isEditable && !rawData.isUpdatable);
    QCOMPARE(rawData.defaultSecClassName, QStringLiteral("kept"));
    QCOMPARE(rawData.defaultSecColorField, QStringLiteral("kept"));
    QCOMPARE(rawData.sortOrder, 7);
    QCOMPARE(rawData.catalogs.size(), 1);
}

void LegacyFailuresTest::pipeIsNotWaitedFor()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("template.xml"));
    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    CTemplateRawData rawData;
    CTemplateXMLReader reader;
    QVERIFY(!reader.readFile(path, rawData));
    QCOMPARE(openDescriptorsOf(path), 0);
}

void LegacyFailuresTest::readingClearsTheRecordButForThreeOfTheHeader()
{
    int deletions = 0;
    const TemporaryTemplate file(QStringLiteral("templates"), legacyDocument(""));
    CTemplateRawData rawData;
    fill(rawData, deletions);
    CTemplateXMLReader reader;
    QVERIFY(reader.readFile(file.path(), rawData));
    QCOMPARE(sizesOf(rawData), QStringLiteral("0/0/0/0"));
    QCOMPARE(deletions, 1);
    QCOMPARE(rawData.key, QString());
    QCOMPARE(rawData.defaultSecClassName, QStringLiteral("kept"));
    QCOMPARE(rawData.defaultSecColorField, QStringLiteral("kept"));
    QCOMPARE(rawData.sortOrder, 7);
}

void LegacyFailuresTest::nothingIsLogged()
{
    const RecordedLog log;
    LegacyReading(legacyDocument(goodSections + "<SYSCOL/>"));
    LegacyReading(legacyDocument("<SYSLIST/>"));
    LegacyReading("");
    QCOMPARE(log.lines(), QList<LogLine>());
}

QTEST_APPLESS_MAIN(LegacyFailuresTest)

#include "LegacyFailuresTest.moc"
