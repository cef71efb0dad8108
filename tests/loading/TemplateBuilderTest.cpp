// From raw record to template. Columns and lists are tested separately.

#include "support/CountedColumn.h"
#include "support/RecordProperties.h"
#include "support/RecordedLog.h"
#include "support/TextWitness.h"

#include "loading/CTemplateBuilder.h"
#include "model/CCatalogTemplate.h"
#include "model/CProgramView.h"
#include "rawdata/CTemplateRawData.h"

#include <QTest>

#include <memory>

using namespace Tobrix::Templates;

namespace {

std::unique_ptr<CCatalogTemplate> build(CTemplateRawData &rawData, bool isNew)
{
    return std::unique_ptr<CCatalogTemplate>(CTemplateBuilder().buildTemplate(rawData, isNew));
}

CProgramView *viewOf(const QString &uniqueId, const QList<CTemplateColumn *> &columns = {})
{
    auto view = std::make_unique<CProgramView>();
    view->setUniqueId(uniqueId);
    view->setColumns(columns);
    return view.release();
}

CTemplateLegendDataItem legendClassOf(const QString &id, double numberFrom)
{
    CTemplateLegendDataItem legendClass;
    legendClass.id = id;
    legendClass.numberFrom = numberFrom;
    return legendClass;
}

QStringList idsOf(const QList<CTemplateLegendDataItem> &legend)
{
    QStringList ids;
    for (const auto &legendClass : legend) {
        ids.append(legendClass.id);
    }
    return ids;
}

/// The header of a template, by the names of the raw record.
QVariantMap headerOf(const CCatalogTemplate &catalogTemplate)
{
    return {{QStringLiteral("uniqueId"), catalogTemplate.uniqueId()},
            {QStringLiteral("catalogRef"), catalogTemplate.catalogRef()},
            {QStringLiteral("catalogProfileRef"), catalogTemplate.catalogProfileRef()},
            {QStringLiteral("key"), catalogTemplate.key()},
            {QStringLiteral("type"), catalogTemplate.type()},
            {QStringLiteral("description"), catalogTemplate.description()},
            {QStringLiteral("version"), catalogTemplate.version()},
            {QStringLiteral("unit"), catalogTemplate.unit()},
            {QStringLiteral("listNamePrefix"), catalogTemplate.listNamePrefix()},
            {QStringLiteral("defaultSecClassName"), catalogTemplate.defaultSecClassName()},
            {QStringLiteral("defaultSecColorField"), catalogTemplate.defaultSecColorField()},
            {QStringLiteral("sortOrder"), catalogTemplate.sortOrder()},
            {QStringLiteral("isSystem"), catalogTemplate.isSystem()},
            {QStringLiteral("isEditable"), catalogTemplate.isEditable()},
            {QStringLiteral("isUpdatable"), catalogTemplate.isUpdatable()}};
}

} // namespace

class TemplateBuilderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void headerFieldIsCopiedUnlessItIsOneOfFour_data();
    void headerFieldIsCopiedUnlessItIsOneOfFour();
    void headerAndLegendsStayInTheRecord();
    void legendsAreTakenInTheirOrderAndSorted();
    void viewsMoveFromTheRecordToTheTemplateInItsOrder();
    void viewsAreTakenWithoutLogging();
    void recordWithoutViewsGivesATemplateWithoutViews_data();
    void recordWithoutViewsGivesATemplateWithoutViews();
    void currentFormatKeepsViewsAndLooseColumnsAsTheyAre();
    void legacyColumnsMoveFromTheRecordToTheirView();
    void unknownViewGivesNoTemplate();
    void failureLeavesTheRecordItsViewsAndItsHeader();
    void failureDeletesTheTemplateUnderConstruction();
    void templateOutlivesBuilderAndRecord();
};

void TemplateBuilderTest::headerFieldIsCopiedUnlessItIsOneOfFour_data()
{
    addPropertyRows(headerProperties());
}

void TemplateBuilderTest::headerFieldIsCopiedUnlessItIsOneOfFour()
{
    static const QStringList notCopied = {
        QStringLiteral("listNamePrefix"), QStringLiteral("defaultSecClassName"),
        QStringLiteral("defaultSecColorField"), QStringLiteral("sortOrder")};
    QFETCH(int, index);
    const auto properties = headerProperties();
    const auto &property = properties.at(static_cast<std::size_t>(index));
    const QString name = QLatin1String(property.name);
    QVariantMap expected = initialValues(properties);
    if (!notCopied.contains(name)) {
        expected[name] = property.sample;
    }
    for (const bool isNew : {false, true}) {
        CTemplateRawData rawData;
        property.set(rawData, property.sample);
        const auto catalogTemplate = build(rawData, isNew);
        QVERIFY(catalogTemplate);
        COMPARE_VALUES(headerOf(*catalogTemplate), expected);
    }
}

void TemplateBuilderTest::headerAndLegendsStayInTheRecord()
{
    CTemplateRawData rawData;
    QVariantMap expected;
    for (const auto &property : headerProperties()) {
        property.set(rawData, property.sample);
        expected.insert(QLatin1String(property.name), property.sample);
    }
    rawData.legendA = {legendClassOf(QStringLiteral("2"), 2), legendClassOf(QStringLiteral("1"), 1)};
    rawData.legendB = {legendClassOf(QStringLiteral("3"), 3)};
    QVERIFY(build(rawData, false));
    COMPARE_VALUES(valuesOf<CTemplateBaseData>(rawData, headerProperties()), expected);
    QCOMPARE(idsOf(rawData.legendA), (QStringList{QStringLiteral("2"), QStringLiteral("1")}));
    QCOMPARE(idsOf(rawData.legendB), QStringList{QStringLiteral("3")});
}

void TemplateBuilderTest::legendsAreTakenInTheirOrderAndSorted()
{
    CTemplateRawData rawData;
    rawData.legendA = {legendClassOf(QStringLiteral("A2"), 2), legendClassOf(QStringLiteral("A1"), 1)};
    rawData.legendB = {legendClassOf(QStringLiteral("B9"), 9), legendClassOf(QStringLiteral("B0"), 0)};
    const auto catalogTemplate = build(rawData, true);
    QCOMPARE(idsOf(catalogTemplate->getLegendOfClassification(false)),
             (QStringList{QStringLiteral("A1"), QStringLiteral("A2")}));
    QCOMPARE(idsOf(catalogTemplate->getLegendOfClassification(true)),
             (QStringList{QStringLiteral("B0"), QStringLiteral("B9")}));
}

void TemplateBuilderTest::viewsMoveFromTheRecordToTheTemplateInItsOrder()
{
    CTemplateRawData rawData;
    for (int i = 0; i < 20; ++i) {
        const QString id = QString::number(i);
        rawData.programViews.insert(id, viewOf(id));
    }
    const QList<CProgramView *> views = rawData.programViews.values();
    const auto catalogTemplate = build(rawData, false);
    QVERIFY(rawData.programViews.isEmpty());
    QList<CProgramView *> taken;
    for (int i = 0; i < catalogTemplate->programViewCount(); ++i) {
        taken.append(catalogTemplate->programView(i));
    }
    QCOMPARE(taken, views);
}

void TemplateBuilderTest::viewsAreTakenWithoutLogging()
{
    const RecordedLog log;
    CTemplateRawData rawData;
    rawData.programViews.insert(QStringLiteral("a"), viewOf(QStringLiteral("a")));
    QVERIFY(build(rawData, false));
    QCOMPARE(log.lines(), QList<LogLine>());
}

void TemplateBuilderTest::recordWithoutViewsGivesATemplateWithoutViews_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::newRow("current") << true;
    QTest::newRow("legacy") << false;
}

void TemplateBuilderTest::recordWithoutViewsGivesATemplateWithoutViews()
{
    QFETCH(bool, isNew);
    CTemplateRawData rawData;
    rawData.listItems.insert(QStringLiteral("list"), new CListItem);
    const auto catalogTemplate = build(rawData, isNew);
    QVERIFY(catalogTemplate);
    QCOMPARE(catalogTemplate->programViewCount(), 0);
    QCOMPARE(catalogTemplate->itemList(QStringLiteral("list")).size(), 1);
    QVERIFY(rawData.listItems.isEmpty());
}

void TemplateBuilderTest::currentFormatKeepsViewsAndLooseColumnsAsTheyAre()
{
    int inView = 0;
    int loose = 0;
    {
        CTemplateRawData rawData;
        auto *second = new CountedColumn(inView, QString(), 2);
        auto *first = new CountedColumn(inView, QString(), 1);
        rawData.programViews.insert(QStringLiteral("v"), viewOf(QStringLiteral("v"), {second, first}));
        auto *column = new CountedColumn(loose);
        rawData.columns.insert(QStringLiteral("nowhere"), column);
        {
            const auto catalogTemplate = build(rawData, true);
            QVERIFY(catalogTemplate);
            QCOMPARE(catalogTemplate->programView(0)->columnCount(), 2);
            QCOMPARE(catalogTemplate->programView(0)->column(0), second);
            QCOMPARE(catalogTemplate->programView(0)->column(1), first);
            QCOMPARE(rawData.columns.value(QStringLiteral("nowhere")), column);
        }
        QCOMPARE(inView, 2);
        QCOMPARE(loose, 0);
    }
    QCOMPARE(loose, 1);
}

void TemplateBuilderTest::legacyColumnsMoveFromTheRecordToTheirView()
{
    int deletions = 0;
    auto rawData = std::make_unique<CTemplateRawData>();
    rawData->programViews.insert(QStringLiteral("v"), viewOf(QStringLiteral("v")));
    rawData->columns.insertMulti(QStringLiteral("v"), new CountedColumn(deletions));
    rawData->columns.insertMulti(QStringLiteral("v"), new CountedColumn(deletions));
    auto catalogTemplate = build(*rawData, false);
    QVERIFY(catalogTemplate);
    QVERIFY(rawData->columns.isEmpty());
    rawData.reset();
    QCOMPARE(deletions, 0);
    QCOMPARE(catalogTemplate->programView(0)->columnCount(), 2);
    catalogTemplate.reset();
    QCOMPARE(deletions, 2);
}

void TemplateBuilderTest::unknownViewGivesNoTemplate()
{
    int deletions = 0;
    const RecordedLog log;
    CTemplateRawData rawData;
    rawData.columns.insert(QStringLiteral("nowhere"), new CountedColumn(deletions));
    QVERIFY(!build(rawData, false));
    QCOMPARE(log.lines(), QList<LogLine>());
}

void TemplateBuilderTest::failureLeavesTheRecordItsViewsAndItsHeader()
{
    int inView = 0;
    int ofUnknownView = 0;
    const TextWitness item;
    {
        CTemplateRawData rawData;
        rawData.key = QStringLiteral("Key");
        rawData.programViews.insert(QStringLiteral("v"),
                                    viewOf(QStringLiteral("v"), {new CountedColumn(inView)}));
        rawData.columns.insert(QStringLiteral("nowhere"), new CountedColumn(ofUnknownView));
        auto listItem = std::make_unique<CListItem>();
        listItem->setCaption(item.text());
        rawData.listItems.insert(QStringLiteral("list"), listItem.release());

        QVERIFY(!build(rawData, false));
        QCOMPARE(rawData.key, QStringLiteral("Key"));
        QCOMPARE(rawData.programViews.size(), 1);
        QCOMPARE(rawData.listItems.size(), 1);
        QCOMPARE(inView, 0);
        QVERIFY(item.isHeld());
    }
    QCOMPARE(inView, 1);
    QCOMPARE(ofUnknownView, 1);
    QVERIFY(!item.isHeld());
}

void TemplateBuilderTest::failureDeletesTheTemplateUnderConstruction()
{
    int deletions = 0;
    const TextWitness key;
    CTemplateRawData rawData;
    rawData.key = key.text();
    rawData.columns.insert(QStringLiteral("nowhere"), new CountedColumn(deletions));
    QVERIFY(!build(rawData, false));
    rawData.key.clear();
    QVERIFY(!key.isHeld());
}

void TemplateBuilderTest::templateOutlivesBuilderAndRecord()
{
    int deletions = 0;
    std::unique_ptr<CCatalogTemplate> catalogTemplate;
    {
        CTemplateRawData rawData;
        rawData.key = QStringLiteral("Key");
        rawData.programViews.insert(QStringLiteral("v"),
                                    viewOf(QStringLiteral("v"), {new CountedColumn(deletions)}));
        CTemplateBuilder builder;
        catalogTemplate.reset(builder.buildTemplate(rawData, true));
    }
    QCOMPARE(deletions, 0);
    QCOMPARE(catalogTemplate->key(), QStringLiteral("Key"));
    catalogTemplate.reset();
    QCOMPARE(deletions, 1);
}

QTEST_APPLESS_MAIN(TemplateBuilderTest)

#include "TemplateBuilderTest.moc"
