#include "support/CountedColumn.h"
#include "support/NamedColumn.h"
#include "support/RecordProperties.h"
#include "support/TextWitness.h"

#include "host/CCatalogDescriptor.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "rawdata/CTemplateRawData.h"

#include <QTest>

#include <memory>
#include <type_traits>

using namespace Tobrix::Templates;

static_assert(!std::is_polymorphic_v<CTemplateRawData>);
static_assert(std::is_base_of_v<CTemplateBaseData, CTemplateRawData>);

namespace {

CListItem *itemWith(const TextWitness &witness)
{
    auto item = std::make_unique<CListItem>();
    item->setCaption(witness.text());
    return item.release();
}

CProgramView *viewWith(const TextWitness &witness, CTemplateColumn *column)
{
    auto view = std::make_unique<CProgramView>();
    view->setKey(witness.text());
    view->setColumns({column});
    return view.release();
}

Tobrix::CATManagement::CCatalogDescriptor catalogWith(const TextWitness &witness)
{
    Tobrix::CATManagement::CCatalogDescriptor catalog;
    catalog.setId(witness.text());
    return catalog;
}

} // namespace

class TemplateRawDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newRecordIsEmpty();
    void clearEmptiesEverythingButCatalogsAndThreeOfTheHeader();
    void clearDeletesItemsColumnsAndViews();
    void clearDeletesColumnsBeforeViews();
    void clearDoesNoHarmToNullEntries();
    void clearedRecordCanBeFilledAgain();
    void clearKeepsCatalogs();
    void deletingTheRecordReleasesItsCatalogs();
    void deletingTheRecordDeletesWhatIsStillInIt();
    void whatWasTakenOutIsNotDeleted();
};

void TemplateRawDataTest::newRecordIsEmpty()
{
    const CTemplateRawData rawData;
    COMPARE_VALUES(valuesOf<CTemplateBaseData>(rawData, headerProperties()),
                   initialValues(headerProperties()));
    QVERIFY(rawData.catalogs.isEmpty());
    QVERIFY(rawData.legendA.isEmpty());
    QVERIFY(rawData.legendB.isEmpty());
    QVERIFY(rawData.programViews.isEmpty());
    QVERIFY(rawData.listItems.isEmpty());
    QVERIFY(rawData.columns.isEmpty());
}

void TemplateRawDataTest::clearEmptiesEverythingButCatalogsAndThreeOfTheHeader()
{
    int deletions = 0;
    const TextWitness witness;
    CTemplateRawData rawData;
    for (const auto &property : headerProperties()) {
        property.set(rawData, property.sample);
    }
    rawData.catalogs.append(catalogWith(witness));
    rawData.legendA.append(CTemplateLegendDataItem());
    rawData.legendB.append(CTemplateLegendDataItem());
    rawData.programViews.insert(QStringLiteral("view"), viewWith(witness, nullptr));
    rawData.listItems.insert(QStringLiteral("list"), itemWith(witness));
    rawData.columns.insert(QStringLiteral("view"), new CountedColumn(deletions));

    rawData.clear();
    QVariantMap header = initialValues(headerProperties());
    header[QStringLiteral("defaultSecClassName")] = QStringLiteral("Class");
    header[QStringLiteral("defaultSecColorField")] = QStringLiteral("OBJ_Color");
    header[QStringLiteral("sortOrder")] = 7;
    COMPARE_VALUES(valuesOf<CTemplateBaseData>(rawData, headerProperties()), header);
    QVERIFY(rawData.legendA.isEmpty());
    QVERIFY(rawData.legendB.isEmpty());
    QVERIFY(rawData.programViews.isEmpty());
    QVERIFY(rawData.listItems.isEmpty());
    QVERIFY(rawData.columns.isEmpty());
    QCOMPARE(rawData.catalogs.size(), 1);
}

void TemplateRawDataTest::clearDeletesItemsColumnsAndViews()
{
    int deletions = 0;
    const TextWitness firstItem;
    const TextWitness secondItem;
    const TextWitness view;
    CTemplateRawData rawData;
    rawData.listItems.insertMulti(QStringLiteral("list"), itemWith(firstItem));
    rawData.listItems.insertMulti(QStringLiteral("list"), itemWith(secondItem));
    rawData.columns.insertMulti(QStringLiteral("view"), new CountedColumn(deletions));
    rawData.columns.insertMulti(QStringLiteral("view"), new CountedColumn(deletions));
    rawData.programViews.insert(QStringLiteral("view"), viewWith(view, new CountedColumn(deletions)));

    rawData.clear();
    QVERIFY(!firstItem.isHeld());
    QVERIFY(!secondItem.isHeld());
    QVERIFY(!view.isHeld());
    QCOMPARE(deletions, 3);
}

void TemplateRawDataTest::clearDeletesColumnsBeforeViews()
{
    QStringList deleted;
    CTemplateRawData rawData;
    rawData.programViews.insert(
        QStringLiteral("view"),
        viewWith(TextWitness(), new NamedColumn(deleted, QStringLiteral("of a view"))));
    rawData.columns.insert(QStringLiteral("view"), new NamedColumn(deleted, QStringLiteral("of no view")));
    rawData.clear();
    QCOMPARE(deleted, (QStringList{QStringLiteral("of no view"), QStringLiteral("of a view")}));
}

void TemplateRawDataTest::clearDoesNoHarmToNullEntries()
{
    CTemplateRawData rawData;
    rawData.programViews.insert(QStringLiteral("view"), nullptr);
    rawData.listItems.insert(QStringLiteral("list"), nullptr);
    rawData.columns.insert(QStringLiteral("view"), nullptr);
    rawData.clear();
    QVERIFY(rawData.programViews.isEmpty());
    QVERIFY(rawData.listItems.isEmpty());
    QVERIFY(rawData.columns.isEmpty());
}

void TemplateRawDataTest::clearedRecordCanBeFilledAgain()
{
    int deletions = 0;
    {
        CTemplateRawData rawData;
        rawData.columns.insert(QStringLiteral("view"), new CountedColumn(deletions));
        rawData.clear();
        rawData.clear();
        QCOMPARE(deletions, 1);
        rawData.columns.insert(QStringLiteral("view"), new CountedColumn(deletions));
    }
    QCOMPARE(deletions, 2);
}

void TemplateRawDataTest::clearKeepsCatalogs()
{
    const TextWitness id;
    CTemplateRawData rawData;
    rawData.catalogs.append(catalogWith(id));
    rawData.clear();
    QVERIFY(id.isHeld());
    QCOMPARE(rawData.catalogs.size(), 1);
    QCOMPARE(rawData.catalogs.first().id(), id.text());
}

void TemplateRawDataTest::deletingTheRecordReleasesItsCatalogs()
{
    const TextWitness first;
    const TextWitness second;
    auto rawData = std::make_unique<CTemplateRawData>();
    rawData->catalogs.append(catalogWith(first));
    rawData->catalogs.append(catalogWith(second));
    rawData.reset();
    QVERIFY(!first.isHeld());
    QVERIFY(!second.isHeld());
}

void TemplateRawDataTest::deletingTheRecordDeletesWhatIsStillInIt()
{
    int deletions = 0;
    const TextWitness item;
    const TextWitness view;
    auto rawData = std::make_unique<CTemplateRawData>();
    rawData->listItems.insert(QStringLiteral("list"), itemWith(item));
    rawData->columns.insert(QStringLiteral("view"), new CountedColumn(deletions));
    rawData->programViews.insert(QStringLiteral("view"), viewWith(view, new CountedColumn(deletions)));
    rawData.reset();
    QVERIFY(!item.isHeld());
    QVERIFY(!view.isHeld());
    QCOMPARE(deletions, 2);
}

void TemplateRawDataTest::whatWasTakenOutIsNotDeleted()
{
    int deletions = 0;
    auto rawData = std::make_unique<CTemplateRawData>();
    std::unique_ptr<CTemplateColumn> taken = std::make_unique<CountedColumn>(deletions);
    rawData->columns.insert(QStringLiteral("view"), taken.get());
    rawData->columns = {};
    rawData.reset();
    QCOMPARE(deletions, 0);
}

QTEST_APPLESS_MAIN(TemplateRawDataTest)

#include "TemplateRawDataTest.moc"
