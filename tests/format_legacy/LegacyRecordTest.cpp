// Several sections of one kind in one raw record.

#include "support/LegacyReading.h"

#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"

#include <QTest>

using namespace Tobrix::Templates;

namespace {

QByteArray viewOf(const QByteArray &id, const QByteArray &key)
{
    return "<PROGVIEW><PV_PK>" + id + "</PV_PK><PV_Key>" + key + "</PV_Key></PROGVIEW>";
}

QByteArray itemOf(const QByteArray &list, const QByteArray &item)
{
    return "<SYSLIST><LIST_Name>" + list + "</LIST_Name><LIST_Item>" + item + "</LIST_Item></SYSLIST>";
}

QByteArray columnOf(const QByteArray &view, const QByteArray &boundColumn, const QByteArray &code = "TXT")
{
    return "<SYSCOL><COL_ProgView_FK>" + view + "</COL_ProgView_FK><COL_Bound_Column>" + boundColumn +
           "</COL_Bound_Column><COL_DataType>" + code + "</COL_DataType></SYSCOL>";
}

/// Every item in map order, as "list/item".
QStringList itemsIn(const CTemplateRawData &rawData)
{
    QStringList items;
    for (auto it = rawData.listItems.cbegin(); it != rawData.listItems.cend(); ++it) {
        items.append(it.key() + QLatin1Char('/') + it.value()->item());
    }
    return items;
}

/// Every column in map order, as "view/bound column".
QStringList columnsIn(const CTemplateRawData &rawData)
{
    QStringList columns;
    for (auto it = rawData.columns.cbegin(); it != rawData.columns.cend(); ++it) {
        columns.append(it.key() + QLatin1Char('/') + it.value()->boundColumn());
    }
    return columns;
}

} // namespace

class LegacyRecordTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void secondHeaderOverwritesWhatItNames();
    void viewsAreFiledUnderTheirUniqueId();
    void laterViewOfTheSameIdReplacesTheEarlier();
    void viewWithoutIdIsFiledUnderTheEmptyId();
    void columnsGoToTheRecordNotToTheViews();
    void itemsOfOneListAccumulateNewestFirst();
    void itemsAreOrderedByListName();
    void columnsOfOneViewAccumulateNewestFirst();
    void columnWithoutViewIsFiledUnderTheEmptyId();
    void columnOfUnknownDataTypeIsDropped_data();
    void columnOfUnknownDataTypeIsDropped();
    void catalogsAreNotTouched();
};

void LegacyRecordTest::secondHeaderOverwritesWhatItNames()
{
    const LegacyReading reading(legacyDocument(
        "<SYSTPL><TPL_Key>first</TPL_Key><TPL_Type>T</TPL_Type><TPL_IsSystem>true</TPL_IsSystem>"
        "<TPL_Editable>true</TPL_Editable><TPL_SortOrder>3</TPL_SortOrder></SYSTPL>"
        "<SYSTPL><TPL_Key>second</TPL_Key><TPL_Editable>false</TPL_Editable></SYSTPL>"));
    QVERIFY(reading.isRead);
    QCOMPARE(reading.rawData.key, QStringLiteral("second"));
    QCOMPARE(reading.rawData.isEditable, false);
    QCOMPARE(reading.rawData.type, QStringLiteral("T"));
    QCOMPARE(reading.rawData.isSystem, true);
    QCOMPARE(reading.rawData.sortOrder, 3);
}

void LegacyRecordTest::viewsAreFiledUnderTheirUniqueId()
{
    const LegacyReading reading(legacyDocument(viewOf("{1}", "a") + viewOf("{2}", "b")));
    QCOMPARE(reading.rawData.programViews.size(), 2);
    QCOMPARE(reading.rawData.programViews.value(QStringLiteral("{1}"))->key(), QStringLiteral("a"));
    QCOMPARE(reading.rawData.programViews.value(QStringLiteral("{2}"))->key(), QStringLiteral("b"));
}

void LegacyRecordTest::laterViewOfTheSameIdReplacesTheEarlier()
{
    // The leak checker reports when the earlier views are not deleted.
    const LegacyReading reading(
        legacyDocument(viewOf("{1}", "a") + viewOf("{2}", "x") + viewOf("{1}", "b") + viewOf("{1}", "c")));
    QVERIFY(reading.isRead);
    QCOMPARE(reading.rawData.programViews.size(), 2);
    QCOMPARE(reading.rawData.programViews.value(QStringLiteral("{1}"))->key(), QStringLiteral("c"));
    QCOMPARE(reading.rawData.programViews.value(QStringLiteral("{2}"))->key(), QStringLiteral("x"));
}

void LegacyRecordTest::viewWithoutIdIsFiledUnderTheEmptyId()
{
    const LegacyReading reading(legacyDocument("<PROGVIEW><PV_Key>a</PV_Key></PROGVIEW><PROGVIEW/>"));
    QVERIFY(reading.isRead);
    QCOMPARE(reading.rawData.programViews.keys(), QStringList{QString()});
    QCOMPARE(reading.rawData.programViews.value(QString())->key(), QString());
}

void LegacyRecordTest::columnsGoToTheRecordNotToTheViews()
{
    const LegacyReading reading(legacyDocument(viewOf("{1}", "a") + columnOf("{1}", "OBJ_Key")));
    QCOMPARE(reading.rawData.programViews.value(QStringLiteral("{1}"))->columnCount(), 0);
    QCOMPARE(columnsIn(reading.rawData), QStringList{QStringLiteral("{1}/OBJ_Key")});
}

void LegacyRecordTest::itemsOfOneListAccumulateNewestFirst()
{
    const LegacyReading reading(legacyDocument(itemOf("L", "1") + itemOf("L", "2") + itemOf("L", "1")));
    QCOMPARE(itemsIn(reading.rawData),
             (QStringList{QStringLiteral("L/1"), QStringLiteral("L/2"), QStringLiteral("L/1")}));
    const LegacyReading other(legacyDocument(itemOf("L", "1") + itemOf("L", "2") + itemOf("L", "3")));
    QCOMPARE(itemsIn(other.rawData),
             (QStringList{QStringLiteral("L/3"), QStringLiteral("L/2"), QStringLiteral("L/1")}));
}

void LegacyRecordTest::itemsAreOrderedByListName()
{
    const LegacyReading reading(
        legacyDocument(itemOf("b", "1") + itemOf("a", "1") + itemOf("b", "2") + itemOf("B", "1")));
    QCOMPARE(itemsIn(reading.rawData), (QStringList{QStringLiteral("B/1"), QStringLiteral("a/1"),
                                                    QStringLiteral("b/2"), QStringLiteral("b/1")}));
}

void LegacyRecordTest::columnsOfOneViewAccumulateNewestFirst()
{
    const LegacyReading reading(
        legacyDocument(columnOf("v", "1") + columnOf("u", "1") + columnOf("v", "2") + columnOf("v", "3")));
    QCOMPARE(columnsIn(reading.rawData), (QStringList{QStringLiteral("u/1"), QStringLiteral("v/3"),
                                                      QStringLiteral("v/2"), QStringLiteral("v/1")}));
}

void LegacyRecordTest::columnWithoutViewIsFiledUnderTheEmptyId()
{
    const LegacyReading reading(legacyDocument("<SYSCOL><COL_DataType>TXT</COL_DataType></SYSCOL>"));
    QVERIFY(reading.isRead);
    QCOMPARE(columnsIn(reading.rawData), QStringList{QStringLiteral("/")});
}

void LegacyRecordTest::columnOfUnknownDataTypeIsDropped_data()
{
    QTest::addColumn<QByteArray>("dropped");
    QTest::newRow("unknown code") << columnOf("v", "x", "XYZ");
    QTest::newRow("lower case") << columnOf("v", "x", "txt");
    QTest::newRow("blank before") << columnOf("v", "x", " TXT");
    QTest::newRow("empty code") << columnOf("v", "x", "");
    QTest::newRow("no code") << QByteArray("<SYSCOL><COL_ProgView_FK>v</COL_ProgView_FK></SYSCOL>");
    QTest::newRow("known, then unknown")
        << QByteArray("<SYSCOL><COL_DataType>TXT</COL_DataType><COL_DataType>XYZ</COL_DataType></SYSCOL>");
    QTest::newRow("empty section") << QByteArray("<SYSCOL/>");
}

void LegacyRecordTest::columnOfUnknownDataTypeIsDropped()
{
    QFETCH(QByteArray, dropped);
    const LegacyReading reading(legacyDocument(columnOf("v", "1") + dropped + columnOf("v", "2")));
    QVERIFY(reading.isRead);
    QCOMPARE(columnsIn(reading.rawData), (QStringList{QStringLiteral("v/2"), QStringLiteral("v/1")}));
}

void LegacyRecordTest::catalogsAreNotTouched()
{
    const TemporaryTemplate file(QStringLiteral("templates"), legacyDocument(viewOf("{1}", "a")));
    CTemplateRawData rawData;
    rawData.catalogs.append(Tobrix::CATManagement::CCatalogDescriptor());
    CTemplateXMLReader reader;
    QVERIFY(reader.readFile(file.path(), rawData));
    QCOMPARE(rawData.catalogs.size(), 1);
}

QTEST_APPLESS_MAIN(LegacyRecordTest)

#include "LegacyRecordTest.moc"
