// Items grouped into the value lists of a template.

#include "support/TextWitness.h"

#include "loading/CTemplateBuilder.h"
#include "model/CCatalogTemplate.h"
#include "model/CListItem.h"
#include "rawdata/CTemplateRawData.h"

#include <QTest>

#include <memory>

using namespace Tobrix::Templates;

namespace {

std::unique_ptr<CCatalogTemplate> build(CTemplateRawData &rawData)
{
    return std::unique_ptr<CCatalogTemplate>(CTemplateBuilder().buildTemplate(rawData, true));
}

/// Adds items in the given order, which is the reverse of the map's.
void addItems(CTemplateRawData &rawData, const QString &listName, const QList<int> &sortOrders)
{
    for (const int sortOrder : sortOrders) {
        auto item = std::make_unique<CListItem>();
        item->setSortOrder(sortOrder);
        rawData.listItems.insertMulti(listName, item.release());
    }
}

QList<int> sortOrdersOf(const CCatalogTemplate &catalogTemplate, const QString &listName)
{
    QList<int> sortOrders;
    const auto items = catalogTemplate.itemList(listName);
    for (const auto *item : items) {
        sortOrders.append(item->sortOrder());
    }
    return sortOrders;
}

} // namespace

class ListBuildingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyListButTheLastIsSorted();
    void lastListKeepsTheMapsOrder();
    void onlyListKeepsTheMapsOrder();
    void lastIsTheLastByNameNotByTime();
    void namesAreComparedExactly();
    void emptyNameIsAName();
    void recordWithoutItemsGivesNoLists();
    void itemsMoveFromTheRecordToTheTemplate();
};

void ListBuildingTest::everyListButTheLastIsSorted()
{
    CTemplateRawData rawData;
    addItems(rawData, QStringLiteral("a"), {2, 3, 1});
    addItems(rawData, QStringLiteral("b"), {10, 9, 100});
    addItems(rawData, QStringLiteral("z"), {1});
    const auto catalogTemplate = build(rawData);
    QCOMPARE(sortOrdersOf(*catalogTemplate, QStringLiteral("a")), (QList<int>{1, 2, 3}));
    QCOMPARE(sortOrdersOf(*catalogTemplate, QStringLiteral("b")), (QList<int>{9, 10, 100}));
}

void ListBuildingTest::lastListKeepsTheMapsOrder()
{
    CTemplateRawData rawData;
    addItems(rawData, QStringLiteral("A"), {2, 3, 1});
    addItems(rawData, QStringLiteral("B"), {2, 3, 1});
    const auto catalogTemplate = build(rawData);
    QCOMPARE(sortOrdersOf(*catalogTemplate, QStringLiteral("A")), (QList<int>{1, 2, 3}));
    QCOMPARE(sortOrdersOf(*catalogTemplate, QStringLiteral("B")), (QList<int>{1, 3, 2}));
}

void ListBuildingTest::onlyListKeepsTheMapsOrder()
{
    CTemplateRawData rawData;
    addItems(rawData, QStringLiteral("A"), {1, 3, 2});
    const auto catalogTemplate = build(rawData);
    QCOMPARE(sortOrdersOf(*catalogTemplate, QStringLiteral("A")), (QList<int>{2, 3, 1}));
}

void ListBuildingTest::lastIsTheLastByNameNotByTime()
{
    CTemplateRawData rawData;
    addItems(rawData, QStringLiteral("z"), {1, 3, 2});
    addItems(rawData, QStringLiteral("a"), {1, 3, 2});
    const auto catalogTemplate = build(rawData);
    QCOMPARE(sortOrdersOf(*catalogTemplate, QStringLiteral("a")), (QList<int>{1, 2, 3}));
    QCOMPARE(sortOrdersOf(*catalogTemplate, QStringLiteral("z")), (QList<int>{2, 3, 1}));
}

void ListBuildingTest::namesAreComparedExactly()
{
    CTemplateRawData rawData;
    addItems(rawData, QStringLiteral("list"), {1});
    addItems(rawData, QStringLiteral("List"), {2});
    addItems(rawData, QStringLiteral("list "), {3});
    const auto catalogTemplate = build(rawData);
    QCOMPARE(catalogTemplate->itemListNames().size(), 3);
    QCOMPARE(sortOrdersOf(*catalogTemplate, QStringLiteral("list")), QList<int>{1});
    QCOMPARE(sortOrdersOf(*catalogTemplate, QStringLiteral("List")), QList<int>{2});
    QCOMPARE(sortOrdersOf(*catalogTemplate, QStringLiteral("list ")), QList<int>{3});
}

void ListBuildingTest::emptyNameIsAName()
{
    CTemplateRawData rawData;
    addItems(rawData, QString(), {2, 1});
    addItems(rawData, QStringLiteral("a"), {3});
    const auto catalogTemplate = build(rawData);
    QCOMPARE(sortOrdersOf(*catalogTemplate, QString()), (QList<int>{1, 2}));
    QCOMPARE(sortOrdersOf(*catalogTemplate, QStringLiteral("a")), QList<int>{3});
}

void ListBuildingTest::recordWithoutItemsGivesNoLists()
{
    CTemplateRawData rawData;
    const auto catalogTemplate = build(rawData);
    QCOMPARE(catalogTemplate->itemListNames(), QStringList());
}

void ListBuildingTest::itemsMoveFromTheRecordToTheTemplate()
{
    const TextWitness caption;
    auto rawData = std::make_unique<CTemplateRawData>();
    auto item = std::make_unique<CListItem>();
    item->setCaption(caption.text());
    rawData->listItems.insert(QStringLiteral("a"), item.release());
    addItems(*rawData, QStringLiteral("b"), {1});

    auto catalogTemplate = build(*rawData);
    QVERIFY(rawData->listItems.isEmpty());
    rawData.reset();
    QVERIFY(caption.isHeld());
    QCOMPARE(catalogTemplate->itemList(QStringLiteral("a")).first()->caption(), caption.text());
    catalogTemplate.reset();
    QVERIFY(!caption.isHeld());
}

QTEST_APPLESS_MAIN(ListBuildingTest)

#include "ListBuildingTest.moc"
