#include "model/CTemplateLegendDataItem.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <type_traits>

using namespace Tobrix::Templates;

Q_DECLARE_METATYPE(CTemplateLegendDataItem)

static_assert(std::is_same_v<decltype(&CTemplateLegendDataItem::operator==),
                             bool (CTemplateLegendDataItem::*)(const CTemplateLegendDataItem &)>);

namespace {

CTemplateLegendDataItem legendClass()
{
    CTemplateLegendDataItem item;
    item.id = QStringLiteral("3");
    item.numberFrom = 1.5;
    item.numberTo = 2.5;
    item.color = QStringLiteral("#FF8000");
    item.textA = QStringLiteral("short term");
    item.textB = QStringLiteral("within a year");
    return item;
}

template <typename Value>
CTemplateLegendDataItem legendClassWith(Value CTemplateLegendDataItem::*field, const Value &value)
{
    CTemplateLegendDataItem item = legendClass();
    item.*field = value;
    return item;
}

} // namespace

class LegendDataItemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newItemIsFromMinusOneToMinusOne();
    void itemsAreCopiedWhole();
    void itemsAreComparedByBoundsColorAndSimplifiedCaptions_data();
    void itemsAreComparedByBoundsColorAndSimplifiedCaptions();
    void boundsThatAreNoNumbersAreNeverEqual();
};

void LegendDataItemTest::newItemIsFromMinusOneToMinusOne()
{
    const CTemplateLegendDataItem item;
    QCOMPARE(item.id, QString());
    QCOMPARE(item.numberFrom, -1.0);
    QCOMPARE(item.numberTo, -1.0);
    QCOMPARE(item.color, QString());
    QCOMPARE(item.textA, QString());
    QCOMPARE(item.textB, QString());
}

void LegendDataItemTest::itemsAreCopiedWhole()
{
    const CTemplateLegendDataItem original = legendClass();
    CTemplateLegendDataItem assigned;
    assigned = original;
    const CTemplateLegendDataItem copied(original);
    for (const auto &copy : {assigned, copied}) {
        QCOMPARE(copy.id, original.id);
        QCOMPARE(copy.numberFrom, original.numberFrom);
        QCOMPARE(copy.numberTo, original.numberTo);
        QCOMPARE(copy.color, original.color);
        QCOMPARE(copy.textA, original.textA);
        QCOMPARE(copy.textB, original.textB);
    }
}

void LegendDataItemTest::itemsAreComparedByBoundsColorAndSimplifiedCaptions_data()
{
    using Item = CTemplateLegendDataItem;
    const auto text = [](const char *value) { return QString(QLatin1String(value)); };
    QTest::addColumn<Item>("other");
    QTest::addColumn<bool>("equal");
    QTest::newRow("same") << legendClass() << true;
    QTest::newRow("other id") << legendClassWith(&Item::id, text("4")) << true;
    QTest::newRow("no id") << legendClassWith(&Item::id, QString()) << true;
    QTest::newRow("other lower bound") << legendClassWith(&Item::numberFrom, 1.25) << false;
    QTest::newRow("next lower bound")
        << legendClassWith(&Item::numberFrom, std::nextafter(1.5, 2.0)) << false;
    QTest::newRow("other upper bound") << legendClassWith(&Item::numberTo, 3.5) << false;
    QTest::newRow("next upper bound") << legendClassWith(&Item::numberTo, std::nextafter(2.5, 3.0)) << false;
    QTest::newRow("color in other case") << legendClassWith(&Item::color, text("#ff8000")) << false;
    QTest::newRow("color with blank") << legendClassWith(&Item::color, text("#FF8000 ")) << false;
    QTest::newRow("first caption in other case")
        << legendClassWith(&Item::textA, text("Short term")) << false;
    QTest::newRow("blanks around first caption")
        << legendClassWith(&Item::textA, text(" \tshort term\n")) << true;
    QTest::newRow("blanks within first caption")
        << legendClassWith(&Item::textA, text("short \n term")) << true;
    QTest::newRow("no blank in first caption") << legendClassWith(&Item::textA, text("shortterm")) << false;
    QTest::newRow("second caption in other case")
        << legendClassWith(&Item::textB, text("Within a year")) << false;
    QTest::newRow("blanks around second caption")
        << legendClassWith(&Item::textB, text("  within a year ")) << true;
    QTest::newRow("blanks within second caption")
        << legendClassWith(&Item::textB, text("within  a\tyear")) << true;
    QTest::newRow("captions swapped") << [&] {
        Item item = legendClass();
        std::swap(item.textA, item.textB);
        return item;
    }() << false;
}

void LegendDataItemTest::itemsAreComparedByBoundsColorAndSimplifiedCaptions()
{
    QFETCH(CTemplateLegendDataItem, other);
    QFETCH(bool, equal);
    CTemplateLegendDataItem item = legendClass();
    QCOMPARE(item == other, equal);
    QCOMPARE(other == item, equal);
}

void LegendDataItemTest::boundsThatAreNoNumbersAreNeverEqual()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    CTemplateLegendDataItem item = legendClassWith(&CTemplateLegendDataItem::numberFrom, nan);
    QVERIFY(!(item == item));
    CTemplateLegendDataItem zero = legendClassWith(&CTemplateLegendDataItem::numberTo, 0.0);
    QVERIFY(zero == legendClassWith(&CTemplateLegendDataItem::numberTo, -0.0));
}

QTEST_APPLESS_MAIN(LegendDataItemTest)

#include "LegendDataItemTest.moc"
