// Value lists: their items, names and order.

#include "CurrentFormat.h"

#include "support/RecordProperties.h"

#include "model/CListItem.h"

#include <QTest>

using namespace Tobrix::Templates;

namespace {

QByteArray list(const QByteArray &name, const QByteArray &items)
{
    return "<ValueList Name=\"" + name + "\">" + items + "</ValueList>";
}

QByteArray keyed(const QByteArray &key)
{
    return "<ValueListItem Key=\"" + key + "\"/>";
}

/// The items of a list, in the order of the record.
QString itemsOf(const CTemplateRawData &rawData, const QString &name)
{
    QStringList items;
    const auto values = rawData.listItems.values(name);
    for (const auto *item : values) {
        items.append(item->item());
    }
    return items.join(QLatin1Char(' '));
}

/// All properties of the only item.
QVariantMap onlyItemOf(const QByteArray &elements)
{
    const ReadElements read(elements);
    const auto &items = read.rawData().listItems;
    return items.size() == 1 ? valuesOf(**items.cbegin(), listItemProperties()) : QVariantMap();
}

QByteArray captions(const QByteArray &content)
{
    return "<Captions>" + content + "</Captions>";
}

} // namespace

class CurrentValueListsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyAttributeAndElementFillsItsProperty_data();
    void everyAttributeAndElementFillsItsProperty();
    void itemWithoutOrdinalIndexHasSortOrder0();
    void itemsAreFiledUnderTheirListsName();
    void newestItemOfAListComesFirst();
    void listsOfOneNameAreOne();
    void listWithoutNameIsFiledUnderTheEmptyOne();
    void emptyListLeavesNoTrace();
    void listsAreFoundAtAnyDepth_data();
    void listsAreFoundAtAnyDepth();
    void itemsAreFoundAtAnyDepth();
    void itemsOutsideOfListsAreNotRead();
    void itemsOfAListInAListAreFiledUnderBoth();
    void itemInAnItemIsAnItem();
    void captionIsTheFirstTextItemOfTheFirstCaptions_data();
    void captionIsTheFirstTextItemOfTheFirstCaptions();
    void itemsAreAppendedToThoseOfTheRecord();
};

void CurrentValueListsTest::everyAttributeAndElementFillsItsProperty_data()
{
    QTest::addColumn<QByteArray>("element");
    QTest::addColumn<QVariantMap>("changed");
    const auto row = [](const char *name, const QByteArray &element, const char *property,
                        const QVariant &value) {
        QTest::newRow(name) << element << QVariantMap{{QLatin1String(property), value}};
    };
    const QString x = QStringLiteral("x");
    row("Key", R"(<ValueListItem Key="x"/>)", "item", x);
    row("InternalKey", R"(<ValueListItem InternalKey="x"/>)", "internalValue", x);
    row("OrdinalIndex", R"(<ValueListItem OrdinalIndex="7"/>)", "sortOrder", 7);
    row("negative OrdinalIndex", R"(<ValueListItem OrdinalIndex="-7"/>)", "sortOrder", -7);
    row("caption", "<ValueListItem><Captions><TextItem>x</TextItem></Captions></ValueListItem>", "caption",
        x);
    QTest::newRow("nothing") << QByteArray("<ValueListItem/>") << QVariantMap();
    QTest::newRow("attributes that items do not have")
        << QByteArray(R"(<ValueListItem Id="x" UniqueId="x" Comment="x" Caption="x"/>)") << QVariantMap();
    QTest::newRow("lower case") << QByteArray(R"(<ValueListItem key="x" internalkey="x" ordinalindex="7"/>)")
                                << QVariantMap();
}

void CurrentValueListsTest::everyAttributeAndElementFillsItsProperty()
{
    QFETCH(QByteArray, element);
    QFETCH(QVariantMap, changed);
    QVariantMap expected = initialValues(listItemProperties());
    expected.insert(QStringLiteral("sortOrder"), 0);
    for (auto it = changed.cbegin(); it != changed.cend(); ++it) {
        expected.insert(it.key(), it.value());
    }
    COMPARE_VALUES(onlyItemOf(list("L", element)), expected);
}

void CurrentValueListsTest::itemWithoutOrdinalIndexHasSortOrder0()
{
    QCOMPARE(onlyItemOf(list("L", keyed("A"))).value(QStringLiteral("sortOrder")), QVariant(0));
    QCOMPARE(onlyItemOf(list("L", R"(<ValueListItem OrdinalIndex="x"/>)")).value(QStringLiteral("sortOrder")),
             QVariant(0));
    QCOMPARE(onlyItemOf(list("L", R"(<ValueListItem OrdinalIndex=""/>)")).value(QStringLiteral("sortOrder")),
             QVariant(0));
}

void CurrentValueListsTest::itemsAreFiledUnderTheirListsName()
{
    const ReadElements read(list("Material", R"(<ValueListItem Key="PVC" OrdinalIndex="2"/>)"
                                             R"(<ValueListItem Key="B" OrdinalIndex="1"/>)") +
                            list("Shape", keyed("EGG")));
    QCOMPARE(read.rawData().listItems.uniqueKeys(),
             (QStringList{QStringLiteral("Material"), QStringLiteral("Shape")}));
    const auto items = read.rawData().listItems.values(QStringLiteral("Material"));
    QCOMPARE(items.size(), 2);
    QCOMPARE(items.at(0)->item(), QStringLiteral("B"));
    QCOMPARE(items.at(0)->sortOrder(), 1);
    QCOMPARE(items.at(1)->item(), QStringLiteral("PVC"));
    QCOMPARE(items.at(1)->sortOrder(), 2);
    QCOMPARE(itemsOf(read.rawData(), QStringLiteral("Shape")), QStringLiteral("EGG"));
    QCOMPARE(itemsOf(read.rawData(), QStringLiteral("material")), QString());
}

void CurrentValueListsTest::newestItemOfAListComesFirst()
{
    QByteArray items;
    QStringList expected;
    for (int i = 0; i < 40; ++i) {
        items += keyed(QByteArray::number(i));
        expected.prepend(QString::number(i));
    }
    const ReadElements read(list("L", items));
    QCOMPARE(itemsOf(read.rawData(), QStringLiteral("L")), expected.join(QLatin1Char(' ')));
}

void CurrentValueListsTest::listsOfOneNameAreOne()
{
    const ReadElements read(list("L", keyed("1") + keyed("2")) + list("M", keyed("3")) +
                            list("L", keyed("4")));
    QCOMPARE(itemsOf(read.rawData(), QStringLiteral("L")), QStringLiteral("4 2 1"));
    QCOMPARE(itemsOf(read.rawData(), QStringLiteral("M")), QStringLiteral("3"));
}

void CurrentValueListsTest::listWithoutNameIsFiledUnderTheEmptyOne()
{
    const ReadElements read("<ValueList>" + keyed("1") + "</ValueList>" + list("", keyed("2")));
    QCOMPARE(itemsOf(read.rawData(), QString()), QStringLiteral("2 1"));
    QCOMPARE(read.rawData().listItems.size(), 2);
}

void CurrentValueListsTest::emptyListLeavesNoTrace()
{
    QVERIFY(ReadElements(list("L", "")).rawData().listItems.isEmpty());
    QVERIFY(ReadElements(list("L", "<Item Key=\"x\"/>text")).rawData().listItems.isEmpty());
}

void CurrentValueListsTest::listsAreFoundAtAnyDepth_data()
{
    QTest::addColumn<QByteArray>("elements");
    const QByteArray one = list("L", keyed("1"));
    QTest::newRow("below the root") << one;
    QTest::newRow("in a container") << "<ValueLists><Group>" + one + "</Group></ValueLists>";
    QTest::newRow("in a view") << viewOf(one);
    QTest::newRow("in a column") << viewOf(columnOf(one));
    QTest::newRow("in a part of a column") << viewOf(columnOf("<Caption>" + one + "</Caption>"));
    QTest::newRow("in a column outside of views") << columnOf(one);
    QTest::newRow("in a text item") << "<TextItem>" + one + "</TextItem>";
    QTest::newRow("in a legend") << "<ClassificationColorScopes>" + one + "</ClassificationColorScopes>";
    QTest::newRow("in the defaults") << "<DefaultValues>" + one + "</DefaultValues>";
    QTest::newRow("in the name") << "<Name>" + one + "</Name>";
    QTest::newRow("in the catalogues")
        << "<AssignedCatalogs><Catalog>" + one + "</Catalog></AssignedCatalogs>";
}

void CurrentValueListsTest::listsAreFoundAtAnyDepth()
{
    QFETCH(QByteArray, elements);
    const ReadElements read(elements);
    QCOMPARE(read.rawData().listItems.size(), 1);
    QCOMPARE(itemsOf(read.rawData(), QStringLiteral("L")), QStringLiteral("1"));
}

void CurrentValueListsTest::itemsAreFoundAtAnyDepth()
{
    const ReadElements read(list("L", "<A>" + keyed("1") + "<B>" + keyed("2") + "</B></A>" +
                                          viewOf(columnOf(keyed("3"))) + keyed("4")));
    QCOMPARE(itemsOf(read.rawData(), QStringLiteral("L")), QStringLiteral("4 3 2 1"));
}

void CurrentValueListsTest::itemsOutsideOfListsAreNotRead()
{
    const ReadElements read(keyed("1") + list("L", keyed("2")) + keyed("3"));
    QCOMPARE(read.rawData().listItems.size(), 1);
    QCOMPARE(itemsOf(read.rawData(), QStringLiteral("L")), QStringLiteral("2"));
}

void CurrentValueListsTest::itemsOfAListInAListAreFiledUnderBoth()
{
    const ReadElements read(list("Outer", keyed("1") + list("Inner", keyed("2")) + keyed("3")));
    QCOMPARE(itemsOf(read.rawData(), QStringLiteral("Outer")), QStringLiteral("3 2 1"));
    QCOMPARE(itemsOf(read.rawData(), QStringLiteral("Inner")), QStringLiteral("2"));

    const ReadElements ofOneName(list("L", keyed("1") + list("L", keyed("2"))));
    QCOMPARE(itemsOf(ofOneName.rawData(), QStringLiteral("L")), QStringLiteral("2 2 1"));

    const ReadElements inAnItem(
        list("Outer", "<ValueListItem Key=\"1\">" + list("Inner", keyed("2")) + "</ValueListItem>"));
    QCOMPARE(itemsOf(inAnItem.rawData(), QStringLiteral("Outer")), QStringLiteral("2 1"));
    QCOMPARE(itemsOf(inAnItem.rawData(), QStringLiteral("Inner")), QStringLiteral("2"));
}

void CurrentValueListsTest::itemInAnItemIsAnItem()
{
    const ReadElements read(list("L", "<ValueListItem Key=\"1\"><ValueListItem Key=\"2\">" +
                                          captions("<TextItem>inner</TextItem>") + "</ValueListItem>" +
                                          captions("<TextItem>outer</TextItem>") + "</ValueListItem>"));
    const auto items = read.rawData().listItems.values(QStringLiteral("L"));
    QCOMPARE(items.size(), 2);
    QCOMPARE(items.at(0)->item(), QStringLiteral("2"));
    QCOMPARE(items.at(0)->caption(), QStringLiteral("inner"));
    // The first captions below the outer item are the inner one's.
    QCOMPARE(items.at(1)->item(), QStringLiteral("1"));
    QCOMPARE(items.at(1)->caption(), QStringLiteral("inner"));
}

void CurrentValueListsTest::captionIsTheFirstTextItemOfTheFirstCaptions_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("caption");
    const QString x = QStringLiteral("x");
    const QByteArray first = "<TextItem>x</TextItem>";
    const QByteArray second = "<TextItem>y</TextItem>";
    QTest::newRow("one") << captions(first) << x;
    QTest::newRow("two languages") << captions(first + second) << x;
    QTest::newRow("two captions") << captions(first) + captions(second) << x;
    QTest::newRow("empty captions first") << captions("") + captions(first) << QString();
    QTest::newRow("empty text item first") << captions("<TextItem/>" + first) << QString();
    QTest::newRow("text item deeper") << captions("<A><B>" + first + "</B></A>") << x;
    QTest::newRow("captions deeper") << "<A>" + captions(first) + "</A>" << x;
    QTest::newRow("deeper but first") << "<A>" + captions(first) + "</A>" + captions(second) << x;
    QTest::newRow("text item alone") << first << QString();
    QTest::newRow("bare text") << captions("x") << QString();
    QTest::newRow("caption instead of captions") << "<Caption>" + first + "</Caption>" << QString();
    QTest::newRow("untrimmed") << captions("<TextItem> x </TextItem>") << QStringLiteral(" x ");
    QTest::newRow("text with elements") << captions("<TextItem>x<b>y</b></TextItem>") << QStringLiteral("xy");
    QTest::newRow("text item in a text item")
        << captions("<TextItem>x" + second + "</TextItem>") << QStringLiteral("xy");
    QTest::newRow("CDATA") << captions("<TextItem><![CDATA[<x>]]></TextItem>") << QStringLiteral("<x>");
    QTest::newRow("text item of a column within")
        << captions(viewOf(columnOf("<Caption>" + first + "</Caption>")) + second) << x;
}

void CurrentValueListsTest::captionIsTheFirstTextItemOfTheFirstCaptions()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, caption);
    const QVariantMap item = onlyItemOf(list("L", "<ValueListItem>" + content + "</ValueListItem>"));
    QCOMPARE(item.value(QStringLiteral("caption")), QVariant(caption));
}

void CurrentValueListsTest::itemsAreAppendedToThoseOfTheRecord()
{
    CTemplateRawData rawData;
    QVERIFY(readDocument(currentDocument(list("L", keyed("1"))), rawData));
    QVERIFY(readDocument(currentDocument(list("L", keyed("2"))), rawData));
    QCOMPARE(itemsOf(rawData, QStringLiteral("L")), QStringLiteral("2 1"));
}

QTEST_GUILESS_MAIN(CurrentValueListsTest)

#include "CurrentValueListsTest.moc"
