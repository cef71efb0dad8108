#include "support/CountedColumn.h"
#include "support/NamedColumn.h"
#include "support/Properties.h"
#include "support/RecordedLog.h"
#include "support/TextWitness.h"

#include "model/CCatalogTemplate.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateLegendDataItem.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <memory>

using namespace Tobrix::Templates;

static_assert(!std::is_polymorphic_v<CCatalogTemplate>);
static_assert(!std::is_copy_constructible_v<CCatalogTemplate> &&
              !std::is_copy_assignable_v<CCatalogTemplate>);
static_assert(std::is_same_v<decltype(&CCatalogTemplate::getLegendOfClassification),
                             QList<CTemplateLegendDataItem> (CCatalogTemplate::*)(bool)>);

namespace {

Properties<CCatalogTemplate> templateProperties()
{
    using Template = CCatalogTemplate;
    const auto text = [](const char *value) { return QVariant(QLatin1String(value)); };
    const QVariant none = QString();
    // clang-format off
    return {
        property<Template>("uniqueId", none, text("{id}"), &Template::uniqueId, &Template::setUniqueId),
        property<Template>("catalogRef", none, text("{catalogue}"), &Template::catalogRef, &Template::setCatalogRef),
        property<Template>("catalogProfileRef", none, text("{base}"), &Template::catalogProfileRef, &Template::setCatalogProfileRef),
        property<Template>("key", none, text("Key"), &Template::key, &Template::setKey),
        property<Template>("type", none, text("SEWER"), &Template::type, &Template::setType),
        property<Template>("description", none, text("Description"), &Template::description, &Template::setDescription),
        property<Template>("version", none, text("1.2"), &Template::version, &Template::setVersion),
        property<Template>("unit", none, text("ft"), &Template::unit, &Template::setUnit),
        property<Template>("listNamePrefix", none, text("Prefix"), &Template::listNamePrefix, &Template::setListNamePrefix),
        property<Template>("defaultSecClassName", none, text("Class"), &Template::defaultSecClassName, &Template::setDefaultSecClassName),
        property<Template>("defaultSecColorField", none, text("OBJ_Color"), &Template::defaultSecColorField, &Template::setDefaultSecColorField),
        property<Template>("sortOrder", -1, 7, &Template::sortOrder, &Template::setSortOrder),
        property<Template>("isSystem", false, true, &Template::isSystem, &Template::setSystem),
        property<Template>("isEditable", false, true, &Template::isEditable, &Template::setEditable),
        property<Template>("isUpdatable", false, true, &Template::isUpdatable, &Template::setUpdatable),
    };
    // clang-format on
}

CProgramView *viewOf(const QString &key, const QList<CTemplateColumn *> &columns = {})
{
    auto view = std::make_unique<CProgramView>();
    view->setKey(key);
    view->setColumns(columns);
    return view.release();
}

CListItem *itemOf(const QString &caption)
{
    auto item = std::make_unique<CListItem>();
    item->setCaption(caption);
    return item.release();
}

CTemplateLegendDataItem legendClassFrom(double numberFrom)
{
    CTemplateLegendDataItem legendClass;
    legendClass.numberFrom = numberFrom;
    return legendClass;
}

QList<CTemplateLegendDataItem> legendClassesFrom(const QList<double> &bounds)
{
    QList<CTemplateLegendDataItem> legendClasses;
    for (const double bound : bounds) {
        legendClasses.append(legendClassFrom(bound));
    }
    return legendClasses;
}

QList<double> boundsOf(const QList<CTemplateLegendDataItem> &legendClasses)
{
    QList<double> bounds;
    for (const auto &legendClass : legendClasses) {
        bounds.append(legendClass.numberFrom);
    }
    return bounds;
}

} // namespace

class CatalogTemplateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newTemplateHasInitialValue_data();
    void newTemplateHasInitialValue();
    void setterChangesItsPropertyAlone_data();
    void setterChangesItsPropertyAlone();
    void newTemplateHoldsNoViewsListsAndLegends();

    void programViewByIndexIsNullOutsideTheList_data();
    void programViewByIndexIsNullOutsideTheList();
    void firstViewsAreTakenWithoutLogging();
    void secondViewsReplaceTheFirstAndAreLogged();
    void emptyListOfViewsDeletesTheFirstAndIsLogged();
    void viewsAfterAnEmptyListAreNotLogged();
    void viewsAreDeletedInTheirOrder();
    void nullViewsDoNoHarm();
    void programViewByKeyFindsTheEarlierOfTwo();
    void programViewByKeyComparesExactly_data();
    void programViewByKeyComparesExactly();
    void programViewByKeyDoesNotLookAtUniqueIds();

    void itemListOfUnknownNameIsEmpty();
    void itemListNamesAreComparedExactly();
    void itemListKeepsTheGivenOrder();
    void itemListOfSameNameIsReplaced();
    void itemsOfReplacedListAreNotDeleted();
    void itemListNamesAreSorted();

    void legendsAreSortedByLowerBound_data();
    void legendsAreSortedByLowerBound();
    void boundThatIsNoNumberGoesBehindAllNumbers();
    void legendsAreNotMixedUp();
    void legendsAreReplaced();
    void legendClassesAreSortedWhole();

    void deletingTheTemplateDeletesViewsColumnsAndItems();
};

void CatalogTemplateTest::newTemplateHasInitialValue_data()
{
    addPropertyRows(templateProperties());
}

void CatalogTemplateTest::newTemplateHasInitialValue()
{
    QFETCH(int, index);
    const auto property = templateProperties().at(static_cast<std::size_t>(index));
    const QVariant value = property.get(CCatalogTemplate());
    QCOMPARE(value, property.initial);
    QCOMPARE(value.userType(), property.initial.userType());
}

void CatalogTemplateTest::setterChangesItsPropertyAlone_data()
{
    addPropertyRows(templateProperties());
}

void CatalogTemplateTest::setterChangesItsPropertyAlone()
{
    QFETCH(int, index);
    const auto properties = templateProperties();
    const auto &property = properties.at(static_cast<std::size_t>(index));
    CCatalogTemplate catalogTemplate;
    QVariantMap expected = initialValues(properties);
    expected[QLatin1String(property.name)] = property.sample;
    property.set(catalogTemplate, property.sample);
    COMPARE_VALUES(valuesOf(catalogTemplate, properties), expected);
}

void CatalogTemplateTest::newTemplateHoldsNoViewsListsAndLegends()
{
    CCatalogTemplate catalogTemplate;
    QCOMPARE(catalogTemplate.programViewCount(), 0);
    QCOMPARE(catalogTemplate.programView(0), nullptr);
    QCOMPARE(catalogTemplate.itemListNames(), QStringList());
    QCOMPARE(catalogTemplate.getLegendOfClassification(false).size(), 0);
    QCOMPARE(catalogTemplate.getLegendOfClassification(true).size(), 0);
}

void CatalogTemplateTest::programViewByIndexIsNullOutsideTheList_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("key");
    QTest::newRow("far before") << std::numeric_limits<int>::min() << QString();
    QTest::newRow("before the first") << -1 << QString();
    QTest::newRow("first") << 0 << QStringLiteral("a");
    QTest::newRow("last") << 1 << QStringLiteral("b");
    QTest::newRow("behind the last") << 2 << QString();
    QTest::newRow("far behind") << std::numeric_limits<int>::max() << QString();
}

void CatalogTemplateTest::programViewByIndexIsNullOutsideTheList()
{
    QFETCH(int, index);
    QFETCH(QString, key);
    CCatalogTemplate catalogTemplate;
    catalogTemplate.setProgramViews({viewOf(QStringLiteral("a")), viewOf(QStringLiteral("b"))});
    QCOMPARE(catalogTemplate.programViewCount(), 2);
    const CProgramView *view = catalogTemplate.programView(index);
    QCOMPARE(view != nullptr, !key.isEmpty());
    if (view) {
        QCOMPARE(view->key(), key);
    }
}

void CatalogTemplateTest::firstViewsAreTakenWithoutLogging()
{
    const RecordedLog log;
    CCatalogTemplate catalogTemplate;
    catalogTemplate.setProgramViews({viewOf(QStringLiteral("a"))});
    QCOMPARE(log.lines(), QList<LogLine>());
}

void CatalogTemplateTest::secondViewsReplaceTheFirstAndAreLogged()
{
    int deletions = 0;
    int secondDeletions = 0;
    CCatalogTemplate catalogTemplate;
    catalogTemplate.setProgramViews({viewOf(QStringLiteral("a"), {new CountedColumn(deletions)}),
                                     viewOf(QStringLiteral("b"), {new CountedColumn(deletions)})});
    const RecordedLog log;
    catalogTemplate.setProgramViews({viewOf(QStringLiteral("c"), {new CountedColumn(secondDeletions)})});
    const LogLine reloaded = {3, QStringLiteral("TemplateColumn"), QStringLiteral("Program views reloaded.")};
    QCOMPARE(log.lines(), QList<LogLine>{reloaded});
    QCOMPARE(deletions, 2);
    QCOMPARE(secondDeletions, 0);
    QCOMPARE(catalogTemplate.programViewCount(), 1);
    QCOMPARE(catalogTemplate.programView(0)->key(), QStringLiteral("c"));
}

void CatalogTemplateTest::emptyListOfViewsDeletesTheFirstAndIsLogged()
{
    int deletions = 0;
    CCatalogTemplate catalogTemplate;
    catalogTemplate.setProgramViews({viewOf(QStringLiteral("a"), {new CountedColumn(deletions)})});
    const RecordedLog log;
    catalogTemplate.setProgramViews({});
    QCOMPARE(log.lines().size(), 1);
    QCOMPARE(deletions, 1);
    QCOMPARE(catalogTemplate.programViewCount(), 0);
}

void CatalogTemplateTest::viewsAfterAnEmptyListAreNotLogged()
{
    const RecordedLog log;
    CCatalogTemplate catalogTemplate;
    catalogTemplate.setProgramViews({});
    catalogTemplate.setProgramViews({viewOf(QStringLiteral("a"))});
    QCOMPARE(log.lines(), QList<LogLine>());
}

void CatalogTemplateTest::viewsAreDeletedInTheirOrder()
{
    QStringList deleted;
    const QStringList names = {QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("a")};
    QList<CProgramView *> views;
    for (const auto &name : names) {
        views.append(viewOf(name, {new NamedColumn(deleted, name)}));
    }
    const RecordedLog log;
    CCatalogTemplate catalogTemplate;
    catalogTemplate.setProgramViews(views);
    catalogTemplate.setProgramViews({});
    QCOMPARE(deleted, names);
}

void CatalogTemplateTest::nullViewsDoNoHarm()
{
    CCatalogTemplate catalogTemplate;
    catalogTemplate.setProgramViews({nullptr, viewOf(QStringLiteral("a")), nullptr});
    QCOMPARE(catalogTemplate.programViewCount(), 3);
    QCOMPARE(catalogTemplate.programView(0), nullptr);
    QCOMPARE(catalogTemplate.programViewByKey(QStringLiteral("a")), catalogTemplate.programView(1));
    QCOMPARE(catalogTemplate.programViewByKey(QString()), nullptr);
    const RecordedLog log;
    catalogTemplate.setProgramViews({nullptr});
    QCOMPARE(log.lines().size(), 1);
}

void CatalogTemplateTest::programViewByKeyFindsTheEarlierOfTwo()
{
    CCatalogTemplate catalogTemplate;
    catalogTemplate.setProgramViews(
        {viewOf(QStringLiteral("a")), viewOf(QStringLiteral("b")), viewOf(QStringLiteral("b"))});
    QCOMPARE(catalogTemplate.programViewByKey(QStringLiteral("b")), catalogTemplate.programView(1));
}

void CatalogTemplateTest::programViewByKeyComparesExactly_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("found");
    QTest::newRow("same") << QStringLiteral("Section") << true;
    QTest::newRow("other case") << QStringLiteral("section") << false;
    QTest::newRow("blank behind") << QStringLiteral("Section ") << false;
    QTest::newRow("start of it") << QStringLiteral("Sect") << false;
    QTest::newRow("empty") << QString() << false;
}

void CatalogTemplateTest::programViewByKeyComparesExactly()
{
    QFETCH(QString, key);
    CCatalogTemplate catalogTemplate;
    catalogTemplate.setProgramViews({viewOf(QStringLiteral("Section"))});
    QTEST(catalogTemplate.programViewByKey(key) != nullptr, "found");
}

void CatalogTemplateTest::programViewByKeyDoesNotLookAtUniqueIds()
{
    auto *view = viewOf(QStringLiteral("Section"));
    view->setUniqueId(QStringLiteral("{id}"));
    CCatalogTemplate catalogTemplate;
    catalogTemplate.setProgramViews({view});
    QCOMPARE(catalogTemplate.programViewByKey(QStringLiteral("{id}")), nullptr);
}

void CatalogTemplateTest::itemListOfUnknownNameIsEmpty()
{
    CCatalogTemplate catalogTemplate;
    catalogTemplate.addItemList(QStringLiteral("Materials"), {itemOf(QStringLiteral("Clay"))});
    QCOMPARE(catalogTemplate.itemList(QStringLiteral("Shapes")), QList<CListItem *>());
    // Asking does not make a list.
    QCOMPARE(catalogTemplate.itemListNames(), QStringList{QStringLiteral("Materials")});
}

void CatalogTemplateTest::itemListNamesAreComparedExactly()
{
    CCatalogTemplate catalogTemplate;
    catalogTemplate.addItemList(QStringLiteral("Materials"), {itemOf(QStringLiteral("Clay"))});
    QCOMPARE(catalogTemplate.itemList(QStringLiteral("materials")).size(), 0);
    QCOMPARE(catalogTemplate.itemList(QStringLiteral("Materials ")).size(), 0);
    QCOMPARE(catalogTemplate.itemList(QStringLiteral("Materials")).size(), 1);
}

void CatalogTemplateTest::itemListKeepsTheGivenOrder()
{
    const QList<CListItem *> items = {itemOf(QStringLiteral("b")), itemOf(QStringLiteral("a"))};
    CCatalogTemplate catalogTemplate;
    catalogTemplate.addItemList(QStringLiteral("list"), items);
    QCOMPARE(catalogTemplate.itemList(QStringLiteral("list")), items);
}

void CatalogTemplateTest::itemListOfSameNameIsReplaced()
{
    const std::unique_ptr<CListItem> first(itemOf(QStringLiteral("a")));
    CListItem *second = itemOf(QStringLiteral("b"));
    CCatalogTemplate catalogTemplate;
    catalogTemplate.addItemList(QStringLiteral("list"), {first.get()});
    catalogTemplate.addItemList(QStringLiteral("list"), {second});
    QCOMPARE(catalogTemplate.itemList(QStringLiteral("list")), QList<CListItem *>{second});
    QCOMPARE(catalogTemplate.itemListNames(), QStringList{QStringLiteral("list")});
}

void CatalogTemplateTest::itemsOfReplacedListAreNotDeleted()
{
    const TextWitness witness;
    std::unique_ptr<CListItem> replaced(itemOf(witness.text()));
    {
        CCatalogTemplate catalogTemplate;
        catalogTemplate.addItemList(QStringLiteral("list"), {replaced.get()});
        catalogTemplate.addItemList(QStringLiteral("list"), {});
        QVERIFY(witness.isHeld());
    }
    QVERIFY(witness.isHeld());
    replaced.reset();
    QVERIFY(!witness.isHeld());
}

void CatalogTemplateTest::itemListNamesAreSorted()
{
    CCatalogTemplate catalogTemplate;
    catalogTemplate.addItemList(QStringLiteral("c"), {});
    catalogTemplate.addItemList(QStringLiteral("a"), {});
    catalogTemplate.addItemList(QStringLiteral("b"), {});
    QCOMPARE(catalogTemplate.itemListNames(),
             (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
}

void CatalogTemplateTest::legendsAreSortedByLowerBound_data()
{
    QTest::addColumn<QList<double>>("given");
    QTest::addColumn<QList<double>>("sorted");
    const double infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("empty") << QList<double>{} << QList<double>{};
    QTest::newRow("one") << QList<double>{3} << QList<double>{3};
    QTest::newRow("in order") << QList<double>{1, 2, 3} << QList<double>{1, 2, 3};
    QTest::newRow("reverse") << QList<double>{3, 2, 1} << QList<double>{1, 2, 3};
    QTest::newRow("mixed") << QList<double>{2.5, -1, 100, 2.25} << QList<double>{-1, 2.25, 2.5, 100};
    QTest::newRow("equals") << QList<double>{2, 1, 2, 1} << QList<double>{1, 1, 2, 2};
    QTest::newRow("infinities") << QList<double>{infinity, 0, -infinity}
                                << QList<double>{-infinity, 0, infinity};
}

void CatalogTemplateTest::legendsAreSortedByLowerBound()
{
    QFETCH(QList<double>, given);
    QFETCH(QList<double>, sorted);
    CCatalogTemplate sections;
    sections.setLegendOfClassification(legendClassesFrom(given), {});
    QCOMPARE(boundsOf(sections.getLegendOfClassification(false)), sorted);
    CCatalogTemplate laterals;
    laterals.setLegendOfClassification({}, legendClassesFrom(given));
    QCOMPARE(boundsOf(laterals.getLegendOfClassification(true)), sorted);
}

void CatalogTemplateTest::boundThatIsNoNumberGoesBehindAllNumbers()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    CCatalogTemplate catalogTemplate;
    catalogTemplate.setLegendOfClassification(legendClassesFrom({3, nan, 2, nan, 1}), {});
    const QList<double> bounds = boundsOf(catalogTemplate.getLegendOfClassification(false));
    QCOMPARE(bounds.size(), 5);
    QCOMPARE(bounds.mid(0, 3), (QList<double>{1, 2, 3}));
    QVERIFY(std::isnan(bounds.at(3)) && std::isnan(bounds.at(4)));
}

void CatalogTemplateTest::legendsAreNotMixedUp()
{
    CCatalogTemplate catalogTemplate;
    catalogTemplate.setLegendOfClassification(legendClassesFrom({1}), legendClassesFrom({2, 3}));
    QCOMPARE(boundsOf(catalogTemplate.getLegendOfClassification(false)), QList<double>{1});
    QCOMPARE(boundsOf(catalogTemplate.getLegendOfClassification(true)), (QList<double>{2, 3}));
}

void CatalogTemplateTest::legendsAreReplaced()
{
    CCatalogTemplate catalogTemplate;
    catalogTemplate.setLegendOfClassification(legendClassesFrom({1}), legendClassesFrom({2}));
    catalogTemplate.setLegendOfClassification(legendClassesFrom({5, 4}), {});
    QCOMPARE(boundsOf(catalogTemplate.getLegendOfClassification(false)), (QList<double>{4, 5}));
    QCOMPARE(boundsOf(catalogTemplate.getLegendOfClassification(true)), QList<double>{});
}

void CatalogTemplateTest::legendClassesAreSortedWhole()
{
    CTemplateLegendDataItem high;
    high.id = QStringLiteral("high");
    high.numberFrom = 5;
    high.numberTo = 9;
    high.color = QStringLiteral("#ff0000");
    high.textA = QStringLiteral("bad");
    high.textB = QStringLiteral("very bad");
    CCatalogTemplate catalogTemplate;
    catalogTemplate.setLegendOfClassification({high, legendClassFrom(1)}, {});
    const auto legend = catalogTemplate.getLegendOfClassification(false);
    QCOMPARE(legend.size(), 2);
    const CTemplateLegendDataItem last = legend.last();
    QCOMPARE(last.id, high.id);
    QCOMPARE(last.numberFrom, high.numberFrom);
    QCOMPARE(last.numberTo, high.numberTo);
    QCOMPARE(last.color, high.color);
    QCOMPARE(last.textA, high.textA);
    QCOMPARE(last.textB, high.textB);
}

void CatalogTemplateTest::deletingTheTemplateDeletesViewsColumnsAndItems()
{
    int deletions = 0;
    const TextWitness view;
    const TextWitness item;
    const TextWitness otherItem;
    auto catalogTemplate = std::make_unique<CCatalogTemplate>();
    catalogTemplate->setProgramViews(
        {viewOf(view.text(), {new CountedColumn(deletions), nullptr, new CountedColumn(deletions)}),
         nullptr});
    catalogTemplate->addItemList(QStringLiteral("a"), {nullptr, itemOf(item.text())});
    catalogTemplate->addItemList(QStringLiteral("b"), {itemOf(otherItem.text())});
    QVERIFY(view.isHeld() && item.isHeld() && otherItem.isHeld());

    catalogTemplate.reset();
    QCOMPARE(deletions, 2);
    QVERIFY(!view.isHeld());
    QVERIFY(!item.isHeld());
    QVERIFY(!otherItem.isHeld());
}

QTEST_APPLESS_MAIN(CatalogTemplateTest)

#include "CatalogTemplateTest.moc"
