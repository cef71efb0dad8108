#include "support/RecordProperties.h"

#include <QTest>

#include <type_traits>

using namespace Tobrix::Templates;

static_assert(!std::is_polymorphic_v<CColumnData>);

class ColumnDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newColumnDataHasInitialValue_data();
    void newColumnDataHasInitialValue();
    void unsetRangeIsSymmetric();
};

void ColumnDataTest::newColumnDataHasInitialValue_data()
{
    addPropertyRows(columnDataProperties());
}

void ColumnDataTest::newColumnDataHasInitialValue()
{
    QFETCH(int, index);
    const auto property = columnDataProperties().at(static_cast<std::size_t>(index));
    const QVariant value = property.get(CColumnData());
    QCOMPARE(value, property.initial);
    QCOMPARE(value.userType(), property.initial.userType());
}

void ColumnDataTest::unsetRangeIsSymmetric()
{
    const CColumnData data;
    QCOMPARE(data.minimumValue, -2147483647.0);
    QCOMPARE(data.maximumValue, 2147483647.0);
    QCOMPARE(data.stepInterval, 0.0);
    QCOMPARE(data.precision, 2);
}

QTEST_APPLESS_MAIN(ColumnDataTest)

#include "ColumnDataTest.moc"
