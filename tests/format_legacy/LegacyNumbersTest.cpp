// The conversion of texts to numbers: decimal, otherwise zero.

#include "support/ColumnProperties.h"
#include "support/LegacyReading.h"

#include "model/CListItem.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace Tobrix::Templates;

namespace {

QVariantMap columnOf(const QByteArray &code, const QByteArray &elements)
{
    const LegacyReading reading(
        legacyDocument("<SYSCOL><COL_DataType>" + code + "</COL_DataType>" + elements + "</SYSCOL>"));
    return reading.rawData.columns.isEmpty() ? QVariantMap() : valuesOf(*reading.rawData.columns.first());
}

} // namespace

class LegacyNumbersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void integerIsDecimalOrZero_data();
    void integerIsDecimalOrZero();
    void elementWithoutTextLeavesTheInitialNumber();
    void realIsANumberOrZero_data();
    void realIsANumberOrZero();
    void rangeOfAnIntegerColumnIsSaturated_data();
    void rangeOfAnIntegerColumnIsSaturated();
};

void LegacyNumbersTest::integerIsDecimalOrZero_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("number");
    QTest::newRow("number") << QByteArray("12") << 12;
    QTest::newRow("negative") << QByteArray("-3") << -3;
    QTest::newRow("zero") << QByteArray("0") << 0;
    QTest::newRow("leading zero is decimal") << QByteArray("010") << 10;
    QTest::newRow("plus sign") << QByteArray("+5") << 5;
    QTest::newRow("white space around") << QByteArray("\n 12 ") << 12;
    QTest::newRow("nine digits") << QByteArray("999999999") << 999999999;
    QTest::newRow("many leading zeros") << QByteArray("00000000000012") << 12;
    QTest::newRow("sign alone") << QByteArray("-") << 0;
    QTest::newRow("two signs") << QByteArray("--1") << 0;
    QTest::newRow("greatest") << QByteArray("2147483647") << std::numeric_limits<int>::max();
    QTest::newRow("least") << QByteArray("-2147483648") << std::numeric_limits<int>::min();
    QTest::newRow("one more than the greatest") << QByteArray("2147483648") << 0;
    QTest::newRow("one less than the least") << QByteArray("-2147483649") << 0;
    QTest::newRow("far too great") << QByteArray("99999999999999999999") << 0;
    QTest::newRow("hexadecimal") << QByteArray("0x10") << 0;
    QTest::newRow("trailing letters") << QByteArray("12abc") << 0;
    QTest::newRow("decimal places") << QByteArray("1.5") << 0;
    QTest::newRow("whole with decimal point") << QByteArray("1.0") << 0;
    QTest::newRow("exponent") << QByteArray("1e3") << 0;
    QTest::newRow("group separator") << QByteArray("1,000") << 0;
    QTest::newRow("blank within") << QByteArray("1 2") << 0;
    QTest::newRow("word") << QByteArray("true") << 0;
    QTest::newRow("blanks") << QByteArray("  ") << 0;
    QTest::newRow("line break") << QByteArray("\n") << 0;
}

void LegacyNumbersTest::integerIsDecimalOrZero()
{
    QFETCH(QByteArray, text);
    QFETCH(int, number);
    const LegacyReading reading(legacyDocument(
        "<SYSTPL><TPL_SortOrder>" + text + "</TPL_SortOrder></SYSTPL>" +
        "<SYSLIST><LIST_Name>L</LIST_Name><LIST_SortOrder>" + text + "</LIST_SortOrder></SYSLIST>"));
    QVERIFY(reading.isRead);
    QCOMPARE(reading.rawData.sortOrder, number);
    QCOMPARE(reading.rawData.listItems.first()->sortOrder(), number);

    // Every whole number of a column is converted in the same way.
    const QList<QPair<QByteArray, QString>> elements = {{"COL_GroupLevel", QStringLiteral("groupLevel")},
                                                        {"COL_DataSourceType", QStringLiteral("typeFlags")},
                                                        {"COL_ControlType", QStringLiteral("controlType")},
                                                        {"COL_Width", QStringLiteral("width")},
                                                        {"COL_SortOrder", QStringLiteral("sortOrder")},
                                                        {"COL_Precision", QStringLiteral("precision")}};
    for (const auto &element : elements) {
        const QVariantMap column =
            columnOf("DEC", "<" + element.first + ">" + text + "</" + element.first + ">");
        QCOMPARE(column.value(element.second).toInt(), number);
    }
    const QVariantMap column = columnOf("TXT", "<COL_Length>" + text + "</COL_Length>");
    QCOMPARE(column.value(QStringLiteral("maximumTextLength")).toInt(), number);
}

void LegacyNumbersTest::elementWithoutTextLeavesTheInitialNumber()
{
    const LegacyReading reading(
        legacyDocument("<SYSTPL><TPL_SortOrder/></SYSTPL>"
                       "<SYSLIST><LIST_SortOrder/><LIST_Name>L</LIST_Name></SYSLIST>"));
    QCOMPARE(reading.rawData.sortOrder, -1);
    QCOMPARE(reading.rawData.listItems.first()->sortOrder(), -1);
    const QVariantMap column = columnOf("DEC", "<COL_Precision/> <COL_RangeFrom></COL_RangeFrom> ");
    QCOMPARE(column.value(QStringLiteral("precision")).toInt(), 2);
    QCOMPARE(column.value(QStringLiteral("minimumValue")).toDouble(), -2147483647.0);
}

void LegacyNumbersTest::realIsANumberOrZero_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("number");
    QTest::newRow("whole") << QByteArray("12") << 12.0;
    QTest::newRow("decimal places") << QByteArray("-0.125") << -0.125;
    QTest::newRow("white space around") << QByteArray(" 2.5 ") << 2.5;
    QTest::newRow("exponent") << QByteArray("1.5e3") << 1500.0;
    QTest::newRow("beyond integers") << QByteArray("4294967296") << 4294967296.0;
    QTest::newRow("far above") << QByteArray("1e300") << 1e300;
    QTest::newRow("infinite") << QByteArray("inf") << std::numeric_limits<double>::infinity();
    QTest::newRow("not a number") << QByteArray("nan") << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("decimal comma") << QByteArray("1,5") << 0.0;
    QTest::newRow("trailing letters") << QByteArray("12abc") << 0.0;
    QTest::newRow("hexadecimal") << QByteArray("0x10") << 0.0;
    QTest::newRow("word") << QByteArray("none") << 0.0;
    QTest::newRow("blanks") << QByteArray("  ") << 0.0;
}

void LegacyNumbersTest::realIsANumberOrZero()
{
    QFETCH(QByteArray, text);
    QFETCH(double, number);
    const QVariantMap column =
        columnOf("DEC", "<COL_RangeFrom>" + text + "</COL_RangeFrom><COL_RangeTo>" + text + "</COL_RangeTo>" +
                            "<COL_Steps>" + text + "</COL_Steps>");
    const LegacyReading legend(legacyDocument("<LegendOfClassification><class numberFrom=\"" + text +
                                              "\" numberTo=\"" + text + "\"/></LegendOfClassification>"));
    const CTemplateLegendDataItem legendClass = legend.rawData.legendA.value(0);
    for (const double read : {column.value(QStringLiteral("minimumValue")).toDouble(),
                              column.value(QStringLiteral("maximumValue")).toDouble(),
                              column.value(QStringLiteral("stepInterval")).toDouble(), legendClass.numberFrom,
                              legendClass.numberTo}) {
        QVERIFY2(read == number || (std::isnan(read) && std::isnan(number)),
                 qPrintable(QString::number(read)));
    }
}

void LegacyNumbersTest::rangeOfAnIntegerColumnIsSaturated_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("number");
    QTest::newRow("decimal places") << QByteArray("-7.9") << -7;
    QTest::newRow("far above") << QByteArray("1e300") << std::numeric_limits<int>::max();
    QTest::newRow("far below") << QByteArray("-1e300") << std::numeric_limits<int>::min();
    QTest::newRow("infinite") << QByteArray("inf") << std::numeric_limits<int>::max();
    QTest::newRow("not a number") << QByteArray("nan") << 0;
}

void LegacyNumbersTest::rangeOfAnIntegerColumnIsSaturated()
{
    QFETCH(QByteArray, text);
    const QVariantMap column = columnOf("INT", "<COL_RangeFrom>" + text + "</COL_RangeFrom>");
    QTEST(column.value(QStringLiteral("minimumValue")).toInt(), "number");
    QCOMPARE(column.value(QStringLiteral("maximumValue")).toInt(), 2147483647);
}

QTEST_APPLESS_MAIN(LegacyNumbersTest)

#include "LegacyNumbersTest.moc"
