// Attaching legacy columns to their views.

#include "support/CountedColumn.h"

#include "loading/CTemplateBuilder.h"
#include "model/CCatalogTemplate.h"
#include "model/CProgramView.h"
#include "rawdata/CTemplateRawData.h"

#include <QTest>

#include <memory>

using namespace Tobrix::Templates;

namespace {

std::unique_ptr<CCatalogTemplate> build(CTemplateRawData &rawData)
{
    return std::unique_ptr<CCatalogTemplate>(CTemplateBuilder().buildTemplate(rawData, false));
}

/// Adds a view under an id that differs from its own: only the former counts.
CProgramView *addView(CTemplateRawData &rawData, const QString &id)
{
    auto view = std::make_unique<CProgramView>();
    view->setUniqueId(QStringLiteral("own id of ") + id);
    view->setKey(QStringLiteral("key of ") + id);
    return rawData.programViews[id] = view.release();
}

QList<int> sortOrdersOf(const CProgramView &view)
{
    QList<int> sortOrders;
    for (int i = 0; i < view.columnCount(); ++i) {
        sortOrders.append(view.column(i)->sortOrder());
    }
    return sortOrders;
}

} // namespace

class ColumnAssociationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_deletions = 0; }

    void columnsArriveInTheirViewBySortOrder_data();
    void columnsArriveInTheirViewBySortOrder();
    void lastViewIsSortedLikeTheOthers();
    void columnsGoToTheViewThatTheyAreFiledUnder();
    void columnsOfEqualSortOrderAllArrive();
    void viewsWithoutColumnsStayEmpty();
    void recordWithoutColumnsIsNoFailure();
    void columnsReplaceThoseThatAViewHasAlready();
    void unknownViewFails_data();
    void unknownViewFails();
    void viewIdsAreComparedExactly();
    void nullViewFails();
    void failureLeavesEarlierViewsTheirColumns();
    void failureDeletesOnlyTheGroupInHand();
    void failureLeavesTheMapFilled();

private:
    CountedColumn *columnAt(int sortOrder) { return new CountedColumn(m_deletions, QString(), sortOrder); }

    int m_deletions = 0;
};

void ColumnAssociationTest::columnsArriveInTheirViewBySortOrder_data()
{
    QTest::addColumn<QList<int>>("given");
    QTest::addColumn<QList<int>>("sorted");
    QTest::newRow("one") << QList<int>{5} << QList<int>{5};
    QTest::newRow("3 and 1") << QList<int>{3, 1} << QList<int>{1, 3};
    QTest::newRow("1 and 3") << QList<int>{1, 3} << QList<int>{1, 3};
    QTest::newRow("negative") << QList<int>{0, -1, 2, -5} << QList<int>{-5, -1, 0, 2};
    QTest::newRow("by number, not by text") << QList<int>{10, 9, 100} << QList<int>{9, 10, 100};
}

void ColumnAssociationTest::columnsArriveInTheirViewBySortOrder()
{
    QFETCH(QList<int>, given);
    QFETCH(QList<int>, sorted);
    CTemplateRawData rawData;
    addView(rawData, QStringLiteral("v"));
    for (const int sortOrder : given) {
        rawData.columns.insertMulti(QStringLiteral("v"), columnAt(sortOrder));
    }
    const auto catalogTemplate = build(rawData);
    QVERIFY(catalogTemplate);
    QCOMPARE(sortOrdersOf(*catalogTemplate->programView(0)), sorted);
    QVERIFY(rawData.columns.isEmpty());
    QCOMPARE(m_deletions, 0);
}

void ColumnAssociationTest::lastViewIsSortedLikeTheOthers()
{
    CTemplateRawData rawData;
    for (const auto &id : {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}) {
        addView(rawData, id);
        for (const int sortOrder : {2, 3, 1}) {
            rawData.columns.insertMulti(id, columnAt(sortOrder));
        }
    }
    const auto catalogTemplate = build(rawData);
    QVERIFY(catalogTemplate);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(sortOrdersOf(*catalogTemplate->programView(i)), (QList<int>{1, 2, 3}));
    }
}

void ColumnAssociationTest::columnsGoToTheViewThatTheyAreFiledUnder()
{
    CTemplateRawData rawData;
    addView(rawData, QStringLiteral("a"));
    addView(rawData, QStringLiteral("b"));
    rawData.columns.insertMulti(QStringLiteral("b"), columnAt(20));
    rawData.columns.insertMulti(QStringLiteral("a"), columnAt(10));
    rawData.columns.insertMulti(QStringLiteral("b"), columnAt(21));
    const auto catalogTemplate = build(rawData);
    QVERIFY(catalogTemplate);
    QCOMPARE(sortOrdersOf(*catalogTemplate->programViewByKey(QStringLiteral("key of a"))), QList<int>{10});
    QCOMPARE(sortOrdersOf(*catalogTemplate->programViewByKey(QStringLiteral("key of b"))),
             (QList<int>{20, 21}));
}

void ColumnAssociationTest::columnsOfEqualSortOrderAllArrive()
{
    CTemplateRawData rawData;
    addView(rawData, QStringLiteral("v"));
    for (int i = 0; i < 100; ++i) {
        rawData.columns.insertMulti(QStringLiteral("v"), columnAt(i % 3));
    }
    const auto catalogTemplate = build(rawData);
    QVERIFY(catalogTemplate);
    const QList<int> sortOrders = sortOrdersOf(*catalogTemplate->programView(0));
    QCOMPARE(sortOrders.size(), 100);
    QVERIFY(std::is_sorted(sortOrders.begin(), sortOrders.end()));
}

void ColumnAssociationTest::viewsWithoutColumnsStayEmpty()
{
    CTemplateRawData rawData;
    addView(rawData, QStringLiteral("a"));
    addView(rawData, QStringLiteral("b"));
    rawData.columns.insert(QStringLiteral("a"), columnAt(1));
    const auto catalogTemplate = build(rawData);
    QVERIFY(catalogTemplate);
    QCOMPARE(catalogTemplate->programViewByKey(QStringLiteral("key of b"))->columnCount(), 0);
}

void ColumnAssociationTest::recordWithoutColumnsIsNoFailure()
{
    CTemplateRawData rawData;
    QVERIFY(build(rawData));
}

void ColumnAssociationTest::columnsReplaceThoseThatAViewHasAlready()
{
    CTemplateRawData rawData;
    addView(rawData, QStringLiteral("v"))->setColumns({columnAt(7)});
    rawData.columns.insert(QStringLiteral("v"), columnAt(1));
    const auto catalogTemplate = build(rawData);
    QCOMPARE(m_deletions, 1);
    QCOMPARE(sortOrdersOf(*catalogTemplate->programView(0)), QList<int>{1});
}

void ColumnAssociationTest::unknownViewFails_data()
{
    QTest::addColumn<QString>("viewRef");
    QTest::newRow("before the known one") << QStringLiteral("a");
    QTest::newRow("after the known one") << QStringLiteral("z");
    QTest::newRow("no reference") << QString();
    QTest::newRow("the view's own id") << QStringLiteral("own id of m");
    QTest::newRow("the view's key") << QStringLiteral("key of m");
}

void ColumnAssociationTest::unknownViewFails()
{
    QFETCH(QString, viewRef);
    {
        CTemplateRawData rawData;
        addView(rawData, QStringLiteral("m"));
        rawData.columns.insertMulti(QStringLiteral("m"), columnAt(1));
        rawData.columns.insertMulti(viewRef, columnAt(1));
        QVERIFY(!build(rawData));
    }
    QCOMPARE(m_deletions, 2);
}

void ColumnAssociationTest::viewIdsAreComparedExactly()
{
    CTemplateRawData rawData;
    addView(rawData, QStringLiteral("{view}"));
    rawData.columns.insert(QStringLiteral("{VIEW}"), columnAt(1));
    QVERIFY(!build(rawData));
}

void ColumnAssociationTest::nullViewFails()
{
    CTemplateRawData rawData;
    rawData.programViews.insert(QStringLiteral("v"), nullptr);
    rawData.columns.insert(QStringLiteral("v"), columnAt(1));
    QVERIFY(!build(rawData));
    QCOMPARE(m_deletions, 1);
}

void ColumnAssociationTest::failureLeavesEarlierViewsTheirColumns()
{
    CTemplateRawData rawData;
    const CProgramView *view = addView(rawData, QStringLiteral("a"));
    rawData.columns.insertMulti(QStringLiteral("a"), columnAt(2));
    rawData.columns.insertMulti(QStringLiteral("a"), columnAt(1));
    rawData.columns.insertMulti(QStringLiteral("b"), columnAt(1));
    QVERIFY(!build(rawData));
    QCOMPARE(rawData.programViews.value(QStringLiteral("a")), view);
    QCOMPARE(sortOrdersOf(*view), (QList<int>{1, 2}));
}

void ColumnAssociationTest::failureDeletesOnlyTheGroupInHand()
{
    int handedOver = 0;
    int inHand = 0;
    int notReached = 0;
    {
        CTemplateRawData rawData;
        addView(rawData, QStringLiteral("a"));
        addView(rawData, QStringLiteral("c"));
        rawData.columns.insertMulti(QStringLiteral("a"), new CountedColumn(handedOver));
        rawData.columns.insertMulti(QStringLiteral("b"), new CountedColumn(inHand));
        rawData.columns.insertMulti(QStringLiteral("b"), new CountedColumn(inHand));
        rawData.columns.insertMulti(QStringLiteral("c"), new CountedColumn(notReached));
        QVERIFY(!build(rawData));
        QCOMPARE(handedOver, 0);
        QCOMPARE(inHand, 2);
        QCOMPARE(notReached, 0);
    }
    QCOMPARE(handedOver, 1);
    QCOMPARE(inHand, 2);
    QCOMPARE(notReached, 1);
}

void ColumnAssociationTest::failureLeavesTheMapFilled()
{
    CTemplateRawData rawData;
    addView(rawData, QStringLiteral("a"));
    CTemplateColumn *notReached = columnAt(1);
    rawData.columns.insertMulti(QStringLiteral("a"), columnAt(1));
    rawData.columns.insertMulti(QStringLiteral("b"), columnAt(1));
    rawData.columns.insertMulti(QStringLiteral("c"), notReached);
    QVERIFY(!build(rawData));
    QCOMPARE(rawData.columns.size(), 3);
    QCOMPARE(rawData.columns.value(QStringLiteral("a")), nullptr);
    QCOMPARE(rawData.columns.value(QStringLiteral("b")), nullptr);
    QCOMPARE(rawData.columns.value(QStringLiteral("c")), notReached);
}

QTEST_APPLESS_MAIN(ColumnAssociationTest)

#include "ColumnAssociationTest.moc"
