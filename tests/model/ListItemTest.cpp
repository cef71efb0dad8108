#include "support/RecordProperties.h"
#include "support/TextWitness.h"

#include <QTest>

#include <memory>

using namespace Tobrix::Templates;

static_assert(!std::is_polymorphic_v<CListItem>);
static_assert(!std::is_copy_constructible_v<CListItem> && !std::is_copy_assignable_v<CListItem>);

class ListItemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newItemHasInitialValue_data();
    void newItemHasInitialValue();
    void setterChangesItsPropertyAlone_data();
    void setterChangesItsPropertyAlone();
    void deletingTheItemReleasesItsTexts();
};

void ListItemTest::newItemHasInitialValue_data()
{
    addPropertyRows(listItemProperties());
}

void ListItemTest::newItemHasInitialValue()
{
    QFETCH(int, index);
    const auto property = listItemProperties().at(static_cast<std::size_t>(index));
    const QVariant value = property.get(CListItem());
    QCOMPARE(value, property.initial);
    QCOMPARE(value.userType(), property.initial.userType());
}

void ListItemTest::setterChangesItsPropertyAlone_data()
{
    addPropertyRows(listItemProperties());
}

void ListItemTest::setterChangesItsPropertyAlone()
{
    QFETCH(int, index);
    const auto properties = listItemProperties();
    const auto &property = properties.at(static_cast<std::size_t>(index));
    CListItem item;
    QVariantMap expected = initialValues(properties);
    expected[QLatin1String(property.name)] = property.sample;
    property.set(item, property.sample);
    COMPARE_VALUES(valuesOf(item, properties), expected);
}

void ListItemTest::deletingTheItemReleasesItsTexts()
{
    const TextWitness caption;
    auto item = std::make_unique<CListItem>();
    item->setCaption(caption.text());
    QVERIFY(caption.isHeld());
    item.reset();
    QVERIFY(!caption.isHeld());
}

QTEST_APPLESS_MAIN(ListItemTest)

#include "ListItemTest.moc"
